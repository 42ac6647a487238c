// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_radiobutton.h"

#include "gui_base/support/translation.h"

TvRadioButton::TvRadioButton(wxWindow* parent, int id, const wxString& label, const wxPoint& pos,
                             const wxSize& size, long style, const wxValidator& validator,
                             const wxString& name)
    : wxRadioButton(parent, id, i18n::Translated(label), pos, size, style, validator, name), m_label(label)
{}

void TvRadioButton::SetTranslatableToolTip(const wxString& tooltip)
{
    m_tooltip = tooltip;
    SetToolTip(i18n::Translated(m_tooltip));
}

void TvRadioButton::Localize(const std::string&)
{
    SetLabel(i18n::Translated(m_label));
    if (!m_tooltip.empty())
        SetToolTip(i18n::Translated(m_tooltip));
}
