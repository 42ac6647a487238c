// SPDX-License-Identifier: MIT
// What "--set" does to values: units, addresses, limits, and what it refuses.
#include "tests/app/command_line/calc_fixture.h"

#include <fmt/format.h>

namespace {

using calc_test::Calc;
using calc_test::Result;
using testing::HasSubstr;

TEST_F(Calc, SetsValuesInTheirUnits)
{
    const struct
    {
        const char* setting;
        const char* name;
        const char* value;
        std::size_t water;
    } cases[] = {
        {"na=2meq/l", "liquid/na.meql", "2", 0},
        {"na=45.98", "liquid/na.meql", "2", 0},
        {"liquid/na.orig=2 meq/l", "liquid/na.mgl", "45.98", 0},
        {"1:na.orig=22.99", "liquid/na.meql", "1", 1},
        {"ca=2\u00b0f", "liquid/ca.meql", "0.4", 0},
        {"mg=+1e1mgCaCO3/l", "liquid/mg.meql", "0.2", 0},
        {"temp=68\u00b0F", "liquid/temp", "20", 0},
        {"alkalinity.m=125mgCaCO3/l", "liquid/hco3.meql", "2.5", 0},
        {"alkalinity.m=1.5", "liquid/alkalinity.m", "1.5", 0},
        {"mg=1.5meq/l", "liquid/hardness.total", "1.5", 0},
        {"temp.orig=293.15 K", "liquid/temp", "20", 0},
        {"temp=20", "liquid/temp", "20", 0},
        {"ph=7.5", "liquid/ph", "7.5", 0},
        {"ph=", "liquid/ph", "null", 0},
        {"tss=5mg/l", "liquid/tss", "5", 0},
        {"x1.name=Li=1", "liquid/x1.name", "\"Li=1\"", 0},
        {"balance.auto=true", "liquid/balance.auto", "true", 0},
        {"na.unit=ppm", "liquid/na.unit", "\"ppm\"", 0},
        {"analysis.type=SHORT_TDS", "liquid/analysis.type", "\"SHORT_TDS\"", 0},
    };
    for (const auto& row : cases) {
        const Result result = RunSet(row.setting);
        EXPECT_EQ(result.code, 0) << row.setting << ": " << result.err;
        EXPECT_EQ(Value(result, row.name, row.water), row.value) << row.setting;
    }
    EXPECT_THAT(RunSet("project/title=New").out, HasSubstr("\"project/title\": {\"value\": \"New\"}"));
}

TEST_F(Calc, RefusesWhatItCannotSet)
{
    const struct
    {
        const char* setting;
        int code;
    } cases[] = {
        {"na", 2},
        {"=5", 2},
        {"x:na=5", 2},
        {":na=5", 2},
        {"-1:na=5", 2},
        {"1:=5", 2},
        {"7:na=5", 1},
        {"water:na=5", 2},
        {"water.1.:na=5", 2},
        {"water.9:na=5", 1},
        {"ex.1:v.max=5", 1},
        {"water.1:ph=7", 0},
        {"gold=5", 1},
        {"na=abc", 1},
        {"na=1,5", 1},
        {"na=1e400", 1},
        {"na=nan", 1},
        {"na=-inf", 1},
        {"na=5furlong", 1},
        {"ph=7pH", 1},
        {"na.meql=1", 1},
        {"tds=100", 1},
        {"balance.auto=2", 1},
        {"na.unit=oz", 1},
        {"h.plus=1mg/l", 1},
        {"temp=5mg/l", 1},
        {"tss=5psi", 1},
        {"analysis.type=LONG", 1},
        {"alk.mode=FOO", 1},
        {"project/nlines=2.5", 1},
        {"feed/medium=99999999999999999999", 1},
        {"feed/medium=99", 1},
        {"feed/medium=0", 1},
        {"feed/medium=16", 0},
        {"alk.mode=", 1},
        {"alk.type=koh", 1},
        {"alk.type=", 0},
        {"feed/organics=peat", 1},
        {"na=", 0},
        {"x1.name=\xff\xfe", 1},
        {"na=+-5", 1},
    };
    for (const auto& row : cases) {
        const Result result = RunSet(row.setting);
        EXPECT_EQ(result.code, row.code) << row.setting << ": " << result.err;
        EXPECT_EQ(result.out.empty(), row.code != 0) << row.setting;
        EXPECT_EQ(result.err.empty(), row.code == 0) << row.setting;
    }
}

TEST_F(Calc, WarnsOfValuesOutOfTheirLimits)
{
    const Result result = Run({m_path, "--set", "ph=15", "--set=temp=-20"});
    EXPECT_EQ(result.code, 0);
    EXPECT_THAT(result.err, HasSubstr("Feed water: pH 15 is above the maximum of 14"));
    EXPECT_THAT(result.err,
                HasSubstr("Feed water: Temperature -20 \u00b0C is below the minimum of 0 \u00b0C"));
}

TEST_F(Calc, WhatIsTypedStaysAlsoWhereItStoodThereBefore)
{
    iex::IEXProject plant("DEMI");
    plant.GetDetails().At("project/qbrutto").SetValue(30.0);
    plant.GetDetails().At("project/lz").SetValue(16.0);
    plant.GetLiquid(0).GetDetails()->At("liquid/ca.orig").SetValue(60.0);
    OwnerNode& row = *plant.FindOwner("ex.1.seq.3");
    row.GetDetails()->At("regseqstep/t").SetValue(0.5);
    row.GetDetails()->At("regseqstep/vol.bv").SetValue(2.0);
    const double time = row.GetDetails()->At("regseqstep/t").GetDoubleValue();
    const double diameter = plant.GetStep(0).GetDetails()->At("step/diameter").GetDoubleValue();
    const std::string path = (m_folder / "plant.tarnvik").string();
    ProjectFile::Save(plant, path);
    const auto set = [](const std::string& key, double value) { return fmt::format("{}={}", key, value); };
    const Result flow = Run({path, "--json", "--set", "project/qbrutto=30", "--set", "project/wbrutto=300"});
    EXPECT_THAT(flow.out, HasSubstr("\"project/lz\": {\"value\": 10,"));
    const Result rinse = Run({path, "--json", "--set", set("ex.1.seq.3:regseqstep/t", time), "--set",
                              "ex.1.seq.3:regseqstep/q=10"});
    EXPECT_THAT(rinse.out, HasSubstr(fmt::format("\"regseqstep/vol\": {{\"value\": {},", 10.0 * time)));
    const Result vessel =
        Run({path, "--json", "--set", set("ex.1:step/diameter", diameter), "--set", "project/qbrutto=90"});
    EXPECT_THAT(vessel.out, HasSubstr(fmt::format("\"step/diameter\": {{\"value\": {},", diameter)));
    const Result free =
        Run({path, "--json", "--set", "ex.1:step/diameter=3", "--set", "ex.1:step/diameter="});
    EXPECT_EQ(free.code, 0) << free.err;
    EXPECT_THAT(free.out, HasSubstr(fmt::format("\"step/diameter\": {{\"value\": {},", diameter)));
}

TEST_F(Calc, SetsValuesOfEveryPartOfAPlantAndReadsThemBack)
{
    iex::IEXProject plant("MB");
    plant.AddLiquid("Second");
    LiquidData& blend = plant.AddLiquid("Third");
    {
        const ProjectEdit edit(plant);
        blend.FindDetail("liquid/blend.first")->SetValue(plant.GetLiquid(0).GetName());
        blend.FindDetail("liquid/blend.second")->SetValue("Second");
    }
    FeedComposition feed;
    DBObjects::Compound urea;
    urea.name = "urea";
    urea.formula = "CH4N2O";
    feed.Add(urea);
    feed.SetFeed(0, FeedComposition::Unit::MgPerLitre, 60.0);
    plant.SaveFeedCompositionToDetails(feed);
    const std::string path = (m_folder / "plant.tarnvik").string();
    ProjectFile::Save(plant, path);
    const Result set =
        Run({path, "--json", "--set", "ex.1.comp.2:stepcomp/level=80", "--set",
             "ex.1.comp.2.resin.1:resin=sba_1", "--set", "project/qbrutto=20", "--set", "project/lz=12",
             "--set", "water.1:na=10meq/l", "--set", "project/title=", "--set", "ex.1:v.max=500"});
    ASSERT_EQ(set.code, 0) << set.err;
    EXPECT_EQ(Value(set, "stepcomp/level", 6), "80");
    EXPECT_THAT(set.out, HasSubstr("\"project/wbrutto\": {\"value\": 240,"))
        << "what follows from flow and time";
    EXPECT_THAT(set.out, HasSubstr("\"address\": \"ex.1:step/v.max\""));
    EXPECT_EQ(Run({path, "--set", "ex.1.comp.1:stepcomp/load=5"}).code, 1) << "derived";
    EXPECT_EQ(Run({path, "--set", "water.3:na=5"}).code, 1) << "a blend is what its waters make it";
    EXPECT_EQ(Run({path, "--set", "x1=5"}).code, 1) << "an ion without a name";
    // The text is a project: printed again it is the same.
    support::WriteBytes(m_folder / "plant.json", set.out);
    const Result again = Run({(m_folder / "plant.json").string(), "--json"});
    ASSERT_EQ(again.code, 0) << again.err;
    EXPECT_EQ(again.out.substr(again.out.find("\"module\"")), set.out.substr(set.out.find("\"module\"")));
    EXPECT_THAT(again.out, HasSubstr("\"feedcompound/conc.typed\": {\"value\": 60}"));

    for (const char* text : {"", "[", "{}", "{\"module\": \"nonsense\"}", "[[[[[[[[[[",
                             "{\"module\": \"iex\", \"project\": {\"project/title\": {\"value\": []}}}",
                             "{\"module\": \"iex\", \"project\": {\"project/nlines\": {\"value\": 1.5}}}",
                             "{\"module\": \"iex\", \"project\": {\"project/lz\": {\"value\": 1, "
                             "\"unit\": \"min\"}}}",
                             "{\"module\": \"iex\", \"unitSystem\": \"cgs\"}"}) {
        support::WriteBytes(m_folder / "bad.json", text);
        const Result bad = Run({(m_folder / "bad.json").string()});
        EXPECT_EQ(bad.code, 1) << text;
        EXPECT_EQ(bad.out, "");
    }
}

}  // namespace
