// SPDX-License-Identifier: MIT
#include "gui_base_core/gui_base_core_export.h"
