// SPDX-License-Identifier: MIT
#include "projectbase/water/detection_limits.h"

#include "core/detection_limit.h"
#include "projectbase/water/laboratory_import.h"

#include <algorithm>
#include <array>

namespace water {
namespace {

constexpr std::array<std::string_view, 8> kOthers{"liquid/co2.orig", "liquid/fe.total",  "liquid/cl.free",
                                                  "liquid/h2s",      "liquid/turbidity", "liquid/tss",
                                                  "liquid/oil",      "liquid/toc"};

}  // namespace

bool TakesDetectionLimit(std::string_view key)
{
    return std::ranges::find(kOthers, key) != kOthers.end() ||
           std::ranges::find(IonRows(), key, &IonRow::orig) != IonRows().end();
}

double ShareOfLimits(const DetailList& liquid)
{
    return ShareOf(LimitReadingOf(liquid.At("liquid/limits").GetStdStringValue()));
}

double CountedValue(const DetailList& liquid, std::string_view key)
{
    const double typed = liquid.At(key).GetDoubleValue();
    return detection_limit::Is(typed) ? detection_limit::Counted(typed, ShareOfLimits(liquid)) : typed;
}

std::string TypedText(const std::string& key, double value, const numbertext::Style& style,
                      const numbertext::Separators& separators)
{
    return TakesDetectionLimit(key) ? detection_limit::Format(value, style, separators)
                                    : numbertext::Format(value, style, separators);
}

bool IsBelowDetection(const DetailList& liquid, std::string_view ion)
{
    const IonRow* row = FindIonRow(ion);
    return row != nullptr && detection_limit::Is(liquid.At(row->orig).GetDoubleValue());
}

ions::NormalizedIon LimitOf(const DetailList& liquid, const IonRow& row)
{
    const double typed = liquid.At(row.orig).GetDoubleValue();
    if (!detection_limit::Is(typed))
        return {};
    const std::string name = row.isNamed ? liquid.At(row.name).GetStdStringValue() : std::string();
    return ions::Normalize({row.ion, -typed, liquid.At(row.unit).GetStdStringValue(), name, row.isNamed});
}

bool HasDetectionLimits(const DetailList& liquid)
{
    const auto isLimit = [&liquid](std::string_view key) {
        return detection_limit::Is(liquid.At(key).GetDoubleValue());
    };
    return isLimit("liquid/co2.orig") || std::ranges::any_of(IonRows(), isLimit, &IonRow::orig);
}

ChargeSums LimitSums(const DetailList& liquid)
{
    ChargeSums sums;
    for (const IonRow& row : IonRows()) {
        if (row.countsAsCharge)
            (row.isCation ? sums.cations : sums.anions) += LimitOf(liquid, row).meqPerLitre;
    }
    return sums;
}

}  // namespace water
