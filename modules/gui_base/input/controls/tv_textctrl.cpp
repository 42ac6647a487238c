// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_textctrl.h"

#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/settings.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <utility>

namespace {

/// In DIP, above and below the text together.
constexpr int kMargins = 6;

/// A field that was left would still look like the one in which one types; whoever only goes to a menu has
/// not left it.
void LeaveFormerField(TvTextCtrl& entered)
{
    static wxWeakRef<TvTextCtrl> former;
    if (former != nullptr && former != &entered)
        former->SelectNone();
    former = &entered;
}

}  // namespace

TvTextCtrl::TvTextCtrl(wxWindow* parent, int id, const wxString& value, const wxPoint& pos,
                       const wxSize& size, long style, const wxValidator& validator, const wxString& name)
    : wxTextCtrl(parent, id, value, pos, size, style | wxTE_PROCESS_ENTER, validator, name)
{
    ApplyEditableColour((style & wxTE_READONLY) == 0);
    if ((style & wxTE_MULTILINE) != 0)
        return;
    // The toolkit's own answer for a field without text knows nothing of larger texts.
    if (const int least = GetCharHeight() + FromDIP(kMargins); GetBestSize().y < least)
        SetMinSize(wxSize(GetMinSize().x, least));
    Bind(wxEVT_KEY_DOWN, &TvTextCtrl::OnKeyDown, this);
    // Also when the keyboard comes back, as from a list of units: what is typed next replaces the value,
    // unless it was being typed.
    Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        LeaveFormerField(*this);
        if (!wxGetMouseState().LeftIsDown())
            SelectWhenEntered();
    });
    Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
        m_isEnteredByClick = !HasFocus();
        event.Skip();
    });
    Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
        event.Skip();
        // A part that was marked with the mouse stays marked.
        if (std::exchange(m_isEnteredByClick, false) && GetStringSelection().empty())
            CallAfter([this] { SelectAll(); });
    });
}

void TvTextCtrl::OnKeyDown(wxKeyEvent& event)
{
    event.Skip();
    const bool isEnter = event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER;
    if (!isEnter || event.HasAnyModifiers())
        return;
    SelectWhenEntered();
}

void TvTextCtrl::SelectWhenEntered()
{
    // After a commit.
    CallAfter([this] {
        if (HasFocus() && !IsModified())
            SelectAll();
    });
}

bool TvTextCtrl::SetHint(const wxString& text)
{
    m_hintText = text;
    return wxTextCtrl::SetHint(i18n::Translated(text));
}

void TvTextCtrl::Localize(const std::string&)
{
    if (m_hintText.empty())
        return;
    // Where hints are emulated, the shown hint reads like a value and would survive the switch.
    if (GetValue() == GetHint())
        ChangeValue(wxString());
    wxTextCtrl::SetHint(i18n::Translated(m_hintText));
}

void TvTextCtrl::SetEditable(bool editable)
{
    wxTextCtrl::SetEditable(editable);
    ApplyEditableColour(editable && IsThisEnabled());
}

void TvTextCtrl::DoEnable(bool enable)
{
    wxTextCtrl::DoEnable(enable);
    const bool isTyped = enable && IsEditable();
    const wxColour now = GetBackgroundColour();
    // The colour of a value out of range stays.
    if (now == EditableColour() || now == ReadOnlyColour())
        ApplyEditableColour(isTyped);
    else
        UpdateValidatorDefaultColor(isTyped);
}

void TvTextCtrl::ChangeValue(const wxString& value)
{
    wxTextCtrl::ChangeValue(value);
}

void TvTextCtrl::SetNameAndUnit(const wxString& label, const wxString& unit)
{
    accessibility::SetName(*this, accessibility::NameWithUnit(label, unit));
    if (auto* validator = dynamic_cast<NumericValidator*>(GetValidator()))
        validator->SetUnit(unit);
}

void TvTextCtrl::SetStatusBar(wxStatusBar* statusBar)
{
    if (auto* validator = dynamic_cast<Validator*>(GetValidator()))
        validator->SetStatusBar(statusBar);
}

bool TvTextCtrl::TransferDataToWindow()
{
    UpdateValidatorDefaultColor(IsEditable() && IsThisEnabled());
    return wxTextCtrl::TransferDataToWindow();
}

wxColour TvTextCtrl::EditableColour()
{
    const wxColour window = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
    // A dark theme has nearly one colour for fields and what lies around them.
    constexpr int kDarker = 70;
    return wxSystemSettings::GetAppearance().IsDark() ? window.ChangeLightness(kDarker) : window;
}

wxColour TvTextCtrl::ReadOnlyColour()
{
    return wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
}

void TvTextCtrl::UpdateValidatorDefaultColor(bool editable)
{
    if (auto* validator = dynamic_cast<Validator*>(GetValidator()))
        validator->SetDefaultColor(editable ? EditableColour() : ReadOnlyColour());
}

void TvTextCtrl::ApplyEditableColour(bool editable)
{
    UpdateValidatorDefaultColor(editable);
    const wxColour colour = editable ? EditableColour() : ReadOnlyColour();
    if (GetBackgroundColour() != colour) {
        SetBackgroundColour(colour);
        Refresh();
    }
}
