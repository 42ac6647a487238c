// SPDX-License-Identifier: MIT
// How a module panel connects its controls: bindings, commits, the status bar, and the fields that are out of
// range.
#include "gui_base/input/panel/advanced_input_options.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "gui_base/input/validation/double_validator.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/frame.h>

void ModulePanelBase::AddTransfer(const TransferDetail& transfer)
{
    m_transfers.AddTransfer(std::make_unique<TransferDetail>(transfer));
}

void ModulePanelBase::AddToDetailContainerWindows(DetailContainerWindow* window)
{
    if (window != nullptr)
        m_detailContainerWindows.push_back(window);
}

void ModulePanelBase::BindControlToOnFieldUpdate(DataBaseCombination* combination,
                                                 wxEventTypeTag<wxCommandEvent> tag)
{
    if (combination != nullptr)
        Bind(tag, &ModulePanelBase::OnFieldUpdate, this, combination->GetControlId());
}

void ModulePanelBase::BindControlToOnFieldUpdate(wxPanel* subPanel, wxEventTypeTag<wxCommandEvent> tag)
{
    if (subPanel != nullptr)
        Bind(tag, &ModulePanelBase::OnFieldUpdate, this, subPanel->GetId());
}

void ModulePanelBase::BindControlToOnFieldUpdate(wxEventTypeTag<wxCommandEvent> tag, int id, int lastId)
{
    Bind(tag, &ModulePanelBase::OnFieldUpdate, this, id, lastId);
}

void ModulePanelBase::SetupInputControl(wxTextCtrl* control)
{
    if (control == nullptr)
        return;
    ConnectControlToStatusBar(control);
    m_answeredFields.insert(control->GetId());
    control->Bind(wxEVT_TEXT_ENTER, &ModulePanelBase::OnFieldUpdate, this);
}

void ModulePanelBase::ConnectControlToStatusBar(wxTextCtrl* control)
{
    if (control == nullptr)
        return;
    if (auto* validator = dynamic_cast<Validator*>(control->GetValidator()))
        validator->SetStatusBar(GetStatusBar());
}

void ModulePanelBase::ConnectControlToStatusBar(DataBaseCombination* combination)
{
    if (combination != nullptr)
        ConnectControlToStatusBar(dynamic_cast<wxTextCtrl*>(combination->GetInputWindow()));
}

void ModulePanelBase::UpdateLimitsFromDetail(TvTextCtrl* control, const DetailData* detail)
{
    if (control == nullptr || detail == nullptr || detail->GetUnit().empty())
        return;
    auto* validator = dynamic_cast<DoubleValidator*>(control->GetValidator());
    if (validator == nullptr)
        return;
    const std::string unitSystem = GetCurrentDisplayUnitSystem();
    validator->SetMinValue(UnitSystemManager::FromISO(detail->GetUnit(), unitSystem, detail->GetMinValue()));
    validator->SetMaxValue(UnitSystemManager::FromISO(detail->GetUnit(), unitSystem, detail->GetMaxValue()));
    control->TransferDataToWindow();
}

void ModulePanelBase::FindStatusBar()
{
    for (wxWindow* window = this; window != nullptr; window = window->GetParent()) {
        auto* frame = dynamic_cast<wxFrame*>(window);
        if (frame != nullptr && frame->GetStatusBar() != nullptr) {
            m_statusBar = frame->GetStatusBar();
            return;
        }
    }
}

wxStatusBar* ModulePanelBase::GetStatusBar()
{
    if (!m_statusBar)
        FindStatusBar();
    return m_statusBar.get();
}

bool ModulePanelBase::FocusDetail(const DetailAddress& address)
{
    const DetailData* const wanted = m_project != nullptr ? m_project->FindDetail(address) : nullptr;
    for (const auto& binding : m_transfers.GetBindings()) {
        const auto* transfer = dynamic_cast<const TransferDetail*>(binding.get());
        if (transfer == nullptr || wanted == nullptr || transfer->GetDetail() != wanted ||
            transfer->GetWindow() == nullptr)
            continue;
        AdvancedInputOptions::OpenAround(*transfer->GetWindow());
        if (!transfer->GetWindow()->CanAcceptFocus())
            continue;
        transfer->GetWindow()->SetFocus();
        return true;
    }
    return false;
}
