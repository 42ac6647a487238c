// SPDX-License-Identifier: MIT
#pragma once

/// The notebook of the module panels: its pages can be split into tab groups, and the arrangement can be kept
/// as a text over a restart. Long texts of tabs are shortened in the middle. The tab of a page in front is in
/// sight after each change of the selection, of the texts and of the size, until the user scrolls the tabs.
///
/// The text names pages by their notebook index, so it fits a notebook to which the same pages were added in
/// the same order. It holds, parted by "|", the name and the pages of each group ("*" before the selected
/// page, "+" before the active page of another group), and after a "@" the layout text of the notebook's AUI
/// manager. GUI thread only.

#include "gui_base/gui_base_export.h"

#include <wx/aui/auibook.h>

#include <vector>

namespace perspective {
struct Group;
}

class GUI_BASE_EXPORT AuiNotebook : public wxAuiNotebook
{
public:
    AuiNotebook() = default;
    AuiNotebook(wxWindow* parent, int id, const wxPoint& pos = wxDefaultPosition,
                const wxSize& size = wxDefaultSize, long style = wxAUI_NB_DEFAULT_STYLE);

    /// Lets the user choose the page to bring to the front from a menu of all of them, by mouse or keys.
    void ShowPageList();
    /// Gives a page its text, and its tab the whole of it as a tip where it shows only a part.
    bool SetPageText(std::size_t page, const wxString& text) override;

    wxString SavePerspective();

    /// Restores an arrangement; true when the manager took its layout. A damaged text restores what can be
    /// understood of it and loses no page: an index that names no page is passed over, pages that the text
    /// does not name follow in the first group, groups without a page are not made, and every group stays in
    /// sight. A text that names no page of the notebook, or has no layout ("@" missing), gives false; the
    /// first of them changes nothing.
    ///
    /// The host hears of the selection (wxEVT_AUINOTEBOOK_PAGE_CHANGING and _CHANGED, once) only where
    /// another page is selected in the end; the steps between are silent, and the focus stays where it was
    /// unless its window is hidden now. A text without a selected page keeps the selection.
    bool LoadPerspective(const wxString& layout);

protected:
    int DoModifySelection(size_t n, bool events) override;

private:
    /// The groups in the manager's order.
    std::vector<wxAuiTabCtrl*> GetTabGroups();
    wxAuiTabCtrl* FindGroupOf(wxWindow* page);
    static void MovePageToEnd(wxAuiTabCtrl& from, wxAuiTabCtrl& to, wxWindow* page);
    /// Moves every page into the first group, which is then the only one.
    wxAuiTabCtrl* GatherPages();
    void BuildGroups(const std::vector<perspective::Group>& groups);
    void NameGroup(wxAuiTabCtrl* group, const std::string& name);
    void ActivatePages(const std::vector<perspective::Group>& groups);
    /// Loads the manager's layout and mends what would hide a group.
    bool LoadLayout(const std::string& layout);
    void SelectAfterRestore(int selection);
    void GiveFocusBack(wxWindow& window);
    void ShowActiveTabs();

    bool m_restoring = false;
    /// The tabs may lie elsewhere than when the one of the page in front was last brought in sight.
    bool m_tabsMoved = true;
};
