// SPDX-License-Identifier: MIT
// What the water analysis panel does when its controls are used.
#include "gui_base/input/controls/flow_sizer.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/support/exception_text.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/analysis/analysis_type_box.h"
#include "gui_base/water/analysis/balance_panel.h"
#include "gui_base/water/analysis/ions_box.h"
#include "gui_base/water/analysis/others_box.h"
#include "gui_base/water/analysis/wateranalysis_panel.h"
#include "gui_base/water/tools/alkalization_dialog.h"
#include "gui_base/water/tools/co2_calculator_dialog.h"
#include "projectbase/project/project_edit.h"

#include <wx/statbox.h>

#include <algorithm>

using wateranalysis::AnalysisType;

void WaterAnalysisPanel::DoBindEvents()
{
    using Panel = WaterAnalysisPanel;
    const auto type = [this](AnalysisType which) -> wxWindow& { return m_typeBox->GetButton(which); };
    type(AnalysisType::Full).Bind(wxEVT_RADIOBUTTON, &Panel::OnAnalysisFullSelected, this);
    type(AnalysisType::ShortTds).Bind(wxEVT_RADIOBUTTON, &Panel::OnAnalysisShortTdsSelected, this);
    type(AnalysisType::ShortConductivity).Bind(wxEVT_RADIOBUTTON, &Panel::OnAnalysisShortCondSelected, this);
    m_typeBox->GetTds().Bind(wxEVT_TEXT_ENTER, &Panel::OnShortTDSChanged, this);
    m_typeBox->GetConductivity().Bind(wxEVT_TEXT_ENTER, &Panel::OnShortCondChanged, this);
    // The check boxes store their state first and let the click climb.
    m_balance->Bind(wxEVT_CHECKBOX, &Panel::OnBalanceAutoClick, this, m_balance->GetAutoCheckBox()->GetId());
    m_balance->Bind(wxEVT_CHECKBOX, &Panel::OnBalancePHClick, this, m_balance->GetPhCheckBox()->GetId());
    m_others->GetStaticBox()->Bind(wxEVT_CHECKBOX, &Panel::OnCalculateCO2Click, this);
    m_others->GetAlkalizeButton().Bind(wxEVT_BUTTON, &Panel::OnAlkalizationClick, this);
    m_others->GetCo2CalculatorButton().Bind(wxEVT_BUTTON, &Panel::OnCO2CalculatorClick, this);
    Bind(wxEVT_COLLAPSIBLEPANE_CHANGED, &Panel::OnCollPaneChanged, this);
    m_others->GetCo2Unit().Bind(tvCHANGE_EVENT, &Panel::OnUnitChanged, this);
    for (const auto& typed : m_others->GetTyped())
        typed.unit->Bind(tvCHANGE_EVENT, &Panel::OnUnitChanged, this);
    m_others->GetTemperatureUnit().Bind(tvCHANGE_EVENT, &Panel::OnTemparatureUnitChanged, this);
    m_others->GetPh().Bind(wxEVT_UPDATE_UI, &Panel::OnPhUpdate, this);
    m_keys.Clear();
    for (const auto& grid : m_ions->GetGrids()) {
        std::vector<ValueKeys::Cell> column;
        for (const wateranalysis::IonGrid::Row& row : grid->Rows())
            column.push_back({row.typed, row.unit});
        m_keys.AddColumn(column);
    }
    m_keys.AddColumn(m_others->GetValues());
    m_ions->GetDefaultUnitButton().Bind(wxEVT_BUTTON, &Panel::OnDefaultUnitClicked, this);
    for (const auto& grid : m_ions->GetGrids()) {
        for (const wateranalysis::IonGrid::Row& row : grid->Rows()) {
            row.unit->Bind(tvCHANGE_EVENT, &Panel::OnUnitChanged, this);
            if (row.name == nullptr)
                continue;
            row.name->Bind(wxEVT_TEXT, &Panel::OnNameChange, this);
            row.name->Bind(wxEVT_TEXT_ENTER, &Panel::OnNameUpdate, this);
        }
    }
    FindField("liquid/h.plus.orig")->Bind(wxEVT_UPDATE_UI, &Panel::OnHPlusUpdate, this);
    FindField("liquid/oh.minus.orig")->Bind(wxEVT_UPDATE_UI, &Panel::OnOhMinusUpdate, this);
}

void WaterAnalysisPanel::OnAnalysisFullSelected(wxCommandEvent&)
{
    StoreType(AnalysisType::Full);
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
    const bool accepted = AlkalizationDialog::ShowFor(*GetProject(), m_liquid, wxGetTopLevelParent(this));
    UpdateAnalysis();
    if (accepted)
        SignalChanges();
}

void WaterAnalysisPanel::OnCO2CalculatorClick(wxCommandEvent&)
{
    const bool wasCalculated = m_liquid.GetDetails()->At("liquid/calculate.co2").GetBoolValue();
    const bool accepted = tvCO2CalculatorDialog::ShowFor(*GetProject(), m_liquid, wxGetTopLevelParent(this));
    UpdateAnalysis();
    if (accepted || wasCalculated)
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
        m_ions->TakeUnitOfSodium();
    }
    GetFields().UpdateNames(GetCurrentDisplayUnitSystem());
    UpdateAndSignal();
}

void WaterAnalysisPanel::OnNameChange(wxCommandEvent& event)
{
    // While the name is typed, so that Tab finds the value's field enabled.
    m_ions->EnableNamedRow(event.GetEventObject(), IsFull());
    event.Skip();
}

void WaterAnalysisPanel::OnNameUpdate(wxCommandEvent& event)
{
    if (m_ions->TakeBackNumber(event.GetEventObject())) {
        GetProject()->GetLogger().Warning(wxTRANSLATE("A number is no name of an ion"));
        m_ions->EnableNamedRow(event.GetEventObject(), IsFull());
    }
    try {
        const ProjectEdit edit(*GetProject());
        TransferDataFromWindow();
        TransferDetailsFromWindow();
        if (const wateranalysis::IonRow* ion = m_ions->FindNamedIon(event.GetEventObject()))
            NormalizeIon(ion->key, true);
        // A row that is no longer used shows so before the fields are read again.
        TransferDetailsToWindow();
        UpdateAndSignal();
    } catch (const std::exception& error) {
        GetProject()->GetLogger().Error(ExceptionText("WaterAnalysisPanel::OnNameUpdate", error));
    }
    event.Skip();
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
    GetFields().UpdateNames(GetCurrentDisplayUnitSystem());
    UpdateAndSignal();
}

void WaterAnalysisPanel::OnHPlusUpdate(wxUpdateUIEvent& event)
{
    event.Enable(IsFull() && m_liquid.GetDetails()->At("liquid/balance.ph").GetBoolValue());
}

void WaterAnalysisPanel::OnOhMinusUpdate(wxUpdateUIEvent& event)
{
    OnHPlusUpdate(event);
}

void WaterAnalysisPanel::OnPhUpdate(wxUpdateUIEvent& event)
{
    // A short analysis is a neutral salt solution: it has no use for a pH.
    event.Enable(IsFull());
}

void WaterAnalysisPanel::DoArrange(int width)
{
    if (m_columns == nullptr)
        return;
    ModulePanelBase::DoArrange(width);
    const int ionsBeside = m_ions->GetWidth(wxHORIZONTAL);
    const int ionsBelow = m_ions->GetWidth(wxVERTICAL);
    const int others = m_others->CalcMin().x + 2 * FromDIP(form::kGap);
    const int summary = m_summary->CalcMin().x + 2 * FromDIP(form::kGap);
    const int margin = 2 * FromDIP(form::kGap);
    // Cations and anions side by side come first, then what stands beside them.
    const bool isBeside = ionsBeside + margin <= width;
    const int ions = (isBeside ? ionsBeside : ionsBelow) + margin;
    m_ions->SetOrientation(isBeside ? wxHORIZONTAL : wxVERTICAL);
    const bool othersBeside = ions + others <= width;
    const bool isColumn = ions + std::max(others, summary) <= width;
    m_columns->SetOrientation(othersBeside ? wxHORIZONTAL : wxVERTICAL);
    const bool isLine = othersBeside ? ions + others + summary <= width : others + summary <= width;
    m_rightColumn->SetOrientation(isLine ? wxHORIZONTAL : wxVERTICAL);
    PlaceSummary(othersBeside && !isColumn ? *GetSizer() : *m_rightColumn);
    PlaceHead(isBeside);
}

void WaterAnalysisPanel::PlaceHead(bool isAbove)
{
    // Where not even the ions stand side by side, the boxes of the head would take the whole height before
    // them.
    wxSizer& sizer = *GetSizer();
    const std::size_t place = isAbove ? 0 : sizer.GetItemCount() - 1;
    if (const wxSizerItem* const there = sizer.GetItem(place); there->GetSizer() == m_head)
        return;
    sizer.Detach(m_head);
    sizer.Insert(place, m_head);
}

void WaterAnalysisPanel::PlaceSummary(wxSizer& place)
{
    if (place.GetItem(m_summary) != nullptr)
        return;
    for (wxSizer* present : {GetSizer(), static_cast<wxSizer*>(m_rightColumn)})
        present->Detach(m_summary);
    place.Add(m_summary, wxSizerFlags().Expand().Border(wxALL, FromDIP(form::kGap)));
}
