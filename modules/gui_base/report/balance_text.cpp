// SPDX-License-Identifier: MIT
#include "gui_base/report/balance_text.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <cmath>

namespace wateranalysis {
namespace {

/// With its sign, unless nothing is left of it.
std::string Signed(double value, int decimals, const ReportContext& context)
{
    const double scale = std::pow(10.0, decimals);
    const double rounded = std::round(scale * value) / scale + 0.0;
    return (rounded > 0.0 ? "+" : "") +
           numbertext::Format(rounded, {.format = TvTextCtrlFormat::Fixed, .precision = decimals},
                              context.separators);
}

std::string VerdictText(const advice::BalanceJudgement& judgement, const ReportContext& context)
{
    using advice::BalanceVerdict;
    const auto byRule = [&](const char* source) {
        std::string text = context.Translated(source);
        if (const auto at = text.find("%s"); at != std::string::npos)
            text.replace(at, 2, context.Translated(advice::NameOf(judgement.rule)));
        return text;
    };
    switch (judgement.verdict) {
        case BalanceVerdict::NotJudged:
            return {};
        case BalanceVerdict::Closed:
            return context.Translated(wxTRANSLATE("closed by automatic balancing"));
        case BalanceVerdict::Doubtful:
            return context.Translated(wxTRANSLATE("doubtful"));
        case BalanceVerdict::OverLimit:
            return byRule(wxTRANSLATE("over the limit of %s"));
        case BalanceVerdict::InOrder:
            break;
    }
    return judgement.isBeyondRule ? byRule(wxTRANSLATE("in order, though %s ends at 800 meq/l"))
                                  : context.Translated(wxTRANSLATE("in order"));
}

}  // namespace

std::string BalanceText(const advice::BalanceJudgement& judgement, const ReportContext& context)
{
    const std::string verdict = VerdictText(judgement, context);
    if (verdict.empty())
        return {};
    std::string error = Signed(judgement.error, 1, context) + " %";
    if (judgement.isLimitOfDifference)
        error += fmt::format(" ({} meq/l)", Signed(judgement.difference, 2, context));
    return error + ", " + verdict;
}

}  // namespace wateranalysis
