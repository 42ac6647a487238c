// SPDX-License-Identifier: MIT
// Limits ahead of resins: where each begins, for which plant, and what the user and the laboratory make of
// it.
#include "projectbase/advice/resin_limits.h"

#include "projectbase/project/iex_project.h"
#include "projectbase/settings/settings.h"
#include "tests/support/advice_fixture.h"
#include "tests/support/plant_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>
#include <tuple>

using support::Ids;
using support::On;
using support::Put;

namespace {

/// A limit ahead of the resins of a plant, with the figures of practice and of the regulations.
struct LimitCase
{
    const char* type;
    const char* resin;  ///< of the last exchanger; empty for the usual one
    const char* key;
    const char* id;
    double note;
    double warn;
};
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr const char* kIron = "liquid/fe.total";
constexpr const char* kManganese = "liquid/mn.orig";
constexpr const char* kChlorine = "liquid/cl.free";
constexpr const char* kTurbidity = "liquid/turbidity";
constexpr const char* kSolids = "liquid/tss";
constexpr const char* kOil = "liquid/oil";
constexpr const char* kOrganic = "liquid/toc";
constexpr const char* kSulfide = "liquid/h2s";

constexpr LimitCase kLimitCases[]{
    {"SOFT", "", kIron, "fe.soft", 0.3, kNone},
    {"DEMI", "", kIron, "fe.demi", 0.1, 0.3},
    {"DEALK", "", kIron, "fe.demi", 0.1, 0.3},
    {"MB", "", kIron, "fe.polish", 0.05, 0.1},
    {"CP", "", kIron, "fe.polish", 0.05, 0.1},
    {"SOFT", "", kManganese, "mn.soft", 0.1, kNone},
    {"DEMI", "", kManganese, "mn.demi", 0.05, 0.1},
    {"MB", "", kManganese, "mn.polish", 0.02, 0.05},
    {"SOFT", "", kChlorine, "cl.gel", 0.2, 1.0},
    {"SOFT", "wac_acrylic", kChlorine, "cl.macro", 0.3, 1.0},
    {"DEMI", "", kChlorine, "cl.strong", 0.1, kNone},
    {"DEMI", "wba_styrenic", kChlorine, "cl.weak", 0.05, kNone},
    {"DEALK", "", kChlorine, "cl.weak", 0.05, kNone},
    {"MB", "", kChlorine, "cl.polish", 0.1, 0.2},
    {"SOFT", "", kTurbidity, "turbidity.soft", 2.0, 5.0},
    {"DEMI", "", kTurbidity, "turbidity.demi", 1.0, 2.0},
    {"MB", "", kTurbidity, "turbidity.polish", 0.5, 1.0},
    {"SOFT", "", kSolids, "tss.soft", 5.0, 10.0},
    {"DEMI", "", kSolids, "tss.demi", 2.0, 5.0},
    {"MB", "", kSolids, "tss.polish", 0.5, 1.0},
    {"SOFT", "", kOil, "oil.soft", 0.5, 1.0},
    {"DEMI", "", kOil, "oil.demi", 0.05, 0.1},
    {"MB", "", kOil, "oil.polish", 0.02, 0.05},
    {"DEMI", "", kOrganic, "toc.gel", 2.0, 4.0},
    {"DEMI", "sba_2", kOrganic, "toc.gel", 2.0, 4.0},
    {"DEMI", "sba_acrylic", kOrganic, "toc.open", 4.0, 8.0},
    {"MB", "", kOrganic, "toc.polish", 0.5, 1.0},
    {"SOFT", "", kSulfide, "h2s.soft", 0.5, 1.0},
    {"DEMI", "", kSulfide, "h2s.demi", 0.1, 0.5},
    {"MB", "", kSulfide, "h2s.polish", 0.05, 0.1},
};

void ChooseResin(iex::IEXProject& project, const std::string& resin)
{
    if (resin.empty())
        return;
    const std::string last = "ex." + std::to_string(project.NumberSteps());
    Put(project, last + ".comp.1.resin.1", "compcomp/resin", resin);
}

}  // namespace

TEST(ResinLimits, EveryLimitBeginsWhereItStands)
{
    std::set<std::string> judged{"femn.soft", "femn.demi"};  // below
    for (const LimitCase& c : kLimitCases) {
        SCOPED_TRACE(std::string(c.type) + " " + c.resin + " " + c.id);
        judged.insert(c.id);
        iex::IEXProject project(c.type);
        ChooseResin(project, c.resin);
        const std::string note = std::string("limit.") + c.id;
        const auto idsAt = [&](double amount) {
            Put(project, "water.1", c.key, amount);
            return Ids(project, "limit.");
        };
        EXPECT_EQ(idsAt(c.note), "") << "the figure itself is in order";
        EXPECT_EQ(idsAt(1.001 * c.note), note);
        if (std::isnan(c.warn)) {
            EXPECT_EQ(idsAt(3.0 * c.note), note) << "never a warning";
            continue;
        }
        EXPECT_EQ(idsAt(c.warn), note);
        EXPECT_EQ(idsAt(1.001 * c.warn), note + "!");
    }
    for (const advice::LimitRow& row : advice::LimitRows())
        EXPECT_TRUE(judged.contains(row.id)) << row.id << " has no case";
    iex::IEXProject softener("SOFT");
    Put(softener, "water.1", kOrganic, 900.0);
    EXPECT_EQ(Ids(softener, "limit."), "") << "organic matter does no harm to cation resins";
}

TEST(ResinLimits, LimitsOfAnionResinsNeedOne)
{
    iex::IEXProject weakAcidAlone("DEALK");
    Put(weakAcidAlone, "water.1", kOrganic, 900.0);
    Put(weakAcidAlone, "water.1", "liquid/cl.free", 0.2);
    Put(weakAcidAlone, "water.1", kManganese, 0.04);
    Put(weakAcidAlone, "water.1", kIron, 2.0);
    EXPECT_EQ(Ids(weakAcidAlone, "limit."), "limit.fe.demi! limit.cl.weak");
}

TEST(ResinLimits, IronAndManganeseTogetherWarnAtTheFigureItself)
{
    constexpr double kLittle = 0.04;  // mg/l of manganese, which no limit of its own forbids
    for (const auto& [type, id, limit] :
         {std::tuple("SOFT", "limit.femn.soft!", 1.0), {"DEMI", "limit.femn.demi!", 0.5}}) {
        iex::IEXProject project(type);
        Put(project, "water.1", kManganese, kLittle);
        Put(project, "water.1", kIron, 0.999 * limit - kLittle);
        EXPECT_EQ(Ids(project, "limit.femn"), "") << type;
        Put(project, "water.1", kIron, limit - kLittle);
        EXPECT_EQ(Ids(project, "limit.femn"), id);
    }
    iex::IEXProject mixedBed("MB");
    Put(mixedBed, "water.1", kManganese, kLittle);
    Put(mixedBed, "water.1", kIron, 2.0);
    EXPECT_EQ(Ids(mixedBed, "limit.femn"), "") << "the metals have their own, lower limits";
}

TEST(ResinLimits, LimitsFollowTheResinsAndTheUser)
{
    iex::IEXProject demi("DEMI");
    Put(demi, "water.1", "liquid/cl.free", 0.08);
    EXPECT_EQ(Ids(demi), "") << "strong resins stand 0.1";
    demi.AddStep("WBA", 1);
    EXPECT_EQ(Ids(demi), "limit.cl.weak");
    Put(demi, "water.1", "liquid/cl.free", 0.0);
    Put(demi, "water.1", "liquid/toc", 3.0);
    EXPECT_EQ(Ids(demi), "limit.toc.gel");
    Put(demi, "ex.3.comp.1.resin.1", "compcomp/resin", std::string("sba_acrylic"));
    EXPECT_EQ(Ids(demi), "") << "acrylic stands more";
    ASSERT_TRUE(Settings::SetFromText("limit.toc.open.warn", "2.5"));
    EXPECT_EQ(Ids(demi), "limit.toc.open!");
    EXPECT_EQ(On(demi).front().usual, 8.0);
    ASSERT_TRUE(Settings::SetFromText("limit.toc.open.warn", ""));
    ASSERT_TRUE(Settings::SetFromText("limit.toc.open.note", ""));
    EXPECT_EQ(Ids(demi), "") << "no limit at all";
    Settings::Reset();

    // A bed under a float is packed, and no backwash frees it of solids; one on a layer is none.
    Put(demi, "water.1", "liquid/toc", 0.8);
    OwnerNode& compartment = *demi.FindOwner("ex.1.comp.1");
    const auto addInert = [&](std::size_t position) {
        const ProjectEdit edit(demi);
        OwnerNode& layer =
            demi.AddOwner(compartment, std::make_shared<OwnerNode>(OwnerKind::Resin), position);
        layer.GetDetails()->At("compcomp/resin").SetValue("inert");
    };
    addInert(0);
    EXPECT_EQ(Ids(demi), "");
    addInert(2);
    EXPECT_EQ(Ids(demi), "limit.toc.polish");
    demi.RemoveOwner(*demi.FindOwner("ex.1.comp.1.resin.3"));
    EXPECT_EQ(Ids(demi), "");

    // A water that does not feed the plant, and one without a plant, have the mildest limits.
    Put(demi, "water.1", "liquid/toc", 0.0);
    demi.AddLiquid("Other");
    Put(demi, "water.2", "liquid/turbidity", 1.5);
    EXPECT_TRUE(On(demi, 1).empty());
    Put(demi, "water.1", "liquid/turbidity", 1.5);
    EXPECT_EQ(Ids(demi), "limit.turbidity.demi");
}

TEST(ResinLimits, ZeroThatNobodyTypedIsMissing)
{
    iex::IEXProject project("DEMI");
    EXPECT_EQ(Ids(project), "");
    Put(project, "water.1", "liquid/fe2.orig", 0.2);
    EXPECT_EQ(Ids(project), "limit.fe.demi") << "without a total, iron(II) is at least there";
    Put(project, "water.1", "liquid/fe.total", 0.0);
    EXPECT_EQ(Ids(project), "") << "none was found, and that was typed";
    Put(project, "water.1", "liquid/fe.total", std::nan(""));
    Put(project, "water.1", "liquid/fe2.orig", 0.0);
    Put(project, "water.1", "liquid/mn.orig", 0.6);
    EXPECT_EQ(Ids(project), "limit.mn.demi!") << "without iron there is no sum";
    Put(project, "water.1", "liquid/fe.total", 0.25);
    Put(project, "water.1", "liquid/mn.orig", 0.3);
    EXPECT_EQ(Ids(project), "limit.mn.demi! limit.femn.demi! limit.fe.demi") << "warnings stand first";
}

TEST(ResinLimits, OneMetalAloneHasOneAdviceTheStricterOne)
{
    struct Case
    {
        const char* plant;
        double iron;
        double manganese;
        const char* ids;
        const char* labels;
    };
    const double none = std::nan("");
    const Case cases[] = {
        {"SOFT", 0.5, none, "limit.fe.soft", "Iron"},
        {"SOFT", 1.0, 0.0, "limit.femn.soft!", "Iron"},
        {"SOFT", none, 1.0, "limit.femn.soft!", "Manganese"},
        {"SOFT", 0.0, 0.5, "limit.mn.soft", "Manganese"},
        {"SOFT", 0.96, 0.04, "limit.femn.soft! limit.fe.soft", "Iron and manganese, Iron"},
        {"SOFT", 0.96, 0.03, "limit.fe.soft", "Iron"},
        {"DEMI", 0.6, none, "limit.fe.demi!", "Iron"},
        {"DEMI", 0.46, 0.04, "limit.fe.demi! limit.femn.demi!", "Iron, Iron and manganese"}};
    for (const Case& c : cases) {
        iex::IEXProject project(c.plant);
        Put(project, "water.1", "liquid/fe.total", c.iron);
        Put(project, "water.1", "liquid/mn.orig", c.manganese);
        EXPECT_EQ(Ids(project), c.ids) << c.iron << " " << c.manganese;
        std::string labels;
        for (const advice::Advice& each : On(project))
            labels += (labels.empty() ? "" : ", ") + std::string(each.label);
        EXPECT_EQ(labels, c.labels) << c.iron << " " << c.manganese;
    }
}

TEST(ResinLimits, WhatPracticeSaysIsCalledUsualAndWhatADocumentStatesIsCited)
{
    const struct
    {
        const char* plant;
        const char* key;
        double amount;
        const char* source;
    } cases[] = {{"SOFT", "liquid/turbidity", 3.0, "Practice"},
                 {"SOFT", "liquid/turbidity", 6.0, "Recommended Standards"},
                 {"SOFT", kChlorine, 0.5, "Ion exchange handbook"},
                 {"SOFT", kChlorine, 1.5, "Practice"},
                 {"DEMI", kChlorine, 0.2, "Ion exchange handbook"},
                 {"MB", kChlorine, 0.15, "Practice"}};
    for (const auto& [plant, key, amount, source] : cases) {
        iex::IEXProject project(plant);
        Put(project, "water.1", key, amount);
        const std::vector<advice::Advice> advice = On(project);
        ASSERT_EQ(advice.size(), 1U);
        EXPECT_THAT(std::string(advice[0].source), testing::StartsWith(source)) << plant << amount;
        EXPECT_EQ(std::string(advice[0].sentence).find("usual") != std::string::npos,
                  std::string_view(source) == "Practice")
            << plant << amount;
    }
}

TEST(ResinLimits, LimitsOfDetectionSayNothing)
{
    iex::IEXProject project("DEMI");
    for (const auto& [key, amount] : {std::pair("liquid/fe.total", 5.0),
                                      {"liquid/mn.orig", 2.0},
                                      {"liquid/cl.free", 3.0},
                                      {"liquid/oil", 0.2},
                                      {"liquid/turbidity", 20.0}}) {
        Put(project, "water.1", key, amount);
        EXPECT_NE(Ids(project), "") << key;
        Put(project, "water.1", key, -amount);
        EXPECT_EQ(Ids(project), "") << key;
    }
    Put(project, "water.1", "liquid/fe2.orig", 5.0);
    Put(project, "water.1", "liquid/fe.total", -0.01);
    EXPECT_EQ(Ids(project), "") << "the total was looked for";
    iex::IEXProject gypsum;
    support::SetWater(gypsum, {{"ca", 60.0}, {"so4", 55.0}, {"cl", 5.0}});
    Put(gypsum, "water.1", "liquid/ph", 7.0);
    EXPECT_NE(Ids(gypsum), "");
    Put(gypsum, "water.1", "liquid/so4.orig", -110.0);
    EXPECT_EQ(Ids(gypsum), "") << "as much is counted, and nothing was found";
}
