// SPDX-License-Identifier: MIT
#include "projectbase/units/unit_system_manager.h"
