// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/auto_combobox.h"

#include "gui_base/input/controls/wheel.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace {

// Keys that move, open, switch or cancel, but type nothing.
constexpr std::array kMovingKeys{
    WXK_TAB,           WXK_ESCAPE,        WXK_SHIFT,         WXK_CONTROL,
    WXK_RAW_CONTROL,   WXK_ALT,           WXK_MENU,          WXK_CAPITAL,
    WXK_NUMLOCK,       WXK_SCROLL,        WXK_INSERT,        WXK_HOME,
    WXK_END,           WXK_PAGEUP,        WXK_PAGEDOWN,      WXK_PRINT,
    WXK_PAUSE,         WXK_HELP,          WXK_NUMPAD_HOME,   WXK_NUMPAD_END,
    WXK_NUMPAD_LEFT,   WXK_NUMPAD_UP,     WXK_NUMPAD_RIGHT,  WXK_NUMPAD_DOWN,
    WXK_NUMPAD_TAB,    WXK_NUMPAD_PAGEUP, WXK_NUMPAD_INSERT, WXK_WINDOWS_LEFT,
    WXK_WINDOWS_RIGHT, WXK_WINDOWS_MENU,  WXK_SNAPSHOT,      WXK_NUMPAD_PAGEDOWN,
};

}  // namespace

wxAutoComboBox::wxAutoComboBox(wxWindow* parent, int id, const wxString& value, const wxPoint& pos,
                               const wxSize& size, const wxArrayString& choices, long style,
                               const wxValidator& validator, const wxString& name)
    : wxComboBox(parent, id, value, pos, size, choices, style, validator, name)
{
    BindEvents();
}

void wxAutoComboBox::BindEvents()
{
    Bind(wxEVT_KEY_UP, &wxAutoComboBox::OnKeyUp, this);
    Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) { wheel::ScrollParentUnlessFocused(*this, event); });
}

void wxAutoComboBox::OnKeyUp(wxKeyEvent& event)
{
    event.Skip();
    SetLastKeyCode(event.GetKeyCode());
    ProcessTextInput();
    DispatchComboBoxSelectedEventToParent();
}

void wxAutoComboBox::ProcessTextInput()
{
    if (HasFlag(wxCB_READONLY))
        return;
    if (!IsTypingKey())
        return;
    if (GetValue().empty()) {
        SelectFirstListItem();
        return;
    }
    if (!IsSearchableKey()) {
        ResetSearchResults();
        return;
    }
    if (m_matcherIsStale || GetShownText() != m_lookedUp)
        SelectMatchingListItem();
    // Enter takes what is proposed.
    if (IsEnterKey() && IsItemFound())
        RemoveTextMarking();
    m_lookedUp = GetShownText();
}

void wxAutoComboBox::SelectMatchingListItem()
{
    CompareInputWithListItems();
    SetSelectionToFoundIndex();
    UpdateMarkedText();
}

void wxAutoComboBox::CompareInputWithListItems()
{
    ResetSearchResults();
    m_insertCursorPosition = GetInsertCursorPosition();
    if (IsCharLeftToProcess())
        FindMatchingListItemIndex();
}

void wxAutoComboBox::FindMatchingListItemIndex()
{
    // One pass finds the entry that trying ever shorter beginnings of the text would find.
    const autocomplete::Match match = GetMatcher().Find(GetValueUpToInsertCursorPosition().utf8_string());
    m_foundIndex = match.index;
    UpdateInsertCursorPosition(match.length);
}

void wxAutoComboBox::UpdateInsertCursorPosition(std::size_t matched)
{
    m_insertCursorPosition = std::min(m_insertCursorPosition, static_cast<long>(matched));
}

void wxAutoComboBox::ResetSearchResults()
{
    m_foundIndex = wxNOT_FOUND;
    m_insertCursorPosition = 0;
    m_lookedUp = {};
}

void wxAutoComboBox::SelectFirstListItem()
{
    ResetSearchResults();
    if (IsListEmpty())
        return;
    m_foundIndex = 0;
    SetSelectionToFoundIndex();
    UpdateMarkedText();
    m_lookedUp = GetShownText();
}

void wxAutoComboBox::SetSelectionToFoundIndex()
{
    const int selection = wxComboBox::GetSelection();
    if (!IsItemFound())
        ClearSelectionKeepingText();
    else if (selection != m_foundIndex || GetValue() != GetString(static_cast<unsigned>(m_foundIndex)))
        wxComboBox::SetSelection(m_foundIndex);
}

void wxAutoComboBox::ClearSelectionKeepingText()
{
    const int selection = wxComboBox::GetSelection();
    if (selection == wxNOT_FOUND)
        return;
    // Marking all of a chosen entry leaves nothing typed before the mark, and the choice as it is.
    const wxString text = GetValue();
    const long position = GetInsertCursorPosition();
    if (position == 0 && text == GetString(static_cast<unsigned>(selection)))
        return;
    wxComboBox::SetSelection(wxNOT_FOUND);
    if (GetValue() == text)
        return;
    ChangeValue(text);
    SetInsertionPoint(position);
}

void wxAutoComboBox::UpdateMarkedText()
{
    if (IsItemFound())
        MarkTextAfterInsertCursorPosition();
}

void wxAutoComboBox::MarkTextAfterInsertCursorPosition()
{
    wxComboBox::SetSelection(m_insertCursorPosition, GetLastPosition());
}

void wxAutoComboBox::RemoveTextMarking()
{
    SelectNone();
    SetInsertionPointEnd();
}

void wxAutoComboBox::DispatchComboBoxSelectedEventToParent()
{
    wxCommandEvent event(wxEVT_COMBOBOX, GetId());
    event.SetEventObject(this);
    event.SetInt(wxComboBox::GetSelection());
    event.SetString(GetValue());
    ProcessWindowEvent(event);
}

long wxAutoComboBox::GetInsertCursorPosition() const
{
    return GetShownText().from;
}

wxString wxAutoComboBox::GetValueUpToInsertCursorPosition() const
{
    return GetValue().Left(static_cast<std::size_t>(m_insertCursorPosition));
}

wxAutoComboBox::ShownText wxAutoComboBox::GetShownText() const
{
    ShownText shown{GetValue()};
    wxComboBox::GetSelection(&shown.from, &shown.to);
    return shown;
}

bool wxAutoComboBox::IsPartialMatchNoCase(const wxString& text, const wxString& prefix) const
{
    return autocomplete::IsPartialMatchNoCase(text.utf8_string(), prefix.utf8_string());
}

bool wxAutoComboBox::IsSearchableKey() const
{
    return !IsBackspace() && !IsLeftArrowKey() && !IsUpArrowKey() && !IsRightArrowKey() && !IsDownArrowKey();
}

bool wxAutoComboBox::IsTypingKey() const
{
    const bool function = m_lastKeyCode >= WXK_F1 && m_lastKeyCode <= WXK_F24;
    return !function && std::find(kMovingKeys.begin(), kMovingKeys.end(), m_lastKeyCode) == kMovingKeys.end();
}

bool wxAutoComboBox::IsEnterKey() const
{
    return m_lastKeyCode == WXK_RETURN || m_lastKeyCode == WXK_NUMPAD_ENTER;
}

bool wxAutoComboBox::IsBackspace() const
{
    return m_lastKeyCode == WXK_BACK;
}

bool wxAutoComboBox::IsUpArrowKey() const
{
    return m_lastKeyCode == WXK_UP;
}

bool wxAutoComboBox::IsDownArrowKey() const
{
    return m_lastKeyCode == WXK_DOWN;
}

bool wxAutoComboBox::IsLeftArrowKey() const
{
    return m_lastKeyCode == WXK_LEFT;
}

bool wxAutoComboBox::IsRightArrowKey() const
{
    return m_lastKeyCode == WXK_RIGHT;
}

const autocomplete::Matcher& wxAutoComboBox::GetMatcher()
{
    if (m_matcherIsStale) {
        std::vector<std::string> entries;
        entries.reserve(GetCount());
        for (unsigned i = 0; i < GetCount(); ++i)
            entries.push_back(GetString(i).utf8_string());
        m_matcher = autocomplete::Matcher(entries);
        m_matcherIsStale = false;
    }
    return m_matcher;
}

void wxAutoComboBox::SetString(unsigned int index, const wxString& text)
{
    wxComboBox::SetString(index, text);
    m_matcherIsStale = true;
}

int wxAutoComboBox::DoInsertItems(const wxArrayStringsAdapter& items, unsigned int pos, void** clientData,
                                  wxClientDataType type)
{
    m_matcherIsStale = true;
    return wxComboBox::DoInsertItems(items, pos, clientData, type);
}

void wxAutoComboBox::DoClear()
{
    wxComboBox::DoClear();
    m_matcherIsStale = true;
}

void wxAutoComboBox::DoDeleteOneItem(unsigned int index)
{
    wxComboBox::DoDeleteOneItem(index);
    m_matcherIsStale = true;
}
