// SPDX-License-Identifier: MIT
#include "projectbase/units/unit_system_manager.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace {

/// A displayed unit: value in ISO units = (displayed value - offset) * factor.
struct Display
{
    std::string_view unit;
    double factor = 1.0;
    double offset = 0.0;
};

struct Row
{
    std::string_view iso;
    Display us;
    Display imperial;
};

// Definitions of the international yard and pound (1959), the US liquid gallon (231 in3), the imperial gallon
// (1985) and standard gravity; everything else follows from them.
constexpr double kInch = 0.0254;                                           // m
constexpr double kFoot = 12.0 * kInch;                                     // m
constexpr double kSquareFoot = kFoot * kFoot;                              // m2
constexpr double kCubicFoot = kFoot * kFoot * kFoot;                       // m3
constexpr double kGallon = 231.0 * kInch * kInch * kInch;                  // m3
constexpr double kImperialGallon = 4.54609e-3;                             // m3
constexpr double kPound = 0.45359237;                                      // kg
constexpr double kGrain = kPound / 7000.0;                                 // kg
constexpr double kPsi = kPound * 9.80665 / (kInch * kInch);                // Pa
constexpr double kHorsepower = 550.0 * kFoot * kPound * 9.80665 / 1000.0;  // kW
constexpr double kGramCaCO3PerEquivalent = 100.0869 / 2.0;                 // g/eq
constexpr double kKilograin = kGrain * 1.0e6 / kGramCaCO3PerEquivalent;    // eq, capacity counted as CaCO3

// The rows are sorted by the bytes of their ISO unit.
constexpr std::array kRows{
    Row{"EUR/kg", {"EUR/lb", 1.0 / kPound}, {"EUR/lb", 1.0 / kPound}},
    Row{"EUR/l", {"EUR/ft3", 1.0e-3 / kCubicFoot}, {"EUR/ft3", 1.0e-3 / kCubicFoot}},
    Row{"EUR/m3", {"EUR/kgal", 1.0e-3 / kGallon}, {"EUR/kigal", 1.0e-3 / kImperialGallon}},
    Row{"Pa", {"psi", kPsi}, {"psi", kPsi}},
    Row{"bar", {"psi", kPsi / 1.0e5}, {"psi", kPsi / 1.0e5}},
    Row{"bar/m", {"psi/ft", kPsi / 1.0e5 / kFoot}, {"psi/ft", kPsi / 1.0e5 / kFoot}},
    Row{"cm", {"in", kInch * 100.0}, {"in", kInch * 100.0}},
    Row{"eq", {"kgr", kKilograin}, {"kgr", kKilograin}},
    Row{"eq/d", {"kgr/d", kKilograin}, {"kgr/d", kKilograin}},
    Row{"eq/l",
        {"kgr/ft3", kKilograin / (kCubicFoot * 1.0e3)},
        {"kgr/ft3", kKilograin / (kCubicFoot * 1.0e3)}},
    Row{"g/l", {"lb/ft3", kPound / kCubicFoot}, {"lb/ft3", kPound / kCubicFoot}},
    Row{"kPa", {"psi", kPsi / 1.0e3}, {"psi", kPsi / 1.0e3}},
    Row{"kW", {"hp", kHorsepower}, {"hp", kHorsepower}},
    Row{"kg", {"lb", kPound}, {"lb", kPound}},
    Row{"kg/d", {"lb/d", kPound}, {"lb/d", kPound}},
    Row{"kg/h", {"lb/h", kPound}, {"lb/h", kPound}},
    Row{"kg/l", {"lb/gal", kPound / (kGallon * 1.0e3)}, {"lb/igal", kPound / (kImperialGallon * 1.0e3)}},
    Row{"kg/m3", {"lb/ft3", kPound / kCubicFoot}, {"lb/ft3", kPound / kCubicFoot}},
    Row{"l", {"gal", kGallon * 1.0e3}, {"igal", kImperialGallon * 1.0e3}},
    Row{"l/h", {"gph", kGallon * 1.0e3}, {"igph", kImperialGallon * 1.0e3}},
    Row{"l/min", {"gpm", kGallon * 1.0e3}, {"igpm", kImperialGallon * 1.0e3}},
    Row{"l/s", {"gpm", kGallon * 1.0e3 / 60.0}, {"igpm", kImperialGallon * 1.0e3 / 60.0}},
    Row{"m", {"ft", kFoot}, {"ft", kFoot}},
    Row{"m/h", {"gpm/ft2", kGallon * 60.0 / kSquareFoot}, {"igpm/ft2", kImperialGallon * 60.0 / kSquareFoot}},
    Row{"m/s", {"ft/s", kFoot}, {"ft/s", kFoot}},
    Row{"m2", {"ft2", kSquareFoot}, {"ft2", kSquareFoot}},
    Row{"m3", {"gal", kGallon}, {"igal", kImperialGallon}},
    Row{"m3/d", {"gpd", kGallon}, {"igpd", kImperialGallon}},
    Row{"m3/h", {"gpm", kGallon * 60.0}, {"igpm", kImperialGallon * 60.0}},
    Row{"mbar", {"psi", kPsi / 1.0e2}, {"psi", kPsi / 1.0e2}},
    Row{"mm", {"in", kInch * 1.0e3}, {"in", kInch * 1.0e3}},
    Row{"\u00b0C", {"\u00b0F", 5.0 / 9.0, 32.0}, {"\u00b0C"}},
};
static_assert(std::is_sorted(kRows.begin(), kRows.end(),
                             [](const Row& a, const Row& b) { return a.iso < b.iso; }));

/// The unit that `unitSystem` shows for an ISO unit, or null where it shows the ISO unit itself.
const Display* Find(std::string_view unit, std::string_view unitSystem)
{
    const bool us = unitSystem == "us";
    if (!us && unitSystem != "imperial")
        return nullptr;
    const auto row = std::lower_bound(kRows.begin(), kRows.end(), unit,
                                      [](const Row& a, std::string_view b) { return a.iso < b; });
    if (row == kRows.end() || row->iso != unit)
        return nullptr;
    return us ? &row->us : &row->imperial;
}

bool IsLetter(char c)
{
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

/// Whether the digit at `i` is the exponent of a length: "m3", "ft2", "in2", but not "CaCO3".
bool IsExponent(std::string_view text, std::size_t i)
{
    if ((text[i] != '2' && text[i] != '3') || (i + 1 < text.size() && IsLetter(text[i + 1])))
        return false;
    std::size_t start = i;
    while (start > 0 && IsLetter(text[start - 1]))
        --start;
    const std::string_view length = text.substr(start, i - start);
    return length == "m" || length == "cm" || length == "mm" || length == "ft" || length == "in";
}

std::string Typographic(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsExponent(text, i))
            result += text[i] == '2' ? "\u00b2" : "\u00b3";
        else if (text[i] == '.' && i > 0 && i + 1 < text.size())
            result += "\u00b7";
        else if (text[i] == 'u' && (i == 0 || !IsLetter(text[i - 1])) && i + 1 < text.size() &&
                 IsLetter(text[i + 1]))
            result += "\u00b5";
        else
            result += text[i];
    }
    return result;
}

}  // namespace

double UnitSystemManager::ToISO(const std::string& unit, const std::string& unitSystem, double value)
{
    const Display* display = Find(unit, unitSystem);
    return display == nullptr ? value : (value - display->offset) * display->factor;
}

double UnitSystemManager::FromISO(const std::string& unit, const std::string& unitSystem, double value)
{
    const Display* display = Find(unit, unitSystem);
    return display == nullptr ? value : value / display->factor + display->offset;
}

std::string UnitSystemManager::GetUnit(const std::string& unit, const std::string& unitSystem,
                                       bool typographic)
{
    const Display* display = Find(unit, unitSystem);
    const std::string_view shown = display == nullptr ? std::string_view(unit) : display->unit;
    return typographic ? Typographic(shown) : std::string(shown);
}

const std::vector<std::string>& UnitSystemManager::GetUnitSystems()
{
    static const std::vector<std::string> names{"iso", "us", "imperial"};
    return names;
}
