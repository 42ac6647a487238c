// SPDX-License-Identifier: MIT
#include "gui_base/graphics/diagrams/diagram_page.h"

#include "chartdir/plane_chart.h"
#include "chartdir/stiff_chart.h"
#include "chartdir/xy_chart.h"
#include "gui_base/graphics/diagrams/water_diagram_panel.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/events.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/settings/settings.h"
#include "tests/support/gui_test.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/filedlg.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace gui_test;
using testing::ElementsAre;
using testing::HasSubstr;
using water_diagram::Kind;

/// A project of two waters and the page of its diagrams.
class DiagramPageTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        for (const water_diagram::OptionRow& row : water_diagram::OptionRows())
            Settings::Reset(row.setting);
        m_frame->SetClientSize(1200, 800);
        support::SetWater(m_project, {{"ca", 3}, {"mg", 1}, {"na", 1}, {"hco3", 3}, {"so4", 1}, {"cl", 1}});
        {
            const ProjectEdit edit(m_project);
            m_project.RenameOwner(m_project.GetLiquid(0), "Well");
            m_project.AddLiquid("Softened");
            Set(1, {{"na", 5}, {"hco3", 3}, {"so4", 1}, {"cl", 1}});
        }
        m_project.SetChanged(false);
        m_page = new DiagramPage(m_project, m_frame);
        m_frame->SendSizeEvent();
        Pump();
    }
    void TearDown() override
    {
        m_frame->DestroyChildren();
        GuiTest::TearDown();
    }
    void Set(std::size_t water, const support::IonsInMeq& meq)
    {
        const ProjectEdit edit(m_project);
        DetailList& details = *m_project.GetLiquid(water).GetDetails();
        for (const auto& [ion, value] : meq) {
            details.At("liquid/" + ion + ".orig").SetValue(value);
            details.At("liquid/" + ion + ".unit").SetValue("meq/l");
        }
    }
    wxChartViewer& Viewer(Kind kind) { return m_page->GetGrid().GetViewer(kind); }
    /// How many diagrams stand side by side above the others.
    std::ptrdiff_t InTopRow()
    {
        return std::ranges::count_if(water_diagram::kKinds, [this](Kind kind) {
            return Viewer(kind).GetPosition().y == Viewer(water_diagram::kKinds.front()).GetPosition().y;
        });
    }
    const chartdir::PlaneChart& Piper()
    {
        return dynamic_cast<const chartdir::PlaneChart&>(*Viewer(Kind::Piper).GetChart());
    }
    const chartdir::StiffChart& Stiff()
    {
        return dynamic_cast<const chartdir::StiffChart&>(*Viewer(Kind::Stiff).GetChart());
    }
    std::vector<std::string> PiperWaters()
    {
        std::vector<std::string> names;
        for (const auto& series : Piper().getSeries())
            names.push_back(series.name);
        return names;
    }
    template <typename Control>
    Control& In(const char* name)
    {
        return Find<Control>(*m_page, name);
    }
    void MoveTo(const wxWindow& window, chartdir::Point place)
    {
        wxUIActionSimulator mouse;
        const wxPoint at = window.ClientToScreen(
            wxPoint(static_cast<int>(std::lround(place.x)), static_cast<int>(std::lround(place.y))));
        // The screen shows a window some time after the toolkit does, and a pointer that stands tells
        // nothing.
        mouse.MouseMove(at + wxPoint(40, 40));
        Pump();
        mouse.MouseMove(at);
        PumpUntil([&] { return wxGetMousePosition() == at; });
        Pump();
    }

    iex::IEXProject m_project{"iex"};
    DiagramPage* m_page = nullptr;
};

TEST_F(DiagramPageTest, ShowsAllDiagramsOfAllWatersAndFollowsEveryEdit)
{
    EXPECT_THAT(PiperWaters(), ElementsAre("Well", "Softened"));
    const auto anions = [this](std::size_t water) { return Piper().getSeries()[water].spots[1].at; };
    // Of 5 meq/l of anions one is sulfate and one chloride.
    EXPECT_NEAR(anions(0).x, 1.1 + 0.2 + 0.1, 1e-9);
    EXPECT_EQ(Stiff().getFigures()[0].rows[1].left, 3.0);
    Set(0, {{"cl", 6}});
    Pump();
    EXPECT_NEAR(anions(0).x, 1.1 + 0.6 + 0.05, 1e-9);
    EXPECT_EQ(Stiff().getFigures()[0].rows[0].right, 6.0);
    EXPECT_NEAR(anions(1).x, 1.1 + 0.2 + 0.1, 1e-9);
    // The closing ion counts once the water is balanced.
    {
        const ProjectEdit edit(m_project);
        m_project.GetLiquid(0).GetDetails()->At("liquid/balance.auto").SetValue(true);
    }
    EXPECT_EQ(Stiff().getFigures()[0].rows[0].left, 6.0);
    {
        const ProjectEdit edit(m_project);
        m_project.AddLiquid("Third");
        m_project.RenameOwner(m_project.GetLiquid(0), "River");
    }
    EXPECT_EQ(Stiff().getFigures().size(), 3U);
    EXPECT_EQ(In<wxCheckListBox>("Waters").GetString(0), "River");
    EXPECT_EQ(In<wxCheckListBox>("Waters").GetCount(), 3U);
    m_project.RemoveOwner(m_project.GetLiquid(1));
    EXPECT_EQ(Stiff().getFigures().size(), 2U);
}

TEST_F(DiagramPageTest, DrawsAnewOnlyWhereAUsedValueChanged)
{
    const auto chart = Viewer(Kind::Bars).GetChart();
    {
        const ProjectEdit edit(m_project);
        m_project.GetDetails().At("project/title").SetValue("Plant");
        m_project.GetLiquid(0).GetDetails()->At("liquid/turbidity").SetValue(3.0);
    }
    EXPECT_EQ(Viewer(Kind::Bars).GetChart(), chart);
    Set(1, {{"na", 5.001}});
    EXPECT_NE(Viewer(Kind::Bars).GetChart(), chart);
}

TEST_F(DiagramPageTest, AWaterIsHiddenAndShownByKeyboard)
{
    auto& list = In<wxCheckListBox>("Waters");
    const chartdir::SeriesStyle style = Piper().getSeries()[1].style;
    Focus(list);
    Press(WXK_HOME);
    Press(WXK_SPACE);
    EXPECT_THAT(PiperWaters(), ElementsAre("Softened"));
    // It keeps its colour, and what is edited meanwhile does not bring the other back.
    EXPECT_EQ(Piper().getSeries()[0].style.colour, style.colour);
    Set(0, {{"cl", 2}});
    EXPECT_THAT(PiperWaters(), ElementsAre("Softened"));
    EXPECT_FALSE(list.IsChecked(0));
    {
        const ProjectEdit edit(m_project);
        m_project.MoveOwner(m_project.GetLiquid(0), 1);
    }
    EXPECT_THAT(PiperWaters(), ElementsAre("Softened"));
    EXPECT_FALSE(list.IsChecked(1));
    Focus(list);
    Press(WXK_HOME);
    Press(WXK_DOWN);
    Press(WXK_SPACE);
    EXPECT_THAT(PiperWaters(), ElementsAre("Softened", "Well"));
}

TEST_F(DiagramPageTest, OptionsChangeTheDiagramsAndNothingElse)
{
    Set(0, {{"no3", 5}});
    m_project.SetChanged(false);
    Pump();
    Click(Labelled<wxCheckBox>(*m_page, "Piper: NO3, F and Br with Cl"));
    EXPECT_NEAR(Piper().getSeries()[0].spots[1].at.x, 1.1 + 0.6 + 0.05, 1e-9);
    Click(Labelled<wxCheckBox>(*m_page, "Piper: size by dissolved solids"));
    EXPECT_NE(Piper().getSeries()[0].spots[0].size, Piper().getSeries()[1].spots[0].size);
    Focus(Labelled<wxCheckBox>(*m_page, "Stiff: Fe and NO3"));
    Press(WXK_SPACE);
    EXPECT_EQ(Stiff().getRows().size(), 4U);
    Click(Labelled<wxCheckBox>(*m_page, "Schoeller: NO3"));
    const auto& schoeller = dynamic_cast<const chartdir::XYChart&>(*Viewer(Kind::Schoeller).GetChart());
    EXPECT_EQ(schoeller.xAxis().getLabels().size(), 7U);
    EXPECT_FALSE(m_project.IsChanged());
}

TEST_F(DiagramPageTest, OptionsAreTheSameOnTheNextPage)
{
    Click(Labelled<wxCheckBox>(*m_page, "Stiff: Fe and NO3"));
    Click(Labelled<wxCheckBox>(*m_page, "Schoeller: NO3"));
    Click(Labelled<wxCheckBox>(*m_page, "Schoeller: NO3"));
    Click(Labelled<wxCheckBox>(*m_page, "Piper: size by dissolved solids"));
    const water_diagram::Options chosen{.sizeByDissolved = true, .fourthRowInStiff = true};
    EXPECT_EQ(water_diagram::ChosenOptions(), chosen);
    m_frame->DestroyChildren();
    m_page = new DiagramPage(m_project, m_frame);
    m_frame->SendSizeEvent();
    Pump();
    EXPECT_TRUE(Labelled<wxCheckBox>(*m_page, "Stiff: Fe and NO3").GetValue());
    EXPECT_FALSE(Labelled<wxCheckBox>(*m_page, "Schoeller: NO3").GetValue());
    EXPECT_EQ(Stiff().getRows().size(), 4U) << "drawn as well";
}

TEST_F(DiagramPageTest, OneDiagramHasTheWholeRoomAndAWideWindowTakesAllInARow)
{
    EXPECT_EQ(InTopRow(), 2);
    const wxSize quarter = Viewer(Kind::Piper).GetSize();
    auto& choice = In<tvChoice>("Diagram Type");
    Focus(choice);
    choice.SetSelection(3);
    wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
    event.SetEventObject(&choice);
    choice.ProcessWindowEvent(event);
    Pump();
    EXPECT_FALSE(Viewer(Kind::Bars).IsShown());
    EXPECT_GT(Viewer(Kind::Piper).GetSize().x, 1.9 * quarter.x);
    EXPECT_GT(Viewer(Kind::Piper).GetSize().y, 1.9 * quarter.y);
    // Hidden ones follow when they come back.
    Set(0, {{"ca", 9}});
    choice.SetSelection(0);
    choice.ProcessWindowEvent(event);
    EXPECT_EQ(Stiff().getFigures()[0].rows[1].left, 9.0);
    m_frame->SetClientSize(1590, 420);
    Pump();
    EXPECT_EQ(InTopRow(), 4);
    EXPECT_EQ(Viewer(Kind::Bars).GetPosition().y, Viewer(Kind::Schoeller).GetPosition().y);
}

TEST_F(DiagramPageTest, ANarrowPageHasThemBelowEachOtherAndTheInputsInSight)
{
    m_frame->SetClientSize(560, 480);
    EXPECT_TRUE(PumpUntil([this] { return InTopRow() == 1; }));
    EXPECT_TRUE(PumpUntil([this] { return m_page->GetVirtualSize().y >= 4 * 160; }));
    EXPECT_TRUE(PumpUntil([this] { return m_page->GetVirtualSize().x <= m_page->GetClientSize().x; }));
    for (const Kind kind : water_diagram::kKinds)
        EXPECT_GE(Viewer(kind).GetSize().y, 160) << NameOf(kind);
    m_frame->SetClientSize(1200, 800);
    EXPECT_TRUE(PumpUntil([this] { return m_page->GetVirtualSize().y <= m_page->GetClientSize().y; }));
    EXPECT_EQ(InTopRow(), 2);
}

TEST_F(DiagramPageTest, TellsWhatIsUnderThePointer)
{
    wxChartViewer& piper = Viewer(Kind::Piper);
    ASSERT_TRUE(PumpUntil([&] {
        MoveTo(piper, Piper().toPixel(Piper().getSeries()[1].spots[2].at));
        return !piper.GetHotSpotText().empty();
    }));
    EXPECT_THAT(piper.GetHotSpotText().utf8_string(), HasSubstr("Softened"));
    EXPECT_THAT(piper.GetHotSpotText().utf8_string(), HasSubstr("Na\u207a+K\u207a 100.0\u00a0%"));
    wxChartViewer& stiff = Viewer(Kind::Stiff);
    const auto corner = Stiff().getPolygon(0)[1];
    MoveTo(stiff, {corner.x + 2.0, corner.y});
    EXPECT_THAT(stiff.GetHotSpotText().utf8_string(),
                HasSubstr("Well: Ca\u00b2\u207a\n3\u00a0meq/l\n60.0\u00a0% of the cations"));
}

TEST_F(DiagramPageTest, CopiesAndExportsTheDiagramThatWasUsedLast)
{
    const auto pictureSize = [] {
        const wxClipboardLocker locker;
        wxBitmapDataObject data;
        return wxTheClipboard->GetData(data) ? data.GetBitmap().GetSize() : wxSize();
    };
    const auto sizeOf = [this](Kind kind) { return Viewer(kind).GetClientSize() * 2; };
    auto& copy = Labelled<TvButton>(*m_page, "Copy Diagram");
    Click(copy);
    EXPECT_EQ(pictureSize(), sizeOf(Kind::Bars));
    Click(Viewer(Kind::Piper));
    EXPECT_EQ(&m_page->GetGrid().GetCurrentViewer(), &Viewer(Kind::Piper));
    const support::TempFolder folder;
    for (const auto& [name, magic] :
         {std::pair{"a.png", "\x89PNG"}, {"b.jpg", "\xff\xd8"}, {"c.pdf", "%PDF"}, {"d.svg", "<?xml"}}) {
        m_dialogs.Expect([&, file = name](wxDialog& shown) {
            ChooseFile(dynamic_cast<wxFileDialog&>(shown), folder / file);
            return static_cast<int>(wxID_OK);
        });
        Click(Labelled<TvButton>(*m_page, "Export Diagram"));
        EXPECT_THAT(support::ReadBytes(folder / name), testing::StartsWith(magic)) << name;
    }
    // Only Piper's is drawn with triangles: its text is in the vectors.
    const std::string svg = support::ReadBytes(folder / "d.svg");
    Viewer(Kind::Piper).GetChart()->setTheme(chartdir::LightTheme());
    EXPECT_EQ(svg.size(), Viewer(Kind::Piper).GetChart()->makeChart2(chartdir::ImageFormat::Svg).size());
}

TEST_F(DiagramPageTest, FollowsTheLanguage)
{
    wxCommandEvent language(tvLOCALIZE_EVENT);
    {
        const TestCatalogue catalogue({{"Piper diagram", "Rautenbild"}, {"Waters", "W\u00e4sser"}});
        m_page->ProcessWindowEvent(language);
        Pump();
        EXPECT_EQ(Piper().getTitle(), "Rautenbild");
        EXPECT_EQ(&Find<wxChartViewer>(*m_page, "Rautenbild"), &Viewer(Kind::Piper));
    }
    // Names of waters are translated where they are known.
    const TestCatalogue catalogue({{"Well", "Brunnen"}, {"Waters", "Wasser"}});
    m_page->ProcessWindowEvent(language);
    Pump();
    EXPECT_EQ(Piper().getTitle(), "Piper diagram");
    EXPECT_THAT(PiperWaters(), ElementsAre("Brunnen", "Softened"));
    EXPECT_EQ(In<wxCheckListBox>("Wasser").GetString(0), "Brunnen");
}

TEST_F(DiagramPageTest, ASmallPaneShowsOneWaterAndFollowsWhatItIsGiven)
{
    m_frame->DestroyChildren();
    auto* panel = new WaterDiagramPanel(m_frame);
    EXPECT_EQ(panel->GetMinSize(), panel->FromDIP(wxSize(220, 160)));
    m_frame->SetClientSize(220, 160);
    m_frame->SendSizeEvent();
    Pump();
    const auto bars = [panel] {
        return std::dynamic_pointer_cast<chartdir::XYChart>(panel->GetViewer().GetChart());
    };
    EXPECT_FALSE(bars()->hasData());
    panel->SetWater(m_project.GetLiquid(0));
    const auto first = bars();
    EXPECT_THAT(first->xAxis().getLabels(), ElementsAre("Well"));
    EXPECT_TRUE(first->hasData());
    panel->SetWater(m_project.GetLiquid(0));
    EXPECT_EQ(bars(), first) << "nothing changed";
    Set(0, {{"ca", 20}});
    panel->SetWater(m_project.GetLiquid(0));
    EXPECT_GE(bars()->getFullScales().y.upper, 22.0);
    // Chosen by the user, without an edit.
    const auto choose = [panel](Kind kind) {
        auto& choice = Find<tvChoice>(*panel, "Diagram Type");
        choice.SetSelection(static_cast<int>(kind));
        wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
        event.SetEventObject(&choice);
        choice.ProcessWindowEvent(event);
    };
    choose(Kind::Piper);
    EXPECT_EQ(panel->GetKind(), Kind::Piper);
    EXPECT_TRUE(std::dynamic_pointer_cast<chartdir::PlaneChart>(panel->GetViewer().GetChart())->hasData());
    choose(Kind::Stiff);
    EXPECT_TRUE(std::dynamic_pointer_cast<chartdir::StiffChart>(panel->GetViewer().GetChart())->hasData());
    panel->Clear();
    EXPECT_FALSE(std::dynamic_pointer_cast<chartdir::StiffChart>(panel->GetViewer().GetChart())->hasData());
}

}  // namespace
