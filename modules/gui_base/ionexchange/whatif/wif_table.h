// SPDX-License-Identifier: MIT
#pragma once

/// The rows of a what-if analysis as the cells of a grid. Each row has two values of the project, of which
/// one is entered and the other one is found.

#include "gui_base/gui_base_export.h"
#include "projectbase/project/project.h"

#include <wx/grid.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

/// One side of a row.
struct WifDataPoint
{
    wxString name;                 ///< as it is shown
    wxString unit;                 ///< of the unit system on display
    DetailData* detail = nullptr;  ///< not owned
    std::string type = "double";   ///< "double", "long", "bool" or "string"
};

using WifPair = std::pair<WifDataPoint, WifDataPoint>;

class GUI_BASE_EXPORT WifTable : public wxGridTableBase
{
public:
    enum Column : int
    {
        kFirstName = 0,
        kFoundValue,
        kFirstUnit,
        kSecondName,
        kEnterValue,
        kSecondUnit,
        kColumnCount
    };
    enum class Side
    {
        First,
        Second
    };
    /// A number in the ISO unit of the row's entered value.
    using OnEntered = std::function<void(int row, double value)>;

    /// The project, which outlives the table, says in which units values are shown.
    WifTable(std::vector<WifPair> rows, const Project& project);
    ~WifTable() override;

    /// Without a handler, a value that is entered is stored.
    void SetOnEntered(OnEntered handler) { m_onEntered = std::move(handler); }
    /// Shows the same values of another project, a copy of the first one; rows that it does not have go.
    void ShowProject(const Project& shown, Project& project);

    const WifPair& GetRow(int row) const { return m_rows.at(static_cast<std::size_t>(row)).points; }
    static Side SideOf(int column) { return column < kSecondName ? Side::First : Side::Second; }
    static bool IsValueColumn(int column) { return column == kFoundValue || column == kEnterValue; }
    /// The side whose value is found; the other one is entered. At first it is the first one.
    Side GetFoundSide(int row) const { return m_rows.at(static_cast<std::size_t>(row)).found; }
    void SetFoundSide(int row, Side side) { m_rows.at(static_cast<std::size_t>(row)).found = side; }
    int GetEnteredColumn(int row) const
    {
        return GetFoundSide(row) == Side::First ? kEnterValue : kFoundValue;
    }
    bool HasFailed(int row) const { return m_rows.at(static_cast<std::size_t>(row)).hasFailed; }
    void SetFailed(int row, bool failed) { m_rows.at(static_cast<std::size_t>(row)).hasFailed = failed; }
    void TakeColours();

    int GetNumberRows() override { return static_cast<int>(m_rows.size()); }
    int GetNumberCols() override { return kColumnCount; }
    wxString GetValue(int row, int column) override;
    /// Takes a value of the side that is entered; a text that is none is passed over, and so are other cells.
    void SetValue(int row, int column, const wxString& text) override;
    wxString GetTypeName(int row, int column) override;
    bool CanGetValueAs(int row, int column, const wxString& type) override;
    bool CanSetValueAs(int row, int column, const wxString& type) override;
    /// In the unit on display, as all values of cells.
    double GetValueAsDouble(int row, int column) override;
    long GetValueAsLong(int row, int column) override;
    bool GetValueAsBool(int row, int column) override;
    void SetValueAsDouble(int row, int column, double value) override;
    void SetValueAsLong(int row, int column, long value) override;
    void SetValueAsBool(int row, int column, bool value) override;
    wxString GetColLabelValue(int column) override;
    wxGridCellAttr* GetAttr(int row, int column, wxGridCellAttr::wxAttrKind kind) override;

private:
    struct Row
    {
        WifPair points;
        Side found = Side::First;
        bool hasFailed = false;
    };

    const WifDataPoint& PointOf(int row, int column) const;
    /// The detail of a cell that shows or takes a value; null for others.
    DetailData* DetailOf(int row, int column) const;
    bool IsEntered(int row, int column) const;
    void Enter(int row, DetailData& detail, double displayed);
    wxGridCellAttr* NewAttribute(const wxColour& background, bool isNumber, bool isInput) const;
    void ReleaseAttributes();

    std::vector<Row> m_rows;
    const Project* m_project;
    OnEntered m_onEntered;
    /// By what a cell is: failed or not, a number or not, an input or not.
    wxGridCellAttr* m_attributes[2][2][2] = {};
};
