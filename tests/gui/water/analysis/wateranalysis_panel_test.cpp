// SPDX-License-Identifier: MIT
// The water analysis as its user drives it: real keys, three number locales, three unit systems, two
// languages.
#include "gui_base/input/validation/temperature_validator.h"
#include "tests/gui/water/analysis/wateranalysis_fixture.h"

#include <fmt/format.h>

namespace {

using namespace gui_test;

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

}  // namespace
