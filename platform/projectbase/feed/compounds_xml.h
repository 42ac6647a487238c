// SPDX-License-Identifier: MIT
#pragma once

/// Reading the document of an exchange file. Internal to the exchange files.

#include "dbinterfaces/db_objects.h"

#include <string>
#include <vector>

/// The compounds of a document. They are taken as they come and nothing else is kept of it, so that memory
/// and time grow with its length only; the first thing that does not belong there ends the reading. Throws
/// CompoundFileError, which says where.
std::vector<DBObjects::Compound> ReadCompoundsXml(const std::string& xml);
