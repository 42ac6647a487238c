// SPDX-License-Identifier: MIT
// What the feed composition asks and tells its user.
#include "gui_base/dialogs/questions.h"
#include "gui_base/dialogs/tv_multichoicedialog.h"
#include "gui_base/ionexchange/feed/compound_editor_dialog.h"
#include "gui_base/ionexchange/feed/compound_editor_panel.h"
#include "gui_base/ionexchange/feed/pfeedcomposition.h"
#include "gui_base/support/translation.h"

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/log.h>

namespace {

constexpr const char* kExtension = "mvcf";

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

wxString Wildcard()
{
    return Tr(wxTRANSLATE("mvcf files")) + " (*.mvcf)|*.mvcf";
}

std::optional<std::vector<int>> Choose(wxWindow* parent, const wxString& caption, const wxString& message,
                                       const std::vector<wxString>& labels)
{
    TvMultiChoiceDialog dialog(parent, message, caption, static_cast<int>(labels.size()), labels.data());
    if (dialog.ShowModal() != wxID_OK)
        return std::nullopt;
    const wxArrayInt chosen = dialog.GetSelections();
    return std::vector<int>(chosen.begin(), chosen.end());
}

}  // namespace

void FeedCompositionPanel::ShowErrorMessage(const wxString& text) const
{
    wxLogError("%s", text);
}

void FeedCompositionPanel::ShowInfoMessage(const wxString& text) const
{
    wxLogInfo("%s", text);
}

void FeedCompositionPanel::ShowMessageBox(const wxString& title, const wxString& text)
{
    dialogs::ShowMessage(this, text, title, wxICON_INFORMATION);
}

std::optional<Compound> FeedCompositionPanel::ShowCompoundEditor(const Compound& compound,
                                                                 const std::vector<std::string>& categories)
{
    CompoundEditorDialog dialog(compound, this, wxID_ANY, Tr(wxTRANSLATE("Compound editor")));
    dialog.GetPanel().SetCategories(categories);
    if (dialog.ShowModal() != wxID_OK)
        return std::nullopt;
    return dialog.GetCompound();
}

wxString FeedCompositionPanel::ShowImportFileDialog()
{
    wxFileDialog dialog(this, Tr(wxTRANSLATE("Open mvcf file")), wxString(), wxString(), Wildcard(),
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    return dialog.ShowModal() == wxID_OK ? dialog.GetPath() : wxString();
}

wxString FeedCompositionPanel::ShowExportFileDialog()
{
    wxFileDialog dialog(this, Tr(wxTRANSLATE("Save mvcf file")), wxString(),
                        wxString("compounds.") + kExtension, Wildcard(), wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK)
        return {};
    wxFileName file(dialog.GetPath());
    if (file.HasExt())
        return file.GetFullPath();
    // The dialog has asked about the name as it was typed only.
    file.SetExt(kExtension);
    const wxString question = Tr(wxTRANSLATE("%s exists already. Replace it?"));
    if (file.FileExists() && dialogs::AskYesNo(this, wxString::Format(question, file.GetFullName()),
                                               Tr("Save mvcf file"), wxICON_QUESTION) != wxID_YES)
        return {};
    return file.GetFullPath();
}

std::optional<std::vector<int>> FeedCompositionPanel::ShowImportCompoundDialog(
    const std::vector<wxString>& labels)
{
    return Choose(this, Tr(wxTRANSLATE("Import Compounds")), Tr(wxTRANSLATE("Choose compounds to import")),
                  labels);
}

std::optional<std::vector<int>> FeedCompositionPanel::ShowExportCompoundDialog(
    const std::vector<wxString>& labels)
{
    return Choose(this, Tr(wxTRANSLATE("Export Compounds")), Tr(wxTRANSLATE("Choose compounds to export")),
                  labels);
}

DuplicateResolutionResult FeedCompositionPanel::ShowDuplicateResolutionDialog(
    const std::vector<DuplicateCompound>& duplicates)
{
    DuplicateResolutionDialog dialog(this, duplicates);
    return dialog.GetResult(dialog.ShowModal());
}
