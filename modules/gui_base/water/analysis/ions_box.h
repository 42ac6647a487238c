// SPDX-License-Identifier: MIT
#pragma once

/// The box with the grids of cations and anions, and the tool that gives every row the unit of sodium.
/// Owned by the layout of its panel, as every sizer; the grids live as long.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/water/analysis/ion_grid.h"

#include <wx/bmpbuttn.h>

#include <memory>

namespace wateranalysis {

class GUI_BASE_EXPORT IonsBox : public TvStaticBoxSizer
{
public:
    /// `units` outlive the making of the grids.
    IonsBox(wxWindow* parent, FieldSet& fields, const IonGrid::UnitLists& units);

    /// Adds a grid with one label text for each of its rows; the cations, which come first, with the tool.
    wxSizer* AddCations(const wxString& title, const std::vector<wxString>& labels);
    wxSizer* AddAnions(const wxString& title, const std::vector<wxString>& labels);

    /// Width in pixels that both grids need beside or below each other.
    int GetWidth(int orientation);
    const std::vector<std::unique_ptr<IonGrid>>& GetGrids() const { return m_grids; }
    /// The grid that holds the focus, otherwise that of the cations.
    const IonGrid& GetFocusedGrid() const;
    wxButton& GetDefaultUnitButton() const { return *m_defaultUnit; }

    void EnableRows(bool enable);
    /// Settles whether the row that this name field belongs to can be typed.
    void EnableNamedRow(const wxObject* nameField, bool enable);
    /// Puts the water's own name back where a number was typed into that name field; whether it was so.
    bool TakeBackNumber(const wxObject* nameField);
    /// The ion whose name field that is, or null.
    const IonRow* FindNamedIon(const wxObject* nameField) const;
    /// Gives the rows the unit of sodium; a row that does not offer it keeps its own.
    void TakeUnitOfSodium();
    void Localize();

private:
    wxSizer* AddGrid(wxSizer* grid);
    wxString ExplainBalance() const;

    FieldSet& m_fields;
    const IonGrid::UnitLists& m_units;
    const AlignedGrid::Group m_group = AlignedGrid::NewGroup();
    std::vector<std::unique_ptr<IonGrid>> m_grids;
    wxBitmapButton* m_defaultUnit = nullptr;
};

}  // namespace wateranalysis
