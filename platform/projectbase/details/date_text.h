// SPDX-License-Identifier: MIT
#pragma once

/// Dates as the program shows them, in windows, lists and reports, whatever the locale: the form of ISO 8601,
/// which is the same in every language and cannot be mistaken for another day.

#include "projectbase/projectbase_export.h"

#include <wx/datetime.h>
#include <wx/string.h>

#include <chrono>

/// "2026-11-22"; empty for an invalid date.
PROJECTBASE_EXPORT wxString DateText(const wxDateTime& date);

/// "2026-11-22 14:05" in local time.
PROJECTBASE_EXPORT wxString MomentText(std::chrono::system_clock::time_point moment);
