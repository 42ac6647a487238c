// SPDX-License-Identifier: MIT
#include "core/ion_table.h"

#include <algorithm>
#include <unordered_map>

namespace ions {

namespace {

// clang-format off
constexpr std::array kIons{
    Ion{"na", 22.99, 22.99, 50.1},
    Ion{"ca", 20.04, 40.08, 59.5},
    Ion{"mg", 12.16, 24.31, 53.0},
    Ion{"k", 39.1, 39.1, 73.5},
    Ion{"sr", 43.81, 87.62, 59.5},
    Ion{"ba", 68.67, 137.33, 63.6},
    Ion{"nh4", 18.04, 18.04, 73.5},
    Ion{"fe2", 27.92, 55.85, 53.5},
    Ion{"mn", 27.47, 54.94, 53.5},
    Ion{"al", 8.99, 26.98, 63.0},
    Ion{"h.plus", 1.01, 1.01, 349.8},
    Ion{"cl", 35.45, 35.45, 76.3},
    Ion{"so4", 48.03, 96.06, 80.0},
    Ion{"co3", 30.0, 60.01, 69.3},
    Ion{"hco3", 61.02, 61.02, 44.5},
    Ion{"no3", 62.0, 62.0, 71.5},
    Ion{"f", 19.0, 19.0, 55.4},
    Ion{"sio2", 60.08, 60.08, 1.0},
    Ion{"b", 10.81, 10.81, 1.0},
    Ion{"po4", 31.66, 94.97, 69.0},
    Ion{"br", 79.9, 79.9, 78.4},
    Ion{"as3", 40.97, 122.92, 34.0},
    Ion{"as5", 46.31, 138.92, 34.0},
    Ion{"oh.minus", 17.01, 17.01, 198.3},
    Ion{"co2", 44.01, 44.01, 1.0},
    Ion{"nh3", 17.03, 17.03, 73.5},
    Ion{"eta", 61.08, 61.08, 42.2},
    Ion{"mor", 87.12, 87.12, 37.2},
    Ion{"eta.plus", 62.09, 62.09, 42.2},
    Ion{"mor.plus", 88.13, 88.13, 37.2},
    // The weight is 1 % below half the molar mass; stored analyses were made with it.
    Ion{"cu", 31.47, 63.55, 59.0},
    Ion{"si", 28.09, 28.09, 0.001},
    Ion{"li", 6.94, 6.94, 1.0},
    Ion{"sn", 118.71, 118.71, 1.0},
    Ion{"i", 126.9, 126.9, 5e-08},
    Ion{"cs", 132.91, 132.91, 4e-06},
    Ion{"hg", 200.59, 200.59, 4.0},
    Ion{"tl", 204.38, 204.38, 0.0002},
    Ion{"pb", 207.2, 207.2, 5e-06},
    Ion{"bi", 208.98, 208.98, 2e-06},
    Ion{"ra", 226.03, 226.03, 1.0},
    Ion{"th", 232.04, 232.04, 0.5},
    Ion{"u", 238.03, 238.03, 0.001},
};
// clang-format on

using Table = std::unordered_map<std::string_view, const Ion*>;

const Table& IonTable()
{
    // Never deleted: other objects may still ask for ions while the process ends.
    static const Table& table = *[] {
        auto* built = new Table(kIons.size());
        for (const Ion& ion : kIons)
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
    return kIons;
}

bool IsNamedIon(std::string_view key)
{
    return key == "x1" || key == "x2" || key == "y1" || key == "y2";
}

bool CountsAsCharge(std::string_view key)
{
    return key != "sio2" && key != "b" && key != "co2";
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
