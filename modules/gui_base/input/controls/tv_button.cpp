// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_button.h"

#include "gui_base/support/translation.h"

TvButton::TvButton(wxWindow* parent, int id, const wxString& label, const wxPoint& pos, const wxSize& size,
                   long style, const wxValidator& validator, const wxString& name)
    : wxButton(parent, id, i18n::Translated(label), pos, size, style, validator, name), m_label(label)
{}

void TvButton::SetTranslatableToolTip(const wxString& tooltip, const wxString& remark)
{
    m_tooltip = tooltip;
    m_remark = remark;
    ShowTexts();
}

void TvButton::Localize(const std::string&)
{
    ShowTexts();
}

void TvButton::ShowTexts()
{
    const wxString label = i18n::Translated(m_label);
    if (GetLabel() != label)
        SetLabel(label);
    if (m_tooltip.empty())
        return;
    wxString tooltip = i18n::Translated(m_tooltip);
    if (!m_remark.empty())
        tooltip += "\n" + i18n::Translated(m_remark);
    SetToolTip(tooltip);
}
