// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/report/report_page_source.h"

#include <string>

/// What a page says as the report does: in the language and with the numbers of the window, in the units of
/// that system.
GUI_BASE_EXPORT ReportContext ShownContext(const std::string& unitSystem);
