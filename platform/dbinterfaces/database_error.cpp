// SPDX-License-Identifier: MIT
#include "dbinterfaces/database_error.h"

// Defined here so that the type is the same one in every library that catches it.
DatabaseError::~DatabaseError() = default;
