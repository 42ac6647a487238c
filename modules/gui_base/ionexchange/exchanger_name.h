// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "projectbase/project/owner_node.h"

#include <wx/string.h>

/// "2 Strong-base anion exchanger": its place in the line and what it is, in the present language; its own
/// name where it has one.
GUI_BASE_EXPORT wxString ExchangerName(const OwnerNode& exchanger);
