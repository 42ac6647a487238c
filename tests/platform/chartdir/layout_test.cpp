// SPDX-License-Identifier: MIT
// Where the texts of charts stand, as another program finds them in a PDF.
#include "chartdir/xy_chart.h"
#include "tests/support/chart_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace chartdir;

struct Case
{
    const char* name;
    int width;
    int height;
    std::function<void(XYChart&)> fill;
};

void AddCurves(XYChart& chart, std::size_t count, const std::string& name)
{
    for (std::size_t i = 0; i < count; ++i)
        chart.addLineLayer().addDataSet({1, 2, 3}, name + std::to_string(i), i);
}

const std::vector<Case>& Cases()
{
    static const std::vector<Case> cases{
        {"usual", 900, 600, [](XYChart& chart) { AddCurves(chart, 5, "curve"); }},
        {"long numbers", 500, 300,
         [](XYChart& chart) {
             chart.xAxis().setLinearScale(1000, 1000.0000095);
             chart.yAxis().setLinearScale(-0.00001234, 0.00009);
         }},
        {"backwards", 500, 300,
         [](XYChart& chart) {
             chart.xAxis().setLinearScale(9999999, 1111111);
             chart.yAxis().setLinearScale(5, -5);
         }},
        {"decades", 700, 400,
         [](XYChart& chart) {
             chart.xAxis().setLogScale(1e-12, 1e12);
             chart.yAxis().setLogScale(0.3, 7);
         }},
        {"many curves", 400, 400,
         [](XYChart& chart) {
             AddCurves(chart, 40,
                       "a name of a curve that a chart of this width has never got enough room for ");
         }},
        {"bars", 500, 300,
         [](XYChart& chart) {
             chart.xAxis().setLabels(
                 {"Hydrochloric acid", "Sodium hydroxide", "Waste water", "Resin", "Energy"});
             chart.addBarLayer().addDataSet({1, -2, 3, 4, 5}, "costs", 0);
         }},
        {"small", 220, 160, [](XYChart& chart) { AddCurves(chart, 3, "c"); }},
    };
    return cases;
}

TEST(Layout, TextsStandWithinTheChartAndNeverOnEachOtherOrInThePlotArea)
{
    for (const Case& c : Cases()) {
        XYChart chart(c.width, c.height);
        chart.addTitle("Pressure drop of a bed of strong-acid cation resin in its service");
        chart.xAxis().setTitle("Velocity [m/h]");
        chart.yAxis().setTitle("Pressure drop [bar/m]");
        c.fill(chart);
        const Rect plot = chart.getMapping().plot;
        EXPECT_GE(plot.width, 0.3 * c.width) << c.name;
        EXPECT_GE(plot.height, 0.3 * c.height) << c.name;
        const std::vector<support::Word> words = support::WordsOf(chart);
        EXPECT_GE(words.size(), 8U) << c.name;
        support::ExpectTextsApart(chart, words, c.name);
        for (const support::Word& word : words)
            EXPECT_FALSE(support::Overlap(word.box, plot, 3.0)) << c.name << ": " << word.text;
    }
}

TEST(Layout, NumbersOfAnAxisAreWrittenAlikeAndToldApart)
{
    struct Row
    {
        double lower;
        double upper;
        std::vector<std::string> numbers;
    };
    const std::vector<Row> rows{
        {0, 1e7, {"0", "2.0e+06", "4.0e+06", "6.0e+06", "8.0e+06", "1.0e+07"}},
        {2e7, 2.05e7, {"2.00e+07", "2.01e+07", "2.02e+07", "2.03e+07", "2.04e+07", "2.05e+07"}},
        {0, 5e6, {"0", "1000000", "2000000", "3000000", "4000000", "5000000"}},
        {0, 8e-5, {"0.00000", "0.00002", "0.00004", "0.00006", "0.00008"}},
        {-5e-6, 0, {"0", "-1.0e-06", "-2.0e-06", "-3.0e-06", "-4.0e-06", "-5.0e-06"}},
    };
    for (const Row& row : rows) {
        XYChart chart(500, 260);
        chart.xAxis().setLabels({"one"});
        chart.yAxis().setLinearScale(row.lower, row.upper);
        std::vector<std::string> numbers;
        for (const support::Word& word : support::WordsOf(chart))
            if (word.text != "one")
                numbers.push_back(word.text);
        EXPECT_THAT(numbers, testing::UnorderedElementsAreArray(row.numbers))
            << row.lower << ", " << row.upper;
    }
}

TEST(Layout, ThePlotAreaStaysWhereItIsWhileAViewIsMoved)
{
    XYChart chart(600, 400);
    chart.yAxis().setLinearScale(0, 100);
    const double left = chart.getMapping().plot.x;
    for (const double part : {0.9, 0.5, 0.25, 0.1}) {
        chart.yAxis().setViewPort(0.05, 0.05 + part);
        EXPECT_EQ(chart.getMapping().plot.x, left) << part;
    }
}

}  // namespace
