// SPDX-License-Identifier: MIT
#include "gui_base/report/overview_report.h"

#include "dbinterfaces/master_database.h"
#include "projectbase/design/regenerants.h"
#include "projectbase/units/unit_system_manager.h"
#include "report/font_measure.h"
#include "svg/printed_svg.h"

#include <wx/translation.h>

#include <algorithm>
#include <stdexcept>

namespace overviewtext {

FormatGraphicValue Formatter(ReportContext context)
{
    return [context = std::move(context)](const DetailData& detail,
                                          const DBObjects::GraphicPlaceholder& placeholder,
                                          const std::string& unitSystem) -> wxString {
        if (detail.GetType() != DetailType::Double) {
            const auto* const chemical = design::FindRegenerant(detail.GetStdStringValue());
            return chemical != nullptr ? wxString::FromUTF8(chemical->formula) : detail.GetStringValue();
        }
        const std::string& unit = detail.GetUnit();
        const double value = UnitSystemManager::FromISO(unit, unitSystem, detail.GetDoubleValue());
        std::string text = context.Number(value, placeholder.digits);
        if (!text.empty() && placeholder.withUnit && !unit.empty())
            text += " " + UnitSystemManager::GetUnit(unit, unitSystem, true);
        return wxString::FromUTF8(text);
    };
}

}  // namespace overviewtext

namespace {

report::Block DrawingOf(const SvgGraphicInfo<ArchiveLoadPolicy>& info, const ReportContext& context)
{
    const auto textOf = [&](const wxString& id, const wxString& text) {
        const auto mapping = std::ranges::find_if(
            info.mappings, [&id](const auto& each) { return !id.empty() && each->GetId() == id; });
        return mapping != info.mappings.end()
                   ? (*mapping)->GetText(info.unitsystem)
                   : wxString::FromUTF8(context.Translated(text.utf8_string().c_str()));
    };
    // Points: what a page has below the title of the section.
    constexpr double kWholePage = 630.0;
    PrintedGraphic printed = PrintedSvg(info.document, textOf, report::AscentOf("sans-serif"));
    return report::Drawing{.svg = std::move(printed.svg), .height = printed.isTurned ? kWholePage : 0.0};
}

}  // namespace

std::vector<DBObjects::GraphicInfo> OverviewReport::Graphics() const
{
    std::vector<DBObjects::GraphicInfo> graphics;
    for (const auto& [type, keys] : m_project.GetGraphicConfigTypes())
        graphics.push_back(MasterDatabase::GetGraphicInfo(m_project.GetModuleType(), type, keys));
    std::erase_if(graphics, [](const DBObjects::GraphicInfo& graphic) { return graphic.id < 0; });
    return graphics;
}

std::vector<ReportPage> OverviewReport::GetReportPages(const ReportContext&) const
{
    if (Graphics().empty())
        return {};
    return {{.title = wxTRANSLATE("Plant overview"), .id = 0, .name = "overview"}};
}

report::Section OverviewReport::BuildReportPage(int id, const ReportContext& context) const
{
    if (id != 0)
        throw std::out_of_range("OverviewReport::BuildReportPage: there is no page of that number");
    report::Section section{.title = context.Translated(wxTRANSLATE("Plant overview")), .joins = true};
    for (const DBObjects::GraphicInfo& graphic : Graphics()) {
        try {
            const auto info = FromDbGraphicInfo(graphic, m_project, wxString::FromUTF8(context.unitSystem),
                                                overviewtext::Formatter(context));
            section.blocks.push_back(DrawingOf(info, context));
        } catch (const SvgLoadError& error) {
            section.blocks.push_back(
                report::Paragraph{.text = context.Translated(wxTRANSLATE("The graphic cannot be shown:")) +
                                          " " + error.what()});
        }
    }
    return section;
}
