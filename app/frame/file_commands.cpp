// SPDX-License-Identifier: MIT
#include "app/frame/file_commands.h"

#include "app/document/plant_templates.h"
#include "app/document/recent_files.h"
#include "app/document/templates.h"
#include "app/frame/main_frame.h"
#include "app/frame/menu_table.h"
#include "app/frame/message_log.h"
#include "app/frame/plant_dialog.h"
#include "app/frame/recovery_dialog.h"
#include "app/frame/template_dialog.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/support/file_path.h"
#include "gui_base/support/translation.h"
#include "projectbase/details/date_text.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/project_lock.h"
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

/// "anna on plant-7, since 2026-11-22 05:30"
wxString HolderText(const ProjectLock::Holder& holder)
{
    return wxString::Format(Tr("%s on %s, since %s"), ShownText(holder.user), ShownText(holder.host),
                            MomentText(holder.since));
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

void FileCommands::NewFrom(const WaterTemplate& water)
{
    if (ConfirmDiscard())
        ShowNew(NewProjectFrom(water));
}

void FileCommands::NewFrom(const PlantTemplate& plant)
{
    if (ConfirmDiscard())
        ShowNew(NewProjectFrom(plant));
}

void FileCommands::NewPlant()
{
    CommitFocusedField();
    if (!ConfirmDiscard())
        return;
    PlantDialog dialog(&m_frame);
    if (dialog.ShowModal() != wxID_OK)
        return;
    if (auto project = dialog.MakeProject())
        ShowNew(std::move(project));
}

void FileCommands::AskAndOpen()
{
    CommitFocusedField();
    if (!ConfirmDiscard())
        return;
    wxFileDialog dialog(&m_frame, Tr("Open project"), wxString(), wxString(), Wildcard(),
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK)
        Open(PathOf(dialog.GetPath()));
}

void FileCommands::AskAndOpen(const std::filesystem::path& path)
{
    CommitFocusedField();
    if (ConfirmDiscard())
        Open(path);
}

bool FileCommands::Open(const std::filesystem::path& path)
{
    try {
        ProjectFile::Opened opened = ProjectFile::Open(path);
        Claim claim = ClaimFile(path);
        if (claim.access == Access::None)
            return false;
        opened.project->SetUnitSystemDisplay(m_frame.GetProject().GetUnitSystemDisplay());
        if (claim.access == Access::Copy) {
            ShowNew(std::move(opened.project));
            m_frame.GetDocument().SetUnsaved(true);
            m_frame.UpdateTitle();
            return true;
        }
        Take(std::make_unique<Document>(std::move(opened), path), std::move(claim));
        Remember(path);
        return true;
    } catch (const std::exception& error) {
        m_frame.ReportError(error);
        // A file that was named when the program started is opened before its window.
        m_frame.Show();
        dialogs::ShowMessage(&m_frame, MessageOf(error), Tr("Open project"), wxICON_ERROR);
        return false;
    }
}

bool FileCommands::Save()
{
    CommitFocusedField();
    const std::filesystem::path& path = m_frame.GetDocument().GetPath();
    if (path.empty())
        return SaveAs();
    return m_frame.GetDocument().HasChangedOnDisk() ? SaveOverChanges(path) : SaveTo(path);
}

bool FileCommands::SaveOverChanges(const std::filesystem::path& path)
{
    wxMessageDialog dialog(
        &m_frame,
        wxString::Format(Tr("Somebody else has written this file since it was opened or saved here:\n%s"),
                         ShownPath(path)),
        Tr("Save project"), wxYES_NO | wxCANCEL | wxHELP | wxCENTRE | wxICON_WARNING);
    dialog.SetYesNoCancelLabels(Tr("&Keep mine"), Tr("&Take theirs"), Tr("&Cancel"));
    dialog.SetHelpLabel(Tr("Save &as..."));
    switch (dialog.ShowModal()) {
        case wxID_YES:
            return SaveTo(path);
        case wxID_NO:
            // Nothing of this window was saved.
            Open(std::filesystem::path(path));
            return false;
        case wxID_HELP:
            return SaveAs();
        default:
            return false;
    }
}

FileCommands::Claim FileCommands::ClaimFile(const std::filesystem::path& path)
{
    Document& current = m_frame.GetDocument();
    if (current.HoldsLockOf(path))
        return {.access = Access::Whole, .lock = current.ReleaseLock()};
    ProjectLock::Attempt attempt = ProjectLock::TryTake(path);
    if (!attempt.holder)
        return {.access = Access::Whole, .lock = std::move(attempt.lock)};
    // A file that was named when the program started is opened before its window.
    m_frame.Show();
    wxMessageDialog dialog(&m_frame,
                           wxString::Format(Tr("This project is open in another window:\n%s\n(%s)\n\nNeither "
                                               "window sees what the other one saves."),
                                            ShownPath(path), HolderText(*attempt.holder)),
                           Tr("Open project"), wxYES_NO | wxCANCEL | wxCENTRE | wxICON_WARNING);
    dialog.SetYesNoCancelLabels(Tr("Open a &copy"), Tr("Open &anyway"), Tr("&Cancel"));
    switch (dialog.ShowModal()) {
        case wxID_YES:
            return {.access = Access::Copy, .lock = nullptr};
        case wxID_NO:
            return {};
        default:
            return {.access = Access::None, .lock = nullptr};
    }
}

void FileCommands::Take(std::unique_ptr<Document> document, Claim claim)
{
    document->HoldLock(std::move(claim.lock));
    m_frame.SetDocument(std::move(document));
}

bool FileCommands::SaveAs()
{
    CommitFocusedField();
    wxFileDialog dialog(&m_frame, Tr("Save project"), wxString(), Tr("Water") + ".tarnvik", Wildcard(),
                        wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK)
        return false;
    std::filesystem::path path = PathOf(dialog.GetPath());
    if (path.extension().empty()) {
        path += ".tarnvik";
        // The dialog asked about the name without its ending.
        std::error_code unknown;
        if (std::filesystem::exists(path, unknown) &&
            !dialogs::ConfirmReplacing(&m_frame, ShownPath(path), Tr("Save project")))
            return false;
    }
    return SaveTo(path);
}

bool FileCommands::SaveTo(const std::filesystem::path& path)
{
    Document& document = m_frame.GetDocument();
    const bool own = document.HoldsLockOf(path);
    ProjectLock::Attempt attempt;
    if (!own)
        attempt = ProjectLock::TryTake(path);
    if (attempt.holder && std::filesystem::absolute(path) != document.GetPath() &&
        dialogs::AskYesNo(
            &m_frame,
            wxString::Format(Tr("This project is open in another window:\n%s\n(%s)\n\nReplace it?"),
                             ShownPath(path), HolderText(*attempt.holder)),
            Tr("Save project"), wxICON_WARNING) != wxID_YES)
        return false;
    try {
        document.Save(path);
    } catch (const std::exception& error) {
        m_frame.ReportError(error);
        return false;
    }
    if (!own)
        document.HoldLock(std::move(attempt.lock));
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
    const std::vector<RecoverableFile> files = RecoveryFile::List();
    if (!files.empty())
        OfferCopies(files);
}

void FileCommands::ShowRecovery()
{
    CommitFocusedField();
    const std::vector<RecoverableFile> files = RecoveryFile::List();
    if (files.empty())
        dialogs::ShowMessage(&m_frame, Tr("There is no unsaved work to restore."), Tr("Unsaved work"),
                             wxICON_INFORMATION);
    else if (ConfirmDiscard())
        OfferCopies(files);
}

void FileCommands::OfferCopies(const std::vector<RecoverableFile>& files)
{
    RecoveryDialog dialog(&m_frame, files);
    if (dialog.ShowModal() != wxID_OK || dialog.GetChosen() == nullptr)
        return;
    try {
        Restore(*dialog.GetChosen());
    } catch (const std::exception& error) {
        m_frame.ReportError(error);
    }
}

void FileCommands::KeepUnsaved()
{
    // What stands in a dialog belongs to no project yet.
    wxWindow* focused = wxWindow::FindFocus();
    if (focused != nullptr && wxGetTopLevelParent(focused) == &m_frame)
        CommitFocusedField();
    Autosave();
}

void FileCommands::Restore(const RecoverableFile& file)
{
    auto project = RecoveryFile::Load(file);
    project->SetUnitSystemDisplay(m_frame.GetProject().GetUnitSystemDisplay());
    Claim claim = file.project.empty() ? Claim{} : ClaimFile(file.project);
    if (claim.access == Access::None)
        return;
    RecoverableFile source = file;
    if (claim.access == Access::Copy)
        source.project.clear();
    auto document = std::make_unique<Document>(std::move(project), source);
    // The unsaved work stays recoverable until it is saved or given up.
    document->Autosave();
    Take(std::move(document), std::move(claim));
    RecoveryFile::Discard(file);
}

void FileCommands::Remember(const std::filesystem::path& path)
{
    try {
        AddRecentFile(path);
    } catch (const std::exception& error) {
        m_frame.ReportError(error);
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
        m_frame.ReportError(error);
    }
    int number = 0;
    for (const auto& file : files) {
        wxString name = ShownPath(file);
        name.Replace("&", "&&");
        AppendItem(menu, wxString::Format("&%d  %s", ++number, name), [this, file] { AskAndOpen(file); });
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
        m_frame.ReportError(error);
    }
}

}  // namespace app
