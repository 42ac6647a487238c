// SPDX-License-Identifier: MIT
#pragma once

/// Tables of what a water means, ready for a page. What is not known has no row.

#include "gui_base/report/report_page_source.h"
#include "projectbase/advice/evaluation.h"

#include <vector>

class LiquidData;

namespace wateranalysis {

/// The verdict on the balance and the results that the window has in tiles.
report::Table ResultTable(const advice::Evaluation& evaluation, const LiquidData& water,
                          const ReportContext& context);
report::Table SaturationTable(const advice::Saturation& saturation, const ReportContext& context);
/// Each piece of advice with its source.
report::Table AdviceTable(const std::vector<advice::Advice>& advice, const ReportContext& context);

}  // namespace wateranalysis
