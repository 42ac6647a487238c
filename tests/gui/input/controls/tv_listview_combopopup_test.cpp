// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_listview_combopopup.h"

#include "tests/support/gui_test.h"

#include <wx/panel.h>
#include <wx/uiaction.h>

namespace {

using namespace gui_test;

class ListViewComboPopupTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_combo = new wxComboCtrl(MakePanel(), wxID_ANY, "", wxPoint(20, 20), wxSize(250, -1), wxCB_READONLY);
        m_popup = new tvListViewComboPopup;
        m_combo->SetPopupControl(m_popup);
        m_popup->AppendColumn("Name", wxLIST_FORMAT_LEFT, 120);
        m_popup->AppendColumn("Formula", wxLIST_FORMAT_LEFT, 80);
        m_combo->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) {
            m_heard.push_back(std::to_string(event.GetInt()) + " " + event.GetString().utf8_string());
        });
    }
    void AddRows(std::initializer_list<const char*> names)
    {
        for (const char* name : names)
            m_popup->SetItem(m_popup->InsertItem(m_popup->GetItemCount(), name), 1, "x");
    }
    wxPoint Row(long row)
    {
        wxRect rect;
        EXPECT_TRUE(m_popup->GetItemRect(row, rect));
        return m_popup->ClientToScreen(rect.GetPosition() + wxPoint(20, rect.height / 2));
    }
    void Open()
    {
        m_combo->Popup();
        ASSERT_TRUE(PumpUntil([this] { return m_combo->IsPopupShown() && m_popup->IsShownOnScreen(); }));
    }
    using Events = std::vector<std::string>;

    wxComboCtrl* m_combo = nullptr;
    tvListViewComboPopup* m_popup = nullptr;
    Events m_heard;
};

TEST_F(ListViewComboPopupTest, SizeFollowsRowsAndColumns)
{
    // Two rows more than there are, for heading and scroll bar.
    EXPECT_EQ(m_popup->GetAdjustedSize(50, 400, 600), wxSize(200, 40));
    EXPECT_EQ(m_popup->GetAdjustedSize(300, 30, 600), wxSize(300, 30));
    EXPECT_EQ(m_popup->GetAdjustedSize(50, 400, 25), wxSize(200, 25));
    AddRows({"a", "b", "c", "d", "e", "f", "g", "h"});
    wxRect row;
    ASSERT_TRUE(m_popup->GetItemRect(0, row));
    EXPECT_EQ(m_popup->GetAdjustedSize(50, 1000, 1000), wxSize(200, 10 * row.height));
    EXPECT_EQ(m_popup->GetAdjustedSize(50, 100, 1000), wxSize(220, 100)) << "with a scroll bar";
}

TEST_F(ListViewComboPopupTest, ValueIsTheFirstColumnOfTheChosenRow)
{
    EXPECT_EQ(m_popup->GetStringValue(), "");
    AddRows({"Lime", "Salt", "Salt"});
    EXPECT_EQ(m_popup->GetStringValue(), "");
    m_popup->SetStringValue("Salt");
    EXPECT_EQ(m_popup->GetSelectedRow(), 1);
    EXPECT_EQ(m_popup->GetStringValue(), "Salt");
    m_popup->SetStringValue("salt");
    EXPECT_EQ(m_popup->GetSelectedRow(), wxNOT_FOUND);
    EXPECT_EQ(m_popup->GetStringValue(), "");
    m_popup->SetStringValue("Salt");
    m_popup->DeleteAllItems();
    EXPECT_EQ(m_popup->GetStringValue(), "");
    EXPECT_TRUE(m_popup->HasFlag(wxLC_REPORT) && m_popup->HasFlag(wxLC_SINGLE_SEL));
}

TEST_F(ListViewComboPopupTest, PointerHighlightsAndClickChooses)
{
    AddRows({"Lime", "Salt", "Soda"});
    Open();
    wxUIActionSimulator simulator;
    simulator.MouseMove(Row(0));
    Pump();
    simulator.MouseMove(Row(2));
    ASSERT_TRUE(PumpUntil([this] { return m_popup->GetFirstSelected() == 2; }));
    EXPECT_EQ(m_popup->GetStringValue(), "") << "not chosen yet";
    simulator.MouseMove(Row(1));
    Pump();
    simulator.MouseClick();
    ASSERT_TRUE(PumpUntil([this] { return !m_combo->IsPopupShown(); }));
    EXPECT_EQ(m_combo->GetValue(), "Salt");
    EXPECT_EQ(m_heard, Events{"1 Salt"});
}

TEST_F(ListViewComboPopupTest, KeysChooseOrLeave)
{
    AddRows({"Lime", "Salt", "Soda"});
    m_combo->SetValueByUser("Salt");
    m_heard.clear();
    Open();
    EXPECT_EQ(m_popup->GetFirstSelected(), 1);
    Press(WXK_DOWN);
    EXPECT_EQ(m_popup->GetFirstSelected(), 2);
    Press(WXK_ESCAPE);
    ASSERT_TRUE(PumpUntil([this] { return !m_combo->IsPopupShown(); }));
    EXPECT_EQ(m_combo->GetValue(), "Salt");
    EXPECT_EQ(m_heard, Events{});
    Open();
    EXPECT_EQ(m_popup->GetFirstSelected(), 1) << "what was only highlighted is forgotten";
    Press(WXK_UP);
    Press(WXK_RETURN);
    ASSERT_TRUE(PumpUntil([this] { return !m_combo->IsPopupShown(); }));
    EXPECT_EQ(m_combo->GetValue(), "Lime");
    EXPECT_EQ(m_heard, Events{"0 Lime"});
}

}  // namespace
