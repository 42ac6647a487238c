// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/nothing_found.h"

#include "gui_base/support/translation.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <utility>

namespace {

constexpr int kGap = 4;

}  // namespace

NothingFound::NothingFound(wxWindow& list, const wxString& button, std::function<void()> clear)
    : wxPanel(list.GetParent()), m_list(list), m_buttonText(button)
{
    Hide();
    SetBackgroundColour(list.GetBackgroundColour());
    m_text = new wxStaticText(this, wxID_ANY, wxString());
    m_text->SetForegroundColour(list.GetForegroundColour());
    m_button = new wxButton(this, wxID_ANY, wxString());
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags line = wxSizerFlags().Centre().Border(wxALL, FromDIP(kGap));
    sizer->Add(m_text, line);
    sizer->Add(m_button, line);
    SetSizer(sizer);
    Localize({});
    m_button->Bind(wxEVT_BUTTON, [clear = std::move(clear)](wxCommandEvent&) { clear(); });
    m_list.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Place();
        event.Skip();
    });
}

void NothingFound::ShowIf(bool nothing)
{
    if (!nothing && m_button->HasFocus())
        m_list.SetFocus();
    Show(nothing);
    Place();
}

void NothingFound::Localize(const std::string&)
{
    m_text->SetLabel(i18n::Translated("Nothing found"));
    m_button->SetLabel(i18n::Translated(m_buttonText));
    Place();
}

void NothingFound::Place()
{
    if (!IsShown())
        return;
    // Below the heads of the columns, and within the frame of the list.
    const wxSize size = GetBestSize();
    const wxRect area = m_list.GetRect();
    const int left = area.x + std::max(0, (area.width - size.x) / 2);
    const int top = area.y + std::max(0, (area.height - size.y + m_list.FromDIP(6 * kGap)) / 2);
    SetSize(wxRect(wxPoint(left, top), size));
    Layout();
    Raise();
}
