// SPDX-License-Identifier: MIT
#include "gui_base/water/results/water_results_panel.h"

#include "gui_base/input/controls/tv_button.h"
#include "gui_base/water/results/result_card.h"
#include "projectbase/settings/settings.h"
#include "projectbase/water/blend_recipe.h"
#include "tests/support/gui_test.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/project_history.h"

#include <gmock/gmock.h>

using namespace wateranalysis;
using gui_test::Press;
using gui_test::Pump;
using testing::HasSubstr;
using testing::Not;

namespace {

class WaterResultsPanelTest : public gui_test::GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        support::SetWater(
            m_project,
            {{"ca", 6.0}, {"mg", 2.0}, {"na", 1.0}, {"hco3", 5.0}, {"so4", 3.0}, {"cl", 1.0}, {"sio2", 0.2}});
        m_panel = new WaterResultsPanel(
            m_frame, [this](const DetailAddress& to) { m_led.push_back(to); },
            [this](const std::string& section) { m_helped.push_back(section); });
        Resize({300, 900});
        m_panel->SetWater(&m_project, Water());
        Pump();
    }
    void TearDown() override
    {
        m_panel->SetWater(nullptr, {});
        Settings::Reset("balance.rule");
        GuiTest::TearDown();
    }

    DetailOwner Water() { return m_project.GetLiquid(0).GetOwner(); }
    void Resize(const wxSize& size)
    {
        m_panel->SetSize(wxRect({0, 0}, size));
        Pump();
    }
    template <typename Value>
    void Set(const char* key, Value value)
    {
        support::Put(m_project, "water.1", key, value);
    }
    const ResultCard& Tile(const std::string& caption)
    {
        for (const ResultCard* tile : m_panel->GetTiles()) {
            if (tile->GetContent().caption.utf8_string().starts_with(caption))
                return *tile;
        }
        throw std::runtime_error("no tile " + caption);
    }
    std::string Spoken(const std::string& caption) { return Plain(Tile(caption).SpokenText()); }
    /// With ordinary blanks between numbers and units.
    static std::string Plain(wxString text)
    {
        text.Replace(wxString::FromUTF8("\u00a0"), " ");
        return text.utf8_string();
    }
    std::string Badge() { return Plain(m_panel->GetBadge().SpokenText()); }

    iex::IEXProject m_project;
    WaterResultsPanel* m_panel = nullptr;
    std::vector<DetailAddress> m_led;
    std::vector<std::string> m_helped;
};

TEST_F(WaterResultsPanelTest, TilesFollowTheProject)
{
    EXPECT_EQ(Spoken("Total hardness"), "Total hardness: 8 meq/l, 400.3 ppm CaCO3, 22.43 °d");
    EXPECT_EQ(Spoken("Carbonate hardness"), "Carbonate hardness: 5 meq/l, non-carbonate 3 meq/l");
    EXPECT_EQ(Spoken("Equivalent mineral acidity"),
              "Equivalent mineral acidity: 4 meq/l, by cations less alkalinity 4 meq/l");
    EXPECT_EQ(Spoken("pH"), "pH: \u2013") << "nobody measured it";
    EXPECT_EQ(Spoken("Load of a day"), "Load of a day: \u2013");
    EXPECT_EQ(Plain(Tile("Total hardness").GetName()), "Total hardness: 8 meq/l, 400.3 ppm CaCO3, 22.43 °d");

    const std::size_t before = m_panel->GetChangedCards();
    support::Put(m_project, "", "project/title", std::string("Other"));
    EXPECT_EQ(m_panel->GetChangedCards(), before) << "nothing of it is shown";
    Set("liquid/cond25.measured.orig", 700.0);
    EXPECT_EQ(m_panel->GetChangedCards(), before + 1) << "that tile alone";
    EXPECT_THAT(Spoken("Conductivity"), HasSubstr("measured 700"));
    support::SetFlow(m_project, 30.0, 20.0);
    EXPECT_THAT(Spoken("Load of a day"), HasSubstr("eq/d, "));
    Set("liquid/ph", 7.5);
    EXPECT_THAT(Spoken("pH"), HasSubstr("pH: 7.5, "));
    m_project.SetUnitSystemDisplay("us");
    m_panel->Localize();
    EXPECT_THAT(Spoken("Load of a day"), testing::AllOf(HasSubstr("kgr/d"), HasSubstr("lb/d CaCO3")));
}

TEST_F(WaterResultsPanelTest, BalancesAsTheCheckBoxDoes)
{
    EXPECT_EQ(Badge(), "Ion balance: 0.0 %, in order");
    EXPECT_EQ(m_panel->GetBadge().GetContent().mood, Mood::Good);
    Set("liquid/na.orig", 3.0);
    EXPECT_EQ(Badge(), "Ion balance: +10.0 %, over the limit of Standard Methods 1030E");
    EXPECT_EQ(m_panel->GetBadge().GetContent().mood, Mood::Bad);
    ASSERT_TRUE(Settings::SetFromText("balance.rule", "5/10"));
    m_panel->Localize();
    EXPECT_EQ(Badge(), "Ion balance: +10.0 %, doubtful");
    EXPECT_EQ(m_panel->GetBadge().GetContent().mood, Mood::Warn);

    support::History history(m_project);
    ASSERT_TRUE(m_panel->GetBalanceButton().IsShown());
    gui_test::Click(m_panel->GetBalanceButton());
    EXPECT_TRUE(m_project.GetLiquid(0).GetDetails()->At("liquid/balance.auto").GetBoolValue());
    EXPECT_EQ(Badge(), "Ion balance: +10.0 %, closed by automatic balancing with 2 meq/l Cl");
    EXPECT_FALSE(m_panel->GetBalanceButton().IsShown());
    history.stack.Undo();
    EXPECT_EQ(Badge(), "Ion balance: +10.0 %, doubtful") << "one step";
    Set("liquid/analysis.type", std::string("SHORT_TDS"));
    EXPECT_EQ(Badge(), "Ion balance: \u2013");
    EXPECT_FALSE(m_panel->GetBalanceButton().IsShown());
    EXPECT_EQ(Spoken("Total hardness"), "Total hardness: \u2013");
}

TEST_F(WaterResultsPanelTest, LeadsToFieldsByMouseAndKeyboard)
{
    auto& hardness = const_cast<ResultCard&>(Tile("Total hardness"));
    gui_test::Click(hardness);
    EXPECT_THAT(m_led, testing::ElementsAre(DetailAddress{Water(), "liquid/hardness.total"}));
    Press(WXK_TAB);
    EXPECT_TRUE(Tile("Carbonate hardness").HasFocus());
    Press(WXK_RETURN);
    EXPECT_EQ(m_led.back(), (DetailAddress{Water(), "liquid/hardness.carbonate"}));
    const std::size_t count = m_led.size();
    gui_test::Click(const_cast<ResultCard&>(Tile("Anion load")));
    EXPECT_EQ(m_led.size(), count) << "no field holds it";
}

TEST_F(WaterResultsPanelTest, NarrowItIsAColumnWideAStrip)
{
    const auto columns = [this] {
        const int y = m_panel->GetTiles().front()->GetPosition().y;
        return std::ranges::count_if(m_panel->GetTiles(),
                                     [y](ResultCard* card) { return card->GetPosition().y == y; });
    };
    for (const auto& [width, expected] : {std::pair(240, 1), {340, 2}, {1200, 7}}) {
        Resize({width, 400});
        EXPECT_EQ(columns(), expected) << width;
        for (const ResultCard* card : m_panel->GetTiles()) {
            EXPECT_GE(card->GetSize().y, card->HeightFor(card->GetSize().x))
                << card->SpokenText().utf8_string();
            EXPECT_LE(card->GetRect().GetRight(), m_panel->GetClientSize().x);
        }
    }
}

TEST_F(WaterResultsPanelTest, AdviceOpensTheUserGuide)
{
    EXPECT_TRUE(m_panel->GetAdvice().empty());
    EXPECT_EQ(Plain(m_panel->GetMinerals().SpokenText()), "Saturation indices, \u2013") << "without a pH";
    Set("liquid/ph", 8.2);
    Set("liquid/fe.total", 1.2);
    EXPECT_THAT(Spoken("Langelier index"), HasSubstr("may deposit calcium carbonate, Ryznar"));
    EXPECT_THAT(Plain(m_panel->GetMinerals().SpokenText()),
                testing::AllOf(testing::ContainsRegex("Calcite 1\\.[0-9], "),
                               testing::ContainsRegex("Gypsum -1\\.[0-9], "), Not(HasSubstr("Barite"))));
    EXPECT_THAT(Plain(m_panel->GetMinerals().GetContent().tooltip),
                testing::ContainsRegex("Calcite 1\\.[0-9][0-9], "))
        << "to the digit that the report shows";
    ASSERT_EQ(m_panel->GetAdvice().size(), 2u);
    Resize({500, 520});
    m_panel->Scroll(0, 1000);
    Pump();
    EXPECT_GT(m_panel->GetViewStart().y, 0) << m_panel->GetVirtualSize().y;
    ResultCard& note = *m_panel->GetAdvice()[1];
    EXPECT_THAT(note.SpokenText().utf8_string(),
                testing::MatchesRegex("Note, Langelier index 1.* calcium carbonate .*"));
    EXPECT_EQ(note.GetContent().mood, Mood::Note);
    const ResultCard& iron = *m_panel->GetAdvice()[0];
    EXPECT_LT(iron.GetPosition().y, m_panel->GetTiles().front()->GetPosition().y);
    EXPECT_GT(note.GetPosition().y, m_panel->GetTiles().back()->GetPosition().y);
    EXPECT_EQ(Plain(iron.SpokenText()),
              "Warning, Iron 1.2 mg/l is not below 1 mg/l: it has to be removed ahead of ion exchangers");
    EXPECT_EQ(iron.GetContent().mood, Mood::Warn);
    EXPECT_THAT(iron.GetContent().tooltip.utf8_string(), HasSubstr("Source: Illinois"));
    gui_test::Click(note);
    EXPECT_THAT(m_helped, testing::ElementsAre("wateradvice.html#langelier"));
    EXPECT_TRUE(m_led.empty());
    Set("liquid/fe.total", 0.1);
    EXPECT_EQ(m_panel->GetAdvice().size(), 1u);
}

TEST_F(WaterResultsPanelTest, ABlendSaysOfWhat)
{
    const auto recipe = [this] { return Plain(gui_test::Find<ResultCard>(*m_panel, {}, 0).SpokenText()); };
    m_project.AddLiquid("Well");
    LiquidData& blend = m_project.AddLiquid("Mixture");
    water::StoreRecipe({{{m_project.GetLiquid(0).GetName(), 30.0}, {"Well", 70.0}}}, *blend.GetDetails());
    m_panel->SetWater(&m_project, blend.GetOwner());
    EXPECT_EQ(recipe(), "Blend, 30 % " + m_project.GetLiquid(0).GetName() + ", 70 % Well");
    water::StoreRecipe({{{m_project.GetLiquid(0).GetName(), 12.0}, {"Well", 8.0}}, true},
                       *blend.GetDetails());
    EXPECT_EQ(recipe(), "Blend, 12 m³/h " + m_project.GetLiquid(0).GetName() + ", 8 m³/h Well");
}

TEST_F(WaterResultsPanelTest, AWaterThatGoesLeavesNothing)
{
    m_project.AddLiquid("Second");
    m_panel->SetWater(&m_project, m_project.GetLiquid(1).GetOwner());
    EXPECT_EQ(Spoken("Total hardness"), "Total hardness: \u2013") << "nothing was analysed";
    EXPECT_EQ(Badge(), "Ion balance: \u2013");
    DetailList& second = *m_project.GetLiquid(1).GetDetails();
    second.At("liquid/na.orig").SetValue(23.0);
    EXPECT_EQ(Badge(), "Ion balance: \u2013, no anions yet");
    second.At("liquid/na.orig").SetValue(0.0);
    second.At("liquid/cl.orig").SetValue(35.0);
    EXPECT_EQ(Badge(), "Ion balance: \u2013, no cations yet");
    m_panel->SetWater(&m_project, Water());
    m_project.RemoveLiquid(0);
    EXPECT_EQ(Spoken("Total hardness"), "Total hardness: \u2013");
    EXPECT_EQ(Badge(), "Ion balance: \u2013");
    gui_test::Click(const_cast<ResultCard&>(Tile("Total hardness")));
    EXPECT_TRUE(m_led.empty());
}

}  // namespace
