// SPDX-License-Identifier: MIT
#pragma once

/// What compounds are called in other languages than English. A compound is filed, stored in projects and
/// exchanged under its English name and its formula; a user's own compound has the name that it was given in
/// every language.
///
/// The names are read from the master database when they are first asked for, and kept. All calls may come
/// from any thread and throw nothing of the database: without it every compound has its own name.

#include "dbinterfaces/db_objects.h"
#include "dbinterfaces/dbinterfaces_export.h"

#include <string>
#include <vector>

namespace compound_names {

/// The name to show in `language` ("de", "de_AT"; empty: English) of a compound that is filed under `name`.
DBINTERFACES_EXPORT std::string Shown(const std::string& name, const std::string& formula,
                                      const std::string& language);
/// The name under which the compound of that formula is filed that is shown as `shown`; `shown` itself where
/// no supplied compound is called so.
DBINTERFACES_EXPORT std::string Filed(const std::string& shown, const std::string& formula,
                                      const std::string& language);

/// Brings compounds that are listed by name, in whatever language, into the order of their names in
/// `language`. Quick where there are many of the user's own, which have one name.
DBINTERFACES_EXPORT void SortAsShown(std::vector<DBObjects::Compound>& compounds,
                                     const std::string& language);

}  // namespace compound_names
