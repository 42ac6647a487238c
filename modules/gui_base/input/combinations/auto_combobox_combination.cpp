// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/auto_combobox_combination.h"

#include <wx/utils.h>

#include <stdexcept>

namespace {

/// Before anything is made. Returns `parent`.
wxWindow* RequireDetail(const DetailData* detail, wxWindow* parent)
{
    if (detail == nullptr)
        throw std::runtime_error("tvAutoComboBoxCombination::tvAutoComboBoxCombination: no detail");
    return parent;
}

}  // namespace

tvAutoComboBoxCombination::tvAutoComboBoxCombination(wxWindow* parent, int id, const wxString& label,
                                                     const wxString& suffix,
                                                     const tvAutoComboBox::Entries& entries,
                                                     DetailData* detail, wxSizer* sizer, const wxSize& size)
    : LabelledRow(RequireDetail(detail, parent), label, suffix, sizer), m_detail(detail)
{
    AddControl(new tvAutoComboBox(entries, parent, id, wxDefaultPosition, size));
    GetComboBox()->Bind(wxEVT_KEY_DOWN, &tvAutoComboBoxCombination::OnKeyDown, this);
    GetComboBox()->Bind(wxEVT_COMBOBOX_DROPDOWN, &tvAutoComboBoxCombination::OnDropDown, this);
    GetComboBox()->Bind(wxEVT_COMBOBOX, &tvAutoComboBoxCombination::OnSelected, this);
    GetComboBox()->Bind(wxEVT_KILL_FOCUS, &tvAutoComboBoxCombination::OnKillFocus, this);
    tvAutoComboBoxCombination::TransferDetailToWindow();
}

tvAutoComboBoxCombination::~tvAutoComboBoxCombination()
{
    tvAutoComboBox* box = GetComboBox();
    if (box == nullptr)
        return;
    box->Unbind(wxEVT_KEY_DOWN, &tvAutoComboBoxCombination::OnKeyDown, this);
    box->Unbind(wxEVT_COMBOBOX_DROPDOWN, &tvAutoComboBoxCombination::OnDropDown, this);
    box->Unbind(wxEVT_COMBOBOX, &tvAutoComboBoxCombination::OnSelected, this);
    box->Unbind(wxEVT_KILL_FOCUS, &tvAutoComboBoxCombination::OnKillFocus, this);
}

void tvAutoComboBoxCombination::SetEntries(const tvAutoComboBox::Entries& entries)
{
    if (tvAutoComboBox* box = GetComboBox()) {
        box->Set(entries);
        TransferDetailToWindow();
    }
}

void tvAutoComboBoxCombination::TransferDetailToWindow()
{
    tvAutoComboBox* box = GetComboBox();
    if (box == nullptr)
        return;
    m_isTyping = false;
    m_isShowing = true;
    box->SetDefault(m_detail->GetStringValue());
    m_isShowing = false;
}

void tvAutoComboBoxCombination::DoLocalize(const std::string& unitSystem)
{
    m_isShowing = true;
    GetComboBox()->Localize(unitSystem);
    m_isShowing = false;
}

void tvAutoComboBoxCombination::OnKeyDown(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    m_isTyping = key != WXK_RETURN && key != WXK_NUMPAD_ENTER;
    if (!m_isTyping)
        Commit();
    event.Skip();
}

void tvAutoComboBoxCombination::OnDropDown(wxCommandEvent& event)
{
    // The next selection is a choice from the list, not the proposal for a typed text.
    m_isTyping = false;
    event.Skip();
}

void tvAutoComboBoxCombination::OnSelected(wxCommandEvent&)
{
    if (!m_isTyping && !m_isShowing && GetComboBox()->wxComboBox::GetSelection() != wxNOT_FOUND)
        Commit();
}

void tvAutoComboBoxCombination::OnKillFocus(wxFocusEvent& event)
{
    event.Skip();
    if (!GetComboBox()->IsBeingDeleted() && m_isTyping)
        Commit();
    m_isTyping = false;
}

int tvAutoComboBoxCombination::FindEntry() const
{
    const int selection = GetComboBox()->wxComboBox::GetSelection();
    return selection != wxNOT_FOUND ? selection : GetComboBox()->FindString(GetComboBox()->GetValue());
}

void tvAutoComboBoxCombination::Commit()
{
    const int index = FindEntry();
    if (index == wxNOT_FOUND) {
        wxBell();
        TransferDetailToWindow();
        return;
    }
    const wxString id = GetComboBox()->GetEntries()[static_cast<std::size_t>(index)].first;
    if (id == m_detail->GetStringValue())
        return;
    m_detail->SetValue(id);
    SendChange(id);
}
