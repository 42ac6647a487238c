// SPDX-License-Identifier: MIT
#pragma once

/// Details that occur many times in a project, each time as a group of the same names.
///
/// Groups are immutable once they are stored: the project, its undo steps and a snapshot share them, so that
/// keeping an older state of a thousand groups costs a pointer for each.

#include "projectbase/details/detail_data.h"
#include "projectbase/projectbase_export.h"

#include <memory>
#include <string_view>
#include <vector>

/// The details of one group, in the order of their names.
using DetailGroup = std::vector<DetailData>;
using DetailGroupPtr = std::shared_ptr<const DetailGroup>;
/// All groups of one kind in their order.
using DetailGroups = std::vector<DetailGroupPtr>;
using DetailGroupsPtr = std::shared_ptr<const DetailGroups>;

/// The groups to be stored in the place of `former` (null: none): those at its beginning and its end that
/// are equal are shared; the whole is `former` itself when nothing differs, and null when there are none.
PROJECTBASE_EXPORT DetailGroupsPtr ShareGroups(const DetailGroupsPtr& former,
                                               std::vector<DetailGroup> groups);

/// Whether names, values and units are the same.
PROJECTBASE_EXPORT bool SameGroup(const DetailGroup& a, const DetailGroup& b);
/// The detail of that name, or null.
PROJECTBASE_EXPORT const DetailData* FindDetail(const DetailGroup& group, std::string_view name);
