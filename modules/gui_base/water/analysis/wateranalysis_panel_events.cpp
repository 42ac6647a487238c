// SPDX-License-Identifier: MIT
// What the water analysis panel does when its controls are used.
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/analysis/balance_panel.h"
#include "gui_base/water/analysis/wateranalysis_panel.h"
#include "gui_base/water/tools/alkalization_dialog.h"
#include "gui_base/water/tools/co2_calculator_dialog.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/water/blend.h"
#include "projectbase/water/normalization.h"

#include <wx/bmpbuttn.h>
#include <wx/collpane.h>
#include <wx/sizer.h>

#include <algorithm>

void WaterAnalysisPanel::DoBindEvents()
{
    m_full->Bind(wxEVT_RADIOBUTTON, &WaterAnalysisPanel::OnAnalysisFullSelected, this);
    m_shortTds->Bind(wxEVT_RADIOBUTTON, &WaterAnalysisPanel::OnAnalysisShortTdsSelected, this);
    m_shortCond->Bind(wxEVT_RADIOBUTTON, &WaterAnalysisPanel::OnAnalysisShortCondSelected, this);
    FindField("liquid/tds.short")->Bind(wxEVT_TEXT_ENTER, &WaterAnalysisPanel::OnShortTDSChanged, this);
    FindField("liquid/cond.short")->Bind(wxEVT_TEXT_ENTER, &WaterAnalysisPanel::OnShortCondChanged, this);
    m_alkalize->Bind(wxEVT_BUTTON, &WaterAnalysisPanel::OnAlkalizationClick, this);
    m_co2Calculator->Bind(wxEVT_BUTTON, &WaterAnalysisPanel::OnCO2CalculatorClick, this);
    m_defaultUnit->Bind(wxEVT_BUTTON, &WaterAnalysisPanel::OnDefaultUnitClicked, this);
    m_furtherPane->Bind(wxEVT_COLLAPSIBLEPANE_CHANGED, &WaterAnalysisPanel::OnCollPaneChanged, this);
    for (const auto& grid : m_grids) {
        for (const wateranalysis::IonGrid::Row& row : grid->Rows()) {
            row.unit->Bind(tvCHANGE_EVENT, &WaterAnalysisPanel::OnUnitChanged, this);
            if (row.name == nullptr)
                continue;
            row.name->Bind(wxEVT_TEXT, &WaterAnalysisPanel::OnNameChange, this);
            row.name->Bind(wxEVT_TEXT_ENTER, &WaterAnalysisPanel::OnNameUpdate, this);
        }
    }
    m_co2Unit->Bind(tvCHANGE_EVENT, &WaterAnalysisPanel::OnUnitChanged, this);
    m_temperatureUnit->Bind(tvCHANGE_EVENT, &WaterAnalysisPanel::OnTemparatureUnitChanged, this);
    // Tooltips cost the toolkit more than a calculation: they are made when somebody is about to read them.
    for (const char* key : {"liquid/tds", "liquid/sum.c.meql", "liquid/sum.a.meql"})
        FindField(key)->Bind(wxEVT_ENTER_WINDOW, [this](wxMouseEvent& event) {
            UpdateToolTips();
            event.Skip();
        });
    FindField("liquid/h.plus.orig")->Bind(wxEVT_UPDATE_UI, &WaterAnalysisPanel::OnHPlusUpdate, this);
    FindField("liquid/oh.minus.orig")->Bind(wxEVT_UPDATE_UI, &WaterAnalysisPanel::OnOhMinusUpdate, this);
    FindField("liquid/ph")->Bind(wxEVT_UPDATE_UI, &WaterAnalysisPanel::OnPhUpdate, this);
}

void WaterAnalysisPanel::BindPanelEvents()
{
    // The boxes store their state first and let the click climb.
    Bind(wxEVT_CHECKBOX, &WaterAnalysisPanel::OnCheckBoxClicked, this);
    Bind(wxEVT_SIZE, &WaterAnalysisPanel::OnSize, this);
}

void WaterAnalysisPanel::OnCheckBoxClicked(wxCommandEvent& event)
{
    const wxObject* box = event.GetEventObject();
    if (box == m_balance->GetAutoCheckBox())
        OnBalanceAutoClick(event);
    else if (box == m_balance->GetPhCheckBox())
        OnBalancePHClick(event);
    else if (box == m_calculateCo2)
        OnCalculateCO2Click(event);
    else
        event.Skip();
}

void WaterAnalysisPanel::OnAnalysisFullSelected(wxCommandEvent&)
{
    SetAnalysisType("FULL");
}

void WaterAnalysisPanel::OnAnalysisShortTdsSelected(wxCommandEvent&)
{
    ShortAnalysisTDS();
}

void WaterAnalysisPanel::OnAnalysisShortCondSelected(wxCommandEvent&)
{
    ShortAnalysisCond();
}

void WaterAnalysisPanel::OnShortTDSChanged(wxCommandEvent&)
{
    UpdateAndSignal();
}

void WaterAnalysisPanel::OnShortCondChanged(wxCommandEvent&)
{
    UpdateAndSignal();
}

void WaterAnalysisPanel::OnBalanceAutoClick(wxCommandEvent&)
{
    UpdateAndSignal();
}

void WaterAnalysisPanel::OnBalancePHClick(wxCommandEvent&)
{
    UpdateAndSignal();
}

void WaterAnalysisPanel::OnAlkalizationClick(wxCommandEvent&)
{
    bool accepted = false;
    {
        const ProjectEdit edit(*GetProject(), wxTRANSLATE("alkalization"));
        AlkalizationDialog dialog(GetProject(), static_cast<int>(GetLiquidIndex()),
                                  wxGetTopLevelParent(this));
        accepted = dialog.ShowModal() == wxID_OK;
    }
    TakeOverFromDialog(accepted);
}

void WaterAnalysisPanel::OnCO2CalculatorClick(wxCommandEvent&)
{
    const bool wasCalculated = m_liquid.GetDetails()->At("liquid/calculate.co2").GetBoolValue();
    bool accepted = false;
    {
        const ProjectEdit edit(*GetProject(), wxTRANSLATE("CO2 Calculator"));
        tvCO2CalculatorDialog dialog(GetProject(), static_cast<int>(GetLiquidIndex()),
                                     wxGetTopLevelParent(this), wxID_ANY, i18n::Translated("CO2 Calculator"));
        accepted = dialog.ShowModal() == wxID_OK;
    }
    TakeOverFromDialog(accepted || wasCalculated);
}

void WaterAnalysisPanel::TakeOverFromDialog(bool changed)
{
    UpdateAnalysis();
    if (changed)
        SignalChanges();
}

void WaterAnalysisPanel::OnCalculateCO2Click(wxCommandEvent&)
{
    UpdateAndSignal();
}

void WaterAnalysisPanel::OnDefaultUnitClicked(wxCommandEvent&)
{
    {
        const ProjectEdit edit(*GetProject(), wxTRANSLATE("default unit"));
        const wxString unit = m_liquid.GetDetails()->At("liquid/na.unit").GetStringValue();
        for (const auto& grid : m_grids) {
            for (wateranalysis::IonGrid::Row& row : grid->Rows()) {
                // A row that does not offer the unit keeps its own.
                if (row.unit->Offers(unit))
                    row.unit->GetDetail()->SetValue(unit);
            }
        }
    }
    m_fields->UpdateNames(GetCurrentDisplayUnitSystem());
    UpdateAndSignal();
}

void WaterAnalysisPanel::OnNameChange(wxCommandEvent& event)
{
    // While the name is typed, so that Tab finds the value's field enabled.
    if (wateranalysis::IonGrid::Row* row = FindNamedRow(event.GetEventObject()))
        EnableRow(*row, GetAnalysisType() == AnalysisType::Full);
    event.Skip();
}

void WaterAnalysisPanel::OnNameUpdate(wxCommandEvent& event)
{
    try {
        const ProjectEdit edit(*GetProject());
        TransferDataFromWindow();
        TransferDetailsFromWindow();
        if (const wateranalysis::IonGrid::Row* row = FindNamedRow(event.GetEventObject()))
            NormalizeIon(row->ion->key, true);
        // A row that is no longer used shows so before the fields are read again.
        TransferDetailsToWindow();
        UpdateAndSignal();
    } catch (const std::exception& error) {
        GetProject()->GetLogger().Error(std::string("Exception in  WaterAnalysisPanel::OnNameUpdate: ") +
                                        error.what());
    }
    event.Skip();
}

wateranalysis::IonGrid::Row* WaterAnalysisPanel::FindNamedRow(const wxObject* nameField)
{
    for (const auto& grid : m_grids) {
        for (wateranalysis::IonGrid::Row& row : grid->Rows()) {
            if (row.name != nullptr && row.name == nameField)
                return &row;
        }
    }
    return nullptr;
}

void WaterAnalysisPanel::OnCollPaneChanged(wxCollapsiblePaneEvent& event)
{
    Layout();
    FitInside();
    event.Skip();
}

void WaterAnalysisPanel::OnTemparatureUnitChanged(wxCommandEvent& event)
{
    OnUnitChanged(event);
}

void WaterAnalysisPanel::OnUnitChanged(wxCommandEvent&)
{
    DoUpdateValidators();
    m_fields->UpdateNames(GetCurrentDisplayUnitSystem());
    UpdateAndSignal();
}

void WaterAnalysisPanel::OnHPlusUpdate(wxUpdateUIEvent& event)
{
    event.Enable(GetAnalysisType() == AnalysisType::Full &&
                 m_liquid.GetDetails()->At("liquid/balance.ph").GetBoolValue());
}

void WaterAnalysisPanel::OnOhMinusUpdate(wxUpdateUIEvent& event)
{
    OnHPlusUpdate(event);
}

void WaterAnalysisPanel::OnPhUpdate(wxUpdateUIEvent& event)
{
    // A short analysis is a neutral salt solution: it has no use for a pH.
    event.Enable(GetAnalysisType() == AnalysisType::Full && !water::IsBlend(*m_liquid.GetDetails()));
}

void WaterAnalysisPanel::OnSize(wxSizeEvent& event)
{
    ArrangeColumns();
    event.Skip();
}

void WaterAnalysisPanel::ArrangeColumns()
{
    if (m_columns == nullptr)
        return;
    // Columns that do not fit beside each other stand one below the other.
    int right = 0;
    for (wxSizerItem* item : m_rightColumn->GetChildren())
        right = std::max(right, item->CalcMin().x);
    const int width = m_columns->GetItem(std::size_t{0})->CalcMin().x + right;
    const int orientation = GetClientSize().x >= width ? wxHORIZONTAL : wxVERTICAL;
    if (m_columns->GetOrientation() == orientation)
        return;
    m_columns->SetOrientation(orientation);
    m_rightColumn->SetOrientation(orientation == wxHORIZONTAL ? wxVERTICAL : wxHORIZONTAL);
    Layout();
    FitInside();
}
