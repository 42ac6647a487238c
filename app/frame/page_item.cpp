// SPDX-License-Identifier: MIT
#include "app/frame/page_item.h"

#include <wx/control.h>
#include <wx/dcclient.h>

#include <algorithm>

namespace app {
namespace {

const PageItem* DataOf(const wxTreeCtrl& tree, const wxTreeItemId& item)
{
    return item.IsOk() ? dynamic_cast<const PageItem*>(tree.GetItemData(item)) : nullptr;
}

/// Calls `visit` with every item, its data and where its text begins, counted from the left of the whole
/// tree.
template <typename Visit>
void VisitNames(wxTreeCtrl& tree, const Visit& visit)
{
    if (tree.IsEmpty())
        return;
    // The toolkit places its items in asking for the best size.
    tree.InvalidateBestSize();
    tree.GetBestSize();
    VisitItems(tree, tree.GetRootItem(), [&](const wxTreeItemId& item) {
        wxRect text;
        const PageItem* data = DataOf(tree, item);
        if (data != nullptr && tree.GetBoundingRect(item, text, true))
            visit(item, *data, tree.CalcUnscrolledPosition(text.GetTopLeft()).x);
        return false;
    });
}

}  // namespace

PageHost* PageOfItem(const wxTreeCtrl& tree, const wxTreeItemId& item)
{
    const PageItem* data = DataOf(tree, item);
    return data == nullptr ? nullptr : data->GetHost();
}

wxString WholeName(const wxTreeCtrl& tree, const wxTreeItemId& item)
{
    const PageItem* data = DataOf(tree, item);
    return data == nullptr ? wxString() : data->GetName();
}

void FitNames(wxTreeCtrl& tree)
{
    constexpr int kMargin = 4;
    const int width = tree.GetClientSize().x - tree.FromDIP(kMargin);
    wxClientDC dc(&tree);
    dc.SetFont(tree.GetFont());
    VisitNames(tree, [&](const wxTreeItemId& item, const PageItem& data, int left) {
        const wxString fitting = wxControl::Ellipsize(data.GetName(), dc, data.GetHowToShorten(),
                                                      width - left, wxELLIPSIZE_FLAGS_NONE);
        if (tree.GetItemText(item) != fitting)
            tree.SetItemText(item, fitting);
    });
}

int WidthOfNames(wxTreeCtrl& tree)
{
    wxClientDC dc(&tree);
    dc.SetFont(tree.GetFont());
    int right = 0;
    VisitNames(tree, [&](const wxTreeItemId&, const PageItem& data, int left) {
        right = std::max(right, left + dc.GetTextExtent(data.GetName()).x);
    });
    return right;
}

}  // namespace app
