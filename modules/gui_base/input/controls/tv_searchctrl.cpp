// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_searchctrl.h"

#include "gui_base/support/translation.h"

TvSearchControl::TvSearchControl(wxWindow* parent, int id, const wxString& value, const wxPoint& pos,
                                 const wxSize& size, long style, const wxValidator& validator,
                                 const wxString& name)
    : wxSearchCtrl(parent, id, value, pos, size, style, validator, name)
{}

void TvSearchControl::SetTranslatableToolTip(const wxString& tooltip)
{
    m_tooltip = tooltip;
    ShowTexts();
}

void TvSearchControl::SetTranslatableHint(const wxString& hint)
{
    m_hint = hint;
    ShowTexts();
}

void TvSearchControl::Localize(const std::string&)
{
    ShowTexts();
}

void TvSearchControl::ShowTexts()
{
    if (!m_tooltip.empty())
        SetToolTip(i18n::Translated(m_tooltip));
    if (!m_hint.empty())
        SetDescriptiveText(i18n::Translated(m_hint));
}
