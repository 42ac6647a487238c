// SPDX-License-Identifier: MIT
#pragma once

/// The main window: the pages of the open project with the tree that leads to them, the message area and the
/// status bar. It knows modules only as values; what the menus do with files, waters and the display is in
/// parts of its own.
///
/// It owns the document; pages hold on to the document's project and are closed before it goes. Everything
/// that saves, undoes or switches first commits the field that is being edited.

#include "app/document/document.h"
#include "app/frame/advice_messages.h"
#include "app/frame/file_commands.h"
#include "app/frame/message_strip.h"
#include "app/frame/module_book.h"
#include "app/frame/network_commands.h"
#include "app/frame/view_commands.h"
#include "app/frame/water_commands.h"
#include "app/frame/work_area.h"
#include "gui_base/support/events.h"
#include "gui_base/support/help_file_provider.h"

#include <wx/frame.h>

#include <memory>

class AuiNotebook;
class TvStatusBar;
class WaterDiagramPanel;
namespace wateranalysis {
class WaterResultsPanel;
}

namespace app {

class Navigator;
class StartPage;

class MainFrame : public wxFrame, private ProjectObserver
{
public:
    explicit MainFrame(std::unique_ptr<Document> document);
    ~MainFrame() override;

    /// Replaces the open project, without asking.
    void SetDocument(std::unique_ptr<Document> document);
    Document& GetDocument() { return *m_document; }
    const Document& GetDocument() const { return *m_document; }
    Project& GetProject() { return m_document->GetProject(); }

    FileCommands& Files() { return m_files; }
    WaterCommands& Waters() { return m_waters; }
    const WaterCommands& Waters() const { return m_waters; }
    ViewCommands& View() { return m_view; }
    NetworkCommands& Services() { return m_services; }
    ModuleBook& GetBook() { return *m_book; }
    const ModuleBook& GetBook() const { return *m_book; }
    WorkArea& GetWorkArea() { return *m_workArea; }
    const WorkArea& GetWorkArea() const { return *m_workArea; }
    MessageArea& GetMessageArea() { return m_workArea->GetMessages().GetList(); }
    AuiNotebook& GetNotebook() { return m_workArea->GetNotebook(); }
    TVHelpFileProvider* GetHelp() { return m_help.get(); }

    void Undo();
    void Redo();
    /// "Undo change of Sodium", in the present language.
    wxString UndoText() const;
    wxString RedoText() const;
    /// Whether the page in front offers a what-if analysis.
    bool HasWhatIf() const;
    void ShowWhatIf();
    /// Whether the project is of a plant whose type can be changed.
    bool CanChangePlant() const;
    void ChangePlant();
    void PrintReport();
    void ShowHelp();
    void ShowHelpContents();
    void ShowAbout();
    /// Gives the keyboard to the results of the water, whose figures are then read by Tab; shows them first.
    void FocusResults();
    /// Shows what can be begun with, instead of the pages.
    void ShowStart();
    bool IsStartShown() const;
    void ShowPages();
    void ClearMessages();
    /// Tells of what went wrong, by a function that gives the text in the present language.
    void ReportError(MessageArea::Text text);
    /// To be called while the error is being caught.
    void ReportError(const std::exception& error);
    void ReportNote(MessageArea::Text text);

    /// All texts in the present language.
    void Localize();
    /// All numbers in the present unit system.
    void ShowUnits();
    /// The small diagram, which knows no project, of the water whose results are shown.
    void ShowDiagram();
    void UpdateTitle();
    void UpdateRangeMessages();
    /// Menus and toolbar, anew.
    void BuildMenus();
    /// Makes all pages anew, for what no window of them can follow: the density of the forms.
    void RebuildPages();

private:
    void OnProjectChanged(const ProjectChanges& changes) override;
    void BuildWindows();
    void OpenPages();
    void ClosePages();
    /// The arrangement of the pages outlives the program, one for each type of project.
    void KeepArrangement();
    wxString KeptArrangement();
    std::string ArrangementParameter() const;
    /// Runs an undo or a redo and shows what it changed.
    void StepHistory(bool (UndoRedoDetailStack::*step)(), const UndoStep* taken);
    void OnMessage(MessageEvent& event);
    void OnClose(wxCloseEvent& event);
    /// Puts the keyboard where a new window is used first.
    void FocusPage();
    /// Shows the results of the water in front; on a page without one those of the plant's water, and without
    /// a plant those of the water before it.
    void ShowResults();

    std::unique_ptr<Document> m_document;
    std::unique_ptr<TVHelpFileProvider> m_help;
    WorkArea* m_workArea = nullptr;
    StartPage* m_start = nullptr;
    wateranalysis::WaterResultsPanel* m_results = nullptr;
    WaterDiagramPanel* m_diagram = nullptr;
    DetailOwner m_shownWater;
    wxColour m_textColour;
    TvStatusBar* m_statusBar = nullptr;
    std::unique_ptr<ModuleBook> m_book;
    std::unique_ptr<Navigator> m_navigator;
    AdviceMessages m_advice;
    FileCommands m_files{*this};
    WaterCommands m_waters{*this};
    ViewCommands m_view{*this};
    NetworkCommands m_services{*this};
};

}  // namespace app
