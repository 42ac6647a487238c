// SPDX-License-Identifier: MIT
#pragma once

/// The one check of limits: which values of a project lie outside of what the catalogue allows. Everyone who
/// tells of it, the message area, the report and the command line, asks here.

#include "projectbase/project/owner_node.h"
#include "projectbase/projectbase_export.h"

#include <string>
#include <vector>

class DetailData;
class DetailList;
class Project;

struct RangeFault
{
    /// Where the value is typed, also when its limit stands with what follows from it: the limit of an ion is
    /// an amount, whatever unit it is typed in.
    DetailAddress address;
    std::string label;  ///< source text, or the name that the user gave
    double value = 0.0;
    double limit = 0.0;
    bool isBelow = false;
    /// Unit of value and limit: an ISO unit that the displayed system converts, or the one that is typed in.
    std::string unit;
    bool isTypedUnit = false;
    /// Source text of what is wrong, where it is no limit of the catalogue: its first "%s" is the value with
    /// its name, a second one the limit.
    std::string sentence = {};
    /// Of a compound, whose name is `label`.
    std::string formula = {};
};

/// -1 for a number below its minimum, +1 above its maximum, 0 within, and for what is no number or not known.
PROJECTBASE_EXPORT int SideOfLimits(const DetailData& detail);
/// The same of a value that the detail could have.
PROJECTBASE_EXPORT int SideOfLimits(const DetailData& detail, double value);

/// By owner in the order of the project, then by key; at the end of each owner what contradicts each other:
/// bicarbonate and a pH below 4.3, a p-value and the m-value or the pH, what was measured and what the ions
/// give, charges that differ by more than the user's rule allows; then what the design of a plant comes to
/// that its beds or resins do not stand. A value that is not known has no limits, and what a calculation does
/// not use cannot be wrong: the ions of a short analysis, say.
PROJECTBASE_EXPORT std::vector<RangeFault> RangeFaults(const Project& project);

/// The faults of one list, all with the address of `owner`.
PROJECTBASE_EXPORT std::vector<RangeFault> RangeFaults(const DetailList& details, DetailOwner owner = {});
