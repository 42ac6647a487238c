// SPDX-License-Identifier: MIT
#include "projectbase/water/blend.h"

#include "core/ion_table.h"
#include "core/ion_units.h"
#include "projectbase/water/alkalization.h"
#include "projectbase/water/ion_rows.h"
#include "projectbase/water/totals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace water {
namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr std::array<const char*, 6> kMixedProperties{"liquid/turbidity", "liquid/tss",     "liquid/toc",
                                                      "liquid/fe.total",  "liquid/cl.free", "liquid/h2s"};

double KnownOr(double value, double otherwise)
{
    return std::isfinite(value) ? value : otherwise;
}

class Mixer
{
public:
    Mixer(const DetailList& first, const DetailList& second, double share)
        : m_first(first), m_second(second), m_share(share)
    {}

    double Mix(double first, double second) const
    {
        // A water of which nothing is taken need not be known.
        if (m_share == 1.0)
            return first;
        if (m_share == 0.0)
            return second;
        return m_share * first + (1.0 - m_share) * second;
    }
    double operator()(std::string_view key) const
    {
        return Mix(m_first.At(key).GetDoubleValue(), m_second.At(key).GetDoubleValue());
    }
    /// Unknown amounts count as none.
    double Amount(std::string_view key) const
    {
        return Mix(KnownOr(m_first.At(key).GetDoubleValue(), 0.0),
                   KnownOr(m_second.At(key).GetDoubleValue(), 0.0));
    }

private:
    const DetailList& m_first;
    const DetailList& m_second;
    double m_share;
};

CarbonateWater CarbonateOf(const DetailList& liquid)
{
    Composition composition = AddIons(liquid, false).composition;
    const double bicarbonate = composition[Species::Hco3];
    for (const Species species : {Species::Hco3, Species::Co3})
        composition[species] = 0.0;
    const double co2 = liquid.At("liquid/co2.mgl").GetDoubleValue() / ions::FindIon("co2")->molarMass;
    return WaterFromPh(PhOf(liquid), liquid.At("liquid/temp").GetDoubleValue(), bicarbonate,
                       KnownOr(co2, 0.0), IonicStrength(composition));
}

void SetTyped(DetailList& target, const IonRow& row, double value, std::string_view unit)
{
    target.At(row.orig).SetValue(value);
    target.At(row.unit).SetValue(std::string(unit));
}

void MixIons(const Mixer& mix, DetailList& target)
{
    for (const IonRow& row : IonRows()) {
        if (row.isNamed || row.species == Species::H || row.species == Species::Oh)
            continue;
        // Silica and boron are masses: their equivalents are only a way of counting.
        const bool byMass = !row.countsAsCharge;
        SetTyped(target, row, mix.Amount(byMass ? row.mgl : row.meql),
                 byMass ? ions::kMgPerLitre : ions::kMeqPerLitre);
    }
}

struct NamedAmount
{
    std::string name;
    double meq = 0.0;
};

/// The two rows of named cations, or of named anions.
void MixNamedIons(const DetailList& first, const DetailList& second, double share,
                  const std::array<const char*, 2>& keys, DetailList& target)
{
    std::vector<NamedAmount> amounts;
    const auto add = [&](const DetailList& liquid, double part) {
        for (const char* key : keys) {
            const IonRow& row = *FindIonRow(key);
            const std::string name = liquid.At(row.name).GetStdStringValue();
            const double meq = KnownOr(liquid.At(row.meql).GetDoubleValue(), 0.0) * part;
            if (name.empty() || meq == 0.0)
                continue;
            const auto same =
                std::find_if(amounts.begin(), amounts.end(),
                             [&name](const NamedAmount& amount) { return amount.name == name; });
            if (same != amounts.end())
                same->meq += meq;
            else
                amounts.push_back({name, meq});
        }
    };
    add(first, share);
    add(second, 1.0 - share);
    // More ions than rows: the last row takes the rest under a joint name.
    while (amounts.size() > keys.size()) {
        NamedAmount& last = amounts[keys.size() - 1];
        last.name += "+" + amounts.back().name;
        last.meq += amounts.back().meq;
        amounts.pop_back();
    }
    amounts.resize(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const IonRow& row = *FindIonRow(keys[i]);
        target.At(row.name).SetValue(amounts[i].name);
        SetTyped(target, row, amounts[i].meq, ions::kMeqPerLitre);
    }
}

/// pH, bicarbonate, carbonate and CO2 of the mixture; leaves the linear values where the pH is not known.
void MixCarbonate(const DetailList& first, const DetailList& second, const Mixer& mix, DetailList& target)
{
    const CarbonateWater a = CarbonateOf(first);
    const CarbonateWater b = CarbonateOf(second);
    const auto state =
        Equilibrate({.celsius = mix("liquid/temp"),
                     .totalCarbon = mix.Mix(a.totalCarbon, b.totalCarbon),
                     .alkalinity = mix.Mix(a.alkalinity, b.alkalinity),
                     .backgroundStrength = mix.Mix(a.backgroundStrength, b.backgroundStrength)});
    target.At("liquid/ph").SetValue(state ? state->pH : kUnknown);
    const double co2Weight = ions::FindIon("co2")->molarMass;
    target.At("liquid/co2.orig").SetValue(state ? state->co2 * co2Weight : mix("liquid/co2.mgl"));
    target.At("liquid/co2.unit").SetValue(std::string(ions::kMgPerLitre));
    if (!state)
        return;
    SetTyped(target, *FindIonRow("hco3"), state->bicarbonate, ions::kMeqPerLitre);
    SetTyped(target, *FindIonRow("co3"), 2.0 * state->carbonate, ions::kMeqPerLitre);
}

}  // namespace

void Blend(const DetailList& first, const DetailList& second, double share, DetailList& target)
{
    const Mixer mix(first, second, std::clamp(share, 0.0, 1.0));
    target.At("liquid/analysis.type").SetValue("FULL");
    for (const char* flag : {"liquid/balance.ph", "liquid/calculate.co2"})
        target.At(flag).SetValue(false);
    MixIons(mix, target);
    MixNamedIons(first, second, std::clamp(share, 0.0, 1.0), {"x1", "x2"}, target);
    MixNamedIons(first, second, std::clamp(share, 0.0, 1.0), {"y1", "y2"}, target);
    target.At("liquid/temp.orig").SetValue(mix("liquid/temp"));
    target.At("liquid/temp.unit").SetValue("\u00b0C");
    for (const char* property : kMixedProperties)
        target.At(property).SetValue(mix(property));
    target.At("liquid/sdi").SetValue(kUnknown);
    MixCarbonate(first, second, mix, target);
}

bool IsBlend(const DetailList& liquid)
{
    return !liquid.At("liquid/blend.first").GetStringValue().empty() &&
           !liquid.At("liquid/blend.second").GetStringValue().empty();
}

bool IsOfRecipe(std::string_view key)
{
    return key.starts_with("liquid/blend.");
}

void ClearRecipe(DetailList& liquid)
{
    for (auto& [key, detail] : liquid) {
        if (IsOfRecipe(key))
            detail.ClearValue();
    }
}

}  // namespace water
