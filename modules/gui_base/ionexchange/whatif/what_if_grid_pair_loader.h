// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/ionexchange/whatif/wif_table.h"

#include <vector>

/// Makes the rows of a what-if analysis from the pairs of the master data: with names in the present
/// language, and units of the project's unit system. Where a plant has a value several times, its name says
/// where. Throws DatabaseError when the master data cannot be read.
class GUI_BASE_EXPORT WhatIfGridPairLoader
{
public:
    /// The rows of the plant.
    static std::vector<WifPair> GetTable(Project& project);
    /// The rows of the steps of all regeneration sequences; names end with the number of the step, "(3)".
    static std::vector<WifPair> GetTableForSteps(Project& project);
    /// The rows of one step, a row of a regeneration sequence.
    static std::vector<WifPair> GetTableForStep(Project& project, OwnerNode& step);
    /// The same where the step belongs to an anion exchanger; none elsewhere.
    static std::vector<WifPair> GetTableForAnionerOnlyStep(Project& project, OwnerNode& step);
};
