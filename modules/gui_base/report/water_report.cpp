// SPDX-License-Identifier: MIT
#include "gui_base/report/water_report.h"

#include "core/amount_text.h"
#include "gui_base/report/blend_tiles.h"
#include "gui_base/report/evaluation_tables.h"
#include "gui_base/report/water_tables.h"
#include "gui_base/report/with_title.h"
#include "projectbase/advice/evaluation.h"
#include "projectbase/project/project.h"
#include "projectbase/units/unit_system_manager.h"
#include "projectbase/water/alkalization.h"
#include "projectbase/water/blend_recipe.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <array>
#include <cmath>
#include <stdexcept>

namespace {

using namespace wateranalysis;

struct PageKind
{
    const char* name;
    const char* title;
    void (*add)(report::Section& section, const Project& project, const LiquidData& water,
                const ReportContext& context);
};

void AddHeadedTable(report::Section& section, const char* heading, report::Table table,
                    const ReportContext& context)
{
    if (table.rows.empty())
        return;
    section.blocks.push_back(report::Heading{context.Translated(heading)});
    section.blocks.push_back(std::move(table));
}

/// What was done to the water, in sentences.
void AddTreatment(report::Section& section, const Project& project, const LiquidData& water,
                  const ReportContext& context)
{
    const DetailList& details = *water.GetDetails();
    if (project.IsMixed(water))
        section.blocks.push_back(
            report::Paragraph{WithTitle(context.Translated(wxTRANSLATE("Blend")),
                                        RecipeText(water::RecipeOf(details), context), context)});
    const double pH = details.At("liquid/alk.ph").GetDoubleValue();
    if (!std::isfinite(pH))
        return;
    const std::string unit = UnitSystemManager::GetUnit("mg/l", context.unitSystem, true);
    const double dose = UnitSystemManager::FromISO("mg/l", context.unitSystem,
                                                   details.At("liquid/alk.dosed").GetDoubleValue());
    const std::string agent = water::AlkalizingAgentName(details.At("liquid/alk.type").GetStdStringValue());
    section.blocks.push_back(
        report::Paragraph{WithTitle(context.Translated(wxTRANSLATE("Alkalization")),
                                    fmt::format("{} {}, {}\u00a0{}", context.Translated(agent.c_str()),
                                                numbertext::WithUnit(context.Number(dose, 4), unit),
                                                context.Translated(wxTRANSLATE("pH")), context.Number(pH, 3)),
                                    context)});
}

void AddAnalysis(report::Section& section, const Project& project, const LiquidData& water,
                 const ReportContext& context)
{
    const DetailList& details = *water.GetDetails();
    section.blocks.push_back(GeneralTable(details, context.Translated(water.GetName().c_str()), context));
    AddHeadedTable(section, wxTRANSLATE("Cations"), CationTable(details, context), context);
    AddHeadedTable(section, wxTRANSLATE("Anions"), AnionTable(details, context), context);
    AddHeadedTable(section, wxTRANSLATE("Ion balance"), BalanceTable(details, context), context);
    AddTreatment(section, project, water, context);
}

void AddProperties(report::Section& section, const Project& /*project*/, const LiquidData& water,
                   const ReportContext& context)
{
    const DetailList& details = *water.GetDetails();
    AddHeadedTable(section, wxTRANSLATE("Measured values"), MeasuredTable(details, context), context);
    AddHeadedTable(section, wxTRANSLATE("Hardness and alkalinity"), HardnessTable(details, context), context);
    AddHeadedTable(section, wxTRANSLATE("Summary"), SummaryTable(details, context), context);
    const auto sentences = RangeSentences(details, context);
    if (sentences.empty())
        return;
    section.blocks.push_back(report::Heading{context.Translated(wxTRANSLATE("Values out of range"))});
    for (const std::string& sentence : sentences)
        section.blocks.push_back(report::Paragraph{sentence});
}

/// What the water means: the same tiles, indices and advice as beside its page in the window.
void AddEvaluation(report::Section& section, const Project& project, const LiquidData& water,
                   const ReportContext& context)
{
    const advice::Evaluation evaluation = advice::Evaluate(project, water);
    AddHeadedTable(section, wxTRANSLATE("Results"), ResultTable(evaluation, water, context), context);
    AddHeadedTable(section, wxTRANSLATE("Saturation indices"),
                   SaturationTable(evaluation.saturation, context), context);
    AddHeadedTable(section, wxTRANSLATE("Advice"), AdviceTable(evaluation.advice, context), context);
    if (section.blocks.empty())
        section.blocks.push_back(report::Paragraph{
            context.Translated(wxTRANSLATE("The analysis says too little to be evaluated"))});
}

constexpr std::array kPages{
    PageKind{"analysis", wxTRANSLATE("Water analysis"), &AddAnalysis},
    PageKind{"properties", wxTRANSLATE("Properties of the water"), &AddProperties},
    PageKind{"evaluation", wxTRANSLATE("Evaluation of the water"), &AddEvaluation},
};

}  // namespace

std::vector<ReportPage> WaterReport::GetReportPages(const ReportContext& context) const
{
    std::vector<ReportPage> pages;
    for (std::size_t water = 0; water < m_project.GetLiquidCount(); ++water) {
        for (const PageKind& kind : kPages) {
            pages.push_back({.title = wxString::FromUTF8(Title(water, kind.title, context)),
                             .id = static_cast<int>(pages.size()),
                             .name = fmt::format("{}:{}", water, kind.name)});
        }
    }
    return pages;
}

report::Section WaterReport::BuildReportPage(int id, const ReportContext& context) const
{
    const std::size_t index =
        id < 0 ? m_project.GetLiquidCount() : static_cast<std::size_t>(id) / kPages.size();
    if (index >= m_project.GetLiquidCount())
        throw std::out_of_range(fmt::format("WaterReport::BuildReportPage: there is no page {}", id));
    const PageKind& kind = kPages[static_cast<std::size_t>(id) % kPages.size()];
    report::Section section{.title = Title(index, kind.title, context)};
    kind.add(section, m_project, m_project.GetLiquid(index), context);
    return section;
}

std::string WaterReport::Title(std::size_t water, const char* page, const ReportContext& context) const
{
    std::string title = context.Translated(page);
    if (m_project.GetLiquidCount() < 2)
        return title;
    return WithTitle(context.Translated(m_project.GetLiquid(water).GetName().c_str()), title, context);
}
