// SPDX-License-Identifier: MIT
#pragma once

/// What the main window does with files: opening, saving, recent ones, autosave and recovery.

#include <wx/menu.h>
#include <wx/timer.h>

#include <filesystem>
#include <memory>
#include <vector>

class Project;
class ProjectLock;
struct RecoverableFile;

namespace app {

class Document;
class MainFrame;
struct PlantTemplate;
struct WaterTemplate;

class FileCommands
{
public:
    /// The frame is not owned; it outlives this part of it.
    explicit FileCommands(MainFrame& frame);

    void New();
    void NewFromExample();
    /// A project with that water, or of that plant.
    void NewFrom(const WaterTemplate& water);
    void NewFrom(const PlantTemplate& plant);
    /// A project of a type of plant that the user chooses.
    void NewPlant();
    void AskAndOpen();
    /// Opens a file after the open project may go.
    void AskAndOpen(const std::filesystem::path& path);
    /// Opens a file; a file that cannot be opened is answered in the message area and changes nothing.
    bool Open(const std::filesystem::path& path);
    /// Saves to the document's file, asking for one where it has none.
    bool Save();
    bool SaveAs();
    /// Saves to `path`; false, with a message, when that fails.
    bool SaveTo(const std::filesystem::path& path);
    void CloseProject();
    /// Offers what programs that ended unexpectedly left behind; does nothing when there is none.
    void OfferRecovery();
    /// The same as a command, which says when there is none.
    void ShowRecovery();
    /// Keeps unsaved work for the next start, with what is being typed; for a program that must end.
    void KeepUnsaved();
    /// Whether the open project may go: it has no changes, they were saved, or the user gives them up.
    bool ConfirmDiscard();
    void FillRecentMenu(wxMenu& menu);
    void RestartAutosave();

private:
    /// How a file is opened.
    enum class Access
    {
        Whole,
        Copy,  ///< as a project without a file
        None
    };
    struct Claim
    {
        Access access = Access::Whole;
        std::unique_ptr<ProjectLock> lock;
    };
    /// Asks when another window has the file open.
    Claim ClaimFile(const std::filesystem::path& path);
    /// Saves although somebody else wrote the file meanwhile, or takes what they wrote, as the user decides.
    bool SaveOverChanges(const std::filesystem::path& path);
    void Take(std::unique_ptr<Document> document, Claim claim);
    void OfferCopies(const std::vector<RecoverableFile>& files);
    void ShowNew(std::unique_ptr<Project> project);
    void Restore(const RecoverableFile& file);
    void Remember(const std::filesystem::path& path);
    void Autosave();

    MainFrame& m_frame;
    wxMenu* m_recentMenu = nullptr;  ///< of the present menu bar
    wxTimer m_autosave;
};

}  // namespace app
