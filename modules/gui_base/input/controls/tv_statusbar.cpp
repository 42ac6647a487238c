// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_statusbar.h"

#include "gui_base/support/translation.h"

TvStatusBar::TvStatusBar(wxWindow* parent, int id, long style, const wxString& name)
    : wxStatusBar(parent, id, style, name)
{}

void TvStatusBar::SetStatusText(const wxString& text, int field)
{
    m_fieldTexts[field] = text;
    Show(text, field);
}

void TvStatusBar::Localize()
{
    for (const auto& [field, text] : m_fieldTexts)
        Show(text, field);
}

void TvStatusBar::Show(const wxString& text, int field)
{
    m_showing = true;
    wxStatusBar::SetStatusText(i18n::Translated(text), field);
    m_showing = false;
}

void TvStatusBar::DoUpdateStatusText(int field)
{
    if (!m_showing)
        m_fieldTexts[field] = GetStatusText(field);
    wxStatusBar::DoUpdateStatusText(field);
}
