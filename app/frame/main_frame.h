// SPDX-License-Identifier: MIT
#pragma once

/// The main window: the tree of modules, their panels in a notebook, the message area and the status bar.
///
/// It owns the document; panels hold on to the document's project and are closed before it goes. Everything
/// that saves, undoes or switches first commits the field that is being edited.

#include "app/document/document.h"
#include "app/frame/message_area.h"
#include "gui_base/support/events.h"
#include "gui_base/support/help_file_provider.h"

#include <wx/frame.h>
#include <wx/timer.h>
#include <wx/treectrl.h>

#include <filesystem>
#include <memory>
#include <vector>

class AuiNotebook;
class FeedCompositionPanel;
class FeedCompositionPanelController;
class FeedWaterPanel;
class ModulePanelBase;
class TvStatusBar;
class WaterAnalysisPanel;
class wxSplitterWindow;
struct BlendRecipe;

namespace app {

struct ProgramSettings;

class MainFrame : public wxFrame
{
public:
    explicit MainFrame(std::unique_ptr<Document> document);
    ~MainFrame() override;

    /// Replaces the open project, without asking.
    void SetDocument(std::unique_ptr<Document> document);
    Document& GetDocument() { return *m_document; }
    /// Opens a file; a file that cannot be opened is answered in the message area and changes nothing.
    bool OpenFile(const std::filesystem::path& path);
    /// Saves to the document's file, or to `path`; false, with a message, when that fails.
    bool SaveFile(const std::filesystem::path& path);
    /// Offers what a program that ended unexpectedly left behind.
    void OfferRecovery();
    /// Shows what a laboratory's file would make of the water in front, and takes it over after OK.
    void ImportAnalysisFrom(const std::filesystem::path& path);
    void SetUnitSystem(const std::string& unitSystem);
    void SetLanguage(const wxString& code);
    void Undo();
    void Redo();

    /// Puts what the settings dialog gave into effect; a database that cannot be opened is reported and
    /// changes nothing.
    void ApplySettings(const ProgramSettings& before, const ProgramSettings& wanted);

    /// The panel of the first water.
    WaterAnalysisPanel* GetWaterPanel() const;
    /// The module of the feed composition; null for a project without one.
    FeedCompositionPanel* GetFeedPanel() const { return m_feedPanel; }
    FeedCompositionPanelController* GetFeedController() const { return m_feed.get(); }
    MessageArea& GetMessageArea() { return *m_messages; }
    AuiNotebook& GetNotebook() { return *m_notebook; }

private:
    void BuildWindows();
    void BuildMenus();
    wxMenu* BuildFileMenu();
    wxMenu* BuildEditMenu();
    wxMenu* BuildViewMenu();
    wxMenu* BuildToolsMenu();
    void AppendWaterItems(wxMenu& editMenu);
    wxMenu* BuildHelpMenu();
    void FillRecentMenu();
    void BuildModules();
    void BuildFeedComposition();
    void ClearModules();
    /// The panel that shows a detail; what belongs to no water is the feed composition's.
    std::size_t ModuleOf(const DetailAddress& address) const;
    void UpdateTitle();
    void UpdateRangeMessages();
    /// `module` is the index of a panel, which is that of its water; the other modules follow.
    void ShowModule(std::size_t module);
    void FocusDetail(const std::string& key);
    void SendToPanels(wxEventType type);
    ModulePanelBase* CurrentPanel() const;
    void AfterUndo(const std::vector<DetailAddress>& changed);
    void NameModules();
    void RestartAutosave();
    /// The arrangement of the pages outlives the program, one for each type of project.
    void KeepArrangement();
    void RestoreArrangement();
    std::string ArrangementParameter() const;
    void NewProject();
    void ShowNew(std::unique_ptr<Project> project);
    void ShowTemplateDialog();
    void AskAndOpen();
    bool SaveCurrent();
    bool AskAndSaveAs();
    /// Whether the open project may go: it has no changes, they were saved, or the user gives them up.
    bool ConfirmDiscard();
    void PasteColumn();
    void CopyResults();
    void ShowWaterLibrary();
    void SaveToWaterLibrary();
    void CopyWater();
    void PasteWater();
    void AppendAnalysisItems(wxMenu& fileMenu);
    void ImportAnalysis();
    void ExportAnalysis();
    void AddWater();
    void BlendWaters();
    /// Makes a blend, or gives one another recipe.
    void StoreBlend(LiquidData* blend, const BlendRecipe& recipe);
    void RemoveWater();
    /// Builds the pages anew after a water came or went.
    void ShowChangedWaters(std::size_t shown);
    /// Calculates and shows the blends of the waters again.
    void FollowBlends();
    FeedWaterPanel* CurrentWater() const;
    void PrintReport();
    void ShowSettings();
    bool OpenDatabase(const std::string& connection);
    void ShowHelp();
    void ShowAbout();
    void Restore(const RecoverableFile& file);
    void RememberFile(const std::filesystem::path& path);
    void ReportError(const wxString& text);

    void OnCloseProject(wxCommandEvent& event);
    void OnProjectChanged(wxCommandEvent& event);
    void OnVisualize(VisualizeMessageEvent& event);
    void OnMessage(MessageEvent& event);
    void OnTreeSelection(wxTreeEvent& event);
    void OnAutosave(wxTimerEvent& event);
    void OnClose(wxCloseEvent& event);

    std::unique_ptr<Document> m_document;
    std::unique_ptr<TVHelpFileProvider> m_help;
    wxTreeCtrl* m_tree = nullptr;
    AuiNotebook* m_notebook = nullptr;
    MessageArea* m_messages = nullptr;
    TvStatusBar* m_statusBar = nullptr;
    wxMenu* m_recentMenu = nullptr;
    wxTimer m_autosave;
    std::vector<ModulePanelBase*> m_panels;
    FeedCompositionPanel* m_feedPanel = nullptr;
    std::unique_ptr<FeedCompositionPanelController> m_feed;
};

}  // namespace app
