// SPDX-License-Identifier: MIT
#pragma once

/// Values of the entries of a feed, given on the command line: "feedcompound.2:conc=5mmol/l".

#include "app/command_line/project_setting.h"

#include <limits>
#include <string_view>

namespace app {

/// What the owner of such a setting begins with; the number of the entry follows, counted from 1.
inline constexpr std::string_view kFeedEntry = "feedcompound.";

/// "conc" is the concentration in the feed, "conc.effluent" that in the effluent, as the user states them: in
/// the unit given, or in that in which it was stated before; the names that messages and JSON use are
/// understood, too. Throws SettingError when there is no such entry or value.
void ApplyFeedSetting(Project& project, const ProjectSetting& setting);

/// Where the value of an entry lives that such a setting names. Throws SettingError when there is none.
DetailAddress FindFeedAddress(const Project& project, const ProjectSetting& setting);

struct Quantity
{
    double value = std::numeric_limits<double>::quiet_NaN();
    std::string unit;
};

/// A number and whatever follows it; not known for an empty text. Throws SettingError for a text that is no
/// number.
Quantity ParseQuantity(const ProjectSetting& setting);
/// The same of an amount, which may be a limit of detection, "<0.05 mg/l" (core/detection_limit.h), and is
/// not negative.
Quantity ParseAmount(const ProjectSetting& setting);

}  // namespace app
