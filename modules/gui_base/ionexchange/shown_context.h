// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/report/report_page_source.h"

class Project;

/// What a page says as the report does: in the language of the window, in the units that the project is shown
/// in.
GUI_BASE_EXPORT ReportContext ShownContext(const Project& project);
