// SPDX-License-Identifier: MIT
#include "app/frame/recovery_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/list_column.h"
#include "gui_base/support/translation.h"
#include "projectbase/details/date_text.h"

#include <wx/button.h>
#include <wx/datetime.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

namespace app {

namespace {

constexpr int kWidth = 640;
/// As many edits as have room in the line below the list.
constexpr std::size_t kShownEdits = 12;

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

wxString NameOf(const RecoverableFile& file)
{
    if (!file.project.empty())
        return ShownPath(file.project);
    const wxString title = ShownText(file.title);
    return title.empty() ? Tr("Untitled") : Tr("Untitled") + " (" + title + ")";
}

/// The last edits, the newest first.
wxString EditsText(const RecoverableFile& file)
{
    wxString text;
    const std::vector<std::string>& edits = file.work.edits;
    for (std::size_t i = 0; i < std::min(edits.size(), kShownEdits); ++i) {
        text += text.empty() ? wxString() : ", ";
        text += i18n::Translated(wxString::FromUTF8(edits[edits.size() - 1 - i]));
    }
    return edits.size() > kShownEdits ? text + ", ..." : text;
}

}  // namespace

RecoveryDialog::RecoveryDialog(wxWindow* parent, std::vector<RecoverableFile> files)
    : wxDialog(parent, wxID_ANY, Tr(wxTRANSLATE("Unsaved work")), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_files(std::move(files)),
      m_list(new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(kWidth, 160)),
                            wxLC_REPORT | wxLC_SINGLE_SEL)),
      m_edits(new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(kWidth, 56)),
                               wxST_NO_AUTORESIZE))
{
    AddList();
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(8)).Expand();
    outer->Add(
        new wxStaticText(this, wxID_ANY,
                         Tr(wxTRANSLATE("The program ended before these projects were saved. Restore one?"))),
        spaced);
    outer->Add(m_list, wxSizerFlags(spaced).Proportion(1));
    outer->Add(m_edits, spaced);
    auto* discard = new wxButton(this, wxID_ANY, Tr(wxTRANSLATE("&Discard...")));
    discard->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnDiscard(); });
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(discard, wxSizerFlags().CentreVertical());
    row->AddStretchSpacer();
    row->Add(dialogs::CreateButtons(*this, true, wxTRANSLATE("&Restore"), wxTRANSLATE("&Later")),
             wxSizerFlags().CentreVertical());
    outer->Add(row, spaced);
    SetSizerAndFit(outer);
    m_list->SetFocus();
    CentreOnParent();
}

void RecoveryDialog::AddList()
{
    list_column::Append(*m_list, Tr(wxTRANSLATE("Project")), 480);
    list_column::Append(*m_list, Tr(wxTRANSLATE("Kept at")), 140);
    accessibility::SetName(*m_list, Tr("Unsaved work"));
    for (const RecoverableFile& file : m_files) {
        const long item = m_list->InsertItem(m_list->GetItemCount(), NameOf(file));
        m_list->SetItem(item, 1, MomentText(file.savedAt));
    }
    m_list->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { ShowEdits(); });
    m_list->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { EndModal(wxID_OK); });
    if (!m_files.empty()) {
        m_list->Select(0);
        m_list->Focus(0);
        ShowEdits();
    }
}

const RecoverableFile* RecoveryDialog::GetChosen() const
{
    const long selected = m_list->GetFirstSelected();
    return selected < 0 ? nullptr : &m_files[static_cast<std::size_t>(selected)];
}

void RecoveryDialog::ShowEdits()
{
    const RecoverableFile* file = GetChosen();
    const wxString edits = file == nullptr ? wxString() : EditsText(*file);
    m_edits->SetLabelText(
        edits.empty() ? edits : wxString::Format(Tr(wxTRANSLATE("Changed, newest first: %s")), edits));
    m_edits->Wrap(FromDIP(kWidth));
}

void RecoveryDialog::OnDiscard()
{
    const RecoverableFile* file = GetChosen();
    if (file == nullptr)
        return;
    const wxString question = wxString::Format(
        Tr(wxTRANSLATE("Do you really want to discard the unsaved work on\n%s\nkept at %s?")), NameOf(*file),
        MomentText(file->savedAt));
    if (dialogs::AskYesNo(this, question, Tr(wxTRANSLATE("Discard unsaved work")), wxICON_WARNING) !=
        wxID_YES)
        return;
    RecoveryFile::Discard(*file);
    const long row = m_list->GetFirstSelected();
    m_files.erase(m_files.begin() + row);
    m_list->DeleteItem(row);
    if (m_files.empty()) {
        EndModal(wxID_CANCEL);
        return;
    }
    m_list->Select(std::min<long>(row, static_cast<long>(m_files.size()) - 1));
    ShowEdits();
}

}  // namespace app
