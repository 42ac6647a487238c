// SPDX-License-Identifier: MIT
#include "chartdir/xy_chart.h"

#include "chartdir/markup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>

namespace {

using namespace chartdir;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr Rect kPlot{100.5, 50.5, 700, 400};

/// A chart whose plot area is settled, without anything around it.
std::unique_ptr<XYChart> MakeChart()
{
    auto chart = std::make_unique<XYChart>(900, 600);
    chart->setPlotArea(kPlot);
    return chart;
}

/// How many pixels of a box have that colour.
int Count(const Pixels& pixels, const Rect& box, Colour colour)
{
    const std::uint32_t rgb = static_cast<std::uint32_t>(colour.red) << 16U |
                              static_cast<std::uint32_t>(colour.green) << 8U | colour.blue;
    int count = 0;
    for (int y = static_cast<int>(box.y); y < static_cast<int>(box.Bottom()); ++y) {
        for (int x = static_cast<int>(box.x); x < static_cast<int>(box.Right()); ++x)
            count += pixels.rgb.at(static_cast<std::size_t>(y * pixels.width + x)) == rgb ? 1 : 0;
    }
    return count;
}

TEST(XYChart, PixelsAndValuesAreEachOther)
{
    for (const Scale& x : {Scale{0, 60}, Scale{60, 0}, Scale{1, 1000, true}}) {
        const auto chart = MakeChart();
        x.isLog ? chart->xAxis().setLogScale(x.lower, x.upper)
                : chart->xAxis().setLinearScale(x.lower, x.upper);
        chart->yAxis().setLinearScale(-2, 6);
        const Mapping mapping = chart->getMapping();
        EXPECT_DOUBLE_EQ(mapping.ToPixelX(x.lower), kPlot.x);
        EXPECT_DOUBLE_EQ(mapping.ToPixelX(x.upper), kPlot.Right());
        EXPECT_DOUBLE_EQ(mapping.ToPixelY(0.0), kPlot.Bottom() - 100.0);
        for (double pixel = kPlot.x; pixel <= kPlot.Right(); pixel += 17.3)
            EXPECT_NEAR(mapping.ToPixelX(mapping.ToValueX(pixel)), pixel, 1e-9);
        for (double pixel = kPlot.y; pixel <= kPlot.Bottom(); pixel += 17.3)
            EXPECT_NEAR(mapping.ToPixelY(mapping.ToValueY(pixel)), pixel, 1e-9);
    }
}

TEST(XYChart, DrawsCurvesWhereItsMappingSays)
{
    const auto chart = MakeChart();
    chart->setLegend(false);
    chart->xAxis().setLinearScale(0, 10);
    chart->yAxis().setLinearScale(0, 10);
    LineLayer& layer = chart->addLineLayer();
    layer.setXData({2, 8});
    DataSet& set = layer.addDataSet({5, 5}, "level", 0);
    set.style.marker = Marker::None;
    set.lineWidth = 3.0;
    const Mapping mapping = chart->getMapping();
    const Pixels pixels = chart->makePixels();
    const double y = mapping.ToPixelY(5.0);
    const Rect line{mapping.ToPixelX(2.0) + 1.0, y - 1.0, 400.0, 2.0};
    EXPECT_EQ(Count(pixels, line, set.style.colour), 400 * 2);
    EXPECT_EQ(Count(pixels, {0, 0, 900, y - 3.0}, set.style.colour), 0);
    EXPECT_EQ(Count(pixels, {0, y - 3.0, mapping.ToPixelX(2.0) - 1.0, 6.0}, set.style.colour), 0);
}

TEST(XYChart, NamesThatBeginAlikeAreToldApart)
{
    const auto drawn = [](const std::string& end) {
        const auto chart = MakeChart();
        chart->addTitle(std::string(300, 'n') + end);
        return chart->makePixels().rgb;
    };
    EXPECT_NE(drawn(" March"), drawn(" April"));
}

TEST(XYChart, GridLinesAreSharpWhereverTheyStand)
{
    const auto chart = MakeChart();
    chart->yAxis().setLinearScale(0, 7);
    const Mapping mapping = chart->getMapping();
    const Pixels pixels = chart->makePixels();
    // One pixel of its whole colour each.
    for (const double value : {1.0, 2.0, 3.0, 4.0, 5.0, 6.0})
        EXPECT_EQ(Count(pixels, {133, mapping.ToPixelY(value) - 2.0, 1, 4}, chart->getTheme().grid), 1)
            << value;
}

TEST(XYChart, KeepsPeaksOfAMillionOfPointsAndDrawsFewOfThem)
{
    constexpr std::size_t kCount = 1'000'000;
    constexpr std::size_t kPeak = 654'321;
    constexpr std::size_t kPit = 123'457;
    std::vector<double> xs(kCount);
    std::vector<double> ys(kCount);
    for (std::size_t i = 0; i < kCount; ++i) {
        xs[i] = static_cast<double>(i);
        ys[i] = std::sin(static_cast<double>(i) * 0.01);
    }
    ys[kPeak] = 9.0;
    ys[kPit] = -7.0;
    const Mapping mapping{kPlot, {0, kCount}, {-10, 10}};
    const std::vector<CurveRun> runs = RunsOf(xs, ys, mapping);
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_LE(runs[0].size(), 4 * 702U);
    double top = kInfinite;
    double bottom = -kInfinite;
    std::size_t last = 0;
    for (const CurvePoint& point : runs[0]) {
        top = std::min(top, point.place.y);
        bottom = std::max(bottom, point.place.y);
        EXPECT_GE(point.index, last);
        last = point.index;
    }
    EXPECT_DOUBLE_EQ(top, mapping.ToPixelY(9.0));
    EXPECT_DOUBLE_EQ(bottom, mapping.ToPixelY(-7.0));
    EXPECT_EQ(runs[0].front().index, 0U);
    EXPECT_EQ(last, kCount - 1);
    // A view of a small part keeps how the curve comes in and goes out.
    const Mapping part{kPlot, {500'000, 500'010}, {-10, 10}};
    const CurveRun inView = RunsOf(xs, ys, part).at(0);
    EXPECT_LE(inView.size(), 20U);
    const auto isAt = [](std::size_t index) {
        return [index](const CurvePoint& point) { return point.index == index; };
    };
    for (const std::size_t index : {499'999U, 500'005U, 500'011U})
        EXPECT_TRUE(std::ranges::any_of(inView, isAt(index))) << index;
}

TEST(XYChart, WhatIsNoNumberIsAGap)
{
    const Mapping linear{kPlot, {0, 10}, {-10, 10}};
    const Mapping logarithmic{kPlot, {0, 10}, {1, 10, true}};
    const auto lengths = [](const std::vector<double>& ys, const Mapping& mapping) {
        std::vector<double> xs;
        for (std::size_t i = 0; i < ys.size(); ++i)
            xs.push_back(static_cast<double>(i));
        std::vector<std::size_t> sizes;
        for (const CurveRun& run : RunsOf(xs, ys, mapping))
            sizes.push_back(run.size());
        return sizes;
    };
    EXPECT_THAT(lengths({1, 2, kNaN, 3, kInfinite, kNaN, 4, 5, 6}, linear), ElementsAre(2, 1, 3));
    EXPECT_THAT(lengths({1, 2, 0, 3, -4, 5}, logarithmic), ElementsAre(2, 1, 1));
    EXPECT_THAT(lengths({kNaN, kNaN}, linear), ElementsAre());
    EXPECT_THAT(lengths({}, linear), ElementsAre());
}

TEST(XYChart, DrawsWhateverItIsGiven)
{
    const std::vector<std::vector<double>> data{
        {},          {1},       {kNaN, kInfinite, -kInfinite}, {1e308, -1e308, 1e-308},
        {-1, -2, 0}, {0, 0, 0}, {1, kNaN, 3, 1e30, -1e30, 2}};
    const std::vector<Scale> scales{{0, 1},        {1, 0},        {5, 5},        {kNaN, 3},
                                    {-5, 5, true}, {1, 10, true}, {0, kInfinite}};
    for (const auto& values : data) {
        for (const Scale& scale : scales) {
            for (const int size : {1, 60, 300}) {
                XYChart chart(size, size);
                chart.addTitle("\xff broken <*size=9999,color=0xzz*> title <*");
                chart.xAxis().setTitle("x");
                scale.isLog ? chart.yAxis().setLogScale(scale.lower, scale.upper)
                            : chart.yAxis().setLinearScale(scale.lower, scale.upper);
                chart.addLineLayer().addDataSet(values, "line", 0);
                chart.addAreaLayer().addDataSet(values, "area", 1);
                chart.addBarLayer(BarMode::Stacked).addDataSet(values, "bar", 2);
                chart.setNoDataText("none");
                EXPECT_NO_THROW({
                    EXPECT_FALSE(chart.makePixels().rgb.empty());
                    chart.getHTMLImageMap();
                });
            }
        }
    }
}

TEST(XYChart, SaysSoWhenThereIsNothingToPlot)
{
    struct Case
    {
        std::vector<double> values;
        bool isLog;
        bool hasData;
    };
    for (const auto& [values, isLog, hasData] :
         {Case{{}, false, false}, Case{{kNaN, kInfinite}, false, false}, Case{{3}, false, true},
          Case{{-3, 0}, true, false}, Case{{-3, 0, 2}, true, true}}) {
        const auto chart = MakeChart();
        chart->setNoDataText("<*font=DejaVu Sans Bold,size=16,color=0xf11a29*> No data available");
        chart->yAxis().setAutoScale(isLog);
        chart->addLineLayer().addDataSet(values, "", 0);
        EXPECT_EQ(chart->hasData(), hasData) << testing::PrintToString(values);
        const bool isSaid = Count(chart->makePixels(), kPlot, Colour::FromRgb(0xf11a29)) > 20;
        EXPECT_EQ(isSaid, !hasData) << testing::PrintToString(values);
    }
}

TEST(XYChart, WhatIsSaidOfAnEmptyChartKeepsItsLetters)
{
    // Where it has no room in one line it has more of them, and where a word has none it is smaller.
    struct Case
    {
        double width;
        int lines;
    };
    const Colour red = Colour::FromRgb(0xff0000);
    for (const auto& [width, lines] : {Case{700, 1}, Case{230, 2}, Case{150, 3}, Case{60, 3}}) {
        XYChart chart(900, 600);
        const Rect plot{100.5, 50.5, width, 200};
        chart.setPlotArea(plot);
        chart.setNoDataText("<*font=DejaVu Sans Bold,size=16,color=0xff0000*>Ungueltig ungueltig ungueltig");
        chart.addLineLayer().addDataSet({}, "", 0);
        const Pixels pixels = chart.makePixels();
        int shown = 0;
        bool isAbove = false;
        for (double y = 0.0; y < 600.0; ++y) {
            const bool isLine = Count(pixels, {0, y, 900, 1}, red) > 0;
            shown += isLine && !isAbove ? 1 : 0;
            isAbove = isLine;
        }
        EXPECT_EQ(shown, lines) << width;
        EXPECT_EQ(Count(pixels, {0, 0, 900, 600}, red), Count(pixels, plot, red)) << width;
    }
}

TEST(XYChart, StacksWhatIsAboveAndBelowZeroForItself)
{
    const auto chart = MakeChart();
    chart->xAxis().setLabels({"first", "second"});
    BarLayer& bars = chart->addBarLayer(BarMode::Stacked);
    bars.addDataSet({4, -3}, "resin", 0);
    bars.addDataSet({2, 5}, "acid", 1);
    bars.addDataSet({-1, kNaN}, "sale", 2);
    EXPECT_EQ(chart->getFullScales().y, (Scale{-4, 6}));
    const ImageMap map = chart->getImageMap();
    const Mapping& to = map.mapping;
    const ImageMapHandler handler(map);
    const auto textAt = [&](double place, double value) {
        const auto hit = handler.Find(to.ToPixelX(place), to.ToPixelY(value));
        return hit ? hit->text : std::string();
    };
    EXPECT_EQ(textAt(0, 2.0), "resin\nfirst\n4");
    EXPECT_EQ(textAt(0, 5.0), "acid\nfirst\n2");
    EXPECT_EQ(textAt(0, -0.5), "sale\nfirst\n-1");
    EXPECT_EQ(textAt(1, -2.0), "resin\nsecond\n-3");
    EXPECT_EQ(textAt(1, 4.0), "acid\nsecond\n5");
    EXPECT_EQ(textAt(1, -3.5), "");
    const Pixels pixels = chart->makePixels();
    const Colour plain = StyleOfSeries(0).colour;
    EXPECT_GT(
        Count(pixels, {to.ToPixelX(0) - 5, to.ToPixelY(3.9), 10, to.ToPixelY(0.1) - to.ToPixelY(3.9)}, plain),
        500);
    EXPECT_EQ(Count(pixels, {to.ToPixelX(0) - 5, to.ToPixelY(-0.1), 10, 100}, plain), 0);
}

TEST(XYChart, TellsTheValueOfTheCurveUnderThePointer)
{
    const auto chart = MakeChart();
    chart->setSeparators({",", "."});
    chart->xAxis().setTitle("Velocity [m/h]");
    chart->xAxis().setLinearScale(0, 10);
    chart->yAxis().setTitle("<*size=9*>Pressure & drop");
    chart->yAxis().setLinearScale(0, 10);
    LineLayer& layer = chart->addLineLayer();
    layer.setXData({0, 10});
    layer.addDataSet({0, 5}, "20 \u00b0C", 0);
    layer.addDataSet({kNaN, 9}, "lone", 1);
    const ImageMap map = chart->getImageMap();
    const ImageMapHandler handler(map);
    // Between the points, too, and at the nearest place of the line.
    const auto hit = handler.Find(map.mapping.ToPixelX(5.0), map.mapping.ToPixelY(2.5) + 3.0);
    ASSERT_TRUE(hit.has_value());
    EXPECT_NEAR(hit->y, hit->x / 2.0, 1e-9);
    EXPECT_THAT(hit->text, HasSubstr("20 \u00b0C\nVelocity [m/h]: 4,98"));
    EXPECT_FALSE(handler.Find(map.mapping.ToPixelX(5.0), map.mapping.ToPixelY(2.5) + 12.0));
    EXPECT_EQ(handler.Find(map.mapping.ToPixelX(10.0), map.mapping.ToPixelY(9.0)).value().series, 1U);
    const std::string html = chart->getHTMLImageMap("a?b&c");
    EXPECT_THAT(html, HasSubstr("shape=\"poly\""));
    EXPECT_THAT(html, HasSubstr("href=\"a?b&amp;c\" title=\"20 \u00b0C&#10;"));
    EXPECT_THAT(html, HasSubstr("Pressure &amp; drop: 2,5"));
}

TEST(XYChart, MayBeDrawnOnSeveralThreads)
{
    const auto chart = MakeChart();
    chart->addTitle("title");
    chart->addLineLayer().addDataSet({1, 3, 2}, "line", 0);
    const Pixels expected = chart->makePixels();
    std::vector<std::thread> threads;
    std::vector<int> same(4);
    for (int& result : same) {
        threads.emplace_back([&] {
            for (int i = 0; i < 5; ++i)
                result += chart->makePixels().rgb == expected.rgb ? 1 : 0;
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(same, testing::Each(5));
}

TEST(Markup, SettlesFontSizeAndColour)
{
    const auto parts = ParseMarkup(
        "plain<*font=Times New Roman Italic,size=16,color=0xf11a29*> No data<*br*>more<*/*>end<*");
    ASSERT_EQ(parts.size(), 4U);
    EXPECT_EQ(parts[0].text, "plain");
    EXPECT_EQ(parts[1].text, " No data");
    EXPECT_EQ(parts[1].font, "Times New Roman Italic");
    EXPECT_EQ(parts[1].size, 16.0);
    EXPECT_EQ(parts[1].colour, Colour::FromRgb(0xf11a29));
    EXPECT_EQ(parts[2].text, "\nmore");
    EXPECT_EQ(parts[2].size, 16.0);
    EXPECT_EQ(parts[3].text, "end<*");
    EXPECT_EQ(parts[3].size, std::nullopt);
    for (const char* bad : {"<*size=-1*>t", "<*size=1e9*>t", "<*color=red*>t", "<*color=0x12345g*>t",
                            "<*font=*>t", "<**>t", "<*,=,size*>t"})
        EXPECT_TRUE(ParseMarkup(bad).at(0).text == "t" && !ParseMarkup(bad)[0].size &&
                    !ParseMarkup(bad)[0].colour && ParseMarkup(bad)[0].font.empty())
            << bad;
}

}  // namespace
