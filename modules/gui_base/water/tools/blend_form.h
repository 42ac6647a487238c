// SPDX-License-Identifier: MIT
#pragma once

/// How much is taken of each water: shares in percent, or flows. Rows are added and removed; one whose amount
/// is empty takes no part. The same water may stand in several rows.

#include "gui_base/input/form/value_keys.h"
#include "gui_base/water/tools/blend_row.h"

#include <string>
#include <vector>

class GUI_BASE_EXPORT BlendForm : public FormBlock
{
public:
    /// `waters` are the names to choose from; parts of others are left out.
    BlendForm(wxWindow* parent, const std::vector<std::string>& waters, const water::BlendRecipe& recipe);

    /// As the fields show it now.
    water::BlendRecipe GetRecipe();
    const std::vector<BlendRow*>& GetRows() const { return m_rows; }
    /// What the user is told where the shares of a complete recipe do not add up to 100 %, or an empty text.
    wxString GetShareRemark();
    /// Appends a row for the first water that stands in none yet, and goes to it.
    void AddWater();
    void RemoveRow(BlendRow* row);

    void Localize(const std::string& unitSystem) override;

    /// The key of the form's own detail, "SHARE" or "FLOW".
    static constexpr const char* kMode = "mode";

protected:
    void Signal() override;

private:
    BlendRow* AppendRow(const water::BlendPart& part, bool byFlow);
    /// Tab goes through the waters and amounts first, then through the buttons that remove them.
    void OrderTabs();
    /// Rows came or went.
    void RowsChanged();
    void AddSum(bool byFlow);
    bool IsByFlow();
    void ShowMode();
    void UpdateSum();

    std::vector<std::string> m_waters;
    std::vector<BlendRow*> m_rows;
    wxSizer* m_rowSizer = nullptr;
    wxSizer* m_shareSum = nullptr;
    wxSizer* m_flowSum = nullptr;
    wxWindow* m_add = nullptr;
    ValueKeys m_keys;
};
