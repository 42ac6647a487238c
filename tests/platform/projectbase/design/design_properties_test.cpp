// SPDX-License-Identifier: MIT
#include "projectbase/design/plant_design.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/project_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <thread>
#include <vector>

namespace {

using support::Get;
using support::Put;

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

/// Draws plants of every kind with whatever inputs a user may give, unknown ones and zeros among them.
class RandomPlants
{
public:
    explicit RandomPlants(unsigned seed) : m_random(seed) {}

    std::unique_ptr<iex::IEXProject> Draw()
    {
        static constexpr const char* kTypes[] = {"SOFT", "DEALK", "DEMI", "MB", "CP"};
        auto project = std::make_unique<iex::IEXProject>(kTypes[Below(5)]);
        const ProjectEdit edit(*project);
        for (std::size_t i = Below(3); i > 0; --i) {
            static constexpr const char* kKinds[] = {"SAC_NA", "SAC_H", "WAC_H", "WBA", "SBA", "DEGAS"};
            project->AddStep(kKinds[Below(6)], Below(project->NumberSteps() + 1));
        }
        support::IonsInMeq ions;
        for (const char* ion : {"ca", "mg", "na", "nh4", "fe2", "hco3", "co3", "cl", "so4", "no3", "sio2"})
            ions[ion] = Amount(5.0);
        ions["co2"] = Amount(50.0);
        support::SetWater(*project, ions, Number(0.0, 60.0));
        Put(*project, "water.1", "liquid/balance.auto", Below(2) == 0);
        support::SetFlow(*project, Amount(100.0), Amount(24.0));
        for (std::size_t i = 0; i < project->NumberSteps(); ++i)
            DrawInputs(*project, project->GetStep(i));
        return project;
    }

    std::size_t Below(std::size_t end) { return m_random() % end; }
    double Number(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }

private:
    /// Sometimes nothing, seldom not known.
    double Amount(double high)
    {
        const auto kind = Below(20);
        return kind == 0 ? kUnknown : kind < 3 ? 0.0 : Number(0.0, high);
    }

    void DrawInputs(iex::IEXProject& project, OwnerNode& step)
    {
        DetailList& details = *step.GetDetails();
        details.At("step/mode").SetValue(Below(2) == 0 ? "CO" : "COUNTER");
        if (Below(4) == 0)
            details.At("step/diameter").SetValue(Amount(3.0));
        for (const auto& compartment : step.GetChildren(OwnerKind::Compartment)) {
            DetailList& inputs = *compartment->GetDetails();
            inputs.At("stepcomp/level").SetValue(Amount(200.0));
            if (Below(3) == 0)
                inputs.At("stepcomp/capacity.typed").SetValue(Amount(2.0));
            if (Below(4) == 0)
                compartment->GetChildren(OwnerKind::Resin)[0]
                    ->GetDetails()
                    ->At("compcomp/vol.actual")
                    .SetValue(Amount(5.0));
        }
        for (std::size_t i = Below(4); i > 0; --i)
            support::AddRow(project, step.GetPosition(), "REGSEQ_BW", "REGSEQ_RAW_WATER", Amount(10.0));
    }

    std::mt19937 m_random;
};

void ExpectNoInfinity(const OwnerNode& node, const Project& project)
{
    for (const auto& [key, detail] : *node.GetDetails()) {
        if (detail.GetType() == DetailType::Double && detail.IsDerived()) {
            EXPECT_FALSE(std::isinf(detail.GetDoubleValue()))
                << project.PathOf(node.GetOwner()) << ":" << key;
        }
    }
    for (std::size_t kind = 0; kind < kOwnerKinds; ++kind) {
        for (const auto& child : node.GetChildren(static_cast<OwnerKind>(kind)))
            ExpectNoInfinity(*child, project);
    }
}

double Near(double value)
{
    return 1e-9 * (1.0 + std::abs(value));
}

void ExpectBalances(const design::ExchangerDesign& exchanger)
{
    if (exchanger.compartments.empty())
        return;
    const design::Waste& waste = exchanger.waste;
    double regenerant = 0.0;
    double load = 0.0;
    for (const design::CompartmentDesign& bed : exchanger.compartments) {
        regenerant += bed.dose.equivalents;
        load += bed.load;
        if (std::isnan(bed.designed))
            continue;
        const double margin = exchanger.node->GetDetails()->At("step/margin").GetDoubleValue();
        EXPECT_NEAR(bed.designed * 1000.0 * bed.capacity.value * margin, bed.load, Near(bed.load));
    }
    EXPECT_TRUE(exchanger.load == load || std::isnan(load));
    if (std::isnan(regenerant) || std::isnan(load))
        return;
    // The charges of a waste balance, and what goes in comes out.
    EXPECT_NEAR(waste.ions.Cations() + waste.neutral, waste.ions.Anions(), Near(regenerant + load));
    // Of a single bed the larger side is what the regenerant brought.
    if (exchanger.compartments.size() == 1 && regenerant >= load) {
        EXPECT_NEAR(std::max(waste.ions.Cations(), waste.ions.Anions()), regenerant, Near(regenerant));
    }
}

TEST(DesignProperties, HoldForWhateverIsTyped)
{
    RandomPlants plants(4711);
    int known = 0;
    for (int i = 0; i < 400; ++i) {
        const auto project = plants.Draw();
        ExpectNoInfinity(project->GetRoot(), *project);
        const design::PlantDesign plant = design::DesignOf(*project);
        double acid = 0.0;
        double base = 0.0;
        for (const design::ExchangerDesign& exchanger : plant.exchangers) {
            ExpectBalances(exchanger);
            known += std::isfinite(exchanger.load) && std::isfinite(exchanger.waste.neutral) ? 1 : 0;
            for (const design::CompartmentDesign& bed : exchanger.compartments) {
                (bed.waste.neutral > 0.0 ? acid : base) += std::abs(bed.waste.neutral);
                if (bed.neutralizes > 0.0)
                    acid += (plant.neutral > 0.0 ? -1.0 : 1.0) * bed.neutralizes * 1000.0 /
                            bed.chemical->equivalentMass;
            }
        }
        if (plant.bought != nullptr)
            acid -= plant.neutral;
        // After the neutralisation nothing is left over.
        if (!std::isnan(plant.neutral)) {
            EXPECT_NEAR(acid - base, 0.0, Near(acid + base));
        }
        if (::testing::Test::HasFailure())
            return;
    }
    EXPECT_GT(known, 200);
}

TEST(DesignProperties, ADesignIsSettledAtOnceAndTheSameInAClone)
{
    RandomPlants plants(17);
    for (int i = 0; i < 60; ++i) {
        const auto project = plants.Draw();
        const auto before = project->Clone();
        project->SetChanged(false);
        {
            const ProjectEdit edit(*project);
            design::UpdateDesign(*project);
        }
        // A second calculation has nothing to write.
        EXPECT_FALSE(project->IsChanged());
        Put(*project, "", "project/qbrutto", 33.0);
        Put(*before, "", "project/qbrutto", 33.0);
        EXPECT_EQ(support::Difference(*before, *project, true), "");
    }
}

TEST(DesignProperties, WhatLacksAnInputIsEmpty)
{
    struct Case
    {
        const char* owner;
        const char* key;
        std::vector<const char*> empty;
        std::vector<const char*> known;
    };
    const Case cases[] = {
        {"", "project/wbrutto", {"step/load", "step/rb.ges", "step/m.th", "step/bed.depth"}, {"step/v"}},
        {"",
         "project/qbrutto",
         {"step/v", "step/bvh", "step/dp", "step/run.time", "step/diameter"},
         {"step/capacity"}},
        {"ex.1.comp.1",
         "stepcomp/level",
         {"step/capacity", "step/rb.ges", "step/bed.depth"},
         {"step/load", "step/v"}},
        {"ex.1",
         "step/margin",
         {"step/bed.depth", "step/throughput", "step/rb.ges"},
         {"step/load", "step/capacity"}},
        {"ex.1", "step/v.max", {"step/diameter", "step/v", "step/bed.depth"}, {"step/load", "step/rb.ges"}},
        {"ex.1.comp.1", "stepcomp/konz.d", {"step/konz.d"}, {"step/rb.ges"}},
        {"water.1", "liquid/temp.orig", {"step/capacity", "step/dp"}, {"step/load", "step/v"}},
    };
    for (const auto& [owner, key, empty, known] : cases) {
        iex::IEXProject project("DEMI");
        support::SetWater(project, {{"ca", 3.0}, {"cl", 3.0}});
        support::SetFlow(project);
        const ProjectEdit edit(project, {}, EditKind::Copied);
        Put(project, owner, key, kUnknown);
        project.CalculateDesign();
        for (const char* each : empty)
            EXPECT_TRUE(std::isnan(Get(project, "ex.1", each))) << key << ": " << each;
        for (const char* each : known)
            EXPECT_TRUE(std::isfinite(Get(project, "ex.1", each))) << key << ": " << each;
    }
    iex::IEXProject project("DEMI");
    support::SetWater(project, {{"ca", 3.0}, {"cl", 3.0}});
    support::SetFlow(project);
    Put(project, "ex.1.comp.1.resin.1", "compcomp/resin", "");
    EXPECT_TRUE(std::isnan(Get(project, "ex.1", "step/bed.depth")));
    Put(project, "", "project/water", 2L);
    EXPECT_TRUE(std::isnan(Get(project, "ex.1", "step/load")));
}

TEST(DesignProperties, NothingToDoEndsCleanly)
{
    iex::IEXProject project("DEMI");
    support::SetFlow(project);
    // A water without ions.
    EXPECT_EQ(Get(project, "ex.1", "step/load"), 0.0);
    EXPECT_EQ(Get(project, "ex.1.comp.1.resin.1", "compcomp/vol"), 0.0);
    EXPECT_EQ(Get(project, "ex.1", "step/rb.ges"), 0.0);
    for (const char* key : {"step/rb.ratio", "step/bvh", "step/throughput", "step/run.time"})
        EXPECT_TRUE(std::isnan(Get(project, "ex.1", key))) << key;
    support::SetWater(project, {{"ca", 3.0}, {"cl", 3.0}});
    Put(project, "ex.1.comp.1", "stepcomp/capacity.typed", 0.0);
    EXPECT_EQ(Get(project, "ex.1", "step/capacity"), 0.0);
    EXPECT_TRUE(std::isnan(Get(project, "ex.1.comp.1.resin.1", "compcomp/vol")));
    EXPECT_EQ(project.GetStatus(), StatusComplete);
    ExpectNoInfinity(project.GetRoot(), project);
}

TEST(DesignProperties, ClonesAreDesignedSideBySide)
{
    RandomPlants plants(99);
    const auto project = plants.Draw();
    support::SetFlow(*project);
    std::vector<std::unique_ptr<Project>> clones;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        clones.push_back(project->Clone());
    for (auto& clone : clones) {
        threads.emplace_back([&clone] {
            for (int round = 1; round <= 50; ++round)
                Put(*clone, "", "project/qbrutto", static_cast<double>(round));
        });
    }
    for (auto& thread : threads)
        thread.join();
    for (const auto& clone : clones)
        EXPECT_TRUE(Get(*clone, "ex.1", "step/load") == Get(*clones[0], "ex.1", "step/load") ||
                    std::isnan(Get(*clone, "ex.1", "step/load")));
}

}  // namespace
