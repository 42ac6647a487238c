// SPDX-License-Identifier: MIT
#pragma once

/// A table of cost lines: name, quantity, price, and what these come to. Lines whose name is a detail are
/// hidden as long as it is empty. GUI thread only.

#include "gui_base/input/form/aligned_grid.h"
#include "gui_base/input/form/field_set.h"

#include <wx/sizer.h>

#include <deque>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace cost_table {

struct Line
{
    std::string nameKey = {};     ///< detail with an English name, which is shown translated; or
    const char* label = nullptr;  ///< source text
    std::string quantityKey = {};
    std::string priceKey = {};
};

/// A number that follows from a line.
struct Result
{
    const char* head;  ///< source text
    const char* unit;  ///< ISO unit
};

}  // namespace cost_table

class CostTable
{
public:
    /// Makes the table below `parent` in `fields`, which outlives it. `quantity` is the head of its column;
    /// the tables of a group line up.
    CostTable(FieldSet& fields, wxWindow* parent, const char* quantity,
              std::span<const cost_table::Line> lines, std::span<const cost_table::Result> results,
              const AlignedGrid::Group& group);
    CostTable(const CostTable&) = delete;
    CostTable& operator=(const CostTable&) = delete;

    wxSizer* GetSizer() const { return m_grid; }
    /// What lines come to, by the detail of their price and in the order of the results, for the fields to
    /// show next. `numbers` gives as many as there are results.
    void SetResults(const std::function<std::vector<double>(const std::string& priceKey)>& numbers);
    /// Shows names in the present language and hides lines without one. Whether any line is shown or hidden
    /// now that was not.
    bool ShowLines();
    bool HasLines() const;
    /// Names the fields for screen readers, each with its line and column.
    void NameFields(const std::string& unitSystem) const;

private:
    struct Named
    {
        wxWindow* field;
        const char* head;
        std::string unit;
    };
    struct Row
    {
        cost_table::Line line;
        class TvStaticText* name = nullptr;
        std::vector<wxWindow*> windows = {};
        std::vector<Named> named = {};
        std::vector<DetailData*> results = {};
        bool isShown = true;
    };

    void AddHead(wxWindow* parent, const char* text);
    wxWindow* AddUnit(wxWindow* parent, const std::string& isoUnit);
    void AddRow(wxWindow* parent, const cost_table::Line& line, const char* quantity,
                std::span<const cost_table::Result> results);
    void AddField(wxWindow* parent, Row& row, const char* head, DetailData& detail, bool isInput);
    std::string NameOf(const Row& row) const;

    FieldSet& m_fields;
    wxFlexGridSizer* m_grid;
    std::deque<DetailData> m_results;
    std::vector<Row> m_rows;
};
