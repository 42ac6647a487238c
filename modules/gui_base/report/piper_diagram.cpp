// SPDX-License-Identifier: MIT
#include "chartdir/plane_chart.h"
#include "gui_base/report/no_data_text.h"
#include "gui_base/report/water_diagram_parts.h"
#include "projectbase/water/diagrams/piper.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace water_diagram {

namespace {

namespace piper = diagrams::piper;
using chartdir::Point;

constexpr int kParts = 5;  // a line every 20 %
// Between a triangle and the diamond.
constexpr double kStrip = piper::kGap * piper::kHeight;
constexpr double kMarker = 8.0;
constexpr double kLeastMarker = 4.0;
constexpr double kLargestMarker = 18.0;

constexpr Point At(const piper::Place& place)
{
    return {place.x, place.y};
}

Point Between(Point from, Point to, double part)
{
    return {from.x + part * (to.x - from.x), from.y + part * (to.y - from.y)};
}

/// At a right angle to the left of a side, 1 long; to its right with -1.
Point Beside(Point from, Point to, double side)
{
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    return {-side * (to.y - from.y) / length, side * (to.x - from.x) / length};
}

/// Lines from one side to the opposite one, or to the neighbour that meets it in the beginning.
void AddGrid(chartdir::PlaneChart& chart, chartdir::PlaneChart::Line first, chartdir::PlaneChart::Line second)
{
    for (int i = 1; i < kParts; ++i) {
        const double part = static_cast<double>(i) / kParts;
        chart.addGridLine(Between(first.from, first.to, part), Between(second.from, second.to, part));
    }
}

/// Shares at the ticks of a side along which they rise, or fall.
std::vector<std::string> Ticks(bool rise)
{
    std::vector<std::string> ticks;
    for (int i = 1; i < kParts; ++i)
        ticks.push_back(std::to_string((rise ? i : kParts - i) * 100 / kParts));
    return ticks;
}

struct TriangleNames
{
    const char* left;
    const char* right;
    const char* top;
};

/// A triangle with its neighbour on the right, or on the left.
void AddTriangle(chartdir::PlaneChart& chart, const piper::Triangle& triangle, const TriangleNames& names,
                 bool isLeft)
{
    const Point left = At(triangle[0]);
    const Point right = At(triangle[1]);
    const Point top = At(triangle[2]);
    chart.addFrame({left, right, top});
    AddGrid(chart, {left, top}, {left, right});
    AddGrid(chart, {right, left}, {right, top});
    AddGrid(chart, {top, left}, {top, right});
    // The inner corners stand near each other: their names lead away from the gap.
    chart.addCorner({left, {isLeft ? -1.0 : 1.0, -1.0}, names.left});
    chart.addCorner({right, {isLeft ? -1.0 : 1.0, -1.0}, names.right});
    chart.addCorner({top, {isLeft ? -1.0 : 1.0, 0.5}, names.top});
    // Of the three shares two are read at the sides; the third is what they leave.
    chart.addSide({{left, right}, {0.0, -1.0}, {}, Ticks(!isLeft)});
    if (isLeft)
        chart.addSide({{left, top}, Beside(left, top, 1.0), {}, Ticks(true)});
    else
        chart.addSide({{top, right}, Beside(top, right, 1.0), {}, Ticks(false)});
}

void AddDiamond(chartdir::PlaneChart& chart)
{
    const Point left = At(piper::kDiamond[0]);
    const Point top = At(piper::kDiamond[1]);
    const Point right = At(piper::kDiamond[2]);
    const Point bottom = At(piper::kDiamond[3]);
    chart.addFrame({left, top, right, bottom});
    AddGrid(chart, {left, top}, {bottom, right});
    AddGrid(chart, {left, bottom}, {top, right});
    chart.addSide(
        {{left, top}, Beside(left, top, 1.0), fmt::format("{}+{} \u2192", kSulfate, kChloride), Ticks(true)});
    chart.addSide({{top, right},
                   Beside(top, right, 1.0),
                   fmt::format("\u2190 {}+{}", kCalcium, kMagnesium),
                   Ticks(false)});
    chart.addSide(
        {{left, bottom}, Beside(left, bottom, -1.0), fmt::format("{} \u2192", kAlkalis), {}, kStrip});
    chart.addSide(
        {{bottom, right}, Beside(bottom, right, -1.0), fmt::format("\u2190 {}", kBicarbonate), {}, kStrip});
}

std::string SharesText(std::initializer_list<std::pair<const char*, double>> shares,
                       const ReportContext& context)
{
    std::string text;
    for (const auto& [name, share] : shares)
        text += fmt::format("{}{} {}", text.empty() ? "" : ", ", name, ShareText(share, context));
    return text;
}

/// Diameter of a marker whose area follows what is dissolved, of which `most` is the largest.
double SizeOf(const Water& water, double most)
{
    const double share = water.ions.dissolved / most;
    return share >= 0.0 ? std::max(kLargestMarker * std::sqrt(share), kLeastMarker) : kLeastMarker;
}

double MostDissolved(const std::vector<Water>& waters)
{
    double most = 0.0;
    for (const Water& water : waters)
        most = std::isfinite(water.ions.dissolved) ? std::max(most, water.ions.dissolved) : most;
    return most;
}

void AddWater(chartdir::PlaneChart& chart, const Water& water, const piper::Shares& shares, double size,
              const ReportContext& context)
{
    const piper::Points points = piper::PlacesOf(shares);
    const std::string cations = SharesText(
        {{kCalcium, shares.calcium}, {kMagnesium, shares.magnesium}, {kAlkalis, shares.alkalis}}, context);
    const std::string anions = SharesText(
        {{kBicarbonate, shares.bicarbonate}, {kSulfate, shares.sulfate}, {kChloride, shares.chloride}},
        context);
    const std::string sums = fmt::format("{} / {}", AmountText(water.ions.CationSum(), context),
                                         AmountText(water.ions.AnionSum(), context));
    chart.addSeries({.name = water.name,
                     .style = chartdir::StyleOfSeries(water.place),
                     .spots = {{At(points.cations), size, fmt::format("{}\n{}", water.name, cations)},
                               {At(points.anions), size, fmt::format("{}\n{}", water.name, anions)},
                               {At(points.diamond), size,
                                fmt::format("{}\n{}\n{}\n{}", water.name, cations, anions, sums)}}});
}

}  // namespace

std::shared_ptr<chartdir::BaseChart> MakePiper(const Contents& contents, const ReportContext& context)
{
    auto chart = std::make_shared<chartdir::PlaneChart>(kWidth, kHeight);
    AddTriangle(*chart, piper::kCations, {kCalcium, kAlkalis, kMagnesium}, true);
    AddTriangle(*chart, piper::kAnions, {kBicarbonate, kChloride, kSulfate}, false);
    AddDiamond(*chart);
    const double most = contents.options.sizeByDissolved ? MostDissolved(contents.waters) : 0.0;
    for (const Water& water : contents.waters) {
        if (const auto shares = piper::SharesOf(water.ions, contents.options.minorAnionsInPiper))
            AddWater(*chart, water, *shares, most > 0.0 ? SizeOf(water, most) : kMarker, context);
    }
    chart->setLegend(contents.waters.size() > 1);
    chart->setNoDataText(context.Translated(NoDataText()));
    return chart;
}

}  // namespace water_diagram
