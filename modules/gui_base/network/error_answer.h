// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <string_view>

/// Whether what a server sent in the place of a file says that it has none: an XML document with the root
/// element "tarnvik-error". Its beginning is enough.
GUI_BASE_EXPORT bool IsErrorAnswer(std::string_view head);
