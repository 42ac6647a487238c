// SPDX-License-Identifier: MIT
#pragma once

/// The rows of a what-if analysis: the pairs of the master database, each with the values of the project that
/// it stands for. No windows, so that panels of every layer can ask whether there is one.

#include "dbinterfaces/db_objects.h"
#include "projectbase/project/project.h"
#include "projectbase/projectbase_export.h"

#include <string_view>
#include <vector>

namespace whatif {

/// One value of a row and the owner that it belongs to.
struct Place
{
    OwnerNode* node = nullptr;
    DetailData* detail = nullptr;
};

struct Row
{
    DBObjects::WhatIfPair pair;
    Place first;
    Place second;
};

/// The pairs of the plant, for each exchanger, compartment and resin that has the values. Values of two
/// owners make a row when one belongs to the other. Pairs of which one value does not exist are left out.
PROJECTBASE_EXPORT std::vector<Row> PlantRows(Project& project);

/// The pairs of one row of a regeneration sequence, whose kind ("regseqstep/type") must be that of the pair;
/// the other value may be the exchanger's.
PROJECTBASE_EXPORT std::vector<Row> SequenceRows(const Project& project, OwnerNode& sequenceRow);

/// Whether a pair of the one kind of row is offered for the other: the first and the further regenerant are
/// one.
PROJECTBASE_EXPORT bool IsSameKindOfRow(std::string_view one, std::string_view other);

/// Whether there is anything to analyse: what the panels of a project answer to HasWhatIf. Without master
/// data there is nothing.
PROJECTBASE_EXPORT bool HasRows(Project& project);

}  // namespace whatif
