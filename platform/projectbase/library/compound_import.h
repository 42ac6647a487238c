// SPDX-License-Identifier: MIT
#pragma once

/// Taking compounds over into the user database: which of them are there already, and what is then done.

#include "dbinterfaces/db_objects.h"
#include "projectbase/projectbase_export.h"

#include <cstddef>
#include <string>
#include <vector>

namespace compound_import {

/// The numbers are those of the choice in the dialog.
enum class Decision
{
    Skip = 0,
    Replace = 1,
    KeepBoth = 2
};

struct Duplicate
{
    DBObjects::Compound incoming;
    DBObjects::Compound existing;
    std::size_t index = 0;  ///< of the incoming one
};

struct Plan
{
    std::vector<DBObjects::Compound> added;
    std::vector<Duplicate> duplicates;
};

/// Compounds are the same ones when name and formula are.
PROJECTBASE_EXPORT std::string Key(const DBObjects::Compound& compound);

/// Sorts the incoming compounds; reads and writes nothing.
PROJECTBASE_EXPORT Plan MakePlan(const std::vector<DBObjects::Compound>& incoming,
                                 const std::vector<DBObjects::Compound>& existing);

/// Carries out a plan with a decision for each duplicate, as a whole or not at all; returns how many
/// compounds were written. Replacing keeps the identifier; a copy that is kept beside the existing compound
/// is named "... (imported)". Throws DatabaseError, std::invalid_argument for too few or too many decisions.
PROJECTBASE_EXPORT std::size_t CarryOut(const Plan& plan, const std::vector<Decision>& decisions);

}  // namespace compound_import
