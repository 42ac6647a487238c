// SPDX-License-Identifier: MIT
#include "projectbase/water/alkalinity.h"

#include "core/ion_units.h"
#include "projectbase/water/alkalization.h"
#include "projectbase/water/carbonic_acid.h"
#include "projectbase/water/detection_limits.h"
#include "projectbase/water/ion_rows.h"
#include "projectbase/water/totals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>

namespace water {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

/// The state of a water whose forms are to be found; `others` is all that it holds beside them.
PhWater KnownOf(const DetailList& liquid, Composition others)
{
    for (const Species species : {Species::Hco3, Species::Co3, Species::H, Species::Oh})
        others[species] = 0.0;
    others.boundHydrogen = 0.0;
    return {.pH = PhOf(liquid),
            .celsius = TemperatureOf(liquid),
            .backgroundStrength = IonicStrength(others),
            .sulfate = others[Species::So4]};
}

AlkalinityForms FormsByPh(const DetailList& liquid, double m)
{
    Totals others = AddIons(liquid, liquid.At("liquid/balance.ph").GetBoolValue());
    const Composition& rows = others.composition;
    const bool hasRows = !HasIonsOfPh(liquid);
    // H+ and OH- that stand in their rows are not those of the pH.
    const double carbonateAlkalinity = std::max(0.0, m - rows[Species::Oh] + rows[Species::H]);
    PhWater known = KnownOf(liquid, rows);
    if (hasRows)
        known.carbonateAlkalinity = carbonateAlkalinity;
    else
        known.alkalinityM = m;
    if (liquid.At("liquid/balance.auto").GetBoolValue()) {
        // The m-value is what the forms, H+ and OH- carry together.
        const double anions = hasRows ? carbonateAlkalinity : m;
        const Closing closing = ClosingOf(others.charges.cations - others.charges.anions - anions);
        known.backgroundStrength += 0.5e-3 * (closing.sodium + closing.chloride);
    }
    const CarbonateState state = StateFromPh(known);
    return {state.bicarbonate, 2.0 * state.carbonate, 0.0};
}

}  // namespace

AlkalinityForms FormsByTitration(double m, double p)
{
    if (!(m > 0.0))
        return {};
    if (!(p > 0.0))
        return {.bicarbonate = m};
    if (p >= m)
        return {.hydroxide = m};
    if (2.0 * p <= m)
        return {.bicarbonate = m - 2.0 * p, .carbonate = 2.0 * p};
    return {.carbonate = 2.0 * (m - p), .hydroxide = 2.0 * p - m};
}

std::optional<double> ReportedAlkalinity(const DetailList& liquid, char value)
{
    static const std::array<std::array<std::string, 2>, 2> kKeys{
        {{"liquid/alkalinity.m.orig", "liquid/alkalinity.m.unit"},
         {"liquid/alkalinity.p.orig", "liquid/alkalinity.p.unit"}}};
    const auto& [orig, unit] = kKeys[value == 'm' ? 0 : 1];
    const double typed = liquid.At(orig).GetDoubleValue();
    if (typed == 0.0 || !std::isfinite(typed))
        return std::nullopt;
    return ions::ToMeqPerLitre(typed, liquid.At(unit).GetStdStringValue(), 1.0);
}

bool IsAlkalinityReported(const DetailList& liquid)
{
    return ReportedAlkalinity(liquid, 'm').has_value() &&
           liquid.At("liquid/analysis.type").GetStdStringValue() == "FULL";
}

bool IsAlkalinityKnown(const DetailList& liquid)
{
    const auto isFound = [&liquid](const char* key) { return liquid.At(key).GetDoubleValue() > 0.0; };
    return isFound("liquid/hco3.meql") || isFound("liquid/co3.meql") || IsBelowDetection(liquid, "hco3") ||
           IsBelowDetection(liquid, "co3") || IsAlkalinityReported(liquid) ||
           PhOf(liquid) < kLowestBicarbonatePh;
}

void SplitReportedAlkalinity(DetailList& liquid)
{
    const auto m = ReportedAlkalinity(liquid, 'm');
    // What an alkalization made of it stands.
    if (!m || std::isfinite(liquid.At("liquid/alk.ph").GetDoubleValue()))
        return;
    SetIon(liquid, "hco3", 0.0);
    SetIon(liquid, "co3", 0.0);
    const AlkalinityForms forms = std::isfinite(PhOf(liquid))
                                      ? FormsByPh(liquid, *m)
                                      : FormsByTitration(*m, ReportedAlkalinity(liquid, 'p').value_or(0.0));
    SetIon(liquid, "hco3", forms.bicarbonate);
    SetIon(liquid, "co3", forms.carbonate);
}

double AlkalinityPOf(const DetailList& liquid, const Composition& composition)
{
    if (!std::isfinite(PhOf(liquid)))
        return ReportedAlkalinity(liquid, 'p').value_or(kUnknown);
    if (ContradictsPh(composition, PhOf(liquid)))
        return kUnknown;
    PhWater known = KnownOf(liquid, composition);
    known.carbonateAlkalinity = composition[Species::Hco3] + 2.0 * composition[Species::Co3];
    known.co2 = composition[Species::Co2];
    const CarbonateState state = StateFromPh(known);
    return state.carbonate - state.co2 + composition[Species::Oh] - composition[Species::H] -
           composition.boundHydrogen;
}

}  // namespace water
