// SPDX-License-Identifier: MIT
#pragma once

/// The elements of a compound, one a row. The list owns the rows and draws those that are seen.

#include "core/chemical_formula_parser.h"
#include "gui_base/gui_base_export.h"

#include <wx/listctrl.h>

#include <vector>

class GUI_BASE_EXPORT CompoundElementListCtrl : public wxListCtrl
{
public:
    enum Column : int
    {
        Element,
        Name,
        Count,
        AtomicMass,
        Class,
        AtomicNumber,
        ElectronConfig,
        Group1,
        Group2,
        Period,
        State,
        OxidationNumbers,
        OxidationNumber,
        ColumnCount
    };

    explicit CompoundElementListCtrl(wxWindow* parent, int id = wxID_ANY,
                                     const wxPoint& pos = wxDefaultPosition,
                                     const wxSize& size = wxDefaultSize, long style = wxLC_SINGLE_SEL);

    void ClearList();
    /// Adds a row at the end.
    void InsertRow(const CompoundElement& element);
    void InsertRows(const std::vector<CompoundElement>& elements);
    using wxListCtrl::GetItem;
    /// Throws std::out_of_range.
    const CompoundElement& GetItem(long row) const;

protected:
    wxString OnGetItemText(long row, long column) const override;

private:
    void ShowRows();

    std::vector<CompoundElement> m_elements;
};
