// SPDX-License-Identifier: MIT
#pragma once

/// Settings of the program, kept as user parameters. They exist once in a process and belong to the main
/// thread. Without a database they hold the defaults of the catalogue group "settings" and whatever is set
/// meanwhile.

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <string>

class PROJECTBASE_EXPORT Settings
{
public:
    Settings() = delete;

    /// For example GetSetting("temp.init"); throws std::runtime_error for a name that the catalogue does not
    /// hold.
    static DetailData& GetSetting(const std::string& name);
    static DetailList& GetSettings();
    /// The shortest text that reads back as the value; throws as GetSetting.
    static std::string TextOf(const std::string& name);
    /// Takes a value as it is stored, numbers with a decimal point. False, and nothing changes, for a text
    /// that the setting cannot hold or a number outside its limits; throws as GetSetting.
    static bool SetFromText(const std::string& name, const std::string& text);

    /// Reads every setting from the open user database. A stored text that its detail cannot hold, or a
    /// number outside the limits, leaves the default. Throws DatabaseError; the settings are then as they
    /// were.
    static void Load();
    /// Stores what was changed since Load or Save, so that programs running at the same time keep each
    /// other's changes. Throws DatabaseError.
    static void Save();
    /// Back to the defaults, stored or not.
    static void Reset();
    static void Reset(const std::string& name);
};
