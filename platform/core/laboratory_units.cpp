// SPDX-License-Identifier: MIT
#include "core/laboratory_units.h"

#include "core/ion_table.h"
#include "core/ion_units.h"
#include "core/number_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <utility>

namespace laboratory {
namespace {

/// A unit of properties, with its spellings. The m- and the p-value share theirs.
struct PropertyUnit
{
    std::string_view target;
    std::string_view unit;
    std::string_view spellings;
    double factor = 1.0;
};

// Milligrams of hardness or alkalinity, of which nothing else is said, are those of calcium carbonate.
constexpr std::string_view kCalciumCarbonate =
    "ppm caco3|mg/l caco3|mg caco3/l|mgcaco3/l|mg/l as caco3|ppm as caco3|mg/l (caco3)|mg/l (as caco3)|"
    "mg/l|mg l-1|ppm|g/m3|g/m\u00b3";

constexpr std::array kPropertyUnits{
    PropertyUnit{"ph", "", "|-|ph"},
    PropertyUnit{"temp", "\u00b0C", "|\u00b0c|c|degc|deg c|celsius"},
    PropertyUnit{"temp", "\u00b0F", "\u00b0f|f|degf|deg f|fahrenheit"},
    PropertyUnit{"temp", "K", "k|kelvin"},
    PropertyUnit{"alkalinity", "mmol/l", "mmol/l|meq/l|mval/l|mmol(eq)/l|mol/m3|mol/m\u00b3"},
    PropertyUnit{"alkalinity", "ppm CaCO3", kCalciumCarbonate},
    PropertyUnit{"alkalinity", "\u00b0d", "\u00b0d|\u00b0dh|dh"},
    PropertyUnit{"alkalinity", "\u00b0f", "\u00b0f|\u00b0fh"},
    PropertyUnit{"alkalinity", "\u00b0e", "\u00b0e|\u00b0eh|\u00b0clark"},
    PropertyUnit{"hardness.measured", "mmol/l", "mmol/l|mol/m3|mol/m\u00b3"},
    PropertyUnit{"hardness.measured", "meq/l", "meq/l|mval/l|mmol(eq)/l|mmolc/l"},
    PropertyUnit{"hardness.measured", "ppm CaCO3", kCalciumCarbonate},
    PropertyUnit{"hardness.measured", "\u00b0d", "\u00b0d|\u00b0dh|dh|\u00b0 dh|grad dh"},
    PropertyUnit{"hardness.measured", "\u00b0f", "\u00b0f|\u00b0fh"},
    PropertyUnit{"hardness.measured", "\u00b0a", "\u00b0a|gpg|gr/gal|grain/gal|grains/gal"},
    PropertyUnit{"hardness.measured", "\u00b0e", "\u00b0e|\u00b0eh|\u00b0clark"},
    PropertyUnit{"cond25.measured", "\u00b5S/cm",
                 "\u00b5s/cm|\u03bcs/cm|us/cm|\u00b5mho/cm|umho/cm|umhos/cm|mikrosiemens/cm"},
    PropertyUnit{"cond25.measured", "mS/cm", "ms/cm|ds/m|mmho/cm|mmhos/cm"},
    PropertyUnit{"cond25.measured", "mS/m", "ms/m"},
    PropertyUnit{"turbidity", "NTU", "|ntu|fnu|fnu/ntu|tef"},
    PropertyUnit{"sdi", "", "|-|%/min"},
    PropertyUnit{"tss", "mg/l", "|mg/l|ppm|g/m3"},
    PropertyUnit{"oil", "mg/l", "|mg/l|mg l-1|ppm|g/m3|g/m\u00b3"},
    PropertyUnit{"oil", "mg/l", "\u00b5g/l|\u03bcg/l|ug/l|mcg/l|ppb", 1e-3},
    PropertyUnit{"toc", "mg/l", "|mg/l|mg/l c|ppm|g/m3"},
    PropertyUnit{"fe.total", "mg/l", "|mg/l|ppm|g/m3"},
    PropertyUnit{"cl.free", "mg/l", "|mg/l|ppm|g/m3"},
    PropertyUnit{"h2s", "mg/l", "|mg/l|ppm|g/m3"},
};

struct IonUnit
{
    std::string_view unit;
    double factor;
    std::string_view spellings;
};

constexpr std::array kIonUnits{
    IonUnit{"mg/l", 1.0, "mg/l|g/m3|g/m\u00b3|mg l-1"},
    IonUnit{"mg/l", 1000.0, "g/l"},
    IonUnit{"ppm", 1.0, "ppm|mg/kg"},
    IonUnit{"ppb", 1.0, "ppb|\u00b5g/l|\u03bcg/l|ug/l|mcg/l|\u00b5g/kg"},
    IonUnit{"meq/l", 1.0, "meq/l|mval/l|mmol(eq)/l|mmolc/l"},
    IonUnit{"meq/l", 0.001, "\u00b5eq/l|\u03bceq/l|ueq/l"},
    IonUnit{"ppm CaCO3", 1.0, "ppm caco3|mg/l caco3|mg caco3/l|mgcaco3/l|mg/l as caco3|ppm as caco3"},
    IonUnit{"\u00b0d", 1.0, "\u00b0d|\u00b0dh|dh"},
    IonUnit{"\u00b0f", 1.0, "\u00b0f|\u00b0fh"},
    IonUnit{"\u00b0a", 1.0, "\u00b0a"},
    IonUnit{"\u00b0e", 1.0, "\u00b0e|\u00b0eh|\u00b0clark"},
};

/// Amounts of substance, in mmol/l.
constexpr std::array<std::pair<std::string_view, double>, 2> kMolarUnits{
    {{"mmol/l|mol/m3|mol/m\u00b3", 1.0}, {"\u00b5mol/l|\u03bcmol/l|umol/l", 1e-3}}};

}  // namespace

bool HasSpelling(std::string_view spellings, std::string_view text)
{
    for (std::size_t at = 0;;) {
        const std::size_t end = std::min(spellings.find('|', at), spellings.size());
        if (spellings.substr(at, end - at) == text)
            return true;
        if (end == spellings.size())
            return false;
        at = end + 1;
    }
}

std::string Lower(std::string_view text)
{
    std::string lower(text);
    for (std::size_t i = 0; i < lower.size(); ++i) {
        const auto byte = static_cast<unsigned char>(lower[i]);
        if (byte < 0x80)
            lower[i] = static_cast<char>(std::tolower(byte));
        else if (byte == 0xc3 && i + 1 < lower.size()) {
            const auto next = static_cast<unsigned char>(lower[i + 1]);
            if (next >= 0x80 && next <= 0x9e)
                lower[i + 1] = static_cast<char>(next + 0x20);
            ++i;
        }
    }
    return lower;
}

std::optional<UnitReading> ReadIonUnit(std::string_view text, const ions::Ion& ion)
{
    const std::string spelling = Lower(numbertext::Trim(text));
    for (const IonUnit& unit : kIonUnits)
        if (HasSpelling(unit.spellings, spelling))
            return UnitReading{std::string(unit.unit), unit.factor};
    for (const auto& [spellings, millimoles] : kMolarUnits) {
        if (!HasSpelling(spellings, spelling))
            continue;
        // What carries no charge has no equivalents: its amount is given as a mass.
        if (ion.charge == 0)
            return UnitReading{std::string(ions::kMgPerLitre), millimoles * ion.molarMass};
        return UnitReading{std::string(ions::kMeqPerLitre), millimoles * std::abs(ion.charge)};
    }
    return std::nullopt;
}

bool IsIonUnit(std::string_view text)
{
    return ReadIonUnit(text, ions::kIonTable.front()).has_value();
}

std::optional<UnitReading> ReadPropertyUnit(std::string_view text, std::string_view target)
{
    const std::string spelling = Lower(numbertext::Trim(text));
    if (target.starts_with("alkalinity."))
        target = "alkalinity";
    for (const PropertyUnit& unit : kPropertyUnits)
        if (unit.target == target && HasSpelling(unit.spellings, spelling))
            return UnitReading{std::string(unit.unit), unit.factor};
    return std::nullopt;
}

bool IsPropertyUnit(std::string_view text)
{
    const std::string spelling = Lower(numbertext::Trim(text));
    const bool isDistinct = spelling.find('/') != std::string::npos || spelling == "ntu" ||
                            spelling == "fnu" || spelling.starts_with("\u00b0");
    return isDistinct && std::ranges::any_of(kPropertyUnits, [&](const PropertyUnit& unit) {
               return HasSpelling(unit.spellings, spelling);
           });
}

}  // namespace laboratory
