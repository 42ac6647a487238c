// SPDX-License-Identifier: MIT
#pragma once

/// Water analyses as laboratories send them: a table of separated values, whatever its separator, decimal
/// sign, encoding and order of columns.
///
/// Two forms are read. Across: each column is a parameter, its head names it with its unit ("Ca [mg/l]"),
/// each further row is a sample. Down: each row is a parameter with its value and, in a column of their own,
/// its unit. Names of parameters are ion symbols, English and German names, with or without charges. What is
/// not understood is listed, never guessed. Pure functions; texts are UTF-8.

#include "core/core_export.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace laboratory {

/// The file's bytes as UTF-8: by a byte order mark (UTF-8, UTF-16 of both orders), as UTF-8 where they are
/// valid, else as Latin-1.
CORE_EXPORT std::string DecodeText(std::string_view bytes);

/// What a column or row of the file is.
struct Parameter
{
    std::string title;    ///< as the file names it, with its unit
    std::string target;   ///< "na" for an ion, "ph", "temp", "turbidity", …; empty when it is not known
    std::string unit;     ///< in the spelling of the analysis; empty where none is stated or needed
    double factor = 1.0;  ///< by which a number of the file is multiplied to be in `unit`
    bool unitIsKnown = true;
};

struct File
{
    std::vector<Parameter> parameters;
    /// Texts of the samples, each as long as `parameters`.
    std::vector<std::vector<std::string>> samples;
    char separator = ',';
    char decimalSign = '.';

    /// The number of a cell; nothing for a blank cell or a text that is none ("n.d.", "<0.1").
    CORE_EXPORT std::optional<double> GetNumber(std::size_t sample, std::size_t parameter) const;
};

/// A file without any parameter that is known has no samples.
CORE_EXPORT File Read(std::string_view bytes);

/// The target of a parameter's name ("Ca", "Calcium", "Ca2+", "calcium, dissolved"); empty when not known.
CORE_EXPORT std::string FindTarget(std::string_view name);

/// A file of one sample that Read understands, with commas and decimal points. `values` are pairs of title
/// and text.
CORE_EXPORT std::string Write(const std::vector<std::pair<std::string, std::string>>& values);

}  // namespace laboratory
