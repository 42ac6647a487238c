// SPDX-License-Identifier: MIT
// Those that are drawn over meq/l: ion bars, Stiff and Schoeller.
#include "chartdir/stiff_chart.h"
#include "chartdir/xy_chart.h"
#include "gui_base/report/no_data_text.h"
#include "gui_base/report/water_diagram_parts.h"
#include "projectbase/water/diagrams/ion_diagrams.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>

namespace water_diagram {

namespace {

using diagrams::BarPart;

struct PartLook
{
    BarPart part;
    const char* label;    ///< source text where it is no symbol
    std::size_t colour;   ///< place in the palette; main ions have colours of their own
    bool isTint = false;  ///< a lighter colour than the other ion has
};
/// Of the closing ion alone, which has the colour of its kind.
constexpr auto kHatching = chartdir::Marker::Square;
constexpr chartdir::Colour kGrey = chartdir::Colour::FromRgb(0x808080);
constexpr const char* kClosing = wxTRANSLATE("closes the balance");
constexpr std::array kParts{
    // The legend has the main ions first.
    PartLook{BarPart::Calcium, kCalcium, 0},
    PartLook{BarPart::Magnesium, kMagnesium, 1},
    PartLook{BarPart::Sodium, kSodium, 2},
    PartLook{BarPart::Alkalinity, wxTRANSLATE("Alkalinity"), 5},
    PartLook{BarPart::Sulfate, kSulfate, 6},
    PartLook{BarPart::Chloride, kChloride, 4},
    PartLook{BarPart::Potassium, kPotassium, 3},
    PartLook{BarPart::Nitrate, kNitrate, 3, true},
    PartLook{BarPart::Ammonium, kAmmonium, 4, true},
    PartLook{BarPart::Iron, kIron, 1, true},
    PartLook{BarPart::Manganese, kManganese, 6, true},
    PartLook{BarPart::OtherCations, wxTRANSLATE("Other cations"), 7},
    PartLook{BarPart::OtherAnions, wxTRANSLATE("Other anions"), 7, true},
};

chartdir::Colour ColourOf(const PartLook& look)
{
    constexpr double kWhite = 0.45;
    const chartdir::Colour colour = chartdir::StyleOfSeries(look.colour).colour;
    return look.isTint ? colour.Tinted(kWhite) : colour;
}

const PartLook& LookOf(BarPart part)
{
    return *std::ranges::find(kParts, part, &PartLook::part);
}

/// For narrow segments and little room beside them; empty where the label is short itself.
std::string ShortLabelOf(BarPart part, const ReportContext& context)
{
    if (part == BarPart::Alkalinity)
        return context.Translated(wxTRANSLATE("Alk."));
    const bool isRest = part == BarPart::OtherCations || part == BarPart::OtherAnions;
    return isRest ? context.Translated(wxTRANSLATE("Rest")) : std::string();
}

std::vector<chartdir::Segment> SegmentsOf(const std::vector<diagrams::BarSegment>& bar, const Water& water,
                                          bool isCation, const ReportContext& context)
{
    std::vector<chartdir::Segment> segments;
    for (const diagrams::BarSegment& segment : bar) {
        const PartLook& look = LookOf(segment.part);
        const std::string label = context.Translated(look.label);
        std::string name = label;
        if (segment.part == BarPart::Alkalinity)
            name += fmt::format(" ({}+OH\u207b)", kBicarbonate);
        if (segment.isClosing)
            name += fmt::format(" ({})", context.Translated(kClosing));
        segments.push_back({.label = label,
                            .shortLabel = ShortLabelOf(segment.part, context),
                            .value = segment.meq,
                            .colour = ColourOf(look),
                            .hatching = segment.isClosing ? kHatching : chartdir::Marker::None,
                            .tip = Tip(water, name, segment.meq, isCation, context)});
    }
    return segments;
}

std::shared_ptr<chartdir::XYChart> NewChart(const ReportContext& context)
{
    auto chart = std::make_shared<chartdir::XYChart>(kWidth, kHeight);
    chart->setNoDataText(context.Translated(NoDataText()));
    chart->yAxis().setTitle("meq/l");
    return chart;
}

chartdir::SeriesStyle StyleOf(const Water& water)
{
    return chartdir::StyleOfSeries(water.place);
}

}  // namespace

BarPieces PiecesOf(const diagrams::WaterIons& ions)
{
    const diagrams::IonBars bars = diagrams::BarsOf(ions);
    const auto pieces = [](const std::vector<diagrams::BarSegment>& bar) {
        std::vector<BarPiece> all;
        for (const diagrams::BarSegment& segment : bar)
            all.push_back({ColourOf(LookOf(segment.part)), segment.meq});
        return all;
    };
    return {pieces(bars.cations), pieces(bars.anions)};
}

std::shared_ptr<chartdir::BaseChart> MakeBars(const Contents& contents, const ReportContext& context)
{
    auto chart = NewChart(context);
    chartdir::SegmentLayer& layer = chart->addSegmentLayer();
    std::vector<std::string> names;
    std::set<BarPart> parts;
    bool hasClosing = false;
    for (const Water& water : contents.waters) {
        const diagrams::IonBars bars = diagrams::BarsOf(water.ions);
        for (const auto* bar : {&bars.cations, &bars.anions}) {
            std::ranges::transform(*bar, std::inserter(parts, parts.end()), &diagrams::BarSegment::part);
            hasClosing |= std::ranges::any_of(*bar, &diagrams::BarSegment::isClosing);
        }
        names.push_back(water.name);
        layer.addPair(SegmentsOf(bars.cations, water, true, context),
                      SegmentsOf(bars.anions, water, false, context));
    }
    // Bars of one water are wide enough for names.
    for (const PartLook& look : kParts) {
        if (contents.waters.size() > 1 && parts.contains(look.part))
            layer.addLegendEntry(context.Translated(look.label), ColourOf(look), chartdir::Marker::None);
    }
    if (contents.waters.size() > 1 && hasClosing)
        layer.addLegendEntry(context.Translated(kClosing), kGrey, kHatching);
    chart->xAxis().setLabels(std::move(names));
    return chart;
}

std::shared_ptr<chartdir::BaseChart> MakeStiff(const Contents& contents, const ReportContext& context)
{
    auto chart = std::make_shared<chartdir::StiffChart>(kWidth, kHeight);
    const bool hasFourth = contents.options.fourthRowInStiff;
    std::vector<chartdir::StiffChart::RowNames> names{
        {kAlkalis, kChloride}, {kCalcium, kBicarbonate}, {kMagnesium, kSulfate}};
    if (hasFourth)
        names.push_back({kIron, kNitrate});
    for (const Water& water : contents.waters) {
        chartdir::StiffChart::Figure figure{.name = water.name, .style = StyleOf(water)};
        for (const diagrams::StiffRow& row : diagrams::StiffOf(water.ions, hasFourth)) {
            const auto& [left, right] = names[figure.rows.size()];
            figure.rows.push_back({.left = row.cation,
                                   .right = row.anion,
                                   .leftTip = Tip(water, left, row.cation, true, context),
                                   .rightTip = Tip(water, right, row.anion, false, context)});
        }
        chart->addFigure(std::move(figure));
    }
    chart->setRows(std::move(names));
    chart->setAxisTitle("meq/l");
    chart->setNoDataText(context.Translated(NoDataText()));
    return chart;
}

std::shared_ptr<chartdir::BaseChart> MakeSchoeller(const Contents& contents, const ReportContext& context)
{
    auto chart = NewChart(context);
    const bool hasNitrate = contents.options.nitrateInSchoeller;
    std::vector<std::string> names{kCalcium, kMagnesium, kAlkalis, kChloride, kSulfate, kBicarbonate};
    constexpr std::size_t kCations = 3;
    constexpr int kMostRows = 3;
    if (hasNitrate)
        names.emplace_back(kNitrate);
    std::vector<std::vector<double>> lines;
    chartdir::LineLayer& layer = chart->addLineLayer();
    for (const Water& water : contents.waters) {
        const std::vector<double> values = lines.emplace_back(diagrams::SchoellerOf(water.ions, hasNitrate));
        chartdir::DataSet& set = layer.addDataSet(values, water.name, water.place);
        for (std::size_t i = 0; i < values.size(); ++i)
            set.tips.push_back(std::isnan(values[i])
                                   ? std::string()
                                   : Tip(water, names[i], values[i], i < kCations, context));
    }
    const diagrams::Decades decades = diagrams::DecadesAround(lines);
    chart->yAxis().setLogScale(decades.lower, decades.upper);
    chart->xAxis().setLabels(std::move(names));
    chart->xAxis().setLabelRows(kMostRows);
    chart->setLegend(contents.waters.size() > 1);
    return chart;
}

}  // namespace water_diagram
