// SPDX-License-Identifier: MIT
#include "gui_base/input/validation/number_cells.h"

#include "gui_base/input/validation/numeric_validator.h"

namespace cells {

wxGridCellAttr* NewAttribute(const wxColour& background, const wxColour& text, bool readOnly, int alignment)
{
    auto* attribute = new wxGridCellAttr;
    attribute->SetBackgroundColour(background);
    attribute->SetTextColour(text);
    attribute->SetReadOnly(readOnly);
    attribute->SetAlignment(alignment, wxALIGN_CENTRE);
    return attribute;
}

std::optional<double> ParseNumber(wxGridTableBase& table, int column, const wxString& text)
{
    const auto number = NumericValidator::ParseNumber(text);
    if (number || wxString(text).Trim().empty() || table.GetView() == nullptr)
        return number;
    wxString name = table.GetColLabelValue(column);
    name.Replace("\n", " ");
    NumericValidator::TellNoNumber(*table.GetView(), name, text);
    return std::nullopt;
}

}  // namespace cells
