// SPDX-License-Identifier: MIT
#include "chartdir/scale.h"

#include "chartdir/axis.h"
#include "chartdir/palette.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using chartdir::Scale;
using testing::DoubleNear;
using testing::Pointwise;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

TEST(Ticks, StandAtOneTwoAndFiveTimesAPowerOfTen)
{
    struct Case
    {
        Scale scale;
        int count;
        std::vector<double> ticks;
    };
    const std::vector<Case> cases{
        {{0, 1}, 6, {0, 0.2, 0.4, 0.6, 0.8, 1}},
        {{0, 60}, 8, {0, 10, 20, 30, 40, 50, 60}},
        // Both ends get a tick where a step that is only a little greater reaches them.
        {{-5, 15}, 14, {-5, 0, 5, 10, 15}},
        {{0.13, 0.41}, 4, {0.2, 0.3, 0.4}},
        {{60, 0}, 4, {60, 40, 20, 0}},
        {{-3e-7, 3e-7}, 3, {0}},
        {{1, 1000, true}, 20, {1, 2, 5, 10, 20, 50, 100, 200, 500, 1000}},
        {{0.001, 1000, true}, 8, {0.001, 0.01, 0.1, 1, 10, 100, 1000}},
        {{1e-12, 1e12, true}, 5, {1e-12, 1e-7, 1e-2, 1e3, 1e8}},
        {{100, 1, true}, 4, {100, 10, 1}},
        // Less than a decade has no room for steps of decades.
        {{20, 60, true}, 5, {20, 30, 40, 50, 60}},
    };
    for (const Case& c : cases) {
        const chartdir::Ticks ticks = chartdir::TicksOf(c.scale, c.count);
        ASSERT_EQ(ticks.values.size(), c.ticks.size()) << c.scale.lower << " to " << c.scale.upper;
        for (std::size_t i = 0; i < c.ticks.size(); ++i)
            EXPECT_NEAR(ticks.values[i], c.ticks[i], 1e-9 * std::abs(c.ticks[i]) + 1e-15) << c.scale.lower;
    }
}

TEST(Ticks, AreNeverMoreThanTheRoomAndNeverOutside)
{
    for (const bool isLog : {false, true}) {
        for (double lower = 1e-6; lower < 1e6; lower *= 3.7) {
            for (double span = 1e-5; span < 1e9; span *= 7.3) {
                const Scale scale = chartdir::MakeUsable({lower, lower * (1.0 + span), isLog});
                for (const int count : {2, 5, 13}) {
                    const auto ticks = chartdir::TicksOf(scale, count).values;
                    EXPECT_LE(ticks.size(), static_cast<std::size_t>(count)) << lower << " " << span;
                    for (const double tick : ticks)
                        EXPECT_TRUE(tick >= scale.lower && tick <= scale.upper) << tick;
                }
            }
        }
    }
}

TEST(Scale, ValuesAndPlacesAreEachOther)
{
    for (const Scale& scale :
         {Scale{0, 60}, Scale{60, 0}, Scale{-1e9, 1e-9}, Scale{1e-6, 1e6, true}, Scale{50, 2, true}}) {
        for (const double fraction : {0.0, 0.1, 0.5, 0.93, 1.0})
            EXPECT_NEAR(scale.ToFraction(scale.ToValue(fraction)), fraction, 1e-12) << scale.lower;
        EXPECT_EQ(scale.ToValue(0.0), scale.lower);
        EXPECT_EQ(scale.ToValue(1.0), scale.upper);
    }
    // Half of a logarithmic axis is the geometric mean.
    EXPECT_NEAR((Scale{1, 100, true}).ToValue(0.5), 10.0, 1e-12);
    for (const double value : {0.0, -1.0, kNaN})
        EXPECT_TRUE(std::isnan((Scale{1, 100, true}).ToFraction(value))) << value;
}

TEST(Scale, WhatCannotBeDrawnIsReplacedByWhatIsNear)
{
    struct Case
    {
        Scale asked;
        Scale drawn;
    };
    for (const auto& [asked, drawn] :
         {Case{{5, 5}, {2.5, 7.5}}, Case{{0, 0}, {-1, 1}}, Case{{kNaN, 10}, {0, 10}}, Case{{7, kNaN}, {7, 0}},
          Case{{0, kInfinite}, {0, 1e300}}, Case{{1, 1 + 1e-12}, {0.5, 1.5}},
          Case{{5, 5, true}, {2.5, 10, true}}, Case{{-1, 100, true}, {1e-300, 100, true}},
          Case{{kNaN, kNaN, true}, {0.5, 2, true}}, Case{{3, 1}, {3, 1}}}) {
        const Scale usable = chartdir::MakeUsable(asked);
        EXPECT_NEAR(usable.lower, drawn.lower, 1e-9 * std::abs(drawn.lower)) << asked.lower << asked.upper;
        EXPECT_NEAR(usable.upper, drawn.upper, 1e-9 * std::abs(drawn.upper)) << asked.lower << asked.upper;
        EXPECT_TRUE(std::isfinite(usable.ToFraction(1.0)));
    }
}

TEST(Scale, GoesAroundTheDataAndEndsAtTicks)
{
    struct Case
    {
        std::vector<double> data;
        bool isLog;
        Scale scale;
    };
    for (const auto& [data, isLog, scale] :
         {Case{{0.3, 57.2}, false, {0, 60}}, Case{{-3.2, 11.9}, false, {-5, 15}}, Case{{}, false, {0, 1}},
          Case{{}, true, {1, 10, true}}, Case{{4}, false, {2, 6}},
          Case{{kNaN, 2, kInfinite, -kInfinite, 8}, false, {2, 8}},
          Case{{-5, 0, 0.03, 70}, true, {0.01, 100, true}}, Case{{-5, -1}, true, {1, 10, true}},
          Case{{10}, true, {10, 100, true}}}) {
        chartdir::DataRange range;
        for (const double value : data)
            range.Add(value);
        const Scale around = chartdir::ScaleAround(range, isLog);
        EXPECT_NEAR(around.lower, scale.lower, 1e-9) << testing::PrintToString(data);
        EXPECT_NEAR(around.upper, scale.upper, 1e-9) << testing::PrintToString(data);
    }
}

TEST(Axis, ShowsThePartInViewAlsoInLogarithms)
{
    chartdir::Axis axis;
    axis.setLogScale(1, 10000);
    axis.setViewPort(0.25, 0.75);
    EXPECT_NEAR(axis.getScale({}).lower, 10.0, 1e-9);
    EXPECT_NEAR(axis.getScale({}).upper, 1000.0, 1e-9);
    axis.setViewPort(0.5, 0.5);  // no part: stays as it was
    EXPECT_NEAR(axis.getScale({}).lower, 10.0, 1e-9);
    EXPECT_EQ(axis.getFullScale({}), (Scale{1, 10000, true}));
}

TEST(Palette, IsReadableOnBothThemesAndDoesNotDependOnColours)
{
    constexpr std::size_t kCurves = 8;
    for (std::size_t i = 0; i < kCurves; ++i) {
        const chartdir::SeriesStyle style = chartdir::StyleOfSeries(i);
        EXPECT_GE(chartdir::ContrastOf(style.colour, chartdir::LightTheme().background), 3.0) << i;
        EXPECT_GE(chartdir::ContrastOf(style.colour, chartdir::DarkTheme().background), 3.0) << i;
        const chartdir::SeriesStyle next = chartdir::StyleOfSeries(i + 1);
        EXPECT_TRUE(style.line != next.line && style.marker != next.marker) << i;
    }
    for (const chartdir::Theme* theme : {&chartdir::LightTheme(), &chartdir::DarkTheme()}) {
        EXPECT_GE(chartdir::ContrastOf(theme->ink, theme->background), 7.0);
        EXPECT_GE(chartdir::ContrastOf(theme->muted, theme->background), 4.5);
    }
}

}  // namespace
