// SPDX-License-Identifier: MIT
#include "projectbase/design/plant_design.h"

#include "tests/support/plant_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using support::AddRow;
using support::Detail;
using support::Get;
using support::Put;
using support::RemoveRows;
using support::SetFlow;
using support::SetWater;

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

struct Expected
{
    const char* owner;
    const char* key;
    double value;
    double within = 1e-3;  ///< as a share
};

void ExpectValues(Project& project, std::initializer_list<Expected> values)
{
    for (const auto& [owner, key, value, within] : values)
        EXPECT_NEAR(Get(project, owner, key), value, std::abs(value) * within + 1e-12) << owner << ":" << key;
}

/// 3.5 meq/l of cations, 1.5 of them no hardness of bicarbonate.
void SetHardWater(iex::IEXProject& project)
{
    SetWater(project, {{"ca", 2.0},
                       {"mg", 1.0},
                       {"na", 0.4},
                       {"k", 0.1},
                       {"hco3", 2.0},
                       {"cl", 0.8},
                       {"so4", 0.7},
                       {"sio2", 0.1},
                       {"co2", 4.401}});
    SetFlow(project);
}

/// A strong-acid cation and a strong-base anion exchanger with capacities as makers state them.
std::unique_ptr<iex::IEXProject> MakeDemineralisation()
{
    auto project = std::make_unique<iex::IEXProject>("DEMI");
    const ProjectEdit edit(*project);
    SetHardWater(*project);
    Put(*project, "ex.1.comp.1", "stepcomp/capacity.typed", 1.0);
    Put(*project, "ex.1.comp.1", "stepcomp/level", 70.0);
    Put(*project, "ex.2.comp.1", "stepcomp/capacity.typed", 0.5);
    Put(*project, "ex.2.comp.1", "stepcomp/level", 60.0);
    return project;
}

TEST(PlantDesign, ACationExchangerComesOutAsByHand)
{
    const auto project = MakeDemineralisation();
    ExpectValues(*project, {
                               {"ex.1", "step/load", 840.0},
                               {"ex.1", "step/capacity", 1.0},
                               {"ex.1.comp.1.resin.1", "compcomp/vol", 0.93333},
                               {"ex.1.comp.1.resin.1", "compcomp/vol.total", 0.93333},
                               {"ex.1.comp.1", "stepcomp/rm", 65.333},
                               {"ex.1", "step/rb.ges", 65.333},
                               {"ex.1", "step/rb.ratio", 213.33},
                               {"ex.1", "step/rb.excess", 951.9},
                               {"ex.1.comp.1", "stepcomp/rb.neutral", 38.076},
                               {"ex.1", "step/konz.d", 5.0},
                               {"ex.1", "step/throughput", 240.0},
                               {"ex.1", "step/run.time", 12.0},
                               // 0.5027 m² at a velocity limit of 40 m/h
                               {"ex.1", "step/diameter", 0.8},
                               {"ex.1", "step/area", 0.50265},
                               {"ex.1", "step/v", 39.789},
                               {"ex.1", "step/bvh", 21.429},
                               {"ex.1", "step/bed.depth", 1.8568},
                               // 0.3633 bar/m
                               {"ex.1", "step/dp", 0.6745, 5e-3},
                               {"ex.1", "step/m.th", 720.0},
                               {"ex.1", "step/m.na_k_nh4", 120.0},
                               {"ex.1", "step/m.cl", 1791.9},
                               {"ex.1", "step/m.so4", 0.0},
                               {"ex.1", "step/neutral", 951.9},
                           });
    EXPECT_EQ(Detail(*project, "ex.1", "step/rm").GetStdStringValue(), "Hydrochloric acid");
    EXPECT_EQ(project->GetStatus(), StatusDesigned);
}

TEST(PlantDesign, AnAnionExchangerTakesCarbonAndSilicaAndMeetsTheAcidOfTheLine)
{
    const auto project = MakeDemineralisation();
    ExpectValues(*project, {
                               // 1.5 of strong acids, 2.1 of carbon, 0.1 of silica
                               {"ex.2", "step/load", 888.0},
                               {"ex.2.comp.1.resin.1", "compcomp/vol", 1.97333},
                               {"ex.2", "step/rb.ges", 118.4},
                               {"ex.2", "step/rb.ratio", 333.33},
                               {"ex.2", "step/rb.excess", 2072.0},
                               {"ex.2", "step/m.na_k_nh4", 2960.0},
                               {"ex.2", "step/m.hco3", 504.0},
                               {"ex.2", "step/m.sio2", 24.0},
                               {"ex.2", "step/m.cl", 192.0},
                               {"ex.2", "step/neutral", -2072.0},
                               {"ex.2.comp.1", "stepcomp/rb.neutral", 0.0},
                               {"ex.2.comp.1", "stepcomp/rb.delta", 0.0},
                               // 38.08 less 82.88 kg, and 1120 eq of acid for what remains
                               {"ex.1.comp.1", "stepcomp/rb.delta", -44.80},
                               {"ex.1.comp.1", "stepcomp/m.neutral", 40.84},
                               {"ex.2.comp.1", "stepcomp/m.neutral", 0.0},
                           });
    RemoveRows(*project, 0);
    EXPECT_TRUE(std::isnan(Get(*project, "ex.1", "step/c.cl"))) << "nothing says how much water it is";
}

TEST(PlantDesign, WasteIsDilutedByTheRowsThatCount)
{
    const auto project = MakeDemineralisation();
    for (const auto& row : project->GetStep(0).GetChildren(OwnerKind::SequenceRow))
        row->GetDetails()->At("regseqstep/flag.counts").SetValue(false);
    AddRow(*project, 0, "REGSEQ_BW", "REGSEQ_RAW_WATER", 3.0);
    AddRow(*project, 0, "REGSEQ_RINSE", "REGSEQ_RAW_WATER", 7.0);
    AddRow(*project, 0, "REGSEQ_AIRMIX", "REGSEQ_AIR", 50.0);
    AddRow(*project, 0, "REGSEQ_SETTLE", "REGSEQ_RAW_WATER", kUnknown);
    OwnerNode& recycled = AddRow(*project, 0, "REGSEQ_FINAL", "REGSEQ_RAW_WATER", 2.0);
    ExpectValues(*project, {{"ex.1", "step/c.th", 60.0}, {"ex.1", "step/c.cl", 149.33}});
    recycled.GetDetails()->At("regseqstep/flag.counts").SetValue(false);
    ExpectValues(*project, {{"ex.1", "step/c.th", 72.0}, {"ex.1", "step/c.cl", 179.19}});
}

TEST(PlantDesign, TheWholeLineTakesEachIonOnce)
{
    iex::IEXProject project("DEMI");
    SetHardWater(project);
    project.AddStep("WAC_H", 0);
    project.AddStep("DEGAS", 2);
    project.AddStep("WBA", 3);
    Put(project, "", "feed/organics", "fulvic");
    Put(project, "water.1", "liquid/toc", 5.0);
    ExpectValues(project, {
                              {"ex.1", "step/load", 480.0},  // hardness of bicarbonate
                              {"ex.2", "step/load", 360.0},
                              {"ex.2", "step/m.th", 240.0},
                              {"ex.3", "step/load", 0.0},
                              {"ex.4", "step/load", 240.0 * (1.5 + 5.0 / 0.52 * 5.5e-3)},
                              {"ex.4", "step/m.other.a", 240.0 * 5.0 / 0.52 * 5.5e-3},
                              {"ex.5", "step/load", 240.0 * (8.0 / 44.01 + 0.1)},
                          });
    // A residue above what there is removes nothing.
    Put(project, "ex.3", "step/co2.residual", 500.0);
    ExpectValues(project, {{"ex.5", "step/load", 240.0 * 2.2}});
    EXPECT_TRUE(std::isnan(Get(project, "ex.3", "step/diameter")));
    EXPECT_TRUE(std::isnan(Get(project, "ex.3", "step/m.th")));
}

TEST(PlantDesign, CarbonCountsByItsMolesAndWhatClosesTheBalanceOnRequest)
{
    iex::IEXProject project("DEMI");
    SetWater(project, {{"ca", 3.5}, {"co3", 1.0}, {"hco3", 1.0}, {"cl", 1.0}});
    SetFlow(project);
    ExpectValues(project, {{"ex.2", "step/load", 240.0 * (1.0 + 1.5)}});
    Put(project, "water.1", "liquid/balance.auto", true);
    ExpectValues(project, {{"ex.1", "step/load", 840.0}, {"ex.2", "step/load", 240.0 * (1.5 + 1.5)}});
    SetWater(project, {{"cl", 2.5}});
    ExpectValues(project, {{"ex.1", "step/load", 240.0 * 4.5}, {"ex.1", "step/m.na_k_nh4", 240.0}});
    // CO2 that is to be calculated without a pH is not known, and neither is what takes it.
    Put(project, "water.1", "liquid/calculate.co2", true);
    EXPECT_TRUE(std::isnan(Get(project, "ex.2", "step/load")));
    ExpectValues(project, {{"ex.1", "step/load", 240.0 * 4.5}});
}

TEST(PlantDesign, ASoftenerGivesSodiumForHardness)
{
    iex::IEXProject project("SOFT");
    SetHardWater(project);
    Put(project, "ex.1.comp.1", "stepcomp/capacity.typed", 1.2);
    Put(project, "ex.1.comp.1", "stepcomp/level", 150.0);
    // 720 eq, 0.6667 m³, 100 kg of salt
    ExpectValues(project, {{"ex.1", "step/load", 720.0},
                           {"ex.1", "step/rb.ges", 100.0},
                           {"ex.1", "step/m.th", 720.0},
                           {"ex.1", "step/m.cl", 1711.2},
                           {"ex.1", "step/m.na_k_nh4", 991.2},
                           {"ex.1", "step/neutral", 0.0},
                           {"ex.1.comp.1", "stepcomp/m.neutral", 0.0}});
}

TEST(PlantDesign, AMixedBedHasItsValuesByCompartment)
{
    iex::IEXProject project("MB");
    SetHardWater(project);
    for (const char* compartment : {"ex.1.comp.1", "ex.1.comp.2"})
        Put(project, compartment, "stepcomp/level", 100.0);
    Put(project, "ex.1.comp.1", "stepcomp/capacity.typed", 1.0);
    Put(project, "ex.1.comp.2", "stepcomp/capacity.typed", 0.5);
    ExpectValues(project, {{"ex.1.comp.1", "stepcomp/load", 840.0},
                           {"ex.1.comp.2", "stepcomp/load", 888.0},
                           {"ex.1", "step/load", 1728.0},
                           // 0.9333 and 1.9733 m³
                           {"ex.1", "step/bvh", 6.881},
                           {"ex.1", "step/m.na_k_nh4", 120.0 + 4933.3},
                           {"ex.1", "step/m.cl", 2559.9 + 192.0},
                           {"ex.1", "step/neutral", 1719.9 - 4045.3}});
    for (const char* key : {"step/capacity", "step/rb.ges", "step/rb.ratio", "step/rb.excess", "step/konz.d"})
        EXPECT_TRUE(std::isnan(Get(project, "ex.1", key))) << key;
    EXPECT_EQ(Detail(project, "ex.1", "step/rm").GetStdStringValue(), "");
    EXPECT_EQ(project.GetStatus(), StatusDesigned);
}

TEST(PlantDesign, AFoodColumnTakesItsFeedLessItsEffluent)
{
    iex::IEXProject project("FOODC");
    SetFlow(project, 5.0, 8.0);
    FeedComposition feed;
    const auto add = [&feed](const char* formula, int charge, double meq, double effluent) {
        FeedComposition::CompoundEntry entry;
        entry.name = formula;
        entry.formula = formula;
        entry.ionicCharge = charge;
        entry.valency = std::max(1, std::abs(charge));
        entry.molweight = 50.0;
        entry.feed[FeedComposition::Unit::MeqPerLitre] = meq;
        entry.effluent[FeedComposition::Unit::MeqPerLitre] = effluent;
        feed.Add(entry);
    };
    add("Ca", 2, 12.0, 2.0);
    add("K", 1, 30.0, 0.0);
    add("SO4", -2, 15.0, 5.0);
    add("C3H5O3", -1, 25.0, 0.0);
    add("C12H22O11", 0, 500.0, 500.0);
    project.SaveFeedCompositionToDetails(feed);
    ExpectValues(project, {{"ex.1", "step/load", 40.0 * 42.0},
                           {"ex.1", "step/m.th", 480.0},
                           {"ex.2", "step/load", 40.0 * 40.0},
                           {"ex.2", "step/m.other.a", 1000.0}});
    Put(project, "", "feed/use.effluent", true);
    ExpectValues(project, {{"ex.1", "step/load", 40.0 * 40.0}, {"ex.2", "step/load", 40.0 * 35.0}});
    // The viscosity of a syrup is not known.
    EXPECT_TRUE(std::isfinite(Get(project, "ex.1", "step/dp")));
    Put(project, "", "feed/density", 1.23);
    EXPECT_TRUE(std::isnan(Get(project, "ex.1", "step/dp")));
    EXPECT_TRUE(std::isfinite(Get(project, "ex.1", "step/bed.depth")));
}

TEST(PlantDesign, WhatIsInstalledCountsFromTheVesselOn)
{
    const auto project = MakeDemineralisation();
    Put(*project, "", "project/nlines", 3L);
    Put(*project, "ex.1.comp.1.resin.1", "compcomp/vol.actual", 1.4);
    ExpectValues(*project, {{"ex.1.comp.1.resin.1", "compcomp/vol", 0.93333},
                            {"ex.1.comp.1.resin.1", "compcomp/vol.total", 4.2},
                            {"ex.1", "step/bvh", 20.0 / 1.4},
                            {"ex.1", "step/rb.ges", 98.0},
                            {"ex.1", "step/throughput", 360.0},
                            {"ex.1", "step/run.time", 18.0}});
}

TEST(PlantDesign, InertLayersStandApart)
{
    const auto project = MakeDemineralisation();
    Put(*project, "", "project/nlines", 2L);
    const double depth = Get(*project, "ex.1", "step/bed.depth");
    OwnerNode& compartment = *project->FindOwner("ex.1.comp.1");
    for (const std::size_t position : {std::size_t{0}, std::size_t{2}}) {
        const ProjectEdit edit(*project);
        OwnerNode& layer =
            project->AddOwner(compartment, std::make_shared<OwnerNode>(OwnerKind::Resin), position);
        layer.GetDetails()->At("compcomp/resin").SetValue("inert");
        layer.GetDetails()->At("compcomp/vol.actual").SetValue(position == 0 ? 0.05 : 0.2);
    }
    ExpectValues(*project, {{"", "project/vol.inert.total", 0.4},
                            {"", "project/vol.inert.total.uc", 0.1},
                            {"ex.1", "step/bed.depth", depth},
                            {"ex.1.comp.1.resin.2", "compcomp/vol", 0.93333},
                            {"ex.1.comp.1.resin.3", "compcomp/vol", 0.2}});
    EXPECT_NEAR(design::BedVolume(compartment), 0.93333, 1e-5);
}

TEST(PlantDesign, ADiameterFollowsUntilItIsTyped)
{
    const auto project = MakeDemineralisation();
    SetFlow(*project, 40.0);
    EXPECT_DOUBLE_EQ(Get(*project, "ex.1", "step/diameter"), 1.2);
    Put(*project, "ex.1", "step/diameter", 1.5);
    SetFlow(*project, 20.0);
    EXPECT_DOUBLE_EQ(Get(*project, "ex.1", "step/diameter"), 1.5);
    EXPECT_NEAR(Get(*project, "ex.1", "step/v"), 11.318, 1e-3);
    // It stays typed, also where the design comes to the same.
    SetFlow(*project, 68.0);
    SetFlow(*project, 20.0);
    EXPECT_DOUBLE_EQ(Get(*project, "ex.1", "step/diameter"), 1.5);
    Put(*project, "ex.1", "step/diameter", kUnknown);
    EXPECT_DOUBLE_EQ(Get(*project, "ex.1", "step/diameter"), 0.8);
}

TEST(PlantDesign, TwoDilutionsAreAppliedAsOneConcentration)
{
    EXPECT_EQ(design::AppliedConcentration({.first = 4.0}), 4.0);
    // 50/2 + 50/6 = 33.3 kg of solution for a kg of acid.
    EXPECT_NEAR(design::AppliedConcentration({2.0, true, 50.0, 6.0}), 3.0, 1e-12);
    EXPECT_EQ(design::AppliedConcentration({2.0, true, 100.0, kUnknown}), 2.0);
    for (const design::Dilution& unknown : {design::Dilution{kUnknown},
                                            {0.0},
                                            {2.0, true, 50.0, kUnknown},
                                            {2.0, true, kUnknown, 6.0},
                                            {2.0, true, 101.0, 6.0}})
        EXPECT_TRUE(std::isnan(design::AppliedConcentration(unknown)));
}

TEST(PlantDesign, ConditioningFollowsTheResin)
{
    const auto project = MakeDemineralisation();
    Put(*project, "ex.2.comp.1", "stepcomp/cond.spec", 30.0);
    ExpectValues(*project, {{"ex.2.comp.1", "stepcomp/cond.amount", 59.2}});
}

TEST(PlantDesign, ALineWithoutABaseBuysIt)
{
    iex::IEXProject project("DEALK");
    SetHardWater(project);
    const design::PlantDesign plant = design::DesignOf(project);
    ASSERT_NE(plant.bought, nullptr);
    EXPECT_EQ(plant.bought->key, "NAOH");
    EXPECT_NEAR(plant.boughtMass, plant.neutral * 0.040, 1e-9);
    EXPECT_GT(plant.boughtMass, 0.0);
    EXPECT_EQ(Get(project, "ex.1.comp.1", "stepcomp/m.neutral"), 0.0);
}

TEST(PlantDesign, LeakageIsARange)
{
    const auto project = MakeDemineralisation();
    const auto leakages = [&project](std::size_t exchanger) {
        return design::DesignOf(*project).exchangers[exchanger].leakages;
    };
    ASSERT_EQ(leakages(0).size(), 1u);
    EXPECT_DOUBLE_EQ(leakages(0)[0].low, 0.010);
    EXPECT_DOUBLE_EQ(leakages(0)[0].high, 0.050);
    ASSERT_EQ(leakages(1).size(), 1u);
    EXPECT_NEAR(leakages(1)[0].high, 0.54, 1e-9);
    Put(*project, "ex.1", "step/mode", "CO");
    // Of 0.4 meq/l of sodium.
    EXPECT_NEAR(leakages(0)[0].low, 0.005 * 9.196, 1e-9);
    EXPECT_NEAR(leakages(0)[0].high, 0.05 * 9.196, 1e-9);
    Put(*project, "ex.2", "step/mode", "CO");
    EXPECT_EQ(leakages(1).size(), 2u);
}

TEST(PlantDesign, BackwashExpandsTheBed)
{
    const auto project = MakeDemineralisation();
    RemoveRows(*project, 0);
    EXPECT_TRUE(std::isnan(Get(*project, "ex.1", "step/expansion")));
    OwnerNode& row = AddRow(*project, 0, "REGSEQ_BW", "REGSEQ_RAW_WATER", 3.0);
    row.GetDetails()->At("regseqstep/v").SetValue(15.0);
    EXPECT_NEAR(Get(*project, "ex.1", "step/expansion"), 45.0, 0.6);
    row.GetDetails()->At("regseqstep/v").SetValue(150.0);
    EXPECT_TRUE(std::isnan(Get(*project, "ex.1", "step/expansion")));
}

TEST(PlantDesign, UndoBringsTheDesignBackAndAnEditThatEmptiesAnInputLowersTheStatus)
{
    const auto project = MakeDemineralisation();
    Put(*project, "ex.1.comp.1", "stepcomp/level", kUnknown);
    EXPECT_EQ(project->GetStatus(), StatusWaters);
    ExpectValues(*project, {{"ex.1", "step/load", 840.0}});
    EXPECT_TRUE(std::isnan(Get(*project, "ex.1", "step/rb.ges")));
    EXPECT_TRUE(std::isnan(Get(*project, "ex.1.comp.1", "stepcomp/m.neutral")));
    Put(*project, "ex.1.comp.1", "stepcomp/level", 70.0);
    EXPECT_EQ(project->GetStatus(), StatusDesigned);
    // A chemical that does not go with the resin leaves inputs complete and the design open.
    Put(*project, "ex.1.comp.1", "stepcomp/capacity.typed", kUnknown);
    Put(*project, "ex.1.comp.1", "stepcomp/rm.chemical", "NAOH");
    EXPECT_EQ(project->GetStatus(), StatusComplete);
}

TEST(PlantDesign, NewExchangersBeginComplete)
{
    for (const char* type : {"SOFT", "DEALK", "DEMI", "MB", "CP", "FOODC"}) {
        iex::IEXProject project(type);
        EXPECT_EQ(project.GetStatus(), StatusWaters) << type;
        if (project.IsOfType("FOODC")) {
            FeedComposition feed;
            FeedComposition::CompoundEntry salt;
            salt.formula = "Na";
            salt.ionicCharge = salt.valency = 1;
            salt.molweight = 22.99;
            salt.feed[FeedComposition::Unit::MeqPerLitre] = 10.0;
            feed.Add(salt);
            project.SaveFeedCompositionToDetails(feed);
        }
        SetHardWater(project);
        EXPECT_EQ(project.GetStatus(), StatusDesigned) << type;
    }
}

}  // namespace
