// SPDX-License-Identifier: MIT
#pragma once

/// What the rows of a regeneration sequence can be and what flows in them. The tables are read from the
/// master database once and never change afterwards; all of this may be called from any thread. The first
/// call throws DatabaseError when a table cannot be read.

#include "dbinterfaces/db_objects.h"
#include "projectbase/projectbase_export.h"

#include <string_view>
#include <vector>

namespace sequence {

using Medium = DBObjects::SequenceMedium;
using Type = DBObjects::SequenceType;
using Default = DBObjects::SequenceDefault;

inline constexpr const char* kBackwash = "REGSEQ_BW";
inline constexpr const char* kFirstRegenerant = "REGSEQ_REG_FIRST";
inline constexpr const char* kRegenerant = "REGSEQ_REG";
inline constexpr const char* kDisplacement = "REGSEQ_DISP";
inline constexpr const char* kRinse = "REGSEQ_RINSE";
inline constexpr const char* kConditioning = "REGSEQ_COND";
inline constexpr const char* kAirMix = "REGSEQ_AIRMIX";
inline constexpr const char* kFinalRinse = "REGSEQ_FINAL";
inline constexpr const char* kTapWater = "REGSEQ_TAP_WATER";

/// In the order in which they are offered.
PROJECTBASE_EXPORT const std::vector<Medium>& Media();
PROJECTBASE_EXPORT const std::vector<Type>& Types();
/// The medium or the type of that key, or null.
PROJECTBASE_EXPORT const Medium* FindMedium(std::string_view key);
PROJECTBASE_EXPORT const Type* FindType(std::string_view key);
/// The medium that is this chemical ("HCL"), or null.
PROJECTBASE_EXPORT const Medium* MediumOfChemical(std::string_view chemical);

/// Whether a row of this type can have this medium: water of any kind, a chemical, or air.
PROJECTBASE_EXPORT bool CanHave(const Type& type, const Medium& medium);
/// A row for a dose of regenerant: the first one or the only or second one.
PROJECTBASE_EXPORT bool IsRegeneration(std::string_view type);

/// The rows that an exchanger of that kind begins with, in their order.
PROJECTBASE_EXPORT std::vector<const Default*> DefaultsOf(std::string_view kind);

}  // namespace sequence
