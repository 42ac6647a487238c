// SPDX-License-Identifier: MIT
#pragma once

/// What the main window does with files: opening, saving, recent ones, autosave and recovery.

#include <wx/menu.h>
#include <wx/timer.h>

#include <filesystem>
#include <memory>

class Project;
struct RecoverableFile;

namespace app {

class MainFrame;

class FileCommands
{
public:
    /// The frame is not owned; it outlives this part of it.
    explicit FileCommands(MainFrame& frame);

    void New();
    void NewFromExample();
    void AskAndOpen();
    /// Opens a file; a file that cannot be opened is answered in the message area and changes nothing.
    bool Open(const std::filesystem::path& path);
    /// Saves to the document's file, asking for one where it has none.
    bool Save();
    bool SaveAs();
    /// Saves to `path`; false, with a message, when that fails.
    bool SaveTo(const std::filesystem::path& path);
    void CloseProject();
    /// Offers what a program that ended unexpectedly left behind.
    void OfferRecovery();
    /// Whether the open project may go: it has no changes, they were saved, or the user gives them up.
    bool ConfirmDiscard();
    void FillRecentMenu(wxMenu& menu);
    void RestartAutosave();

private:
    void ShowNew(std::unique_ptr<Project> project);
    void Restore(const RecoverableFile& file);
    void Remember(const std::filesystem::path& path);
    void Autosave();

    MainFrame& m_frame;
    wxMenu* m_recentMenu = nullptr;  ///< of the present menu bar
    wxTimer m_autosave;
};

}  // namespace app
