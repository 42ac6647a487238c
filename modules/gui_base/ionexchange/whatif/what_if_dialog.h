// SPDX-License-Identifier: MIT
#pragma once

/// The what-if analysis: the user enters one value of a row, and the other one is found by the project.
///
/// The dialog works on a copy of the project, with a history of its own. Apply takes what was found over into
/// the project as one edit; nothing else changes it. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/ionexchange/whatif/wif_table.h"
#include "projectbase/project/undo_redo_detail_stack.h"

#include <wx/dialog.h>

#include <memory>

class TVHelpFileProvider;
class WhatIfGrid;
class wxStaticText;

class GUI_BASE_EXPORT WhatIfDialog : public wxDialog, private ProjectObserver
{
public:
    static constexpr int kIterations = 1000;
    static constexpr double kTolerance = 1e-5;

    /// `table` shows values of the project, which is not owned and outlives the dialog.
    WhatIfDialog(std::unique_ptr<WifTable> table, Project* project, wxWindow* parent, int id = wxID_ANY,
                 const wxString& title = {}, const wxPoint& pos = wxDefaultPosition,
                 const wxSize& size = wxDefaultSize,
                 long style = wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX);
    ~WhatIfDialog() override;

    /// Not owned; may be null.
    void SetHelp(const TVHelpFileProvider* help) { m_help = help; }

    /// Seeks the other value of a row for one that was entered, in ISO units.
    void OnEdited(int row, double entered);
    /// Makes the side of a row to which a column belongs the one that is found.
    void SetColEditable(int row, int column);
    DetailData* GetDetailToAdjust(int row) const;
    DetailData* GetFixedDetail(int row) const;
    /// Shows how the search for a row went. Returns whether its result is accepted.
    bool CalculationErrorHandling(int row, bool ok, double deviation);

    void Undo() { Step(&UndoRedoDetailStack::Undo); }
    void Redo() { Step(&UndoRedoDetailStack::Redo); }
    void UndoAll();
    void RedoAll();
    bool UndoPossible() const { return m_history.CanUndo(); }
    bool RedoPossible() const { return m_history.CanRedo(); }
    /// Place of the change in effect that came last, -1 where there is none.
    int GetPosition() const { return static_cast<int>(m_history.GetDoneCount()) - 1; }
    /// Takes all changes back after asking.
    void Discard();
    void OnApply();
    /// Whether there is anything that Apply would take over.
    bool HasUnappliedChanges() const;

    wxGrid& GetGrid();
    wxString GetStatusText() const;

private:
    void CreateControls();
    wxSizer* CreateHistoryRow();
    wxSizer* CreateButtonRow();
    void BindEvents();
    double Calculate(int row, double entered, bool& ok);
    void SetDetailsChanged(int row);
    void CalculateDesignAndDisplay();
    void PushToUndoStack(const ProjectChanges& changes) { m_history.Push(changes); }
    void Step(bool (UndoRedoDetailStack::*step)());
    void ShowHistory();
    void CommitCell();
    void UpdateButtons();
    void ShowHelp() const;
    void OnProjectChanged(const ProjectChanges& changes) override;
    void OnClose(wxCloseEvent& event);
    void OnCharHook(wxKeyEvent& event);

    Project* m_project;
    std::unique_ptr<Project> m_copy;
    UndoRedoDetailStack m_history;
    WifTable* m_table;  ///< the grid's
    const TVHelpFileProvider* m_help = nullptr;
    WhatIfGrid* m_grid = nullptr;
    wxStaticText* m_status = nullptr;
    wxButton* m_undo = nullptr;
    wxButton* m_redo = nullptr;
    wxButton* m_undoAll = nullptr;
    wxButton* m_redoAll = nullptr;
    wxButton* m_discard = nullptr;
    wxButton* m_apply = nullptr;
};
