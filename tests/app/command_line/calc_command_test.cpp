// SPDX-License-Identifier: MIT
// What "calc" prints, as a table and as JSON.
#include "app/command_line/settings_command.h"
#include "dbinterfaces/project_database.h"
#include "projectbase/settings/settings.h"
#include "tests/app/command_line/calc_fixture.h"
#include "tests/support/locale_scope.h"

#include <clocale>
#include <nlohmann/json.hpp>

namespace {

using calc_test::Calc;
using calc_test::Result;
using calc_test::RunCalc;
using testing::ContainsRegex;
using testing::HasSubstr;

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

TEST_F(Calc, JudgesByTheSettingsOfTheUser)
{
    const std::string path = (m_folder / "softener.tarnvik").string();
    ProjectFile::Save(iex::IEXProject("SOFT"), path);
    const auto inAProcessOfItsOwn = [](const auto& run) {
        Settings::Reset();
        ProjectDatabase::Close();
        std::ostringstream out;
        std::ostringstream err;
        EXPECT_EQ(run(out, err), 0) << err.str();
        return out.str();
    };
    const auto judged = [&](std::vector<std::string> stored) {
        inAProcessOfItsOwn(
            [&](std::ostream& out, std::ostream& err) { return app::RunSettings(stored, out, err); });
        return nlohmann::json::parse(inAProcessOfItsOwn([&](std::ostream& out, std::ostream& err) {
            return app::RunCalc(
                {path, "--set", "ca=6meq/l", "--set", "cl=5.7meq/l", "--set", "fe2=0.2mg/l", "--json"}, out,
                err);
        }));
    };
    const auto ruleOf = [](const nlohmann::json& told) {
        return told.at("liquids").at(0).at("evaluation").at("balance").at("rule");
    };
    const nlohmann::json own = judged({"balance.rule=5/10", "limit.fe.soft.note=0.1"});
    EXPECT_EQ(ruleOf(own), "5/10");
    EXPECT_THAT(own.dump(), HasSubstr("limit.fe.soft"));
    const nlohmann::json usual = judged({"--reset", "balance.rule", "--reset", "limit.fe.soft.note"});
    EXPECT_EQ(ruleOf(usual), "SM1030E");
    EXPECT_THAT(usual.dump(), Not(HasSubstr("limit.fe.soft")));
    ProjectDatabase::Close();
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
    EXPECT_THAT(advice[1].at("reason").get<std::string>(), HasSubstr("\nSource: Practice"));
}

TEST_F(Calc, TellsWhatTheResultsOfTheWindowTell)
{
    const std::string path = (m_folder / "softener.tarnvik").string();
    ProjectFile::Save(iex::IEXProject("SOFT"), path);
    std::vector<std::string> words{path};
    for (const char* typed : {"ca=6meq/l", "hco3=5meq/l", "cl=1meq/l", "sio2=21.8mg/l", "ph=8.2", "temp=15C",
                              "project/qbrutto=10m3/h", "project/lz=20h"}) {
        words.emplace_back("--set");
        words.emplace_back(typed);
    }
    const Result table = RunCalc(words);
    ASSERT_EQ(table.code, 0) << table.err;
    EXPECT_THAT(table.out, ContainsRegex("\n  Ion balance +[-+]?0\\.[0-9] %, in order\n"));
    // 1 of chloride, 8 mg/l of CO2 and 21.8 mg/l of silica.
    EXPECT_THAT(table.out, ContainsRegex("\n  Anion load with CO2 and SiO2 +6\\.[0-9]+ meq/l \\(behind a "
                                         "degasser 1\\.54 meq/l\\)\n"));
    EXPECT_THAT(table.out, ContainsRegex("\n  Load of a day +1[0-9]+ eq/d \\([0-9.]+ kg/d CaCO3\\)\n"));
    EXPECT_THAT(table.out, HasSubstr("may deposit calcium carbonate\n"));
    EXPECT_THAT(table.out, ContainsRegex("\n  Saturation with amorphous silica +22\\.[0-9]+ %\n"));

    words.emplace_back("--json");
    const auto told = nlohmann::json::parse(RunCalc(words).out).at("liquids").at(0).at("evaluation");
    EXPECT_EQ(told.at("balance").at("rule"), "SM1030E");
    EXPECT_EQ(told.at("balance").at("verdict"), "in order");
    EXPECT_EQ(told.at("balance").at("limit"), 2.0);
    EXPECT_NEAR(told.at("acidity"), 1.0, 1e-9);
    EXPECT_NEAR(told.at("anionLoadBehindDegasser"), 1.0 + 8.0 / 44.009 + 21.8 / 60.083, 1e-4);
    EXPECT_NEAR(told.at("silicaSaturation"), 22.3, 0.2);
    EXPECT_EQ(told.at("langelierReading"), "may deposit");
    EXPECT_NEAR(told.at("m"), 5.0, 0.01);
    EXPECT_NEAR(told.at("nonCarbonateHardness"), 1.0, 0.01);
    EXPECT_NEAR(told.at("saturationIndices").at("calcite"), told.at("langelier"), 1e-9);
    EXPECT_TRUE(told.at("saturationIndices").at("gypsum").is_null()) << "no sulfate";
    const double co2 = told.at("freeCo2").get<double>() * 44.009;
    EXPECT_THAT(table.out, HasSubstr(fmt::format("{:.2f} mg/l CO2\n", co2)));
    EXPECT_THAT(table.out, Not(ContainsRegex("\n  CO2 +0"))) << "nobody typed it";
    EXPECT_NEAR(told.at("ryznar"), 8.2 - 2.0 * told.at("langelier").get<double>(), 1e-9);
    const auto& loads = told.at("loadsOfDay");
    EXPECT_EQ(loads.at("design"), loads.at("hardness")) << "of a softener";
    EXPECT_NEAR(loads.at("carbonate").get<double>() / loads.at("hardness").get<double>(), 5.0 / 6.0, 0.01);

    const auto unknown =
        nlohmann::json::parse(Run({m_path, "--json"}).out).at("liquids").at(1).at("evaluation");
    for (const char* member : {"anionLoad", "langelier", "langelierReading", "silicaSaturation"})
        EXPECT_TRUE(unknown.at(member).is_null()) << member;
    EXPECT_TRUE(unknown.at("balance").at("verdict").is_null());
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
    EXPECT_THAT(table.out, ContainsRegex("Resin volume +1.8667 m"));
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
