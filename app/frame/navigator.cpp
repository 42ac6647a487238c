// SPDX-License-Identifier: MIT
#include "app/frame/navigator.h"

#include "app/frame/main_frame.h"
#include "app/frame/menu_table.h"
#include "app/frame/page_host.h"
#include "app/frame/page_item.h"
#include "gui_base/support/translation.h"
#include "projectbase/water/liquid_data.h"

#include <wx/textctrl.h>

#include <algorithm>

namespace app {

Navigator::Navigator(wxTreeCtrl& tree, MainFrame& frame) : m_tree(tree), m_frame(frame)
{
    m_tree.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        FitNames(m_tree);
    });
    m_tree.Bind(wxEVT_TREE_BEGIN_LABEL_EDIT, [this](wxTreeEvent& event) {
        if (WaterOf(event.GetItem()) == nullptr) {
            event.Veto();
            return;
        }
        // The field takes the text of the item, which may be short of room.
        m_tree.SetItemText(event.GetItem(), WholeName(m_tree, event.GetItem()));
        m_tree.CallAfter([this] { WidenEditor(); });
    });
    m_tree.Bind(wxEVT_TREE_END_LABEL_EDIT, &Navigator::OnEditEnded, this);
    m_tree.Bind(wxEVT_TREE_BEGIN_DRAG, &Navigator::OnDragBegun, this);
    m_tree.Bind(wxEVT_TREE_END_DRAG, &Navigator::OnDragEnded, this);
    m_tree.Bind(wxEVT_TREE_ITEM_MENU, &Navigator::OnMenu, this);
    m_tree.Bind(wxEVT_TREE_KEY_DOWN, &Navigator::OnKey, this);
    m_tree.Bind(wxEVT_TREE_ITEM_GETTOOLTIP, [this](wxTreeEvent& event) {
        if (const wxString name = WholeName(m_tree, event.GetItem());
            name != m_tree.GetItemText(event.GetItem()))
            event.SetToolTip(name);
    });
}

LiquidData* Navigator::WaterOf(const wxTreeItemId& item) const
{
    const PageHost* page = PageOfItem(m_tree, item);
    return page == nullptr ? nullptr
                           : dynamic_cast<LiquidData*>(m_frame.GetProject().FindOwner(page->GetOwner()));
}

void Navigator::WidenEditor()
{
    // The toolkit's field is as wide as the name was, and one of a long name ends beyond the tree.
    constexpr int kLeastWidth = 48;
    wxTextCtrl* const editor = m_tree.GetEditControl();
    if (editor == nullptr)
        return;
    const int room = m_tree.GetClientSize().x - editor->GetPosition().x;
    editor->SetSize(std::max(room, m_tree.FromDIP(kLeastWidth)), wxDefaultCoord);
}

void Navigator::OnEditEnded(wxTreeEvent& event)
{
    LiquidData* water = WaterOf(event.GetItem());
    wxString name = event.GetLabel();
    name.Trim().Trim(false);
    // The tree shows what the project says, as far as it has room.
    event.Veto();
    m_tree.CallAfter([this] { FitNames(m_tree); });
    if (event.IsEditCancelled() || water == nullptr || name.empty() ||
        name == WholeName(m_tree, event.GetItem()))
        return;
    // The item goes when the tree is filled anew.
    m_frame.CallAfter([this, owner = water->GetOwner(), text = name.utf8_string()] {
        if (auto* renamed = dynamic_cast<LiquidData*>(m_frame.GetProject().FindOwner(owner)))
            m_frame.Waters().RenameTo(*renamed, text);
    });
}

void Navigator::OnDragBegun(wxTreeEvent& event)
{
    m_dragged = event.GetItem();
    if (WaterOf(m_dragged) != nullptr)
        event.Allow();
}

void Navigator::OnDragEnded(wxTreeEvent& event)
{
    LiquidData* water = WaterOf(m_dragged);
    const LiquidData* target = WaterOf(event.GetItem());
    if (water == nullptr || target == nullptr || water == target)
        return;
    m_frame.CallAfter([this, owner = water->GetOwner(), place = target->GetPosition()] {
        if (auto* moved = dynamic_cast<LiquidData*>(m_frame.GetProject().FindOwner(owner)))
            m_frame.Waters().MoveTo(*moved, place);
    });
}

void Navigator::OnMenu(wxTreeEvent& event)
{
    LiquidData* water = WaterOf(event.GetItem());
    if (water == nullptr)
        return;
    // The commands act on the water in front.
    m_tree.SelectItem(event.GetItem());
    wxMenu menu;
    WaterCommands& waters = m_frame.Waters();
    AppendItem(menu, i18n::Translated("Rename") + "\tF2",
               [this] { m_tree.EditLabel(m_tree.GetSelection()); });
    AppendItem(menu, i18n::Translated("&Duplicate water"), [&waters] { waters.Duplicate(); });
    AppendItem(menu, i18n::Translated("&Add water"), [&waters] { waters.Add(); });
    menu.AppendSeparator();
    if (waters.CanMove(-1))
        AppendItem(menu, i18n::Translated("Move water &up"), [&waters] { waters.Move(-1); });
    if (waters.CanMove(1))
        AppendItem(menu, i18n::Translated("Mo&ve water down"), [&waters] { waters.Move(1); });
    AppendItem(menu, i18n::Translated("&Remove water"), [&waters] { waters.Remove(); });
    m_tree.PopupMenu(&menu);
}

void Navigator::OnKey(wxTreeEvent& event)
{
    const wxTreeItemId selected = m_tree.GetSelection();
    if (event.GetKeyCode() == WXK_F2 && WaterOf(selected) != nullptr)
        m_tree.EditLabel(selected);
    else if (event.GetKeyCode() == WXK_DELETE && WaterOf(selected) != nullptr)
        m_frame.Waters().Remove();
    else
        event.Skip();
}

}  // namespace app
