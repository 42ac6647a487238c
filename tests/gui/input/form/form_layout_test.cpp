// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/flow_sizer.h"
#include "gui_base/input/controls/tv_datepickerctrl.h"
#include "gui_base/input/form/aligned_grid.h"
#include "tests/support/gui_test.h"

#include <wx/combo.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

namespace {

using namespace gui_test;

class FormLayoutTest : public GuiTest
{
protected:
    wxWindow* Block(int width, int height = 20)
    {
        return new wxPanel(m_frame, wxID_ANY, wxDefaultPosition, wxSize(width, height));
    }
    void LayOut(wxSizer& sizer)
    {
        const wxSize least = sizer.CalcMin();
        sizer.SetDimension(wxPoint(0, 0), least);
    }
};

TEST_F(FormLayoutTest, GridsOfAGroupLineUp)
{
    const AlignedGrid::Group group = AlignedGrid::NewGroup();
    auto* page = new wxBoxSizer(wxVERTICAL);
    m_frame->SetSizer(page);
    std::vector<wxWindow*> seconds;
    std::vector<wxWindow*> firsts;
    for (const int width : {40, 100}) {
        auto* grid = new AlignedGrid(3, wxSize(8, 4), group);
        firsts.push_back(Block(width));
        grid->Add(firsts.back());
        seconds.push_back(Block(200 - width));
        grid->Add(seconds.back());
        page->Add(grid);
    }
    LayOut(*page);
    EXPECT_EQ(seconds[0]->GetPosition().x, 108);
    EXPECT_EQ(seconds[1]->GetPosition().x, 108);
    EXPECT_EQ(page->CalcMin().x, 108 + 160);
    // What is gone, or hidden, needs no room.
    firsts[1]->Hide();
    seconds[1]->Hide();
    LayOut(*page);
    EXPECT_EQ(seconds[0]->GetPosition().x, 48);
    firsts[1]->Show();
    page->Remove(1);
    LayOut(*page);
    EXPECT_EQ(seconds[0]->GetPosition().x, 48);
}

TEST_F(FormLayoutTest, AFlowBreaksItsLinesBesideWhatStandsBeforeIt)
{
    // Width of the page, places of the two blocks of the inner flow.
    struct Case
    {
        int width;
        wxPoint first;
        wxPoint second;
        int spare;  // beside the first block, and what stands in its line
    };
    auto* outer = new FlowSizer(10);
    m_frame->SetSizer(outer);
    outer->Add(Block(300, 100));
    auto* inner = new FlowSizer(10);
    wxWindow* const first = Block(200, 40);
    wxWindow* const second = Block(220, 40);
    inner->Add(first);
    inner->Add(second);
    outer->Add(inner);
    for (const Case& each : {Case{740, {310, 0}, {520, 0}, 0}, Case{739, {310, 0}, {310, 50}, 209},
                             Case{530, {310, 0}, {310, 50}, 0}, Case{529, {0, 110}, {210, 110}, 229},
                             Case{429, {0, 110}, {0, 160}, 129}, Case{200, {0, 110}, {0, 160}, -100},
                             Case{740, {310, 0}, {520, 0}, 0}}) {
        FlowSizer::GiveRoom(*outer, each.width);
        LayOut(*outer);
        EXPECT_EQ(first->GetPosition(), each.first) << each.width;
        EXPECT_EQ(second->GetPosition(), each.second) << each.width;
        EXPECT_EQ(outer->GetSpareWidth(), each.spare) << each.width;
    }
}

TEST_F(FormLayoutTest, ADateHasRoomForItsText)
{
    DetailData detail("date", DetailType::Date);
    detail.SetValue(wxDateTime(24, wxDateTime::Mar, 2020));
    auto* date = new TvDatePickerCtrl(m_frame, wxID_ANY, &detail);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(date);
    m_frame->SetSizer(row);
    m_frame->Layout();
    Pump();
    auto* combo = dynamic_cast<wxComboCtrl*>(date->GetChildren().front());
    ASSERT_NE(combo, nullptr);
    constexpr int kMargins = 8;
    EXPECT_GE(combo->GetTextCtrl()->GetSize().x, combo->GetTextExtent("2020-03-24").x + kMargins);
    date->Destroy();
}

}  // namespace
