// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_checkbox.h"

#include "gui_base/support/translation.h"

TvCheckBox::TvCheckBox(wxWindow* parent, int id, const wxString& label, const wxPoint& pos,
                       const wxSize& size, long style, const wxValidator& validator, const wxString& name,
                       DetailData* detail, const wxString& suffix)
    : wxCheckBox(parent, id, i18n::Translated(label) + suffix, pos, size, style, validator, name),
      m_label(label),
      m_detail(detail),
      m_suffix(suffix)
{
    TransferDetailToWindow();
    TvCheckBox::DoBindEvents();
}

void TvCheckBox::DoBindEvents()
{
    Bind(wxEVT_CHECKBOX, &TvCheckBox::OnClicked, this);
}

void TvCheckBox::OnClicked(wxCommandEvent& event)
{
    SetDetailValue(event.IsChecked());
    event.Skip();
}

void TvCheckBox::SetDetailValue(bool value)
{
    if (m_detail != nullptr)
        m_detail->SetValue(value);
}

void TvCheckBox::TransferDetailToWindow()
{
    if (m_detail != nullptr && GetValue() != m_detail->GetBoolValue())
        SetValue(m_detail->GetBoolValue());
}

void TvCheckBox::Localize(const std::string&)
{
    Localize();
}

void TvCheckBox::Localize()
{
    const wxString label = i18n::Translated(m_label) + m_suffix;
    if (GetLabel() != label)
        wxCheckBox::SetLabel(label);
}

void TvCheckBox::SetLabel(const wxString& label)
{
    m_label = label;
    Localize();
}

void TvCheckBox::SetFontWeight(wxFontWeight weight)
{
    wxFont font = GetFont();
    font.SetWeight(weight);
    SetFont(font);
}
