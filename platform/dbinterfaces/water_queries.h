// SPDX-License-Identifier: MIT
#pragma once

/// What is asked of a library of waters, in the master and in the user database alike: their tables have the
/// same shape. Internal to this library; errors are those of the session.

#include "dbinterfaces/db_objects.h"

#include <soci/soci.h>

#include <vector>

namespace water_queries {

/// Which tables hold the waters, and what marks their records.
struct Tables
{
    const char* prefix;
    int user;
};

std::vector<DBObjects::WaterLibCategory> Categories(soci::session& session, const Tables& tables);
std::vector<DBObjects::WaterLibCountry> Countries(soci::session& session, const Tables& tables,
                                                  int categoryId);
std::vector<DBObjects::WaterLibWater> WatersOfNodes(soci::session& session, const Tables& tables,
                                                    const std::vector<int>& nodeIds);
std::vector<DBObjects::WaterLibAttr> Analysis(soci::session& session, const Tables& tables, int waterId);

}  // namespace water_queries
