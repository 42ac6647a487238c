// SPDX-License-Identifier: MIT
#include "projectbase/advice/water_advice.h"

#include "projectbase/advice/resin_limits.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/settings/settings.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <tuple>

using advice::Severity;
using support::Put;

namespace {

std::vector<advice::Advice> On(const Project& project, std::size_t water = 0)
{
    return advice::AdviceOn(project, project.GetLiquid(water));
}

/// "baso4! caustic" with a mark behind warnings.
std::string Ids(const Project& project, std::string_view beginning = {})
{
    std::string ids;
    for (const advice::Advice& advice : On(project)) {
        if (advice.id.starts_with(beginning))
            ids += (ids.empty() ? "" : " ") + advice.id + (advice.severity == Severity::Warn ? "!" : "");
    }
    return ids;
}

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
    OwnerNode* anion = project.FindOwner("ex.2");
    ASSERT_EQ(anion->GetDetails()->At("step/kind").GetStdStringValue(), "SBA");
    for (const auto& row : anion->GetChildren(OwnerKind::SequenceRow)) {
        if (row->GetDetails()->At("regseqstep/type").GetStdStringValue() == "REGSEQ_DISP")
            row->GetDetails()->At("regseqstep/medium").SetValue("REGSEQ_RAW_WATER");
    }
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

TEST(WaterAdvice, EveryLimitBeginsWhereItStands)
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

TEST(WaterAdvice, IronAndManganeseTogetherWarnAtTheFigureItself)
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

TEST(WaterAdvice, LimitsFollowTheResinsAndTheUser)
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

TEST(WaterAdvice, ZeroThatNobodyTypedIsMissing)
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
    EXPECT_EQ(Ids(project), "limit.fe.demi limit.mn.demi! limit.femn.demi!");
}

TEST(WaterAdvice, OneMetalAloneHasOneAdviceTheStricterOne)
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
        {"SOFT", 0.96, 0.04, "limit.fe.soft limit.femn.soft!", "Iron, Iron and manganese"},
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

TEST(WaterAdvice, LimitsOfDetectionSayNothing)
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
