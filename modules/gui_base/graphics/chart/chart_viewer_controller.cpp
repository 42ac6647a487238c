// SPDX-License-Identifier: MIT
#include "gui_base/graphics/chart/chart_viewer_controller.h"

#include "gui_base/input/form/shown_context.h"
#include "gui_base/support/translation.h"
#include "projectbase/project/project.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr std::array kDiagramTypes{DIAGRAM_TYPE::PressureDrop, DIAGRAM_TYPE::BedExpansion};

/// A bed is backwashed with water whose viscosity follows from its temperature.
bool HasMedia(DIAGRAM_TYPE type)
{
    return type == DIAGRAM_TYPE::PressureDrop;
}

}  // namespace

ChartViewerPanel::Choices ChartViewerController::DiagramTypes()
{
    ChartViewerPanel::Choices choices;
    for (const DIAGRAM_TYPE type : kDiagramTypes)
        choices.emplace_back(static_cast<long>(type), resin_chart::NameOf(type));
    return choices;
}

ChartViewerPanel::Choices ChartViewerController::Media()
{
    ChartViewerPanel::Choices choices;
    for (const auto& medium : curve_calculations::Media())
        choices.emplace_back(static_cast<long>(medium.medium), wxString::FromUTF8(medium.name));
    return choices;
}

ChartViewerPanel::Choices ChartViewerController::Resins(const Project& project)
{
    ChartViewerPanel::Choices ofPlant;
    ChartViewerPanel::Choices others;
    for (const design::Resin& resin : design::Resins()) {
        const bool isOfPlant =
            !curve_calculations::DesignPoints(DIAGRAM_TYPE::PressureDrop, resin, project).empty();
        (isOfPlant ? ofPlant : others).emplace_back(resin.id, wxString::FromUTF8(resin.name));
    }
    ofPlant.insert(ofPlant.end(), others.begin(), others.end());
    return ofPlant;
}

ChartViewerController::ChartViewerController(const Project& project, ChartViewerPanel& panel)
    : m_project(project), m_panel(panel)
{
    m_panel.Bind(tvCHART_SELECTION_EVENT, &ChartViewerController::OnSelection, this);
    TakeSelections();
    ShowUnits();
    Draw(false);
}

ChartViewerController::~ChartViewerController()
{
    m_panel.Unbind(tvCHART_SELECTION_EVENT, &ChartViewerController::OnSelection, this);
}

void ChartViewerController::Follow()
{
    UseRangeNow();
    ShowUnits();
    Draw(true);
}

void ChartViewerController::OnSelection(wxCommandEvent& event)
{
    switch (static_cast<ChartSelection>(event.GetInt())) {
        case ChartSelection::Medium:
            m_chosenMedium = m_panel.DoGetMediumSelection();
            TakeSelections();
            break;
        case ChartSelection::DiagramType:
        case ChartSelection::Resin:
            TakeSelections();
            break;
        case ChartSelection::Range:
            TakeRange();
            break;
        case ChartSelection::Parameter:
            break;
    }
    ShowRange();
    Draw(false);
}

void ChartViewerController::TakeSelections()
{
    m_contents.type = m_panel.DoGetDiagramTypeSelection();
    const std::string name = m_panel.DoGetResinSelection();
    const auto& resins = design::Resins();
    const auto found = std::ranges::find(resins, name, &design::Resin::name);
    m_contents.resin = found == resins.end() ? nullptr : &*found;
    TakeMedium();
    UseRangeNow();
}

void ChartViewerController::TakeMedium()
{
    const bool hasMedia = HasMedia(m_contents.type);
    m_contents.medium = hasMedia ? m_chosenMedium : MEDIUM::Water;
    m_panel.DoSetMediumSelection(m_contents.medium);
    m_panel.DoEnableMediumSelection(hasMedia);
    if (m_contents.medium == MEDIUM::Water)
        m_panel.DoUseViscosityAndTemperaturePanel();
    else
        m_panel.DoUseTemperaturePanel();
}

ChartViewerController::Range ChartViewerController::RangeNow() const
{
    const auto typed = m_typedRanges.find(m_contents.type);
    if (typed != m_typedRanges.end())
        return typed->second;
    return {0.0, m_contents.resin == nullptr
                     ? 0.0
                     : resin_chart::EndOf(m_contents.type, *m_contents.resin, m_project)};
}

void ChartViewerController::UseRangeNow()
{
    const Range range = RangeNow();
    m_contents.start = range.start;
    m_contents.end = range.end;
}

void ChartViewerController::TakeRange()
{
    const std::string& unitSystem = m_project.GetUnitSystemDisplay();
    const double start = m_panel.DoGetStartValue();
    const double end = m_panel.DoGetEndValue();
    // An emptied range is the usual one again.
    if (std::isnan(start) || std::isnan(end))
        m_typedRanges.erase(m_contents.type);
    else if (start == end)
        m_panel.DoShowErrorMessage(
            i18n::Translated(wxTRANSLATE("The range of the abscissa begins where it ends.")).utf8_string());
    else
        m_typedRanges[m_contents.type] = {resin_chart::VelocityOf(start, unitSystem),
                                          resin_chart::VelocityOf(end, unitSystem)};
    UseRangeNow();
}

void ChartViewerController::ShowRange()
{
    const std::string& unitSystem = m_project.GetUnitSystemDisplay();
    m_panel.DoSetStartValue(resin_chart::ShownVelocity(m_contents.start, unitSystem));
    m_panel.DoSetEndValue(resin_chart::ShownVelocity(m_contents.end, unitSystem));
}

void ChartViewerController::ShowUnits()
{
    const auto unit = [this](const char* iso) {
        return wxString::FromUTF8(UnitSystemManager::GetUnit(iso, m_project.GetUnitSystemDisplay(), true));
    };
    m_panel.DoUpdateSetLabels(i18n::Translated(wxTRANSLATE("Temperature")));
    m_panel.DoUpdateSetUnits(unit("\u00b0C"));
    m_panel.DoUpdateRangeUnit(unit("m/h"));
    ShowRange();
}

void ChartViewerController::Draw(bool keepsView)
{
    m_contents.parameters = m_panel.DoGetSetParameter();
    m_panel.DoShowChart(
        resin_chart::Make(m_contents, m_project, ShownContext(m_project.GetUnitSystemDisplay())), keepsView);
}
