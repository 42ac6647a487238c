// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/statusbr.h>
#include <wx/textctrl.h>

#include <string>

/// A text field with a translatable hint and a background that shows whether it can be edited. It always
/// processes the Enter key; it is editable unless its style has wxTE_READONLY. Of one line, its text is
/// selected when it is clicked into and after Enter, so that what is typed then replaces it.
class GUI_BASE_EXPORT TvTextCtrl : public wxTextCtrl
{
public:
    TvTextCtrl(wxWindow* parent, int id, const wxString& value = {}, const wxPoint& pos = wxDefaultPosition,
               const wxSize& size = wxDefaultSize, long style = 0,
               const wxValidator& validator = wxDefaultValidator,
               const wxString& name = wxASCII_STR(wxTextCtrlNameStr));

    /// Stores the source text and shows its translation.
    bool SetHint(const wxString& text) override;
    virtual void Localize(const std::string& unitSystem);
    void SetEditable(bool editable) override;
    void ChangeValue(const wxString& value) override;
    /// Names the field by a label in the user's language and the unit that it shows, which also stands behind
    /// the hints of a number in the status bar; an empty unit is none.
    void SetNameAndUnit(const wxString& label, const wxString& unit);
    /// Hands the bar to the control's validator.
    void SetStatusBar(wxStatusBar* statusBar);
    bool TransferDataToWindow() override;

    /// Background of a field that can be edited, or cannot, in the present theme.
    static wxColour EditableColour();
    static wxColour ReadOnlyColour();

protected:
    /// Makes the colour of the editable state the one that the validator gives a value in range.
    void UpdateValidatorDefaultColor(bool editable);
    /// A field that is off looks like a result, and nobody tries to type into it.
    void DoEnable(bool enable) override;

private:
    void ApplyEditableColour(bool editable);
    void OnKeyDown(wxKeyEvent& event);
    void SelectWhenEntered();

    wxString m_hintText;
    bool m_isEnteredByClick = false;
};
