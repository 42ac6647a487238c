// SPDX-License-Identifier: MIT
#include "dbinterfaces/dbinterfaces_export.h"
