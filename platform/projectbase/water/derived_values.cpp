// SPDX-License-Identifier: MIT
#include "core/ion_table.h"
#include "core/ion_units.h"
#include "projectbase/water/alkalinity.h"
#include "projectbase/water/carbonic_acid.h"
#include "projectbase/water/conductivity.h"
#include "projectbase/water/ion_rows.h"
#include "projectbase/water/normalization.h"
#include "projectbase/water/short_analysis.h"
#include "projectbase/water/totals.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace water {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

double FiniteOrNone(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

Species SpeciesOfRow(const DetailList& liquid, const IonRow& row)
{
    if (row.species)
        return *row.species;
    const auto reference = ions::ReferenceKey(row.ion, liquid.At(row.name).GetStdStringValue());
    return SpeciesOfKey(reference).value();
}

bool IsWaterIon(const IonRow& row)
{
    return row.species == Species::H || row.species == Species::Oh;
}

/// mmol/l, 0 where it is not known.
double TypedOrCalculatedCo2(DetailList& liquid, const Composition& composition, double pH, double celsius)
{
    if (liquid.At("liquid/calculate.co2").GetBoolValue())
        liquid.At("liquid/co2.mgl")
            .SetValue(Co2OfPh(composition, pH, celsius) * ions::FindIon("co2")->molarMass);
    return Co2Of(liquid);
}

/// What is left to be closed once the ions that the pH brings along are counted.
Closing ClosingBesidePh(const Totals& totals, double pH, double celsius)
{
    constexpr int kPasses = 3;  // each changes the amount by some percent of the last
    Closing closing;
    for (int pass = 0; pass < kPasses; ++pass) {
        Composition closed = totals.composition;
        closed[Species::Na] += closing.sodium;
        closed[Species::Cl] += closing.chloride;
        const PhIons ions = PhIonsIn(closed, pH, celsius);
        closing = ClosingOf(totals.charges.cations - totals.charges.anions + ions.hydrogen + ions.bisulfate -
                            ions.hydroxide);
    }
    return closing;
}

/// Sets the normalised ions of a short analysis. Returns false where there is no solution.
bool ApplyShortAnalysis(DetailList& liquid, bool fromTds)
{
    const double meq = fromTds
                           ? SodiumChlorideFromTds(liquid.At("liquid/tds.short").GetDoubleValue())
                           : SodiumChlorideFromConductivity(liquid.At("liquid/cond.short").GetDoubleValue(),
                                                            liquid.At("liquid/temp").GetDoubleValue());
    for (const IonRow& row : IonRows()) {
        const bool isSalt = row.species == Species::Na || row.species == Species::Cl;
        const double weight = isSalt ? ions::FindIon(row.ion)->equivalentWeight : 0.0;
        liquid.At(row.meql).SetValue(isSalt ? meq : 0.0);
        liquid.At(row.mgl).SetValue(isSalt ? meq * weight : 0.0);
    }
    return std::isfinite(meq);
}

/// Adds the amounts that close the balance to everything but the charge sums.
void CloseBalance(Totals& totals, const Closing& closing)
{
    totals.composition[Species::Na] += closing.sodium;
    totals.composition[Species::Cl] += closing.chloride;
    totals.mass += closing.sodium * ions::FindIon("na")->equivalentWeight +
                   closing.chloride * ions::FindIon("cl")->equivalentWeight;
}

void SetUnknown(DetailList& liquid)
{
    for (const auto* key : {"liquid/sum.c.meql", "liquid/sum.a.meql", "liquid/na.plus.meql",
                            "liquid/cl.plus.meql", "liquid/tds", "liquid/ionic.strength", "liquid/cond",
                            "liquid/cond25", "liquid/p.osmotic", "liquid/residue", "liquid/balance.error"})
        liquid.At(key).SetValue(kUnknown);
    // What was calculated before would stay else.
    if (liquid.At("liquid/calculate.co2").GetBoolValue())
        liquid.At("liquid/co2.mgl").SetValue(kUnknown);
}

void SetPhysicalValues(DetailList& liquid, const Composition& composition, double celsius)
{
    const Speciation speciation = Speciate(composition, celsius);
    liquid.At("liquid/ionic.strength").SetValue(IonicStrength(composition));
    liquid.At("liquid/cond").SetValue(Conductivity(speciation, celsius));
    liquid.At("liquid/cond25").SetValue(Conductivity(composition, 25.0));
    liquid.At("liquid/p.osmotic").SetValue(OsmoticPressure(speciation, celsius));
}

/// Hardness, alkalinity and acidity, of which a short analysis knows nothing.
void SetEquivalents(DetailList& liquid, const Composition& composition, bool isShort)
{
    const auto set = [&](const char* key, double value) {
        liquid.At(key).SetValue(isShort ? kUnknown : value);
    };
    constexpr double kMeqPerMmol = 2.0;
    set("liquid/hardness.total", kMeqPerMmol * TotalHardness(composition));
    set("liquid/hardness.carbonate", kMeqPerMmol * CarbonateHardness(composition));
    set("liquid/alkalinity.m", AlkalinityM(composition));
    set("liquid/alkalinity.p", isShort ? kUnknown : AlkalinityPOf(liquid, composition));
    set("liquid/ema", EquivalentMineralAcidity(composition));
}

void FillRow(DetailList& liquid, std::string_view ion, double meq)
{
    const IonRow& row = *FindIonRow(ion);
    liquid.At(row.orig).SetValue(meq);
    DetailData& unit = liquid.At(row.unit);
    if (unit.GetStdStringValue() != ions::kMeqPerLitre)
        unit.SetValue(std::string(ions::kMeqPerLitre));
    liquid.At(row.meql).SetValue(meq);
    liquid.At(row.mgl).SetValue(meq * ions::FindIon(ion)->equivalentWeight);
}

}  // namespace

Totals AddIons(const DetailList& liquid, bool withWaterIons)
{
    Totals totals;
    for (const IonRow& row : IonRows()) {
        if (IsWaterIon(row) && !withWaterIons)
            continue;
        const double meq = liquid.At(row.meql).GetDoubleValue();
        const double mg = liquid.At(row.mgl).GetDoubleValue();
        if (meq == 0.0 || !std::isfinite(meq) || !std::isfinite(mg))
            continue;
        totals.mass += mg;
        if (row.countsAsCharge)
            (row.isCation ? totals.charges.cations : totals.charges.anions) += meq;
        const Species species = SpeciesOfRow(liquid, row);
        totals.composition[species] += std::max(0.0, meq) / std::max(1, std::abs(Charge(species)));
    }
    // The cation of an amine counts as a named one does: its conductivity and its activity as sodium's.
    const double amine = liquid.At("liquid/alk.cation.meql").GetDoubleValue();
    totals.charges.cations += amine;
    totals.composition[Species::Na] += amine;
    totals.mass += liquid.At("liquid/alk.cation.mgl").GetDoubleValue();
    return totals;
}

double PhOf(const DetailList& liquid)
{
    const double alkalised = liquid.At("liquid/alk.ph").GetDoubleValue();
    return std::isfinite(alkalised) ? alkalised : liquid.At("liquid/ph").GetDoubleValue();
}

double Co2Of(const DetailList& liquid)
{
    const double co2 = liquid.At("liquid/co2.mgl").GetDoubleValue() / ions::FindIon("co2")->molarMass;
    return std::isfinite(co2) ? std::max(0.0, co2) : 0.0;
}

double Co2OfPh(const Composition& composition, double pH, double celsius)
{
    const CarbonicEquilibrium equilibrium(pH, celsius, IonicStrength(composition));
    return ContradictsPh(composition, pH) ? kUnknown
                                          : equilibrium.Co2FromBicarbonate(composition[Species::Hco3]);
}

bool ContradictsPh(const Composition& composition, double pH)
{
    return pH < kLowestBicarbonatePh && (composition[Species::Hco3] > 0.0 || composition[Species::Co3] > 0.0);
}

PhIons PhIonsIn(const Composition& others, double pH, double celsius)
{
    constexpr int kPasses = 5;
    const AcidConstants constants = AcidConstantsAt(celsius);
    const double strength = IonicStrength(others);
    const double sulfate = others[Species::So4];
    PhIons ions;
    for (int pass = 0; pass < kPasses; ++pass) {
        const double whole = strength + 0.5e-3 * (ions.hydrogen + ions.hydroxide - 3.0 * ions.bisulfate);
        const Dissociation free = DissociationFromPh(pH, constants, whole);
        ions = {free.hydrogen, free.hydroxide,
                sulfate > 0.0 ? sulfate * BisulfateShare(pH, constants, whole) : 0.0};
    }
    return ions;
}

Closing ClosingOf(double cationsLessAnions)
{
    return {std::max(0.0, -cationsLessAnions), std::max(0.0, cationsLessAnions)};
}

void SetIon(DetailList& liquid, std::string_view ion, double meq)
{
    const IonRow& row = *FindIonRow(ion);
    liquid.At(row.meql).SetValue(meq);
    liquid.At(row.mgl).SetValue(meq * ions::FindIon(ion)->equivalentWeight);
}

bool HasIonsOfPh(const DetailList& liquid)
{
    return !liquid.At("liquid/balance.ph").GetBoolValue() && std::isfinite(PhOf(liquid));
}

double TemperatureOf(const DetailList& liquid)
{
    const double celsius = liquid.At("liquid/temp").GetDoubleValue();
    return std::isfinite(celsius) ? celsius : 25.0;
}

namespace {

/// mmol/l of OH- that a titration found where neither the pH nor the rows tell it; negative those of H+.
double TitratedHydroxide(const DetailList& liquid)
{
    if (HasIonsOfPh(liquid) || liquid.At("liquid/balance.ph").GetBoolValue() || !IsAlkalinityReported(liquid))
        return 0.0;
    const double m = *ReportedAlkalinity(liquid, 'm');
    return m < 0.0 ? m : FormsByTitration(m, ReportedAlkalinity(liquid, 'p').value_or(0.0)).hydroxide;
}

/// Adds H+ and OH- as they follow from the pH, or the one of both that a titration found.
void AddIonsOfPh(const DetailList& liquid, Composition& composition)
{
    if (!HasIonsOfPh(liquid)) {
        const double titrated = TitratedHydroxide(liquid);
        composition[titrated < 0.0 ? Species::H : Species::Oh] += std::abs(titrated);
        return;
    }
    const PhIons ions = PhIonsIn(composition, PhOf(liquid), TemperatureOf(liquid));
    composition[Species::H] = ions.hydrogen;
    composition[Species::Oh] = ions.hydroxide;
    composition.boundHydrogen = ions.bisulfate;
    composition.hydrogenIsFree = true;
}

/// The charges with H+ and OH- that stand in no row.
ChargeSums WithIonsOfPh(const DetailList& liquid, ChargeSums charges, const Composition& composition)
{
    constexpr double kGreatestPh = 14.0;
    const double pH = PhOf(liquid);
    // A mistyped pH says nothing about the ions.
    if (liquid.At("liquid/balance.ph").GetBoolValue() || pH < 0.0 || pH > kGreatestPh)
        return charges;
    charges.cations += composition[Species::H] + composition.boundHydrogen;
    charges.anions += composition[Species::Oh];
    return charges;
}

}  // namespace

void UpdateDerivedValues(DetailList& liquid)
{
    const std::string type = liquid.At("liquid/analysis.type").GetStdStringValue();
    const bool fromTds = type == "SHORT_TDS";
    const bool isShort = fromTds || type == "SHORT_COND";
    if (isShort && !ApplyShortAnalysis(liquid, fromTds)) {
        SetUnknown(liquid);
        return SetEquivalents(liquid, {}, true);
    }

    if (!isShort)
        SplitReportedAlkalinity(liquid);

    const double celsius = liquid.At("liquid/temp").GetDoubleValue();
    const bool isClosed = liquid.At("liquid/balance.auto").GetBoolValue();

    Totals totals = AddIons(liquid, liquid.At("liquid/balance.ph").GetBoolValue());
    const Closing closing = isClosed && !isShort && HasIonsOfPh(liquid)
                                ? ClosingBesidePh(totals, PhOf(liquid), TemperatureOf(liquid))
                                : ClosingOf(totals.charges.cations - totals.charges.anions -
                                            (isShort ? 0.0 : TitratedHydroxide(liquid)));
    if (isClosed)
        CloseBalance(totals, closing);

    Composition& composition = totals.composition;
    const double co2 = TypedOrCalculatedCo2(liquid, composition, PhOf(liquid), celsius);
    if (!isShort) {
        composition[Species::Co2] = co2;
        AddIonsOfPh(liquid, composition);
    }

    liquid.At("liquid/sum.c.meql").SetValue(totals.charges.cations);
    liquid.At("liquid/sum.a.meql").SetValue(totals.charges.anions);
    liquid.At("liquid/na.plus.meql").SetValue(closing.sodium);
    liquid.At("liquid/cl.plus.meql").SetValue(closing.chloride);
    liquid.At("liquid/balance.error")
        .SetValue(ElectroneutralityError(WithIonsOfPh(liquid, totals.charges, composition)));
    liquid.At("liquid/tds").SetValue(totals.mass);
    liquid.At("liquid/residue")
        .SetValue(DryResidue(totals.mass, FiniteOrNone(liquid.At("liquid/hco3.mgl").GetDoubleValue())));
    SetEquivalents(liquid, composition, isShort);
    SetPhysicalValues(liquid, composition, celsius);
}

Composition WholeComposition(const DetailList& liquid)
{
    Totals totals = AddIons(liquid, liquid.At("liquid/balance.ph").GetBoolValue());
    if (liquid.At("liquid/balance.auto").GetBoolValue())
        CloseBalance(totals, {liquid.At("liquid/na.plus.meql").GetDoubleValue(),
                              liquid.At("liquid/cl.plus.meql").GetDoubleValue()});
    AddIonsOfPh(liquid, totals.composition);
    return totals.composition;
}

ChargeSums BalanceSums(const DetailList& liquid)
{
    return WithIonsOfPh(liquid,
                        {.cations = liquid.At("liquid/sum.c.meql").GetDoubleValue(),
                         .anions = liquid.At("liquid/sum.a.meql").GetDoubleValue()},
                        WholeComposition(liquid));
}

bool FillHydrogenAndHydroxide(DetailList& liquid)
{
    const Composition others = AddIons(liquid, false).composition;
    const PhIons found =
        PhIonsIn(others, liquid.At("liquid/ph").GetDoubleValue(), liquid.At("liquid/temp").GetDoubleValue());
    const bool known = std::isfinite(found.hydrogen) && std::isfinite(found.hydroxide);
    FillRow(liquid, "h.plus", known ? found.hydrogen + found.bisulfate : 0.0);
    FillRow(liquid, "oh.minus", known ? found.hydroxide : 0.0);
    return known;
}

void ResetHydrogenAndHydroxide(DetailList& liquid)
{
    FillRow(liquid, "h.plus", 0.0);
    FillRow(liquid, "oh.minus", 0.0);
}

}  // namespace water
