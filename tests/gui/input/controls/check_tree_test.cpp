// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/check_tree.h"

#include "tests/support/gui_test.h"

#include <wx/imaglist.h>
#include <wx/panel.h>
#include <wx/uiaction.h>

#include <memory>

namespace {

using namespace gui_test;

/// Opens what only derived classes see.
class Tree : public wxCheckTreeCtrl
{
public:
    using wxCheckTreeCtrl::GetItemChildrenRecursive;
    using wxCheckTreeCtrl::wxCheckTreeCtrl;
};

class CheckTreeTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_panel = MakePanel();
        m_tree = new Tree(m_panel, wxID_ANY, wxPoint(10, 10), wxSize(400, 500), wxTR_SINGLE);
        m_root = m_tree->AddRoot("root", false);
        m_a = m_tree->AppendItem(m_root, "a", true);
        m_a1 = m_tree->AppendItem(m_a, "a1", wxCKTR_PARTIAL, wxCKTR_PARTIAL);
        m_a2 = m_tree->AppendItem(m_a, "a2", false);
        m_b = m_tree->AppendItem(m_root, "b", wxCKTR_NO_BOX);
        m_tree->ExpandAll();
        Pump();
        m_panel->Bind(wxEVT_CKTR_ITEM_SELECTED, [this](wxCheckTreeCtrlEvent& e) { Hear("check ", e); });
        m_panel->Bind(wxEVT_CKTR_ITEM_UNSELECTED, [this](wxCheckTreeCtrlEvent& e) { Hear("uncheck ", e); });
    }
    void Hear(const std::string& what, wxCheckTreeCtrlEvent& event)
    {
        const std::unique_ptr<wxEvent> clone(event.Clone());
        const auto& heard = dynamic_cast<const wxCheckTreeCtrlEvent&>(*clone);
        EXPECT_EQ(heard.GetId(), m_tree->GetId());
        EXPECT_EQ(heard.GetEventObject(), m_tree);
        m_heard = what + m_tree->GetItemText(heard.GetItem()).utf8_string();
        if (m_veto)
            event.Veto();
    }
    /// Clicks on the box or on the text of an item; returns what the owner heard.
    std::string ClickItem(const wxTreeItemId& item, bool onBox = true, bool twice = false)
    {
        m_heard.clear();
        wxRect text;
        EXPECT_TRUE(m_tree->GetBoundingRect(item, text, true));
        const wxPoint point(onBox ? text.x - 10 : text.x + text.width / 2, text.y + text.height / 2);
        int flags = 0;
        EXPECT_EQ(m_tree->HitTest(point, flags), item);
        EXPECT_EQ((flags & wxTREE_HITTEST_ONITEMICON) != 0, onBox);
        wxUIActionSimulator simulator;
        simulator.MouseMove(m_tree->ClientToScreen(point));
        Pump();
        if (twice)
            simulator.MouseDblClick();
        else
            simulator.MouseClick();
        Pump();
        return m_heard;
    }
    int Image(const wxTreeItemId& item, wxTreeItemIcon which = wxTreeItemIcon_Normal)
    {
        return m_tree->GetItemImage(item, which);
    }
    std::vector<int> Images() { return {Image(m_root), Image(m_a), Image(m_a1), Image(m_a2), Image(m_b)}; }
    using Shown = std::vector<int>;

    wxPanel* m_panel = nullptr;
    Tree* m_tree = nullptr;
    wxTreeItemId m_root, m_a, m_a1, m_a2, m_b;
    std::string m_heard;
    bool m_veto = false;
};

TEST_F(CheckTreeTest, ImagesAreTheStates)
{
    EXPECT_TRUE(m_tree->HasFlag(wxTR_HAS_BUTTONS) && m_tree->HasFlag(wxTR_LINES_AT_ROOT));
    ASSERT_EQ(m_tree->GetImageList()->GetImageCount(), 8);
    EXPECT_EQ(m_tree->GetImageList()->GetSize(), wxSize(16, 16));
    // The eight pictures differ, but for the two without a box.
    std::vector<wxImage> pictures;
    for (int i = 0; i < 8; ++i)
        pictures.push_back(m_tree->GetImageList()->GetBitmap(i).ConvertToImage());
    const auto bytes = [](const wxImage& image) {
        std::string all(reinterpret_cast<const char*>(image.GetData()), 16 * 16 * 3);
        if (image.HasAlpha())
            all.append(reinterpret_cast<const char*>(image.GetAlpha()), 16 * 16);
        return all;
    };
    for (std::size_t i = 0; i < 8; ++i)
        for (std::size_t k = i + 1; k < 8; ++k)
            EXPECT_EQ(bytes(pictures[i]) == bytes(pictures[k]), i == 3 && k == 7) << i << " " << k;

    EXPECT_EQ(Images(), (Shown{0, 1, 2, 0, 3}));
    EXPECT_TRUE(m_tree->IsChecked(m_a));
    EXPECT_TRUE(m_tree->IsPartial(m_a1));
    m_tree->SetState(m_a, wxCKTR_CHECKED_DISABLED);
    EXPECT_TRUE(m_tree->IsChecked(m_a));
    EXPECT_EQ(Image(m_a, wxTreeItemIcon_Selected), wxCKTR_CHECKED_DISABLED);
    EXPECT_EQ(Image(m_tree->AppendItem(m_root, "no image given")), wxCKTR_NO_BOX);
}

TEST_F(CheckTreeTest, ClicksOnBoxesAskAndToggle)
{
    m_tree->SelectItem(m_a2);
    EXPECT_EQ(ClickItem(m_root), "check root");
    EXPECT_EQ(ClickItem(m_a), "uncheck a");
    EXPECT_EQ(ClickItem(m_a1), "uncheck a1");
    EXPECT_EQ(ClickItem(m_b), "check b");
    EXPECT_EQ(Images(), (Shown{1, 0, 0, 0, 1}));
    EXPECT_EQ(Image(m_b, wxTreeItemIcon_Selected), 1);
    EXPECT_EQ(m_tree->GetSelection(), m_a2) << "a click on a box selects nothing";
    EXPECT_TRUE(m_tree->HasFocus());

    EXPECT_EQ(ClickItem(m_a, false), "");
    EXPECT_EQ(m_tree->GetSelection(), m_a);
    EXPECT_EQ(Images(), (Shown{1, 0, 0, 0, 1}));

    m_veto = true;
    EXPECT_EQ(ClickItem(m_a2), "check a2");
    EXPECT_EQ(ClickItem(m_b), "uncheck b");
    EXPECT_EQ(Images(), (Shown{1, 0, 0, 0, 1}));
}

TEST_F(CheckTreeTest, TwoQuickClicksToggleTwice)
{
    EXPECT_EQ(ClickItem(m_a, true, true), "check a");
    EXPECT_EQ(Images(), (Shown{0, 1, 2, 0, 3}));
    EXPECT_TRUE(m_tree->IsExpanded(m_a)) << "a click on a box does not expand";
    ClickItem(m_a, false, true);
    EXPECT_FALSE(m_tree->IsExpanded(m_a));
}

TEST_F(CheckTreeTest, GreyedItemsTakeNoClicks)
{
    m_tree->SetState(m_a2, wxCKTR_UNCHECKED_DISABLED);
    m_tree->SelectItem(m_b);
    EXPECT_EQ(ClickItem(m_a2), "");
    EXPECT_EQ(ClickItem(m_a2, false), "");
    EXPECT_EQ(m_tree->GetSelection(), m_b);
    EXPECT_EQ(Images(), (Shown{0, 1, 2, 4, 3}));
    wxUIActionSimulator simulator;
    simulator.MouseMove(m_tree->ClientToScreen(wxPoint(300, 450)));
    simulator.MouseClick();
    Pump();
    EXPECT_EQ(m_heard, "");
}

TEST_F(CheckTreeTest, TheSpaceBarTogglesTheFocusedItem)
{
    Focus(*m_tree);
    m_tree->SelectItem(m_a1);
    Press(WXK_SPACE);
    EXPECT_EQ(m_heard, "uncheck a1");
    Press(WXK_DOWN);
    Press(WXK_SPACE);
    EXPECT_EQ(m_heard, "check a2");
    EXPECT_EQ(Images(), (Shown{0, 1, 0, 1, 3}));
    m_tree->SelectItem(m_b);
    Press(WXK_SPACE);
    EXPECT_EQ(m_heard, "check a2") << "an item without a box";
}

TEST_F(CheckTreeTest, OperationsReachChildrenAndParents)
{
    std::list<wxTreeItemId> items;
    m_tree->GetItemChildrenRecursive(m_root, items);
    EXPECT_EQ(items, (std::list<wxTreeItemId>{m_root, m_a, m_a1, m_a2, m_b}));
    m_tree->RecursiveCheck(m_a2, true);
    EXPECT_EQ(Images(), (Shown{0, 1, 2, 1, 3})) << "a leaf has nothing below";
    m_tree->RecursiveCheck(m_a, false);
    EXPECT_EQ(Images(), (Shown{0, 0, 0, 0, 3}));
    m_tree->RecursiveCheck(m_root, true);
    EXPECT_EQ(Images(), (Shown{1, 1, 1, 1, 1}));
    EXPECT_EQ(m_heard, "") << "only the user's changes ask";

    m_tree->PropagatePartialToRoot(m_a1);
    EXPECT_EQ(Images(), (Shown{2, 2, 1, 1, 1}));
    EXPECT_EQ(Image(m_a, wxTreeItemIcon_Selected), 1) << "only the normal image changes";
    m_tree->PropagatePartialToRoot(m_root);
    EXPECT_EQ(Images(), (Shown{2, 2, 1, 1, 1}));
}

TEST_F(CheckTreeTest, DisablingKeepsTheStates)
{
    EXPECT_FALSE(m_tree->Enable(true));
    EXPECT_EQ(Images(), (Shown{0, 1, 2, 0, 3}));
    EXPECT_TRUE(m_tree->Disable());
    EXPECT_EQ(Images(), (Shown{4, 5, 6, 4, 7}));
    EXPECT_EQ(Image(m_a, wxTreeItemIcon_Selected), 1) << "only the normal image changes";
    EXPECT_TRUE(m_tree->IsChecked(m_a));
    EXPECT_FALSE(m_tree->Enable(false));
    EXPECT_TRUE(m_tree->Enable());
    EXPECT_EQ(Images(), (Shown{0, 1, 2, 0, 3}));

    auto* empty = new wxCheckTreeCtrl(m_panel, wxID_ANY, wxPoint(450, 10), wxSize(200, 200));
    EXPECT_TRUE(empty->Enable(false));
    EXPECT_TRUE(empty->Enable(true));
    // Images set behind the control's back.
    empty->wxTreeCtrl::AddRoot("no image");
    EXPECT_FALSE(empty->IsChecked(empty->GetRootItem()));
    EXPECT_TRUE(empty->Enable(false));
    EXPECT_EQ(empty->GetItemImage(empty->GetRootItem()), wxCKTR_NO_BOX_DISABLED);
}

}  // namespace
