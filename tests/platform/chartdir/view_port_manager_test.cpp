// SPDX-License-Identifier: MIT
#include "chartdir/view_port_manager.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using namespace chartdir;

constexpr Rect kPlot{100, 50, 600, 400};

class ViewPort : public testing::Test
{
protected:
    ViewPort()
    {
        m_chart.setPlotArea(kPlot);
        m_chart.xAxis().setLinearScale(0, 60);
        m_chart.yAxis().setLogScale(1, 10000);
        m_view.setPlotArea(kPlot);
    }
    Mapping Synced()
    {
        m_view.syncAxes(m_chart);
        return m_chart.getMapping();
    }

    XYChart m_chart{900, 600};
    ViewPortManager m_view;
};

TEST_F(ViewPort, ZoomsWithThePointerStayingAtItsValue)
{
    const double x = Synced().ToValueX(250);
    const double y = Synced().ToValueY(300);
    for (const double factor : {0.5, 0.8, 0.9, 1.25}) {
        ASSERT_TRUE(m_view.zoomAt(250, 300, factor));
        EXPECT_NEAR(Synced().ToPixelX(x), 250, 1e-6);
        EXPECT_NEAR(Synced().ToPixelY(y), 300, 1e-6);
    }
    EXPECT_NEAR(Synced().x.upper - Synced().x.lower, 60 * 0.5 * 0.8 * 0.9 * 1.25, 1e-9);
    for (const auto& [px, py, factor] : {std::tuple{99.0, 300.0, 0.5},
                                         {250.0, 451.0, 0.5},
                                         {250.0, 300.0, 0.0},
                                         {250.0, 300.0, std::nan("")}})
        EXPECT_FALSE(m_view.zoomAt(px, py, factor));
    EXPECT_TRUE(m_view.canZoomOut());
    EXPECT_TRUE(m_view.showAll());
    EXPECT_EQ(Synced().x, (Scale{0, 60}));
    EXPECT_FALSE(m_view.showAll());
}

TEST_F(ViewPort, ZoomsToARectangleOfPixels)
{
    ASSERT_TRUE(m_view.zoomTo({400, 350}, {250, 150}));
    EXPECT_NEAR(Synced().x.lower, 15, 1e-9);
    EXPECT_NEAR(Synced().x.upper, 30, 1e-9);
    EXPECT_NEAR(Synced().y.lower, 10, 1e-9);
    EXPECT_NEAR(Synced().y.upper, 1000, 1e-9);
    EXPECT_FALSE(m_view.zoomTo({400, 350}, {402, 150})) << "a slip of the hand";
    EXPECT_FALSE(m_view.zoomTo({0, 0}, {90, 40})) << "beside the plot area";
    m_view.showAll();
    m_view.setDirections(Directions::Horizontal);
    ASSERT_TRUE(m_view.zoomTo({250, 300}, {5000, 300}));
    EXPECT_NEAR(Synced().x.lower, 15, 1e-9);
    EXPECT_NEAR(Synced().x.upper, 60, 1e-9);
    EXPECT_EQ(m_view.getViewPort().height, 1.0);
}

TEST_F(ViewPort, MovesWithThePointerAsFarAsThereIsSomething)
{
    EXPECT_FALSE(m_view.dragTo(50, 50)) << "the whole is in view";
    ASSERT_TRUE(m_view.zoomTo({250, 150}, {400, 350}));
    m_view.startDrag();
    const double value = Synced().ToValueX(300);
    for (const double dx : {10.0, 45.0, -80.0}) {
        EXPECT_TRUE(m_view.dragTo(dx, 0));
        EXPECT_NEAR(Synced().ToPixelX(value), 300 + dx, 1e-6);
    }
    m_view.dragTo(1e9, -1e9);
    EXPECT_NEAR(Synced().x.lower, 0, 1e-9);
    EXPECT_NEAR(Synced().y.lower, 1, 1e-9);
    EXPECT_NEAR(m_view.getViewPort().width, 0.25, 1e-12);
    EXPECT_TRUE(m_view.scrollBy(0.5, 0));
    EXPECT_NEAR(m_view.getViewPort().x, 0.125, 1e-12);
    EXPECT_FALSE(m_view.scrollBy(0.0, 0.0));
}

TEST_F(ViewPort, StaysWithinTheWholeWhateverIsAsked)
{
    for (const Rect& bad : {Rect{-1, -1, 0.5, 0.5}, Rect{0.9, 0.9, 0.5, 0.5}, Rect{0, 0, 7, 7},
                            Rect{0.5, 0.5, -1, 0}, Rect{std::nan(""), 0, 1, std::nan("")}}) {
        m_view.setViewPort(bad);
        EXPECT_FALSE(m_view.validateViewPort());
    }
    m_view.showAll();
    std::mt19937 random(3);
    std::uniform_real_distribution<double> any(-300, 1200);
    for (int i = 0; i < 3000; ++i) {
        switch (random() % 4) {
            case 0:
                m_view.zoomAt(any(random), any(random), std::abs(any(random)) / 300);
                break;
            case 1:
                m_view.zoomTo({any(random), any(random)}, {any(random), any(random)});
                break;
            case 2:
                m_view.startDrag();
                m_view.dragTo(any(random), any(random));
                break;
            default:
                m_view.scrollBy(any(random) / 300, any(random) / 300);
        }
        const Rect view = m_view.getViewPort();
        ASSERT_TRUE(view.x >= 0 && view.y >= 0 && view.Right() <= 1 + 1e-12 && view.Bottom() <= 1 + 1e-12 &&
                    view.width >= 1e-6 && view.height >= 1e-6);
        const Mapping mapping = Synced();
        ASSERT_TRUE(std::isfinite(mapping.ToPixelX(mapping.ToValueX(300))));
    }
    for (int i = 0; i < 200; ++i)
        m_view.zoomAt(300, 300, 0.5);
    EXPECT_FALSE(m_view.canZoomIn());
}

}  // namespace
