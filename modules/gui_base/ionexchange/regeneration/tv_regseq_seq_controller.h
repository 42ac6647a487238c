// SPDX-License-Identifier: MIT
#pragma once

/// The controller of a regeneration sequence: it owns the working copy, applies what the user does, stores it
/// in the project, whose rules may add to it, and shows what the project then holds.
///
/// Project and view are not owned; the project outlives the controller, the view may go before it. A copy
/// has a working copy of its own and answers the view only after it, too, has registered. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/ionexchange/regeneration/tv_regseq_seq.h"

#include <wx/weakref.h>

#include <memory>
#include <vector>

class GUI_BASE_EXPORT TVRegSeqSubPanelController
{
public:
    /// Loads and shows the sequence, and answers the view from now on.
    TVRegSeqSubPanelController(TVRegSeqSubPanel* view, iex::IEXProject* project);
    TVRegSeqSubPanelController(const TVRegSeqSubPanelController& other);
    TVRegSeqSubPanelController& operator=(const TVRegSeqSubPanelController& other);
    ~TVRegSeqSubPanelController() = default;

    /// Answers what the view tells, as long as this controller lives.
    void RegisterCallbacks();
    /// What the project holds becomes the working copy; it is not shown yet.
    void LoadDataFromDetails();
    void GetDataFromView();
    /// Shows the project as it is now; the selection stays with its rows.
    void Refresh();
    void SetDataToView();
    void SaveDataToProject();
    void Calculate();

    /// Appends a new row. The others act on the working copy alone.
    void AddStep();
    /// Swap each of the rows, in their order, with the one above or below it, where there is one.
    void StepsMoveUp(const std::vector<int>& rows) { Move(rows, -1); }
    void StepsMoveDown(const std::vector<int>& rows) { Move(rows, 1); }
    void RemoveSteps(const std::vector<int>& rows);
    void SelectGridRow(int row);
    void ClearSelectedGridRows();
    const RegSeqData& GetData() const { return m_data; }

    void OnStepAdd();
    void OnStepMoveUp();
    void OnStepMoveDown();
    void OnStepRemove();
    void OnRemarksChanged();
    /// A cell of the grid was changed.
    void OnSequenceChanged();
    void OnUIUpdate();

private:
    enum class Follow
    {
        Order,  ///< only the order changed
        Values
    };
    /// Saves, reads back what the project makes of it, recalculates and shows.
    void Store(const char* name, Follow follow);
    void Move(const std::vector<int>& rows, int step);
    /// Moves what is selected, in that order; the selection follows it.
    void MoveSelection(const std::vector<int>& rows, int step);

    wxWeakRef<TVRegSeqSubPanel> m_view;
    iex::IEXProject* m_project;
    RegSeqData m_data;
    std::shared_ptr<bool> m_saving = std::make_shared<bool>(false);  ///< lives as long as the registration
};
