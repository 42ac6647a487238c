// SPDX-License-Identifier: MIT
#include "projectbase/water/laboratory_import.h"

#include "tests/support/water_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

using testing_support::WaterUnderTest;

namespace {

TEST(LaboratoryImport, StoresWhatTheFileStatesAndClearsTheRest)
{
    WaterUnderTest water;
    water.Type("k", 5.0, "meq/l").Set("ph", 6.0).Set("turbidity", 3.0);
    const auto file = laboratory::Read(
        "Ca [mmol/l];Na [mg/l];pH;Temp [\u00b0F];Mg [furlong];Na [mg/l];Cl [mg/l]\n"
        "1,5;2;7,5;50;3;9;-1\n");
    const auto values = water::TakeSample(file, 0, water.Details());
    ASSERT_EQ(values.size(), 4u) << "not the unknown unit, the second sodium and the negative chloride";
    water::StoreSample(values, water.Details(), false);
    EXPECT_EQ(water["k.orig"], 5.0);
    EXPECT_EQ(water["turbidity"], 3.0);
    water::StoreSample(values, water.Details(), true);
    EXPECT_EQ(water["ca.orig"], 3.0);
    EXPECT_EQ(water.Details().At("liquid/ca.unit").GetStdStringValue(), "meq/l");
    EXPECT_EQ(water["na.orig"], 2.0);
    EXPECT_EQ(water["ph"], 7.5);
    EXPECT_EQ(water["temp.orig"], 50.0);
    EXPECT_EQ(water.Details().At("liquid/temp.unit").GetStdStringValue(), "\u00b0F");
    EXPECT_EQ(water["k.orig"], 0.0);
    EXPECT_TRUE(std::isnan(water["turbidity"]));
}

TEST(LaboratoryImport, AlkalinityStandsForBicarbonate)
{
    WaterUnderTest water;
    water.Type("hco3", 5.0, "meq/l").Set("ph", 9.2);
    const auto file = laboratory::Read("pH,Alkalinity [mg/l CaCO3],p-value [mmol/l],Temp\n8.9,103,-0.2,15\n");
    const auto values = water::TakeSample(file, 0, water.Details());
    ASSERT_EQ(values.size(), 4u);
    water::StoreSample(values, water.Details(), true);
    water.Update();
    EXPECT_EQ(water["hco3.orig"], 0.0);
    EXPECT_EQ(water["alkalinity.p.orig"], -0.2) << "a demand of base";
    EXPECT_NEAR(water["alkalinity.m"], 2.06, 1e-6);
    EXPECT_GT(water["co3.meql"], 0.1);
    WaterUnderTest copy;
    const auto again = laboratory::Read(water::WriteLaboratoryFile(water.Details()));
    water::StoreSample(water::TakeSample(again, 0, copy.Details()), copy.Details(), true);
    EXPECT_EQ(copy["alkalinity.m.orig"], 103.0);
    EXPECT_EQ(copy.Details().At("liquid/alkalinity.m.unit").GetStdStringValue(), "ppm CaCO3");
    const auto without = laboratory::Read("pH\n7\n");
    water::StoreSample(water::TakeSample(without, 0, copy.Details()), copy.Details(), true);
    EXPECT_EQ(copy["alkalinity.m.orig"], 0.0) << "cleared with the others";
}

TEST(LaboratoryImport, WrittenWatersComeBack)
{
    WaterUnderTest water;
    water.Type("ca", 12.25, "mg/l")
        .Type("hco3", 3.1, "meq/l")
        .Type("so4", 7.0, "\u00b0d")
        .Type("fe2", 0.5, "ppb");
    water.Set("ph", 0.0).Set("temp.orig", 0.0).Set("toc", 2.5).Set("place", "Well, north");
    WaterUnderTest copy;
    const auto file = laboratory::Read(water::WriteLaboratoryFile(water.Details()));
    water::StoreSample(water::TakeSample(file, 0, copy.Details()), copy.Details(), true);
    for (const char* key : {"ca.orig", "hco3.orig", "so4.orig", "fe2.orig", "ph", "temp.orig", "toc"})
        EXPECT_EQ(copy[key], water[key]) << key;
    EXPECT_EQ(copy.Details().At("liquid/so4.unit").GetStdStringValue(), "\u00b0d");
}

}  // namespace
