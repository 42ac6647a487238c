// SPDX-License-Identifier: MIT
#pragma once

/// What the user reads about the balance of an analysis, in the window and in the report.

#include "gui_base/report/report_page_source.h"
#include "projectbase/advice/balance_judgement.h"

#include <string>

namespace wateranalysis {

/// With so many decimals; never "-0.0".
GUI_BASE_REPORT_EXPORT std::string FixedNumber(double value, int decimals, const ReportContext& context);

/// "+0.4 %", where the rule looks at the amount "+0.6 % (+0.02 meq/l)"; empty where nothing was judged, as
/// are the others.
GUI_BASE_REPORT_EXPORT std::string BalanceErrorText(const advice::BalanceJudgement& judgement,
                                                    const ReportContext& context);
/// "over the limit of Standard Methods 1030E", "closed by automatic balancing with 0.07 meq/l Na".
GUI_BASE_REPORT_EXPORT std::string BalanceVerdictText(const advice::BalanceJudgement& judgement,
                                                      const ReportContext& context);
/// "+0.4 %, in order"; "-15.7 %, over the limit of Standard Methods 1030E".
GUI_BASE_REPORT_EXPORT std::string BalanceText(const advice::BalanceJudgement& judgement,
                                               const ReportContext& context);

}  // namespace wateranalysis
