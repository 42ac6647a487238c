// SPDX-License-Identifier: MIT
#pragma once

/// The costs of a plant's life as a chart: for each year what it costs by then, and what that is worth now.
/// Window and report show it alike.

#include "chartdir/xy_chart.h"
#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"
#include "projectbase/costs/currency.h"

#include <memory>

namespace iex {
class IEXProject;
}  // namespace iex

namespace cost_chart {

/// Without a year, the chart says that there are no data.
GUI_BASE_REPORT_EXPORT std::shared_ptr<chartdir::XYChart> Make(const iex::IEXProject& project,
                                                               const ReportContext& context,
                                                               const costs::ShownCurrency& currency);

}  // namespace cost_chart
