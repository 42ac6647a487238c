// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/file_name_creator.h"

#include <wx/filedlg.h>

wxFileName FileNameCreator::operator()(wxWindow* parent, const wxString& title, const wxString& folder,
                                       const wxString& name, const wxString& wildcard,
                                       const wxString& extension) const
{
    wxFileDialog dialog(parent, title, folder, name, wildcard, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK)
        return {};
    wxFileName file(dialog.GetPath());
    if (!file.HasExt())
        file.SetExt(extension);
    return file;
}
