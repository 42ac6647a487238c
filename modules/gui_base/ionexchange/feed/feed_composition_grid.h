// SPDX-License-Identifier: MIT
#pragma once

/// The grids of a feed composition: a row for each compound, a column for each unit.
///
/// A grid shows a composition that it does not own, and changes nothing of it: what the user types, removes
/// or imports it only tells. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "projectbase/feed/feed_composition.h"

#include <wx/grid.h>

#include <functional>
#include <string>
#include <vector>

/// Columns of both grids.
enum FeedColumn : int
{
    kFeedName = 0,
    kFeedFormula,
    kFeedAcidBase,
    kFeedIonicCharge,
    kFeedValency,
    kFeedFirstUnit,
    kFeedPh = kFeedFirstUnit + static_cast<int>(FeedComposition::kUnitCount),
    kFeedRemove,
    kFeedColumnCount
};

/// Texts and colours of the cells of one side of a composition.
class GUI_BASE_EXPORT FeedCompositionTable : public wxGridTableBase
{
public:
    using Side = FeedComposition::Concentration FeedComposition::CompoundEntry::*;
    using OnEdit = std::function<void(std::size_t row, FeedComposition::Unit unit, double value)>;

    FeedCompositionTable(Side side, const FeedComposition& composition, OnEdit onEdit);
    ~FeedCompositionTable() override;

    int GetNumberRows() override { return m_rows; }
    int GetNumberCols() override { return kFeedColumnCount; }
    wxString GetValue(int row, int column) override;
    /// Tells of a number; a text that is none is passed over.
    void SetValue(int row, int column, const wxString& text) override;
    wxString GetColLabelValue(int column) override;
    wxGridCellAttr* GetAttr(int row, int column, wxGridCellAttr::wxAttrKind kind) override;

    /// Rows of the composition that the grid has been told of.
    void SetRowCount(int rows) { m_rows = rows; }
    void TakeColours(bool enabled);
    /// Texts of a column that are known beforehand, for its width: its label, and what else it can show.
    std::vector<wxString> KnownTexts(int column);

private:
    void ReleaseAttributes();

    Side m_side;
    const FeedComposition& m_composition;
    OnEdit m_onEdit;
    int m_rows = 0;
    wxGridCellAttr* m_text = nullptr;
    wxGridCellAttr* m_number = nullptr;
    wxGridCellAttr* m_input = nullptr;
    wxGridCellAttr* m_negative = nullptr;
    wxGridCellAttr* m_icon = nullptr;
};

/// What both grids share.
class GUI_BASE_EXPORT FeedCompositionGridBase : public wxGrid
{
public:
    using RowHandler = std::function<void(std::size_t row)>;

    void SetOnEdit(FeedCompositionTable::OnEdit handler) { m_onEdit = std::move(handler); }
    void SetOnRemove(RowHandler handler) { m_onRemove = std::move(handler); }
    void SetOnImport(RowHandler handler) { m_onImport = std::move(handler); }

    /// Shows the composition as it now is: all rows anew where its compounds are others.
    void ShowComposition();
    void UpdateGridColumnPhVisibility(bool visible);
    bool IsPhVisible() const { return GetColSize(kFeedPh) > 0; }
    void Localize(const std::string& unitSystem);
    bool Enable(bool enable = true) override;
    /// Tells of what is being typed, if anything.
    void CommitCell() { DisableCellEditControl(); }

protected:
    FeedCompositionGridBase(wxWindow* parent, int id, FeedCompositionTable::Side side,
                            const FeedComposition& composition);

private:
    void FillRows();
    /// Draws the rows whose cells changed, which is most of the time of an edit.
    void RefreshChangedRows(const std::vector<FeedComposition::CompoundEntry>& before);
    void FitColumns();
    /// Gives the names what whole columns leave of the width, so that none is cut; where not all columns have
    /// room, those that are typed come first.
    void FitToWidth();
    void PutNumbersFirst(bool first);
    /// Numbers of these rows that need more room than usual ones.
    void GrowColumns(int first, int last);
    void PopupRowMenu(int row, const wxPoint& position);
    void AskRemove(int row);
    void OnLeftClick(wxGridEvent& event);
    void OnRightClick(wxGridEvent& event);
    void OnKeyDown(wxKeyEvent& event);
    void OnTabbing(wxGridEvent& event);

    const FeedComposition& m_composition;
    FeedCompositionTable* m_table;
    FeedCompositionTable::OnEdit m_onEdit;
    RowHandler m_onRemove;
    RowHandler m_onImport;
    FeedCompositionTable::Side m_side;
    std::vector<FeedComposition::CompoundEntry> m_shown;
    int m_nameWidth = 0;  ///< that the longest name needs
    bool m_isNameDragged = false;
    bool m_isNarrow = false;
};

class GUI_BASE_EXPORT FeedCompositionGrid : public FeedCompositionGridBase
{
public:
    FeedCompositionGrid(wxWindow* parent, int id, const FeedComposition& composition)
        : FeedCompositionGridBase(parent, id, &FeedComposition::CompoundEntry::feed, composition)
    {}
};

class GUI_BASE_EXPORT EffluentCompositionGrid : public FeedCompositionGridBase
{
public:
    EffluentCompositionGrid(wxWindow* parent, int id, const FeedComposition& composition)
        : FeedCompositionGridBase(parent, id, &FeedComposition::CompoundEntry::effluent, composition)
    {}
};
