// SPDX-License-Identifier: MIT
#pragma once

/// An ion or another dissolved species as the system knows it.

#include <string_view>

namespace ions {

/// What a species is in a water analysis: which of the two grids it stands in and how it is typed.
enum class IonKind
{
    Cation,            ///< any unit of concentration
    NamedCation,       ///< the user gives its name, which decides what it weighs
    EquivalentCation,  ///< an equivalent amount only
    Anion,             ///< also the weak acids that are listed among the anions without counting as charge
    NamedAnion,
    EquivalentAnion,
    Neutral,  ///< dissolved in the water, but no row of the grids
    Other     ///< no part of a water analysis
};

/// Limiting equivalent conductance at 25 °C (S cm²/eq), and the shape a t² + b t + c of its change with the
/// temperature, all zero where only that of the viscosity is known.
struct Conductance
{
    double at25 = 0.0;
    double a = 0.0, b = 0.0, c = 0.0;
};

struct Ion
{
    std::string_view key;     ///< lower-case ion key, for example "na" or "h.plus"
    std::string_view symbol;  ///< as results show it
    const char* name;         ///< source text; empty for an ion that the user names
    const char* label;        ///< of its row in an analysis, source text
    IonKind kind;
    int charge;               ///< as analyses count it; 0 for one that does not count, and for IonKind::Other
    double equivalentWeight;  ///< g/eq; equal to the molar mass for species that carry no charge
    double molarMass;         ///< g/mol
    /// Main ions: equivalent conductance at infinite dilution and 25 °C, S cm²/eq. Weak species (sio2, b,
    /// co2): 1. Trace elements: a factor of the feed composition.
    double coefficient;
    Conductance conductance;     ///< of the conductivity model
    std::string_view spellings;  ///< lower-case names in laboratories' files, parted by "|"
};

/// Marks a text that is translated where it is shown.
constexpr const char* SourceText(const char* text)
{
    return text;
}

/// An ion of which only the weights are known.
constexpr Ion OtherIon(std::string_view key, double equivalentWeight, double molarMass, double coefficient)
{
    return {key, "", "", "", IonKind::Other, 0, equivalentWeight, molarMass, coefficient, {}, ""};
}

/// A row whose name the user gives.
constexpr Ion NamedIon(std::string_view key, std::string_view symbol, const char* label, IonKind kind,
                       int charge, std::string_view spellings)
{
    return {key, symbol, "", label, kind, charge, 0.0, 0.0, 0.0, {}, spellings};
}

}  // namespace ions
