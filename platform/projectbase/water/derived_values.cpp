// SPDX-License-Identifier: MIT
#include "core/ion_table.h"
#include "core/ion_units.h"
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
    const double weight = ions::FindIon("co2")->molarMass;
    DetailData& detail = liquid.At("liquid/co2.mgl");
    if (liquid.At("liquid/calculate.co2").GetBoolValue()) {
        const CarbonicEquilibrium equilibrium(pH, celsius, IonicStrength(composition));
        detail.SetValue(equilibrium.Co2FromBicarbonate(composition[Species::Hco3]) * weight);
    }
    const double co2 = detail.GetDoubleValue() / weight;
    return std::isfinite(co2) ? std::max(0.0, co2) : 0.0;
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
void CloseBalance(Totals& totals, double sodium, double chloride)
{
    totals.composition[Species::Na] += sodium;
    totals.composition[Species::Cl] += chloride;
    totals.mass +=
        sodium * ions::FindIon("na")->equivalentWeight + chloride * ions::FindIon("cl")->equivalentWeight;
}

void SetUnknown(DetailList& liquid)
{
    for (const auto* key :
         {"liquid/sum.c.meql", "liquid/sum.a.meql", "liquid/na.plus.meql", "liquid/cl.plus.meql",
          "liquid/tds", "liquid/ionic.strength", "liquid/cond", "liquid/cond25", "liquid/p.osmotic"})
        liquid.At(key).SetValue(kUnknown);
}

void SetPhysicalValues(DetailList& liquid, const Composition& composition, double celsius)
{
    const Speciation speciation = Speciate(composition, celsius);
    liquid.At("liquid/ionic.strength").SetValue(IonicStrength(composition));
    liquid.At("liquid/cond").SetValue(Conductivity(speciation, celsius));
    liquid.At("liquid/cond25").SetValue(Conductivity(composition, 25.0));
    liquid.At("liquid/p.osmotic").SetValue(OsmoticPressure(speciation, celsius));
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

Dissociation DissociationIn(const Composition& others, double pH, double celsius)
{
    const double strength = IonicStrength(others);
    Dissociation result = DissociationFromPh(pH, celsius, strength);
    for (int pass = 0; pass < 4; ++pass)
        result = DissociationFromPh(pH, celsius, strength + 0.5e-3 * (result.hydrogen + result.hydroxide));
    return result;
}

double PhOf(const DetailList& liquid)
{
    const double alkalised = liquid.At("liquid/alk.ph").GetDoubleValue();
    return std::isfinite(alkalised) ? alkalised : liquid.At("liquid/ph").GetDoubleValue();
}

/// Adds H+ and OH- as they follow from the pH, where it is known and their rows do not state them.
void AddIonsOfPh(const DetailList& liquid, Composition& composition)
{
    const double pH = PhOf(liquid);
    if (liquid.At("liquid/balance.ph").GetBoolValue() || !std::isfinite(pH))
        return;
    const double celsius = liquid.At("liquid/temp").GetDoubleValue();
    const auto ionsOfWater = DissociationIn(composition, pH, std::isfinite(celsius) ? celsius : 25.0);
    composition[Species::H] = ionsOfWater.hydrogen;
    composition[Species::Oh] = ionsOfWater.hydroxide;
    composition.hydrogenIsFree = true;
}

void UpdateDerivedValues(DetailList& liquid)
{
    const std::string type = liquid.At("liquid/analysis.type").GetStdStringValue();
    const bool fromTds = type == "SHORT_TDS";
    const bool isShort = fromTds || type == "SHORT_COND";
    if (isShort && !ApplyShortAnalysis(liquid, fromTds))
        return SetUnknown(liquid);

    const bool withWaterIons = liquid.At("liquid/balance.ph").GetBoolValue();
    const double celsius = liquid.At("liquid/temp").GetDoubleValue();
    const double pH = PhOf(liquid);

    Totals totals = AddIons(liquid, withWaterIons);
    const double sodium = std::max(0.0, totals.charges.anions - totals.charges.cations);
    const double chloride = std::max(0.0, totals.charges.cations - totals.charges.anions);
    if (liquid.At("liquid/balance.auto").GetBoolValue())
        CloseBalance(totals, sodium, chloride);

    Composition& composition = totals.composition;
    const double co2 = TypedOrCalculatedCo2(liquid, composition, pH, celsius);
    if (!isShort)
        composition[Species::Co2] = co2;
    if (!isShort)
        AddIonsOfPh(liquid, composition);

    liquid.At("liquid/sum.c.meql").SetValue(totals.charges.cations);
    liquid.At("liquid/sum.a.meql").SetValue(totals.charges.anions);
    liquid.At("liquid/na.plus.meql").SetValue(sodium);
    liquid.At("liquid/cl.plus.meql").SetValue(chloride);
    liquid.At("liquid/tds").SetValue(totals.mass);
    SetPhysicalValues(liquid, composition, celsius);
}

Composition AnalysedComposition(const DetailList& liquid)
{
    Composition composition = AddIons(liquid, liquid.At("liquid/balance.ph").GetBoolValue()).composition;
    AddIonsOfPh(liquid, composition);
    return composition;
}

bool FillHydrogenAndHydroxide(DetailList& liquid)
{
    const Composition others = AddIons(liquid, false).composition;
    const auto found = DissociationIn(others, liquid.At("liquid/ph").GetDoubleValue(),
                                      liquid.At("liquid/temp").GetDoubleValue());
    const bool known = std::isfinite(found.hydrogen) && std::isfinite(found.hydroxide);
    FillRow(liquid, "h.plus", known ? found.hydrogen : 0.0);
    FillRow(liquid, "oh.minus", known ? found.hydroxide : 0.0);
    return known;
}

void ResetHydrogenAndHydroxide(DetailList& liquid)
{
    FillRow(liquid, "h.plus", 0.0);
    FillRow(liquid, "oh.minus", 0.0);
}

}  // namespace water
