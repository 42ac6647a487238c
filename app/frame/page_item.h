// SPDX-License-Identifier: MIT
#pragma once

/// Items of the tree of pages. What an item shows of its name depends on the width of the tree; the whole
/// name stays with its data.

#include <wx/control.h>
#include <wx/treectrl.h>

namespace app {

class PageHost;

/// Data of an item: its whole name and the page that it stands for, null where it only holds others. Names
/// that the user gave are shortened in the middle, since they often begin alike, others at their end.
class PageItem : public wxTreeItemData
{
public:
    PageItem(const wxString& name, wxEllipsizeMode howToShorten, PageHost* host)
        : m_name(name), m_howToShorten(howToShorten), m_host(host)
    {}
    const wxString& GetName() const { return m_name; }
    wxEllipsizeMode GetHowToShorten() const { return m_howToShorten; }
    PageHost* GetHost() const { return m_host; }

private:
    wxString m_name;
    wxEllipsizeMode m_howToShorten;
    PageHost* m_host;
};

/// The page that an item stands for, or null.
PageHost* PageOfItem(const wxTreeCtrl& tree, const wxTreeItemId& item);
/// The name of an item, however little of it is shown.
wxString WholeName(const wxTreeCtrl& tree, const wxTreeItemId& item);
/// Shows of every name as much as the tree has room for.
void FitNames(wxTreeCtrl& tree);
/// How wide the tree has to be to show all names whole.
int WidthOfNames(wxTreeCtrl& tree);

/// Calls `visit` with every item below one, depth first, until it returns true.
template <typename Visit>
bool VisitItems(const wxTreeCtrl& tree, const wxTreeItemId& parent, const Visit& visit)
{
    wxTreeItemIdValue cookie;
    for (wxTreeItemId item = tree.GetFirstChild(parent, cookie); item.IsOk();
         item = tree.GetNextChild(parent, cookie)) {
        if (visit(item) || VisitItems(tree, item, visit))
            return true;
    }
    return false;
}

}  // namespace app
