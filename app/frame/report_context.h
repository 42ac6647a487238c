// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/report/report_page_source.h"

namespace app {

/// In the language and with the numbers of the window, in the units of printouts.
ReportContext WindowContext();

}  // namespace app
