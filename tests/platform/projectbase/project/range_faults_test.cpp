// SPDX-License-Identifier: MIT
#include "projectbase/project/range_faults.h"

#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/settings/settings.h"

#include <gtest/gtest.h>

namespace {

struct Case
{
    const char* owner;
    const char* key;
    double value;
    const char* typedUnit;  ///< set first where the value is typed in a unit of choice
    const char* address;    ///< where the fault is found; null for none
    const char* label;
    double limit;
};

TEST(RangeFaults, NamesEveryValueWhereItIsTyped)
{
    const Case cases[]{
        {"water.1", "liquid/ph", 14.0, nullptr, nullptr, "", 0},
        {"water.1", "liquid/ph", 15.0, nullptr, "liquid/ph", "pH", 14.0},
        {"water.2", "liquid/temp.orig", 150.0, "°C", "liquid/temp.orig", "Temperature", 100.0},
        {"water.2", "liquid/temp.orig", 213.0, "°F", "liquid/temp.orig", "Temperature", 212.0},
        {"water.1", "liquid/na.orig", 230000.0, "mg/l", "liquid/na.orig", "Sodium", 229900.0},
        {"water.1", "liquid/na.orig", 10001.0, "meq/l", "liquid/na.orig", "Sodium", 10000.0},
        {"water.1", "liquid/cl.orig", -1.0, "mg/l", nullptr, "", 0},  // a limit of detection
        {"water.1", "liquid/toc", 20000.0, nullptr, "liquid/toc", "TOC", 10000.0},
        {"water.1", "liquid/co2.orig", 200.0, "g/l", "liquid/co2.orig", "CO2", 100.0},
        {"", "feed/ph", -1.0, nullptr, "feed/ph", "Total pH", 0.0},
        {"", "feed/medium.temp", 120.0, nullptr, "feed/medium.temp", "Temperature of the feed medium", 100.0},
        {"", "project/nlines", 0.0, nullptr, "project/nlines", "Number of lines", 1.0},
        {"ex.1", "step/v.max", 500.0, nullptr, "step/v.max", "Greatest velocity", 200.0},
        {"ex.1.comp.1", "stepcomp/level", -5.0, nullptr, "stepcomp/level", "Regenerant level", 0.0},
    };
    for (const Case& c : cases) {
        iex::IEXProject project("SOFT");
        project.AddLiquid("Second");
        OwnerNode& owner = *project.FindOwner(c.owner);
        {
            const ProjectEdit edit(project);
            project.GetDetails().At("feed/adjust.ph").SetValue(true);
            if (c.typedUnit != nullptr)
                owner.GetDetails()
                    ->At(std::string(c.key, std::string(c.key).size() - 4) + "unit")
                    .SetValue(c.typedUnit);
            owner.GetDetails()->At(c.key).SetValue(c.value);
        }
        const auto faults = RangeFaults(project);
        if (c.address == nullptr) {
            EXPECT_TRUE(faults.empty()) << c.key;
            continue;
        }
        ASSERT_EQ(faults.size(), 1u) << c.key;
        EXPECT_EQ(faults[0].address, (DetailAddress{owner.GetOwner(), c.address}));
        EXPECT_EQ(faults[0].label, c.label);
        EXPECT_NEAR(faults[0].limit, c.limit, 1e-9 * c.limit) << c.key;
        EXPECT_EQ(faults[0].value, c.value);
        EXPECT_EQ(faults[0].isBelow, c.value < c.limit);
        if (c.typedUnit != nullptr) {
            EXPECT_EQ(faults[0].unit, c.typedUnit);
        }
    }
}

TEST(RangeFaults, LeavesOutWhatIsSwitchedOff)
{
    iex::IEXProject project;
    DetailList& water = *project.GetLiquid(0).GetDetails();
    const auto keys = [&] {
        std::vector<std::string> found;
        for (const RangeFault& fault : RangeFaults(project))
            found.push_back(fault.address.key);
        return found;
    };
    using Keys = std::vector<std::string>;
    {
        const ProjectEdit edit(project);
        water.At("liquid/x1.name").SetValue("Lithium");
        water.At("liquid/x1.orig").SetValue(20'000.0);
        water.At("liquid/tds.short").SetValue(-2.0);
        water.At("liquid/co2.orig").SetValue(1e9);
    }
    EXPECT_EQ(keys(), (Keys{"liquid/co2.orig", "liquid/x1.orig"}));
    EXPECT_EQ(RangeFaults(project)[1].label, "Lithium") << "as the user calls it";
    {
        const ProjectEdit edit(project);
        water.At("liquid/analysis.type").SetValue("SHORT_TDS");
        water.At("liquid/calculate.co2").SetValue(true);
    }
    EXPECT_EQ(keys(), (Keys{"liquid/tds.short"}));
    {
        const ProjectEdit edit(project);
        water.At("liquid/tds.short").SetValue(1.0);
        water.At("liquid/alk.dose").SetValue(-1.0);
        water.At("liquid/blend.share").SetValue(101.0);
        project.GetDetails().At("feed/ph").SetValue(15.0);
    }
    EXPECT_EQ(keys(), Keys());
    project.GetDetails().At("feed/adjust.ph").SetValue(true);
    EXPECT_EQ(keys(), (Keys{"feed/ph"}));
}

TEST(RangeFaults, ACalculatedCo2IsNotTyped)
{
    iex::IEXProject project;
    DetailList& water = *project.GetLiquid(0).GetDetails();
    {
        const ProjectEdit edit(project);
        water.At("liquid/calculate.co2").SetValue(true);
        water.At("liquid/hco3.orig").SetValue(600.0);
        water.At("liquid/hco3.unit").SetValue("meq/l");
        water.At("liquid/ph").SetValue(4.4);
    }
    ASSERT_GT(water.At("liquid/co2.mgl").GetDoubleValue(), 100'000.0);
    const auto faults = RangeFaults(project);
    ASSERT_EQ(faults.size(), 1u);
    EXPECT_EQ(faults[0].address.key, "liquid/co2.mgl");
}

TEST(RangeFaults, BicarbonateContradictsAnAcidPh)
{
    iex::IEXProject project;
    DetailList& water = *project.GetLiquid(0).GetDetails();
    const auto type = [&](double pH, const char* ion, double mgPerLitre) {
        const ProjectEdit edit(project);
        water.At("liquid/calculate.co2").SetValue(true);
        water.At("liquid/ph").SetValue(pH);
        water.At("liquid/hco3.orig").SetValue(0.0);
        water.At("liquid/co3.orig").SetValue(0.0);
        water.At(std::string("liquid/") + ion + ".orig").SetValue(mgPerLitre);
    };
    for (const char* ion : {"hco3", "co3"}) {
        type(3.0, ion, 61.0);
        const auto faults = RangeFaults(project);
        ASSERT_EQ(faults.size(), 1u) << ion;
        EXPECT_EQ(faults[0].address, (DetailAddress{project.GetLiquid(0).GetOwner(), "liquid/ph"}));
        EXPECT_EQ(faults[0].limit, 4.3);
        EXPECT_FALSE(faults[0].sentence.empty());
        EXPECT_TRUE(std::isnan(water.At("liquid/co2.mgl").GetDoubleValue())) << "not some 19,000 mg/l";
    }
    type(3.0, "hco3", 0.0);
    EXPECT_TRUE(RangeFaults(project).empty()) << "an acid";
    type(4.5, "hco3", 0.6);
    EXPECT_TRUE(RangeFaults(project).empty());
    EXPECT_GT(water.At("liquid/co2.mgl").GetDoubleValue(), 10.0);
    type(3.0, "hco3", 61.0);
    water.At("liquid/analysis.type").SetValue("SHORT_TDS");
    EXPECT_TRUE(RangeFaults(project).empty()) << "the pH of a short analysis plays no part";
}

TEST(RangeFaults, AnAnalysisWhoseChargesDifferIsTold)
{
    struct BalanceCase
    {
        const char* rule;
        double sodium, chloride;  // meq/l
        const char* key;          // set to the value behind it
        const char* value;
        bool isTold;
        double off, limit;
        const char* unit;
    };
    const BalanceCase cases[]{
        {"SM1030E", 5.0, 4.0, "", "", true, 11.1, 2.0, "%"},
        {"SM1030E", 2.0, 2.5, "", "", true, -0.5, 0.2, "meq/l"},
        {"SM1030E", 2.0, 2.2, "", "", false, 0, 0, ""},
        {"DVWK", 2.0, 2.2, "", "", true, -9.52, 2.0, "%"},
        {"5/10", 5.0, 4.2, "", "", false, 0, 0, ""},
        {"5/10", 5.0, 4.0, "", "", true, 11.1, 10.0, "%"},
        {"SM1030E", 5.0, 4.0, "liquid/balance.auto", "1", false, 0, 0, ""},
        {"SM1030E", 5.0, 4.0, "liquid/analysis.type", "SHORT_TDS", false, 0, 0, ""},
        {"SM1030E", 5.0, 0.0, "", "", false, 0, 0, ""},
        {"SM1030E", 0.0, 0.0, "liquid/ph", "7", false, 0, 0, ""},
        {"SM1030E", 1.0, 2.0, "liquid/ph", "2.9", true, 0.324, 0.2, "meq/l"},
        {"SM1030E", 1.0, 2.3, "liquid/ph", "2.9", false, 0, 0, ""},
    };
    for (const BalanceCase& c : cases) {
        ASSERT_TRUE(Settings::SetFromText("balance.rule", c.rule));
        iex::IEXProject project;
        DetailList& water = *project.GetLiquid(0).GetDetails();
        {
            const ProjectEdit edit(project);
            for (const auto& [ion, meq] : {std::pair("na", c.sodium), std::pair("cl", c.chloride)}) {
                water.At(std::string("liquid/") + ion + ".orig").SetValue(meq);
                water.At(std::string("liquid/") + ion + ".unit").SetValue("meq/l");
            }
            if (*c.key != '\0')
                water.At(c.key).SetValueFromString(c.value);
        }
        const auto faults = RangeFaults(project);
        const std::string what = std::string(c.rule) + " " + c.key;
        ASSERT_EQ(faults.size(), c.isTold ? 1u : 0u) << what << " " << c.sodium << " " << c.chloride;
        if (!c.isTold)
            continue;
        EXPECT_EQ(faults[0].address, (DetailAddress{project.GetLiquid(0).GetOwner(), "liquid/balance.auto"}));
        EXPECT_NEAR(faults[0].value, c.off, 0.006 * std::abs(c.off) + 0.002) << what;
        EXPECT_EQ(faults[0].limit, c.limit) << what;
        EXPECT_EQ(faults[0].unit, c.unit) << what;
        EXPECT_FALSE(faults[0].sentence.empty());
    }
    Settings::Reset("balance.rule");
}

TEST(RangeFaults, KnowsTheEntriesOfTheFeed)
{
    iex::IEXProject project;
    FeedComposition feed;
    for (const char* name : {"first", "second"}) {
        DBObjects::Compound compound;
        compound.name = name;
        compound.formula = "NaCl";
        compound.valency = 1;
        feed.Add(compound);
    }
    feed.SetFeed(0, FeedComposition::Unit::MeqPerLitre, 1.0);
    feed.SetFeed(1, FeedComposition::Unit::MeqPerLitre, -1.0);
    project.SaveFeedCompositionToDetails(feed);
    const auto faults = RangeFaults(project);
    ASSERT_EQ(faults.size(), 1u);
    EXPECT_EQ(faults[0].label, "second");
    EXPECT_EQ(faults[0].address, (DetailAddress{{}, "feedcompound/conc.meql", 1}));

    // In the unit that was typed, also where equivalents cannot hold it.
    feed.SetFeed(1, FeedComposition::Unit::MeqPerLitre, 1.0);
    DBObjects::Compound urea;
    urea.name = "urea";
    urea.formula = "CH4N2O";
    feed.Add(urea);
    feed.SetFeed(2, FeedComposition::Unit::MgPerLitre, -60.0);
    project.SaveFeedCompositionToDetails(feed);
    const auto typed = RangeFaults(project);
    ASSERT_EQ(typed.size(), 1u);
    EXPECT_EQ(typed[0].label, "urea");
    EXPECT_EQ(typed[0].formula, "CH4N2O");
    EXPECT_EQ(typed[0].value, -60.0);
    EXPECT_EQ(typed[0].unit, "mg/l");

    // What only follows from the typed amount is no second fault; an effluent counts while it is used.
    feed.SetFeed(2, FeedComposition::Unit::MgPerLitre, 60.0);
    feed.SetFeed(1, FeedComposition::Unit::MgPerLitre, -58.4);
    project.SaveFeedCompositionToDetails(feed);
    ASSERT_EQ(RangeFaults(project).size(), 1u);
    EXPECT_EQ(RangeFaults(project)[0].address.key, "feedcompound/conc.typed");
    DetailGroup group = *project.GetDetailGroups("feedcompound")->front();
    for (DetailData& detail : group) {
        if (detail.GetName() == "feedcompound/conc.effluent.meql")
            detail.SetValue(-1.0);
    }
    project.SetDetailGroups("feedcompound", {group});
    EXPECT_TRUE(RangeFaults(project).empty());
    project.GetDetails().At("feed/use.effluent").SetValue(true);
    EXPECT_EQ(RangeFaults(project).size(), 1u);
}

}  // namespace
