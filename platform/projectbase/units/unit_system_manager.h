// SPDX-License-Identifier: MIT
#pragma once

/// Conversion between the units in which a project keeps its values (ISO units) and those of a unit system on
/// display: "iso", "us" (gpm, gal, ft, psi, °F, grains) or "imperial". Unit texts are UTF-8. A unit that no
/// table names, and an unknown unit system, are passed through unchanged, so that "meq/l" stays "meq/l"
/// everywhere.

#include "projectbase/projectbase_export.h"

#include <string>
#include <vector>

class PROJECTBASE_EXPORT UnitSystemManager
{
public:
    UnitSystemManager() = delete;

    /// Value in the ISO unit `unit` of a value shown in `unitSystem`.
    static double ToISO(const std::string& unit, const std::string& unitSystem, double value);
    /// Value shown in `unitSystem` of a value in the ISO unit `unit`.
    static double FromISO(const std::string& unit, const std::string& unitSystem, double value);
    /// Unit text of `unitSystem` for the ISO unit `unit`; with `typographic`, exponents are raised and middle
    /// dots are set ("m³/h" for "m3/h").
    static std::string GetUnit(const std::string& unit, const std::string& unitSystem, bool typographic);
    /// Names of all unit systems, "iso" first.
    static const std::vector<std::string>& GetUnitSystems();
};
