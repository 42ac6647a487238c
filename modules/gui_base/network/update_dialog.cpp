// SPDX-License-Identifier: MIT
#include "gui_base/network/update_dialog.h"

#include "core/number_text.h"
#include "gui_base/dialogs/progress_window.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/network/download_thread.h"
#include "gui_base/network/network.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/button_label.h"
#include "gui_base/support/translation.h"
#include "projectbase/security/sha256.h"
#include "tncommon/atomic_file.h"
#include "wxcurl/curl_events.h"

#include <wx/filename.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include <algorithm>
#include <exception>
#include <filesystem>

namespace {

constexpr int kFieldMargins = 6;
constexpr int kGap = 8;
constexpr int kSteps = 1000;
constexpr std::size_t kMostDescription = std::size_t{1} << 20;
constexpr const char* kDescription = "tarnvik-update.xml";

const wxWindowID kDownload = wxWindow::NewControlId();

wxString SizeText(double bytes)
{
    return wxFileName::GetHumanReadableSize(wxULongLong(static_cast<wxULongLong_t>(bytes)), "0 B", 1,
                                            wxSIZE_CONV_SI);
}

wxString OtherProgram()
{
    return i18n::Translated("The setup program is not the one that the update site described.");
}

std::filesystem::path ToPath(const wxString& path)
{
    return std::filesystem::path(path.utf8_string());
}

}  // namespace

UpdateDialog::UpdateDialog(wxWindow* parent, const wxString& version)
    : wxDialog(parent, wxID_ANY, i18n::Translated("Check for updates"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_version(version)
{
    MakeControls();
    Bind(
        wxCURL_DOWNLOAD_EVENT,
        [this](wxCurlDownloadEvent& event) {
            OnProgress(event.GetDownloadedBytes(), event.GetTotalBytes(), event.GetSpeed());
        },
        kDownload);
    Bind(
        wxCURL_END_PERFORM_EVENT, [this](wxCurlEndPerformEvent&) { OnEnded(); }, kDownload);
    const auto hide = [this](wxEvent&) { Hide(); };
    Bind(wxEVT_BUTTON, hide, wxID_CLOSE);
    Bind(wxEVT_CLOSE_WINDOW, hide);
    SetEscapeId(wxID_CLOSE);
    RefreshControls();
    m_check->SetFocus();
    CentreOnParent();
}

UpdateDialog::~UpdateDialog() = default;

void UpdateDialog::MakeControls()
{
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap));
    outer->Add(new wxStaticText(this, wxID_ANY,
                                wxString::Format(i18n::Translated("This is version %s."), m_version)),
               spaced);
    m_found = new wxStaticText(this, wxID_ANY, wxString());
    outer->Add(m_found, spaced);
    m_notes = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(520, 140)),
                             wxTE_MULTILINE | wxTE_READONLY);
    accessibility::SetName(*m_notes, i18n::Translated("What is new"));
    outer->Add(m_notes, wxSizerFlags(spaced).Proportion(1));
    auto* target = new wxFlexGridSizer(2, FromDIP(wxSize(kGap, kGap)));
    target->AddGrowableCol(1);
    target->Add(new wxStaticText(this, wxID_ANY, i18n::Translated("Save in")),
                wxSizerFlags().CentreVertical());
    m_folder =
        new wxDirPickerCtrl(this, wxID_ANY, wxStandardPaths::Get().GetUserDir(wxStandardPaths::Dir_Downloads),
                            i18n::Translated("Save in"), wxDefaultPosition, wxDefaultSize,
                            wxDIRP_DEFAULT_STYLE | wxDIRP_USE_TEXTCTRL);
    wxTextCtrl* const path = m_folder->GetTextCtrl();
    accessibility::SetName(*path, i18n::Translated("Save in"));
    // As high as the fields of the program.
    path->SetMinSize(wxSize(-1, path->GetCharHeight() + FromDIP(kFieldMargins)));
    m_folder->GetPickerCtrl()->SetLabel(i18n::Translated("Choose..."));
    target->Add(m_folder, wxSizerFlags().Expand());
    outer->Add(target, spaced);
    m_gauge = new wxGauge(this, wxID_ANY, kSteps);
    accessibility::SetName(*m_gauge, i18n::Translated("Progress"));
    outer->Add(m_gauge, spaced);
    m_state =
        new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_MIDDLE);
    outer->Add(m_state, spaced);
    auto* line = new wxBoxSizer(wxHORIZONTAL);
    m_check = AddButton(*line, i18n::Translated("Check &now"), &UpdateDialog::Check);
    m_download = AddButton(*line, i18n::Translated("&Download"), &UpdateDialog::StartDownload);
    m_cancel = AddButton(*line, i18n::Translated("&Cancel download"), &UpdateDialog::CancelDownload);
    m_open = AddButton(*line, i18n::Translated("&Open folder"), &UpdateDialog::OpenFolder);
    line->AddStretchSpacer();
    line->Add(button_label::NewButton(this, wxID_CLOSE, i18n::Translated("C&lose")));
    outer->Add(line, spaced);
    SetSizerAndFit(outer);
}

wxButton* UpdateDialog::AddButton(wxSizer& line, const wxString& label, void (UpdateDialog::*action)())
{
    auto* button = new wxButton(this, wxID_ANY, label);
    button->Bind(wxEVT_BUTTON, [this, action](wxCommandEvent&) { (this->*action)(); });
    line.Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(kGap)));
    return button;
}

// What there is

void UpdateDialog::Check()
{
    if (IsDownloading())
        return;
    m_update = {};
    m_isLoaded = false;
    m_gauge->SetValue(0);
    wxString error;
    const wxString file = wxFileName::CreateTempFileName("tarnvik-update");
    if (file.empty() || !Network::LoadUpdateFile(kDescription, file, true, nullptr, &error)) {
        m_state->SetLabelText(error);
    } else {
        try {
            const auto update =
                ReadUpdateDescription(tncommon::ReadWholeFile(ToPath(file), kMostDescription));
            if (update)
                m_update = *update;
            m_state->SetLabelText(
                update ? wxString() : i18n::Translated("The update site gave no answer that can be read."));
        } catch (const std::exception& problem) {
            m_state->SetLabelText(MessageOf(problem).text);
        }
    }
    Network::RemoveFileIfExists(file);
    ShowUpdate();
}

void UpdateDialog::ShowUpdate()
{
    const wxString version = wxString::FromUTF8(m_update.version);
    wxString notes;
    if (version.empty()) {
        m_found->SetLabel(wxString());
    } else if (IsNewerVersion(m_update.version, m_version.utf8_string())) {
        m_found->SetLabel(wxString::Format(i18n::Translated("Version %s is available (%s)."), version,
                                           SizeText(static_cast<double>(m_update.size))));
        auto note = m_update.notes.find(i18n::TextLanguage().BeforeFirst('_').utf8_string());
        if (note == m_update.notes.end())
            note = m_update.notes.find("en");
        if (note != m_update.notes.end())
            notes = wxString::FromUTF8(note->second);
    } else {
        m_found->SetLabel(i18n::Translated("There is no newer version."));
        m_update = {};
    }
    m_notes->ChangeValue(notes);
    RefreshControls();
    (m_download->IsEnabled() ? m_download : m_check)->SetFocus();
}

void UpdateDialog::RefreshControls()
{
    m_check->Enable(!IsDownloading());
    m_folder->Enable(!IsDownloading());
    m_download->Enable(!m_update.version.empty() && !IsDownloading());
    m_cancel->Enable(IsDownloading());
    m_open->Enable(m_isLoaded);
    Layout();
}

// Download

wxString UpdateDialog::GetTarget() const
{
    return wxFileName(m_folder->GetPath(), wxString::FromUTF8(m_update.file)).GetFullPath();
}

void UpdateDialog::StartDownload()
{
    if (IsDownloading() || m_update.version.empty())
        return;
    m_isLoaded = false;
    m_isTooLong = false;
    m_gauge->SetValue(0);
    m_state->SetLabelText(i18n::Translated("Connecting..."));
    m_thread = std::make_unique<DownloadThread>(this, kDownload);
    wxString error;
    if (Network::LoadSetupFile(wxString::FromUTF8(m_update.file), GetTarget(), m_thread.get(), &error) !=
        wxCTE_NO_ERROR) {
        m_thread.reset();
        m_state->SetLabelText(error);
    }
    RefreshControls();
    if (IsDownloading())
        m_cancel->SetFocus();
}

void UpdateDialog::CancelDownload()
{
    if (m_thread != nullptr)
        m_thread->Cancel();
}

void UpdateDialog::OnProgress(std::int64_t done, std::int64_t total, double speed)
{
    if (!IsDownloading())
        return;
    // A server need not say how much there is.
    const auto all = static_cast<double>(total > 0 ? total : m_update.size);
    const auto loaded = static_cast<double>(done);
    // What is longer than described is something else, and may have no end.
    if (done > m_update.size) {
        m_isTooLong = true;
        CancelDownload();
    }
    m_gauge->SetValue(all > 0.0 ? static_cast<int>(kSteps * std::min(loaded / all, 1.0)) : 0);
    m_state->SetLabelText(wxString::Format(i18n::Translated("%s of %s, %s a second"), SizeText(loaded),
                                           SizeText(all), SizeText(speed)));
}

void UpdateDialog::OnEnded()
{
    if (!IsDownloading())
        return;
    wxString error;
    m_isLoaded =
        Network::FinishDownload(*m_thread, &error, [this](const wxString& path) { return FaultOf(path); });
    const bool wantsUser = !m_isLoaded && m_thread->GetCurlSession()->GetResponseCode() == 407;
    m_thread.reset();
    m_gauge->SetValue(m_isLoaded ? kSteps : 0);
    Show();
    if (wantsUser && Network::ShowAuthenticationDialog()) {
        StartDownload();
        return;
    }
    if (m_isLoaded)
        error = wxString::Format(i18n::Translated("The setup program is %s."), GetTarget());
    else if (m_isTooLong)
        error = OtherProgram();
    m_state->SetLabelText(error);
    RefreshControls();
    (m_isLoaded ? m_open : m_download)->SetFocus();
}

wxString UpdateDialog::FaultOf(const wxString& path)
{
    std::string sum;
    try {
        dialogs::ProgressWindow progress(this, GetTitle(), i18n::Translated("Checking the setup program..."));
        const auto check = [&](const WorkWatch& watch) { sum = Sha256OfFile(ToPath(path), watch); };
        if (!dialogs::RunWithProgress(progress, check))
            return i18n::Translated("The download was cancelled.");
    } catch (const std::exception& problem) {
        return MessageOf(problem).text;
    }
    return sum == m_update.sha256 ? wxString() : OtherProgram();
}

void UpdateDialog::OpenFolder()
{
    wxLaunchDefaultApplication(m_folder->GetPath());
}
