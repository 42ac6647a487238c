// SPDX-License-Identifier: MIT
#pragma once

/// What is asked of a table of compounds, in the master and in the user database alike, and how those of the
/// user are indexed. Internal to this library; errors are those of the session.

#include "dbinterfaces/connection.h"
#include "dbinterfaces/db_objects.h"

#include <soci/soci.h>

#include <string>
#include <utility>
#include <vector>

namespace compound_queries {

/// Name and value of a parameter of a query.
using Parameter = std::pair<std::string, std::string>;

/// The compounds of `table` under further clauses with their parameters.
std::vector<DBObjects::Compound> Select(soci::session& session, const std::string& table,
                                        const std::string& clauses,
                                        const std::vector<Parameter>& parameters = {});

/// The user's compounds under the filters of ProjectDatabase::GetCompounds, found by the database.
std::vector<DBObjects::Compound> SelectFiltered(soci::session& session, Backend backend,
                                                const std::string& element, const std::string& category,
                                                const std::string& search);

/// Whether an index serves a search for that text.
bool IsIndexed(soci::session& session, Backend backend, const std::string& search);

/// Stores the compounds under their identifiers.
void Upsert(soci::session& session, const std::vector<DBObjects::Compound>& compounds);

/// Indexes for element, category and, where the database can, any part of name and formula.
void CreateIndexes(soci::session& session, Backend backend);

/// Adds the compounds that the program supplies to the empty table.
void FillWithSupplied(soci::session& session);

}  // namespace compound_queries
