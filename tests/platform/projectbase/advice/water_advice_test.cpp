// SPDX-License-Identifier: MIT
#include "projectbase/advice/water_advice.h"

#include "projectbase/project/iex_project.h"
#include "tests/support/advice_fixture.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using support::Ids;
using support::On;
using support::Put;

namespace {

/// Demineralisation with sulfuric acid, whose water has that part of calcium among its cations.
class AcidPlant
{
public:
    explicit AcidPlant(double calciumShare, const char* type = "DEMI") : project(type)
    {
        support::SetWater(project,
                          {{"ca", 10.0 * calciumShare}, {"na", 10.0 * (1.0 - calciumShare)}, {"hco3", 10.0}});
        support::SetFlow(project);
        Set("stepcomp/rm.chemical", std::string("H2SO4"));
    }
    template <typename Value>
    void Set(const char* key, Value value)
    {
        Put(project, "ex.1.comp.1", key, value);
    }
    void SetSteps(double first, double portion, double second)
    {
        const ProjectEdit edit(project);
        Set("stepcomp/rm.progressive", true);
        Set("stepcomp/konz.d", first);
        Set("stepcomp/rm.portion", portion);
        Set("stepcomp/konz.d2", second);
    }
    iex::IEXProject project;
};

/// Of the anion exchanger of a demineralisation.
void DisplaceWithRawWater(iex::IEXProject& project)
{
    OwnerNode* anion = project.FindOwner("ex.2");
    ASSERT_EQ(anion->GetDetails()->At("step/kind").GetStdStringValue(), "SBA");
    for (const auto& row : anion->GetChildren(OwnerKind::SequenceRow)) {
        if (row->GetDetails()->At("regseqstep/type").GetStdStringValue() == "REGSEQ_DISP")
            row->GetDetails()->At("regseqstep/medium").SetValue("REGSEQ_RAW_WATER");
    }
}

}  // namespace

TEST(WaterAdvice, AcidStepsFollowTheShareOfCalcium)
{
    struct Case
    {
        double share, first, portion, second;
    };
    for (const Case& c : {Case{0.0, 3.0, 0.0, 3.0},
                          {0.149, 3.0, 0.0, 3.0},
                          {0.15, 1.5, 30.0, 3.0},
                          {0.499, 1.5, 30.0, 3.0},
                          {0.5, 1.5, 50.0, 3.0},
                          {0.70, 1.5, 50.0, 3.0},
                          {0.701, 1.5, 0.0, 1.5},
                          {1.0, 1.5, 0.0, 1.5}}) {
        const advice::AcidSteps steps = advice::AcidStepsFor(c.share);
        EXPECT_EQ(steps.first, c.first) << c.share;
        EXPECT_EQ(steps.firstPortion, c.portion) << c.share;
        EXPECT_EQ(steps.second, c.second) << c.share;
    }
}

TEST(WaterAdvice, SulfuricAcidThatMakesGypsum)
{
    struct Case
    {
        double share;
        bool isTwoSteps;
        double first, portion, second;
        const char* ids;
    };
    const Case cases[]{
        {0.10, false, 3.0, 0, 0, ""},
        {0.10, false, 3.1, 0, 0, "caso4.first!"},
        {0.30, false, 1.5, 0, 0, ""},
        {0.30, false, 3.0, 0, 0, "caso4.first!"},
        {0.30, true, 1.5, 30.0, 3.0, ""},
        {0.30, true, 1.5, 30.0, 3.5, "caso4.second!"},
        {0.30, true, 1.5, 29.0, 3.0, "caso4.portion"},
        {0.30, true, 1.5, 10.0, 1.5, ""},
        {0.60, true, 1.5, 30.0, 3.0, "caso4.portion"},
        {0.60, true, 1.5, 50.0, 3.0, ""},
        {0.78, true, 1.5, 50.0, 3.0, "caso4.second!"},
        {0.78, true, 2.0, 50.0, 1.5, "caso4.first!"},
        {0.78, false, 1.5, 0, 0, ""},
    };
    for (const Case& c : cases) {
        AcidPlant plant(c.share);
        if (c.isTwoSteps)
            plant.SetSteps(c.first, c.portion, c.second);
        else
            plant.Set("stepcomp/konz.d", c.first);
        EXPECT_EQ(Ids(plant.project, "caso4"), c.ids) << c.share << " " << c.first << " " << c.second;
        plant.Set("stepcomp/rm.chemical", std::string("HCL"));
        EXPECT_EQ(Ids(plant.project, "caso4"), "") << "hydrochloric acid makes none";
    }
    AcidPlant found(0.78);
    found.Set("stepcomp/konz.d", 3.0);
    const auto advice = On(found.project);
    const auto first = std::ranges::find(advice, "caso4.first", &advice::Advice::id);
    ASSERT_NE(first, advice.end());
    EXPECT_EQ(first->value, 3.0);
    EXPECT_EQ(first->limit, 1.5);
    ASSERT_TRUE(first->acid);
    EXPECT_NEAR(first->acid->calciumShare, 78.0, 0.5);
    EXPECT_NEAR(first->acid->supersaturation, 0.78 * 623.0 / 35.0, 0.2) << "spent acid of 3 %";
    EXPECT_EQ(first->address,
              (DetailAddress{found.project.FindOwner("ex.1.comp.1")->GetOwner(), "stepcomp/konz.d"}));

    // Behind another cation exchanger the water is another one.
    found.project.AddStep("WAC_H", 0);
    EXPECT_EQ(found.project.FindOwner("ex.2.comp.1")->GetDetails()->At("stepcomp/konz.d").GetDoubleValue(),
              3.0);
    EXPECT_EQ(Ids(found.project, "caso4"), "");

    AcidPlant weak(0.10, "DEALK");
    weak.Set("stepcomp/konz.d", 0.8);
    EXPECT_EQ(Ids(weak.project, "caso4"), "");
    weak.Set("stepcomp/konz.d", 0.9);
    EXPECT_EQ(Ids(weak.project, "caso4"), "caso4.weak!") << "whatever the share";
}

TEST(WaterAdvice, BariumAndSulfuricAcid)
{
    AcidPlant plant(0.10);
    plant.Set("stepcomp/konz.d", 2.0);
    for (const auto& [barium, ids] : {std::pair(0.0, ""), {0.049, ""}, {0.05, "baso4!"}, {1.0, "baso4!"}}) {
        Put(plant.project, "water.1", "liquid/ba.orig", barium);
        EXPECT_EQ(Ids(plant.project, "baso4"), ids) << barium;
    }
    plant.Set("stepcomp/rm.chemical", std::string("HCL"));
    EXPECT_EQ(Ids(plant.project, "baso4"), "");
}

TEST(WaterAdvice, HardWaterInTheCaustic)
{
    iex::IEXProject project("DEMI");
    support::SetWater(project, {{"ca", 2.0}, {"na", 3.0}, {"hco3", 4.0}, {"cl", 1.0}});
    support::SetFlow(project);
    EXPECT_EQ(Ids(project, "base"), "") << "decationised water is usual";
    DisplaceWithRawWater(project);
    EXPECT_EQ(Ids(project, "base"), "base.hard!");
    support::SetWater(project, {{"ca", 0.2}});
    EXPECT_EQ(Ids(project, "base"), "") << "at the limit";
    support::SetWater(project, {{"ca", 0.21}});
    EXPECT_EQ(Ids(project, "base"), "base.hard!");
}

TEST(WaterAdvice, MuchSilicaWantsWarmCaustic)
{
    iex::IEXProject project("DEMI");
    // 1 of 4 meq/l that the anion resin takes.
    support::SetWater(project, {{"na", 3.0}, {"cl", 3.0}, {"sio2", 1.0}});
    support::SetFlow(project);
    Put(project, "ex.2.comp.1", "stepcomp/rm.temp", 20.0);
    EXPECT_EQ(Ids(project, "silica.c"), "") << "a quarter is in order";
    support::SetWater(project, {{"sio2", 1.05}});
    EXPECT_EQ(Ids(project, "silica.c"), "silica.caustic");
    Put(project, "ex.2.comp.1", "stepcomp/rm.temp", 34.9);
    EXPECT_EQ(Ids(project, "silica.c"), "silica.caustic");
    Put(project, "ex.2.comp.1", "stepcomp/rm.temp", 35.0);
    EXPECT_EQ(Ids(project, "silica.c"), "");
}

TEST(WaterAdvice, WhatWasNotFoundIsNotJudged)
{
    // As much as half of the limit is counted, which would break each of these rules.
    AcidPlant acid(0.8);
    acid.SetSteps(3.0, 50.0, 3.0);
    EXPECT_NE(Ids(acid.project, "caso4"), "");
    Put(acid.project, "water.1", "liquid/ca.orig", -16.0);
    EXPECT_EQ(Ids(acid.project, "caso4"), "");

    iex::IEXProject hard("DEMI");
    support::SetWater(hard, {{"ca", 0.3}, {"mg", 0.1}, {"na", 3.0}, {"hco3", 4.0}, {"sio2", 2.0}});
    support::SetFlow(hard);
    Put(hard, "ex.2.comp.1", "stepcomp/rm.temp", 20.0);
    DisplaceWithRawWater(hard);
    EXPECT_EQ(Ids(hard, "base"), "base.hard!");
    Put(hard, "water.1", "liquid/mg.orig", -0.8);
    EXPECT_EQ(Ids(hard, "base"), "base.hard!") << "calcium alone is too much";
    Put(hard, "water.1", "liquid/ca.orig", -0.6);
    EXPECT_EQ(Ids(hard, "base"), "");
    EXPECT_EQ(Ids(hard, "silica.c"), "silica.caustic");
    Put(hard, "water.1", "liquid/sio2.orig", -4.0);
    EXPECT_EQ(Ids(hard, "silica.c"), "");

    iex::IEXProject scale;
    support::SetWater(scale, {{"ca", 6.0}, {"hco3", 5.0}, {"cl", 1.0}});
    Put(scale, "water.1", "liquid/ph", 8.0);
    EXPECT_EQ(Ids(scale), "langelier");
    for (const char* ion : {"liquid/ca.orig", "liquid/hco3.orig"}) {
        const double found = scale.GetLiquid(0).GetDetails()->At(ion).GetDoubleValue();
        Put(scale, "water.1", ion, -2.0 * found);
        EXPECT_EQ(Ids(scale), "") << ion;
        Put(scale, "water.1", ion, found);
    }
}

TEST(WaterAdvice, WhatMayDeposit)
{
    iex::IEXProject project;
    support::SetWater(project, {{"ca", 6.0}, {"hco3", 5.0}, {"cl", 1.0}, {"sio2", 1.0}});
    EXPECT_EQ(Ids(project), "") << "nobody measured the pH";
    Put(project, "water.1", "liquid/ph", 8.0);
    EXPECT_EQ(Ids(project), "langelier");
    Put(project, "water.1", "liquid/ph", 6.9);
    EXPECT_EQ(Ids(project), "");
    support::SetWater(project, {{"sio2", 2.0}});
    EXPECT_EQ(Ids(project), "silica!");
    support::SetWater(project, {{"sio2", 0.0}, {"ca", 60.0}, {"so4", 55.0}, {"hco3", 4.0}, {"ba", 0.001}});
    EXPECT_EQ(Ids(project, "gypsum"), "gypsum");
    EXPECT_EQ(Ids(project, "barite"), "") << "common and harmless";
}

TEST(WaterAdvice, AnyWaterAndPlantCanBeAsked)
{
    const std::string guide = support::ReadBytes(std::filesystem::path(TARNVIK_SOURCE_DIR) /
                                                 "resources/help" / advice::kAdviceHelpPage);
    std::mt19937 random(3);
    const auto oneOf = [&random](std::initializer_list<double> values) {
        return *(values.begin() + std::uniform_int_distribution<std::ptrdiff_t>(
                                      0, static_cast<std::ptrdiff_t>(values.size()) - 1)(random));
    };
    for (const char* type : {"iex", "SOFT", "DEALK", "DEMI", "MB", "CP", "FOODC"}) {
        iex::IEXProject project(type);
        for (int i = 0; i < 30; ++i) {
            {
                const ProjectEdit edit(project);
                for (const char* key : {"ca.orig", "mg.orig", "na.orig", "hco3.orig", "so4.orig", "ba.orig",
                                        "f.orig", "sio2.orig", "fe.total", "toc", "ph", "temp.orig"})
                    Put(project, "water.1", std::string("liquid/") + key,
                        oneOf({0.0, -1.0, 1e-9, 5.0, 14.0, 1e6, std::nan(""), INFINITY}));
                Put(project, "", "project/qbrutto", oneOf({0.0, 10.0, std::nan("")}));
            }
            for (const advice::Advice& advice : On(project)) {
                EXPECT_FALSE(std::isnan(advice.value) || std::isnan(advice.limit)) << advice.id;
                EXPECT_STRNE(advice.sentence, "");
                EXPECT_NE(guide.find(std::string("<a name=\"") + advice.anchor + "\">"), std::string::npos)
                    << advice.anchor;
                EXPECT_NE(project.FindDetail(advice.address), nullptr) << advice.id;
            }
        }
    }
}
