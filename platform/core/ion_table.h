// SPDX-License-Identifier: MIT
#pragma once

/// The one table of ions. A line here is all that it takes to add one: the rows of the analysis, the details
/// of a water, the chemistry, the reports and the reading of laboratories' files follow from it.
///
/// The weights are rounded as water laboratories use them and differ a little from the standard atomic
/// weights; analyses are comparable with each other only as long as all of them use this one table.

#include "core/core_export.h"
#include "core/ion.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace ions {

// Key, symbol, name, label, kind, charge (phosphate and arsenic count as trivalent whatever the pH);
// equivalent weight, molar mass, coefficient; conductance (sources: see the conductivity; phosphate and
// arsenic: the coefficient); spellings of laboratories.
// clang-format off
inline constexpr std::array kIonTable{
    Ion{"na", "Na", SourceText("Sodium"), SourceText("Sodium:"), IonKind::Cation, 1, 22.99, 22.99, 50.1,
        {50.10, 0.003763, 0.8770, 26.23}, "na|sodium|natrium"},
    Ion{"ca", "Ca", SourceText("Calcium"), SourceText("Calcium:"), IonKind::Cation, 2, 20.04, 40.08, 59.5,
        {59.50, 0.009645, 1.984, 62.28}, "ca|calcium|kalzium"},
    Ion{"mg", "Mg", SourceText("Magnesium"), SourceText("Magnesium:"), IonKind::Cation, 2, 12.16, 24.31, 53.0,
        {53.05, 0.01068, 1.695, 57.16}, "mg|magnesium"},
    Ion{"k", "K", SourceText("Potassium"), SourceText("Potassium:"), IonKind::Cation, 1, 39.1, 39.1, 73.5,
        {73.50, 0.003046, 1.261, 40.70}, "k|potassium|kalium"},
    Ion{"sr", "Sr", SourceText("Strontium"), SourceText("Strontium:"), IonKind::Cation, 2, 43.81, 87.62, 59.5,
        {59.45, 0.006649, 2.069, 61.63}, "sr|strontium"},
    Ion{"ba", "Ba", SourceText("Barium"), SourceText("Barium:"), IonKind::Cation, 2, 68.67, 137.33, 63.6,
        {63.9, 0.01059, 2.090, 68.10}, "ba|barium"},
    Ion{"nh4", "NH4", SourceText("Ammonium"), SourceText("NH4:"), IonKind::Cation, 1, 18.04, 18.04, 73.5,
        {73.5, 0.003341, 1.285, 39.04}, "nh4|ammonium"},
    Ion{"fe2", "Fe(II)", SourceText("Iron(II)"), SourceText("Fe(II):"), IonKind::Cation, 2, 27.92, 55.85, 53.5,
        {54.0, 0.009939, 1.878, 54.80}, "fe2|fe(ii)|iron(ii)|ferrous iron|eisen(ii)"},
    Ion{"mn", "Mn", SourceText("Manganese"), SourceText("Manganese:"), IonKind::Cation, 2, 27.47, 54.94, 53.5,
        {53.5, 0.01275, 2.109, 46.19}, "mn|manganese|mangan"},
    Ion{"al", "Al", SourceText("Aluminium"), SourceText("Aluminium:"), IonKind::Cation, 3, 8.99, 26.98, 63.0,
        {63.0, 0.02376, 3.227, 90.24}, "al|aluminium|aluminum"},
    Ion{"h.plus", "H+", SourceText("Hydrogen ion"), SourceText("H+"), IonKind::EquivalentCation, 1, 1.01, 1.01, 349.8,
        {349.8, -0.01414, 5.355, 224.2}, ""},
    Ion{"cl", "Cl", SourceText("Chloride"), SourceText("Chloride:"), IonKind::Anion, -1, 35.45, 35.45, 76.3,
        {76.35, 0.003817, 1.337, 40.99}, "cl|chloride|chlorid"},
    Ion{"so4", "SO4", SourceText("Sulfate"), SourceText("SO4:"), IonKind::Anion, -2, 48.03, 96.06, 80.0,
        {80.0, 0.01037, 2.838, 82.37}, "so4|sulfate|sulphate|sulfat"},
    Ion{"co3", "CO3", SourceText("Carbonate"), SourceText("CO3:"), IonKind::Anion, -2, 30.0, 60.01, 69.3,
        {69.3, -0.000326, 2.998, 64.03}, "co3|carbonate|carbonat|karbonat"},
    Ion{"hco3", "HCO3", SourceText("Bicarbonate"), SourceText("HCO3:"), IonKind::Anion, -1, 61.02, 61.02, 44.5,
        {44.5, 0.000614, 0.9048, 21.14},
        "hco3|bicarbonate|hydrogencarbonate|hydrogen carbonate|bicarbonat|hydrogencarbonat|hydrogenkarbonat"},
    Ion{"no3", "NO3", SourceText("Nitrate"), SourceText("NO3:"), IonKind::Anion, -1, 62.0, 62.0, 71.5,
        {71.46, 0.001925, 1.214, 39.90}, "no3|nitrate|nitrat"},
    Ion{"f", "F", SourceText("Fluoride"), SourceText("Fluoride:"), IonKind::Anion, -1, 19.0, 19.0, 55.4,
        {55.4, 0.002764, 1.087, 26.66}, "f|fluoride|fluorid"},
    Ion{"sio2", "SiO2", SourceText("Silica"), SourceText("SiO2:"), IonKind::Anion, 0, 60.08, 60.08, 1.0,
        {}, "sio2|silica|silicon dioxide|reactive silica|kieselsäure|siliziumdioxid|siliciumdioxid"},
    Ion{"b", "B", SourceText("Boron"), SourceText("Boron:"), IonKind::Anion, 0, 10.81, 10.81, 1.0,
        {}, "b|boron|bor"},
    Ion{"po4", "PO4", SourceText("Phosphate"), SourceText("PO4:"), IonKind::Anion, -3, 31.66, 94.97, 69.0,
        {69.0}, "po4|phosphate|orthophosphate|phosphat|orthophosphat"},
    Ion{"br", "Br", SourceText("Bromide"), SourceText("Bromide:"), IonKind::Anion, -1, 79.9, 79.9, 78.4,
        {78.1, 0.000709, 1.477, 40.91}, "br|bromide|bromid"},
    Ion{"as3", "As(III)", SourceText("Arsenic(III)"), SourceText("As(III):"), IonKind::Anion, -3, 40.97, 122.92, 34.0,
        {34.0}, "as3|as(iii)|arsenic(iii)|arsen(iii)"},
    Ion{"as5", "As(V)", SourceText("Arsenic(V)"), SourceText("As(V):"), IonKind::Anion, -3, 46.31, 138.92, 34.0,
        {34.0}, "as5|as(v)|arsenic(v)|arsen(v)"},
    Ion{"oh.minus", "OH-", SourceText("Hydroxide"), SourceText("OH-"), IonKind::EquivalentAnion, -1, 17.01, 17.01, 198.3,
        {198.3, 0.003396, 2.925, 121.3}, ""},
    Ion{"co2", "CO2", "", "", IonKind::Neutral, 0, 44.01, 44.01, 1.0, {},
        "co2|carbon dioxide|free co2|kohlendioxid|freies co2|freie kohlensäure"},
    OtherIon("nh3", 17.03, 17.03, 73.5),
    OtherIon("eta", 61.08, 61.08, 42.2),
    OtherIon("mor", 87.12, 87.12, 37.2),
    OtherIon("eta.plus", 62.09, 62.09, 42.2),
    OtherIon("mor.plus", 88.13, 88.13, 37.2),
    // The weight is 1 % below half the molar mass; stored analyses were made with it.
    OtherIon("cu", 31.47, 63.55, 59.0),
    OtherIon("si", 28.09, 28.09, 0.001),
    OtherIon("li", 6.94, 6.94, 1.0),
    OtherIon("sn", 118.71, 118.71, 1.0),
    OtherIon("i", 126.9, 126.9, 5e-08),
    OtherIon("cs", 132.91, 132.91, 4e-06),
    OtherIon("hg", 200.59, 200.59, 4.0),
    OtherIon("tl", 204.38, 204.38, 0.0002),
    OtherIon("pb", 207.2, 207.2, 5e-06),
    OtherIon("bi", 208.98, 208.98, 2e-06),
    OtherIon("ra", 226.03, 226.03, 1.0),
    OtherIon("th", 232.04, 232.04, 0.5),
    OtherIon("u", 238.03, 238.03, 0.001),
    // Those that the user names: what they weigh, the name says.
    NamedIon("x1", "X1", SourceText("Cation 1"), IonKind::NamedCation, 1, "cation 1|kation 1"),
    NamedIon("x2", "X2", SourceText("Cation 2"), IonKind::NamedCation, 1, "cation 2|kation 2"),
    NamedIon("y1", "Y1", SourceText("Anion 1"), IonKind::NamedAnion, -1, "anion 1"),
    NamedIon("y2", "Y2", SourceText("Anion 2"), IonKind::NamedAnion, -1, "anion 2"),
};
// clang-format on

constexpr bool IsNamed(const Ion& ion)
{
    return ion.kind == IonKind::NamedCation || ion.kind == IonKind::NamedAnion;
}

/// The ions of these kinds, kind after kind, each in the order of the table.
template <IonKind... Kinds>
consteval auto SelectIons()
{
    constexpr auto count = [](IonKind kind) { return std::ranges::count(kIonTable, kind, &Ion::kind); };
    std::array<const Ion*, static_cast<std::size_t>((count(Kinds) + ...))> selected{};
    auto* end = selected.data();
    for (const IonKind kind : {Kinds...})
        for (const Ion& ion : kIonTable)
            if (ion.kind == kind)
                *end++ = &ion;
    return selected;
}

/// The rows of a water analysis in display order.
inline constexpr auto kCations =
    SelectIons<IonKind::Cation, IonKind::NamedCation, IonKind::EquivalentCation>();
inline constexpr auto kAnions = SelectIons<IonKind::Anion, IonKind::NamedAnion, IonKind::EquivalentAnion>();

/// One member of each of these ions.
template <std::size_t Count, typename Member>
consteval auto MembersOf(const std::array<const Ion*, Count>& selected, Member Ion::*member)
{
    std::array<Member, Count> members{};
    std::ranges::transform(selected, members.begin(), [member](const Ion* ion) { return ion->*member; });
    return members;
}

inline constexpr auto kCationKeys = MembersOf(kCations, &Ion::key);
inline constexpr auto kAnionKeys = MembersOf(kAnions, &Ion::key);

/// The ion of that key (exact, lower case), or null; null also for one that the user names.
CORE_EXPORT const Ion* FindIon(std::string_view key);

/// All ions but those that the user names, in the order of the table.
CORE_EXPORT std::span<const Ion> AllIons();

/// Whether the key is that of a row whose name the user gives ("x1", "x2", "y1", "y2").
CORE_EXPORT bool IsNamedIon(std::string_view key);

/// Whether the ion counts in the charge sums: silica, boron and CO2 are listed but hardly ionised, so they do
/// not.
CORE_EXPORT bool CountsAsCharge(std::string_view key);

/// Key of the ion whose equivalent weight turns meq/l into mg/l. A named cation (key beginning with "x") is
/// taken as "nh4" when its name says so in whatever case, else as "na"; a named anion ("y") as "cl"; any
/// other ion as itself. Trailing blanks of the name do not matter.
CORE_EXPORT std::string_view ReferenceKey(std::string_view key, std::string_view name);

/// `text` without the blanks at its end.
CORE_EXPORT std::string_view TrimTrailingBlanks(std::string_view text);

}  // namespace ions
