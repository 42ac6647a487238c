// SPDX-License-Identifier: MIT
#include "projectbase/water/blend.h"

#include "projectbase/project/iex_project.h"
#include "projectbase/water/alkalization.h"
#include "projectbase/water/blend_recipe.h"
#include "tests/support/water_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

using testing_support::WaterUnderTest;

namespace {

class BlendTest : public testing::Test
{
protected:
    BlendTest()
    {
        hard.Type("ca", 4.0, "meq/l").Type("hco3", 4.0, "meq/l").Type("sio2", 20.0, "mg/l");
        hard.Set("ph", 7.3)
            .Set("temp.orig", 10.0)
            .Set("toc", 1.0)
            .Set("oil", 0.4)
            .Set("turbidity", 2.0)
            .Update();
        soft.Type("na", 1.0, "meq/l")
            .Type("hco3", 1.0, "meq/l")
            .Type("x1", 0.5, "meq/l")
            .Set("x1.name", "Li");
        soft.Set("ph", 6.5).Set("temp.orig", 20.0).Set("toc", 3.0).Set("oil", 0.0).Update();
    }
    WaterUnderTest& Mix(double share)
    {
        const water::BlendSource sources[]{{hard.Details(), share}, {soft.Details(), 1.0 - share}};
        water::Blend(sources, mixed.Details());
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
    EXPECT_NEAR(mixed["oil"], 0.1, 1e-12);
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

/// Everything that is calculated of a water, to seven digits.
void ExpectSame(WaterUnderTest& blend, WaterUnderTest& water, const std::string& what)
{
    for (auto& [key, detail] : water.Details()) {
        if (!detail.IsDerived() || key.starts_with("liquid/alk."))
            continue;
        const double expected = detail.GetDoubleValue();
        const double found = blend.Details().At(key).GetDoubleValue();
        if (std::isnan(expected))
            EXPECT_TRUE(std::isnan(found)) << what << ' ' << key;
        else
            EXPECT_NEAR(found, expected, 1e-7 * std::abs(expected) + 1e-9) << what << ' ' << key;
        EXPECT_EQ(found == 0.0, expected == 0.0)
            << what << ' ' << key << ": nothing is left where nothing was";
    }
    for (const char* flag : {"liquid/balance.auto", "liquid/balance.ph"})
        EXPECT_EQ(blend.Details().At(flag).GetBoolValue(), water.Details().At(flag).GetBoolValue()) << what;
    EXPECT_NEAR(blend["alk.cation.meql"], water["alk.cation.meql"], 1e-7) << what;
    EXPECT_NEAR(blend["alk.cation.mgl"], water["alk.cation.mgl"], 1e-5) << what;
    const double pH = std::isfinite(water["alk.ph"]) ? water["alk.ph"] : water["ph"];
    if (std::isnan(pH))
        EXPECT_TRUE(std::isnan(blend["ph"])) << what;
    else
        EXPECT_NEAR(blend["ph"], pH, 1e-6) << what;
}

TEST_F(BlendTest, AWaterMixedWithItselfIsThatWater)
{
    struct Case
    {
        const char* what;
        std::function<void(WaterUnderTest&)> make;
    };
    const auto balanced = [](WaterUnderTest& water) {
        water.Type("so4", 3.0, "meq/l").Set("balance.auto", true);
    };
    const auto dosed = [](WaterUnderTest& water, const char* agent) {
        water.Set("alk.type", agent).Set("alk.mode", "PH").Set("alk.target", 9.0);
    };
    const Case cases[]{
        {"out of balance", [](WaterUnderTest& water) { water.Type("so4", 3.0, "meq/l"); }},
        {"balanced", balanced},
        {"balanced acid",
         [&](WaterUnderTest& water) {
             balanced(water);
             water.Type("hco3", 0.0, "meq/l").Set("ph", 2.8);
         }},
        {"carbonate that the pH does not have",
         [](WaterUnderTest& water) { water.Type("co3", 1.0, "meq/l").Type("co2", 30.0, "mg/l"); }},
        {"calculated CO2", [](WaterUnderTest& water) { water.Set("calculate.co2", true).Set("ph", 6.4); }},
        {"ammonia", [&](WaterUnderTest& water) { dosed(water, "nh3"); }},
        {"amine", [&](WaterUnderTest& water) { dosed(water, "morpholine"); }},
        {"balanced amine",
         [&](WaterUnderTest& water) {
             balanced(water);
             dosed(water, "eta");
         }},
        {"stated H+ and OH-",
         [](WaterUnderTest& water) {
             water.Set("balance.ph", true).Type("h.plus", 0.02, "meq/l").Type("oh.minus", 0.3, "meq/l");
         }},
        {"short analysis",
         [](WaterUnderTest& water) {
             water.Set("analysis.type", "SHORT_TDS").Set("tds.short", 300.0).Set("ph", std::nan(""));
         }},
        {"warm", [](WaterUnderTest& water) { water.Set("temp.orig", 70.0); }},
    };
    for (const auto& [what, make] : cases) {
        WaterUnderTest water;
        water.Type("ca", 4.0, "meq/l").Type("hco3", 2.7, "meq/l").Type("sio2", 20.0, "mg/l");
        water.Type("y1", 0.1, "meq/l").Set("y1.name", "I").Set("ph", 7.3).Set("temp.orig", 10.0);
        make(water);
        water.Update();
        water::CalculateAlkalization(water.Details());
        WaterUnderTest blend;
        const water::BlendSource sources[]{
            {water.Details(), 0.3}, {water.Details(), 0.45}, {water.Details(), 0.25}};
        water::Blend(sources, blend.Details());
        ExpectSame(blend.Update(), water, what);
    }
}

TEST_F(BlendTest, WeakBasesGiveTheirChargeBackWhenTheyAreMixedAndDosedOnceMore)
{
    const auto mix = [](WaterUnderTest& target, WaterUnderTest& first, double share, WaterUnderTest& second) {
        const water::BlendSource sources[]{{first.Details(), share}, {second.Details(), 1.0 - share}};
        water::Blend(sources, target.Details());
        target.Update();
    };
    for (const char* agent : {"morpholine", "eta", "nh3"}) {
        const auto dose = [agent](WaterUnderTest& water, double milligrams) {
            water.Set("alk.type", agent).Set("alk.mode", "DOSE").Set("alk.dose", milligrams).Update();
            EXPECT_EQ(water::CalculateAlkalization(water.Details()), water::AlkalizationResult::Done);
        };
        WaterUnderTest treated;
        WaterUnderTest whole;
        for (WaterUnderTest* water : {&treated, &whole})
            water->Type("ca", 1.0, "meq/l").Type("hco3", 1.0, "meq/l").Set("ph", 7.3).Set("temp.orig", 10.0);
        dose(treated, 20.0);
        WaterUnderTest half;
        WaterUnderTest twice;
        WaterUnderTest once;
        mix(half, treated, 0.5, hard);
        mix(twice, half, 0.3, hard);
        mix(once, treated, 0.15, hard);
        ExpectSame(twice, once, agent);

        // What one dose does, two do.
        WaterUnderTest more;
        mix(more, treated, 1.0, hard);
        dose(more, 15.0);
        dose(whole, 35.0);
        EXPECT_NEAR(more["alk.ph"], whole["alk.ph"], 1e-6) << agent;
        for (const char* key : {"alk.cation.meql", "alk.cation.mgl", "nh4.meql", "hco3.meql", "cond25"})
            EXPECT_NEAR(more[key], whole[key], 1e-6 * std::abs(whole[key])) << agent << ' ' << key;
        WaterUnderTest both;
        mix(both, more, 0.4, whole);
        ExpectSame(both, whole, agent);
    }
}

TEST_F(BlendTest, OfAnyNumberOfWatersKeepsChargesAndCarbon)
{
    WaterUnderTest acid;
    acid.Type("cl", 2.0, "meq/l").Set("ph", 2.72).Set("temp.orig", 15.0).Set("balance.auto", true).Update();
    WaterUnderTest treated;
    treated.Type("na", 0.2, "meq/l").Type("hco3", 0.2, "meq/l").Set("ph", 6.5).Set("temp.orig", 25.0);
    treated.Set("alk.type", "morpholine").Set("alk.mode", "PH").Set("alk.target", 9.0).Update();
    ASSERT_EQ(water::CalculateAlkalization(treated.Details()), water::AlkalizationResult::Done);
    const water::BlendSource sources[]{
        {hard.Details(), 0.4}, {soft.Details(), 0.3}, {acid.Details(), 0.2}, {treated.Details(), 0.1}};
    water::Blend(sources, mixed.Details());
    mixed.Update();
    const auto sum = [&](const std::function<double(WaterUnderTest&)>& of) {
        return 0.4 * of(hard) + 0.3 * of(soft) + 0.2 * of(acid) + 0.1 * of(treated);
    };
    // Sodium of the sources, of the acid also what closes its balance.
    EXPECT_NEAR(mixed["na.meql"],
                sum([](WaterUnderTest& w) { return w["na.meql"]; }) + 0.2 * acid["na.plus.meql"], 1e-9);
    EXPECT_FALSE(mixed.Details().At("liquid/balance.auto").GetBoolValue()) << "not all of them are balanced";
    // The balance of all charges, H+ and OH- among them, is that of the sources.
    const auto charges = [](WaterUnderTest& water) {
        const auto composition = water::WholeComposition(water.Details());
        double charge = 0.0;
        for (std::size_t i = 0; i < water::kSpeciesCount; ++i)
            charge += water::kCharges[i] * composition.amounts[i];
        return charge;
    };
    EXPECT_NEAR(charges(mixed), sum(charges) + 0.2 * acid["na.plus.meql"], 2e-4);
    EXPECT_LT(mixed["ph"], 6.9);
    EXPECT_GT(mixed["alk.cation.meql"], 0.1 * treated["alk.cation.meql"]) << "the acid charges more of it";
}

TEST_F(BlendTest, StatedHydrogenAndHydroxideNeutraliseEachOther)
{
    WaterUnderTest acid;
    acid.Type("cl", 1.0, "meq/l").Set("ph", 3.0155).Set("balance.ph", true).Type("h.plus", 1.0, "meq/l");
    WaterUnderTest base;
    base.Type("na", 1.0, "meq/l").Set("ph", 10.979).Set("balance.ph", true).Type("oh.minus", 1.0, "meq/l");
    for (WaterUnderTest* water : {&acid, &base})
        water->Set("temp.orig", 25.0).Update();
    const water::BlendSource sources[]{{acid.Details(), 0.5}, {base.Details(), 0.5}};
    water::Blend(sources, mixed.Details());
    mixed.Update();
    EXPECT_TRUE(mixed.Details().At("liquid/balance.ph").GetBoolValue());
    EXPECT_NEAR(mixed["ph"], 7.0, 0.5);
    EXPECT_NEAR(mixed["h.plus.meql"], 0.0, 0.002);
    EXPECT_NEAR(mixed["oh.minus.meql"], 0.0, 0.002);
    EXPECT_NEAR(mixed["cond25"], 62.2, 0.5) << "NaCl 0.5 mmol/l";
}

TEST_F(BlendTest, OfBalancedWatersIsBalanced)
{
    hard.Type("so4", 1.0, "meq/l").Set("balance.auto", true).Update();
    soft.Set("balance.auto", true).Update();
    ASSERT_GT(hard["na.plus.meql"], 0.5);
    ASSERT_GT(soft["cl.plus.meql"], 0.4);
    Mix(0.5);
    EXPECT_TRUE(mixed.Details().At("liquid/balance.auto").GetBoolValue());
    EXPECT_NEAR(mixed["tds"], 0.5 * (hard["tds"] + soft["tds"]), 0.5) << "some HCO3 becomes CO2 and CO3";
    EXPECT_NEAR(mixed["na.meql"] + mixed["na.plus.meql"],
                0.5 * (hard["na.meql"] + hard["na.plus.meql"] + soft["na.meql"]), 1e-4);
    EXPECT_NEAR(mixed["cl.meql"] + mixed["cl.plus.meql"], 0.5 * soft["cl.plus.meql"], 1e-4);
}

TEST(BlendRecipe, IsWrittenAndReadAgain)
{
    const std::vector<water::BlendPart> parts{{"Feed; water", 12.5}, {"a\\b", 0.0}, {"3 wells", 1e-3}};
    const auto read = water::PartsOfText(water::PartsText(parts));
    ASSERT_EQ(read.size(), parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        EXPECT_EQ(read[i].water, parts[i].water);
        EXPECT_EQ(read[i].amount, parts[i].amount);
    }
    EXPECT_EQ(water::PartsOfText(" 40 Feed water ;60 Well;")[1].water, "Well");
    for (const char* wrong : {"Feed", "40", "-1 Feed; 2 Well", "nan Feed; 1 Well", "1e999 Feed; 1 Well"})
        EXPECT_TRUE(water::PartsOfText(wrong).empty()) << wrong;
    std::string many;
    for (std::size_t i = 0; i <= water::kMostBlendParts; ++i)
        many += "1 a;";
    EXPECT_TRUE(water::PartsOfText(many).empty());

    WaterUnderTest water;
    EXPECT_FALSE(water::IsBlend(water.Details()));
    struct Case
    {
        water::BlendRecipe recipe;
        bool isComplete;
    };
    for (const auto& [recipe, isComplete] :
         {Case{{{{"a", 30.0}, {"b", 70.0}}, false}, true}, Case{{{{"a", 30.0}, {"b", 20.0}}, false}, true},
          Case{{{{"a", 30.0}, {"b", 70.0}}, true}, true}, Case{{parts, true}, true},
          Case{{{{"a", 30.0}}, false}, false}, Case{{{{"a", 0.0}, {"b", 0.0}}, true}, false}}) {
        water::StoreRecipe(recipe, water.Details());
        EXPECT_EQ(water::IsBlend(water.Details()), isComplete);
        const auto again = water::RecipeOf(water.Details());
        ASSERT_EQ(again.parts.size(), recipe.parts.size());
        EXPECT_EQ(again.byFlow, recipe.byFlow);
        EXPECT_EQ(again.parts[0].amount, recipe.parts[0].amount);
    }
    water::StoreRecipe({{{"a", 10.0}, {"b", 30.0}}, true}, water.Details());
    water::RenameInRecipe(water.Details(), "b", "c;d");
    EXPECT_EQ(water::RecipeOf(water.Details()).parts[1].water, "c;d");
    EXPECT_EQ(water::RecipeOf(water.Details()).Shares()[1], 0.75);
}

TEST(BlendOfProject, TakesManyWatersByFlow)
{
    iex::IEXProject project;
    project.GetLiquid(0).FindDetail("liquid/na.orig")->SetValue(10.0);
    const std::string feed = project.GetLiquid(0).GetName();
    water::BlendRecipe recipe{{{feed, 30.0}}, true};
    for (int i = 1; i <= 4; ++i) {
        const std::string name = "Well " + std::to_string(i);
        project.AddLiquid(name).FindDetail("liquid/na.orig")->SetValue(10.0 + 10.0 * i);
        recipe.parts.push_back({name, 5.0 * i});
    }
    LiquidData& blend = project.AddLiquid("Blend");
    water::StoreRecipe(recipe, *blend.GetDetails());
    project.CalculateDesign();
    // 30·10 + 5·20 + 10·30 + 15·40 + 20·50 in 80 m³/h
    EXPECT_NEAR(blend.FindDetail("liquid/na.mgl")->GetDoubleValue(), 28.75, 1e-9);
    project.RenameOwner(project.GetLiquid(2), "River");
    project.GetLiquid(2).FindDetail("liquid/na.orig")->SetValue(110.0);
    project.CalculateDesign();
    EXPECT_NEAR(blend.FindDetail("liquid/na.mgl")->GetDoubleValue(), 38.75, 1e-9);
    EXPECT_TRUE(project.IsMixed(blend));
    project.RemoveLiquid(3);
    EXPECT_FALSE(project.IsMixed(blend)) << "one of its waters is gone";
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
