// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/report/report_page_source.h"

#include <string>

/// "Well 2: Sodium ...", "Source: ...", with the colon of the language; the text alone behind an empty title.
GUI_BASE_REPORT_EXPORT std::string WithTitle(const std::string& title, const std::string& text,
                                             const ReportContext& context);
