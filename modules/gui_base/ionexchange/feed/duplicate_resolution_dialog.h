// SPDX-License-Identifier: MIT
#pragma once

/// Asks what becomes of compounds that a file brings and the database already has.

#include "dbinterfaces/db_objects.h"
#include "gui_base/gui_base_export.h"

#include <wx/dialog.h>

#include <cstddef>
#include <vector>

class wxCheckBox;
class wxChoice;
class wxGrid;

/// What becomes of one compound.
enum DuplicateDecision : int
{
    kSkipDuplicate = 0,
    kReplaceDuplicate = 1,
    kKeepBothDuplicates = 2
};

struct DuplicateCompound
{
    DBObjects::Compound incoming;
    DBObjects::Compound existing;
    std::size_t index = 0;  ///< of the incoming compound in its file
};

struct DuplicateResolutionResult
{
    bool cancelled = true;
    bool applyToAll = false;
    int commonDecision = kSkipDuplicate;
    std::vector<int> decisions;  ///< one for each duplicate

    /// The decision that counts for a duplicate.
    int DecisionFor(std::size_t duplicate) const
    {
        return applyToAll ? commonDecision : decisions.at(duplicate);
    }
};

class GUI_BASE_EXPORT DuplicateResolutionDialog : public wxDialog
{
public:
    DuplicateResolutionDialog(wxWindow* parent, const std::vector<DuplicateCompound>& duplicates);

    /// What was answered; cancelled unless the dialog ended with OK.
    DuplicateResolutionResult GetResult(int closedWith) const;

    wxGrid& GetGrid() const { return *m_grid; }
    wxCheckBox& GetApplyToAllBox() const { return *m_applyToAll; }
    wxChoice& GetCommonChoice() const { return *m_common; }

private:
    void FillGrid(const std::vector<DuplicateCompound>& duplicates);
    void UpdateEnabled();
    bool TransferDataFromWindow() override;

    wxCheckBox* m_applyToAll;
    wxChoice* m_common;
    wxGrid* m_grid;
};
