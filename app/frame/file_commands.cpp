// SPDX-License-Identifier: MIT
#include "app/frame/file_commands.h"

#include "app/document/recent_files.h"
#include "app/document/templates.h"
#include "app/frame/main_frame.h"
#include "app/frame/menu_table.h"
#include "app/frame/message_log.h"
#include "app/frame/template_dialog.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/support/translation.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/recovery_file.h"
#include "projectbase/settings/settings.h"

#include <wx/filedlg.h>
#include <wx/msgdlg.h>

namespace app {
namespace {

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

wxString Wildcard()
{
    return Tr("Tarnvik projects") + " (*.tarnvik)|*.tarnvik|" + Tr("All files") + "|*";
}

}  // namespace

FileCommands::FileCommands(MainFrame& frame) : m_frame(frame)
{
    m_autosave.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Autosave(); });
    m_frame.Bind(tvUPDATEPROJECTLIST_EVENT, [this](wxCommandEvent&) {
        if (m_recentMenu != nullptr)
            FillRecentMenu(*m_recentMenu);
    });
}

void FileCommands::New()
{
    CommitFocusedField();
    if (ConfirmDiscard())
        ShowNew(NewEmptyProject());
}

void FileCommands::ShowNew(std::unique_ptr<Project> project)
{
    project->SetUnitSystemDisplay(m_frame.GetProject().GetUnitSystemDisplay());
    m_frame.SetDocument(std::make_unique<Document>(std::move(project)));
}

void FileCommands::NewFromExample()
{
    CommitFocusedField();
    if (!ConfirmDiscard())
        return;
    TemplateDialog dialog(&m_frame, WaterTemplates());
    if (dialog.ShowModal() != wxID_OK)
        return;
    if (const WaterTemplate* chosen = dialog.GetChosen())
        ShowNew(NewProjectFrom(*chosen));
}

void FileCommands::AskAndOpen()
{
    CommitFocusedField();
    if (!ConfirmDiscard())
        return;
    wxFileDialog dialog(&m_frame, Tr("Open project"), wxString(), wxString(), Wildcard(),
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK)
        Open(dialog.GetPath().utf8_string());
}

bool FileCommands::Open(const std::filesystem::path& path)
{
    try {
        auto project = ProjectFile::Load(path);
        project->SetUnitSystemDisplay(m_frame.GetProject().GetUnitSystemDisplay());
        m_frame.SetDocument(std::make_unique<Document>(std::move(project), path));
        Remember(path);
        return true;
    } catch (const std::exception& error) {
        const wxString text = UserText(error);
        m_frame.ReportError(text);
        // A file that was named when the program started is opened before its window.
        m_frame.Show();
        dialogs::ShowMessage(&m_frame, text, Tr("Open project"), wxICON_ERROR);
        return false;
    }
}

bool FileCommands::Save()
{
    CommitFocusedField();
    const std::filesystem::path& path = m_frame.GetDocument().GetPath();
    return path.empty() ? SaveAs() : SaveTo(path);
}

bool FileCommands::SaveAs()
{
    CommitFocusedField();
    wxFileDialog dialog(&m_frame, Tr("Save project"), wxString(), Tr("Water") + ".tarnvik", Wildcard(),
                        wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK)
        return false;
    std::filesystem::path path = dialog.GetPath().utf8_string();
    if (path.extension().empty())
        path += ".tarnvik";
    return SaveTo(path);
}

bool FileCommands::SaveTo(const std::filesystem::path& path)
{
    try {
        m_frame.GetDocument().Save(path);
    } catch (const std::exception& error) {
        m_frame.ReportError(UserText(error));
        return false;
    }
    Remember(path);
    m_frame.UpdateTitle();
    return true;
}

void FileCommands::CloseProject()
{
    events::SendEvent(&m_frame, tvCLOSEPROJECT_EVENT, m_frame.GetId(), 0, wxString());
}

bool FileCommands::ConfirmDiscard()
{
    if (!m_frame.GetDocument().IsUnsaved())
        return true;
    wxMessageDialog dialog(&m_frame, Tr("The project has unsaved changes. Save them?"), Tr("Confirm"),
                           wxYES_NO | wxCANCEL | wxCENTRE | wxICON_QUESTION);
    dialog.SetYesNoCancelLabels(Tr("&Save"), Tr("&Discard"), Tr("&Cancel"));
    switch (dialog.ShowModal()) {
        case wxID_YES:
            return Save();
        case wxID_NO:
            return true;
        default:
            return false;
    }
}

void FileCommands::OfferRecovery()
{
    for (const RecoverableFile& file : RecoveryFile::List()) {
        const wxString name =
            file.project.empty() ? Tr("Untitled") : wxString::FromUTF8(file.project.string());
        wxMessageDialog dialog(
            &m_frame,
            wxString::Format(Tr("The program ended before this project was saved:\n%s\n\nRestore it?"), name),
            Tr("Confirm"), wxYES_NO | wxCENTRE | wxICON_QUESTION);
        dialog.SetYesNoLabels(Tr("&Restore"), Tr("&Discard"));
        try {
            const bool restore = dialog.ShowModal() == wxID_YES;
            if (restore)
                Restore(file);
            RecoveryFile::Discard(file);
            if (restore)
                return;
        } catch (const std::exception& error) {
            m_frame.ReportError(UserText(error));
        }
    }
}

void FileCommands::Restore(const RecoverableFile& file)
{
    auto project = RecoveryFile::Load(file);
    project->SetUnitSystemDisplay(m_frame.GetProject().GetUnitSystemDisplay());
    auto document = std::make_unique<Document>(std::move(project), file.project);
    // The unsaved work stays recoverable until it is saved or given up.
    document->SetUnsaved(true);
    document->Autosave();
    m_frame.SetDocument(std::move(document));
}

void FileCommands::Remember(const std::filesystem::path& path)
{
    try {
        AddRecentFile(path);
    } catch (const std::exception& error) {
        m_frame.ReportError(wxString::FromUTF8(error.what()));
    }
    events::SendEvent(&m_frame, tvUPDATEPROJECTLIST_EVENT, m_frame.GetId(), 0, wxString());
}

void FileCommands::FillRecentMenu(wxMenu& menu)
{
    m_recentMenu = &menu;
    while (menu.GetMenuItemCount() > 0)
        menu.Destroy(menu.FindItemByPosition(0));
    std::vector<std::filesystem::path> files;
    try {
        files = RecentFiles();
    } catch (const std::exception& error) {
        m_frame.ReportError(wxString::FromUTF8(error.what()));
    }
    int number = 0;
    for (const auto& file : files) {
        wxString name = wxString::FromUTF8(file.string());
        name.Replace("&", "&&");
        AppendItem(menu, wxString::Format("&%d  %s", ++number, name), [this, file] {
            CommitFocusedField();
            if (ConfirmDiscard())
                Open(file);
        });
    }
    if (files.empty())
        menu.Append(wxID_ANY, Tr("No files yet"))->Enable(false);
}

void FileCommands::RestartAutosave()
{
    const long minutes = Settings::GetSetting("autosave.minutes").GetLongValue();
    if (minutes > 0)
        m_autosave.Start(static_cast<int>(minutes) * 60 * 1000);
    else
        m_autosave.Stop();
}

void FileCommands::Autosave()
{
    try {
        m_frame.GetDocument().Autosave();
    } catch (const std::exception& error) {
        m_frame.ReportError(UserText(error));
    }
}

}  // namespace app
