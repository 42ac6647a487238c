// SPDX-License-Identifier: MIT
#pragma once

/// A value given on the command line: "[OWNER:]KEY=VALUE[UNIT]".
///
/// OWNER is the path of an owner ("water.2", "ex.1.comp.1", "ex.1.seq.3"), the number of a water counted
/// from 0, or an entry of the feed ("feedcompound.1"); without one the key is the project's or the first
/// water's. KEY is the name of a detail ("liquid/na.orig", "project/title"); what all keys of the owner begin
/// with
/// ("liquid/", "stepcomp/") may be left out, and so may ".orig" of what is entered in a unit of choice:
/// "na=12mg/l" sets the number and the unit, "na=12" the number alone.

#include "projectbase/project/owner_node.h"

#include <stdexcept>
#include <string>

namespace app {

struct SettingError : std::runtime_error
{
    explicit SettingError(const std::string& text, bool syntax = false)
        : std::runtime_error(text), isSyntax(syntax)
    {}
    bool isSyntax;  ///< the text has not the form of a setting
};

struct ProjectSetting
{
    std::string owner;  ///< empty: see above
    std::string key;
    std::string value;
};

/// Throws SettingError for a text of another form.
ProjectSetting ParseSetting(const std::string& text);

/// Where the value lives that a setting's owner and key name, an input or not; the name of a value as it
/// stands comes before what it may be short for. Throws SettingError when there is none.
DetailAddress FindAddress(Project& project, const ProjectSetting& setting);

/// Throws SettingError when there is no such input, or it cannot hold the value; the project is then
/// unchanged.
void ApplySetting(Project& project, const ProjectSetting& setting);

}  // namespace app
