// SPDX-License-Identifier: MIT
#pragma once

/// The rows of an exchanger's regeneration sequence: which there must be, and how a sequence is read and
/// stored as a whole. Everything that writes is an edit of the project.

#include "projectbase/project/owner_node.h"
#include "projectbase/sequence/reg_seq_data.h"

class Project;

namespace sequence {

/// Gives an exchanger without rows those that its kind begins with.
PROJECTBASE_EXPORT void AddDefaults(Project& project, OwnerNode& exchanger);

PROJECTBASE_EXPORT RegSeqData Read(const OwnerNode& exchanger);

/// Makes the sequence that of `data`, in its order: rows without identity are added, rows that are missing
/// are removed. A row gets a medium that its type can have and, where nothing of it is known, the usual
/// figures; required rows that are missing are added at their usual place; remarks are cut to
/// text_limits::kRemarks letters.
PROJECTBASE_EXPORT void Save(Project& project, OwnerNode& exchanger, const RegSeqData& data);

/// Gives a row a medium that its type can have, where it has another one.
PROJECTBASE_EXPORT void CorrectMedium(OwnerNode& row);

/// Adds what the exchanger requires and marks the first row of each such kind as not removable: a
/// regenerant, displacement and rinse; the first regenerant, too, where sulfuric acid is applied in two
/// steps; in a mixed bed backwash, both regenerants, air mixing and final rinse.
PROJECTBASE_EXPORT void KeepRequired(Project& project, OwnerNode& exchanger);

/// A compartment's chemical was `before` and is another one or none now: its rows follow.
PROJECTBASE_EXPORT void ReplaceChemical(OwnerNode& compartment, std::string_view before, bool conditioning);

/// Regenerant and displacement of a vessel with one bed flow as its mode of regeneration says.
PROJECTBASE_EXPORT void FollowMode(OwnerNode& exchanger);

/// One of the values of a row was typed ("regseqstep/q"): it stays, what was typed before follows.
PROJECTBASE_EXPORT void RememberTyped(OwnerNode& row, std::string_view key);

}  // namespace sequence
