// SPDX-License-Identifier: MIT
#pragma once

/// The frame of all validators: the link between the text of a control and a program variable.
///
/// The control keeps a clone of the validator it is given; the variable belongs to whoever created the
/// validator and outlives the control. The validator filters keys, shows hints in a status bar while the
/// field has the focus, and commits an edited text when the focus leaves: the variable is set and a
/// wxEVT_TEXT_ENTER is processed by the control, which is how panels learn of an edit. GUI thread only.

#include "gui_base/gui_base_export.h"

#include <wx/colour.h>
#include <wx/event.h>
#include <wx/statusbr.h>
#include <wx/validate.h>
#include <wx/weakref.h>

/// Bits of a validator's flags.
enum ValidatorFlag : int
{
    CheckMin = 1,            ///< a value below the minimum violates it
    CheckMinExclusive = 2,   ///< a value below or equal to the minimum violates it
    CheckMax = 4,            ///< a value above the maximum violates it
    CheckMaxExclusive = 8,   ///< a value above or equal to the maximum violates it
    ClampToLimits = 16,      ///< a violation sets the value to the limit instead of colouring the field
    TrimZeros = 32,          ///< fixed notation drops trailing zeros
    ZeroAsEmpty = 64,        ///< zero is shown as an empty field
    GroupThousands = 256,    ///< fixed notation groups thousands
    ShowPreciseValue = 512,  ///< the status bar shows the value with two more digits
    PlainNumbers = 1024,     ///< general notation has no exponent from a millionth to a thousand million
    DetectionLimits =
        2048,  ///< "<0.05" states a limit of detection (core/detection_limit.h), no negative amount
    ShortExponents = 4096,  ///< general notation writes "1.5e-7" for "1.500000e-07"
};

class GUI_BASE_EXPORT Validator : public wxValidator
{
public:
    explicit Validator(int flags);
    Validator(const Validator& other);
    Validator& operator=(const Validator& other);

    wxObject* Clone() const override { return DoClone(); }
    /// Transfers the control's text; always true, since a bad input is coloured and never refused.
    bool Validate(wxWindow* parent) override;
    bool TransferToWindow() override;
    /// Parses the text into the variable when the user changed it; always true.
    bool TransferFromWindow() override;

    /// The bar that shows hints while the field has the focus; not owned, may be null.
    void SetStatusBar(wxStatusBar* statusBar) { m_statusBar = statusBar; }
    /// Background of a field in range.
    void SetDefaultColor(const wxColour& colour) { m_defaultColour = colour; }
    const wxColour& GetDefaultColor() const { return m_defaultColour; }
    /// Commits an edited text as the loss of focus does; nothing for a text that is not edited. Menu commands
    /// call it, since accelerators do not move the focus. Returns false when the commit destroyed the
    /// control.
    bool CommitIfModified();
    /// Writes the hints of the field with the focus anew, after a change of language.
    void ShowHints() { UpdateStatusbar(); }
    /// Processes the wxEVT_TEXT_ENTER of a commit on the control.
    void SendTextEventToControl();

protected:
    virtual Validator* DoClone() const = 0;
    virtual void DoTransferFromWindow() = 0;
    virtual void DoTransferToWindow() = 0;
    /// Writes the hints of the focused field into the status bar.
    virtual void UpdateStatusbar() {}
    virtual bool IsAllowedKey(int key) const = 0;

    wxString GetControlValue() const;
    /// Shows `text` without sending an event; the field counts as not edited afterwards.
    void SetControlValue(const wxString& text);
    bool IsControlEmpty() const;
    bool IsControlModified() const;
    /// Colours the field; text on the pale alarm colours is set dark, so that it stays readable in a dark
    /// theme.
    void SetControlBackgroundColor(const wxColour& colour);
    void SetStatusbarText(const wxString& text, int field);
    int GetFlags() const { return m_flags; }
    bool HasFlag(int flag) const { return (m_flags & flag) != 0; }

private:
    void BindEvents();
    void InitDefaultColour();
    void OnChar(wxKeyEvent& event);
    void OnFocusGot(wxFocusEvent& event);
    void OnFocusLost(wxFocusEvent& event);
    void ClearStatusbar();

    int m_flags;
    wxColour m_defaultColour;
    wxWeakRef<wxStatusBar> m_statusBar;
    /// Text last shown, for controls that do not tell whether they were edited.
    wxString m_shownText;
};
