// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/page_selection_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/support/translation.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

namespace {

constexpr int kMostVisibleRows = 12;

std::vector<ReportPage> ToPages(const std::vector<std::pair<wxString, int>>& pages)
{
    std::vector<ReportPage> result;
    for (const auto& [title, id] : pages)
        result.push_back({.title = title, .id = id});
    return result;
}

}  // namespace

PageSelectionPanel::PageSelectionPanel(const std::vector<ReportPage>& pages, int visibleRows,
                                       wxWindow* parent, int id, const wxPoint& pos, const wxSize& size,
                                       long style, const wxString& name)
    : wxPanel(parent, id, pos, size, style, name), m_pages(pages)
{
    wxArrayString titles;
    for (const ReportPage& page : m_pages)
        titles.push_back(i18n::Translated(page.title));
    m_list = new wxCheckListBox(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, titles);
    m_list->SetMinSize(wxSize(FromDIP(340), std::max(1, visibleRows) * (GetCharHeight() + FromDIP(10))));
    CheckAll(true);
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(m_list, wxSizerFlags().Expand().Proportion(1));
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    const auto add = [&](const char* label, bool check) {
        auto* button = new wxButton(this, wxID_ANY, i18n::Translated(label));
        button->Bind(wxEVT_BUTTON, [this, check](wxCommandEvent&) { CheckAll(check); });
        buttons->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(8)));
    };
    add(wxTRANSLATE("Select all"), true);
    add(wxTRANSLATE("Deselect all"), false);
    outer->Add(buttons, wxSizerFlags().Border(wxTOP, FromDIP(8)));
    SetSizerAndFit(outer);
}

std::vector<ReportPage> PageSelectionPanel::GetChosen() const
{
    std::vector<ReportPage> chosen;
    for (unsigned i = 0; i < m_list->GetCount(); ++i) {
        if (m_list->IsChecked(i))
            chosen.push_back(m_pages[i]);
    }
    return chosen;
}

void PageSelectionPanel::SetChosen(const std::vector<int>& ids)
{
    for (unsigned i = 0; i < m_list->GetCount(); ++i)
        m_list->Check(i, std::find(ids.begin(), ids.end(), m_pages[i].id) != ids.end());
}

void PageSelectionPanel::CheckAll(bool check)
{
    for (unsigned i = 0; i < m_list->GetCount(); ++i)
        m_list->Check(i, check);
}

PageSelectionDialog::PageSelectionDialog(const std::vector<std::pair<wxString, int>>& pages, wxWindow* parent,
                                         int id, const wxString& title, const wxPoint& pos,
                                         const wxSize& size, long style)
    : wxDialog(parent, id, i18n::Translated(title.empty() ? wxString(wxTRANSLATE("Print to PDF")) : title),
               pos, size, style)
{
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(8));
    outer->Add(
        new wxStaticText(this, wxID_ANY, i18n::Translated("Select pages to be included in the PDF report")),
        spaced);
    m_panel = new PageSelectionPanel(ToPages(pages),
                                     std::min(kMostVisibleRows, static_cast<int>(pages.size())), this);
    outer->Add(m_panel, wxSizerFlags(spaced).Expand().Proportion(1));
    outer->Add(dialogs::CreateButtons(*this, true), wxSizerFlags(spaced).Expand());
    SetSizerAndFit(outer);
    FindWindow(wxID_OK)->Bind(wxEVT_UPDATE_UI,
                              [this](wxUpdateUIEvent& event) { event.Enable(!GetActiveReports().empty()); });
    CentreOnParent();
}
