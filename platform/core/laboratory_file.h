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
#include "core/delimited_text.h"
#include "core/laboratory_names.h"
#include "core/laboratory_values.h"
#include "core/work_watch.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace laboratory {

/// The largest file that whoever reads one takes, and the largest table in it.
inline constexpr std::size_t kMostBytes = 16u << 20;
inline constexpr delimited::Bounds kBounds{.rows = 100'000, .columns = 1'000, .cells = 1'000'000};

/// The file's bytes as UTF-8: by a byte order mark (UTF-8, UTF-16 of both orders), as UTF-8 where they are
/// valid, else as Latin-1.
CORE_EXPORT std::string DecodeText(std::string_view bytes);

struct File
{
    std::vector<Parameter> parameters = {};
    /// Texts of the samples, each as long as `parameters`; those of numbers have no blanks around them.
    std::vector<std::vector<std::string>> samples = {};
    char separator = ',';
    char decimalSign = '.';
    bool hasLimits = false;  ///< whether an amount lies below a limit of detection

    /// The number of a cell in the unit of its parameter; nothing for a blank cell, a text that is none
    /// ("n.d."), and a limit of what is no amount ("pH < 4").
    CORE_EXPORT std::optional<Number> GetNumber(std::size_t sample, std::size_t parameter) const;
    /// What the file calls a sample; empty where it does not.
    CORE_EXPORT std::string GetSampleName(std::size_t sample) const;
};

/// A file without any quantity that is known has no samples. Throws delimited::TooLarge for a table beyond
/// kBounds, WorkCancelled.
CORE_EXPORT File Read(std::string_view bytes, const WorkWatch& watch = {});

/// A value of a sample: its title, with the unit, and its text.
using TitledText = std::pair<std::string, std::string>;

/// A file that Read understands, across, with commas and decimal points. The titles are names that are known;
/// what a sample lacks is a blank cell.
CORE_EXPORT std::string Write(const std::vector<std::vector<TitledText>>& samples);

}  // namespace laboratory
