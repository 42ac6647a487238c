// SPDX-License-Identifier: MIT
#pragma once

/// Units in laboratories' files, in whatever spelling, as the analysis knows them.

#include "core/ion.h"

#include <optional>
#include <string>
#include <string_view>

namespace laboratory {

/// A unit in the spelling of the analysis, with the factor that a number of the file takes.
struct UnitReading
{
    std::string unit;
    double factor = 1.0;
};

/// Whether `text` is one of `spellings`, which are parted by "|".
bool HasSpelling(std::string_view spellings, std::string_view text);

/// Small letters, also of German umlauts.
std::string Lower(std::string_view text);

/// The unit of that ion's concentration; nothing where the text is no such unit.
std::optional<UnitReading> ReadIonUnit(std::string_view text, const ions::Ion& ion);
bool IsIonUnit(std::string_view text);

/// The unit of a property that is no ion, by its target.
std::optional<UnitReading> ReadPropertyUnit(std::string_view text, std::string_view target);
/// Whether the text is the unit of any property, spelt so that it can be nothing else.
bool IsPropertyUnit(std::string_view text);

}  // namespace laboratory
