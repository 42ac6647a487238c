// SPDX-License-Identifier: MIT
#include "gui_base/report/balance_text.h"

#include "core/amount_text.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <cmath>

namespace wateranalysis {
namespace {

constexpr int kClosingDigits = 3;

/// With its sign, unless nothing is left of it.
std::string Signed(double value, int decimals, const ReportContext& context)
{
    const std::string text = FixedNumber(value, decimals, context);
    const bool hasRest = text.find_first_of("123456789") != std::string::npos;
    return (value > 0.0 && hasRest ? "+" : "") + text;
}

std::string WithText(std::string text, const std::string& part)
{
    if (const auto at = text.find("%s"); at != std::string::npos)
        text.replace(at, 2, part);
    return text;
}

std::string ClosedText(const advice::BalanceJudgement& judgement, const ReportContext& context)
{
    const bool isSodium = judgement.closingSodium > 0.0;
    const double amount = isSodium ? judgement.closingSodium : judgement.closingChloride;
    if (!(amount > 0.0))
        return context.Translated(wxTRANSLATE("closed by automatic balancing"));
    return WithText(
        context.Translated(wxTRANSLATE("closed by automatic balancing with %s")),
        numbertext::WithUnit(context.Number(amount, kClosingDigits), isSodium ? "meq/l Na" : "meq/l Cl"));
}

}  // namespace

std::string FixedNumber(double value, int decimals, const ReportContext& context)
{
    const double scale = std::pow(10.0, decimals);
    return numbertext::Format(std::round(scale * value) / scale + 0.0,
                              {.format = TvTextCtrlFormat::Fixed, .precision = decimals}, context.separators);
}

std::string BalanceVerdictText(const advice::BalanceJudgement& judgement, const ReportContext& context)
{
    using advice::BalanceVerdict;
    const auto byRule = [&](const char* source) {
        return WithText(context.Translated(source), context.Translated(advice::NameOf(judgement.rule)));
    };
    switch (judgement.verdict) {
        case BalanceVerdict::NotJudged:
            if (judgement.lacksAnions)
                return context.Translated(wxTRANSLATE("no anions yet"));
            return judgement.lacksCations ? context.Translated(wxTRANSLATE("no cations yet")) : std::string();
        case BalanceVerdict::Closed:
            return ClosedText(judgement, context) +
                   (judgement.isClosedOverLimit
                        ? ", " + byRule(wxTRANSLATE("without it over the limit of %s"))
                        : std::string());
        case BalanceVerdict::Doubtful:
            return context.Translated(wxTRANSLATE("doubtful"));
        case BalanceVerdict::OverLimit:
            return byRule(judgement.isBeyondRule ? wxTRANSLATE("over 5 percent, though %s ends at 800 meq/l")
                                                 : wxTRANSLATE("over the limit of %s"));
        case BalanceVerdict::InOrder:
            break;
    }
    return judgement.isBeyondRule ? byRule(wxTRANSLATE("in order, though %s ends at 800 meq/l"))
                                  : context.Translated(wxTRANSLATE("in order"));
}

std::string BalanceErrorText(const advice::BalanceJudgement& judgement, const ReportContext& context)
{
    if (judgement.verdict == advice::BalanceVerdict::NotJudged)
        return {};
    std::string error = numbertext::WithUnit(Signed(judgement.error, 1, context), "%");
    if (judgement.isLimitOfDifference)
        error +=
            fmt::format(" ({})", numbertext::WithUnit(Signed(judgement.difference, 2, context), "meq/l"));
    if (std::isfinite(judgement.leastError + judgement.greatestError))
        error += fmt::format(" ({} \u2026 {})", Signed(judgement.leastError, 1, context),
                             numbertext::WithUnit(Signed(judgement.greatestError, 1, context), "%"));
    return error;
}

std::string BalanceText(const advice::BalanceJudgement& judgement, const ReportContext& context)
{
    const std::string verdict = BalanceVerdictText(judgement, context);
    const std::string error = BalanceErrorText(judgement, context);
    return error.empty() || verdict.empty() ? verdict : error + ", " + verdict;
}

}  // namespace wateranalysis
