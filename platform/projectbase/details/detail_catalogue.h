// SPDX-License-Identifier: MIT
#pragma once

/// The details of each catalogue group, ready to be copied into a list. A group is read from the master
/// database once and kept, so that a further water costs no query. May be called from any thread.

#include "projectbase/details/detail_data.h"
#include "projectbase/projectbase_export.h"

#include <memory>
#include <string>
#include <vector>

/// Details in the order of their names, with limits and defaults; a double without a default is not known
/// (NaN). Throws std::runtime_error for a group that the catalogue does not hold, DatabaseError when it
/// cannot be read.
PROJECTBASE_EXPORT std::shared_ptr<const std::vector<DetailData>> CatalogueGroup(const std::string& group,
                                                                                 const std::string& variant);
