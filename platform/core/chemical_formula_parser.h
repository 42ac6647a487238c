// SPDX-License-Identifier: MIT
#pragma once

/// Chemical formulas: which elements they name, how often, and which parts of them cannot be read.
///
/// A formula is a row of element symbols with counts and of groups in parentheses with multipliers, to any
/// depth: "Fe2(SO4)3". A further part after "·", "*" or "." has its count in front: "CuSO4·5H2O". Formulas
/// are outside text: reading takes time in proportion to their length, whatever they hold. No state; may be
/// called from any thread. Every text is UTF-8.

#include "core/core_export.h"

#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// An element with its data and how often a compound contains it.
struct CompoundElement
{
    std::string symbol;
    std::string name;
    int count = 0;
    double atomicMass = std::numeric_limits<double>::quiet_NaN();  ///< g/mol; NaN for an unknown element
    std::string elementClass;
    int atomicNumber = 0;
    std::string electronConfiguration;
    std::string group1;  ///< 1 to 18; empty for lanthanides and actinides
    std::string group2;  ///< "IA" to "VIIIA"
    int period = 0;
    std::string state;             ///< at 25 °C
    std::string oxidationNumbers;  ///< separated by blanks
    std::string oxidationNumber;   ///< in this compound, where it is known
};

/// A part of a formula that cannot be read; position and length in bytes.
struct FormulaFault
{
    enum class Kind
    {
        Text,            ///< neither symbol, count, parenthesis nor separator
        UnknownElement,  ///< no element has that symbol
        Count,           ///< zero, too large, or nothing to count
        Group,           ///< a parenthesis without its partner, or with nothing inside
        Charge           ///< a sign: formulas are written without their charge
    };

    Kind kind = Kind::Text;
    std::size_t position = 0;
    std::size_t length = 0;
};

class CORE_EXPORT ChemicalFormulaParser
{
public:
    /// `elements` are the known ones; their counts do not matter.
    explicit ChemicalFormulaParser(std::span<const CompoundElement> elements);

    /// The elements in the order in which the formula names them first, each once with all its atoms. Empty
    /// for a formula with a charge sign. Parts that cannot be read are passed over; an unknown symbol gives a
    /// row of a count alone. Throws std::out_of_range ("stoi argument out of range") when a count exceeds an
    /// int.
    std::vector<CompoundElement> Parse(std::string_view formula) const;

    /// What Parse passes over or refuses, in the order of the formula; empty when all can be read.
    std::vector<FormulaFault> FindFaults(std::string_view formula) const;

private:
    std::unordered_map<std::string, CompoundElement> m_elements;
};

namespace formula {

/// g/mol; NaN where an element is not known or there is none.
CORE_EXPORT double MolarMass(std::span<const CompoundElement> elements);

/// Percentage of the molar mass that the atoms of `symbol` make up; NaN where the compound lacks it or a mass
/// is not known.
CORE_EXPORT double WeightPercent(std::span<const CompoundElement> elements, std::string_view symbol);

/// The other constants of an acid and its base at 25 °C; NaN follows from NaN.
struct AcidConstants
{
    double ka = 0.0;   ///< 10^-pKa
    double pKb = 0.0;  ///< 14 - pKa
    double kb = 0.0;   ///< 10^-pKb
};
CORE_EXPORT AcidConstants ConstantsOfPka(double pKa);

}  // namespace formula
