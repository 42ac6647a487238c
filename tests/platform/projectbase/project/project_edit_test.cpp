// SPDX-License-Identifier: MIT
// How a project is written: one scope, one calculation, one telling; and what typed inputs bring about.
#include "projectbase/project/project_edit.h"

#include "projectbase/project/iex_project.h"
#include "tests/support/project_history.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace {

class ProjectEdits : public testing::Test
{
protected:
    ProjectEdits() { m_project.CalculateDesign(); }

    DetailData& Water(const std::string& key, std::size_t index = 0)
    {
        return m_project.GetLiquid(index).GetDetails()->At("liquid/" + key);
    }
    DetailData& Plant(const std::string& key) { return m_project.GetDetails().At(key); }

    iex::IEXProject m_project;
    support::History m_history{m_project};
};

TEST_F(ProjectEdits, TheEndOfTheOutermostScopeCalculatesAndTellsOnce)
{
    m_project.SetChanged(false);
    {
        const ProjectEdit edit(m_project);
        Water("na.orig").SetValue(22.99);
        {
            const ProjectEdit inner(m_project, "salt");
            Water("cl.orig").SetValue(35.45);
        }
        EXPECT_EQ(m_history.told, 0);
        EXPECT_EQ(Water("na.meql").GetDoubleValue(), 0.0) << "not before the end";
    }
    EXPECT_EQ(m_history.told, 1);
    EXPECT_TRUE(m_project.IsChanged());
    EXPECT_DOUBLE_EQ(Water("na.meql").GetDoubleValue(), 1.0);
    EXPECT_NEAR(Water("tds").GetDoubleValue(), 58.44, 1e-9);
    const DetailOwner owner = m_project.GetLiquid(0).GetOwner();
    EXPECT_TRUE(m_history.last->Touches(owner));
    EXPECT_FALSE(m_history.last->Touches({})) << "nothing of the plant";
    EXPECT_TRUE(m_history.last->Any([&](const DetailAddress& address) {
        return address == DetailAddress{owner, "liquid/tds"};
    })) << "what follows is told, too";
    EXPECT_EQ(m_history.last->GetName(), "salt");
}

TEST_F(ProjectEdits, AWriteOutsideOfAScopeIsOneOfItsOwn)
{
    Water("na.orig").SetValue(22.99);
    EXPECT_EQ(m_history.told, 1);
    EXPECT_DOUBLE_EQ(Water("na.meql").GetDoubleValue(), 1.0);
    EXPECT_EQ(m_history.last->GetName(), "Sodium");
    Water("na.orig").SetValue(22.99);
    EXPECT_EQ(m_history.told, 1) << "nothing changed";
}

TEST_F(ProjectEdits, AnExceptionEndsItsScope)
{
    EXPECT_THROW(
        {
            const ProjectEdit edit(m_project);
            Water("na.orig").SetValue(22.99);
            throw std::runtime_error("spoiled");
        },
        std::runtime_error);
    EXPECT_EQ(m_history.told, 1) << "what was written until then is part of the project";
    Water("na.orig").SetValue(0.0);
    EXPECT_EQ(m_history.told, 2);
}

/// Leaves the project, and takes another one along, when it is told.
class Leaver : public ProjectObserver
{
public:
    Leaver(Project& project, ProjectObserver* other) : m_project(project), m_other(other) {}
    void OnProjectChanged(const ProjectChanges&) override
    {
        ++told;
        m_project.RemoveObserver(*this);
        if (m_other != nullptr)
            m_project.RemoveObserver(*m_other);
    }
    int told = 0;

private:
    Project& m_project;
    ProjectObserver* m_other;
};

TEST_F(ProjectEdits, ObserversMayLeaveWhileTheyAreTold)
{
    Leaver second(m_project, nullptr);
    Leaver first(m_project, &second);
    m_project.AddObserver(first);
    m_project.AddObserver(second);
    Water("k.orig").SetValue(1.0);
    Water("k.orig").SetValue(2.0);
    EXPECT_EQ(first.told, 1);
    EXPECT_EQ(second.told, 0);
    EXPECT_EQ(m_history.told, 2);
}

TEST_F(ProjectEdits, BlendsFollowTheirWatersInTheSameEdit)
{
    m_project.AddLiquid("Second");
    LiquidData& blend = m_project.AddLiquid("Blend");
    {
        const ProjectEdit edit(m_project);
        blend.FindDetail("liquid/blend.first")->SetValue(m_project.GetLiquid(0).GetName());
        blend.FindDetail("liquid/blend.second")->SetValue("Second");
        blend.FindDetail("liquid/blend.share")->SetValue(25.0);
    }
    const int told = m_history.told;
    Water("ca.orig").SetValue(40.08);
    EXPECT_EQ(m_history.told, told + 1);
    EXPECT_NEAR(Water("ca.mgl", 2).GetDoubleValue(), 10.02, 1e-12);
    Water("mg.orig", 2).SetValue(50.0);
    EXPECT_EQ(Water("mg.mgl", 2).GetDoubleValue(), 0.0) << "a blend is what its waters make it";

    m_project.RenameOwner(m_project.GetLiquid(1), "Well");
    Water("ca.orig", 1).SetValue(20.04);
    EXPECT_NEAR(Water("ca.mgl", 2).GetDoubleValue(), 25.05, 1e-12) << "also under its new name";
    m_history.stack.Undo();
    m_history.stack.Undo();
    EXPECT_EQ(blend.FindDetail("liquid/blend.second")->GetStringValue(), "Second");
    EXPECT_NEAR(Water("ca.mgl", 2).GetDoubleValue(), 10.02, 1e-12);
}

TEST_F(ProjectEdits, ARecipeWithoutItsWatersLeavesAnOrdinaryWater)
{
    m_project.AddLiquid("Second");
    LiquidData& blend = m_project.AddLiquid("Blend");
    {
        const ProjectEdit edit(m_project);
        blend.FindDetail("liquid/blend.first")->SetValue(m_project.GetLiquid(0).GetName());
        blend.FindDetail("liquid/blend.second")->SetValue("Second");
    }
    EXPECT_TRUE(m_project.IsMixed(blend));
    // A water that has no name yet is in no recipe.
    OwnerNode& unnamed = m_project.AddOwner(m_project.GetRoot(), OwnerKind::Water);
    unnamed.SetName("Third");
    EXPECT_EQ(unnamed.FindDetail("liquid/blend.first")->GetStringValue(), "");
    m_project.RemoveLiquid(1);
    EXPECT_FALSE(m_project.IsMixed(blend));
    blend.FindDetail("liquid/mg.orig")->SetValue(12.0);
    EXPECT_EQ(blend.FindDetail("liquid/mg.meql")->GetDoubleValue(), 12.0) << "it takes inputs";
    m_history.stack.Undo();
    m_history.stack.Undo();
    EXPECT_TRUE(m_project.IsMixed(blend));
}

TEST_F(ProjectEdits, WordsAboutAProjectLeaveItsDesign)
{
    m_project.ResetStatus(StatusDesigned);
    m_project.GetDetails().At("project/title").SetValue("Boiler house");
    m_project.GetDetails().At("project/date").SetValue(wxDateTime(1, wxDateTime::May, 2026));
    EXPECT_EQ(m_project.GetStatus(), StatusDesigned);
    Water("na.orig").SetValue(23.0);
    EXPECT_LT(m_project.GetStatus(), StatusDesigned);
}

TEST_F(ProjectEdits, AnObserverThatFailsKeepsNothingFromOthers)
{
    struct Failing : ProjectObserver
    {
        void OnProjectChanged(const ProjectChanges&) override { throw std::runtime_error("broken"); }
    } failing;
    Leaver after(m_project, nullptr);
    m_project.AddObserver(failing);
    m_project.AddObserver(after);
    Water("k.orig").SetValue(1.0);
    EXPECT_EQ(after.told, 1);
    m_project.RemoveObserver(failing);
}

TEST_F(ProjectEdits, ATemperatureThatNobodyTouchedKeepsItsDigits)
{
    m_project.GetDetails().At("feed/medium.temp").SetValue(21.7);
    const int told = m_history.told;
    auto medium = m_project.LoadFeedMediumFromDetails();
    medium.temperature = {medium.temperature.In(TemperatureUnit::Fahrenheit), TemperatureUnit::Fahrenheit};
    m_project.SaveFeedMediumToDetails(medium);
    EXPECT_EQ(m_history.told, told) << "nothing changed";
}

TEST_F(ProjectEdits, WaterIonsBeginAsTheyFollowFromThePh)
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
}

TEST_F(ProjectEdits, AShortAnalysisStartsFromWhatTheIonsGave)
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
}

TEST_F(ProjectEdits, WhereBlendsAreCalculatedNoWaterIsShortHoweverItCame)
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

TEST_F(ProjectEdits, OfFlowTimeAndVolumeTheOneTypedLongestAgoFollows)
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
}

TEST_F(ProjectEdits, AMediumBringsItsDensityAndAnAdjustmentItsPh)
{
    Plant("feed/medium").SetValue(14);
    EXPECT_EQ(Plant("feed/density").GetDoubleValue(), 1.025);
    {
        const ProjectEdit edit(m_project);
        Plant("feed/medium").SetValue(1);
        Plant("feed/density").SetValue(1.1);
    }
    EXPECT_EQ(Plant("feed/density").GetDoubleValue(), 1.1);
    Plant("feed/adjust.ph").SetValue(true);
    EXPECT_EQ(Plant("feed/ph").GetDoubleValue(),
              m_project.LoadFeedCompositionFromDetails().GetFeedTotals().pH);
    EXPECT_TRUE(std::isfinite(Plant("feed/ph").GetDoubleValue()));
}

TEST_F(ProjectEdits, TheStatusSaysHowFarTheProjectIs)
{
    EXPECT_EQ(m_project.GetStatus(), StatusWaters);
    iex::IEXProject plant("MB");
    ASSERT_EQ(plant.NumberSteps(), 1u);
    const auto compartments = plant.GetStep(0).GetChildren(OwnerKind::Compartment);
    ASSERT_EQ(compartments.size(), 2u) << "each resin of a mixed bed has a regenerant of its own";
    {
        const ProjectEdit edit(plant);
        plant.GetDetails().At("project/qbrutto").SetValue(20.0);
        plant.GetDetails().At("project/lz").SetValue(12.0);
        for (const auto& compartment : compartments) {
            compartment->GetDetails()->At("stepcomp/level").SetValue(80.0);
            compartment->GetChildren(OwnerKind::Resin)[0]->GetDetails()->At("compcomp/resin").SetValue("sac");
        }
    }
    EXPECT_TRUE(plant.IsReadyToCalculate());
    EXPECT_EQ(plant.GetStatus(), StatusComplete);
    const auto empties = [&](DetailData& detail) {
        const ProjectEdit edit(plant);
        const DetailData::Value kept = detail.GetStoredValue();
        detail.ClearValue();
        plant.CalculateDesign();
        const bool ready = plant.IsReadyToCalculate();
        detail.RestoreValue(kept);
        return !ready;
    };
    EXPECT_TRUE(empties(compartments[1]->GetDetails()->At("stepcomp/level")));
    EXPECT_TRUE(empties(plant.GetDetails().At("project/lz")));
    EXPECT_TRUE(empties(plant.GetDetails().At("project/water")));
    EXPECT_THROW(iex::IEXProject("nonsense"), std::invalid_argument);
}

TEST_F(ProjectEdits, ACloneIsIndependentAndHasTheSameAddresses)
{
    iex::IEXProject plant("DEMI");
    OwnerNode& row = plant.AddOwner(plant.GetStep(1), OwnerKind::SequenceRow);
    row.GetDetails()->At("regseqstep/t").SetValue(0.5);
    const auto copy = plant.Clone();
    const DetailAddress address{row.GetOwner(), "regseqstep/t"};
    ASSERT_NE(copy->FindDetail(address), nullptr);
    EXPECT_EQ(copy->FindDetail(address)->GetDoubleValue(), 0.5);
    EXPECT_EQ(copy->PathOf(address.owner), "ex.2.seq.1");
    copy->FindDetail(address)->SetValue(0.75);
    EXPECT_EQ(row.GetDetails()->At("regseqstep/t").GetDoubleValue(), 0.5);
    EXPECT_EQ(copy->GetModuleType(), "DEMI");
}

TEST_F(ProjectEdits, OwnersAreFoundByTheirPaths)
{
    iex::IEXProject plant("MB");
    plant.AddLiquid("Second");
    for (const char* path : {"", "water.1", "water.2", "ex.1", "ex.1.comp.2", "ex.1.comp.2.resin.1"}) {
        const OwnerNode* node = plant.FindOwner(path);
        ASSERT_NE(node, nullptr) << path;
        EXPECT_EQ(plant.PathOf(node->GetOwner()), path);
    }
    for (const char* path : {"water.0", "water.3", "water", "ex.1.resin.1", "ex.1.comp.3", "comp.1", "ex.x",
                             "ex.1.comp.2.resin.1.seq.1", ".", "ex..1", "ex.99999999999999999999"})
        EXPECT_EQ(plant.FindOwner(path), nullptr) << path;
    EXPECT_THROW(plant.AddOwner(plant.GetRoot(), OwnerKind::Resin), std::logic_error);
}

}  // namespace
