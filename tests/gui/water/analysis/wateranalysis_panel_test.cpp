// SPDX-License-Identifier: MIT
// The water analysis as its user drives it: real keys, three number locales, three unit systems, two
// languages.
#include "gui_base/water/analysis/wateranalysis_panel.h"

#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/temperature_validator.h"
#include "gui_base/support/events.h"
#include "gui_base/water/analysis/paste_column.h"
#include "gui_base/water/rows/ion_rows.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/gui_test.h"

#include <fmt/format.h>
#include <wx/bmpbuttn.h>
#include <wx/button.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/uiaction.h>

#include <cmath>

namespace {

using namespace gui_test;

class WaterAnalysisTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_frame->Bind(tvCHANGE_EVENT, [this](wxCommandEvent&) { ++m_notified; });
        m_frame->Bind(tvVISUALIZE_MESSAGE,
                      [this](VisualizeMessageEvent& event) { m_outOfRange = event.GetMessages(); });
        m_project.GetLogger().SetSink([this](const Logger::Entry& entry) { m_log.push_back(entry.text); });
    }

    void Open()
    {
        m_panel = new WaterAnalysisPanel(&m_project, 0, m_frame, wxID_ANY, nullptr);
        m_frame->SendSizeEvent();
        Pump();
    }

    DetailData& Detail(const std::string& key)
    {
        return m_project.GetLiquid(0).GetDetails()->At("liquid/" + key);
    }
    double Value(const std::string& key) { return Detail(key).GetDoubleValue(); }
    TvTextCtrl& Field(const std::string& key) { return *m_panel->FindField("liquid/" + key); }
    std::string Shown(const std::string& key) { return Field(key).GetValue().utf8_string(); }

    tvUnitChoice& UnitOf(const wxString& row) { return Find<tvUnitChoice>(*m_panel, row + ", Unit"); }

    void Choose(const wxString& row, const wxString& unit)
    {
        tvUnitChoice& choice = UnitOf(row);
        // Leaves, and so commits, the field that is being edited.
        choice.SetFocus();
        Pump();
        const int target = choice.FindString(unit);
        ASSERT_NE(target, wxNOT_FOUND) << unit.utf8_string();
        // What the toolkit does when the user picks an item of the opened list.
        choice.SetSelection(target);
        wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
        event.SetEventObject(&choice);
        event.SetInt(target);
        choice.GetEventHandler()->ProcessEvent(event);
        Pump();
    }

    void Check(TvCheckBox& box)
    {
        Focus(box);
        Press(WXK_SPACE);
    }

    template <typename Window>
    Window* FindByLabel(const wxString& label)
    {
        return dynamic_cast<Window*>(wxWindow::FindWindowByLabel(label, m_panel));
    }

    iex::IEXProject m_project;
    WaterAnalysisPanel* m_panel = nullptr;
    int m_notified = 0;
    std::vector<std::string> m_outOfRange;
    std::vector<std::string> m_log;
};

TEST_F(WaterAnalysisTest, OneEditEndToEndInEveryLocaleAndUnitSystem)
{
    Open();
    const std::vector<std::tuple<const char*, const char*, const char*, const char*>> locales{
        {"C", "40.08", "40.08", "2"},
        {"de_DE.UTF-8", "1.040,08", "1040,08", "51,9002"},
        {"fr_FR.UTF-8", "40,08", "40,08", "2"},
        {"en_US.UTF-8", "1,040.08", "1040.08", "51.9002"},
    };
    for (const auto& [locale, typed, shown, meql] : locales) {
        const LocaleGuard guard(locale);
        for (const char* unitSystem : {"iso", "us", "imperial"}) {
            const std::string where = std::string(locale) + " " + unitSystem;
            m_project.SetUnitSystemDisplay(unitSystem);
            m_panel->UpdateUnits(true);
            gui_test::Enter(Field("ca.orig"), "");
            m_project.SetChanged(false);
            m_notified = 0;
            gui_test::Enter(Field("ca.orig"), typed);
            EXPECT_EQ(Shown("ca.orig"), shown) << where;
            EXPECT_NEAR(Value("ca.meql"), Value("ca.orig") / 20.04, 1e-12) << where;
            EXPECT_EQ(Value("ca.mgl"), Value("ca.meql") * 20.04) << where;
            EXPECT_EQ(Value("sum.c.meql"), Value("ca.meql")) << where;
            EXPECT_EQ(m_notified, 1) << where;
            EXPECT_TRUE(m_project.IsChanged()) << where;
            EXPECT_EQ(Shown("ca.meql").substr(0, 4), std::string(meql).substr(0, 4)) << where;
        }
    }
}

TEST_F(WaterAnalysisTest, EveryRowCanBeTypedByKeyboardAlone)
{
    Detail("balance.ph").SetValue(true);
    Open();
    m_panel->UpdateAnalysis();
    for (const char* name : {"x1", "x2", "y1", "y2"})
        gui_test::Enter(Field(std::string(name) + ".name"), "abc");
    const auto typeInto = [this](const auto& rows) {
        double typed = 1.0;
        for (const auto& row : rows) {
            const std::string key = std::string(row.key) + ".orig";
            gui_test::Enter(Field(key), wxString::FromUTF8(fmt::format("{}", ++typed)));
            EXPECT_EQ(Value(key), typed) << key;
            EXPECT_GT(Value(std::string(row.key) + ".meql"), 0.0) << key;
        }
    };
    typeInto(wateranalysis::kCationRows);
    typeInto(wateranalysis::kAnionRows);
    for (const char* key : {"temp.orig", "ph", "co2.orig"}) {
        gui_test::Enter(Field(key), "7.5");
        EXPECT_EQ(Value(key), 7.5) << key;
    }
}

TEST_F(WaterAnalysisTest, TabWalksTypedValuesAndUnitsInReadingOrder)
{
    Open();
    Focus(Field("na.orig"));
    // The unit choice of a row stands between two values; the toolkit does not name it as the focused window.
    for (const char* next : {"ca.orig", "mg.orig", "k.orig"}) {
        Press(WXK_TAB);
        EXPECT_EQ(wxWindow::FindFocus(), nullptr);
        Press(WXK_TAB);
        EXPECT_EQ(wxWindow::FindFocus(), &Field(next));
    }
    Press(WXK_UP);
    Press(WXK_DOWN);
    EXPECT_EQ(wxWindow::FindFocus(), &Field("k.orig"));
    Press(WXK_UP);
    Press(WXK_UP);
    EXPECT_EQ(wxWindow::FindFocus(), &Field("ca.orig"));
}

TEST_F(WaterAnalysisTest, UnitsOfIons)
{
    Open();
    gui_test::Enter(Field("ca.orig"), "100");
    const std::vector<std::pair<const char*, double>> cases{
        {"meq/l", 100},   {"mg/l", 100 / 20.04}, {"ppm", 100 / 20.04}, {"ppb", 0.1 / 20.04},
        {"ppm CaCO3", 2}, {"°d", 35.7143},       {"°f", 20},           {"°a", 34},
        {"°e", 29}};
    for (const auto& [unit, meql] : cases) {
        Choose("Calcium", wxString::FromUTF8(unit));
        EXPECT_NEAR(Value("ca.meql"), meql, 1e-9) << unit;
        EXPECT_EQ(Value("ca.orig"), 100.0) << "the number stays as the laboratory gave it";
    }
    // Units that are accepted though not offered.
    for (const auto& [unit, meql] : std::vector<std::pair<const char*, double>>{
             {"g/m3", 100 / 20.04}, {"g/l", 1e5 / 20.04}, {"mgCaCO3/l", 2}}) {
        Detail("ca.unit").SetValue(unit);
        m_panel->TransferDetailsToWindow();
        m_panel->UpdateAnalysis();
        EXPECT_NEAR(Value("ca.meql"), meql, 1e-9) << unit;
        EXPECT_EQ(UnitOf("Calcium").GetStringSelection(), unit);
    }
}

TEST_F(WaterAnalysisTest, NamedIonsKeepTheirAsymmetry)
{
    Open();
    EXPECT_FALSE(Field("x1.orig").IsEnabled());
    Focus(Field("x1.name"));
    Type("NH4");
    Press(WXK_TAB);
    EXPECT_TRUE(Field("x1.orig").HasFocus()) << "a name opens the row while it is typed";
    Type("2");
    Press(WXK_TAB);
    Choose("Cation 1", "mg/l");
    EXPECT_EQ(Value("x1.meql"), 2.0);
    EXPECT_NEAR(Value("x1.mgl"), 2 * 18.04, 1e-12);
    gui_test::Enter(Field("x1.name"), "Rb");
    EXPECT_NEAR(Value("x1.mgl"), 2 * 22.99, 1e-12);
    gui_test::Enter(Field("y1.name"), "I");
    gui_test::Enter(Field("y1.orig"), "3");
    EXPECT_NEAR(Value("y1.mgl"), 3 * 35.45, 1e-12);
    gui_test::Enter(Field("x1.name"), "  ");
    EXPECT_EQ(Value("x1.orig"), 0.0);
    EXPECT_EQ(Value("x1.meql"), 0.0);
    EXPECT_FALSE(Field("x1.orig").IsEnabled());
}

TEST_F(WaterAnalysisTest, DefaultUnitFollowsSodium)
{
    Open();
    Choose("Sodium", "ppb");
    auto& button = Find<wxBitmapButton>(*m_panel);
    EXPECT_EQ(button.GetToolTipText(), "Set default unit (based on 'Na' unit)");
    m_notified = 0;
    Click(button);
    EXPECT_EQ(m_notified, 1);
    for (const char* ion : {"ca", "cl", "sio2", "y2"})
        EXPECT_EQ(Detail(std::string(ion) + ".unit").GetStringValue(), "ppb") << ion;
    for (const char* ion : {"h.plus", "oh.minus"})
        EXPECT_EQ(Detail(std::string(ion) + ".unit").GetStringValue(), "meq/l")
            << ion << " does not offer ppb";
}

TEST_F(WaterAnalysisTest, BalanceWithAndWithoutHydrogen)
{
    Detail("ph").SetValue(3.0);
    Detail("temp.orig").SetValue(25.0);
    Open();
    auto& automatic = Find<TvCheckBox>(*m_panel, "Automatic balancing");
    auto& hydrogen = Find<TvCheckBox>(*m_panel, "Include H+ and OH- in automatic balancing");
    gui_test::Enter(Field("cl.orig"), "35.45");
    EXPECT_NEAR(Value("na.plus.meql"), 1.0, 1e-12);
    EXPECT_EQ(Value("cl.plus.meql"), 0.0);
    EXPECT_EQ(Value("tds"), 35.45);
    Check(automatic);
    EXPECT_TRUE(Detail("balance.auto").GetBoolValue());
    // Of the pH come 1.03 meq/l of H+: what is left to be closed is shown, and counts.
    EXPECT_NEAR(Value("na.plus.meql"), 0.0, 1e-9);
    EXPECT_NEAR(Value("cl.plus.meql"), 0.037, 0.002);
    EXPECT_NEAR(Value("tds"), 35.45 * (1.0 + Value("cl.plus.meql")), 1e-9);

    EXPECT_FALSE(Field("h.plus.orig").IsEnabled());
    Check(hydrogen);
    EXPECT_TRUE(Field("h.plus.orig").IsEnabled());
    EXPECT_GT(Value("h.plus.meql"), 0.9);
    EXPECT_NEAR(Value("na.plus.meql") + Value("h.plus.meql"),
                1.0 + Value("oh.minus.meql") + Value("cl.plus.meql"), 1e-9);
    gui_test::Enter(Field("h.plus.orig"), "0.5");
    EXPECT_EQ(Value("h.plus.meql"), 0.5) << "a typed value stays";
    Check(hydrogen);
    EXPECT_EQ(Value("h.plus.meql"), 0.0);
    EXPECT_EQ(Value("h.plus.orig"), 0.0);
    EXPECT_FALSE(Field("h.plus.orig").IsEnabled());
}

TEST_F(WaterAnalysisTest, AlkalinityIsTypedInPlaceOfBicarbonate)
{
    Detail("ph").SetValue(9.2);
    Detail("temp.orig").SetValue(15.0);
    Open();
    gui_test::Enter(Field("alkalinity.m.orig"), "125");
    EXPECT_NEAR(Value("hco3.meql") + Value("co3.meql"), 125.0, 0.1) << "mmol/l";
    Choose("m-value", "ppm CaCO3");
    EXPECT_EQ(Shown("alkalinity.m"), "2.5");
    EXPECT_NEAR(Value("hco3.meql") + Value("co3.meql"), 2.5, 0.02);
    EXPECT_GT(Value("co3.meql"), 0.2);
    gui_test::Enter(Field("ca.orig"), "40.08");
    EXPECT_EQ(Shown("hardness.total"), "2");
    gui_test::Enter(Field("hco3.orig"), "61.02");
    EXPECT_EQ(Shown("alkalinity.m.orig"), "") << "what is typed last counts";
    EXPECT_NEAR(Value("hco3.meql"), 1.0, 1e-9);
    Click(*FindByLabel<TvRadioButton>("Short analysis based on TDS"));
    EXPECT_FALSE(Field("alkalinity.m.orig").IsEnabled());
    EXPECT_EQ(Shown("hardness.total"), "");
}

TEST_F(WaterAnalysisTest, ShortAnalysesKeepTheFullOne)
{
    Detail("ca.orig").SetValue(40.08);
    Detail("cl.orig").SetValue(70.9);
    Open();
    const double tds = Value("tds");
    Click(*FindByLabel<TvRadioButton>("Short analysis based on TDS"));
    EXPECT_EQ(Detail("analysis.type").GetStringValue(), "SHORT_TDS");
    EXPECT_NEAR(Value("tds.short"), tds, 1e-9) << "starts from what the ions gave";
    EXPECT_FALSE(Field("ca.orig").IsEnabled());
    EXPECT_FALSE(Field("cond.short").IsEnabled());
    gui_test::Enter(Field("tds.short"), "584.4");
    EXPECT_NEAR(Value("na.meql"), 10.0, 1e-9);
    EXPECT_NEAR(Value("cl.meql"), 10.0, 1e-9);
    EXPECT_EQ(Value("ca.meql"), 0.0);

    Click(*FindByLabel<TvRadioButton>("Short analysis based on conductivity"));
    EXPECT_EQ(Detail("analysis.type").GetStringValue(), "SHORT_COND");
    gui_test::Enter(Field("cond.short"), "1000");
    EXPECT_NEAR(Value("cond"), 1000.0, 0.01);

    Click(*FindByLabel<TvRadioButton>("Full analysis"));
    EXPECT_EQ(Detail("analysis.type").GetStringValue(), "FULL");
    EXPECT_NEAR(Value("ca.meql"), 2.0, 1e-12);
    EXPECT_NEAR(Value("tds"), tds, 1e-9);
    EXPECT_TRUE(Field("ca.orig").IsEnabled());
}

TEST_F(WaterAnalysisTest, AnArrangementThatBlendsForbidsShortAnalyses)
{
    Open();
    m_project.GetDetails().LoadGroup("arrangement", "BASE");
    m_project.GetDetails().At("arrangement/calculate.blend").SetValue(true);
    m_panel->SynchronizeProject();
    EXPECT_FALSE(FindByLabel<TvRadioButton>("Short analysis based on TDS")->IsEnabled());
    m_project.GetDetails().At("arrangement/calculate.blend").SetValue(false);
    m_panel->SynchronizeProject();
    EXPECT_TRUE(FindByLabel<TvRadioButton>("Short analysis based on TDS")->IsEnabled());
}

TEST_F(WaterAnalysisTest, TemperatureKeepsItsUnitInEverySystem)
{
    Open();
    gui_test::Enter(Field("temp.orig"), "20");
    Choose("Temperature", wxString::FromUTF8("°F"));
    EXPECT_NEAR(Value("temp"), (20.0 - 32) / 1.8, 1e-12);
    EXPECT_EQ(m_outOfRange, std::vector<std::string>{"liquid/temp.orig"}) << "below freezing";
    auto& validator = dynamic_cast<TemperatureValidator&>(*Field("temp.orig").GetValidator());
    EXPECT_NEAR(validator.GetMinValue().GetValue(), 32.0, 1e-9);
    EXPECT_NEAR(validator.GetMaxValue().GetValue(), 212.0, 1e-9);
    gui_test::Enter(Field("temp.orig"), "68");
    EXPECT_TRUE(m_outOfRange.empty());
    EXPECT_EQ(Shown("temp"), "20");
    m_project.SetUnitSystemDisplay("us");
    m_panel->UpdateUnits(true);
    EXPECT_EQ(Shown("temp.orig"), "68") << "typed in a unit of its own: no system converts it";
    EXPECT_EQ(Shown("temp"), "68");
    gui_test::Enter(Field("temp.orig"), "86");
    EXPECT_NEAR(Value("temp"), 30.0, 1e-9);

    Detail("temp.unit").SetValue("°X");
    m_panel->TransferDetailsToWindow();
    m_panel->UpdateAnalysis();
    EXPECT_EQ(m_log, std::vector<std::string>{
                         "Silent exception in  WaterAnalysisPanel::UpdateTempOrigCtrlValidatorLimits, "
                         "set limits from Celsius as default."});
    EXPECT_NEAR(validator.GetMaxValue().GetValue(), 100.0, 1e-9);
}

TEST_F(WaterAnalysisTest, ValuesOutOfRangeAreColouredFlaggedAndReported)
{
    Open();
    gui_test::Enter(Field("ph"), "15");
    EXPECT_EQ(Value("ph"), 15.0) << "nothing is lost";
    EXPECT_EQ(Detail("ph").GetRangeFlag(), 1);
    EXPECT_EQ(Field("ph").GetBackgroundColour(), wxColour(255, 160, 144));
    gui_test::Enter(Field("na.orig"), "-1");
    EXPECT_EQ(Detail("na.orig").GetRangeFlag(), -1);
    Pump();
    EXPECT_EQ(m_outOfRange, (std::vector<std::string>{"liquid/na.orig", "liquid/ph"}));
    // The limit is an amount: the same number is too much in meq/l and reasonable in ppb.
    gui_test::Enter(Field("na.orig"), "300000");
    EXPECT_EQ(Detail("na.orig").GetRangeFlag(), 1);
    Choose("Sodium", "ppb");
    EXPECT_EQ(Detail("na.orig").GetRangeFlag(), 0);
    gui_test::Enter(Field("ph"), "");
    EXPECT_TRUE(std::isnan(Value("ph"))) << "an emptied property is unknown";
    EXPECT_EQ(Detail("ph").GetRangeFlag(), 0);
    Pump();
    EXPECT_TRUE(m_outOfRange.empty());
}

TEST_F(WaterAnalysisTest, CalculatedCo2FollowsPh)
{
    Detail("hco3.orig").SetValue(61.02);
    Detail("temp.orig").SetValue(25.0);
    Open();
    gui_test::Enter(Field("co2.orig"), "12");
    EXPECT_EQ(Value("co2.mgl"), 12.0);
    Check(*FindByLabel<TvCheckBox>("Calculate CO2"));
    EXPECT_TRUE(Detail("calculate.co2").GetBoolValue());
    EXPECT_FALSE(Field("co2.orig").IsEnabled());
    EXPECT_EQ(Shown("co2.mgl"), "") << "not known without a pH";
    gui_test::Enter(Field("ph"), "6.35");
    EXPECT_NEAR(Value("co2.mgl"), 44.0, 2.5) << "at pH = pK1 there is as much CO2 as bicarbonate";
    Check(*FindByLabel<TvCheckBox>("Calculate CO2"));
    EXPECT_EQ(Value("co2.mgl"), 12.0) << "the typed value is back";
}

TEST_F(WaterAnalysisTest, ToolTipsTellResidueAndBalanceError)
{
    Detail("hco3.orig").SetValue(61.02);
    Detail("na.orig").SetValue(68.97);
    Open();
    const auto toolTip = [this](const char* key) {
        TvTextCtrl& field = Field(key);
        wxMouseEvent pointed(wxEVT_ENTER_WINDOW);
        pointed.SetEventObject(&field);
        field.GetEventHandler()->ProcessEvent(pointed);
        return field.GetToolTipText().utf8_string();
    };
    // 1 meq/l of bicarbonate, 3 of sodium: 100 (3 - 1) / (3 + 1).
    EXPECT_EQ(toolTip("sum.a.meql"),
              "Balance error: 50 %, the difference of both sums in percent of their total");
    EXPECT_NE(toolTip("tds").find("98.974 mg/l"), std::string::npos) << toolTip("tds");
    gui_test::Enter(Field("na.orig"), "22.99");
    EXPECT_EQ(toolTip("sum.c.meql"),
              "Balance error: 0 %, the difference of both sums in percent of their total");
    EXPECT_EQ(toolTip("tds").find("98.974 mg/l"), std::string::npos);
}

TEST_F(WaterAnalysisTest, ExceptionsAreLoggedWithTheirPlace)
{
    Open();
    EXPECT_THROW(m_panel->NormalizeIon("nosuch", false), std::exception);
    ASSERT_EQ(m_log.size(), 1u);
    EXPECT_EQ(m_log.front().find("Exception in  WaterAnalysisPanel::NormalizeIon: "), 0u) << m_log.front();
}

TEST_F(WaterAnalysisTest, LanguageAndRecreation)
{
    Open();
    {
        const TestCatalogue german(
            std::vector<std::pair<std::string, std::string>>{{"Sodium:", "Natrium:"},
                                                             {"Cations", "Kationen"},
                                                             {"Full analysis", "Vollanalyse"},
                                                             {"Unit", "Einheit"}});
        wxCommandEvent event(tvLOCALIZE_EVENT);
        m_panel->GetEventHandler()->ProcessEvent(event);
        EXPECT_NE(wxWindow::FindWindowByLabel("Natrium:", m_panel), nullptr);
        EXPECT_NE(wxWindow::FindWindowByLabel("Kationen", m_panel), nullptr);
        EXPECT_NE(wxWindow::FindWindowByLabel("Vollanalyse", m_panel), nullptr);
        EXPECT_EQ(Field("na.orig").GetName(), "Natrium [mg/l]");
        EXPECT_NO_THROW(Find<tvUnitChoice>(*m_panel, "Natrium, Einheit"));
    }
    m_panel->Localize("iso");
    EXPECT_NE(wxWindow::FindWindowByLabel("Sodium:", m_panel), nullptr);
    Choose("Sodium", "ppm");
    EXPECT_EQ(Field("na.orig").GetName(), "Sodium [ppm]");
}

TEST_F(WaterAnalysisTest, AColumnOfASpreadsheetIsOneChange)
{
    Open();
    const auto setClipboard = [](const wxString& text) {
        ASSERT_TRUE(wxTheClipboard->Open());
        wxTheClipboard->SetData(new wxTextDataObject(text));
        wxTheClipboard->Close();
    };
    setClipboard("6,3\n15,0\n\nkein Wert\n2,3\n");
    Focus(Field("na.orig"));
    m_notified = 0;
    m_dialogs.Expect([](wxDialog& dialog) {
        EXPECT_EQ(dialog.GetTitle(), "Paste column");
        return wxID_CANCEL;
    });
    wateranalysis::PasteColumn(*m_panel);
    Pump();
    EXPECT_EQ(Value("na.orig"), 0.0) << "Cancel changes nothing";
    EXPECT_EQ(m_notified, 0);

    Focus(Field("na.orig"));
    m_dialogs.Expect([](wxDialog&) { return wxID_OK; });
    wateranalysis::PasteColumn(*m_panel);
    Pump();
    EXPECT_EQ(m_notified, 1);
    EXPECT_EQ(Value("na.orig"), 6.3);
    EXPECT_EQ(Value("ca.orig"), 15.0);
    EXPECT_EQ(Value("mg.orig"), 0.0) << "blank";
    EXPECT_EQ(Value("k.orig"), 0.0) << "no number";
    EXPECT_EQ(Value("sr.orig"), 2.3);
    EXPECT_GT(Value("sum.c.meql"), 0.0);

    // From the focused row of the other grid, and no further than its end.
    Focus(Field("as5.orig"));
    const auto lines = wateranalysis::PairCells(*m_panel, columntext::Parse("1\n2\n3\n", '.'));
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].key, "liquid/as5.orig");
    EXPECT_EQ(lines[1].key, "") << "unnamed rows and H+ take nothing";
}

}  // namespace
