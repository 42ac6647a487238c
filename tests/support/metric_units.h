// SPDX-License-Identifier: MIT
#pragma once

/// Finds units in texts that another unit system would show in its own.

#include "projectbase/units/unit_system_manager.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace support {

/// The ISO units that "us" shows as others, as they are written and as they are set.
inline std::vector<std::string> MetricUnits()
{
    std::vector<std::string> units;
    for (const std::string iso :
         {"EUR/kg", "EUR/l", "EUR/m3", "Pa",   "bar",  "bar/m", "cm",    "eq",   "eq/d", "eq/l",   "g/l",
          "kPa",    "kW",    "kg",     "kg/d", "kg/h", "kg/l",  "kg/m3", "l",    "l/h",  "l/min",  "l/s",
          "m",      "m/h",   "m/s",    "m2",   "m3",   "m3/d",  "m3/h",  "mbar", "mm",   "\u00b0C"}) {
        for (const bool typographic : {false, true}) {
            const std::string unit = UnitSystemManager::GetUnit(iso, "iso", typographic);
            if (unit != UnitSystemManager::GetUnit(iso, "us", typographic))
                units.push_back(unit);
        }
    }
    return units;
}

/// The first of them that is a word of the text; empty where none is. What a quantity is referred to
/// ("Conductivity @ 25 °C") is its name in every unit system.
inline std::string MetricUnitIn(std::string_view text)
{
    static const std::vector<std::string> units = MetricUnits();
    std::string before;
    std::string referred;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(" ()[],;:\n\t"), text.size());
        const std::string word(text.substr(0, end));
        if (referred != "@" && std::ranges::find(units, word) != units.end())
            return word;
        referred = std::exchange(before, word);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return {};
}

}  // namespace support
