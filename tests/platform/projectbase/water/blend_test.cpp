// SPDX-License-Identifier: MIT
#include "projectbase/water/blend.h"

#include "projectbase/project/iex_project.h"
#include "tests/support/water_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

using testing_support::WaterUnderTest;

namespace {

class BlendTest : public testing::Test
{
protected:
    BlendTest()
    {
        hard.Type("ca", 4.0, "meq/l").Type("hco3", 4.0, "meq/l").Type("sio2", 20.0, "mg/l");
        hard.Set("ph", 7.3).Set("temp.orig", 10.0).Set("toc", 1.0).Set("turbidity", 2.0).Update();
        soft.Type("na", 1.0, "meq/l")
            .Type("hco3", 1.0, "meq/l")
            .Type("x1", 0.5, "meq/l")
            .Set("x1.name", "Li");
        soft.Set("ph", 6.5).Set("temp.orig", 20.0).Set("toc", 3.0).Update();
    }
    WaterUnderTest& Mix(double share)
    {
        water::Blend(hard.Details(), soft.Details(), share, mixed.Details());
        return mixed.Update();
    }
    WaterUnderTest hard;
    WaterUnderTest soft;
    WaterUnderTest mixed;
};

TEST_F(BlendTest, AmountsAreLinearAndThePhIsThatOfTheMixture)
{
    Mix(0.25);
    EXPECT_NEAR(mixed["ca.meql"], 1.0, 1e-12);
    EXPECT_NEAR(mixed["na.meql"], 0.75, 1e-12);
    EXPECT_NEAR(mixed["sio2.mgl"], 5.0, 1e-12);
    EXPECT_NEAR(mixed["temp"], 17.5, 1e-12);
    EXPECT_NEAR(mixed["toc"], 2.5, 1e-12);
    EXPECT_TRUE(std::isnan(mixed["turbidity"])) << "one water does not tell";
    EXPECT_EQ(mixed.Details().At("liquid/x1.name").GetStdStringValue(), "Li");
    EXPECT_NEAR(mixed["x1.meql"], 0.375, 1e-12);
    EXPECT_NEAR(mixed["hco3.meql"] + mixed["co3.meql"], 0.25 * 4.0 + 0.75 * 1.0, 0.02);
    EXPECT_GT(mixed["ph"], 6.5);
    EXPECT_LT(mixed["ph"], 7.3);
}

TEST_F(BlendTest, ShareOfAllIsThatWater)
{
    Mix(1.0);
    EXPECT_NEAR(mixed["ph"], 7.3, 1e-3);
    EXPECT_NEAR(mixed["hco3.meql"], 4.0, 2e-3);
    EXPECT_EQ(mixed["turbidity"], 2.0) << "the other water plays no part";
    EXPECT_NEAR(mixed["na.meql"], 0.0, 1e-12);
    soft.Set("ph", std::nan("")).Update();
    Mix(0.5);
    EXPECT_TRUE(std::isnan(mixed["ph"]));
    EXPECT_NEAR(mixed["hco3.meql"], 2.5, 1e-12);
}

TEST(BlendOfProject, FollowsItsWaters)
{
    iex::IEXProject project;
    LiquidData& feed = project.GetLiquid(0);
    LiquidData& well = project.AddLiquid("Well");
    LiquidData& blend = project.AddLiquid("Blend");
    feed.FindDetail("liquid/na.orig")->SetValue(10.0);
    well.FindDetail("liquid/na.orig")->SetValue(20.0);
    blend.FindDetail("liquid/blend.first")->SetValue(feed.GetName());
    blend.FindDetail("liquid/blend.second")->SetValue("Well");
    blend.FindDetail("liquid/blend.share")->SetValue(40.0);
    project.CalculateDesign();
    EXPECT_NEAR(blend.FindDetail("liquid/na.mgl")->GetDoubleValue(), 16.0, 1e-9);
    well.FindDetail("liquid/na.orig")->SetValue(0.0);
    project.CalculateDesign();
    EXPECT_NEAR(blend.FindDetail("liquid/na.mgl")->GetDoubleValue(), 4.0, 1e-9);
    project.RemoveLiquid(1);
    project.CalculateDesign();
    EXPECT_NEAR(project.GetLiquid(1).FindDetail("liquid/na.mgl")->GetDoubleValue(), 4.0, 1e-9)
        << "without its water it stays as it was";
}

}  // namespace
