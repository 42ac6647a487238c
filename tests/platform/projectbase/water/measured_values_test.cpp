// SPDX-License-Identifier: MIT
#include "projectbase/water/measured_values.h"

#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/project/range_faults.h"
#include "projectbase/water/blend_recipe.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

class MeasuredValuesOfProject : public testing::Test
{
protected:
    template <typename Value>
    void Set(const char* key, Value value)
    {
        const ProjectEdit edit(project);
        Water().At(std::string("liquid/") + key).SetValue(value);
    }
    DetailList& Water() { return *project.GetLiquid(0).GetDetails(); }
    double Get(const char* key) { return Water().At(std::string("liquid/") + key).GetDoubleValue(); }
    /// The keys that are told of.
    std::string Faults()
    {
        std::string keys;
        for (const RangeFault& fault : RangeFaults(project))
            keys += fault.address.key + ";";
        return keys;
    }

    iex::IEXProject project;
};

TEST_F(MeasuredValuesOfProject, DifferencesOfMoreThanATenthAreTold)
{
    constexpr const char* kHardness = "liquid/hardness.measured.orig;";
    constexpr const char* kConductivity = "liquid/cond25.measured.orig;";
    Set("hardness.measured.orig", 2.0);
    Set("cond25.measured.orig", 500.0);
    EXPECT_EQ(Faults(), "") << "nothing is analysed yet";
    Set("ca.unit", "meq/l");
    Set("ca.orig", 4.0);
    Set("cl.unit", "meq/l");
    Set("cl.orig", 4.0);
    EXPECT_NEAR(Get("cond25"), 475.0, 30.0);
    EXPECT_EQ(Get("hardness.measured"), 4.0) << "mmol/l of divalent ions";
    EXPECT_EQ(Faults(), "");
    Set("hardness.measured.orig", 2.25);
    Set("cond25.measured.unit", "mS/m");
    EXPECT_EQ(Faults(), std::string(kHardness) + kConductivity);
    const auto fault = RangeFaults(project).at(0);
    EXPECT_EQ(fault.limit, 2.0) << "in the unit that is typed";
    EXPECT_FALSE(fault.isBelow);
    Set("cond25.measured.orig", 50.0);
    EXPECT_EQ(Faults(), kHardness);
    Set("temp.orig", 20.0);
    Set("hco3.orig", 30.0);
    Set("na.orig", 11.3);
    Set("ph", 7.0);
    Set("alk.target", 9.0);
    Set("alk.type", "naoh");
    ASSERT_TRUE(std::isfinite(Get("alk.ph")));
    EXPECT_EQ(Faults(), "") << "the alkalised water is not the one that was measured";
    Set("alk.type", "");
    Set("hco3.orig", 0.0);
    Set("na.orig", 0.0);
    Set("analysis.type", "SHORT_COND");
    EXPECT_EQ(Faults(), "") << "which says nothing of hardness";
    Set("analysis.type", "FULL");
    Set("ca.orig", 0.01);
    Set("cl.orig", 0.01);
    Set("hardness.measured.orig", 0.05);
    EXPECT_EQ(Faults(), kConductivity) << "as close as a titration is";
    Set("hardness.measured.orig", -1.0);
    EXPECT_EQ(RangeFaults(project).at(0).limit, 0.0);
}

TEST_F(MeasuredValuesOfProject, NobodyMeasuredABlend)
{
    Set("hardness.measured.orig", 2.0);
    Set("na.orig", 2.0);
    project.GetLiquid(0).SetName("Well");
    project.AddLiquid("River");
    LiquidData& blend = project.AddLiquid("Blend");
    blend.GetDetails()->At("liquid/cond25.measured.orig").SetValue(5.0);
    {
        const ProjectEdit edit(project);
        water::StoreRecipe({{{"Well", 60.0}, {"River", 40.0}}}, *blend.GetDetails());
    }
    ASSERT_EQ(blend.GetDetails()->At("liquid/na.mgl").GetDoubleValue(), 1.2);
    for (const water::MeasuredValue& value : water::kMeasuredValues)
        EXPECT_TRUE(std::isnan(blend.GetDetails()->At(value.iso).GetDoubleValue())) << value.iso;
}

}  // namespace
