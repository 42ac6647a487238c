// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/dialogs/row_list.h"
#include "gui_base/gui_base_export.h"

#include <wx/button.h>
#include <wx/dialog.h>

#include <vector>

class TvSearchControl;
class TVHelpFileProvider;

/// A dialog around a list that a search narrows, with a page of the user guide: Down leads from the search to
/// what it found, F1 and the Help button to the guide, Escape closes. Descendants make the parts in the order
/// in which Tab leads through them.
class GUI_BASE_EXPORT SearchedListDialog : public wxDialog
{
public:
    /// The user guide for the Help button; may be null.
    void SetHelp(const TVHelpFileProvider* help) { m_help = help; }

protected:
    /// `helpPage` is a page of the user guide, a text that stays.
    SearchedListDialog(wxWindow* parent, const wxString& title, const char* helpPage);

    /// `hint` is a source text.
    TvSearchControl* MakeSearch(const char* hint, std::size_t mostLetters);
    /// `growing` is the column that takes the width that the others leave; `name` is what screen readers say;
    /// `size` is in pixels of an ordinary display.
    RowList* MakeList(const std::vector<RowList::Column>& columns, int growing, const wxString& name,
                      const wxSize& size);
    wxButton* MakeHelpButton();
    /// Puts `content` into the dialog, which begins with its search.
    void Finish(wxSizer& content);

    TvSearchControl* m_search = nullptr;
    RowList* m_list = nullptr;

private:
    /// The list shows what the search found.
    virtual void DoShowFound() = 0;
    void OnCharHook(wxKeyEvent& event);
    void ShowHelp() const;

    const TVHelpFileProvider* m_help = nullptr;
    const char* m_helpPage;
};
