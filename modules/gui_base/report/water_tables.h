// SPDX-License-Identifier: MIT
#pragma once

/// Tables of one water's values, ready for a page. What is not known is an empty cell; what lies outside its
/// limits is marked.

#include "gui_base/report/report_page_source.h"
#include "projectbase/details/detail_list.h"

#include <string>
#include <vector>

namespace wateranalysis {

/// A label without the colon that forms put after it.
std::string PlainLabel(const char* source, const ReportContext& context);

/// What the kind of water with that code is called; the code itself where there is none.
GUI_BASE_REPORT_EXPORT std::string WaterTypeText(const std::string& code, const ReportContext& context);
/// Where the water comes from and how it was analysed: whatever of it is stated.
report::Table GeneralTable(const DetailList& details, const std::string& name, const ReportContext& context);
/// The analysed ions as typed, in mg/l and in meq/l, with their sums.
report::Table CationTable(const DetailList& details, const ReportContext& context);
report::Table AnionTable(const DetailList& details, const ReportContext& context);
/// How well both sums agree.
report::Table BalanceTable(const DetailList& details, const ReportContext& context);
/// Temperature, pH, CO2 and whatever else was measured.
report::Table MeasuredTable(const DetailList& details, const ReportContext& context);
/// No rows for a short analysis, which knows no hardness.
report::Table HardnessTable(const DetailList& details, const ReportContext& context);
report::Table SummaryTable(const DetailList& details, const ReportContext& context);
/// A sentence for each value outside its limits.
std::vector<std::string> RangeSentences(const DetailList& details, const ReportContext& context);

}  // namespace wateranalysis
