// SPDX-License-Identifier: MIT
#pragma once

/// The user's library of waters: how a water of a project is filed and stored, and how a stored one is
/// applied to a water.
///
/// Waters are filed by the English name of their country, their place and their source; there is one of each.
/// A failing database throws DatabaseError, and the library is then as it was.

#include "dbinterfaces/db_objects.h"
#include "projectbase/projectbase_export.h"
#include "projectbase/water/liquid_data.h"

#include <functional>
#include <string>
#include <vector>

namespace water_store {

/// What a water must state to be filed.
struct Missing
{
    bool place;
    bool source;
    explicit operator bool() const { return place || source; }
};
PROJECTBASE_EXPORT Missing FindMissing(const LiquidData& liquid);

/// Whether the library holds a water of that country, place and source.
PROJECTBASE_EXPORT bool HasDuplicate(const LiquidData& liquid);

/// Identifier of the user's country of that English name, which is made when there is none; -1 if that fails.
PROJECTBASE_EXPORT int SaveCountry(const std::string& name);
/// Identifier of the first such water of the user, which is made when there is none; -1 if that fails.
PROJECTBASE_EXPORT int SaveWater(int country, const std::string& place, const std::string& source);

/// Source text that names the value of a detail, by its key.
using LabelOf = std::function<std::string(const std::string& key)>;

/// Stores the water in place of the one that is filed alike, if there is one, as a whole or not at all;
/// whether it did. Zeros are not stored, unknown values without a text.
PROJECTBASE_EXPORT bool Store(const LiquidData& liquid, const LabelOf& labelOf);

/// Makes `liquid` the stored water: a number that is not stored is 0, one stored without a text unknown, and
/// what follows from them is calculated. Details of other types that are not stored keep their values.
PROJECTBASE_EXPORT void Apply(const std::vector<DBObjects::WaterLibAttr>& stored, LiquidData& liquid);

}  // namespace water_store
