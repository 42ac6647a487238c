// SPDX-License-Identifier: MIT
// The water analysis as its user drives it: real keys, three number locales, three unit systems, two
// languages.
#include "gui_base/input/validation/temperature_validator.h"
#include "gui_base/water/analysis/unit_for_all.h"
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

TEST_F(WaterAnalysisTest, KeysWalkTheValuesLikeThoseOfASpreadsheet)
{
    Open();
    struct Step
    {
        int key;
        int modifiers;
        const char* field;
    };
    const std::vector<Step> steps{
        {WXK_TAB, 0, "ca.orig"},        {WXK_TAB, 0, "mg.orig"}, {WXK_RETURN, 0, "k.orig"},
        {WXK_UP, 0, "mg.orig"},         {WXK_DOWN, 0, "k.orig"}, {WXK_TAB, wxMOD_SHIFT, "mg.orig"},
        {WXK_PAGEDOWN, 0, "cl.orig"},   {WXK_UP, 0, "al.orig"},  {WXK_NUMPAD_ENTER, 0, "cl.orig"},
        {WXK_PAGEDOWN, 0, "temp.orig"}, {WXK_RETURN, 0, "ph"},   {WXK_PAGEUP, 0, "cl.orig"},
        {WXK_PAGEUP, 0, "na.orig"},     {WXK_UP, 0, "na.orig"},
    };
    Focus(Field("na.orig"));
    for (const Step& step : steps) {
        Press(step.key, step.modifiers);
        EXPECT_EQ(wxWindow::FindFocus(), &Field(step.field)) << step.field << " has the focus";
    }
    // What is entered is selected, and what stands behind Enter begins anew.
    Type("23");
    Press(WXK_RETURN);
    Type("5");
    Press(WXK_UP);
    EXPECT_EQ(Value("na.orig"), 23.0);
    EXPECT_EQ(Value("ca.orig"), 5.0);
    Type("7");
    Press(WXK_DOWN);
    EXPECT_EQ(Value("na.orig"), 7.0) << "typed over the selected 23";
    // Fields without a column of values, too: a click selects, and so does Enter.
    Click(Field("ph"));
    Type("8");
    Press(WXK_TAB);
    Click(Field("ph"));
    Type("6");
    Press(WXK_TAB);
    EXPECT_EQ(Value("ph"), 6.0);
}

TEST_F(WaterAnalysisTest, UnitsOpenByAKey)
{
    Open();
    Focus(Field("ca.orig"));
    Press(WXK_DOWN, wxMOD_ALT);
    // The list of the toolkit is open and has the keyboard.
    Press(WXK_UP);
    Press(WXK_RETURN);
    EXPECT_EQ(Detail("ca.unit").GetStringValue(), "meq/l");
    Press(WXK_F4);
    Press(WXK_DOWN);
    Press(WXK_RETURN);
    EXPECT_EQ(Detail("ca.unit").GetStringValue(), "mg/l");
}

TEST_F(WaterAnalysisTest, OneUnitForAllAsksAboutTypedNumbers)
{
    Open();
    wateranalysis::SetUnitForAll(*m_panel, "meq/l");
    EXPECT_EQ(Detail("so4.unit").GetStringValue(), "meq/l") << "nobody is asked while nothing is typed";
    gui_test::Enter(Field("ca.orig"), "2");
    gui_test::Enter(Field("cl.orig"), "3");
    gui_test::DialogAnswers dialogs;
    const struct
    {
        int answer;
        const char* unit;
        double calcium;
        double meql;
    } cases[] = {{wxID_CANCEL, "meq/l", 2.0, 2.0},
                 {wxID_YES, "mg/l", 40.08, 2.0},
                 {wxID_NO, "ppm CaCO3", 40.08, 0.8016}};
    for (const auto& test : cases) {
        dialogs.Expect([&](wxDialog&) { return test.answer; });
        wateranalysis::SetUnitForAll(*m_panel,
                                     test.answer == wxID_CANCEL ? wxString("ppb") : wxString(test.unit));
        EXPECT_EQ(Detail("ca.unit").GetStringValue(), test.unit);
        EXPECT_EQ(Detail("k.unit").GetStringValue(), test.unit);
        EXPECT_NEAR(Value("ca.orig"), test.calcium, 1e-9) << test.unit;
        EXPECT_NEAR(Value("ca.meql"), test.meql, 1e-9) << test.unit;
    }
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
    // The limit is an amount: the same number is too much in mg/l and reasonable in ppb.
    gui_test::Enter(Field("na.orig"), "300000");
    EXPECT_EQ(Detail("na.orig").GetRangeFlag(), 1);
    Pump();
    EXPECT_EQ(m_outOfRange, (std::vector<std::string>{"liquid/na.orig", "liquid/ph"}));
    gui_test::Enter(Field("na.orig"), "<300000");
    EXPECT_EQ(Detail("na.orig").GetRangeFlag(), 1) << "nor is it a limit of detection";
    gui_test::Enter(Field("na.orig"), "-1");
    EXPECT_EQ(Value("na.orig"), -300000.0) << "no amount is negative";
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
    {
        // On a narrow page the anions stand below the cations.
        const TestCatalogue longer(std::vector<std::pair<std::string, std::string>>{
            {"Magnesium:", "Magnesium in another language:"}});
        m_frame->SetClientSize(m_frame->FromDIP(wxSize(600, 500)));
        m_panel->Localize("iso");
        Pump();
        ASSERT_GT(Field("cl.orig").GetScreenPosition().y, Field("k.orig").GetScreenPosition().y);
        for (const char* column : {".orig", ".meql", ".mgl"})
            EXPECT_EQ(Field(std::string("cl") + column).GetScreenRect().GetRight(),
                      Field(std::string("mg") + column).GetScreenRect().GetRight())
                << column;
    }
    m_panel->Localize("iso");
    EXPECT_NE(wxWindow::FindWindowByLabel("Sodium:", m_panel), nullptr);
    Choose("Sodium", "ppm");
    EXPECT_EQ(Field("na.orig").GetName(), "Sodium [ppm]");
}

}  // namespace
