// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/tv_multichoicedialog.h"

#include "gui_base/support/button_label.h"
#include "gui_base/support/translation.h"

#include <wx/button.h>
#include <wx/checklst.h>
#include <wx/sizer.h>

#include <algorithm>

namespace {

/// The box before a text, the scroll bar and the gaps.
constexpr int kBesideText = 64;
constexpr int kRowGap = 10;
constexpr int kFrame = 6;
constexpr int kFewestRows = 3;
constexpr int kMostRows = 16;

}  // namespace

TvMultiChoiceDialog::TvMultiChoiceDialog(wxWindow* parent, const wxString& message, const wxString& caption,
                                         int n, const wxString* choices, long style, const wxPoint& pos)
{
    // Not by the base's constructor, which would make a list of its own.
    Create(parent, message, caption, n, choices, style, pos);
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    const auto add = [&](const char* label, void (TvMultiChoiceDialog::*handler)(wxCommandEvent&)) {
        auto* button = new wxButton(this, wxID_ANY, i18n::Translated(label));
        button->Bind(wxEVT_BUTTON, handler, this);
        buttons->Add(button, wxSizerFlags().Border(buttons->IsEmpty() ? 0 : wxLEFT, FromDIP(8)));
        // In reading order: behind the list, before OK and Cancel.
        button->MoveAfterInTabOrder(m_listbox);
        return button;
    };
    wxButton* all = add(wxTRANSLATE("Select all"), &TvMultiChoiceDialog::OnSelectAll);
    add(wxTRANSLATE("Deselect all"), &TvMultiChoiceDialog::OnDeselectAll)->MoveAfterInTabOrder(all);
    // The toolkit has three times its usual border beside the list.
    const int side = 3 * wxSizerFlags::GetDefaultBorder();
    // Below the message and the list, above the standard buttons.
    GetSizer()->Insert(std::min<std::size_t>(2, GetSizer()->GetItemCount()), buttons,
                       wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, side));
    // The standard buttons at the same edges.
    wxSizerItem* const last = GetSizer()->GetItem(GetSizer()->GetItemCount() - 1);
    last->SetBorder(side);
    for (const auto& [id, label] :
         {std::pair(wxID_OK, wxTRANSLATE("OK")), {wxID_CANCEL, wxTRANSLATE("&Cancel")}}) {
        if (auto* const button = dynamic_cast<wxButton*>(FindWindow(id)))
            button_label::Set(*button, i18n::Translated(label));
    }
    GetSizer()->SetSizeHints(this);
    Fit();
}

wxListBoxBase* TvMultiChoiceDialog::CreateList(int n, const wxString* choices, long style)
{
    wxListBoxBase* list = wxMultiChoiceDialog::CreateList(0, nullptr, style & ~wxLB_ALWAYS_SB);
    if (n <= 0)
        return list;
    // The toolkit measures every text of a list, which takes seconds for 100,000 of them; the longest will
    // do.
    const wxString* longest = std::max_element(
        choices, choices + n,
        [](const wxString& one, const wxString& other) { return one.length() < other.length(); });
    const wxSize text = list->GetTextExtent(*longest);
    list->SetMinSize(
        wxSize(text.x + FromDIP(kBesideText),
               std::clamp(n, kFewestRows, kMostRows) * (text.y + FromDIP(kRowGap)) + 2 * FromDIP(kFrame)));
    list->Append(wxArrayString(static_cast<std::size_t>(n), choices));
    return list;
}

void TvMultiChoiceDialog::CheckAll(bool check)
{
    auto* list = dynamic_cast<wxCheckListBox*>(m_listbox);
    for (unsigned i = 0; list != nullptr && i < list->GetCount(); ++i)
        list->Check(i, check);
}

void TvMultiChoiceDialog::OnSelectAll(wxCommandEvent&)
{
    CheckAll(true);
}

void TvMultiChoiceDialog::OnDeselectAll(wxCommandEvent&)
{
    CheckAll(false);
}
