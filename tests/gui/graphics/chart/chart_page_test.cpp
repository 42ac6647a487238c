// SPDX-License-Identifier: MIT
#include "gui_base/graphics/chart/chart_page.h"

#include "chartdir/markup.h"
#include "gui_base/graphics/chart/chart_export.h"
#include "gui_base/input/events.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/gui_test.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <wx/button.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/filedlg.h>
#include <wx/log.h>

#include <cmath>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// Keeps what is logged.
class LogRecord : public wxLog
{
public:
    LogRecord() : m_former(SetActiveTarget(this)) {}
    ~LogRecord() override { SetActiveTarget(m_former); }
    std::string text;

protected:
    void DoLogTextAtLevel(wxLogLevel, const wxString& message) override { text += message.utf8_string(); }

private:
    wxLog* m_former;
};

class ChartPageTest : public gui_test::GuiTest
{
protected:
    explicit ChartPageTest(const char* plant = "iex") : m_project(plant) {}

    void SetUp() override
    {
        GuiTest::SetUp();
        m_frame->SetClientSize(1000, 800);
    }
    void TearDown() override
    {
        m_frame->DestroyChildren();
        GuiTest::TearDown();
    }
    void Open()
    {
        m_project.SetChanged(false);
        m_page = new ChartPage(m_project, m_frame);
        m_frame->SendSizeEvent();
        gui_test::Pump();
    }
    ChartViewerPanel& Panel() { return m_page->GetChartPanel(); }
    const chartdir::XYChart& Chart()
    {
        return dynamic_cast<const chartdir::XYChart&>(*Panel().GetViewer().GetChart());
    }
    /// Values of a curve by its name.
    std::vector<double> Curve(const std::string& name)
    {
        for (const auto& layer : Chart().getLayers()) {
            for (const chartdir::DataSet& set : layer->getDataSets()) {
                if (set.name == name)
                    return set.values;
            }
        }
        throw std::runtime_error("no curve " + name);
    }
    std::vector<std::string> Names()
    {
        std::vector<std::string> names;
        for (const auto& layer : Chart().getLayers()) {
            for (const chartdir::DataSet& set : layer->getDataSets())
                names.push_back(set.name);
        }
        return names;
    }
    void Choose(const wxString& choice, int index)
    {
        auto& control = gui_test::Find<tvChoice>(Panel(), choice);
        control.SetSelection(index);
        wxCommandEvent event(wxEVT_CHOICE, control.GetId());
        event.SetEventObject(&control);
        control.ProcessWindowEvent(event);
        gui_test::Pump();
    }
    void EnterIn(const std::string& name, const wxString& text)
    {
        const wxString field = wxString::FromUTF8(name);
        // The inputs that are not in use have the same names.
        auto* found = &gui_test::Find<TvTextCtrl>(Panel(), field);
        for (int i = 1; !found->IsShownOnScreen(); ++i)
            found = &gui_test::Find<TvTextCtrl>(Panel(), field, i);
        gui_test::Enter(*found, text);
    }

    iex::IEXProject m_project;
    ChartPage* m_page = nullptr;
};

class ChartPageOfPlant : public ChartPageTest
{
protected:
    ChartPageOfPlant() : ChartPageTest("DEMI")
    {
        support::SetWater(m_project, {{"ca", 3.0}, {"na", 1.0}, {"cl", 2.0}, {"hco3", 2.0}}, 12.0);
        support::SetFlow(m_project);
    }
};

class ChartPageOfDealkalisation : public ChartPageTest
{
protected:
    ChartPageOfDealkalisation() : ChartPageTest("DEALK")
    {
        support::SetWater(m_project, {{"ca", 3.0}, {"na", 1.0}, {"cl", 1.0}, {"hco3", 3.0}});
        support::SetFlow(m_project);
    }
};

TEST_F(ChartPageOfDealkalisation, BeginsWithTheResinOfThePlant)
{
    Open();
    EXPECT_NE(Panel().DoGetResinSelection(), design::Resins().front().name);
    const auto& resins = design::Resins();
    EXPECT_EQ(Panel().DoGetResinSelection(),
              std::ranges::find(resins, "wac_acrylic", &design::Resin::key)->name);
}

TEST_F(ChartPageTest, ShowsErgunsCurvesOfTheFirstResinInWater)
{
    Open();
    EXPECT_EQ(Panel().DoGetDiagramTypeSelection(), DIAGRAM_TYPE::PressureDrop);
    EXPECT_EQ(Panel().DoGetMediumSelection(), MEDIUM::Water);
    EXPECT_EQ(Panel().DoGetResinSelection(), design::Resins().front().name);
    EXPECT_EQ(Chart().xAxis().getTitle(), "Velocity [m/h]");
    EXPECT_EQ(Chart().yAxis().getTitle(), "Pressure drop [bar/m]");
    EXPECT_THAT(Names(),
                testing::ElementsAre("5 \u00b0C", "10 \u00b0C", "15 \u00b0C", "20 \u00b0C", "25 \u00b0C"));
    // 0 to 120 m/h in 200 steps: 30 m/h is the 50th.
    EXPECT_EQ(Panel().DoGetEndValue(), 120.0);
    EXPECT_NEAR(Curve("20 \u00b0C").at(50), 0.267, 6e-4);
    EXPECT_NEAR(Curve("10 \u00b0C").at(50), 0.341, 6e-4);
    EXPECT_FALSE(m_project.IsChanged());
}

TEST_F(ChartPageTest, DrawsWhatIsTyped)
{
    Open();
    EnterIn("End value [m/h]", "40");
    EXPECT_NEAR(Curve("20 \u00b0C").back(), 0.365, 6e-4);
    EnterIn("Temperature 1 [\u00b0C]", "");
    EnterIn("Temperature 2 [\u00b0C]", "7.5");
    EXPECT_THAT(Names(), testing::ElementsAre("7.5 \u00b0C", "15 \u00b0C", "20 \u00b0C", "25 \u00b0C"));
    const double ofWater = Curve("20 \u00b0C").back();
    EnterIn("Viscosity 4 [mPa\u00b7s]", "2.004");
    const auto sets = Panel().DoGetSetParameter();
    ASSERT_EQ(sets.size(), 4U);
    EXPECT_EQ(std::get<1>(std::get<1>(sets[2])).GetValue(), 2.004);
    EXPECT_FALSE(std::get<1>(std::get<1>(sets[3])).IsKnown());
    const double viscous = Curve("20 \u00b0C, 2.004 mPa\u00b7s").back();
    EXPECT_GT(viscous, 1.8 * ofWater);
    EXPECT_LT(viscous, 2.0 * ofWater);
    // An emptied end is the usual one; a range without a length is refused.
    EnterIn("End value [m/h]", "");
    EXPECT_EQ(Panel().DoGetEndValue(), 120.0);
    LogRecord log;
    EnterIn("End value [m/h]", "0");
    EXPECT_THAT(log.text, HasSubstr("begins where it ends"));
    EXPECT_EQ(Panel().DoGetEndValue(), 120.0);
    EXPECT_FALSE(m_project.IsChanged());
}

TEST_F(ChartPageTest, ARegenerantHasTemperaturesAlone)
{
    Open();
    const double water = Curve("20 \u00b0C").back();
    Choose("Medium", 3);
    EXPECT_EQ(Panel().DoGetMediumSelection(), MEDIUM::SodiumHydroxide);
    const auto sets = Panel().DoGetSetParameter();
    EXPECT_TRUE(
        std::ranges::all_of(sets, [](const auto& set) { return std::holds_alternative<Temperature>(set); }));
    // Caustic was not measured in the cold.
    EXPECT_THAT(Names(), testing::ElementsAre("15 \u00b0C", "20 \u00b0C", "25 \u00b0C"));
    EXPECT_GT(Curve("20 \u00b0C").back(), water);
    for (const char* field :
         {"Temperature 3 [\u00b0C]", "Temperature 4 [\u00b0C]", "Temperature 5 [\u00b0C]"})
        EnterIn(field, "3");
    EXPECT_FALSE(Chart().hasData());
    EXPECT_EQ(Chart().getNoDataText(),
              "<*font=Times New Roman Italic,size=16,color=0xf11a29*> No data available");
    // A bed is backwashed with water; the medium comes back with the pressure drop.
    auto& medium = gui_test::Find<tvChoice>(Panel(), "Medium");
    Choose("Diagram Type", 1);
    EXPECT_EQ(Panel().DoGetMediumSelection(), MEDIUM::Water);
    EXPECT_FALSE(medium.IsEnabled());
    Choose("Diagram Type", 0);
    EXPECT_EQ(Panel().DoGetMediumSelection(), MEDIUM::SodiumHydroxide);
    EXPECT_TRUE(medium.IsEnabled());
}

TEST_F(ChartPageTest, ShowsTheExpansionOfTheChosenResin)
{
    Open();
    Choose("Diagram Type", 1);
    EXPECT_EQ(Chart().yAxis().getTitle(), "Bed expansion [%]");
    EnterIn("End value [m/h]", "20");
    EXPECT_NEAR(Curve("20 \u00b0C").at(150), 45, 0.6);
    const auto& resins = design::Resins();
    const auto anion = std::ranges::find(resins, "sba_1", &design::Resin::key) - resins.begin();
    Choose("Resin", static_cast<int>(anion));
    EXPECT_EQ(Chart().getTitle(), resins[static_cast<std::size_t>(anion)].name);
    EXPECT_NEAR(Curve("20 \u00b0C").at(80), 81, 0.6);
    // What was typed for one diagram is not the other's.
    Choose("Diagram Type", 0);
    EXPECT_EQ(Panel().DoGetEndValue(), 120.0);
}

TEST_F(ChartPageTest, FollowsUnitsAndLanguage)
{
    Open();
    EnterIn("Start value [m/h]", "5");
    EnterIn("End value [m/h]", "40");
    const double bar = Curve("20 \u00b0C").back();
    Panel().GetViewer().ZoomBy(0.5);
    const chartdir::Rect view = Panel().GetViewer().GetViewPortManager().getViewPort();
    m_project.SetUnitSystemDisplay("us");
    wxCommandEvent units(tvCHANGEUNITSYSTEM_EVENT);
    m_page->ProcessWindowEvent(units);
    EXPECT_EQ(Chart().xAxis().getTitle(), "Velocity [gpm/ft\u00b2]");
    EXPECT_EQ(Chart().yAxis().getTitle(), "Pressure drop [psi/ft]");
    EXPECT_NEAR(Panel().DoGetEndValue(), 40 * 0.409040, 1e-3);
    EXPECT_NEAR(Curve("68 \u00b0F").back(), bar * 14.5038 * 0.3048, 1e-4);
    EXPECT_NEAR(std::get<0>(std::get<1>(Panel().DoGetSetParameter().at(0))).In(TemperatureUnit::Celsius), 5.0,
                1e-9);
    EXPECT_EQ(Panel().GetViewer().GetViewPortManager().getViewPort().width, view.width);
    EnterIn("Temperature 1 [\u00b0F]", "95");
    EXPECT_LT(Curve("95 \u00b0F").back(), Curve("77 \u00b0F").back());
    EnterIn("End value [gpm/ft\u00b2]", "20");
    EXPECT_NEAR(m_page->GetController().GetContents().end, 20 / 0.409040, 1e-3);
    chartdir::DataRange abscissas;
    chartdir::DataRange ordinates;
    Chart().getLayers().front()->Extend(abscissas, ordinates);
    EXPECT_NEAR(abscissas.greatest, 20.0, 1e-9);
    m_project.SetUnitSystemDisplay("iso");
    m_page->ProcessWindowEvent(units);
    EXPECT_NEAR(Panel().DoGetStartValue(), 5.0, 2e-3);
    EXPECT_NEAR(Panel().DoGetEndValue(), 20 / 0.409040, 1e-3);
    const gui_test::TestCatalogue catalogue({{"Velocity", "Tempo"}, {"Pressure drop", "Abfall"}});
    wxCommandEvent language(tvLOCALIZE_EVENT);
    m_page->ProcessWindowEvent(language);
    EXPECT_EQ(Chart().xAxis().getTitle(), "Tempo [m/h]");
    EXPECT_EQ(Chart().yAxis().getTitle(), "Abfall [bar/m]");
    EXPECT_EQ(gui_test::Find<tvChoice>(Panel(), "Diagram Type").GetString(0), "Abfall");
}

TEST_F(ChartPageOfPlant, MarksWhereTheExchangersWorkAndFollowsTheDesign)
{
    Open();
    const auto mark = [this]() -> std::optional<chartdir::DataSet> {
        for (const auto& layer : Chart().getLayers()) {
            for (const chartdir::DataSet& set : layer->getDataSets()) {
                if (set.lineWidth == 0.0)
                    return set;
            }
        }
        return std::nullopt;
    };
    ASSERT_TRUE(mark().has_value());
    EXPECT_THAT(mark()->name, HasSubstr("(12 \u00b0C)"));
    const design::ExchangerDesign exchanger = design::DesignOf(m_project).exchangers.at(0);
    EXPECT_NEAR(mark()->values.at(0) * exchanger.depth, exchanger.pressureDrop, 1e-9);
    const double before = mark()->values.at(0);
    support::SetFlow(m_project, 19.0);
    EXPECT_LT(mark()->values.at(0), before);

    // Its design is one for water.
    Choose("Medium", 1);
    EXPECT_FALSE(mark().has_value());
    Choose("Medium", 0);

    // A plant that works beyond the usual range widens it.
    support::Put(m_project, "ex.1", "step/diameter", 0.4);
    gui_test::Pump();
    ASSERT_TRUE(mark().has_value());
    EXPECT_GE(Panel().DoGetEndValue(), design::DesignOf(m_project).exchangers.at(0).velocity);
}

TEST_F(ChartPageOfPlant, WhatIsJustBeingTypedStaysWhenOthersEdit)
{
    Open();
    for (const char* name : {"End value [m/h]", "Temperature 1 [\u00b0C]"}) {
        auto* field = &gui_test::Find<TvTextCtrl>(Panel(), wxString::FromUTF8(name));
        if (!field->IsShownOnScreen())
            field = &gui_test::Find<TvTextCtrl>(Panel(), wxString::FromUTF8(name), 1);
        gui_test::Focus(*field);
        field->SelectAll();
        gui_test::Type("42");
        support::SetFlow(m_project, 18.0 + static_cast<double>(field->GetName().length()));
        EXPECT_EQ(field->GetValue(), "42") << name;
        gui_test::Press(WXK_TAB);
    }
    EXPECT_EQ(Panel().DoGetEndValue(), 42.0);
    EXPECT_EQ(Names().front(), "42 \u00b0C");
}

TEST_F(ChartPageTest, ExportsWhatIsShown)
{
    Open();
    const support::TempFolder folder;
    const auto choose = [&](const std::string& name) {
        m_dialogs.Expect([&folder, name](wxDialog& shown) {
            auto& dialog = dynamic_cast<wxFileDialog&>(shown);
            EXPECT_EQ(dialog.GetMessage(), "Save Chart");
            EXPECT_EQ(dialog.GetFilename(), "export_chart");
            // A blank behind the pattern would hide every picture.
            EXPECT_THAT(dialog.GetWildcard().utf8_string(), StartsWith("png files (*.png)|*.png|JPG files("));
            EXPECT_TRUE(dialog.HasFlag(wxFD_OVERWRITE_PROMPT));
            if (name.empty())
                return static_cast<int>(wxID_CANCEL);
            gui_test::ChooseFile(dialog, folder / name);
            return static_cast<int>(wxID_OK);
        });
        auto& button = gui_test::Find<wxButton>(Panel());
        gui_test::Click(button);
    };
    choose("");
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    for (const auto& [name, magic] : {std::pair{"a.png", "\x89PNG"},
                                      {"b.jpg", "\xff\xd8"},
                                      {"c.bmp", "BM"},
                                      {"d.gif", "GIF8"},
                                      {"e.pdf", "%PDF"},
                                      {"f.svg", "<?xml"}}) {
        choose(name);
        EXPECT_THAT(support::ReadBytes(folder / name), StartsWith(magic)) << name;
    }
    choose("g");
    EXPECT_THAT(support::ReadBytes(folder / "g.png"), StartsWith("\x89PNG"));
    LogRecord log;
    choose("h.xyz");
    EXPECT_THAT(log.text, HasSubstr("Cannot save current contents in file '"));
    EXPECT_THAT(log.text, HasSubstr("h.xyz'."));
    EXPECT_FALSE(std::filesystem::exists(folder / "h.xyz"));
}

TEST_F(ChartPageTest, CopiesThePictureAndCarriesTheMarksOfTheHouse)
{
    Open();
    gui_test::Click(gui_test::Find<wxButton>(Panel(), {}, 1));
    const wxClipboardLocker locker;
    wxBitmapDataObject data;
    ASSERT_TRUE(wxTheClipboard->GetData(data));
    EXPECT_EQ(data.GetBitmap().GetWidth(), 2 * Chart().getWidth());
    const wxImage picture = Panel().GetViewer().GetPicture();
    int drawn = 0;
    for (int x = picture.GetWidth() - 60; x < picture.GetWidth(); ++x) {
        for (int y = picture.GetHeight() - 22; y < picture.GetHeight(); ++y)
            drawn += picture.GetBlue(x, y) < 230 ? 1 : 0;
    }
    EXPECT_GT(drawn, 40);
}

/// The panel by itself, as another controller would use it.
TEST_F(ChartPageTest, ThePanelIsPassive)
{
    auto& panel = *new ChartViewerPanel({{1, "Second"}, {0, "First"}}, {{0, "Water"}, {4, "Brine"}},
                                        {{7, "Gel"}, {9, "Macroporous"}}, m_frame, wxID_ANY);
    m_frame->SendSizeEvent();
    gui_test::Pump();
    std::vector<int> told;
    panel.Bind(tvCHART_SELECTION_EVENT, [&](wxCommandEvent& event) { told.push_back(event.GetInt()); });
    EXPECT_EQ(panel.DoGetDiagramTypeSelection(), DIAGRAM_TYPE::BedExpansion);
    EXPECT_EQ(panel.DoGetResinSelection(), "Gel");
    panel.DoSetMediumSelection(MEDIUM::SodiumChloride);
    EXPECT_EQ(panel.DoGetMediumSelection(), MEDIUM::SodiumChloride);
    panel.DoSetMediumSelection(MEDIUM::SulfuricAcid);
    EXPECT_EQ(panel.DoGetMediumSelection(), MEDIUM::SodiumChloride) << "it is not among those offered";
    panel.DoSetStartValue(2.5);
    panel.DoSetEndValue(30.0);
    EXPECT_EQ(gui_test::Find<TvTextCtrl>(panel, "Start value").GetValue(), "2.5");
    panel.DoUseTemperaturePanel();
    EXPECT_TRUE(std::holds_alternative<Temperature>(panel.DoGetSetParameter().at(0)));
    panel.DoUpdateSetLabels("Celsius");
    panel.DoUpdateSetUnits("K");
    EXPECT_EQ(std::get<Temperature>(panel.DoGetSetParameter().at(0)).GetValue(), 278.15);
    panel.DoUpdateSetUnits("furlong");
    EXPECT_EQ(gui_test::Find<TvTextCtrl>(panel, "Celsius 1 [K]").GetValue(), "278.15");
    panel.DoUseViscosityAndTemperaturePanel();
    EXPECT_EQ(panel.DoGetSetParameter().at(0).index(), 1U);
    EXPECT_TRUE(told.empty()) << "only the user is told of";
    gui_test::Enter(gui_test::Find<TvTextCtrl>(panel, "End value"), "20");
    EXPECT_THAT(told, testing::ElementsAre(static_cast<int>(ChartSelection::Range)));
    EXPECT_EQ(panel.DoGetEndValue(), 20.0);
    LogRecord log;
    panel.DoShowErrorMessage("100 % caf\u00e9");
    EXPECT_THAT(log.text, testing::EndsWith("Error: 100 % caf\u00e9"));
}

TEST_F(ChartPageTest, ANarrowPageKeepsAllWithinReach)
{
    m_frame->SetClientSize(540, 420);
    Open();
    const wxSize page = Panel().GetClientSize();
    const wxChartViewer& viewer = Panel().GetViewer();
    EXPECT_GE(viewer.GetPosition().x, 0);
    EXPECT_LE(viewer.GetRect().GetBottom(), page.y) << "the abscissa is out of sight";
    EXPECT_LE(Panel().GetVirtualSize().x, page.x) << "inputs are out of sight";
    auto& copy = gui_test::Find<wxButton>(Panel(), {}, 1);
    auto* inputs = dynamic_cast<wxScrolledWindow*>(copy.GetParent()->GetParent());
    ASSERT_NE(inputs, nullptr);
    EXPECT_GT(inputs->GetVirtualSize().y, inputs->GetClientSize().y);
    EXPECT_LE(inputs->GetVirtualSize().x, inputs->GetClientSize().x);
    wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
    auto& resin = gui_test::Find<tvChoice>(Panel(), "Resin");
    wheel.SetEventObject(&resin);
    wheel.m_wheelRotation = -120;
    wheel.m_wheelDelta = 120;
    resin.ProcessWindowEvent(wheel);
    EXPECT_EQ(inputs->GetViewStart().y, 1);
    EXPECT_EQ(resin.GetSelection(), 0);
}

}  // namespace
