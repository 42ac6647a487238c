// SPDX-License-Identifier: MIT
// What the switches, buttons and menus of a water analysis do.
#include "gui_base/water/analysis/paste_column.h"
#include "tests/gui/water/analysis/wateranalysis_fixture.h"

#include <wx/bmpbuttn.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/msgdlg.h>

namespace {

using namespace gui_test;

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
    // Numbers that are typed with Tab run past the names.
    for (const char* name : {"x1.name", "x2.name"}) {
        Focus(Field(name));
        Type("7.8");
        Press(WXK_TAB);
        EXPECT_FALSE(Field(name == std::string("x1.name") ? "x1.orig" : "x2.orig").HasFocus()) << name;
    }
    EXPECT_EQ(Field("x1.name").GetValue(), "Rb");
    EXPECT_NEAR(Value("x1.mgl"), 2 * 22.99, 1e-12);
    EXPECT_EQ(Detail("x2.name").GetStringValue(), "");
    EXPECT_FALSE(Field("x2.orig").IsEnabled());
    EXPECT_EQ(m_log, std::vector<std::string>(2, "A number is no name of an ion"));
    gui_test::Enter(Field("y1.name"), "I");
    gui_test::Enter(Field("y1.orig"), "3");
    EXPECT_NEAR(Value("y1.mgl"), 3 * 35.45, 1e-12);
    gui_test::Enter(Field("x1.name"), "  ");
    EXPECT_EQ(Value("x1.orig"), 0.0);
    EXPECT_EQ(Value("x1.meql"), 0.0);
    EXPECT_FALSE(Field("x1.orig").IsEnabled());
}

TEST_F(WaterAnalysisTest, AnIonThatAFileNamesByANumberCanBeTyped)
{
    Detail("x1.name").SetValue(wxString("7"));
    Detail("x1.orig").SetValue(2.0);
    Open();
    EXPECT_TRUE(Field("x1.orig").IsEnabled());
    gui_test::Enter(Field("x1.orig"), "3");
    EXPECT_EQ(Value("x1.orig"), 3.0);
    EXPECT_EQ(Field("x1.name").GetValue(), "7");
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

TEST_F(WaterAnalysisTest, WhatWasMeasuredStandsBesideWhatIsCalculated)
{
    Open();
    gui_test::Enter(Field("ca.orig"), "40.08");
    gui_test::Enter(Field("hardness.measured.orig"), "1.05");
    EXPECT_EQ(Shown("hardness.measured"), "2.1") << "meq/l of 1.05 mmol/l";
    EXPECT_EQ(Shown("hardness.total"), "2");
    Choose("Measured hardness", wxString::FromUTF8("\u00b0d"));
    EXPECT_EQ(Shown("hardness.measured"), "0.375");
    gui_test::Enter(Field("cond25.measured.orig"), "0.25");
    Choose("Measured conductivity", "mS/cm");
    EXPECT_EQ(Shown("cond25.measured"), "250");
    gui_test::Enter(Field("cond25.measured.orig"), "");
    EXPECT_EQ(Shown("cond25.measured"), "") << "nothing was measured, which is not 0";
    Click(*FindByLabel<TvRadioButton>("Short analysis based on TDS"));
    EXPECT_TRUE(Field("hardness.measured.orig").IsEnabled()) << "whatever the analysis";
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
    EXPECT_EQ(Field("ca.orig").GetBackgroundColour(), TvTextCtrl::ReadOnlyColour());
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
    EXPECT_EQ(Field("ca.orig").GetBackgroundColour(), TvTextCtrl::EditableColour());
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

void SetClipboard(const wxString& text)
{
    ASSERT_TRUE(wxTheClipboard->Open());
    wxTheClipboard->SetData(new wxTextDataObject(text));
    wxTheClipboard->Close();
}

TEST_F(WaterAnalysisTest, ASheetIsNoColumn)
{
    Open();
    struct Case
    {
        wxString text;
        wxString cause;
    };
    const std::vector<Case> cases{
        {wxString('\t', 15'000) + wxString('\n', 15'000),
         "it has more than 1000 columns (row 1, column 1001)"},
        {wxString('\n', 15'000), "it has more than 1000 rows (row 1001, column 1)"},
        {wxString('1', 2'000'000), "it is larger than 1 MiB"},
    };
    m_notified = 0;
    for (const auto& [text, cause] : cases) {
        SetClipboard(text);
        bool told = false;
        m_dialogs.Expect([&](wxDialog& dialog) {
            const auto* message = dynamic_cast<wxMessageDialog*>(&dialog);
            told = message != nullptr && message->GetMessage().Contains(cause);
            return wxID_CANCEL;
        });
        wateranalysis::PasteColumn(*m_panel);
        Pump();
        EXPECT_TRUE(told) << cause;
    }
    EXPECT_EQ(m_notified, 0);
}

TEST_F(WaterAnalysisTest, AColumnOfASpreadsheetIsOneChange)
{
    Open();
    SetClipboard("6,3\n15,0\n\nkein Wert\n2,3\n");
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
