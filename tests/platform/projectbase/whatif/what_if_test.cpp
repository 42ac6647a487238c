// SPDX-License-Identifier: MIT
// The search for a value, over designs of every shape.
#include "projectbase/whatif/what_if.h"

#include "projectbase/project/iex_project.h"
#include "projectbase/whatif/what_if_rows.h"
#include "tests/support/function_project.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/project_fixture.h"
#include "tests/support/project_history.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <vector>

namespace {

using support::FunctionProject;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Case
{
    const char* name;
    double (*function)(double);
    double start;
    double entered;
    double expected;     ///< NaN: not to be found
    bool ok = true;      ///< whether there is a bracket
    int mostRuns = 150;  ///< that a search of this kind may take
};

double Steps(double x)
{
    return std::floor(x / 10.0);
}

double Jump(double x)
{
    return x < 30.0 ? x : x + 50.0;
}

/// Defined below 100 alone, where it grows without end.
double Pole(double x)
{
    return x < 100.0 ? 1.0 / (100.0 - x) : kNaN;
}

const std::vector<Case>& Cases()
{
    static const std::vector<Case> cases{
        {"straight", [](double x) { return 3.0 * x; }, 20.0, 81.0, 27.0, true, 40},
        {"falling", [](double x) { return 500.0 / x; }, 20.0, 2.0, 250.0, true, 60},
        {"curved, far off", [](double x) { return x * x * x; }, 1.0, 1e15, 1e5, true, 80},
        {"from zero", [](double x) { return x; }, 0.0, 5e-4, 5e-4, true, 60},
        {"from nothing", [](double x) { return std::sqrt(x); }, kNaN, 25.0, 625.0, true, 60},
        {"as it is", [](double x) { return 2.0 * x; }, 4.0, 8.0, 4.0, true, 1},
        {"to zero", [](double x) { return x - 7.0; }, 20.0, 0.0, 7.0, true, 60},
        {"at a limit", [](double x) { return x; }, 5.0, 1e6, 1e6, true, 60},
        {"beyond the upper limit", [](double x) { return x; }, 5.0, 1.1e6, kNaN, false, 1000},
        {"beyond the lower limit", [](double x) { return x; }, 5.0, -1.0, kNaN, false, 1000},
        {"flat", [](double) { return 4.0; }, 5.0, 3.0, kNaN, false, 100},
        {"flat, but where it is wanted", [](double) { return 4.0; }, 5.0, 4.0, 5.0, true, 1},
        {"never known", [](double) { return kNaN; }, 5.0, 3.0, kNaN, false, 150},
        {"infinite", [](double) { return kInfinity; }, 5.0, 3.0, kNaN, false, 150},
        {"a step that is there", Steps, 5.0, 4.0, 44.0, true, 60},
        {"between two steps", Steps, 5.0, 4.5, kNaN, true, 1000},
        {"across a jump", Jump, 5.0, 90.0, 40.0, true, 100},
        {"within a jump", Jump, 5.0, 60.0, kNaN, true, 1000},
        {"two of them, the nearer", [](double x) { return (x - 20.0) * (x - 90.0); }, 30.0, 0.0, 20.0, true,
         60},
        {"a hill that it touches", [](double x) { return 50.0 - (x - 20.0) * (x - 20.0); }, 5.0, 50.0, 20.0,
         true, 200},
        {"a hill that is too low", [](double x) { return 50.0 - (x - 20.0) * (x - 20.0); }, 5.0, 51.0, kNaN,
         false, 1000},
        {"waves", [](double x) { return std::sin(x) + x / 100.0; }, 3.0, 8.0, kNaN, true, 200},
        {"before a pole", Pole, 5.0, 1e4, 100.0 - 1e-4, true, 200},
        {"across a pole to the root", [](double x) { return 1.0 / (x - 50.0) + x - 80.0; }, 49.0, 0.0, kNaN,
         true, 300},
        {"defined beyond a gap", [](double x) { return x > 10.0 && x < 40.0 ? kNaN : x; }, 5.0, 60.0, 60.0,
         true, 1000},
        {"defined far from the start", [](double x) { return x < 700.0 ? kNaN : x; }, 5.0, 800.0, 800.0, true,
         1000},
    };
    return cases;
}

TEST(WhatIf, FindsWhatThereIsToFindAndEndsWhereThereIsNothing)
{
    for (const Case& each : Cases()) {
        SCOPED_TRACE(each.name);
        FunctionProject project(each.function, each.start);
        const auto before = project.Clone();
        project.ForgetRuns();
        bool ok = !each.ok;
        const double deviation =
            WhatIf(project).Calculate(&project.Input(), &project.Output(), each.entered, 1000, ok);
        EXPECT_EQ(ok, each.ok);
        EXPECT_FALSE(std::isnan(deviation));
        EXPECT_LE(project.GetRuns(), each.mostRuns + 1) << "with the edit itself";
        const bool isFound = ok && deviation <= WhatIf::kTolerance;
        if (!isFound) {
            support::ExpectSameProject(project, *before);
            EXPECT_TRUE(std::isnan(each.expected)) << deviation;
            continue;
        }
        EXPECT_NEAR(project.Output().GetDoubleValue(), each.entered,
                    1e-9 * std::max(1.0, std::abs(each.entered)));
        // On a step every value is as good.
        EXPECT_TRUE(each.function == Steps ||
                    std::abs(project.Input().GetDoubleValue() - each.expected) <= 1e-5 ||
                    std::isnan(each.expected))
            << project.Input().GetDoubleValue();
    }
}

TEST(WhatIf, CountsItsDeviationAsAShareOfWhatIsWanted)
{
    // A step of 1 at 45 is missed by a ninth, the jump from 30 to 80 at 60 by a third.
    struct
    {
        double (*function)(double);
        double entered;
        double least;
    } const cases[] = {{Steps, 4.5, 0.5 / 4.5}, {Jump, 60.0, 20.0 / 60.0}};
    for (const auto& each : cases) {
        FunctionProject project(each.function, 5.0);
        bool ok = false;
        EXPECT_NEAR(WhatIf(project).Calculate(&project.Input(), &project.Output(), each.entered, 1000, ok),
                    each.least, 1e-9);
        EXPECT_TRUE(ok);
    }
    FunctionProject flat([](double) { return 4.0; }, 5.0);
    bool ok = true;
    EXPECT_EQ(WhatIf(flat).Calculate(&flat.Input(), &flat.Output(), 3.0, 1000, ok), kInfinity);
    EXPECT_FALSE(ok);
}

TEST(WhatIf, KeepsToTheLimitsAndToTheIterationsThatItIsGiven)
{
    double least = kInfinity;
    double most = -kInfinity;
    FunctionProject project(
        [&](double x) {
            least = std::min(least, x);
            most = std::max(most, x);
            return std::floor(x);
        },
        5.0);
    project.Input().SetLimits(2.0, 40.0, "m3");
    bool ok = false;
    WhatIf whatIf(project);
    project.ForgetRuns();
    whatIf.Calculate(&project.Input(), &project.Output(), 7.5, 5000, ok);
    EXPECT_EQ(least, 2.0);
    EXPECT_EQ(most, 40.0);
    EXPECT_LE(project.GetRuns(), 1000) << "whatever is asked for";
    EXPECT_GE(whatIf.GetRuns(), project.GetRuns());
    EXPECT_LE(whatIf.GetRuns(), 1000);
    project.ForgetRuns();
    whatIf.Calculate(&project.Input(), &project.Output(), 7.5, 12, ok);
    EXPECT_LE(project.GetRuns(), 12);
    EXPECT_EQ(whatIf.Calculate(&project.Input(), &project.Output(), 7.0, 0, ok), kInfinity);
}

TEST(WhatIf, AdjustsWholeNumbersInWholeNumbers)
{
    struct
    {
        double (*function)(double);
        long start;
        double entered;
        long expected;  ///< 0: none fits
    } const cases[] = {{[](double n) { return 2.5 * n; }, 1, 17.5, 7},
                       {[](double n) { return 2.5 * n; }, 7, 2497.5, 999},
                       {[](double n) { return 1000.0 / n; }, 3, 8.0, 125},
                       {[](double n) { return 2.5 * n; }, 1, 18.0, 0},
                       {[](double n) { return 2.5 * n; }, 1, 2500.0, 0},
                       {[](double n) { return n == 613.0 ? 1.0 : n / 1000.0 - 5.0; }, 10, 1.0, 613}};
    for (const auto& each : cases) {
        FunctionProject project(
            [&](double n) {
                EXPECT_EQ(n, std::round(n));
                return each.function(n);
            },
            static_cast<double>(each.start), "test/n");
        bool ok = false;
        const double deviation =
            WhatIf(project).Calculate(&project.Input(), &project.Output(), each.entered, 1000, ok);
        EXPECT_EQ(ok && deviation <= WhatIf::kTolerance, each.expected != 0) << each.entered;
        EXPECT_EQ(project.Input().GetLongValue(), each.expected != 0 ? each.expected : each.start);
    }
}

TEST(WhatIf, RefusesWhatCannotBeAdjustedOrWanted)
{
    FunctionProject project([](double x) { return x; }, 5.0);
    DetailData stranger("test/x");
    DetailData& text = project.GetDetails().At("test/text");
    DetailData& x = project.Input();
    DetailData& y = project.Output();
    DetailData& lines = project.GetDetails().At("test/n");
    struct
    {
        DetailData* toAdjust;
        DetailData* fixed;
        double entered;
    } const cases[] = {{&x, &y, kNaN},       {&x, &y, kInfinity}, {&x, &x, 5.0},    {nullptr, &y, 5.0},
                       {&x, nullptr, 5.0},   {&text, &y, 5.0},    {&x, &text, 5.0}, {&stranger, &y, 5.0},
                       {&x, &stranger, 5.0}, {&y, &x, -1.0},      {&y, &x, 1e7},    {&y, &lines, 2.5}};
    const auto before = project.Clone();
    for (const auto& each : cases) {
        bool ok = true;
        EXPECT_EQ(WhatIf(project).Calculate(each.toAdjust, each.fixed, each.entered, 1000, ok), kInfinity);
        EXPECT_FALSE(ok);
    }
    support::ExpectSameProject(project, *before);
}

TEST(WhatIf, IsOneStepOfTheHistory)
{
    FunctionProject project([](double x) { return 3.0 * x; }, 5.0);
    support::History history(project);
    bool ok = false;
    WhatIf(project).Calculate(&project.Input(), &project.Output(), 81.0, 1000, ok);
    EXPECT_EQ(history.told, 1);
    WhatIf(project).Calculate(&project.Input(), &project.Output(), -1.0, 1000, ok);
    EXPECT_EQ(history.told, 1) << "what failed tells nobody";
    WhatIf(project).Calculate(&project.Output(), &project.Input(), 11.0, 1000, ok);
    EXPECT_TRUE(ok) << "what follows from an input is sought by typing the input";
    EXPECT_EQ(project.Output().GetDoubleValue(), 33.0);
    history.stack.Undo();
    EXPECT_DOUBLE_EQ(project.Input().GetDoubleValue(), 27.0);
    history.stack.Undo();
    EXPECT_EQ(project.Input().GetDoubleValue(), 5.0);
    EXPECT_FALSE(history.stack.CanUndo());
}

TEST(WhatIf, FollowsTheRulesOfTheProject)
{
    iex::IEXProject project;
    DetailList& details = project.GetDetails();
    DetailData& flow = details.At("project/qbrutto");
    DetailData& time = details.At("project/lz");
    DetailData& volume = details.At("project/wbrutto");
    flow.SetValue(20.0);
    time.SetValue(12.0);
    bool ok = false;
    const auto seek = [&](DetailData& toAdjust, DetailData& fixed, double entered) {
        const double deviation = WhatIf(project).Calculate(&toAdjust, &fixed, entered, 1000, ok);
        return ok && deviation <= WhatIf::kTolerance;
    };
    EXPECT_TRUE(seek(flow, volume, 300.0)) << "the volume follows the flow";
    EXPECT_NEAR(flow.GetDoubleValue(), 25.0, 1e-9);
    EXPECT_EQ(time.GetDoubleValue(), 12.0);
    EXPECT_TRUE(seek(time, volume, 600.0));
    EXPECT_NEAR(time.GetDoubleValue(), 24.0, 1e-9);
    volume.SetValue(500.0);
    ASSERT_NEAR(flow.GetDoubleValue(), 500.0 / 24.0, 1e-9);
    EXPECT_TRUE(seek(flow, volume, 480.0)) << "now it is the flow that follows";
    EXPECT_NEAR(flow.GetDoubleValue(), 20.0, 1e-9);

    DetailList& water = *project.GetLiquid(0).GetDetails();
    water.At("liquid/ca.orig").SetValue(80.0);
    water.At("liquid/hco3.orig").SetValue(244.0);
    EXPECT_TRUE(seek(water.At("liquid/na.orig"), water.At("liquid/tds"), 400.0));
    EXPECT_NEAR(water.At("liquid/tds").GetDoubleValue(), 400.0, 1e-6);
    EXPECT_TRUE(seek(water.At("liquid/na.orig"), water.At("liquid/cond25"), 900.0));
    EXPECT_NEAR(water.At("liquid/cond25").GetDoubleValue(), 900.0, 1e-4);
}

/// Whatever one value of a row becomes when the other one is changed, the search finds the change again: for
/// all rows of all plants that can be designed from a water.
TEST(WhatIf, FindsAgainWhatADesignCameTo)
{
    for (const char* type : {"SOFT", "DEALK", "DEMI", "MB", "CP"}) {
        iex::IEXProject project(type);
        support::SetWater(project, {{"ca", 4.0}, {"na", 2.0}, {"hco3", 3.0}, {"cl", 3.0}});
        support::SetFlow(project);
        ASSERT_EQ(project.GetStatus(), StatusDesigned);
        std::vector<whatif::Row> rows = whatif::PlantRows(project);
        for (const auto& exchanger : project.GetRoot().GetChildren(OwnerKind::Exchanger)) {
            for (const auto& step : exchanger->GetChildren(OwnerKind::SequenceRow))
                std::ranges::copy(whatif::SequenceRows(project, *step), std::back_inserter(rows));
        }
        int found = 0;
        for (const whatif::Row& row : rows) {
            SCOPED_TRACE(type + (" " + row.pair.first) + " " + row.pair.second);
            const auto changed = project.Clone();
            DetailData& first = *changed->FindDetail(*project.AddressOf(*row.first.detail));
            const DetailData& second = *changed->FindDetail(*project.AddressOf(*row.second.detail));
            if (first.GetType() == DetailType::Long)
                first.SetValue(first.GetLongValue() + 2);
            else
                first.SetValue(std::isnan(first.GetDoubleValue()) ? 1.3 : first.GetDoubleValue() * 0.9);
            const double wanted = second.GetDoubleValue();
            if (second.HasSameValue(*row.second.detail) || !std::isfinite(wanted))
                continue;
            const auto copy = project.Clone();
            bool ok = false;
            const double deviation = WhatIf(*copy).Calculate(
                copy->FindDetail(*project.AddressOf(*row.first.detail)),
                copy->FindDetail(*project.AddressOf(*row.second.detail)), wanted, 1000, ok);
            const bool isBeyondLimit = second.HasMaxValue() && wanted > second.GetMaxValue();
            EXPECT_EQ(ok && deviation <= WhatIf::kTolerance, !isBeyondLimit) << wanted << " " << deviation;
            ++found;
        }
        EXPECT_GT(found, static_cast<int>(rows.size()) * 2 / 3);
    }
}

}  // namespace
