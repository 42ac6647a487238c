// SPDX-License-Identifier: MIT
#include "app/frame/message_strip.h"

#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include <algorithm>

namespace app {
namespace {

constexpr int kStripHeight = 30;
/// Head and more than three lines.
constexpr int kOpenHeight = 150;
constexpr int kLeastOpenHeight = 130;

wxString Number(std::size_t number, const char* one, const char* many)
{
    return number == 1 ? i18n::Translated(one)
                       : wxString::Format(i18n::Translated(many), static_cast<unsigned long>(number));
}

}  // namespace

MessageStrip::MessageStrip(wxWindow* parent) : wxPanel(parent), m_expandedHeight(FromDIP(kOpenHeight))
{
    m_count = new wxButton(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
    m_symbol = new wxStaticBitmap(this, wxID_ANY, wxBitmapBundle());
    m_newest = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    m_list = new MessageArea(this);
    auto* line = new wxBoxSizer(wxHORIZONTAL);
    line->Add(m_symbol, wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(8)));
    line->Add(m_count, wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(4)));
    line->Add(m_newest, wxSizerFlags(1).CentreVertical().Border(wxLEFT | wxRIGHT, FromDIP(8)));
    line->SetMinSize(wxSize(-1, GetStripHeight()));
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(line, wxSizerFlags().Expand());
    outer->Add(m_list, wxSizerFlags(1).Expand());
    SetSizer(outer);
    m_list->Hide();
    m_count->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Toggle(); });
    m_newest->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { Toggle(); });
    m_list->SetOnChanged([this](bool isNew) { OnMessagesChanged(isNew); });
    Localize();
}

int MessageStrip::GetStripHeight() const
{
    return FromDIP(kStripHeight);
}

void MessageStrip::SetExpandedHeight(int height)
{
    m_expandedHeight = std::max(height, FromDIP(kLeastOpenHeight));
}

void MessageStrip::SetHeight(int height)
{
    const bool isOpen = height > 2 * GetStripHeight();
    m_openedItself = false;
    if (isOpen)
        SetExpandedHeight(height);
    Expand(isOpen);
}

void MessageStrip::Toggle()
{
    m_openedItself = false;
    Expand(!m_isExpanded);
}

void MessageStrip::Expand(bool expand)
{
    m_isExpanded = expand;
    m_list->Show(expand);
    ShowCount();
    Layout();
    if (m_onToggled)
        m_onToggled();
}

void MessageStrip::OnMessagesChanged(bool isNew)
{
    if (isNew && !m_isExpanded) {
        m_openedItself = true;
        Expand(true);
    } else if (m_openedItself && m_list->GetItemCount() == 0) {
        m_openedItself = false;
        Expand(false);
    }
    ShowCount();
}

void MessageStrip::ShowCount()
{
    const std::size_t problems = m_list->CountProblems();
    const auto all = static_cast<std::size_t>(m_list->GetItemCount());
    wxString count = i18n::Translated("No problems");
    if (problems > 0)
        count = Number(problems, wxTRANSLATE("1 problem"), wxTRANSLATE("%lu problems"));
    else if (all > 0)
        count = Number(all, wxTRANSLATE("1 note"), wxTRANSLATE("%lu notes"));
    const wxString arrow = wxString::FromUTF8(m_isExpanded ? "▾ " : "▸ ");
    m_count->SetLabel(arrow + count);
    const wxBitmapBundle picture = m_list->GetWorstPicture();
    m_symbol->Show(picture.IsOk());
    if (picture.IsOk())
        m_symbol->SetBitmap(picture);
    accessibility::SetName(*m_count, count);
    const wxString newest = m_isExpanded ? wxString() : m_list->GetNewestText();
    m_newest->SetLabel(wxControl::EscapeMnemonics(newest));
    // A narrow window shows its beginning.
    m_newest->SetToolTip(newest);
    Layout();
}

void MessageStrip::Localize()
{
    m_list->Localize();
    ShowCount();
}

}  // namespace app
