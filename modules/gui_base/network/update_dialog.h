// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/network/update_description.h"

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/filepicker.h>
#include <wx/gauge.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <cstdint>
#include <memory>

class DownloadThread;

/// Looks whether there is a newer version and loads its setup program. Modeless: closed while a download runs
/// it only hides, and comes back by itself when the download has ended.
class GUI_BASE_EXPORT UpdateDialog : public wxDialog
{
public:
    /// `version` is the one that runs.
    UpdateDialog(wxWindow* parent, const wxString& version);
    /// A download that still runs is cancelled.
    ~UpdateDialog() override;

    bool IsDownloading() const { return m_thread != nullptr; }
    /// Asks the update site; the dialog shows what it says.
    void Check();

private:
    void MakeControls();
    wxButton* AddButton(wxSizer& line, const wxString& label, void (UpdateDialog::*action)());
    void ShowUpdate();
    void RefreshControls();
    void StartDownload();
    void CancelDownload();
    void OnProgress(std::int64_t done, std::int64_t total, double speed);
    void OnEnded();
    /// What is wrong with a setup program that came whole: it may be another one than the site described.
    wxString FaultOf(const wxString& path);
    void OpenFolder();
    wxString GetTarget() const;

    wxString m_version;
    UpdateDescription m_update;  ///< empty before one is known
    wxStaticText* m_found = nullptr;
    wxTextCtrl* m_notes = nullptr;
    wxDirPickerCtrl* m_folder = nullptr;
    wxGauge* m_gauge = nullptr;
    wxStaticText* m_state = nullptr;
    wxButton* m_check = nullptr;
    wxButton* m_download = nullptr;
    wxButton* m_cancel = nullptr;
    wxButton* m_open = nullptr;
    bool m_isLoaded = false;
    bool m_isTooLong = false;
    std::unique_ptr<DownloadThread> m_thread;
};
