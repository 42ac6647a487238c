// SPDX-License-Identifier: MIT
#pragma once

/// The grid of a regeneration sequence. It changes only its own rows and tells of it; what follows, whoever
/// listens gives back with SetSteps. Insert, Delete and Alt with the arrow keys are commands for the rows, as
/// is its context menu. GUI thread only.

#include "gui_base/ionexchange/regeneration/regseq_table.h"

#include <functional>
#include <vector>

class GUI_BASE_EXPORT TVRegSeqGrid : public wxGrid
{
public:
    static constexpr int kId = 6001;
    enum class Command
    {
        Add,
        MoveUp,
        MoveDown,
        Remove
    };

    TVRegSeqGrid(wxWindow* parent, int id = kId);

    void SetOnEdit(std::function<void()> handler) { m_onEdit = std::move(handler); }
    void SetOnCommand(std::function<void(Command)> handler) { m_onCommand = std::move(handler); }
    /// Which commands the context menu offers.
    void SetIsPossible(std::function<bool(Command)> question) { m_isPossible = std::move(question); }

    const std::vector<RegSeqStep>& GetSteps() const { return m_table->GetSteps(); }
    void SetSteps(const std::vector<RegSeqStep>& steps);
    RegSeqTable& GetRegSeqTable() { return *m_table; }
    /// After choices, language or units changed.
    void ShowTexts();

    /// Rows that are selected, ascending, or else that of the cursor.
    std::vector<int> GetChosenRows() const;
    void SelectRows(const std::vector<int>& rows);

private:
    struct ChoiceColumn
    {
        int column;
        int head;    ///< width of its heading, pixels
        int widest;  ///< with room for any of its choices and the arrow of their list
    };

    void FitColumns();
    /// Gives the columns of choices what the numbers leave: as much as the texts shown take, more where there
    /// is room.
    void ShareWidth();
    /// Numbers that are longer than usual ones need more room; what the user widened stays so.
    void GrowColumns();
    void FitHeight();
    void ShowMenu(const wxPoint& position);
    void OnKeyDown(wxKeyEvent& event);
    void OnTabbing(wxGridEvent& event);

    RegSeqTable* m_table;
    std::vector<ChoiceColumn> m_choiceColumns;
    std::function<void()> m_onEdit;
    std::function<void(Command)> m_onCommand;
    std::function<bool(Command)> m_isPossible;
};
