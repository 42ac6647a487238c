// SPDX-License-Identifier: MIT
#include "projectbase/project/range_faults.h"
#include "tests/support/plant_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using support::Put;

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

std::unique_ptr<iex::IEXProject> MakePlant(const char* type = "DEMI")
{
    auto project = std::make_unique<iex::IEXProject>(type);
    support::SetWater(*project, {{"ca", 2.5}, {"na", 1.0}, {"hco3", 2.5}, {"cl", 1.0}, {"sio2", 0.1}});
    support::SetFlow(*project);
    return project;
}

std::vector<std::string> Addresses(const Project& project)
{
    std::vector<std::string> addresses;
    for (const RangeFault& fault : RangeFaults(project))
        addresses.push_back(project.PathOf(fault.address.owner) + ":" + fault.address.key);
    return addresses;
}

TEST(DesignFaults, TellWhatBedsAndResinsDoNotStandAndWhere)
{
    struct Case
    {
        const char* owner;
        const char* key;
        double value;
        const char* address;
        double told;
        double limit;
    };
    const Case cases[] = {
        // 20 m³/h on 0.1963 m²
        {"ex.1", "step/diameter", 0.5, "ex.1:step/v", 101.86, 40.0},
        {"ex.1", "step/bed.min", 9.0, "ex.1:step/bed.depth", 1.649, 9.0},
        {"ex.1.comp.1.resin.1", "compcomp/vol.actual", 5.0, "ex.1:step/dp", 3.615, 1.5},
        {"ex.1.comp.1.resin.1", "compcomp/vol.actual", 0.4, "ex.1:step/run.time", 5.791, 12.0},
        {"ex.1.comp.1", "stepcomp/level", 39.0, "ex.1.comp.1:stepcomp/level", 39.0, 40.0},
        {"ex.2.comp.1", "stepcomp/level", 71.0, "ex.2.comp.1:stepcomp/level", 71.0, 70.0},
        {"ex.2.comp.1", "stepcomp/rm.temp", 61.0, "ex.2.comp.1:stepcomp/rm.temp", 61.0, 60.0},
        {"ex.1.comp.1", "stepcomp/rm.konz", 34.0, "ex.1.comp.1:stepcomp/rm.konz", 34.0, 33.0},
        {"ex.1.comp.1", "stepcomp/konz.d", 31.0, "ex.1.comp.1:stepcomp/konz.d", 31.0, 30.0},
        {"water.1", "liquid/temp.orig", 70.0, "ex.2.comp.1.resin.1:compcomp/resin", 70.0, 60.0},
    };
    const auto project = MakePlant();
    EXPECT_EQ(Addresses(*project), std::vector<std::string>());
    for (const auto& [owner, key, value, address, told, limit] : cases) {
        const auto plant = MakePlant();
        Put(*plant, owner, key, value);
        const auto faults = RangeFaults(*plant);
        const auto found = std::ranges::find_if(faults, [&](const RangeFault& fault) {
            return plant->PathOf(fault.address.owner) + ":" + fault.address.key == address;
        });
        ASSERT_NE(found, faults.end()) << address;
        EXPECT_NEAR(found->value, told, 2e-3 * told) << address;
        EXPECT_EQ(found->limit, limit) << address;
        EXPECT_FALSE(found->sentence.empty());
    }
}

TEST(DesignFaults, TheLowerVelocityLimitIsToldOnce)
{
    const auto project = MakePlant();
    Put(*project, "ex.2.comp.1.resin.1", "compcomp/resin", "sba_2");
    Put(*project, "ex.2", "step/v.max", 90.0);
    Put(*project, "ex.2", "step/diameter", 0.6);
    const auto faults = RangeFaults(*project);
    const auto isVelocity = [](const RangeFault& fault) { return fault.address.key == "step/v"; };
    ASSERT_EQ(std::ranges::count_if(faults, isVelocity), 1);
    EXPECT_EQ(std::ranges::find_if(faults, isVelocity)->limit, 60.0);
}

TEST(DesignFaults, ALevelOfAWeakResinIsHeldAgainstItsLoad)
{
    const auto project = MakePlant("DEALK");
    EXPECT_EQ(Addresses(*project), std::vector<std::string>{"ex.1:step/bed.depth"});
    Put(*project, "ex.1", "step/v.max", 30.0);
    Put(*project, "ex.1", "step/bed.min", 0.4);
    EXPECT_EQ(Addresses(*project), std::vector<std::string>());
    Put(*project, "ex.1.comp.1", "stepcomp/level", 80.0);
    const auto faults = RangeFaults(*project);
    ASSERT_EQ(faults.size(), 1u);
    EXPECT_EQ(faults[0].address.key, "stepcomp/level");
    // 110 % of 1.75 eq/l of which nine tenths are used, at 36.46 g/eq.
    EXPECT_NEAR(faults[0].limit, 1.10 * 1.75 * 0.9 * 36.46, 1e-6);
}

TEST(DesignFaults, ADoseThatTheLoadNeedsMoreOf)
{
    const auto project = MakePlant();
    Put(*project, "ex.1.comp.1", "stepcomp/capacity.typed", 1.9);
    // 36.46 g/eq times 1.9 eq/l and nine tenths need 62.3 kg/m³.
    EXPECT_EQ(Addresses(*project), std::vector<std::string>{"ex.1.comp.1:stepcomp/rb.ratio"});
    Put(*project, "ex.1.comp.1", "stepcomp/level", 63.0);
    EXPECT_EQ(Addresses(*project), std::vector<std::string>());
}

TEST(DesignFaults, ABackwashThatCarriesTheBeadsOut)
{
    const auto project = MakePlant();
    Put(*project, "ex.2.seq.1", "regseqstep/v", 30.0);
    EXPECT_EQ(Addresses(*project), std::vector<std::string>());
    Put(*project, "ex.2.seq.1", "regseqstep/v", 60.0);
    EXPECT_EQ(Addresses(*project), std::vector<std::string>{"ex.2.seq.1:regseqstep/v"});
}

TEST(DesignFaults, SaysWhyNothingFollows)
{
    const auto project = MakePlant();
    Put(*project, "ex.1.comp.1", "stepcomp/konz.d2", 35.0);
    EXPECT_EQ(Addresses(*project), std::vector<std::string>()) << "there is no second dilution";
    Put(*project, "ex.1.comp.1", "stepcomp/rm.progressive", true);
    EXPECT_EQ(Addresses(*project), std::vector<std::string>{"ex.1.comp.1:stepcomp/konz.d2"});
    Put(*project, "ex.1.comp.1", "stepcomp/rm.progressive", false);

    Put(*project, "", "project/water", 2L);
    EXPECT_EQ(Addresses(*project), std::vector<std::string>{":project/water"});
    Put(*project, "", "project/water", 1L);

    // A strong-base resin takes no acid.
    Put(*project, "ex.2.comp.1", "stepcomp/rm.chemical", "HCL");
    EXPECT_TRUE(std::isnan(support::Get(*project, "ex.2.comp.1.resin.1", "compcomp/vol")));
    EXPECT_EQ(Addresses(*project).front(), "ex.2.comp.1:stepcomp/rm.chemical");
    Put(*project, "ex.2.comp.1", "stepcomp/rm.chemical", "NAOH");

    // Installed beds whose regeneration takes more than a short run makes.
    Put(*project, "ex.1.comp.1.resin.1", "compcomp/vol.actual", 1.0);
    Put(*project, "ex.2.comp.1.resin.1", "compcomp/vol.actual", 1.0);
    Put(*project, "", "project/lz", 0.2);
    EXPECT_TRUE(std::isnan(support::Get(*project, "", "project/wnetto")));
    const auto faults = RangeFaults(*project);
    const auto found = std::ranges::find_if(
        faults, [](const RangeFault& fault) { return fault.address.key == "project/wbrutto"; });
    ASSERT_NE(found, faults.end());
    EXPECT_EQ(found->limit, 4.0);
    EXPECT_GT(found->value, found->limit);
}

TEST(DesignFaults, WhatIsNotKnownBreaksNoRule)
{
    const auto project = MakePlant();
    Put(*project, "", "project/qbrutto", kUnknown);
    Put(*project, "", "project/wbrutto", kUnknown);
    Put(*project, "ex.1.comp.1", "stepcomp/level", kUnknown);
    Put(*project, "water.1", "liquid/temp.orig", kUnknown);
    EXPECT_EQ(Addresses(*project), std::vector<std::string>());
}

}  // namespace
