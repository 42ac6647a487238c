// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/file_name_creator.h"

#include "gui_base/support/translation.h"

#include <wx/filedlg.h>
#include <wx/msgdlg.h>

namespace {

bool ConfirmReplacing(wxWindow* parent, const wxFileName& file)
{
    wxMessageDialog dialog(
        parent,
        wxString::Format(i18n::Translated("The file %s exists already. Replace it?"), file.GetFullPath()),
        i18n::Translated("Confirm"), wxYES_NO | wxNO_DEFAULT | wxICON_QUESTION);
    dialog.SetYesNoLabels(i18n::Translated("&Replace"), i18n::Translated("&Cancel"));
    return dialog.ShowModal() == wxID_YES;
}

}  // namespace

wxFileName FileNameCreator::operator()(wxWindow* parent, const wxString& title, const wxString& folder,
                                       const wxString& name, const wxString& wildcard,
                                       const wxString& extension) const
{
    wxFileDialog dialog(parent, title, folder, name, wildcard, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK)
        return {};
    wxFileName file(dialog.GetPath());
    if (!file.HasName() || file.HasExt())
        return file.HasName() ? file : wxFileName();
    file.SetExt(extension);
    // The dialog asked about the name without its ending.
    if (file.FileExists() && !ConfirmReplacing(parent, file))
        return {};
    return file;
}
