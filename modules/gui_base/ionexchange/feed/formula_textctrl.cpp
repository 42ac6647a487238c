// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/formula_textctrl.h"

#include "gui_base/input/controls/tv_textctrl.h"

#include <wx/clipbrd.h>
#include <wx/settings.h>

#include <algorithm>
#include <span>

namespace {

/// Longer texts than any formula are cut, so that a pasted file does not stop the program.
constexpr std::size_t kLongestFormula = 10'000;
/// Further faults keep the colour of the text: nobody counts them, and each takes its time at every key.
constexpr std::size_t kMostColoured = 100;

wxString OneLine(wxString text)
{
    text.Replace("\r", wxString());
    text.Replace("\n", wxString());
    return text.Left(kLongestFormula).Trim(true).Trim(false);
}

}  // namespace

FormulaTextCtrl::FormulaTextCtrl(wxWindow* parent, int id)
    : wxTextCtrl(parent, id, wxString(), wxDefaultPosition, wxDefaultSize,
                 wxTE_MULTILINE | wxTE_RICH2 | wxTE_DONTWRAP | wxTE_NO_VSCROLL)
{
    const int height = wxTextCtrl(parent, wxID_ANY).GetBestSize().y;
    SetMinSize(wxSize(-1, height));
    SetMaxSize(wxSize(-1, height));
    SetMargins(FromDIP(wxPoint(8, 4)));
    SetBackgroundColour(TvTextCtrl::EditableColour());
    Bind(wxEVT_KEY_DOWN, &FormulaTextCtrl::OnKey, this);
    Bind(wxEVT_TEXT_PASTE, &FormulaTextCtrl::OnPaste, this);
}

std::string FormulaTextCtrl::GetFormula() const
{
    return OneLine(GetValue()).utf8_string();
}

void FormulaTextCtrl::ShowFaults(const std::vector<FormulaFault>& faults)
{
    const std::string formula = GetFormula();
    const wxString shown = GetValue();
    const wxString text = wxString::FromUTF8(formula);
    const int start = std::max(0, shown.Find(text));
    SetStyle(0, GetLastPosition(),
             wxTextAttr(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT), TvTextCtrl::EditableColour()));
    for (const FormulaFault& fault : std::span(faults).first(std::min(faults.size(), kMostColoured))) {
        // Faults count bytes, the field counts characters.
        const auto characters = [&formula](std::size_t bytes) {
            return static_cast<long>(wxString::FromUTF8(formula.data(), bytes).length());
        };
        SetStyle(start + characters(fault.position), start + characters(fault.position + fault.length),
                 wxTextAttr(*wxBLACK, FaultColour()));
    }
}

void FormulaTextCtrl::OnKey(wxKeyEvent& event)
{
    switch (event.GetKeyCode()) {
        case WXK_RETURN:
        case WXK_NUMPAD_ENTER: {
            wxCommandEvent enter(wxEVT_TEXT_ENTER, GetId());
            enter.SetEventObject(this);
            ProcessWindowEvent(enter);
            break;
        }
        case WXK_TAB:
            Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
            break;
        default:
            event.Skip();
    }
}

void FormulaTextCtrl::OnPaste(wxClipboardTextEvent&)
{
    const wxClipboardLocker lock;
    wxTextDataObject data;
    if (!!lock && wxTheClipboard->GetData(data))
        WriteText(OneLine(data.GetText()));
}
