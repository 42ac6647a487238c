// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_bitmapbutton.h"

#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

TvBitmapButton::TvBitmapButton(wxWindow* parent, int id, const wxBitmapBundle& bitmap, wxWindow* sibling,
                               const wxPoint& pos, const wxSize& size, long style,
                               const wxValidator& validator, const wxString& name)
    : wxBitmapButton(parent, id, bitmap, pos, size, style, validator, name), m_sibling(sibling)
{
    InvalidateBestSize();
    FollowSibling();
    Bind(wxEVT_BUTTON, &TvBitmapButton::OnClicked, this);
    // Not the button's own event: a hidden window is not asked to update itself.
    if (sibling != nullptr)
        parent->Bind(wxEVT_UPDATE_UI, [button = wxWeakRef<TvBitmapButton>(this)](wxUpdateUIEvent& event) {
            event.Skip();
            if (button)
                button->FollowSibling();
        });
}

wxSize TvBitmapButton::DoGetBestSize() const
{
    wxSize best = wxBitmapButton::DoGetBestSize();
    if (m_sibling)
        best.y = m_sibling->GetBestSize().y;
    return best;
}

void TvBitmapButton::FollowSibling()
{
    if (!m_sibling)
        return;
    if (IsThisEnabled() != m_sibling->IsThisEnabled())
        Enable(m_sibling->IsThisEnabled());
    if (IsShown() != m_sibling->IsShown())
        Show(m_sibling->IsShown());
}

void TvBitmapButton::OnClicked(wxCommandEvent& event)
{
    event.Skip();
    if (m_sibling && m_sibling->CanAcceptFocus())
        m_sibling->SetFocus();
}

void TvBitmapButton::SetTranslatableToolTip(const wxString& tooltip)
{
    m_tooltip = tooltip;
    Localize(std::string());
}

void TvBitmapButton::Localize(const std::string&)
{
    if (m_tooltip.empty())
        return;
    const wxString text = i18n::Translated(m_tooltip);
    SetToolTip(text);
    accessibility::SetName(*this, text);
}
