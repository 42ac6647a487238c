// SPDX-License-Identifier: MIT
#pragma once

/// What an edit of one input brings about in others, whoever made it: a page, a dialog, the command line.
/// Internal to the project.

#include "projectbase/project/project_journal.h"

#include <vector>

class Project;

namespace rules {

/// Applies every rule to inputs that were typed together. What was typed itself stays as it was typed.
void Apply(Project& project, const std::vector<TypedInput>& typed);

/// Settles what holds for inputs however they came: typed, pasted, imported or read. Where blends are
/// calculated, no water has a short analysis: they ask for every ion.
void KeepInvariants(Project& project);

}  // namespace rules
