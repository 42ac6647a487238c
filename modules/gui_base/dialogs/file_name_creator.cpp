// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/file_name_creator.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/support/file_path.h"

#include <wx/filedlg.h>

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
    if (file.FileExists() && !dialogs::ConfirmReplacing(parent, ShownPath(PathOf(file.GetFullPath())), title))
        return {};
    return file;
}
