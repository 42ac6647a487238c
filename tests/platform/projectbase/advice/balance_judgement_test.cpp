// SPDX-License-Identifier: MIT
#include "projectbase/advice/balance_judgement.h"

#include "tests/support/water_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

using advice::BalanceRule;
using advice::BalanceVerdict;
using testing_support::WaterUnderTest;

namespace {

constexpr auto kInOrder = BalanceVerdict::InOrder;
constexpr auto kOver = BalanceVerdict::OverLimit;

}  // namespace

TEST(BalanceJudgement, ClosingDoesNotMakeAnAnalysisGood)
{
    WaterUnderTest water;
    water.Type("na", 5.0, "meq/l").Type("cl", 3.0, "meq/l").Set("balance.auto", true).Update();
    const auto judged = advice::JudgeBalance(water.Details(), BalanceRule::StandardMethods);
    EXPECT_EQ(judged.verdict, BalanceVerdict::Closed);
    EXPECT_TRUE(judged.isClosedOverLimit);
    water.Type("cl", 5.0, "meq/l").Update();
    EXPECT_FALSE(advice::JudgeBalance(water.Details(), BalanceRule::StandardMethods).isClosedOverLimit);
}

TEST(BalanceJudgement, EveryRuleHasItsLimitsAndItsDivisor)
{
    struct Case
    {
        BalanceRule rule;
        double cations, anions, error;
        BalanceVerdict verdict;
        double limit;
    };
    constexpr auto kSm = BalanceRule::StandardMethods;
    constexpr auto kDvwk = BalanceRule::Dvwk;
    constexpr auto kFiveTen = BalanceRule::FiveTen;
    const Case cases[]{
        // By the difference up to 3 meq/l of anions.
        {kSm, 1.443, 1.426, 0.59, kInOrder, 0.2},
        {kSm, 0.386, 0.427, -5.04, kInOrder, 0.2},
        {kSm, 2.3, 2.0, 6.98, kOver, 0.2},
        {kSm, 2.2, 2.0, 4.76, kInOrder, 0.2},
        {kSm, 2.2001, 2.0, 4.76, kOver, 0.2},
        {kSm, 3.2, 3.0, 3.23, kInOrder, 0.2},
        // Just above, 2 % of both.
        {kSm, 3.2, 3.0001, 3.22, kOver, 2.0},
        {kSm, 9.636, 9.736, -0.52, kInOrder, 2.0},
        {kSm, 5.776, 6.235, -3.82, kOver, 2.0},
        {kSm, 5.1, 4.9, 2.0, kInOrder, 2.0},
        {kSm, 10.6, 10.0, 2.91, kOver, 2.0},
        {kSm, 10.6, 10.0001, 2.91, kInOrder, 5.0},
        {kSm, 66.07, 62.586, 2.71, kInOrder, 5.0},
        {kSm, 112.0, 100.0, 5.66, kOver, 5.0},
        // Twice as large a figure, and limits of its own.
        {kDvwk, 2.0, 1.95, 2.53, kInOrder, 5.0},
        {kDvwk, 1.0, 1.06, -5.83, kOver, 5.0},
        {kDvwk, 2.01, 1.95, 3.03, kOver, 2.0},
        {kDvwk, 10.0, 10.15, -1.49, kInOrder, 2.0},
        {kFiveTen, 10.5, 9.5, 5.0, kInOrder, 5.0},
        {kFiveTen, 10.6, 9.4, 6.0, BalanceVerdict::Doubtful, 5.0},
        {kFiveTen, 11.0, 9.0, 10.0, BalanceVerdict::Doubtful, 5.0},
        {kFiveTen, 9.0, 11.1, -10.45, kOver, 10.0},
        {kFiveTen, 1.0, 1.0, 0.0, kInOrder, 5.0},
        // What cannot be judged.
        {kSm, 0.0, 0.0, std::nan(""), BalanceVerdict::NotJudged, std::nan("")},
        {kSm, 1.0, 0.0, std::nan(""), BalanceVerdict::NotJudged, std::nan("")},
        {kDvwk, 0.0, 2.0, std::nan(""), BalanceVerdict::NotJudged, std::nan("")},
        {kFiveTen, std::nan(""), 2.0, std::nan(""), BalanceVerdict::NotJudged, std::nan("")},
    };
    for (const Case& c : cases) {
        const advice::BalanceJudgement judged = advice::Judge({c.cations, c.anions}, c.rule);
        const std::string what = std::to_string(c.cations) + " " + std::to_string(c.anions);
        EXPECT_EQ(judged.verdict, c.verdict) << what;
        EXPECT_EQ(judged.rule, c.rule);
        if (std::isnan(c.error)) {
            EXPECT_TRUE(std::isnan(judged.error) && std::isnan(judged.limit)) << what;
            continue;
        }
        EXPECT_NEAR(judged.error, c.error, 0.01) << what;
        EXPECT_NEAR(judged.difference, c.cations - c.anions, 1e-12) << what;
        EXPECT_EQ(judged.limit, c.limit) << what;
        EXPECT_EQ(judged.isLimitOfDifference, c.limit == 0.2) << what;
    }
    EXPECT_TRUE(advice::Judge({820.0, 800.1}, kSm).isBeyondRule);
    EXPECT_FALSE(advice::Judge({820.0, 800.0}, kSm).isBeyondRule);
    EXPECT_FALSE(advice::Judge({820.0, 800.1}, kFiveTen).isBeyondRule);
}

TEST(BalanceJudgement, CodesOfTheSetting)
{
    EXPECT_EQ(advice::BalanceRuleOf("SM1030E"), BalanceRule::StandardMethods);
    EXPECT_EQ(advice::BalanceRuleOf("DVWK"), BalanceRule::Dvwk);
    EXPECT_EQ(advice::BalanceRuleOf("5/10"), BalanceRule::FiveTen);
    EXPECT_EQ(advice::BalanceRuleOf("of tomorrow"), BalanceRule::StandardMethods);
}

TEST(BalanceJudgement, OfAWaterAsItIsShown)
{
    WaterUnderTest water;
    const auto verdict = [&] {
        return advice::JudgeBalance(water.Details(), BalanceRule::StandardMethods).verdict;
    };
    water.Set("ph", 7.0).Update();
    EXPECT_EQ(verdict(), BalanceVerdict::NotJudged) << "its own ions are no analysis";
    water.Type("na", 5.0, "meq/l").Type("cl", 4.0, "meq/l").Update();
    const auto judged = advice::JudgeBalance(water.Details(), BalanceRule::StandardMethods);
    EXPECT_EQ(judged.verdict, kOver);
    EXPECT_NEAR(judged.error, water["balance.error"], 1e-6) << "one figure everywhere";
    water.Set("balance.auto", true).Update();
    EXPECT_EQ(verdict(), BalanceVerdict::Closed);
    EXPECT_NEAR(advice::JudgeBalance(water.Details(), BalanceRule::StandardMethods).closingChloride, 1.0,
                1e-3);
    EXPECT_NEAR(advice::JudgeBalance(water.Details(), BalanceRule::StandardMethods).error, judged.error, 1e-4)
        << "of what was analysed";
    water.Set("balance.auto", false).Set("analysis.type", "SHORT_TDS").Set("tds.short", 500.0).Update();
    EXPECT_EQ(verdict(), BalanceVerdict::NotJudged);

    // An acid: half of its cations is what the pH says. Stated in rows, they count once.
    WaterUnderTest acid;
    acid.Type("na", 1.0, "meq/l").Type("cl", 2.0, "meq/l").Set("ph", 3.0).Set("temp.orig", 25.0).Update();
    const double byPh = acid["balance.error"];
    EXPECT_NEAR(byPh, 0.5, 1.2);
    acid.Set("balance.ph", true);
    water::FillHydrogenAndHydroxide(acid.Details());
    acid.Update();
    EXPECT_NEAR(acid["balance.error"], byPh, 0.05);
    EXPECT_NEAR(advice::JudgeBalance(acid.Details(), BalanceRule::StandardMethods).error, byPh, 0.05);
}
