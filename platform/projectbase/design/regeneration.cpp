// SPDX-License-Identifier: MIT
#include "projectbase/design/regeneration.h"

#include <cmath>
#include <limits>

namespace design {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr double kGramsPerKilogram = 1000.0;
constexpr double kWhole = 100.0;  // %

double Quotient(double a, double b)
{
    return b > 0.0 ? a / b : kUnknown;
}

/// Where the equivalents of a regenerant stand among the ions of its waste: the one that exchanges, which is
/// used up, and the one that goes along.
void AddRegenerant(const Regenerant& regenerant, double equivalents, double excess, bool isCationBed,
                   Waste& waste)
{
    Ions& ions = waste.ions;
    if (regenerant.kind == "acid") {
        (regenerant.key == "H2SO4" ? ions.sulfate : ions.chloride) += equivalents;
        waste.neutral += excess;
    } else if (regenerant.kind == "base") {
        ions.monovalent += equivalents;
        waste.neutral -= excess;
    } else {
        ions.monovalent += isCationBed ? excess : equivalents;
        ions.chloride += isCationBed ? equivalents : excess;
    }
}

}  // namespace

double AppliedConcentration(const Dilution& dilution)
{
    if (!dilution.isProgressive)
        return dilution.first > 0.0 ? dilution.first : kUnknown;
    const double portion = dilution.portion;
    if (!(portion >= 0.0 && portion <= kWhole))
        return kUnknown;
    // A dilution that nothing comes in need not be known.
    double solution = 0.0;
    if (portion > 0.0)
        solution += Quotient(portion, dilution.first);
    if (portion < kWhole)
        solution += Quotient(kWhole - portion, dilution.second);
    return kWhole / solution;
}

Dose DoseOf(const Regenerant& regenerant, double volume, double level, double load)
{
    Dose dose;
    dose.mass = volume * level;
    dose.equivalents = dose.mass * kGramsPerKilogram / regenerant.equivalentMass;
    dose.ratio = kWhole * Quotient(dose.equivalents, load);
    dose.excess = dose.equivalents - load;
    return dose;
}

Waste& Waste::operator+=(const Waste& other)
{
    ions.hardness += other.ions.hardness;
    ions.monovalent += other.ions.monovalent;
    ions.otherCations += other.ions.otherCations;
    ions.chloride += other.ions.chloride;
    ions.sulfate += other.ions.sulfate;
    ions.carbon += other.ions.carbon;
    ions.silica += other.ions.silica;
    ions.otherAnions += other.ions.otherAnions;
    ions.organics += other.ions.organics;
    neutral += other.neutral;
    return *this;
}

Waste WasteOf(const Regenerant& regenerant, const Dose& dose, const Ions& load)
{
    Waste waste{.ions = load, .neutral = 0.0};
    // A bed takes either cations or anions; one that takes nothing gives the regenerant back.
    const bool isCationBed = regenerant.kind == "acid" || (regenerant.kind == "salt" && load.Anions() == 0.0);
    AddRegenerant(regenerant, dose.equivalents, dose.excess, isCationBed, waste);
    return waste;
}

double MassOf(const Regenerant& regenerant, double equivalents)
{
    return equivalents * regenerant.equivalentMass / kGramsPerKilogram;
}

}  // namespace design
