// SPDX-License-Identifier: MIT
#pragma once

/// The field for a formula: one line in which each part that cannot be read is coloured while it is typed.
/// Only fields of several lines can have colours within their text, hence it is one that takes no line end.

#include "core/chemical_formula_parser.h"
#include "gui_base/gui_base_export.h"

#include <wx/textctrl.h>

#include <vector>

class GUI_BASE_EXPORT FormulaTextCtrl : public wxTextCtrl
{
public:
    explicit FormulaTextCtrl(wxWindow* parent, int id = wxID_ANY);

    /// The formula as UTF-8.
    std::string GetFormula() const;
    /// Colours the parts of the present text.
    void ShowFaults(const std::vector<FormulaFault>& faults);
    /// Background of a part that cannot be read; the text on it is black.
    static wxColour FaultColour() { return {255, 160, 144}; }

private:
    void OnKey(wxKeyEvent& event);
    void OnPaste(wxClipboardTextEvent& event);
};
