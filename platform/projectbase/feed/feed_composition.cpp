// SPDX-License-Identifier: MIT
#include "projectbase/feed/feed_composition.h"

#include "projectbase/feed/charge_balance.h"
#include "projectbase/feed/compound.h"
#include "projectbase/feed/known_elements.h"

#include <cmath>

namespace {

using Unit = FeedComposition::Unit;
using Entry = FeedComposition::CompoundEntry;
using Concentration = FeedComposition::Concentration;

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

/// From which unit the others of a block follow when a value is typed in this one, and how that one is found.
struct EntryRule
{
    Unit base;
    double divisor;    ///< of the typed value
    bool perKilogram;  ///< the typed value is multiplied by the density
};
constexpr std::array<EntryRule, FeedComposition::kUnitCount> kEntryRules{{
    {Unit::MgPerLitre, 1.0, false},    // mg/l
    {Unit::MmolPerLitre, 1.0, false},  // mmol/l
    {Unit::MeqPerLitre, 1.0, false},   // meq/l
    {Unit::MgPerLitre, 1.0, true},     // mg/kg
    {Unit::MeqPerLitre, 1e3, false},   // µeq/l
    {Unit::MgPerLitre, 1e3, false},    // ppb
    {Unit::MgPerLitre, 1e6, false},    // ppt
}};

const EntryRule& RuleOf(Unit unit)
{
    return kEntryRules.at(static_cast<std::size_t>(unit));
}

double BaseValue(Unit unit, double value, double density)
{
    const EntryRule& rule = RuleOf(unit);
    return rule.perKilogram ? density * value : value / rule.divisor;
}

double PerKilogram(double mgPerLitre, double density)
{
    return density <= 0.0 ? 0.0 : mgPerLitre / density;
}

void FollowMass(Concentration& block, double density)
{
    const double mass = block[Unit::MgPerLitre];
    block[Unit::MgPerKg] = PerKilogram(mass, density);
    block[Unit::Ppb] = mass * 1e3;
    block[Unit::Ppt] = mass * 1e6;
}

void FollowAmount(const Entry& entry, Concentration& block)
{
    block[Unit::MeqPerLitre] = entry.valency * block[Unit::MmolPerLitre];
    block[Unit::MicroEqPerLitre] = block[Unit::MeqPerLitre] * 1e3;
}

/// Fills a block from its base value.
void Fill(const Entry& entry, Concentration& block, Unit base, double value, double density)
{
    block[base] = value;
    block.typed = base;
    switch (base) {
        case Unit::MgPerLitre:
            // A compound without a molar mass keeps the amounts that were stated for it.
            if (entry.molweight > 0.0) {
                block[Unit::MmolPerLitre] = value / entry.molweight;
                FollowAmount(entry, block);
            }
            break;
        case Unit::MmolPerLitre:
            block[Unit::MgPerLitre] = value * entry.molweight;
            FollowAmount(entry, block);
            break;
        default:
            block[Unit::MicroEqPerLitre] = value * 1e3;
            if (entry.valency > 0)
                block[Unit::MmolPerLitre] = value / entry.valency;
            block[Unit::MgPerLitre] = entry.molweight * block[Unit::MmolPerLitre];
            break;
    }
    FollowMass(block, density);
}

/// States the effluent's base value; none is negative, and none exceeds that of the feed, which comes last.
/// What is not known stays so, and limits nothing.
void FillEffluent(Entry& entry, Unit base, double value, double density)
{
    const double stated = value < 0.0 ? 0.0 : value;
    // What is as much as in the feed is so in every unit, to the last bit.
    if (stated > entry.feed[base])
        entry.effluent = entry.feed;
    else
        Fill(entry, entry.effluent, base, stated, density);
}

feed::Solute ToSolute(const Entry& entry, const Concentration& block)
{
    return {static_cast<AcidBase>(entry.acidBase), entry.ionicCharge, entry.valency, entry.pKa,
            block[Unit::MmolPerLitre]};
}

FeedComposition::Totals Sum(const std::vector<Entry>& entries, Concentration Entry::*side, double celsius,
                            double adjustTo)
{
    FeedComposition::Totals totals;
    std::vector<feed::Solute> solutes;
    solutes.reserve(entries.size());
    for (const Entry& entry : entries) {
        const Concentration& block = entry.*side;
        for (std::size_t i = 0; i < totals.values.size(); ++i)
            totals.values[i] += block.values[i];
        if (entry.ionicCharge > 0)
            totals.cations += block[Unit::MeqPerLitre];
        if (entry.ionicCharge < 0)
            totals.anions += block[Unit::MeqPerLitre];
        solutes.push_back(ToSolute(entry, block));
    }
    const feed::ChargeBalance balance(solutes, celsius);
    totals.pH = balance.FindPh();
    totals.adjustment = balance.StrongBaseTo(adjustTo);
    return totals;
}

}  // namespace

DBObjects::Compound FeedComposition::CompoundEntry::ToRecord() const
{
    const DBObjects::Compound record{.baseElement = {},
                                     .name = name,
                                     .formula = formula,
                                     .pKa = pKa,
                                     .valency = valency,
                                     .oxidationNrCommon = oxidationNrCommon,
                                     .conjugate = acidBase,
                                     .ionicCharge = ionicCharge,
                                     .category = category};
    return Compound(record).ToRecord();  // which finds the base element
}

void FeedComposition::Add(const DBObjects::Compound& compound)
{
    Add(CompoundEntry{.name = compound.name,
                      .formula = compound.formula,
                      .acidBase = compound.conjugate,
                      .ionicCharge = compound.ionicCharge,
                      .valency = compound.valency,
                      .molweight = MolarMassOfFormula(compound.formula),
                      .pKa = compound.pKa,
                      .oxidationNrCommon = compound.oxidationNrCommon,
                      .category = compound.category,
                      .feed = {},
                      .effluent = {}});
}

void FeedComposition::Add(CompoundEntry entry)
{
    m_entries.push_back(std::move(entry));
    UpdatePhOf(m_entries.back());
    UpdateTotals();
}

void FeedComposition::Remove(std::size_t index)
{
    static_cast<void>(m_entries.at(index));
    m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(index));
    UpdateTotals();
}

void FeedComposition::Clear()
{
    m_entries.clear();
    UpdateTotals();
}

void FeedComposition::SetFeed(std::size_t index, Unit unit, double value)
{
    CompoundEntry& entry = m_entries.at(index);
    const Unit base = RuleOf(unit).base;
    Fill(entry, entry.feed, base, BaseValue(unit, value, m_medium.density), m_medium.density);
    if (RuleOf(unit).perKilogram)
        entry.feed[unit] = value;
    if (entry.effluent[base] > entry.feed[base])
        entry.effluent = entry.feed;
    UpdatePhOf(entry);
    UpdateTotals();
}

void FeedComposition::SetEffluent(std::size_t index, Unit unit, double value)
{
    CompoundEntry& entry = m_entries.at(index);
    const Unit base = RuleOf(unit).base;
    const double typed = BaseValue(unit, value, m_medium.density);
    FillEffluent(entry, base, typed, m_medium.density);
    // Without a density the content per mass says nothing of the others, and is limited by itself.
    const double most = m_medium.density > 0.0 ? value : std::min(value, entry.feed[unit]);
    if (RuleOf(unit).perKilogram && entry.effluent[base] == typed)
        entry.effluent[unit] = std::max(0.0, most);
    UpdatePhOf(entry);
    UpdateTotals();
}

void FeedComposition::SetDensity(double kgPerLitre)
{
    m_medium.density = kgPerLitre;
    for (CompoundEntry& entry : m_entries) {
        FollowMass(entry.feed, kgPerLitre);
        FollowMass(entry.effluent, kgPerLitre);
    }
    UpdateTotals();
}

void FeedComposition::SetMedium(const FeedMedium::Data& medium)
{
    m_medium = medium;
    for (CompoundEntry& entry : m_entries)
        UpdatePhOf(entry);
    SetDensity(medium.density);
}

void FeedComposition::SetPhAdjusted(bool adjusted)
{
    m_adjustPh = adjusted;
    UpdateTotals();
}

void FeedComposition::SetStatedPh(double pH)
{
    m_statedPh = pH;
    UpdateTotals();
}

void FeedComposition::UpdateTotals()
{
    if (m_batches > 0)
        return;
    const double celsius = m_medium.temperature.In(TemperatureUnit::Celsius);
    const double goal = m_adjustPh ? m_statedPh : kUnknown;
    m_feedTotals = Sum(m_entries, &CompoundEntry::feed, celsius, goal);
    m_effluentTotals = Sum(m_entries, &CompoundEntry::effluent, celsius, kUnknown);
}

void FeedComposition::UpdatePhOf(CompoundEntry& entry) const
{
    if (m_batches > 0)
        return;
    const double celsius = m_medium.temperature.In(TemperatureUnit::Celsius);
    for (Concentration* block : {&entry.feed, &entry.effluent})
        block->pH = entry.ionicCharge != 0 ? kUnknown
                                           : feed::ChargeBalance({ToSolute(entry, *block)}, celsius).FindPh();
}

FeedComposition::Batch::Batch(FeedComposition& composition) : m_composition(composition)
{
    ++m_composition.m_batches;
}

FeedComposition::Batch::~Batch()
{
    --m_composition.m_batches;
    for (CompoundEntry& entry : m_composition.m_entries)
        m_composition.UpdatePhOf(entry);
    m_composition.UpdateTotals();
}
