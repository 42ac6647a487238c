// SPDX-License-Identifier: MIT
#include "gui_base/report/water_diagram_report.h"

#include "gui_base/report/chart_figure.h"
#include "gui_base/report/water_diagram.h"

#include <wx/translation.h>

#include <algorithm>
#include <stdexcept>

namespace {

// Two on a page, also below its titles.
constexpr double kFigureHeight = 290.0;

bool HasIons(const water_diagram::Water& water)
{
    return water.ions.CationSum() > 0.0 || water.ions.AnionSum() > 0.0;
}

}  // namespace

std::vector<ReportPage> WaterDiagramReport::GetReportPages(const ReportContext& context) const
{
    if (!std::ranges::any_of(water_diagram::WatersOf(m_project, context), HasIons))
        return {};
    return {{.title = wxString::FromUTF8(context.Translated(wxTRANSLATE("Diagrams"))),
             .id = 0,
             .name = "diagrams"}};
}

report::Section WaterDiagramReport::BuildReportPage(int id, const ReportContext& context) const
{
    const auto waters = water_diagram::WatersOf(m_project, context);
    if (id != 0 || !std::ranges::any_of(waters, HasIons))
        throw std::out_of_range("WaterDiagramReport::BuildReportPage: there is no such page");
    const water_diagram::Options options = water_diagram::ChosenOptions();
    report::Section section{.title = context.Translated(wxTRANSLATE("Diagrams"))};
    for (const water_diagram::Kind kind : water_diagram::kKinds) {
        report::Figure figure =
            ChartFigure(water_diagram::Make({.kind = kind, .waters = waters, .options = options}, context));
        figure.height = kFigureHeight;
        section.blocks.push_back(std::move(figure));
    }
    return section;
}
