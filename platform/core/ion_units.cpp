// SPDX-License-Identifier: MIT
#include "core/ion_units.h"

namespace ions {

namespace {

struct Unit
{
    std::string_view text;
    double factor;  // to mg/l for a mass, else to meq/l
    bool isMass;
};

constexpr Unit kUnits[]{
    {"meq/l", 1.0, false},      {"mg/l", 1.0, true},        {"g/m3", 1.0, true},
    {"ppm", 1.0, true},         {"ppb", 1.0e-3, true},      {"g/l", 1.0e3, true},
    {"ppm CaCO3", 0.02, false}, {"mgCaCO3/l", 0.02, false}, {"\u00b0d", 0.357143, false},
    {"\u00b0f", 0.2, false},    {"\u00b0a", 0.34, false},   {"\u00b0e", 0.29, false},
};

const Unit& FindUnit(std::string_view text)
{
    for (const Unit& unit : kUnits) {
        if (unit.text == text)
            return unit;
    }
    return kUnits[0];
}

}  // namespace

UnitKind KindOf(std::string_view text)
{
    const Unit& unit = FindUnit(text);
    if (unit.text != text)
        return UnitKind::None;
    return unit.isMass ? UnitKind::Mass : UnitKind::Equivalents;
}

double ToMeqPerLitre(double value, std::string_view unitText, double equivalentWeight)
{
    const Unit& unit = FindUnit(unitText);
    const double amount = value * unit.factor;
    return unit.isMass && equivalentWeight > 0.0 ? amount / equivalentWeight : amount;
}

double FromMeqPerLitre(double meqPerLitre, std::string_view unitText, double equivalentWeight)
{
    const Unit& unit = FindUnit(unitText);
    if (unit.isMass && equivalentWeight > 0.0)
        meqPerLitre *= equivalentWeight;
    return meqPerLitre / unit.factor;
}

double ToMgPerLitre(double value, std::string_view unitText, double equivalentWeight)
{
    const Unit& unit = FindUnit(unitText);
    if (unit.isMass || !(equivalentWeight > 0.0))
        return value * unit.factor;
    return value * unit.factor * equivalentWeight;
}

}  // namespace ions
