// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/form/shown_context.h"
#include "gui_base/input/validation/validator.h"
#include "gui_base/report/blend_tiles.h"
#include "gui_base/water/tools/alkalization_dialog.h"
#include "gui_base/water/tools/blend_dialog.h"
#include "gui_base/water/tools/co2_calculator_dialog.h"
#include "projectbase/advice/evaluation.h"
#include "projectbase/project/blended_water.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/gui_test.h"

#include <wx/button.h>
#include <wx/combo.h>
#include <wx/uiaction.h>

#include <cmath>
#include <map>

namespace {

using namespace gui_test;

class WaterToolsTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        Set("liquid/ph", 7.2);
        Set("liquid/temp.orig", 20.0);
        Set("liquid/hco3.orig", 122.0);
        Set("liquid/na.orig", 46.0);
        m_project.CalculateDesign();
    }
    DetailList& Details() { return *m_project.GetLiquid(0).GetDetails(); }
    void Set(const char* key, double value) { Details().At(key).SetValue(value); }
    double Get(const char* key) { return Details().At(key).GetDoubleValue(); }
    bool IsCo2Calculated() { return Details().At("liquid/calculate.co2").GetBoolValue(); }

    /// Runs the dialog; `use` drives it by keys while it is open.
    template <typename Dialog, typename Use>
    int Run(Use use)
    {
        Dialog dialog(&m_project, 0, m_frame);
        m_dialogs.Expect([](wxDialog&) { return static_cast<int>(wxID_NONE); });
        dialog.CallAfter([&] { use(dialog); });
        return dialog.ShowModal();
    }
    static wxComboCtrl& Agent(wxWindow& dialog) { return Find<wxComboCtrl>(dialog, "Alkalizing agent"); }
    /// What the user is told below the rows.
    static wxString Message(AlkalizationPanel& panel)
    {
        return dynamic_cast<wxStaticText&>(*panel.GetChildren().GetLast()->GetData()).GetLabelText();
    }
    static void Push(wxDialog& dialog, int id)
    {
        wxCommandEvent click(wxEVT_BUTTON, id);
        click.SetEventObject(dialog.FindWindow(id));
        dialog.FindWindow(id)->ProcessWindowEvent(click);
    }

    iex::IEXProject m_project;
};

TEST_F(WaterToolsTest, Co2FollowsWhatIsTyped)
{
    Run<tvCO2CalculatorDialog>([this](tvCO2CalculatorDialog& dialog) {
        EXPECT_TRUE(IsCo2Calculated());
        // pH 7.2, 20 °C, 2 mmol/l HCO3: [CO2] = [HCO3] 10^(pK1 - pH) γ with pK1 6.382.
        const double before = Get("liquid/co2.mgl");
        EXPECT_NEAR(before, 44.01 * 2.0 * std::pow(10.0, 6.382 - 7.2) * 0.95, 0.4);
        wxTextCtrl& pH = *dialog.GetPanel()->FindField("liquid/ph");
        Enter(pH, "6.2");
        EXPECT_NEAR(Get("liquid/co2.mgl") / before, 10.0, 1e-6) << "ten times for one unit of pH";
        EXPECT_EQ(dialog.GetPanel()->FindField("liquid/co2.mgl")->GetValue().Mid(0, 3),
                  wxString::Format("%.4g", Get("liquid/co2.mgl")).Mid(0, 3));
        Enter(*dialog.GetPanel()->FindField("liquid/hco3.orig"), "61");
        EXPECT_NEAR(Get("liquid/co2.mgl") / before, 5.0, 0.05);
        Push(dialog, wxID_OK);
        EXPECT_EQ(dialog.GetReturnCode(), wxID_OK);
    });
    EXPECT_DOUBLE_EQ(Get("liquid/ph"), 6.2) << "closing after OK keeps the values";
    EXPECT_TRUE(IsCo2Calculated());
}

TEST_F(WaterToolsTest, CancelledCo2LeavesTheWater)
{
    for (const int way : {static_cast<int>(wxID_CANCEL), 0}) {
        Details().At("liquid/calculate.co2").SetValue(true);
        const double meq = Get("liquid/hco3.meql");
        Run<tvCO2CalculatorDialog>([this, way](tvCO2CalculatorDialog& dialog) {
            Enter(*dialog.GetPanel()->FindField("liquid/ph"), "8");
            Enter(*dialog.GetPanel()->FindField("liquid/temp.orig"), "30");
            Enter(*dialog.GetPanel()->FindField("liquid/hco3.orig"), "10");
            EXPECT_NE(Get("liquid/hco3.meql"), 2.0);
            if (way == wxID_CANCEL)
                Push(dialog, wxID_CANCEL);
            else
                dialog.Close();
        });
        EXPECT_DOUBLE_EQ(Get("liquid/ph"), 7.2);
        EXPECT_DOUBLE_EQ(Get("liquid/temp.orig"), 20.0);
        EXPECT_DOUBLE_EQ(Get("liquid/hco3.meql"), meq);
        EXPECT_FALSE(IsCo2Calculated()) << "even if it was on before";
        Set("liquid/hco3.orig", 122.0);
    }
}

TEST_F(WaterToolsTest, Co2CalculatorColoursWhatIsOutOfRange)
{
    Run<tvCO2CalculatorDialog>([](tvCO2CalculatorDialog& dialog) {
        const wxColour normal = dialog.GetPanel()->FindField("liquid/ph")->GetBackgroundColour();
        for (const auto& [key, value] : {std::pair("liquid/ph", "15"), std::pair("liquid/temp.orig", "120"),
                                         std::pair("liquid/hco3.orig", "1e7")}) {
            wxTextCtrl& field = *dialog.GetPanel()->FindField(key);
            Enter(field, value);
            EXPECT_NE(field.GetBackgroundColour(), normal) << key;
        }
        Push(dialog, wxID_CANCEL);
    });
}

TEST_F(WaterToolsTest, AlkalizingByPhAndByDose)
{
    const int code = Run<AlkalizationDialog>([this](AlkalizationDialog& dialog) {
        AlkalizationPanel& panel = *dialog.GetPanel();
        EXPECT_EQ(Agent(panel).GetValue(), "None");
        EXPECT_FALSE(panel.FindField("liquid/alk.target")->IsEnabled());
        Focus(Agent(panel));
        Press(WXK_DOWN);
        EXPECT_EQ(Details().At("liquid/alk.type").GetStringValue(), "naoh");
        EXPECT_EQ(Message(panel), "Enter a pH or a dose.");
        Enter(*panel.FindField("liquid/alk.target"), "8.5");
        EXPECT_EQ(Message(panel), "");
        EXPECT_NEAR(Get("liquid/alk.ph"), 8.5, 1e-3);
        const double needed = Get("liquid/alk.dosed");
        EXPECT_GT(needed, 1.0);

        Enter(*panel.FindField("liquid/alk.target"), "7");
        EXPECT_EQ(Message(panel), "This agent cannot bring the water there.");
        EXPECT_EQ(panel.FindField("liquid/alk.ph")->GetValue(), "");
        Click(*wxWindow::FindWindowByLabel("Dose", &panel));
        EXPECT_TRUE(panel.FindField("liquid/alk.dose")->IsEnabled());
        Enter(*panel.FindField("liquid/alk.dose"), wxString::FromCDouble(needed, 6));
        EXPECT_NEAR(Get("liquid/alk.ph"), 8.5, 1e-3);
        Push(dialog, wxID_OK);
    });
    EXPECT_EQ(code, wxID_OK);
    EXPECT_GT(Get("liquid/na.meql"), 2.0);
    EXPECT_DOUBLE_EQ(Get("liquid/na.orig"), 46.0);
}

TEST_F(WaterToolsTest, CancelledAlkalizationRestoresEveryValue)
{
    std::vector<DetailData::Value> before;
    for (const auto& [name, detail] : Details())
        before.push_back(detail.GetStoredValue());
    Run<AlkalizationDialog>([this](AlkalizationDialog& dialog) {
        Focus(Agent(dialog));
        Press(WXK_DOWN);
        Enter(*dialog.GetPanel()->FindField("liquid/alk.target"), "9");
        EXPECT_NEAR(Get("liquid/alk.ph"), 9.0, 1e-3);
        Push(dialog, wxID_CANCEL);
    });
    std::size_t i = 0;
    for (const auto& [name, detail] : Details())
        EXPECT_TRUE(SameDetailValue(detail.GetStoredValue(), before[i++])) << name;
}

class BlendTest : public WaterToolsTest
{
protected:
    void SetUp() override
    {
        WaterToolsTest::SetUp();
        m_waters.push_back(m_project.GetLiquid(0).GetName());
        for (const auto& [name, sodium] :
             {std::pair("Well", 92.0), std::pair("River", 0.0), std::pair("Lake", 23.0)}) {
            DetailList& water = *m_project.AddLiquid(name).GetDetails();
            water.At("liquid/na.orig").SetValue(sodium);
            water.At("liquid/cl.orig").SetValue(sodium * 35.45 / 22.99);
            m_waters.emplace_back(name);
        }
        m_project.CalculateDesign();
    }
    /// Opens the dialog on a recipe and drives it by `use`.
    template <typename Use>
    int Run(const water::BlendRecipe& recipe, Use use)
    {
        const ReportContext context = ShownContext("us");
        BlendDialog dialog(m_frame, "Blend", m_waters, recipe, "us", [&](const water::BlendRecipe& tried) {
            return wateranalysis::BlendTiles(m_project, nullptr, tried, context);
        });
        m_dialogs.Expect([](wxDialog&) { return static_cast<int>(wxID_NONE); });
        dialog.CallAfter([&] { use(dialog); });
        const int answer = dialog.ShowModal();
        m_recipe = dialog.GetRecipe();
        return answer;
    }
    static TvTextCtrl& Amount(BlendDialog& dialog, std::size_t row)
    {
        return dialog.GetForm().GetRows().at(row)->GetAmount();
    }
    static wxString Preview(BlendDialog& dialog, const wxString& title)
    {
        return Find<wxStaticText>(dialog, title).GetLabelText();
    }

    std::vector<std::string> m_waters;
    water::BlendRecipe m_recipe;
};

TEST_F(BlendTest, RowsAreAddedAndRemovedAndOnlyTheRatioCounts)
{
    const water::BlendRecipe halves{{{m_waters[0], 50.0}, {"Well", 50.0}}};
    const int answer = Run(halves, [&](BlendDialog& dialog) {
        BlendForm& form = dialog.GetForm();
        const auto remove = [&](std::size_t row) -> wxWindow& {
            return form.GetRows().at(row)->GetRemoveButton();
        };
        ASSERT_EQ(form.GetRows().size(), 2u);
        EXPECT_FALSE(remove(0).IsEnabled()) << "a blend needs two waters";
        const wxSize before = dialog.GetSize();
        Click(*form.FindWindow(wxID_ADD));
        ASSERT_EQ(form.GetRows().size(), 3u);
        EXPECT_EQ(form.GetRows()[2]->GetWater(), "River") << "the first one that is not there yet";
        EXPECT_TRUE(Amount(dialog, 2).HasFocus());
        EXPECT_GT(dialog.GetSize().y, before.y);
        EXPECT_EQ(dialog.GetRecipe().parts.size(), 2u) << "an empty field is no part";
        Type("25");
        Press(WXK_RETURN);
        const auto byShare = dialog.GetRecipe();
        ASSERT_EQ(byShare.parts.size(), 3u);
        EXPECT_EQ(byShare.Shares()[2], 0.2);
        EXPECT_EQ(form.FindField("share.sum")->GetValue(), "125");
        EXPECT_NE(form.GetShareRemark().Find("125 %"), wxNOT_FOUND);

        // Up and down as in every column of values; what is entered is replaced by what is typed.
        Press(WXK_UP);
        EXPECT_TRUE(Amount(dialog, 1).HasFocus());
        Type("75");
        Press(WXK_DOWN);
        EXPECT_EQ(form.FindField("share.sum")->GetValue(), "150");
        Click(*form.FindWindow(wxID_ADD));
        Click(remove(1));
        Pump();
        ASSERT_EQ(form.GetRows().size(), 3u);
        EXPECT_EQ(form.FindField("share.sum")->GetValue(), "75") << "what is not there does not count";
        EXPECT_TRUE(Amount(dialog, 1).HasFocus());
        Press(WXK_UP);
        EXPECT_TRUE(Amount(dialog, 0).HasFocus()) << "the keys know the rows that there are now";
        Push(dialog, wxID_OK);
    });
    EXPECT_EQ(answer, wxID_OK);
    ASSERT_EQ(m_recipe.parts.size(), 2u);
    EXPECT_EQ(m_recipe.parts[1].water, "River");
}

TEST_F(BlendTest, TabRunsThroughTheAmountsBeforeTheButtonsThatRemove)
{
    Run({{{"Well", 50.0}, {"River", 50.0}}}, [&](BlendDialog& dialog) {
        BlendForm& form = dialog.GetForm();
        EXPECT_EQ(form.GetShareRemark(), "") << "100 %";
        Click(*form.FindWindow(wxID_ADD));
        Amount(dialog, 0).SetFocus();
        // The toolkit does not say when a choice has the focus.
        const wxWindow* const choice = nullptr;
        std::vector<const wxWindow*> expected;
        for (std::size_t row = 1; row < 3; ++row)
            expected.insert(expected.end(), {choice, &Amount(dialog, row)});
        for (BlendRow* row : form.GetRows())
            expected.push_back(&row->GetRemoveButton());
        expected.push_back(form.FindWindow(wxID_ADD));
        for (std::size_t step = 0; step < expected.size(); ++step) {
            Press(WXK_TAB);
            EXPECT_EQ(wxWindow::FindFocus(), expected[step]) << "step " << step;
        }
        Push(dialog, wxID_OK);
    });
}

TEST_F(BlendTest, TheNameIsTypedFirst)
{
    Run({{{"Well", 50.0}, {"River", 50.0}}}, [&](BlendDialog& dialog) {
        auto& name = Find<wxTextCtrl>(dialog, "Name");
        Pump();
        EXPECT_TRUE(name.HasFocus());
        EXPECT_EQ(dialog.GetBlendName(), "Blend");
        Type("Boiler");
        EXPECT_EQ(dialog.GetBlendName(), "Boiler") << "what stood there was selected";
        name.SelectAll();
        Type(" ");
        EXPECT_EQ(dialog.GetBlendName(), "Blend") << "nothing but a space";
        Push(dialog, wxID_OK);
    });
}

TEST_F(BlendTest, FlowsAreInUnitsOfTheUserAndIncompleteRecipesStayOpen)
{
    const int answer = Run({{{m_waters[0], 50.0}, {"gone", 50.0}}}, [&](BlendDialog& dialog) {
        Focus(Find<wxChoice>(dialog, "Amounts"));
        Press(WXK_DOWN);
        Push(dialog, wxID_OK);
        EXPECT_TRUE(dialog.IsShown()) << "no amounts yet: it stays open";
        Enter(Amount(dialog, 0), "44");
        Focus(dialog.GetForm().GetRows()[1]->GetChoice());
        Press(WXK_END);
        Enter(Amount(dialog, 1), "132");
        Push(dialog, wxID_OK);
    });
    EXPECT_EQ(answer, wxID_OK);
    EXPECT_TRUE(m_recipe.byFlow);
    ASSERT_EQ(m_recipe.parts.size(), 2u);
    EXPECT_EQ(m_recipe.parts[1].water, "Lake");
    EXPECT_NEAR(m_recipe.parts[1].amount, 132.0 * 0.2271247, 1e-3) << "gallons a minute in m\u00b3/h";
    EXPECT_NEAR(m_recipe.Shares()[0], 0.25, 1e-12);
}

TEST_F(BlendTest, ThePreviewIsWhatTheBlendWillBe)
{
    const auto tiles = [this](const LiquidData& water) {
        std::map<std::string, std::string> texts;
        for (const auto& tile :
             wateranalysis::ResultTiles(advice::Evaluate(m_project, water), water, ShownContext("us")))
            texts[tile.title] = tile.value;
        return texts;
    };
    std::map<wxString, wxString> shown;
    Run({{{"Well", 50.0}, {"River", 50.0}}}, [&](BlendDialog& dialog) {
        const wxString before = Preview(dialog, "TDS");
        Enter(Amount(dialog, 0), "150");
        EXPECT_NE(Preview(dialog, "TDS"), before);
        Amount(dialog, 1).Clear();
        Enter(Amount(dialog, 1), "");
        EXPECT_EQ(Preview(dialog, "TDS"), "") << "no blend yet";
        Enter(Amount(dialog, 1), "50");
        for (const char* title : {"TDS", "Total hardness", "Alkalinity (m-value)", "pH", "Balance error"})
            shown[title] = Preview(dialog, title);
        Push(dialog, wxID_OK);
    });
    EXPECT_EQ(m_project.GetLiquidCount(), 4u) << "the dialog changes nothing";
    const auto made = tiles(water::StoreBlend(m_project, nullptr, m_recipe, "Blend"));
    for (const auto& [title, text] : shown) {
        const auto tile = made.find(title.utf8_string());
        if (tile != made.end()) {
            EXPECT_TRUE(text.StartsWith(wxString::FromUTF8(tile->second))) << title << ": " << text;
        }
    }
    EXPECT_NE(shown["TDS"], "");
    EXPECT_NE(shown["Balance error"], "");
}

}  // namespace
