// SPDX-License-Identifier: MIT
#include "gui_base/report/water_diagram.h"

#include "chartdir/plane_chart.h"
#include "chartdir/stiff_chart.h"
#include "chartdir/xy_chart.h"
#include "tests/support/chart_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace {

using namespace water_diagram;
using testing::ElementsAre;
using testing::HasSubstr;

Water Groundwater()
{
    return {.name = "Groundwater",
            .ions = {.calcium = 6.687,
                     .magnesium = 2.163,
                     .sodium = 0.679,
                     .potassium = 0.107,
                     .bicarbonate = 5.556,
                     .sulfate = 3.956,
                     .chloride = 0.22,
                     .dissolved = 717.0}};
}

/// With every ion that a diagram can name, and a name that is too long for a small one.
Water Brackish()
{
    return {.name = "Mean water of the wells at the northern shore, sampled after the storm",
            .ions = {.calcium = 3,
                     .magnesium = 4,
                     .sodium = 12,
                     .potassium = 0.5,
                     .ammonium = 0.3,
                     .iron = 0.2,
                     .manganese = 0.1,
                     .otherCations = 0.1,
                     .bicarbonate = 4,
                     .sulfate = 5,
                     .chloride = 10,
                     .nitrate = 0.5,
                     .fluoride = 0.1,
                     .otherAnions = 0.05,
                     .closingChloride = 0.55,
                     .dissolved = 1200.0},
            .place = 1};
}

Water Softened()
{
    return {.name = "Softened",
            .ions = {.sodium = 5, .bicarbonate = 3, .sulfate = 1, .chloride = 1, .dissolved = 330.0},
            .place = 2};
}

std::vector<Water> Some(std::size_t count)
{
    std::vector<Water> waters{Groundwater(), Brackish(), Softened()};
    while (waters.size() < count) {
        waters.push_back(waters[waters.size() % 3]);
        waters.back().place = waters.size() - 1;
    }
    waters.resize(count);
    return waters;
}

template <typename Chart>
std::shared_ptr<Chart> MakeAs(Kind kind, std::vector<Water> waters, const Options& options = {},
                              const ReportContext& context = {})
{
    auto chart = std::dynamic_pointer_cast<Chart>(
        Make({.kind = kind, .waters = std::move(waters), .options = options}, context));
    EXPECT_TRUE(chart);
    chart->setSize(900, 600);
    return chart;
}

/// What is told at a place.
std::string TipAt(const chartdir::BaseChart& chart, chartdir::Point place)
{
    const auto hit = chartdir::ImageMapHandler(chart.getImageMap()).Find(place.x, place.y);
    return hit ? hit->text : std::string();
}

TEST(WaterDiagram, TextsStandApartFromTheSmallestPaneToTheLargestPage)
{
    struct Size
    {
        int width, height;
    };
    constexpr Options kAll{true, true, true, true};
    for (const auto& [width, height] : {Size{220, 126}, Size{220, 160}, Size{300, 220}, Size{400, 300},
                                        Size{260, 700}, Size{900, 220}, Size{900, 600}, Size{1600, 1000}}) {
        for (const std::size_t count : {1U, 3U, 12U}) {
            for (const Kind kind : kKinds) {
                const auto chart = Make({.kind = kind,
                                         .waters = Some(count),
                                         .options = count == 3 ? kAll : Options{},
                                         .hasTitle = width > 220},
                                        {});
                chart->setSize(width, height);
                std::vector<support::Word> words = support::WordsOf(*chart);
                // The boxes of what is written aslant hold more than the text.
                std::erase_if(words, [](const support::Word& word) { return word.box.height > 24.0; });
                EXPECT_GE(words.size(), 3U);
                support::ExpectTextsApart(*chart, words,
                                          std::string(NameOf(kind)) + " " + std::to_string(width) + " x " +
                                              std::to_string(height) + ", " + std::to_string(count));
            }
        }
    }
}

TEST(WaterDiagram, PiperMarksAPublishedGroundwaterWhereItStands)
{
    const auto chart = MakeAs<chartdir::PlaneChart>(Kind::Piper, {Groundwater()});
    ASSERT_EQ(chart->getSeries().size(), 1U);
    const auto& spots = chart->getSeries()[0].spots;
    ASSERT_EQ(spots.size(), 3U);
    const chartdir::Point expected[]{{0.1938, 0.1945}, {1.3259, 0.3521}, {0.8053, 1.2537}};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(spots[i].at.x, expected[i].x, 0.002);
        EXPECT_NEAR(spots[i].at.y, expected[i].y, 0.002);
    }
    const std::string tip = TipAt(*chart, chart->toPixel(expected[2]));
    for (const char* part : {"Groundwater", "Ca\u00b2\u207a 69.4\u00a0%", "SO\u2084\u00b2\u207b 40.6\u00a0%",
                             "9.636\u00a0meq/l / 9.732\u00a0meq/l"})
        EXPECT_THAT(tip, HasSubstr(part));
    // Both directions have one scale.
    const chartdir::Point origin = chart->toPixel({0, 0});
    const chartdir::Point one = chart->toPixel({1, 1});
    EXPECT_NEAR(one.x - origin.x, origin.y - one.y, 1e-9);
    EXPECT_GT(one.x - origin.x, 200.0);
}

TEST(WaterDiagram, PiperNamesItsSidesWhereTheNamesHaveRoom)
{
    const auto chart = MakeAs<chartdir::PlaneChart>(Kind::Piper, {Groundwater()});
    const auto arrows = [&] {
        return std::ranges::count_if(support::WordsOf(*chart), [](const support::Word& word) {
            return word.text == "\u2190" || word.text == "\u2192";
        });
    };
    EXPECT_EQ(arrows(), 4);
    // Smaller ones between the triangles and the diamond.
    chart->setSize(353, 330);
    EXPECT_EQ(arrows(), 4);
    // There is none left.
    chart->addTitle({});
    chart->setSize(220, 160);
    EXPECT_EQ(arrows(), 2);
    chart->setSize(150, 110);
    EXPECT_EQ(arrows(), 0);
}

TEST(WaterDiagram, PiperTakesMinorAnionsAndSizesOnRequest)
{
    const auto usual = MakeAs<chartdir::PlaneChart>(Kind::Piper, Some(3));
    const auto other = MakeAs<chartdir::PlaneChart>(Kind::Piper, Some(3),
                                                    {.minorAnionsInPiper = true, .sizeByDissolved = true});
    const auto anion = [](const chartdir::PlaneChart& chart, std::size_t water) {
        return chart.getSeries()[water].spots[1];
    };
    // Chloride 10 + 0.55 of 19.55; with nitrate and fluoride 11.15 of 20.15.
    EXPECT_NEAR(anion(*usual, 1).at.x, 1.1 + 10.55 / 19.55 + 2.5 / 19.55, 1e-9);
    EXPECT_NEAR(anion(*other, 1).at.x, 1.1 + 11.15 / 20.15 + 2.5 / 20.15, 1e-9);
    EXPECT_EQ(anion(*usual, 0).size, anion(*usual, 1).size);
    EXPECT_NEAR(std::pow(anion(*other, 0).size / anion(*other, 1).size, 2), 717.0 / 1200.0, 1e-9);
    // What is not known has the least marker, and a water without anions none.
    std::vector<Water> waters = Some(3);
    waters[0].ions.dissolved = std::nan("");
    waters[2].ions = {.calcium = 1};
    const auto gaps = MakeAs<chartdir::PlaneChart>(Kind::Piper, waters, {.sizeByDissolved = true});
    ASSERT_EQ(gaps->getSeries().size(), 2U);
    EXPECT_LT(anion(*gaps, 0).size, anion(*gaps, 1).size);
    EXPECT_FALSE(MakeAs<chartdir::PlaneChart>(Kind::Piper, {waters[2]})->hasData());
}

TEST(WaterDiagram, BarsStackIonsBesideEachOtherAndTellTheirShare)
{
    const auto chart = MakeAs<chartdir::XYChart>(Kind::Bars, {Groundwater(), Brackish()});
    const chartdir::Mapping mapping = chart->getMapping();
    const auto at = [&](double water, double side, double meq) {
        return chartdir::Point{mapping.ToPixelX(water) + side * 20.0, mapping.ToPixelY(meq)};
    };
    EXPECT_EQ(TipAt(*chart, at(0, -1, 3.0)),
              "Groundwater: Ca\u00b2\u207a\n6.687\u00a0meq/l\n69.4\u00a0% of the cations");
    EXPECT_THAT(TipAt(*chart, at(0, -1, 6.8)), HasSubstr("Mg\u00b2\u207a\n2.163\u00a0meq/l"));
    EXPECT_THAT(TipAt(*chart, at(0, 1, 3.0)), HasSubstr("Alkalinity"));
    EXPECT_THAT(TipAt(*chart, at(0, 1, 3.0)), HasSubstr("57.1\u00a0% of the anions"));
    EXPECT_EQ(TipAt(*chart, at(0, 1, 9.9)), "");
    // The closing ion stands on top of the others.
    EXPECT_THAT(TipAt(*chart, at(1, 1, 20.0)), HasSubstr("Cl\u207b (closes the balance)\n0.55\u00a0meq/l"));
    EXPECT_GE(chart->getFullScales().y.upper, 20.2);
    // It is hatched: its strip has the background between its colour.
    const chartdir::Pixels pixels = chart->makePixels();
    const auto colours = [&](chartdir::Point from) {
        std::set<std::uint32_t> found;
        for (int x = 0; x < 15; ++x)
            found.insert(pixels.rgb[static_cast<std::size_t>(static_cast<int>(from.y) * pixels.width +
                                                             static_cast<int>(from.x) + x)]);
        return found.size();
    };
    EXPECT_GT(colours(at(1, 1, 20.0)), 3U);
    EXPECT_EQ(colours(at(1, 1, 6.0)), 1U);
}

TEST(WaterDiagram, TheLargestIonOfABarIsNamedInTheNarrowestPane)
{
    Water rest = Softened();
    rest.ions.otherAnions = 20.0;
    Water saline = Softened();
    saline.ions.bicarbonate = 40.0;
    saline.ions.chloride = 600.0;
    struct Case
    {
        Water water;
        const char* name;
    };
    for (const auto& [water, name] : {Case{rest, "Rest"}, {Softened(), "Alkalinity"}, {saline, "Alk."}}) {
        const auto chart = MakeAs<chartdir::XYChart>(Kind::Bars, {water});
        chart->setSize(250, 240);
        std::vector<std::string> texts;
        for (const support::Word& word : support::WordsOf(*chart))
            texts.push_back(word.text);
        EXPECT_THAT(texts, testing::Contains(name));
    }
}

TEST(WaterDiagram, TheLegendOfBarsNamesEveryIonOrEndsWithAnEllipsis)
{
    const auto chart = MakeAs<chartdir::XYChart>(Kind::Bars, Some(3));
    struct Case
    {
        int width, height;
        bool isWhole;
    };
    for (const auto& [width, height, isWhole] :
         {Case{900, 600, true}, {400, 300, true}, {317, 282, true}, {260, 700, true}, {220, 126, false}}) {
        chart->setSize(width, height);
        const double plot = chart->getMapping().plot.height;
        EXPECT_GT(plot, 0.35 * height) << width;
        std::vector<std::string> legend;
        for (const support::Word& word : support::WordsOf(*chart)) {
            if (word.box.Bottom() < chart->getMapping().plot.y)
                legend.push_back(word.text);
        }
        // "closes the balance" is the last one.
        EXPECT_EQ(std::ranges::count(legend, "balance"), isWhole ? 1 : 0) << width << " x " << height;
        EXPECT_EQ(std::ranges::count(legend, "\u2026"), isWhole ? 0 : 1) << width << " x " << height;
        for (const char* ion : {"Ca\u00b2\u207a", "Fe\u00b2\u207a", "Mn\u00b2\u207a", "cations"})
            EXPECT_TRUE(!isWhole || std::ranges::count(legend, ion) == 1) << ion << " " << width;
    }
}

TEST(WaterDiagram, StiffDrawsAllWatersOnOneScaleToBothSides)
{
    const auto chart = MakeAs<chartdir::StiffChart>(Kind::Stiff, Some(3), {.fourthRowInStiff = true});
    ASSERT_EQ(chart->getShownCount(), 3U);
    EXPECT_EQ(chart->getScale().upper, 15.0);
    for (std::size_t figure = 0; figure < 3; ++figure) {
        const auto polygon = chart->getPolygon(figure);
        ASSERT_EQ(polygon.size(), 8U);
        // From the lowest row on the left around to the lowest on the right.
        const double unit = (chart->getPolygon(1)[4].x - chart->getPolygon(1)[3].x) / (12.5 + 10.55);
        const diagrams::MainGroups groups = GroupsOf(Some(3)[figure].ions);
        EXPECT_NEAR(polygon[4].x - polygon[3].x, unit * (groups.alkalis + groups.chloride), 1e-6);
        EXPECT_NEAR(polygon[5].x - polygon[2].x, unit * (groups.calcium + groups.bicarbonate), 1e-6);
        EXPECT_NEAR(polygon[6].x - polygon[1].x, unit * (groups.magnesium + groups.sulfate), 1e-6);
        EXPECT_LT(polygon[3].y, polygon[2].y);
        // Symmetric: the same amount reaches as far to both sides of where Softened has neither Mg nor Fe.
        EXPECT_NEAR(polygon[2].y, polygon[5].y, 1e-9);
    }
    const auto softened = chart->getPolygon(2);
    const double centre = softened[0].x;
    EXPECT_NEAR(centre - softened[3].x, 5.0 * (softened[4].x - centre), 1e-6);
    EXPECT_EQ(TipAt(*chart, {softened[4].x - 1.0, softened[4].y}),
              "Softened: Cl\u207b\n1\u00a0meq/l\n20.0\u00a0% of the anions");
    // What has no room is told.
    const auto many = Make({.kind = Kind::Stiff, .waters = Some(40)}, {});
    many->setSize(500, 300);
    const auto shown = dynamic_cast<chartdir::StiffChart&>(*many).getShownCount();
    EXPECT_LT(shown, 40U);
    EXPECT_GE(shown, 2U);
    const auto words = support::WordsOf(*many);
    EXPECT_TRUE(std::ranges::any_of(
        words, [&](const support::Word& word) { return word.text == "+" + std::to_string(40 - shown); }));
}

TEST(WaterDiagram, SchoellerSpansWholeDecadesAndBreaksWhereAnIonIsMissing)
{
    const auto chart = MakeAs<chartdir::XYChart>(Kind::Schoeller, Some(3), {.nitrateInSchoeller = true});
    const auto scale = chart->getFullScales().y;
    EXPECT_TRUE(scale.isLog);
    EXPECT_DOUBLE_EQ(scale.lower, 0.1);
    EXPECT_DOUBLE_EQ(scale.upper, 100.0);
    EXPECT_EQ(chart->xAxis().getLabels().size(), 7U);
    const chartdir::Mapping mapping = chart->getMapping();
    const auto at = [&](double ion, double meq) {
        return TipAt(*chart, {mapping.ToPixelX(ion), mapping.ToPixelY(meq)});
    };
    EXPECT_EQ(at(0, 6.687), "Groundwater: Ca\u00b2\u207a\n6.687\u00a0meq/l\n69.4\u00a0% of the cations");
    EXPECT_THAT(at(6, 0.5), HasSubstr("NO\u2083\u207b\n0.5\u00a0meq/l"));
    // Between the ions there is nothing to be read.
    EXPECT_EQ(at(0.5, std::sqrt(6.687 * 2.163)), "");
    const auto& values = chart->getLayers().front()->getDataSets().at(2).values;
    EXPECT_THAT(std::vector(values.begin(), values.begin() + 3),
                ElementsAre(testing::IsNan(), testing::IsNan(), 5.0));
}

TEST(WaterDiagram, FollowsLanguageAndNumbersOfItsContext)
{
    ReportContext context;
    context.separators.decimal = ",";
    context.translate = [](const char* source) {
        return std::string(source) == "Alkalinity" ? "Alkalit\u00e4t" : source;
    };
    const auto chart = MakeAs<chartdir::XYChart>(Kind::Bars, {Groundwater()}, {}, context);
    const chartdir::Mapping mapping = chart->getMapping();
    const std::string tip = TipAt(*chart, {mapping.ToPixelX(0.0) + 20.0, mapping.ToPixelY(1.0)});
    EXPECT_THAT(tip, HasSubstr("Alkalit\u00e4t"));
    EXPECT_THAT(tip, HasSubstr("5,556\u00a0meq/l"));
}

TEST(WaterDiagram, SaysSoQuietlyWithoutWatersOrIons)
{
    for (const Kind kind : kKinds) {
        for (const bool hasWater : {false, true}) {
            const auto chart = Make({.kind = kind, .waters = std::vector<Water>(hasWater ? 1 : 0)}, {});
            const auto words = support::WordsOf(*chart);
            EXPECT_TRUE(std::ranges::any_of(words, [](const support::Word& word) {
                return word.text == "available";
            })) << NameOf(kind);
            EXPECT_NO_THROW(chart->getImageMap());
            // Nothing is wrong with it: no red.
            for (const chartdir::Theme& theme : {chartdir::LightTheme(), chartdir::DarkTheme()}) {
                chart->setTheme(theme);
                EXPECT_TRUE(std::ranges::none_of(chart->makePixels().rgb, [](std::uint32_t rgb) {
                    return (rgb >> 16U & 0xFFU) > (rgb & 0xFFU) + 80U;
                })) << NameOf(kind);
            }
        }
    }
}

}  // namespace
