// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/kept_boxes.h"

#include "dbinterfaces/project_database.h"

#include <wx/tokenzr.h>

#include <exception>

namespace kept_boxes {
namespace {

/// Names, each ended by a semicolon.
constexpr const char* kParameter = "/Window/collapsed";

wxString Names()
{
    try {
        return wxString::FromUTF8(ProjectDatabase::GetLocalParameter(kParameter));
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace

bool IsKept(const wxString& name)
{
    return (";" + Names()).Contains(";" + name + ";");
}

void Keep(const wxString& name, bool keep)
{
    wxString kept;
    for (const wxString& other : wxStringTokenize(Names(), ";", wxTOKEN_STRTOK)) {
        if (other != name)
            kept += other + ";";
    }
    if (keep)
        kept += name + ";";
    try {
        ProjectDatabase::SetLocalParameter(kParameter, kept.utf8_string());
    } catch (const std::exception&) {
        return;
    }
}

}  // namespace kept_boxes
