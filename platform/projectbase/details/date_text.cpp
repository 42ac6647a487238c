// SPDX-License-Identifier: MIT
#include "projectbase/details/date_text.h"

wxString DateText(const wxDateTime& date)
{
    return date.IsValid() ? date.FormatISODate() : wxString();
}

wxString MomentText(std::chrono::system_clock::time_point moment)
{
    const wxDateTime local(std::chrono::system_clock::to_time_t(moment));
    return DateText(local) + local.Format(" %H:%M");
}
