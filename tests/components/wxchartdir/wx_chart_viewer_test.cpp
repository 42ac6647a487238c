// SPDX-License-Identifier: MIT
#include "wxchartdir/wx_chart_viewer.h"

#include "chartdir/xy_chart.h"
#include "tests/support/gui_test.h"

#include <gmock/gmock.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <cmath>

namespace {

using chartdir::XYChart;

class ChartViewer : public gui_test::GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_frame->SetClientSize(700, 500);
        wxPanel* panel = MakePanel();
        m_viewer = new wxChartViewer(panel, wxID_ANY);
        auto* sizer = new wxBoxSizer(wxVERTICAL);
        sizer->Add(m_viewer, wxSizerFlags(1).Expand());
        panel->SetSizer(sizer);
        panel->Layout();
        m_chart = std::make_shared<XYChart>(100, 100);
        m_chart->xAxis().setLinearScale(0, 10);
        m_chart->xAxis().setTitle("Velocity");
        m_chart->yAxis().setLinearScale(0, 100);
        auto& layer = m_chart->addLineLayer();
        layer.setXData({0, 10});
        layer.addDataSet({50, 50}, "level", 0);
        m_viewer->SetChart(m_chart);
        gui_test::Focus(*m_viewer);
        gui_test::Pump();
        // The screen shows a window some time after the toolkit does.
        bool isReached = false;
        m_viewer->Bind(wxEVT_MOTION, [&isReached, this](wxMouseEvent& event) {
            event.Skip();
            if (!m_isOnScreen)
                isReached = true;
        });
        int offset = 0;
        EXPECT_TRUE(gui_test::PumpUntil([&] {
            m_mouse.MouseMove(At(5, 5) + wxPoint(++offset % 2, 0));
            gui_test::Pump();
            return isReached;
        }));
        m_isOnScreen = true;
    }
    chartdir::Mapping Mapping() const { return m_chart->getMapping(); }
    /// Where a value stands on the screen.
    wxPoint At(double x, double y) const
    {
        const chartdir::Mapping mapping = Mapping();
        return m_viewer->ClientToScreen(wxPoint(static_cast<int>(std::lround(mapping.ToPixelX(x))),
                                                static_cast<int>(std::lround(mapping.ToPixelY(y)))));
    }
    void Move(wxPoint place)
    {
        m_mouse.MouseMove(place);
        EXPECT_TRUE(gui_test::PumpUntil([&] { return wxGetMousePosition() == place; }));
        gui_test::Pump();
    }
    void Press(int button, bool isDown)
    {
        isDown ? m_mouse.MouseDown(button) : m_mouse.MouseUp(button);
        EXPECT_TRUE(gui_test::PumpUntil([&] {
            const wxMouseState state = wxGetMouseState();
            return (button == wxMOUSE_BTN_LEFT ? state.LeftIsDown() : state.RightIsDown()) == isDown;
        }));
        gui_test::Pump();
    }
    void Drag(wxPoint from, wxPoint to, int button = wxMOUSE_BTN_LEFT)
    {
        Move(from);
        Press(button, true);
        Move(wxPoint((from.x + to.x) / 2, (from.y + to.y) / 2));
        m_rectangleWhileDragging = m_viewer->GetZoomRectangle().has_value();
        Move(to);
        Press(button, false);
    }
    void Wheel(double x, double y, int rotation)
    {
        const wxPoint place = m_viewer->ScreenToClient(At(x, y));
        wxMouseEvent event(wxEVT_MOUSEWHEEL);
        event.SetEventObject(m_viewer);
        event.SetPosition(place);
        event.m_wheelRotation = rotation;
        event.m_wheelDelta = 120;
        m_viewer->ProcessWindowEvent(event);
        gui_test::Pump();
    }

    wxChartViewer* m_viewer = nullptr;
    std::shared_ptr<XYChart> m_chart;
    wxUIActionSimulator m_mouse;
    bool m_isOnScreen = false;
    bool m_rectangleWhileDragging = false;
};

TEST_F(ChartViewer, DrawsTheChartInItsOwnSize)
{
    const wxSize size = m_viewer->GetClientSize();
    EXPECT_EQ(m_chart->getWidth(), size.x);
    EXPECT_EQ(m_chart->getHeight(), size.y);
    m_frame->SetClientSize(500, 400);
    EXPECT_TRUE(gui_test::PumpUntil([&] { return m_chart->getWidth() < size.x; }));
    EXPECT_EQ(m_chart->getHeight(), m_viewer->GetClientSize().y);
    const wxImage picture = m_viewer->GetPicture(2.0);
    EXPECT_EQ(picture.GetWidth(), 2 * m_chart->getWidth());
    EXPECT_EQ(picture.GetRed(1, 1), 255);
    m_viewer->SetChart(nullptr);
    gui_test::Pump();
    EXPECT_FALSE(m_viewer->GetPicture().IsOk());
    EXPECT_EQ(m_viewer->GetImageMapHandler(), nullptr);
}

TEST_F(ChartViewer, AnswersTheKeyboard)
{
    gui_test::Press('+');
    EXPECT_NEAR(Mapping().x.upper - Mapping().x.lower, 8.0, 1e-9);
    const double lower = Mapping().x.lower;
    gui_test::Press(WXK_RIGHT);
    EXPECT_NEAR(Mapping().x.lower, lower + 0.8, 1e-9);
    gui_test::Press(WXK_LEFT);
    gui_test::Press(WXK_UP);
    EXPECT_NEAR(Mapping().x.lower, lower, 1e-9);
    EXPECT_NEAR(Mapping().y.lower, 18.0, 1e-9);
    gui_test::Press(WXK_DOWN);
    EXPECT_NEAR(Mapping().y.lower, 10.0, 1e-9);
    gui_test::Press('-');
    EXPECT_TRUE(m_viewer->GetViewPortManager().isWhole());
    gui_test::Press('+');
    gui_test::Press(WXK_HOME);
    EXPECT_EQ(Mapping().x, (chartdir::Scale{0, 10}));
}

TEST_F(ChartViewer, ZoomsByTheWheelAtThePointer)
{
    const wxPoint before = At(2, 30);
    Wheel(2, 30, 240);
    EXPECT_NEAR(Mapping().x.upper - Mapping().x.lower, 6.4, 1e-9);
    EXPECT_NEAR(At(2, 30).x, before.x, 1);
    EXPECT_NEAR(At(2, 30).y, before.y, 1);
    Wheel(2, 30, -600);
    EXPECT_TRUE(m_viewer->GetViewPortManager().isWhole());
    // What cannot be zoomed further is for the page around it.
    int passedOn = 0;
    m_viewer->GetParent()->Bind(wxEVT_MOUSEWHEEL, [&](wxMouseEvent&) { ++passedOn; });
    m_viewer->Bind(wxEVT_MOUSEWHEEL, [&](wxMouseEvent&) { ++passedOn; });
    Wheel(2, 30, -120);
    EXPECT_EQ(passedOn, 1);
    Wheel(2, 30, 120);
    EXPECT_EQ(passedOn, 1);
}

TEST_F(ChartViewer, DraggingZoomsToARectangleAndThenMoves)
{
    Drag(At(2, 80), At(7, 20));
    EXPECT_TRUE(m_rectangleWhileDragging);
    EXPECT_FALSE(m_viewer->GetZoomRectangle());
    EXPECT_NEAR(Mapping().x.lower, 2.0, 0.05);
    EXPECT_NEAR(Mapping().x.upper, 7.0, 0.05);
    EXPECT_NEAR(Mapping().y.upper, 80.0, 0.5);
    const double span = Mapping().x.upper - Mapping().x.lower;
    const double lower = Mapping().x.lower;
    Drag(At(4, 50), At(5, 50));
    EXPECT_FALSE(m_rectangleWhileDragging);
    EXPECT_NEAR(Mapping().x.lower, lower - 1.0, 0.05);
    EXPECT_NEAR(Mapping().x.upper - Mapping().x.lower, span, 1e-9);
    Drag(At(2, 60), At(4, 40), wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(m_rectangleWhileDragging);
    EXPECT_NEAR(Mapping().x.lower, 2.0, 0.05);
    EXPECT_NEAR(Mapping().x.upper, 4.0, 0.05);
    m_mouse.MouseDblClick();
    gui_test::Pump();
    EXPECT_TRUE(m_viewer->GetViewPortManager().isWhole());
}

TEST_F(ChartViewer, EscapeGivesARectangleUp)
{
    Move(At(2, 80));
    Press(wxMOUSE_BTN_RIGHT, true);
    Move(At(7, 20));
    ASSERT_TRUE(m_viewer->GetZoomRectangle());
    gui_test::Press(WXK_ESCAPE);
    EXPECT_FALSE(m_viewer->GetZoomRectangle());
    Press(wxMOUSE_BTN_RIGHT, false);
    EXPECT_TRUE(m_viewer->GetViewPortManager().isWhole());
}

TEST_F(ChartViewer, TellsTheValueUnderThePointer)
{
    Move(At(4, 80));
    EXPECT_EQ(m_viewer->GetHotSpotText(), "");
    Move(At(4, 50));
    EXPECT_THAT(m_viewer->GetHotSpotText().utf8_string(), testing::StartsWith("level\nVelocity: 4"));
    EXPECT_EQ(m_viewer->GetToolTipText(), m_viewer->GetHotSpotText());
    // The map follows the view.
    Wheel(4, 50, 240);
    Move(At(4, 60));
    EXPECT_EQ(m_viewer->GetHotSpotText(), "");
}

TEST_F(ChartViewer, KeepsTheViewOfAChartThatIsReplacedWhenAsked)
{
    gui_test::Press('+');
    auto next = std::make_shared<XYChart>(10, 10);
    next->xAxis().setLinearScale(0, 100);
    m_viewer->SetChart(next, true);
    EXPECT_NEAR(next->getMapping().x.lower, 10.0, 1e-9);
    m_viewer->SetChart(next);
    EXPECT_NEAR(next->getMapping().x.lower, 0.0, 1e-9);
}

}  // namespace
