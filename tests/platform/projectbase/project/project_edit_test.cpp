// SPDX-License-Identifier: MIT
// How a project is written: one scope, one calculation, one telling.
#include "projectbase/project/project_edit.h"

#include "projectbase/project/iex_project.h"
#include "tests/platform/projectbase/project/project_edit_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace {

using ProjectEdits = support::ProjectEditTest;

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

TEST_F(ProjectEdits, ACalculationThatFailsKeepsNoInputFromObservers)
{
    struct Failing : iex::IEXProject
    {
        void CalculateDesign() override { throw std::runtime_error("no convergence"); }
    } project;
    support::History history(project);
    std::vector<std::string> log;
    project.GetLogger().SetSink([&log](const Logger::Entry& entry) { log.push_back(entry.text); });
    project.GetDetails().At("project/title").SetValue("Boiler house");
    EXPECT_EQ(history.told, 1);
    EXPECT_EQ(log, std::vector<std::string>{"Project::FinishEdit: no convergence"});
    EXPECT_TRUE(history.stack.Undo());
    EXPECT_EQ(project.GetDetails().At("project/title").GetStringValue(), "");
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
    EXPECT_EQ(copy->PathOf(address.owner), plant.PathOf(address.owner));
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
