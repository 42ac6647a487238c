// SPDX-License-Identifier: MIT
#pragma once

/// Pasting a column of a spreadsheet into the typed values of an ion grid.

#include "core/column_text.h"
#include "gui_base/gui_base_export.h"

#include <wx/dialog.h>
#include <wx/listctrl.h>

#include <string>
#include <vector>

class WaterAnalysisPanel;

namespace wateranalysis {

/// One cell beside the row that would take it.
struct PasteLine
{
    std::string key;  ///< detail of the typed value; empty for a cell below the last row
    wxString row;     ///< name of the row
    columntext::Cell cell;
};

/// Pairs the cells with the rows that can be edited, from the focused row of a grid (or the first cation)
/// downward.
GUI_BASE_EXPORT std::vector<PasteLine> PairCells(const WaterAnalysisPanel& panel,
                                                 const columntext::Column& column);

/// Shows what would be pasted where, and which cells cannot be read. Nothing changes before OK.
class GUI_BASE_EXPORT PasteColumnDialog : public wxDialog
{
public:
    PasteColumnDialog(wxWindow* parent, const std::vector<PasteLine>& lines, char decimalSign);

private:
    void FillList(wxListView& list, const std::vector<PasteLine>& lines);
};

/// Reads the clipboard, shows the dialog and stores the numbers as one change. Blank cells and texts that are
/// no number leave their rows as they are.
GUI_BASE_EXPORT void PasteColumn(WaterAnalysisPanel& panel);

}  // namespace wateranalysis
