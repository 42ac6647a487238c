// SPDX-License-Identifier: MIT
#pragma once

/// What the user reads about the balance of an analysis, in the window and in the report.

#include "gui_base/report/report_page_source.h"
#include "projectbase/advice/balance_judgement.h"

#include <string>

namespace wateranalysis {

/// "+0.4 %, in order"; "-15.7 %, over the limit of Standard Methods 1030E"; where the rule looks at the
/// amount, "+0.6 % (+0.02 meq/l), in order". Empty where nothing was judged.
GUI_BASE_REPORT_EXPORT std::string BalanceText(const advice::BalanceJudgement& judgement,
                                               const ReportContext& context);

}  // namespace wateranalysis
