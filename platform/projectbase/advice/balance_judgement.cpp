// SPDX-License-Identifier: MIT
#include "projectbase/advice/balance_judgement.h"

#include "projectbase/settings/settings.h"
#include "projectbase/water/detection_limits.h"
#include "projectbase/water/normalization.h"

#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

namespace advice {

namespace {

struct RuleRow
{
    BalanceRule rule;
    std::string_view code;
    const char* name;
};
constexpr std::array kRules{
    RuleRow{BalanceRule::StandardMethods, "SM1030E", wxTRANSLATE("Standard Methods 1030E")},
    RuleRow{BalanceRule::Dvwk, "DVWK", wxTRANSLATE("DVWK 128/1992")},
    RuleRow{BalanceRule::FiveTen, "5/10", wxTRANSLATE("hydrogeology (5/10)")},
};

/// What two sums may differ by.
struct Limits
{
    double inOrder = 0.0;
    double doubtful = 0.0;
    bool ofDifference = false;  ///< meq/l, else %
};

Limits LimitsOf(const water::ChargeSums& sums, BalanceRule rule)
{
    switch (rule) {
        case BalanceRule::Dvwk: {
            const double percent = std::max(sums.cations, sums.anions) <= 2.0 ? 5.0 : 2.0;
            return {percent, percent};
        }
        case BalanceRule::FiveTen:
            return {5.0, 10.0};
        case BalanceRule::StandardMethods:
            break;
    }
    if (sums.anions <= 3.0)
        return {0.2, 0.2, true};
    const double percent = sums.anions <= 10.0 ? 2.0 : 5.0;
    return {percent, percent};
}

}  // namespace

BalanceRule BalanceRuleOf(std::string_view code)
{
    const auto found = std::ranges::find(kRules, code, &RuleRow::code);
    return found == kRules.end() ? BalanceRule::StandardMethods : found->rule;
}

std::string_view CodeOf(BalanceRule rule)
{
    return std::ranges::find(kRules, rule, &RuleRow::rule)->code;
}

BalanceRule ChosenBalanceRule()
{
    return BalanceRuleOf(Settings::GetSetting("balance.rule").GetStdStringValue());
}

const char* NameOf(BalanceRule rule)
{
    return std::ranges::find(kRules, rule, &RuleRow::rule)->name;
}

BalanceJudgement Judge(const water::ChargeSums& sums, BalanceRule rule)
{
    BalanceJudgement judgement{.rule = rule};
    if (!(sums.cations > 0.0) || !(sums.anions > 0.0) || !std::isfinite(sums.cations + sums.anions))
        return judgement;
    constexpr double kEndOfStandardMethods = 800.0;
    constexpr double kRounding = 1e-9;
    const Limits limits = LimitsOf(sums, rule);
    judgement.error = water::ElectroneutralityError(sums) * (rule == BalanceRule::Dvwk ? 2.0 : 1.0);
    judgement.difference = sums.cations - sums.anions;
    judgement.isLimitOfDifference = limits.ofDifference;
    judgement.isBeyondRule = rule == BalanceRule::StandardMethods && sums.anions > kEndOfStandardMethods;
    const double judged = std::abs(limits.ofDifference ? judgement.difference : judgement.error);
    const auto isWithin = [judged](double limit) { return judged <= limit * (1.0 + kRounding); };
    judgement.verdict = isWithin(limits.inOrder)    ? BalanceVerdict::InOrder
                        : isWithin(limits.doubtful) ? BalanceVerdict::Doubtful
                                                    : BalanceVerdict::OverLimit;
    judgement.limit = judgement.verdict == BalanceVerdict::OverLimit ? limits.doubtful : limits.inOrder;
    return judgement;
}

namespace {

/// How far the error hangs on what was not found.
void SetRange(BalanceJudgement& judgement, const water::ChargeSums& sums, const DetailList& liquid)
{
    constexpr double kMuch = 0.02;
    const water::ChargeSums limits = water::LimitSums(liquid);
    if (limits.cations + limits.anions < kMuch * (sums.cations + sums.anions))
        return;
    const double share = water::ShareOfLimits(liquid);
    const auto errorOf = [&](double ofCations, double ofAnions) {
        return Judge({sums.cations + (ofCations - share) * limits.cations,
                      sums.anions + (ofAnions - share) * limits.anions},
                     judgement.rule)
            .error;
    };
    std::tie(judgement.leastError, judgement.greatestError) =
        std::minmax({errorOf(0.0, 0.0), errorOf(1.0, 1.0)});
}

}  // namespace

BalanceJudgement JudgeBalance(const DetailList& liquid, BalanceRule rule)
{
    const auto sum = [&liquid](const char* key) { return liquid.At(key).GetDoubleValue(); };
    // H+ and OH- of the pH alone are no analysis.
    if (liquid.At("liquid/analysis.type").GetStdStringValue() != "FULL")
        return {.rule = rule};
    const bool hasCations = sum("liquid/sum.c.meql") > 0.0;
    const bool hasAnions = sum("liquid/sum.a.meql") > 0.0;
    if (!hasCations || !hasAnions)
        return {.rule = rule, .lacksCations = hasAnions, .lacksAnions = hasCations};
    const water::ChargeSums sums = water::BalanceSums(liquid);
    BalanceJudgement judgement = Judge(sums, rule);
    SetRange(judgement, sums, liquid);
    if (judgement.verdict != BalanceVerdict::NotJudged && liquid.At("liquid/balance.auto").GetBoolValue()) {
        judgement.isClosedOverLimit = judgement.verdict == BalanceVerdict::OverLimit;
        judgement.verdict = BalanceVerdict::Closed;
        judgement.closingSodium = sum("liquid/na.plus.meql");
        judgement.closingChloride = sum("liquid/cl.plus.meql");
    }
    return judgement;
}

BalanceMark MarkOf(const BalanceJudgement& judgement)
{
    switch (judgement.verdict) {
        case BalanceVerdict::InOrder:
            return BalanceMark::Good;
        case BalanceVerdict::Closed:
            return judgement.isClosedOverLimit ? BalanceMark::Doubtful : BalanceMark::Good;
        case BalanceVerdict::Doubtful:
            return BalanceMark::Doubtful;
        case BalanceVerdict::OverLimit:
            return BalanceMark::Over;
        case BalanceVerdict::NotJudged:
            break;
    }
    return BalanceMark::Unknown;
}

}  // namespace advice
