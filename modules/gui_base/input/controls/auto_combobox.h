// SPDX-License-Identifier: MIT
#pragma once

/// A combo box that completes what the user types with the first list entry that starts with it.
///
/// After each key the typed text, or the longest beginning of it that any entry starts with (letter case
/// ignored), is looked up; the entry found is selected and its remaining letters are marked, so that the next
/// letter replaces them. Nothing is proposed while the user takes text away or only moves about: Backspace,
/// Delete, arrows, Tab, Home, End, modifiers and the like change nothing, and neither does any key that left
/// text and cursor as they were (a composition of an input method under way). Enter accepts the proposal.
/// Text that no entry starts with stays, with no entry selected; clearing the text selects the first entry.
///
/// Every key that is released sends a wxEVT_COMBOBOX (integer: the selection or wxNOT_FOUND, text: the shown
/// text), whether it changed the selection or not. The wheel over an unfocused box scrolls the panel around
/// it. GUI thread only.

#include "core/autocomplete.h"
#include "gui_base/gui_base_export.h"

#include <wx/combobox.h>

class GUI_BASE_EXPORT wxAutoComboBox : public wxComboBox
{
public:
    wxAutoComboBox(wxWindow* parent, int id, const wxString& value = {},
                   const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                   const wxArrayString& choices = {}, long style = 0,
                   const wxValidator& validator = wxDefaultValidator,
                   const wxString& name = wxASCII_STR(wxComboBoxNameStr));

    void SetString(unsigned int index, const wxString& text) override;

protected:
    /// Tells the owners about the present selection.
    void DispatchComboBoxSelectedEventToParent();

    int DoInsertItems(const wxArrayStringsAdapter& items, unsigned int pos, void** clientData,
                      wxClientDataType type) override;
    void DoClear() override;
    void DoDeleteOneItem(unsigned int index) override;

private:
    /// What the box showed after the last key that was looked up.
    struct ShownText
    {
        wxString text;
        long from = -1;
        long to = -1;

        bool operator==(const ShownText&) const = default;
    };

    void BindEvents();
    void OnKeyUp(wxKeyEvent& event);
    void ProcessTextInput();
    void CompareInputWithListItems();
    void FindMatchingListItemIndex();
    void SelectMatchingListItem();
    void SelectFirstListItem();
    void SetSelectionToFoundIndex();
    void ClearSelectionKeepingText();
    void ResetSearchResults();
    void UpdateInsertCursorPosition(std::size_t matched);
    void UpdateMarkedText();
    void MarkTextAfterInsertCursorPosition();
    void RemoveTextMarking();
    void SetLastKeyCode(int keyCode) { m_lastKeyCode = keyCode; }

    bool IsItemFound() const { return m_foundIndex != wxNOT_FOUND; }
    bool IsPartialMatchNoCase(const wxString& text, const wxString& prefix) const;
    bool IsSearchableKey() const;
    bool IsTypingKey() const;
    bool IsEnterKey() const;
    bool IsBackspace() const;
    bool IsUpArrowKey() const;
    bool IsDownArrowKey() const;
    bool IsLeftArrowKey() const;
    bool IsRightArrowKey() const;
    bool IsCharLeftToProcess() const { return m_insertCursorPosition > 0; }
    long GetInsertCursorPosition() const;
    wxString GetValueUpToInsertCursorPosition() const;
    ShownText GetShownText() const;
    const autocomplete::Matcher& GetMatcher();

    int m_foundIndex = wxNOT_FOUND;
    /// Leading characters that the user typed; the rest is the proposal.
    long m_insertCursorPosition = 0;
    int m_lastKeyCode = 0;
    ShownText m_lookedUp;
    autocomplete::Matcher m_matcher;
    bool m_matcherIsStale = true;
};
