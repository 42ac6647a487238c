// SPDX-License-Identifier: MIT
#include "app/command_line/calc_command.h"

#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_file.h"
#include "tests/support/locale_scope.h"
#include "tests/support/temp_folder.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <nlohmann/json.hpp>
#include <sstream>

namespace {

using testing::ContainsRegex;
using testing::HasSubstr;

struct Result
{
    int code = -1;
    std::string out;
    std::string err;
};

class Calc : public testing::Test
{
protected:
    void SetUp() override
    {
        iex::IEXProject project;
        project.GetDetails().At("project/title").SetValue("A \"quoted\"\ttitle \u00e4\\");
        project.AddLiquid("Second water");
        DetailList& details = *project.GetLiquid(0).GetDetails();
        details.At("liquid/na.orig").SetValue(22.99);
        details.At("liquid/cl.orig").SetValue(35.45);
        ProjectFile::Save(project, m_path);
    }

    Result Run(std::vector<std::string> args) const
    {
        const std::string before = support::ReadBytes(m_path);
        std::ostringstream out;
        std::ostringstream err;
        Result result;
        result.code = app::RunCalc(args, out, err);
        result.out = out.str();
        result.err = err.str();
        EXPECT_EQ(support::ReadBytes(m_path), before);
        return result;
    }
    Result RunSet(const std::string& setting) const { return Run({m_path, "--json", "--set", setting}); }

    /// The value of a detail of a water in the JSON text; the text itself when it has none.
    static std::string Value(const Result& result, const std::string& name, std::size_t water = 0)
    {
        std::size_t start = result.out.find("\"liquids\"");
        for (std::size_t i = 0; i <= water; ++i)
            start = result.out.find("\"details\"", start + 1);
        const std::string key = '"' + name + "\": {\"value\": ";
        const std::size_t found = result.out.find(key, start);
        if (start == std::string::npos || found == std::string::npos)
            return result.out + result.err;
        return result.out.substr(found + key.size(),
                                 result.out.find_first_of(",}", found) - found - key.size());
    }

    support::TempFolder m_folder;
    std::string m_path = (m_folder / "plant.tarnvik").string();
};

TEST_F(Calc, PrintsATableOfWhatIsThere)
{
    const Result result = Run({m_path});
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_THAT(result.out, HasSubstr("Feed water\n"));
    EXPECT_THAT(result.out, HasSubstr("\nSecond water\n"));
    EXPECT_THAT(result.out, ContainsRegex("\n  Na +1 +22.99\n"));
    EXPECT_THAT(result.out, ContainsRegex("\n  pH +- *\n"));
    EXPECT_EQ(result.out.find("  Mg"), std::string::npos);
    EXPECT_EQ(result.err, "");
}

TEST_F(Calc, TellsOfAlkalinityAndItsContradictions)
{
    const Result result = Run({m_path, "--set", "alkalinity.m=2.1mmol/l", "--set", "alkalinity.p=0.6 mmol/l",
                               "--set", "ph=8.3", "--set", "ca=1.5meq/l", "--set", "cl=0.4meq/l"});
    EXPECT_EQ(result.code, 0) << result.err;
    for (const char* line :
         {"\n  m-value +2\\.1 mmol/l\n", "\n  Total hardness +1\\.5 meq/l\n",
          "\n  Equivalent acidity +0\\.4 meq/l\n", "\n  Dry residue at 180 \u00b0C +[0-9.]+ mg/l\n",
          "\n  Balance error +-?[0-9.]+ %\n", "\n  p-value +-?0\\.0[0-9]+ mmol/l\n"})
        EXPECT_THAT(result.out, ContainsRegex(line));
    EXPECT_THAT(result.err, HasSubstr("p-value 0.6 mmol/l does not go with pH and m-value, which give "));
    EXPECT_THAT(Run({m_path, "--set", "alkalinity.p=2", "--set", "ph="}).err,
                HasSubstr("p-value 2 mmol/l is larger than the m-value of "))
        << "no m-value was reported";
    EXPECT_THAT(Run({m_path, "--set", "hco3=61mg/l", "--set", "ph=3"}).err,
                HasSubstr("pH 3 does not go with bicarbonate, which water holds only above 4.3"));
    EXPECT_EQ(Run({m_path, "--set", "alkalinity.m=2mg/l"}).code, 1) << "milligrams of what?";
}

TEST_F(Calc, ShowsWhatWasMeasuredBesideWhatIsCalculated)
{
    EXPECT_THAT(Run({m_path}).out, testing::Not(HasSubstr("Measured")));
    const Result result = Run({m_path, "--set", "hardness.measured=7\u00b0d", "--set", "ca=2meq/l", "--set",
                               "cond25.measured=0.5mS/cm"});
    EXPECT_THAT(result.out, ContainsRegex("Measured hardness +2\\.5[0-9]* meq/l\n"));
    EXPECT_THAT(result.out, ContainsRegex("Measured conductivity +500 \u00b5S/cm\n"));
    EXPECT_THAT(result.err,
                HasSubstr("Measured hardness 7 \u00b0d differs by more than a tenth from what the "
                          "analysis gives, 5.6 \u00b0d"));
    EXPECT_EQ(Value(RunSet("cond25.measured=5uS/cm"), "liquid/cond25.measured.unit"), "\"\u00b5S/cm\"");
    EXPECT_EQ(Run({m_path, "--set", "hardness.measured=7mg/l"}).code, 1) << "milligrams of what?";
}

TEST_F(Calc, EvaluatesTheWater)
{
    const std::vector<std::string> words{m_path,        "--set", "ca=6meq/l",       "--set",
                                         "hco3=5meq/l", "--set", "cl=1meq/l",       "--set",
                                         "ph=8.2",      "--set", "fe.total=0.4mg/l"};
    const Result table = Run(words);
    EXPECT_THAT(table.out, ContainsRegex("Langelier index +1\\.[0-9]+\n"));
    EXPECT_THAT(table.out, ContainsRegex("Aragonite +0\\.9[0-9]\n"));
    EXPECT_THAT(table.out, HasSubstr("  Note: Iron 0.4 mg/l is above the usual limit of 0.3 mg/l"));
    EXPECT_THAT(Run({m_path}).out, testing::Not(HasSubstr("Langelier"))) << "nothing is known of it";

    std::vector<std::string> asJson = words;
    asJson.emplace_back("--json");
    const auto advice = nlohmann::json::parse(Run(asJson).out).at("advice");
    ASSERT_EQ(advice.size(), 2u);
    EXPECT_EQ(advice[1].at("id"), "limit.fe.soft");
    EXPECT_EQ(advice[1].at("severity"), "note");
    EXPECT_EQ(advice[1].at("water"), 1);
    EXPECT_EQ(advice[1].at("address"), "water.1:liquid/fe.total");
    EXPECT_EQ(advice[1].at("limit"), 0.3);
}

TEST_F(Calc, MixesAnyNumberOfWatersByFlow)
{
    const auto project = ProjectFile::Load(m_path);
    const std::string first = project->GetLiquid(0).GetName();
    project->AddLiquid("Blend");
    ProjectFile::Save(*project, m_path);
    const std::string recipe = "water.3:blend.parts=30 " + first + "; 10 Second water; 60 " + first;
    const Result result =
        Run({m_path, "--json", "--set", "1:na=4meq/l", "--set", recipe, "--set", "water.3:blend.mode=FLOW"});
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_NEAR(std::stod(Value(result, "liquid/na.meql", 2)), 1.3, 1e-12) << "90 % of 1, 10 % of 4";
    // The text of a project keeps its recipe.
    support::WriteBytes(m_folder / "blend.json", result.out);
    const Result again = Run({(m_folder / "blend.json").string(), "--json", "--set", "0:na=2meq/l"});
    EXPECT_NEAR(std::stod(Value(again, "liquid/na.meql", 2)), 2.2, 1e-12) << again.err;
    EXPECT_EQ(Run({m_path, "--set", "water.3:blend.parts=all of it"}).code, 1);
    EXPECT_EQ(Run({m_path, "--set", "water.3:blend.mode=GUESS"}).code, 1);
}

TEST_F(Calc, ShowsTheUnitSystemOfTheProject)
{
    const auto project = ProjectFile::Load(m_path);
    project->SetUnitSystemDisplay("us");
    ProjectFile::Save(*project, m_path);
    EXPECT_THAT(Run({m_path}).out, HasSubstr(" 59 \u00b0F\n"));
    EXPECT_EQ(Value(Run({m_path, "--json"}), "liquid/temp"), "15");
}

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

TEST_F(Calc, SaysWhyAWaterCouldNotBeAlkalised)
{
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"alk.type=naoh", "alk.target=9"}, "The full analysis with pH and temperature is needed."},
        {{"alk.type=naoh", "ph=7"}, "Enter a pH or a dose."},
        {{"alk.type=naoh", "ph=7", "alk.target=5"}, "This agent cannot bring the water there."},
        {{"alk.type=naoh", "ph=7", "alk.target=9"}, ""},
    };
    for (const auto& [settings, problem] : cases) {
        std::vector<std::string> args{m_path};
        for (const std::string& setting : settings)
            args.insert(args.end(), {"--set", setting});
        const Result result = Run(args);
        EXPECT_EQ(result.code, 0) << settings.back();
        EXPECT_EQ(result.err.find("Alkalization") != std::string::npos, *problem != '\0') << result.err;
        EXPECT_THAT(result.err, HasSubstr(problem)) << settings.back();
    }
}

TEST_F(Calc, ReportsFilesAndWordsItCannotUse)
{
    support::WriteBytes(m_folder / "letter", "Dear reader");
    const struct
    {
        std::vector<std::string> args;
        int code;
    } cases[] = {
        {{}, 2},
        {{m_path, "other"}, 2},
        {{m_path, "--xml"}, 2},
        {{m_path, "--set"}, 2},
        {{"--json"}, 2},
        {{(m_folder / "missing").string()}, 1},
        {{(m_folder / "letter").string()}, 1},
        {{m_folder.Path().string()}, 1},
        {{"--", "--json"}, 1},
    };
    for (const auto& row : cases) {
        const Result result = Run(row.args);
        EXPECT_EQ(result.code, row.code) << testing::PrintToString(row.args);
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(result.err.starts_with("tarnvik calc: ")) << result.err;
        EXPECT_EQ(result.err.find("usage:") != std::string::npos, row.code == 2);
    }
    EXPECT_THAT(Run({(m_folder / "letter").string()}).err, HasSubstr("letter is not a project file"));
    EXPECT_EQ(Run({"--help"}).code, 0);
}

TEST_F(Calc, PrintsTheSameValidJsonEveryTime)
{
    const Result result = Run({m_path, "--json"});
    EXPECT_EQ(result.out, Run({m_path, "--json"}).out);
    support::WriteBytes(m_folder / "out.json", result.out);
    const std::string program =
        "import json, sys; d = json.load(open(sys.argv[1], encoding='utf-8')); "
        "keys = list(d['liquids'][0]['details']); "
        "assert keys == sorted(keys) and len(keys) > 100; "
        "assert d['project']['project/title']['value'] == 'A \\\"quoted\\\"\\ttitle \u00e4\\\\\\\\'; "
        "assert d['liquids'][1]['name'] == 'Second water'; "
        "assert d['liquids'][0]['details']['liquid/ph']['value'] is None; "
        "assert d['liquids'][0]['details']['liquid/na.orig'] == {'value': 22.99, 'unit': 'mg/l'}";
    const std::string command = "python3 -c \"" + program + "\" '" + (m_folder / "out.json").string() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
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

TEST_F(Calc, TellsTheDesignOfAPlant)
{
    iex::IEXProject plant("DEMI");
    plant.GetLiquid(0).GetDetails()->At("liquid/ca.orig").SetValue(140.28);
    const std::string path = (m_folder / "plant.tarnvik").string();
    ProjectFile::Save(plant, path);
    const std::vector<std::string> typed{"--set", "project/qbrutto=20",
                                         "--set", "project/lz=12",
                                         "--set", "ex.1.comp.1:stepcomp/capacity.typed=1.0",
                                         "--set", "ex.1.comp.1:stepcomp/level=70",
                                         "--set", "ex.1:step/diameter=0.5"};
    std::vector<std::string> args{path};
    args.insert(args.end(), typed.begin(), typed.end());
    const Result table = Run(args);
    EXPECT_THAT(table.out, HasSubstr("1 Strong-acid cation exchanger"));
    EXPECT_THAT(table.out, ContainsRegex("Resin volume +1.86667 m"));
    EXPECT_THAT(table.out, HasSubstr("Leakage: Sodium"));
    EXPECT_THAT(table.err, HasSubstr("1 Strong-acid cation exchanger: Velocity 101.86 m/h is above "
                                     "the velocity limit of 40 m/h"));
    args.push_back("--json");
    const Result text = Run(args);
    EXPECT_EQ(Value(text, "step/load"), "1680");
    EXPECT_EQ(Value(text, "step/rb.ges"), "130.66666666666666");
    EXPECT_THAT(text.out, HasSubstr("\"status\": 3"));
    EXPECT_THAT(text.out, HasSubstr("\"origin\":\"as typed\""));
    EXPECT_THAT(text.out, HasSubstr("\"address\": \"ex.1:step/v\""));
    EXPECT_THAT(text.out, HasSubstr("\"name\":\"temperature\"")) << "a correction of the anion exchanger";
}

TEST_F(Calc, PrintsPointsInALocaleWithCommas)
{
    const std::string plain = Run({m_path}).out;
    const support::LocaleScope german("de_DE.UTF-8");
    EXPECT_EQ(std::string(std::localeconv()->decimal_point), ",");
    EXPECT_EQ(Run({m_path}).out, plain);
    EXPECT_EQ(Value(RunSet("na=2.5meq/l"), "liquid/na.meql"), "2.5");
}

}  // namespace
