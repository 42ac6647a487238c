// SPDX-License-Identifier: MIT
#pragma once

/// A copy of a project on which something is tried, and the way of its inputs back into the project. Both
/// have the same owners; groups and owners are not compared and not copied.

#include "projectbase/project/project.h"
#include "projectbase/projectbase_export.h"

#include <string>

namespace whatif {

/// Whether all inputs of the one are those of the other, bit by bit.
PROJECTBASE_EXPORT bool HasSameInputs(const Project& one, const Project& other);

/// Writes the inputs of `from` that differ into `to`, in one edit of that name to which no rules apply: they
/// were applied to the copy.
PROJECTBASE_EXPORT void CopyInputs(const Project& from, Project& to, const std::string& name);

}  // namespace whatif
