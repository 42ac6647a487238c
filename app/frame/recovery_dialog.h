// SPDX-License-Identifier: MIT
#pragma once

#include "projectbase/project/recovery_file.h"

#include <wx/dialog.h>
#include <wx/listctrl.h>

#include <chrono>
#include <vector>

class wxButton;
class wxStaticText;

namespace app {

/// The unsaved work of programs that ended unexpectedly: each copy with its file, its time and what was done.
/// OK restores the selected one. Whatever else closes the dialog means "later": all copies stay.
class RecoveryDialog : public wxDialog
{
public:
    RecoveryDialog(wxWindow* parent, std::vector<RecoverableFile> files);

    /// The selected copy, or null.
    const RecoverableFile* GetChosen() const;

private:
    void AddList();
    void ShowEdits();
    /// Asks by name and time, then the copy is gone.
    void OnDiscard();

    std::vector<RecoverableFile> m_files;
    wxListView* m_list;
    wxStaticText* m_edits;
};

}  // namespace app
