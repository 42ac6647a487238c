// SPDX-License-Identifier: MIT
#include "projectbase/water/alkalinity.h"

#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/project/range_faults.h"
#include "projectbase/water/alkalization.h"
#include "tests/support/water_fixture.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>

using testing_support::WaterUnderTest;

namespace {

/// A soft water at 15 °C whose cations are 3 meq/l.
void TypeCations(WaterUnderTest& water)
{
    water.Type("ca", 1.6, "meq/l").Type("mg", 0.6, "meq/l").Type("na", 0.8, "meq/l");
    water.Set("temp.orig", 15.0);
}

}  // namespace

TEST(Alkalinity, IsSplitByTitrationWithoutAPh)
{
    struct Case
    {
        double m, p, hydroxide, carbonate, bicarbonate;  // meq/l; Standard Methods 2320 B
    };
    for (const auto& c :
         {Case{3.0, 0.0, 0.0, 0.0, 3.0}, Case{3.0, -0.4, 0.0, 0.0, 3.0}, Case{3.0, 1.0, 0.0, 2.0, 1.0},
          Case{3.0, 1.5, 0.0, 3.0, 0.0}, Case{3.0, 2.0, 1.0, 2.0, 0.0}, Case{3.0, 3.0, 3.0, 0.0, 0.0},
          Case{-1.0, -2.0, 0.0, 0.0, 0.0}}) {
        const auto forms = water::FormsByTitration(c.m, c.p);
        EXPECT_DOUBLE_EQ(forms.hydroxide, c.hydroxide) << c.m << ' ' << c.p;
        EXPECT_DOUBLE_EQ(forms.carbonate, c.carbonate) << c.m << ' ' << c.p;
        EXPECT_DOUBLE_EQ(forms.bicarbonate, c.bicarbonate) << c.m << ' ' << c.p;
        WaterUnderTest water;
        TypeCations(water);
        water.Type("alkalinity.m", c.m, "mmol/l").Type("alkalinity.p", c.p, "mmol/l").Update();
        EXPECT_DOUBLE_EQ(water["hco3.meql"], c.bicarbonate);
        EXPECT_DOUBLE_EQ(water["co3.meql"], c.carbonate);
        EXPECT_NEAR(water["alkalinity.m"], c.m, 1e-12);
        const double acid = std::max(0.0, -c.m);
        EXPECT_NEAR(water["ionic.strength"],
                    5e-4 * (3.0 + 2.2 + c.bicarbonate + 2.0 * c.carbonate + c.hydroxide + acid), 1e-12)
            << "H+ and OH- that titration finds count";
    }
}

TEST(Alkalinity, IsSplitByPhAndTemperature)
{
    WaterUnderTest water;
    TypeCations(water);
    water.Type("alkalinity.m", 3.0, "mmol/l").Set("ph", 8.4).Update();
    // By the constants of carbonic acid at 15 °C; titration would see a p-value of half the carbonate.
    EXPECT_NEAR(water["co3.meql"], 0.070, 0.003);
    EXPECT_NEAR(water["alkalinity.p"], 0.008, 0.002);
    EXPECT_NEAR(water["alkalinity.m"], 3.0, 1e-9);
    const double cold = water["co3.meql"];
    water.Set("temp.orig", 40.0).Update();
    EXPECT_GT(water["co3.meql"], 1.4 * cold);
    // Without a temperature as at 25 °C.
    water.Set("temp.orig", 25.0).Update();
    const double at25 = water["co3.meql"];
    water.Set("temp.orig", std::nan("")).Update();
    EXPECT_DOUBLE_EQ(water["co3.meql"], at25);
}

TEST(Alkalinity, OfTheWholeIsTheOneReportedWhateverElseItHolds)
{
    for (const double pH : {5.0, 6.8, 8.3, 9.2, 10.4, 11.3}) {
        for (const bool isClosed : {false, true}) {
            WaterUnderTest water;
            TypeCations(water);
            water.Type("so4", 0.7, "meq/l").Set("balance.auto", isClosed).Set("ph", pH);
            water.Type("alkalinity.m", 2.2, "mmol/l").Update();
            EXPECT_NEAR(water["alkalinity.m"], 2.2, 2e-6) << pH << isClosed;
            water::CalculateAlkalization(water.Details());
            water.Type("hco3", 5.0, "mg/l").Update();
            EXPECT_NEAR(water["alkalinity.m"], 2.2, 2e-6)
                << "stands in place of what is typed as bicarbonate";
        }
    }
    // OH- in its row is what is typed there.
    WaterUnderTest water;
    TypeCations(water);
    water.Set("balance.ph", true).Type("oh.minus", 0.5, "meq/l").Set("ph", 10.4);
    water.Type("alkalinity.m", 2.2, "mmol/l").Update();
    EXPECT_NEAR(water["hco3.meql"] + water["co3.meql"], 1.7, 1e-9);
    EXPECT_NEAR(water["alkalinity.m"], 2.2, 1e-9);
}

TEST(Alkalinity, IsReportedInMillimolesCalciumCarbonateAndDegrees)
{
    WaterUnderTest water;
    TypeCations(water);
    for (const auto& [value, unit] : {std::pair(2.5, "mmol/l"), std::pair(125.0, "ppm CaCO3"),
                                      std::pair(125.0, "mgCaCO3/l"), std::pair(7.0, "\u00b0d")}) {
        water.Type("alkalinity.m", value, unit).Update();
        EXPECT_NEAR(water["hco3.meql"], 2.5, 1e-5) << unit;
    }
    water.Type("alkalinity.m", 0.0, "mmol/l").Type("hco3", 1.5, "meq/l").Update();
    EXPECT_DOUBLE_EQ(water["hco3.meql"], 1.5) << "a 0 counts as not reported";
    water.Set("analysis.type", "SHORT_TDS")
        .Set("tds.short", 100.0)
        .Type("alkalinity.m", 2.5, "mmol/l")
        .Update();
    EXPECT_EQ(water["hco3.meql"], 0.0);
}

TEST(Alkalinity, HardnessAndAcidityAreDerivedValues)
{
    WaterUnderTest water;
    TypeCations(water);
    water.Type("alkalinity.m", 1.8, "mmol/l").Type("cl", 0.6, "meq/l").Type("so4", 0.5, "meq/l");
    water.Type("no3", 0.1, "meq/l").Type("sio2", 10.0, "mg/l").Set("ph", 7.0).Update();
    EXPECT_NEAR(water["hardness.total"], 2.2, 1e-9);
    EXPECT_NEAR(water["hardness.carbonate"], 1.8, 1e-6);
    EXPECT_NEAR(water["ema"], 1.2, 1e-9);
    EXPECT_NEAR(water["balance.error"], 0.0, 0.05);
    EXPECT_NEAR(water["residue"], water["tds"] - 0.5083 * water["hco3.mgl"], 1e-9);
    // pK1 6.42 at 15 °C: 0.48 mmol/l of CO2.
    EXPECT_NEAR(water["alkalinity.p"], -0.44, 0.02);
    water.Type("cl", 1.6, "meq/l").Set("balance.auto", true).Update();
    EXPECT_NEAR(water["ema"], 2.2, 1e-9);
    EXPECT_NEAR(water["balance.error"], 100.0 * -1.0 / 7.0, 0.05) << "of what was analysed";
    water.Type("cl", 0.0, "meq/l").Type("po4", 0.3, "meq/l").Update();
    EXPECT_NEAR(water["ema"], 0.6 + 0.1 + water["cl.plus.meql"], 1e-9) << "chloride that closes counts";

    water.Set("analysis.type", "SHORT_TDS").Set("tds.short", 100.0).Update();
    for (const char* key : {"hardness.total", "hardness.carbonate", "alkalinity.m", "alkalinity.p", "ema"})
        EXPECT_TRUE(std::isnan(water[key])) << key;
    EXPECT_EQ(water["balance.error"], 0.0);
    EXPECT_NEAR(water["residue"], 100.0, 1e-9);
    water.Set("tds.short", -1.0).Update();
    for (const char* key : {"ema", "residue", "balance.error"})
        EXPECT_TRUE(std::isnan(water[key])) << key;
}

class AlkalinityOfProject : public testing::Test
{
protected:
    void Type(std::initializer_list<std::pair<const char*, double>> values)
    {
        const ProjectEdit edit(project);
        for (const auto& [key, value] : values)
            Water().At(std::string("liquid/") + key).SetValue(value);
    }
    DetailList& Water() { return *project.GetLiquid(0).GetDetails(); }
    double Get(const char* key) { return Water().At(std::string("liquid/") + key).GetDoubleValue(); }
    /// What is wrong with the water, as "key sentence limit".
    std::vector<std::string> Faults()
    {
        std::vector<std::string> faults;
        for (const RangeFault& fault : RangeFaults(project))
            faults.push_back(fmt::format("{} {} {:.2f}", fault.address.key, fault.sentence, fault.limit));
        return faults;
    }
    using Texts = std::vector<std::string>;

    iex::IEXProject project;
};

TEST_F(AlkalinityOfProject, WhatIsTypedLastCounts)
{
    Type({{"alkalinity.m.orig", 2.0}, {"alkalinity.p.orig", 0.1}, {"hco3.orig", 61.02}});
    EXPECT_NEAR(Get("hco3.meql") + Get("co3.meql"), 2.0, 1e-9) << "typed together: the m-value";
    Type({{"hco3.orig", 91.53}});
    EXPECT_EQ(Get("alkalinity.m.orig"), 0.0);
    EXPECT_EQ(Get("alkalinity.p.orig"), 0.0);
    EXPECT_NEAR(Get("hco3.meql"), 1.5, 1e-9);
    Type({{"alkalinity.m.orig", 2.0}});
    EXPECT_NEAR(Get("hco3.meql") + Get("co3.meql"), 2.0, 1e-9);
    Type({{"hco3.orig", 0.0}});
    EXPECT_EQ(Get("alkalinity.m.orig"), 2.0) << "an emptied field says nothing";
}

TEST_F(AlkalinityOfProject, ContradictionsAreTold)
{
    Type({{"alkalinity.m.orig", 2.0}, {"alkalinity.p.orig", 0.5}});
    EXPECT_EQ(Faults(), Texts());
    Type({{"alkalinity.p.orig", 2.5}});
    EXPECT_EQ(Faults(), Texts{"liquid/alkalinity.p.orig %s is larger than the m-value of %s 2.00"});
    Type({{"alkalinity.p.orig", 0.5}, {"ph", 8.3}});
    EXPECT_EQ(Faults(),
              Texts{"liquid/alkalinity.p.orig %s does not go with pH and m-value, which give %s -0.01"});
    Type({{"alkalinity.p.orig", 0.15}});
    EXPECT_EQ(Faults(), Texts()) << "within a tenth of the m-value";
    Type({{"alkalinity.p.orig", 0.0}, {"ph", 4.0}});
    EXPECT_EQ(Faults().size(), 1u) << "no alkalinity at that pH";
    Type({{"ph", 7.0}, {"alkalinity.m.orig", 20000.0}});
    ASSERT_EQ(RangeFaults(project).size(), 1u);
    EXPECT_EQ(RangeFaults(project)[0].address.key, "liquid/alkalinity.m.orig") << "where it is typed";
    EXPECT_EQ(RangeFaults(project)[0].limit, 10000.0);
}
