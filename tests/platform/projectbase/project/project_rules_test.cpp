// SPDX-License-Identifier: MIT
// What inputs bring about in others, typed or not.
#include "tests/platform/projectbase/project/project_edit_fixture.h"

#include <cmath>

namespace {

using ProjectRules = support::ProjectEditTest;

TEST_F(ProjectRules, WaterIonsBeginAsTheyFollowFromThePh)
{
    Water("ph").SetValue(4.0);
    Water("balance.ph").SetValue(true);
    EXPECT_NEAR(Water("h.plus.orig").GetDoubleValue(), 0.1, 0.01);
    Water("h.plus.orig").SetValue(0.2);
    Water("ca.orig").SetValue(10.0);
    EXPECT_EQ(Water("h.plus.orig").GetDoubleValue(), 0.2) << "what is typed afterwards stays";
    Water("balance.ph").SetValue(false);
    EXPECT_EQ(Water("h.plus.orig").GetDoubleValue(), 0.0);
    m_history.stack.Undo();
    EXPECT_EQ(Water("h.plus.orig").GetDoubleValue(), 0.2) << "an undo brings back what stood there";
    {
        const ProjectEdit edit(m_project, {}, EditKind::Copied);
        Water("balance.ph").SetValue(false);
    }
    {
        const ProjectEdit edit(m_project);
        Water("balance.ph").SetValue(true);
        Water("h.plus.orig").SetValue(0.7);
    }
    EXPECT_EQ(Water("h.plus.orig").GetDoubleValue(), 0.7) << "given together with the switch";

    // The ions that are typed with the switch count for the activity.
    LiquidData& salty = m_project.AddLiquid("Brine");
    const auto type = [](LiquidData& water, bool balanced) {
        for (const char* ion : {"liquid/na.orig", "liquid/cl.orig"})
            water.FindDetail(ion)->SetValue(20'000.0);
        water.FindDetail("liquid/ph")->SetValue(4.0);
        water.FindDetail("liquid/balance.ph")->SetValue(balanced);
    };
    LiquidData& second = m_project.AddLiquid("Brine too");
    type(second, false);
    second.FindDetail("liquid/balance.ph")->SetValue(true);
    {
        const ProjectEdit edit(m_project);
        type(salty, true);
    }
    EXPECT_EQ(salty.FindDetail("liquid/h.plus.orig")->GetDoubleValue(),
              second.FindDetail("liquid/h.plus.orig")->GetDoubleValue());
}

TEST_F(ProjectRules, AShortAnalysisStartsFromWhatTheIonsGave)
{
    {
        const ProjectEdit edit(m_project);
        Water("na.orig").SetValue(229.9);
        Water("cl.orig").SetValue(354.5);
    }
    const double tds = Water("tds").GetDoubleValue();
    Water("analysis.type").SetValue("SHORT_TDS");
    EXPECT_EQ(Water("tds.short").GetDoubleValue(), tds);
    Plant("arrangement/calculate.blend").SetValue(true);
    EXPECT_EQ(Water("analysis.type").GetStringValue(), "FULL") << "a blend asks for every ion";
    Water("analysis.type").SetValue("SHORT_COND");
    EXPECT_EQ(Water("analysis.type").GetStringValue(), "FULL");
    Plant("arrangement/calculate.blend").SetValue(false);
    Water("cond.short").SetValue(77.0);
    Water("analysis.type").SetValue("SHORT_COND");
    EXPECT_EQ(Water("cond.short").GetDoubleValue(), 77.0) << "what was stated stays";
    Water("analysis.type").SetValue("FULL");
    {
        const ProjectEdit edit(m_project);
        Water("analysis.type").SetValue("SHORT_COND");
        Water("cond.short").SetValue(0.0);
    }
    EXPECT_EQ(Water("cond.short").GetDoubleValue(), 0.0) << "what is stated with it, too";
}

TEST_F(ProjectRules, WhereBlendsAreCalculatedNoWaterIsShortHoweverItCame)
{
    Plant("arrangement/calculate.blend").SetValue(true);
    const auto paste = [this] {
        const ProjectEdit edit(m_project, "paste water", EditKind::Copied);
        Water("analysis.type").SetValue("SHORT_TDS");
        Water("tds.short").SetValue(500.0);
        Water("na.orig").SetValue(22.99);
    };
    const int told = m_history.told;
    paste();
    EXPECT_EQ(Water("analysis.type").GetStringValue(), "FULL");
    EXPECT_EQ(Water("tds.short").GetDoubleValue(), 500.0) << "nothing is lost";
    EXPECT_NEAR(Water("tds").GetDoubleValue(), 22.99, 1e-9) << "calculated as the full analysis it is";
    EXPECT_EQ(m_history.told, told + 1);

    const auto imported = std::make_shared<LiquidData>("Imported");
    imported->FindDetail("liquid/analysis.type")->SetValue("SHORT_COND");
    m_project.AddOwner(m_project.GetRoot(), imported, 1);
    EXPECT_EQ(Water("analysis.type", 1).GetStringValue(), "FULL");

    {
        const ProjectEdit edit(m_project, {}, EditKind::Copied);
        Plant("arrangement/calculate.blend").SetValue(false);
    }
    paste();
    EXPECT_EQ(Water("analysis.type").GetStringValue(), "SHORT_TDS");
    Plant("arrangement/calculate.blend").SetValue(true);
    EXPECT_EQ(Water("analysis.type").GetStringValue(), "FULL");
    m_history.stack.Undo();
    EXPECT_EQ(Water("analysis.type").GetStringValue(), "SHORT_TDS") << "an undo brings back what stood there";
}

TEST_F(ProjectRules, OfFlowTimeAndVolumeTheOneTypedLongestAgoFollows)
{
    Plant("project/qbrutto").SetValue(20.0);
    Plant("project/lz").SetValue(12.0);
    EXPECT_EQ(Plant("project/wbrutto").GetDoubleValue(), 240.0);
    Plant("project/lz").SetValue(6.0);
    EXPECT_EQ(Plant("project/qbrutto").GetDoubleValue(), 20.0) << "what follows is not typed";
    EXPECT_EQ(Plant("project/wbrutto").GetDoubleValue(), 120.0);
    Plant("project/lz").SetValue(12.0);
    Plant("project/wbrutto").SetValue(120.0);
    EXPECT_EQ(Plant("project/qbrutto").GetDoubleValue(), 10.0);
    EXPECT_EQ(Plant("project/lz").GetDoubleValue(), 12.0);
    m_history.stack.Undo();
    EXPECT_EQ(Plant("project/qbrutto").GetDoubleValue(), 20.0);
    Plant("project/wbrutto").SetValue(360.0);
    EXPECT_EQ(Plant("project/qbrutto").GetDoubleValue(), 30.0) << "the order of typing is undone, too";
    {
        const ProjectEdit edit(m_project);
        Plant("project/qbrutto").SetValue(10.0);
        Plant("project/lz").SetValue(8.0);
        Water("na.orig").SetValue(1.0);
    }
    Plant("project/lz").SetValue(4.0);
    EXPECT_EQ(Plant("project/qbrutto").GetDoubleValue(), 10.0) << "a calculation meanwhile is no typing";
}

TEST_F(ProjectRules, AMediumBringsItsDensityAndAnAdjustmentItsPh)
{
    Plant("feed/medium").SetValue(14);
    EXPECT_EQ(Plant("feed/density").GetDoubleValue(), 1.025);
    {
        const ProjectEdit edit(m_project);
        Plant("feed/medium").SetValue(1);
        Plant("feed/density").SetValue(1.1);
    }
    EXPECT_EQ(Plant("feed/density").GetDoubleValue(), 1.1);
    {
        const ProjectEdit edit(m_project, "paste", EditKind::Copied);
        Plant("feed/medium").SetValue(14);
    }
    EXPECT_EQ(Plant("feed/density").GetDoubleValue(), 1.1) << "copied values are complete";
    Plant("feed/adjust.ph").SetValue(true);
    EXPECT_EQ(Plant("feed/ph").GetDoubleValue(),
              m_project.LoadFeedCompositionFromDetails().GetFeedTotals().pH);
    EXPECT_TRUE(std::isfinite(Plant("feed/ph").GetDoubleValue()));
}

}  // namespace
