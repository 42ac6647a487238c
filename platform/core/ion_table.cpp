// SPDX-License-Identifier: MIT
#include "core/ion_table.h"

#include <algorithm>
#include <functional>
#include <unordered_map>

namespace ions {

namespace {

// What a line of the table must state, by what the ion is in an analysis; one that lacks it does not compile.

constexpr bool IsRow(const Ion& ion)
{
    return ion.kind != IonKind::Neutral && ion.kind != IonKind::Other;
}

/// Whether the rule holds for every line.
template <typename Rule>
consteval bool Every(Rule rule)
{
    return std::ranges::all_of(kIonTable, rule);
}

constexpr bool IsChargeOfWeights(const Ion& ion)
{
    const double valency = ion.molarMass / ion.equivalentWeight;
    const double charge = ion.charge == 0 ? 1.0 : ion.charge < 0 ? -ion.charge : ion.charge;
    return valency - charge < 2e-3 && charge - valency < 2e-3;
}

static_assert(Every([](const Ion& ion) { return std::ranges::count(kIonTable, ion.key, &Ion::key) == 1; }),
              "a key is listed twice");
static_assert(std::ranges::is_partitioned(kIonTable, std::not_fn(IsNamed)), "named ions come last");
static_assert(Every([](const Ion& ion) { return IsNamed(ion) == !(ion.equivalentWeight > 0.0); }),
              "an ion has no weight");
static_assert(Every([](const Ion& ion) {
                  return IsNamed(ion) || ion.kind == IonKind::Other || IsChargeOfWeights(ion);
              }),
              "a charge differs from molar mass by equivalent weight");
static_assert(Every([](const Ion& ion) { return !IsRow(ion) || (*ion.label != 0 && !ion.symbol.empty()); }),
              "a row has no label or symbol");
static_assert(Every([](const Ion& ion) { return !IsRow(ion) || IsNamed(ion) == (*ion.name == 0); }),
              "a row has no name, or a named one has");
static_assert(Every([](const Ion& ion) {
                  return (ion.kind != IonKind::Cation && ion.kind != IonKind::Anion) ||
                         !ion.spellings.empty();
              }),
              "laboratories' names of an ion are missing");
static_assert(Every([](const Ion& ion) {
                  return IsNamed(ion) || (ion.charge != 0) == (ion.conductance.at25 > 0.0);
              }),
              "an ion with a charge has no conductance");
static_assert(std::ranges::all_of(kCations, [](const Ion* ion) { return ion->charge > 0; }) &&
                  std::ranges::all_of(kAnions, [](const Ion* ion) { return ion->charge <= 0; }),
              "an ion stands on the wrong side");

constexpr auto kNamedCount = static_cast<std::size_t>(std::ranges::count_if(kIonTable, IsNamed));

using Table = std::unordered_map<std::string_view, const Ion*>;

const Table& IonTable()
{
    // Never deleted: other objects may still ask for ions while the process ends.
    static const Table& table = *[] {
        auto* built = new Table(AllIons().size());
        for (const Ion& ion : AllIons())
            built->emplace(ion.key, &ion);
        return built;
    }();
    return table;
}

bool EqualsIgnoringCase(std::string_view text, std::string_view lower)
{
    return std::ranges::equal(text, lower, [](char a, char b) {
        return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
    });
}

}  // namespace

const Ion* FindIon(std::string_view key)
{
    const auto found = IonTable().find(key);
    return found == IonTable().end() ? nullptr : found->second;
}

std::span<const Ion> AllIons()
{
    return std::span(kIonTable).first(kIonTable.size() - kNamedCount);
}

bool IsNamedIon(std::string_view key)
{
    const auto named = std::span(kIonTable).last(kNamedCount);
    return std::ranges::find(named, key, &Ion::key) != named.end();
}

bool CountsAsCharge(std::string_view key)
{
    const Ion* ion = FindIon(key);
    return ion == nullptr || ion->charge != 0 || ion->kind == IonKind::Other;
}

std::string_view ReferenceKey(std::string_view key, std::string_view name)
{
    if (key.starts_with('x'))
        return EqualsIgnoringCase(TrimTrailingBlanks(name), "nh4") ? "nh4" : "na";
    return key.starts_with('y') ? "cl" : key;
}

std::string_view TrimTrailingBlanks(std::string_view text)
{
    const auto last = text.find_last_not_of(" \t\r\n\f\v");
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

}  // namespace ions
