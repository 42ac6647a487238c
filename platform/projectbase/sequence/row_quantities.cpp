// SPDX-License-Identifier: MIT
#include "projectbase/sequence/row_quantities.h"

#include <cmath>

namespace sequence {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

double Finite(double value)
{
    return std::isfinite(value) ? value : kUnknown;
}

double Quotient(double value, double divisor)
{
    return Finite(value / divisor);
}

/// Fills the flows that were not typed from the flow rate, which is m³/h.
void SetFlow(RowQuantities& row, double q, std::string_view typed, const BedSize& bed)
{
    row.q = typed == "q" ? row.q : q;
    row.v = typed == "v" ? row.v : Quotient(q, bed.area);
    row.qBv = typed == "q.bv" ? row.qBv : Quotient(q, bed.volume);
}

std::string_view FlowKey(std::string_view flow)
{
    return flow == "q" || flow == "q.bv" ? flow : "v";
}

double FlowRate(const RowQuantities& row, std::string_view flow, const BedSize& bed)
{
    if (flow == "q")
        return row.q;
    return Finite(flow == "q.bv" ? row.qBv * bed.volume : row.v * bed.area);
}

}  // namespace

RowQuantities FollowTyped(const RowQuantities& row, std::string_view flow, std::string_view amount,
                          const BedSize& bed)
{
    RowQuantities result = row;
    const std::string_view typed = FlowKey(flow);
    const double q = FlowRate(row, typed, bed);
    SetFlow(result, q, typed, bed);
    if (amount == "vol" || amount == "vol.bv") {
        const bool inBedVolumes = amount == "vol.bv";
        const double volume = inBedVolumes ? Finite(row.volBv * bed.volume) : row.vol;
        result.t = Quotient(volume, q);
        result.vol = volume;
        result.volBv = inBedVolumes ? row.volBv : Quotient(volume, bed.volume);
        return result;
    }
    result.vol = Finite(q * row.t);
    result.volBv = Quotient(result.vol, bed.volume);
    return result;
}

RowQuantities FollowVolume(const RowQuantities& row, double volume, std::string_view flow,
                           std::string_view amount, const BedSize& bed)
{
    RowQuantities result = row;
    result.vol = volume;
    result.volBv = Quotient(volume, bed.volume);
    if (amount == "t") {
        SetFlow(result, Quotient(volume, row.t), "", bed);
        return result;
    }
    const std::string_view typed = FlowKey(flow);
    const double q = FlowRate(row, typed, bed);
    SetFlow(result, q, typed, bed);
    result.t = Quotient(volume, q);
    return result;
}

}  // namespace sequence
