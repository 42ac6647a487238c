// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_statictext.h"

#include "gui_base/support/translation.h"

TvStaticText::TvStaticText(wxWindow* parent, int id, const wxString& label, const wxString& suffix)
    : TvStaticText(parent, id, label, wxDefaultPosition, wxDefaultSize, 0, wxASCII_STR(wxStaticTextNameStr),
                   suffix, wxString())
{}

TvStaticText::TvStaticText(wxWindow* parent, int id, const wxString& label, const wxPoint& pos,
                           const wxSize& size, long style, const wxString& name, const wxString& suffix,
                           const wxString& tooltip)
    : wxStaticText(parent, id, wxControl::EscapeMnemonics(i18n::Translated(label) + suffix), pos, size, style,
                   name),
      m_label(label),
      m_suffix(suffix),
      m_tooltip(tooltip)
{
    ShowTexts();
}

void TvStaticText::SetLabelText(const wxString& label)
{
    m_label = label;
    ShowTexts();
}

void TvStaticText::SetTranslatableToolTip(const wxString& tooltip)
{
    m_tooltip = tooltip;
    ShowTexts();
}

void TvStaticText::Localize(const std::string&)
{
    ShowTexts();
}

void TvStaticText::ShowTexts()
{
    const wxString label = i18n::WithSuffix(i18n::Translated(m_label), m_suffix);
    if (wxStaticText::GetLabelText() != label)
        wxStaticText::SetLabelText(label);
    if (!m_tooltip.empty())
        SetToolTip(i18n::Translated(m_tooltip));
}
