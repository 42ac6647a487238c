// SPDX-License-Identifier: MIT
// Files of the main window: opening, saving, autosave and recovery.
#include "app/document/recent_files.h"
#include "app/frame/main_frame.h"
#include "app/frame/message_log.h"
#include "gui_base/input/events.h"
#include "gui_base/support/translation.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/recovery_file.h"
#include "projectbase/settings/settings.h"

#include <wx/msgdlg.h>

namespace app {

bool MainFrame::OpenFile(const std::filesystem::path& path)
{
    try {
        auto project = ProjectFile::Load(path);
        project->SetUnitSystemDisplay(m_document->GetProject().GetUnitSystemDisplay());
        project->CalculateDesign();
        SetDocument(std::make_unique<Document>(std::move(project), path));
        RememberFile(path);
        return true;
    } catch (const std::exception& error) {
        ReportError(UserText(error));
        return false;
    }
}

void MainFrame::OfferRecovery()
{
    for (const RecoverableFile& file : RecoveryFile::List()) {
        const wxString name =
            file.project.empty() ? i18n::Translated("Untitled") : wxString::FromUTF8(file.project.string());
        wxMessageDialog dialog(
            this,
            wxString::Format(
                i18n::Translated("The program ended before this project was saved:\n%s\n\nRestore it?"),
                name),
            i18n::Translated("Confirm"), wxYES_NO | wxCENTRE | wxICON_QUESTION);
        dialog.SetYesNoLabels(i18n::Translated("&Restore"), i18n::Translated("&Discard"));
        try {
            const bool restore = dialog.ShowModal() == wxID_YES;
            if (restore)
                Restore(file);
            RecoveryFile::Discard(file);
            if (restore)
                return;
        } catch (const std::exception& error) {
            ReportError(UserText(error));
        }
    }
}

void MainFrame::Restore(const RecoverableFile& file)
{
    auto project = RecoveryFile::Load(file);
    project->SetUnitSystemDisplay(m_document->GetProject().GetUnitSystemDisplay());
    project->CalculateDesign();
    auto document = std::make_unique<Document>(std::move(project), file.project);
    // The unsaved work stays recoverable until it is saved or given up.
    document->Autosave();
    SetDocument(std::move(document));
}

bool MainFrame::SaveFile(const std::filesystem::path& path)
{
    try {
        m_document->Save(path);
    } catch (const std::exception& error) {
        ReportError(UserText(error));
        return false;
    }
    RememberFile(path);
    UpdateTitle();
    return true;
}

void MainFrame::RememberFile(const std::filesystem::path& path)
{
    try {
        AddRecentFile(path);
    } catch (const std::exception& error) {
        ReportError(wxString::FromUTF8(error.what()));
    }
    events::SendEvent(this, tvUPDATEPROJECTLIST_EVENT, GetId(), 0, wxString());
}

void MainFrame::RestartAutosave()
{
    const long minutes = Settings::GetSetting("autosave.minutes").GetLongValue();
    m_autosave.SetOwner(this);
    if (minutes > 0)
        m_autosave.Start(static_cast<int>(minutes) * 60 * 1000);
    else
        m_autosave.Stop();
}

void MainFrame::OnAutosave(wxTimerEvent&)
{
    try {
        m_document->Autosave();
    } catch (const std::exception& error) {
        ReportError(UserText(error));
    }
}

}  // namespace app
