// SPDX-License-Identifier: MIT
// Pages follow the project that others change, and links lead to them.
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/water/feedwater/organics_input_panel.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/program_fixture.h"

namespace {

using namespace gui_test;

class ModuleBookTest : public ProgramTest
{
protected:
    ModuleBookTest() : ProgramTest("brandenburg_fresh") {}

    bool ShowsOrganics(std::size_t water) { return Find<OrganicsInputPanel>(WaterPage(water)).IsShown(); }
    std::string Front() { return m_frame->GetBook().GetCurrent()->GetModule().id; }
    void Activate(int row)
    {
        FollowMessage(row);
        Pump();
    }
};

TEST_F(ModuleBookTest, TabGoesFromFieldToFieldOfEveryPage)
{
    dynamic_cast<iex::IEXProject&>(OpenProject()).SetPlant("SOFT", {"SAC_NA"});
    Pump();
    struct Way
    {
        const char* page;
        const char* from;
        const char* to;
    };
    const Way ways[] = {{"design", "Source flow rate [m\u00b3/h]", "Running time [h]"},
                        {"project", "Customer", "Plant"},
                        {"design", "Greatest velocity [m/h]", "Least bed depth [m]"}};
    for (const auto& [page, from, to] : ways) {
        ModulePanelBase* shown = m_frame->GetBook().Show(page, {});
        ASSERT_NE(shown, nullptr) << page;
        Pump();
        auto& field = Find<wxTextCtrl>(*shown, from);
        Focus(field);
        Press(WXK_TAB);
        EXPECT_TRUE(Find<wxTextCtrl>(*shown, to).HasFocus()) << page;
        Press(WXK_TAB, wxMOD_SHIFT);
        EXPECT_TRUE(field.HasFocus()) << page;
    }
}

TEST_F(ModuleBookTest, OrganicsStandWithTheFirstWater)
{
    EXPECT_TRUE(ShowsOrganics(0));
    Menu("Tools", "Add water");
    EXPECT_FALSE(ShowsOrganics(1));
    const DetailOwner second = OpenProject().GetLiquid(1).GetOwner();
    Menu("Tools", "Move water up");
    ASSERT_EQ(OpenProject().GetLiquid(0).GetOwner(), second);
    EXPECT_TRUE(ShowsOrganics(0));
    EXPECT_FALSE(ShowsOrganics(1));
    m_frame->Undo();
    Pump();
    EXPECT_TRUE(ShowsOrganics(0));
    EXPECT_FALSE(ShowsOrganics(1));

    WaterPage(0);
    Enter(Find<wxTextCtrl>(Find<OrganicsInputPanel>(WaterPage()), "Temperature [\u00b0C]"), "35");
    Menu("Tools", "Remove water");
    ASSERT_EQ(OpenProject().GetLiquid(0).GetOwner(), second);
    EXPECT_TRUE(ShowsOrganics(0));
    EXPECT_EQ(Find<wxTextCtrl>(Find<OrganicsInputPanel>(WaterPage()), "Temperature [\u00b0C]").GetValue(),
              "35")
        << "they belong to the feed, not to the water that went";
    m_frame->Undo();
    Pump();
    EXPECT_TRUE(ShowsOrganics(0));
    EXPECT_FALSE(ShowsOrganics(1));

    // The page in view follows by itself.
    WaterPage(1);
    OpenProject().RemoveLiquid(0);
    Pump();
    EXPECT_TRUE(ShowsOrganics(0));
}

TEST_F(ModuleBookTest, AFaultsLinkStaysOnThePageInFront)
{
    // The medium of the feed is typed with the first water and with the composition.
    OpenProject().GetDetails().At("feed/medium.temp").SetValue(150.0);
    Pump();
    ASSERT_EQ(Messages().size(), 1u);
    const auto isFocused = [this](wxWindow& page) {
        return PumpUntil([&page] {
                   return Find<wxTextCtrl>(page, "Temperature [\u00b0C]", 0).GetValue() == "150";
               }) &&
               page.IsDescendant(wxWindow::FindFocus());
    };
    FeedPage();
    Activate(0);
    EXPECT_EQ(Front(), "feed");
    EXPECT_TRUE(isFocused(FeedPage()));
    WaterPage();
    Activate(0);
    EXPECT_EQ(Front(), "water");
    EXPECT_TRUE(isFocused(Find<OrganicsInputPanel>(WaterPage())));
    m_frame->GetBook().Show("project", {});
    Activate(0);
    EXPECT_EQ(Front(), "water") << "the first that shows it";
    m_frame->GetBook().Show("feed", {});
    Activate(0);
    EXPECT_EQ(Front(), "feed");
}

TEST_F(ModuleBookTest, UnitsThatOthersChangeBringTheirLimitsAndNames)
{
    TvTextCtrl& field = *WaterPage().FindField("liquid/na.orig");
    const auto limit = [&field] {
        return dynamic_cast<DoubleValidator&>(*field.GetValidator()).GetMaxValue();
    };
    EXPECT_EQ(field.GetName(), "Sodium [mg/l]");
    EXPECT_NEAR(limit(), 229'900.0, 1e-6);
    Water("na.unit").SetValue("meq/l");
    EXPECT_EQ(field.GetName(), "Sodium [meq/l]");
    EXPECT_NEAR(limit(), 10'000.0, 1e-6);
    m_frame->Undo();
    EXPECT_EQ(field.GetName(), "Sodium [mg/l]");
    EXPECT_NEAR(limit(), 229'900.0, 1e-6);
}

}  // namespace
