// SPDX-License-Identifier: MIT
#pragma once

/// The cations or the anions of a water analysis: a title, column heads, one row an ion and the totals below.
/// Builds its controls into a parent window; the fields belong to the panel's field set. Up and Down walk the
/// typed values.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/form/aligned_grid.h"
#include "gui_base/input/form/field_set.h"
#include "gui_base/water/rows/ion_rows.h"

#include <wx/sizer.h>

#include <span>
#include <string>
#include <utility>
#include <vector>

namespace wateranalysis {

class GUI_BASE_EXPORT IonGrid
{
public:
    /// Controls of one row; `name` is null unless the user names the ion.
    struct Row
    {
        const IonRow* ion;
        TvTextCtrl* name = nullptr;
        TvTextCtrl* typed = nullptr;
        tvUnitChoice* unit = nullptr;
    };

    /// What both grids share: the choices of units, built once.
    struct UnitLists
    {
        std::vector<wxString> ordinary;
        std::vector<wxString> equivalent;
    };

    /// Grids of one group line up where they stand below each other.
    IonGrid(FieldSet& fields, const UnitLists& units, AlignedGrid::Group group)
        : m_fields(fields), m_units(units), m_group(std::move(group))
    {}
    IonGrid(const IonGrid&) = delete;
    IonGrid& operator=(const IonGrid&) = delete;

    /// Builds the grid with one label text for each of `rows`; `headTool` stands beside the head "Unit" if
    /// not null.
    wxSizer* Create(wxWindow* parent, const wxString& title, std::span<const IonRow> rows,
                    const std::vector<wxString>& labels, std::span<const TotalRow> totals,
                    wxWindow* headTool);

    const std::vector<Row>& Rows() const { return m_rows; }
    /// The row of a name field, or null.
    const Row* FindNamed(const wxObject* nameField) const;
    /// Index of the row that holds the focus, or -1.
    int FocusedRow() const;
    /// Settles whether a row can be typed: an unnamed one cannot, and those of H+ and OH- only while they
    /// take part in the balance.
    void EnableRow(const Row& row, bool enable);
    void EnableRows(bool enable);
    /// Puts the water's own name back into a row where a number stands instead of another one; whether it was
    /// so. Who types values with Tab comes past the names as well.
    bool TakeBackNumber(const Row& row);

private:
    wxString StoredName(const Row& row) const;
    bool HasNumberForName(const Row& row) const;
    void AddHeads(wxWindow* parent, wxFlexGridSizer& grid, const wxString& title, wxWindow* headTool);
    void AddRow(wxWindow* parent, wxFlexGridSizer& grid, const IonRow& ion, const wxString& label);
    void AddTotal(wxWindow* parent, wxFlexGridSizer& grid, const TotalRow& total);

    FieldSet& m_fields;
    const UnitLists& m_units;
    AlignedGrid::Group m_group;
    std::vector<Row> m_rows;
};

}  // namespace wateranalysis
