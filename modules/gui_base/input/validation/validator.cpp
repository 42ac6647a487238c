// SPDX-License-Identifier: MIT
#include "gui_base/input/validation/validator.h"

#include <wx/combobox.h>
#include <wx/settings.h>
#include <wx/textctrl.h>
#include <wx/textentry.h>
#include <wx/utils.h>

namespace {

wxTextEntry* TextEntryOf(wxWindow* window)
{
    return dynamic_cast<wxTextEntry*>(window);
}

/// Kill-focus also arrives while windows are torn down, when nobody is left to receive a commit.
bool IsBeingTornDown(const wxWindow* window)
{
    for (; window != nullptr; window = window->GetParent()) {
        if (window->IsBeingDeleted())
            return true;
        if (window->IsTopLevel())
            break;
    }
    return false;
}

}  // namespace

Validator::Validator(int flags) : m_flags(flags)
{
    InitDefaultColour();
    BindEvents();
}

Validator::Validator(const Validator& other)
    : wxValidator(other),
      m_flags(other.m_flags),
      m_defaultColour(other.m_defaultColour),
      m_statusBar(other.m_statusBar),
      m_shownText(other.m_shownText)
{
    InitDefaultColour();
    BindEvents();
}

Validator& Validator::operator=(const Validator& other)
{
    // The event bindings stay this object's own.
    m_validatorWindow = other.m_validatorWindow;
    m_flags = other.m_flags;
    m_defaultColour = other.m_defaultColour;
    m_statusBar = other.m_statusBar;
    m_shownText = other.m_shownText;
    return *this;
}

void Validator::InitDefaultColour()
{
    if (!m_defaultColour.IsOk())
        m_defaultColour = m_validatorWindow != nullptr ? m_validatorWindow->GetBackgroundColour()
                                                       : wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
}

void Validator::BindEvents()
{
    Bind(wxEVT_CHAR, &Validator::OnChar, this);
    Bind(wxEVT_SET_FOCUS, &Validator::OnFocusGot, this);
    Bind(wxEVT_KILL_FOCUS, &Validator::OnFocusLost, this);
    const auto passOn = [](wxCommandEvent& event) { event.Skip(); };
    Bind(wxEVT_TEXT, passOn);
    Bind(wxEVT_TEXT_ENTER, passOn);
}

bool Validator::Validate(wxWindow*)
{
    TransferFromWindow();
    return true;
}

bool Validator::TransferToWindow()
{
    DoTransferToWindow();
    return true;
}

bool Validator::TransferFromWindow()
{
    if (IsControlModified())
        DoTransferFromWindow();
    return true;
}

void Validator::SendTextEventToControl()
{
    if (m_validatorWindow == nullptr)
        return;
    wxCommandEvent event(wxEVT_TEXT_ENTER, m_validatorWindow->GetId());
    event.SetEventObject(m_validatorWindow);
    m_validatorWindow->GetEventHandler()->ProcessEvent(event);
}

wxString Validator::GetControlValue() const
{
    const wxTextEntry* entry = TextEntryOf(m_validatorWindow);
    return entry != nullptr ? entry->GetValue() : wxString();
}

void Validator::SetControlValue(const wxString& text)
{
    wxTextEntry* entry = TextEntryOf(m_validatorWindow);
    if (entry == nullptr)
        return;
    if (entry->GetValue() != text)
        entry->ChangeValue(text);
    m_shownText = text;
    // A text that the program shows is no edit, also when it equals what the user typed; otherwise the next
    // loss of focus would parse the rounded text again.
    if (auto* textCtrl = dynamic_cast<wxTextCtrl*>(m_validatorWindow))
        textCtrl->DiscardEdits();
}

bool Validator::IsControlEmpty() const
{
    wxString text = GetControlValue();
    return text.Trim(true).Trim(false).empty();
}

bool Validator::IsControlModified() const
{
    if (const auto* textCtrl = dynamic_cast<const wxTextCtrl*>(m_validatorWindow))
        return textCtrl->IsModified();
    return TextEntryOf(m_validatorWindow) != nullptr && GetControlValue() != m_shownText;
}

void Validator::SetControlBackgroundColor(const wxColour& colour)
{
    if (m_validatorWindow == nullptr || m_validatorWindow->GetBackgroundColour() == colour)
        return;
    m_validatorWindow->SetBackgroundColour(colour);
    m_validatorWindow->SetForegroundColour(
        colour == m_defaultColour ? wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT) : *wxBLACK);
    m_validatorWindow->Refresh();
}

void Validator::SetStatusbarText(const wxString& text, int field)
{
    if (m_statusBar && field < m_statusBar->GetFieldsCount())
        m_statusBar->SetStatusText(text, field);
}

void Validator::ClearStatusbar()
{
    if (!m_statusBar)
        return;
    for (int field = 0; field < m_statusBar->GetFieldsCount(); ++field)
        m_statusBar->SetStatusText(wxString(), field);
}

void Validator::OnChar(wxKeyEvent& event)
{
    if (event.HasModifiers() || IsAllowedKey(event.GetKeyCode()))
        event.Skip();
    else if (!wxValidator::IsSilent())
        wxBell();
}

void Validator::OnFocusGot(wxFocusEvent& event)
{
    UpdateStatusbar();
    event.Skip();
}

bool Validator::CommitIfModified()
{
    if (!IsControlModified())
        return true;
    // A handler of the commit may destroy the control and this validator with it.
    const wxWeakRef<wxWindow> control(m_validatorWindow);
    TransferFromWindow();
    SendTextEventToControl();
    if (!control)
        return false;
    if (auto* textCtrl = dynamic_cast<wxTextCtrl*>(m_validatorWindow))
        textCtrl->DiscardEdits();
    m_shownText = GetControlValue();
    return true;
}

void Validator::OnFocusLost(wxFocusEvent& event)
{
    event.Skip();
    if (m_validatorWindow != nullptr && !IsBeingTornDown(m_validatorWindow) && CommitIfModified())
        ClearStatusbar();
}
