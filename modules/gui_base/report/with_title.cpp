// SPDX-License-Identifier: MIT
#include "gui_base/report/with_title.h"

#include <fmt/format.h>
#include <wx/translation.h>

std::string WithTitle(const std::string& title, const std::string& text, const ReportContext& context)
{
    return title.empty() ? text : fmt::format("{}{} {}", title, context.Translated(wxTRANSLATE(":")), text);
}
