// SPDX-License-Identifier: MIT
#include "gui_base/report/chart_report.h"

#include "gui_base/report/chart_figure.h"
#include "gui_base/report/resin_chart.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/project/iex_project.h"

#include <wx/translation.h>

#include <algorithm>
#include <stdexcept>

namespace {

/// Those of the plant that exchange, each once, in flow order.
std::vector<const design::Resin*> ResinsOf(const Project& project)
{
    std::vector<const design::Resin*> resins;
    const auto* plant = dynamic_cast<const iex::IEXProject*>(&project);
    if (plant == nullptr)
        return resins;
    for (const auto& exchanger : plant->GetRoot().GetChildren(OwnerKind::Exchanger)) {
        for (const auto& compartment : exchanger->GetChildren(OwnerKind::Compartment)) {
            const OwnerNode* working = design::WorkingResin(*compartment);
            const design::Resin* resin =
                working == nullptr
                    ? nullptr
                    : design::FindResin(working->GetDetails()->At("compcomp/resin").GetStdStringValue());
            if (resin != nullptr && std::ranges::find(resins, resin) == resins.end())
                resins.push_back(resin);
        }
    }
    return resins;
}

}  // namespace

std::vector<ReportPage> ChartReport::GetReportPages(const ReportContext& context) const
{
    if (ResinsOf(m_project).empty())
        return {};
    return {
        {.title = wxString::FromUTF8(context.Translated(wxTRANSLATE("Charts"))), .id = 0, .name = "charts"}};
}

report::Section ChartReport::BuildReportPage(int id, const ReportContext& context) const
{
    const auto resins = ResinsOf(m_project);
    if (id != 0 || resins.empty())
        throw std::out_of_range("ChartReport::BuildReportPage: there is no such page");
    report::Section section{.title = context.Translated(wxTRANSLATE("Charts"))};
    const auto temperatures = resin_chart::UsualTemperatures();
    for (const design::Resin* resin : resins) {
        section.blocks.push_back(report::Heading{context.Translated(resin->name.c_str())});
        for (const DIAGRAM_TYPE type : {DIAGRAM_TYPE::PressureDrop, DIAGRAM_TYPE::BedExpansion}) {
            resin_chart::Contents contents{
                .type = type, .resin = resin, .end = resin_chart::EndOf(type, *resin, m_project)};
            contents.parameters.assign(temperatures.begin(), temperatures.end());
            auto chart = resin_chart::Make(contents, m_project, context);
            // The heading above the figures says it.
            chart->addTitle({});
            section.blocks.push_back(ChartFigure(std::move(chart)));
        }
    }
    return section;
}
