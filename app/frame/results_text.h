// SPDX-License-Identifier: MIT
#pragma once

#include "projectbase/water/liquid_data.h"

#include <wx/string.h>

#include <string>

namespace app {

/// The results of a water as lines of tab-separated cells, for a spreadsheet or a letter: each analysed ion
/// with its typed value, unit, meq/l and mg/l, the sums, and the summary in the units of `unitSystem`. In the
/// language and with the decimal sign of the user; what is not known is an empty cell.
wxString ResultsText(const LiquidData& water, const std::string& unitSystem);

}  // namespace app
