// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/overview/iex_wplantoverview.h"

#include "dbinterfaces/master_database.h"
#include "tests/support/gui_test.h"
#include "tests/support/plant_fixture.h"

#include <gmock/gmock.h>
#include <wx/clipbrd.h>
#include <wx/log.h>
#include <wx/stattext.h>

namespace {

using namespace gui_test;
using testing::HasSubstr;

class LastMessage : public wxLog
{
public:
    wxString text;

protected:
    void DoLogText(const wxString& message) override { text = message; }
};

class PlantOverviewTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        support::SetWater(m_project, {{"ca", 2.5}, {"na", 1.0}, {"hco3", 2.5}, {"cl", 1.0}, {"sio2", 0.1}});
        support::SetFlow(m_project);
        m_frame->SetClientSize(1100, 800);
        m_frame->Show();
        Make(&m_project);
    }
    void TearDown() override
    {
        m_panel->Destroy();
        Pump();
        GuiTest::TearDown();
    }
    void Make(Project* project)
    {
        if (m_panel != nullptr)
            m_panel->Destroy();
        m_panel = new iex::IEXPlantOverviewPanelImpl(project, m_frame, "overview");
        m_panel->SetSize(m_frame->GetClientSize());
        m_panel->SetOnLead([this](const DetailAddress& address) {
            m_led.push_back(m_project.PathOf(address.owner) + ":" + address.key);
        });
        Pump();
    }
    ValueGraphic& Graphic() { return *m_panel->GetGraphics().at(0); }
    SvgShownValue Shown(const wxString& id)
    {
        for (const SvgShownValue& value : Graphic().GetShownValues()) {
            if (value.mapping->GetId() == id)
                return value;
        }
        throw std::runtime_error("no value " + id.utf8_string());
    }
    void ExpectFits()
    {
        const double width = static_cast<double>(m_panel->GetSize().x) / Graphic().GetOwnSize().x;
        const double height = (m_panel->GetSize().y - 50.0) / Graphic().GetOwnSize().y;
        EXPECT_NEAR(m_panel->GetZoom(), std::min(width, height), 0.05);
    }
    std::string Text(const wxString& id) { return Shown(id).text.utf8_string(); }

    iex::IEXProject m_project{"DEMI"};
    iex::IEXPlantOverviewPanelImpl* m_panel = nullptr;
    std::vector<std::string> m_led;
};

TEST_F(PlantOverviewTest, ValuesFollowTheProject)
{
    ExpectFits();
    EXPECT_EQ(Text("feed.q"), "20 m\u00b3/h");
    EXPECT_EQ(Text("ex1.c1.chemical"), "HCl");
    EXPECT_EQ(Text("feed.ph"), "") << "not known";
    const std::string load = Text("ex1.load");
    support::SetFlow(m_project, 40.0);
    Pump();
    EXPECT_EQ(Text("feed.q"), "40 m\u00b3/h");
    EXPECT_NE(Text("ex1.load"), load);
    m_project.SetUnitSystemDisplay("us");
    wxCommandEvent changed(tvCHANGEUNITSYSTEM_EVENT);
    m_panel->HandleWindowEvent(changed);
    EXPECT_THAT(Text("feed.q"), HasSubstr("gpm"));
}

TEST_F(PlantOverviewTest, AnotherArrangementHasAnotherGraphic)
{
    const std::size_t before = Graphic().GetShownValues().size();
    m_project.SetPlant("DEMI", {"WAC_H", "SAC_H", "DEGAS", "SBA"});
    ASSERT_TRUE(PumpUntil([&] { return Graphic().GetShownValues().size() > before; }));
    EXPECT_EQ(Text("ex1.c1.vol").empty(), Text("ex2.c1.vol").empty());
    EXPECT_EQ(Text("ex3.co2"), "8 mg/l");
    ExpectFits();
    LastMessage log;
    wxLog* const formerLog = wxLog::SetActiveTarget(&log);
    m_project.RemoveOwner(m_project.GetStep(3));
    const bool isGone = PumpUntil([&] { return m_panel->GetGraphics().empty(); });
    wxLog::SetActiveTarget(formerLog);
    ASSERT_TRUE(isGone);
    EXPECT_THAT(log.text.utf8_string(), HasSubstr("No graphic available for this arrangement"));
    EXPECT_NO_THROW(Labelled<wxStaticText>(*m_panel, "No graphic available for this arrangement"));
    EXPECT_TRUE(m_panel->GetActiveMessages().empty());
}

TEST_F(PlantOverviewTest, AnotherTypeHasAnotherGraphicForTheSameExchangers)
{
    const auto has = [this](const char* id) {
        return std::ranges::any_of(Graphic().GetShownValues(),
                                   [id](const SvgShownValue& value) { return value.mapping->GetId() == id; });
    };
    m_project.SetPlant("DEMI", {"SAC_H", "SBA"});
    ASSERT_TRUE(PumpUntil([&] { return has("feed.cond"); }));
    m_project.SetPlant("FOODC", {"SAC_H", "SBA"});
    EXPECT_TRUE(PumpUntil([&] { return has("feed.density"); })) << "a column takes a feed";
}

TEST_F(PlantOverviewTest, AClickLeadsToTheField)
{
    const wxPoint2DDouble centre = Shown("ex2.v").box.GetCentre();
    const wxPoint value(wxRound(centre.m_x), wxRound(centre.m_y));
    const wxPoint beside(3, 3);
    const std::pair<wxPoint, wxPoint> clicks[] = {{value, value}, {beside, beside}, {beside, value}};
    for (const auto& [from, to] : clicks) {
        for (const auto& [type, point] : {std::pair(wxEVT_LEFT_DOWN, from), std::pair(wxEVT_LEFT_UP, to)}) {
            wxMouseEvent click(type);
            click.SetPosition(point);
            Graphic().HandleWindowEvent(click);
        }
        Pump();
    }
    EXPECT_THAT(m_led, testing::ElementsAre("ex.2:step/v")) << "only where it began and ended";
}

TEST_F(PlantOverviewTest, KeysGoFromValueToValue)
{
    Focus(Graphic());
    Press(WXK_TAB);
    EXPECT_EQ(Graphic().GetSelected(), 0u);
    EXPECT_THAT(Graphic().GetName().utf8_string(), HasSubstr("Number of lines: 1"));
    Press(WXK_TAB);
    EXPECT_THAT(Graphic().GetName().utf8_string(), HasSubstr("Source flow rate: 20 m"));
    Press(WXK_DOWN);
    EXPECT_THAT(Graphic().GetName().utf8_string(), HasSubstr("Water volume"));
    Press(WXK_RIGHT);
    EXPECT_THAT(Graphic().GetName().utf8_string(), HasSubstr("1 Strong-acid cation exchanger, "));
    Press(WXK_LEFT);
    Press(WXK_HOME);
    Press(WXK_TAB);
    Press(WXK_RETURN);
    Pump();
    EXPECT_THAT(m_led, testing::ElementsAre(":project/qbrutto"));
    Press(WXK_END);
    EXPECT_EQ(Graphic().GetSelected(), Graphic().GetShownValues().size() - 1);
    support::SetFlow(m_project, 40.0);
    Press(WXK_HOME);
    Press(WXK_TAB);
    EXPECT_THAT(Graphic().GetName().utf8_string(), HasSubstr("Source flow rate: 40 m"));
}

TEST_F(PlantOverviewTest, ZoomFitsGrowsAndStaysAtThePointer)
{
    const wxSize own = Graphic().GetOwnSize();
    EXPECT_LE(Graphic().GetSize().x, m_panel->GetSize().x);
    m_panel->SetSize(700, 500);
    Pump();
    ExpectFits();
    m_panel->SetZoom(1.0);
    EXPECT_EQ(Graphic().GetSize(), own);
    EXPECT_EQ(Shown("feed.q").box.GetLeftTop(), wxPoint2DDouble(24, 185));
    m_panel->SetSize(720, 500);
    EXPECT_EQ(m_panel->GetZoom(), 1.0) << "stays as chosen";
    EXPECT_GE(m_panel->GetVirtualSize().x, own.x);
    // A point of the drawing stays under the pointer.
    const wxPoint point(600, 300);
    const wxPoint before = Graphic().ClientToScreen(point);
    wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
    wheel.SetControlDown(true);
    wheel.SetPosition(point);
    wheel.m_wheelDelta = 120;
    wheel.m_wheelRotation = 240;
    Graphic().HandleWindowEvent(wheel);
    Pump();
    const double zoom = m_panel->GetZoom();
    EXPECT_NEAR(zoom, 1.25 * 1.25, 1e-9);
    const wxPoint after = Graphic().ClientToScreen({wxRound(point.x * zoom), wxRound(point.y * zoom)});
    EXPECT_NEAR(after.x, before.x, 2);
    EXPECT_NEAR(after.y, before.y, 2);
    for (int i = 0; i < 30; ++i)
        Graphic().HandleWindowEvent(wheel);
    EXPECT_EQ(m_panel->GetZoom(), iex::IEXPlantOverviewPanelImpl::kMostZoom);
    Focus(Graphic());
    Press('0', wxMOD_CONTROL);
    EXPECT_EQ(m_panel->GetZoom(), 1.0);
    Press('9', wxMOD_CONTROL);
    EXPECT_LT(m_panel->GetZoom(), 1.0);
    m_panel->SetSize(m_panel->GetSize().Scale(0.5, 0.5));
    ExpectFits();
}

TEST_F(PlantOverviewTest, ThePictureIsCopied)
{
    Focus(Graphic());
    Press('C', wxMOD_CONTROL);
    ASSERT_TRUE(wxTheClipboard->Open());
    wxBitmapDataObject data;
    EXPECT_TRUE(wxTheClipboard->GetData(data));
    wxTheClipboard->Close();
    EXPECT_EQ(data.GetBitmap().GetSize(), Graphic().GetOwnSize() * 2);
    EXPECT_LE(Shown("lines").box.GetRight(), m_panel->GetSize().x) << "the window shows it as before";
}

TEST_F(PlantOverviewTest, AGraphicThatCannotBeLoadedIsToldOf)
{
    wxLogNull quiet;
    setenv("TARNVIK_DATA", "/nowhere", 1);
    Make(&m_project);
    unsetenv("TARNVIK_DATA");
    EXPECT_TRUE(m_panel->GetGraphics().empty());
    const auto& text = Find<wxStaticText>(*m_panel);
    EXPECT_THAT(text.GetLabel().utf8_string(), HasSubstr("The graphic cannot be shown: "));
}

}  // namespace
