// SPDX-License-Identifier: MIT
#pragma once

/// Asks what becomes of compounds that a file brings and the database already has.

#include "gui_base/gui_base_export.h"
#include "projectbase/library/compound_import.h"

#include <wx/dialog.h>

#include <vector>

class wxCheckBox;
class wxChoice;
class wxGrid;

using DuplicateCompound = compound_import::Duplicate;

struct DuplicateResolutionResult
{
    bool cancelled = true;
    bool applyToAll = false;
    compound_import::Decision commonDecision = compound_import::Decision::Skip;
    std::vector<compound_import::Decision> decisions;  ///< one for each duplicate

    /// The decision that counts for each duplicate.
    std::vector<compound_import::Decision> CountingDecisions() const
    {
        return applyToAll ? std::vector(decisions.size(), commonDecision) : decisions;
    }
};

class GUI_BASE_EXPORT DuplicateResolutionDialog : public wxDialog
{
public:
    DuplicateResolutionDialog(wxWindow* parent, const std::vector<DuplicateCompound>& duplicates);

    /// What was answered; cancelled unless the dialog ended with OK.
    DuplicateResolutionResult GetResult(int closedWith) const;

private:
    void FillGrid(const std::vector<DuplicateCompound>& duplicates);
    void UpdateEnabled();
    bool TransferDataFromWindow() override;

    wxCheckBox* m_applyToAll;
    wxChoice* m_common;
    wxGrid* m_grid;
};
