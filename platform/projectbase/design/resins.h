// SPDX-License-Identifier: MIT
#pragma once

/// The resins that a bed can be filled with: kinds with typical figures, no makes. The tables are read from
/// the master database once and never change afterwards; all of this may be called from any thread. The first
/// call throws DatabaseError when they cannot be read.

#include "dbinterfaces/db_objects.h"
#include "projectbase/design/hydraulics.h"
#include "projectbase/projectbase_export.h"

#include <string_view>
#include <vector>

namespace design {

using Resin = DBObjects::Resin;
using ResinRegeneration = DBObjects::ResinRegeneration;
using ExchangerDefault = DBObjects::ExchangerDefault;

/// All of them in the order in which they are offered.
PROJECTBASE_EXPORT const std::vector<Resin>& Resins();
/// The resin of that key, or null.
PROJECTBASE_EXPORT const Resin* FindResin(std::string_view key);

/// A layer that exchanges nothing.
inline bool IsInert(const Resin& resin)
{
    return resin.kind == "inert";
}

/// What flow through a bed of it depends on.
inline Beads BeadsOf(const Resin& resin)
{
    return {resin.bead, resin.density, resin.voidFraction};
}

/// What is known of a resin's regeneration with a chemical in that mode ("CO", "COUNTER" or "MB"), or null.
PROJECTBASE_EXPORT const ResinRegeneration* FindRegeneration(const Resin& resin, std::string_view chemical,
                                                             std::string_view mode);
/// Whether the chemical regenerates the resin.
PROJECTBASE_EXPORT bool IsRegeneratedWith(const Resin& resin, std::string_view chemical);

/// How a compartment (0 or 1) of a new exchanger of a kind begins in a type of plant, or null.
PROJECTBASE_EXPORT const ExchangerDefault* FindDefault(std::string_view plantType, std::string_view kind,
                                                       std::size_t compartment);

}  // namespace design
