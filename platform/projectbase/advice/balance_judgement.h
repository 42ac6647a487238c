// SPDX-License-Identifier: MIT
#pragma once

/// Whether the charges of an analysis agree as well as a rule asks. Window, report, messages and command line
/// ask here. Sums and differences are in meq/l.

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"
#include "projectbase/water/composition.h"

#include <limits>
#include <string_view>

namespace advice {

/// The rules that analyses are judged by, each with its own limits and its own divisor.
enum class BalanceRule
{
    /// Standard Methods 1030E: within 0.2 meq/l up to 3 meq/l of anions, 2 % up to 10, 5 % above; the table
    /// ends at 800, beyond which 5 % are taken. Percent of the sum of cations and anions.
    StandardMethods,
    /// DVWK 128/1992: within 5 % where both sums are at most 2 meq/l, else 2 %. Percent of half the sum.
    Dvwk,
    /// Use of hydrogeology (Hem 1985; Freeze & Cherry 1979): to 5 % good, to 10 % doubtful. Percent of the
    /// sum.
    FiveTen
};

/// What the setting "balance.rule" holds: "SM1030E", "DVWK" or "5/10"; the first for any other text.
PROJECTBASE_EXPORT BalanceRule BalanceRuleOf(std::string_view code);
PROJECTBASE_EXPORT std::string_view CodeOf(BalanceRule rule);
/// The rule that the user's setting names.
PROJECTBASE_EXPORT BalanceRule ChosenBalanceRule();
/// What the user calls it; a source text.
PROJECTBASE_EXPORT const char* NameOf(BalanceRule rule);

enum class BalanceVerdict
{
    NotJudged,  ///< a sum is not known, or nothing was analysed on one side
    Closed,     ///< automatic balancing makes the sums agree
    InOrder,
    Doubtful,
    OverLimit
};

struct BalanceJudgement
{
    BalanceVerdict verdict = BalanceVerdict::NotJudged;
    BalanceRule rule = BalanceRule::StandardMethods;
    double error = std::numeric_limits<double>::quiet_NaN();       ///< %, by the divisor of the rule
    double difference = std::numeric_limits<double>::quiet_NaN();  ///< cations less anions, meq/l
    double limit = std::numeric_limits<double>::quiet_NaN();       ///< of the error, or of the difference
    bool isLimitOfDifference = false;
    bool isBeyondRule = false;  ///< more anions than the table of the rule has
    bool lacksCations = false;  ///< only anions were analysed, so far
    bool lacksAnions = false;
    /// What automatic balancing adds, meq/l; 0 without it.
    double closingSodium = 0.0;
    double closingChloride = 0.0;
    bool isClosedOverLimit =
        false;  ///< what was analysed is over the limit, and automatic balancing covers it
    /// The error from all limits of detection counted as nothing to all counted in full, %; not a number
    /// while they are less than 2 % of the ions, which does a sum no harm.
    double leastError = std::numeric_limits<double>::quiet_NaN();
    double greatestError = std::numeric_limits<double>::quiet_NaN();
};

/// How far a balance is to be trusted, for whatever marks waters by it: what automatic balancing covers
/// stays doubtful.
enum class BalanceMark
{
    Unknown,
    Good,
    Doubtful,
    Over
};
PROJECTBASE_EXPORT BalanceMark MarkOf(const BalanceJudgement& judgement);

/// At the limit itself the sums still agree; what differs by no more than the last digits is at the limit.
PROJECTBASE_EXPORT BalanceJudgement Judge(const water::ChargeSums& sums, BalanceRule rule);

/// Of a water whose derived values are up to date. A short analysis, which knows no balance, is not judged;
/// with automatic balancing the error is that of what was analysed.
PROJECTBASE_EXPORT BalanceJudgement JudgeBalance(const DetailList& liquid, BalanceRule rule);

}  // namespace advice
