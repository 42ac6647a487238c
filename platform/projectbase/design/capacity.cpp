// SPDX-License-Identifier: MIT
#include "projectbase/design/capacity.h"

#include <wx/translation.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace design {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

bool HasCurve(const ResinRegeneration& regeneration)
{
    return std::isfinite(regeneration.capacityMax);
}

/// Of nothing, no share.
double Share(double part, double whole)
{
    return whole == 0.0 ? 0.0 : part / whole;
}

void SetBase(const CapacityInputs& inputs, Capacity& capacity)
{
    const Resin& resin = *inputs.resin;
    if (!IsRegeneratedWith(resin, inputs.chemical))
        return;
    if (std::ranges::none_of(resin.regenerations, HasCurve)) {
        capacity.base = resin.capacity;
        capacity.origin = wxTRANSLATE("typical figure of the resin");
        return;
    }
    const auto* own = FindRegeneration(resin, inputs.chemical, inputs.isCounterCurrent ? "COUNTER" : "CO");
    const bool isOwn = own != nullptr && HasCurve(*own);
    const auto* curve = isOwn ? own : FindRegeneration(resin, inputs.chemical, "CO");
    if (curve == nullptr || !HasCurve(*curve))
        return;
    capacity.base = CapacityOfCurve(*curve, inputs.level);
    if (!inputs.isCounterCurrent)
        capacity.origin = wxTRANSLATE("curve of co-current regeneration");
    else if (isOwn)
        capacity.origin = wxTRANSLATE("curve of counter-current regeneration");
    else
        capacity.origin = wxTRANSLATE("curve of co-current regeneration, as counter-current has none");
}

/// Times a factor that is not 1.
void Correct(Capacity& capacity, const char* name, double factor)
{
    capacity.value *= factor;
    if (factor != 1.0)
        capacity.all.at(capacity.count++) = {name, factor};
}

void CorrectForCations(const CapacityInputs& inputs, Capacity& capacity)
{
    const double cations = inputs.load.Cations();
    if (inputs.isHydrogenForm) {
        const double share = Share(inputs.load.monovalent, cations);
        Correct(capacity, wxTRANSLATE("share of sodium, potassium and ammonium"),
                1.0 + 0.2 * (share > 0.5 ? 0.5 : share));
    }
    if (inputs.chemical == "H2SO4")
        Correct(capacity, wxTRANSLATE("hardness with sulfuric acid"),
                1.0 - 0.1 * Share(inputs.load.hardness, cations));
}

void CorrectForAnions(const CapacityInputs& inputs, Capacity& capacity)
{
    Correct(capacity, wxTRANSLATE("share of chloride"),
            1.0 - 0.1 * Share(inputs.load.chloride, inputs.load.StrongAnions()));
    const double silica = 4.0 * Share(inputs.load.silica, inputs.load.Anions());
    Correct(capacity, wxTRANSLATE("share of silica"), 1.0 - 0.175 * (silica > 1.0 ? 1.0 : silica));
}

}  // namespace

double CapacityOfCurve(const ResinRegeneration& regeneration, double level)
{
    return level >= 0.0 ? -regeneration.capacityMax * std::expm1(-regeneration.k * level) : kUnknown;
}

Capacity OperatingCapacity(const CapacityInputs& inputs)
{
    Capacity capacity{.value = kUnknown, .base = kUnknown};
    if (!std::isnan(inputs.typed)) {
        capacity.value = capacity.base = inputs.typed;
        capacity.origin = wxTRANSLATE("as typed");
        return capacity;
    }
    if (inputs.resin == nullptr)
        return capacity;
    SetBase(inputs, capacity);
    capacity.value = capacity.base;
    if (std::isnan(capacity.base))
        return capacity;
    if (inputs.resin->kind == "SBA")
        CorrectForAnions(inputs, capacity);
    else if (inputs.resin->kind == "SAC" || inputs.resin->kind == "WAC")
        CorrectForCations(inputs, capacity);
    constexpr double kReference = 20.0;  // °C
    if (!(inputs.temperature >= kReference))
        Correct(capacity, wxTRANSLATE("temperature"),
                std::isnan(inputs.temperature)
                    ? kUnknown
                    : std::max(0.5, 1.0 - 0.0075 * (kReference - inputs.temperature)));
    return capacity;
}

}  // namespace design
