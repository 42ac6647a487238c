// SPDX-License-Identifier: MIT
#include "projectbase/water/blend.h"

#include "core/ion_table.h"
#include "core/ion_units.h"
#include "projectbase/water/carbonate_of_details.h"
#include "projectbase/water/detection_limits.h"
#include "projectbase/water/ion_rows.h"
#include "projectbase/water/measured_values.h"
#include "projectbase/water/totals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace water {
namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr std::array<const char*, 7> kMixedProperties{"liquid/turbidity", "liquid/tss",      "liquid/oil",
                                                      "liquid/toc",       "liquid/fe.total", "liquid/cl.free",
                                                      "liquid/h2s"};

double Value(const DetailList& liquid, std::string_view key)
{
    return liquid.At(key).GetDoubleValue();
}

/// Unknown amounts count as none.
double Amount(const DetailList& liquid, std::string_view key)
{
    const double value = Value(liquid, key);
    return std::isfinite(value) ? value : 0.0;
}

bool Flag(const DetailList& liquid, std::string_view key)
{
    return liquid.At(key).GetBoolValue();
}

/// A water that something is taken of, and what is known of its pH.
struct Part
{
    const DetailList& liquid;
    double share;
    KnownCarbonate carbonate;
};

class Mixer
{
public:
    Mixer(std::span<const BlendSource> sources, DetailList& target) : m_target(target)
    {
        for (const BlendSource& source : sources) {
            if (source.share > 0.0)
                m_parts.push_back({source.liquid, source.share, CarbonateOf(source.liquid)});
        }
    }

    void MixAll();

private:
    template <typename Function>
    double Sum(Function valueOf) const
    {
        double sum = 0.0;
        for (const Part& part : m_parts)
            sum += part.share * valueOf(part);
        return sum;
    }
    double SumOf(std::string_view key) const
    {
        return Sum([key](const Part& part) { return Value(part.liquid, key); });
    }
    double AmountOf(std::string_view key) const
    {
        return Sum([key](const Part& part) { return Amount(part.liquid, key); });
    }
    template <typename Condition>
    bool All(Condition condition) const
    {
        return std::ranges::all_of(m_parts, condition);
    }
    /// Whether an amount was found in no part, and in at least one of them it was looked for in vain.
    bool IsLimit(std::string_view typed) const
    {
        const auto value = [typed](const Part& part) { return Value(part.liquid, typed); };
        return std::ranges::any_of(
                   m_parts, [](double v) { return v < 0.0; }, value) &&
               All([&](const Part& part) { return value(part) <= 0.0; });
    }
    void SetTyped(const IonRow& row, double value, std::string_view unit = ions::kMeqPerLitre);
    void AddTyped(std::string_view ion, double meq);
    void MixLimits();
    void MixIons();
    void MixNamedIons(const std::array<const char*, 2>& keys);
    void MixBalance();
    void MixCarbonate();
    void SetState(const CarbonateState& state);
    std::vector<DissolvedBase> MixedBases(double celsius) const;
    void SetChargedBases(const CarbonateState& state, double celsius);

    std::vector<Part> m_parts;
    DetailList& m_target;
};

void Mixer::SetTyped(const IonRow& row, double value, std::string_view unit)
{
    m_target.At(row.orig).SetValue(value);
    m_target.At(row.unit).SetValue(std::string(unit));
}

/// More of an ion that is mixed already.
void Mixer::AddTyped(std::string_view ion, double meq)
{
    DetailData& orig = m_target.At(FindIonRow(ion)->orig);
    if (meq != 0.0)
        orig.SetValue(std::max(0.0, CountedValue(m_target, orig.GetName()) + meq));
}

/// Limits count as in all of the waters, where that is the same.
void Mixer::MixLimits()
{
    constexpr const char* kLimits = "liquid/limits";
    const auto code = [&](const Part& part) { return part.liquid.At(kLimits).GetStdStringValue(); };
    if (!m_parts.empty() && All([&](const Part& part) { return code(part) == code(m_parts.front()); }))
        m_target.At(kLimits).SetValue(code(m_parts.front()));
}

void Mixer::MixIons()
{
    for (const IonRow& row : IonRows()) {
        if (row.isNamed)
            continue;
        // Silica and boron are masses: their equivalents are only a way of counting.
        const bool byMass = !row.countsAsCharge;
        const auto limit = [&](const Part& part) { return LimitOf(part.liquid, row); };
        const double amount = !IsLimit(row.orig) ? AmountOf(byMass ? row.mgl : row.meql)
                              : byMass ? -Sum([&](const Part& part) { return limit(part).mgPerLitre; })
                                       : -Sum([&](const Part& part) { return limit(part).meqPerLitre; });
        SetTyped(row, amount, byMass ? ions::kMgPerLitre : ions::kMeqPerLitre);
    }
    m_target.At("liquid/amine.meql").SetValue(AmountOf("liquid/alk.cation.meql"));
    m_target.At("liquid/amine.mgl").SetValue(AmountOf("liquid/alk.cation.mgl"));
}

/// The two rows of named cations, or of named anions.
void Mixer::MixNamedIons(const std::array<const char*, 2>& keys)
{
    struct NamedAmount
    {
        std::string name;
        double meq = 0.0;
    };
    std::vector<NamedAmount> amounts;
    for (const Part& part : m_parts) {
        for (const char* key : keys) {
            const IonRow& row = *FindIonRow(key);
            const std::string name = part.liquid.At(row.name).GetStdStringValue();
            const double meq = part.share * Amount(part.liquid, row.meql);
            if (name.empty() || meq == 0.0)
                continue;
            const auto same = std::ranges::find(amounts, name, &NamedAmount::name);
            if (same != amounts.end())
                same->meq += meq;
            else
                amounts.push_back({name, meq});
        }
    }
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
        m_target.At(row.name).SetValue(amounts[i].name);
        SetTyped(row, amounts[i].meq);
    }
}

/// What closes the balance of balanced waters is in them, and so it is in the mixture.
void Mixer::MixBalance()
{
    const auto closing = [this](const char* key) {
        return Sum([key](const Part& part) {
            return Flag(part.liquid, "liquid/balance.auto") ? Amount(part.liquid, key) : 0.0;
        });
    };
    const double sodium = closing("liquid/na.plus.meql");
    const double chloride = closing("liquid/cl.plus.meql");
    const bool isBalanced = All([](const Part& part) { return Flag(part.liquid, "liquid/balance.auto"); });
    m_target.At("liquid/balance.auto").SetValue(isBalanced);
    // Balancing the mixture anew finds by how much one exceeds the other.
    const double foundAnew = isBalanced ? std::min(sodium, chloride) : 0.0;
    AddTyped("na", isBalanced ? foundAnew : sodium);
    AddTyped("cl", isBalanced ? foundAnew : chloride);
}

/// What the mixture has of the weak bases of each part, in the order of the parts.
std::vector<DissolvedBase> Mixer::MixedBases(double celsius) const
{
    std::vector<DissolvedBase> mixed;
    for (const Part& part : m_parts) {
        for (const auto& [base, agent] : part.carbonate.bases)
            mixed.push_back({{part.share * base.amount, PkaOf(*agent, celsius)}, agent});
    }
    return mixed;
}

/// The charged part of the weak bases changes with the pH.
void Mixer::SetChargedBases(const CarbonateState& state, double celsius)
{
    for (const Part& part : m_parts) {
        for (const auto& [base, agent] : part.carbonate.bases) {
            const double before = ChargedPart(base, part.carbonate.state, Value(part.liquid, "liquid/temp"));
            const WeakBase after{base.amount, PkaOf(*agent, celsius)};
            const double change = part.share * (ChargedPart(after, state, celsius) - before);
            if (!agent->ion.empty()) {
                AddTyped(agent->ion, change);
                continue;
            }
            for (const auto& [key, weight] :
                 {std::pair("liquid/amine.meql", 1.0), std::pair("liquid/amine.mgl", agent->cationMass)}) {
                DetailData& amine = m_target.At(key);
                amine.SetValue(std::max(0.0, amine.GetDoubleValue() + change * weight));
            }
        }
    }
}

void Mixer::SetState(const CarbonateState& state)
{
    const auto change = [&](double CarbonateState::*amount) {
        return state.*amount - Sum([amount](const Part& part) { return part.carbonate.state.*amount; });
    };
    // Bracketing leaves an error beyond the digits that a pH has.
    constexpr double kDigits = 1e9;
    m_target.At("liquid/ph").SetValue(std::round(state.pH * kDigits) / kDigits);
    const CarbonateForms forms =
        FormsAsStated(state, Sum([](const Part& part) { return part.carbonate.excess; }));
    SetTyped(*FindIonRow("hco3"), forms.bicarbonate);
    SetTyped(*FindIonRow("co3"), 2.0 * forms.carbonate);
    // CO2 that none of the waters states is not stated of the mixture either.
    const bool isStated = !All([](const Part& part) { return Co2Of(part.liquid) == 0.0; });
    const double stated = Sum([](const Part& part) {
        const double co2 = Co2Of(part.liquid);
        return co2 > 0.0 ? co2 - part.carbonate.state.co2 : 0.0;
    });
    m_target.At("liquid/co2.orig")
        .SetValue(isStated ? std::max(0.0, state.co2 + stated) * ions::FindIon("co2")->molarMass : 0.0);
    if (Flag(m_target, "liquid/balance.ph")) {
        AddTyped("h.plus", change(&CarbonateState::hydrogen) + change(&CarbonateState::bisulfate));
        AddTyped("oh.minus", change(&CarbonateState::hydroxide));
    }
}

/// pH, bicarbonate, carbonate and CO2 of the mixture; leaves the linear values where the pH is not known.
void Mixer::MixCarbonate()
{
    const double celsius = SumOf("liquid/temp");
    const std::vector<DissolvedBase> bases = MixedBases(celsius);
    StoreBases(bases, m_target);
    m_target.At("liquid/ph").SetValue(kUnknown);
    m_target.At("liquid/co2.orig").SetValue(SumOf("liquid/co2.mgl"));
    m_target.At("liquid/co2.unit").SetValue(std::string(ions::kMgPerLitre));
    if (!All([](const Part& part) { return part.carbonate.IsKnown(); }))
        return;
    CarbonateWater mixed{.celsius = celsius};
    for (double CarbonateWater::*amount : {&CarbonateWater::totalCarbon, &CarbonateWater::alkalinity,
                                           &CarbonateWater::backgroundStrength, &CarbonateWater::sulfate})
        mixed.*amount = Sum([amount](const Part& part) { return part.carbonate.water.*amount; });
    if (const auto state = Equilibrate(mixed, WithoutAgents(bases))) {
        SetState(*state);
        SetChargedBases(*state, celsius);
    }
}

void Mixer::MixAll()
{
    // What none of the waters tells more of than its salt, the mixture does not either.
    const bool isShort = All([](const Part& part) {
        return part.liquid.At("liquid/analysis.type").GetStdStringValue() != "FULL";
    });
    m_target.At("liquid/analysis.type").SetValue(isShort ? "SHORT_TDS" : "FULL");
    if (isShort)
        m_target.At("liquid/tds.short").SetValue(SumOf("liquid/tds"));
    m_target.At("liquid/calculate.co2").SetValue(false);
    for (const char* reported : {"liquid/alkalinity.m.orig", "liquid/alkalinity.p.orig"})
        m_target.At(reported).SetValue(0.0);
    m_target.At("liquid/balance.ph").SetValue(All([](const Part& part) {
        return Flag(part.liquid, "liquid/balance.ph");
    }));
    ClearMeasuredValues(m_target);
    MixLimits();
    MixIons();
    MixNamedIons({"x1", "x2"});
    MixNamedIons({"y1", "y2"});
    MixBalance();
    m_target.At("liquid/temp.orig").SetValue(SumOf("liquid/temp"));
    m_target.At("liquid/temp.unit").SetValue("\u00b0C");
    // What was found in no part is not found in the mixture either, by the mean of the limits.
    for (const char* property : kMixedProperties)
        m_target.At(property).SetValue(IsLimit(property) ? SumOf(property) : Sum([&](const Part& part) {
            return CountedValue(part.liquid, property);
        }));
    m_target.At("liquid/sdi").SetValue(kUnknown);
    MixCarbonate();
}

}  // namespace

void Blend(std::span<const BlendSource> sources, DetailList& target)
{
    Mixer(sources, target).MixAll();
}

}  // namespace water
