// SPDX-License-Identifier: MIT
// Many variants of a plant in one run.
#include "app/command_line/sweep_command.h"
#include "tests/app/command_line/calc_fixture.h"
#include "tests/support/plant_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>

namespace {

using calc_test::Result;
using testing::HasSubstr;
using testing::IsEmpty;
using Args = std::vector<std::string>;

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// Takes some bytes and then no more, as a full disk.
class FullDisk : public std::streambuf
{
public:
    explicit FullDisk(std::streamsize room) : m_room(room) {}

protected:
    std::streamsize xsputn(const char*, std::streamsize count) override
    {
        m_room -= count;
        return m_room > 0 ? count : 0;
    }

private:
    std::streamsize m_room;
};

class SweepTest : public testing::Test
{
protected:
    void SetUp() override
    {
        support::SetWater(m_project, {{"ca", 2.0}, {"mg", 1.0}, {"na", 0.5}, {"hco3", 2.0}, {"cl", 1.5}});
        support::SetFlow(m_project);
        ProjectFile::Save(m_project, m_path);
    }

    Result Run(const Args& more) const
    {
        Args args{m_path};
        args.insert(args.end(), more.begin(), more.end());
        return calc_test::RunCalc(args);
    }

    iex::IEXProject m_project{"DEMI"};
    support::TempFolder m_folder;
    std::string m_path = (m_folder / "plant.tarnvik").string();
    const Args m_sweep{"--sweep", "ex.1.comp.1:level=60:120:4", "--sweep", "project/wbrutto=100:300:3",
                       "--sweep", "project/lz=8:16:5"};
    const std::string m_columns =
        "ex.1.comp.1:level,project/wbrutto,project/lz,project/qbrutto,ex.1.comp.1.resin.1:vol,ex.2:step/dp,"
        "water.1:cond25,ex.2:rm,project/nlines";
};

TEST_F(SweepTest, RowsAreThoseOfSingleRunsInOrder)
{
    Args args = m_sweep;
    args.insert(args.end(), {"--columns", m_columns});
    const Result all = Run(args);
    ASSERT_EQ(all.code, 0) << all.err;
    const auto rows = Lines(all.out);
    ASSERT_EQ(rows.size(), 1U + 4 * 3 * 5);
    EXPECT_THAT(rows[0], HasSubstr("ex.1.comp.1.resin.1:vol [m3]"));
    EXPECT_THAT(rows[1], HasSubstr("60,100,8,12.5,"));
    EXPECT_THAT(rows[2], HasSubstr("60,100,10,10,")) << "the last range goes first";
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const std::size_t variant = i - 1;
        const Result one =
            Run({"--set", "ex.1.comp.1:level=" + std::to_string(60 + variant / 15 * 20), "--set",
                 "project/wbrutto=" + std::to_string(100 + variant / 5 % 3 * 100), "--set",
                 "project/lz=" + std::to_string(8 + variant % 5 * 2), "--columns", m_columns});
        const auto lines = Lines(one.out);
        ASSERT_EQ(lines.size(), 2U) << one.err;
        EXPECT_EQ(lines[0], rows[0]);
        EXPECT_EQ(lines[1], rows[i]);
    }
}

TEST_F(SweepTest, NoVariantLeavesTracesInTheNext)
{
    // A concentration takes the place of the m-value; none leaves it.
    support::Put(m_project, "water.1", "liquid/hco3.orig", 0.0);
    support::Put(m_project, "water.1", "liquid/alkalinity.m.orig", 2.1);
    ProjectFile::Save(m_project, m_path);
    const auto rows = Lines(Run({"--sweep", "ph=6:8:40", "--sweep", "hco3=0:2:2", "--columns",
                                 "water.1:liquid/alkalinity.m.orig"})
                                .out);
    ASSERT_EQ(rows.size(), 81U);
    for (std::size_t i = 1; i < rows.size(); ++i)
        EXPECT_THAT(rows[i], testing::EndsWith(i % 2 == 1 ? ",0,2.1" : ",2,0"));
}

TEST_F(SweepTest, PartsMakeTheWhole)
{
    for (const bool json : {false, true}) {
        Args args = m_sweep;
        if (json)
            args.push_back("--json");
        const std::string whole = Run(args).out;
        ASSERT_EQ(Lines(whole).size(), json ? 60U : 61U);
        for (const int parts : {1, 2, 7, 100}) {
            std::string joined;
            for (int part = 1; part <= parts; ++part) {
                Args one = args;
                one.insert(one.end(), {"--shard", std::to_string(part) + "/" + std::to_string(parts)});
                const Result result = Run(one);
                EXPECT_EQ(result.code, 0) << result.err;
                joined += result.out;
            }
            EXPECT_TRUE(joined == whole) << parts;
        }
    }
}

TEST_F(SweepTest, PartsMakeTheWholeUnderGnuParallel)
{
    if (std::system("parallel --version >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "GNU parallel is not installed (package parallel)";
    const std::string command = std::string("\"") + TARNVIK_PROGRAM + "\" calc \"" + m_path + "\"" +
                                " --sweep project/qbrutto=10:40:31 --sweep ex.1.comp.1:level=60:120:7";
    const auto output = [](const std::string& line) {
        std::string text;
        FILE* pipe = popen(line.c_str(), "r");
        for (char buffer[4096]; std::size_t size = std::fread(buffer, 1, sizeof buffer, pipe);)
            text.append(buffer, size);
        EXPECT_EQ(pclose(pipe), 0) << line;
        return text;
    };
    const std::string whole = output(command);
    EXPECT_EQ(Lines(whole).size(), 1U + 31 * 7);
    EXPECT_EQ(output("parallel --will-cite -k -j2 '" + command + " --shard {}/5' ::: 1 2 3 4 5"), whole);
}

TEST_F(SweepTest, JsonLinesHoldTheSameValues)
{
    const Result csv = Run({"--sweep", "project/qbrutto=10:20:2", "--columns", "ex.1:step/v,step/kind"});
    EXPECT_THAT(csv.err, HasSubstr("there is no value 'step/kind'")) << "an exchanger must be named";
    const Result json = Run({"--sweep", "project/qbrutto=10:20:2", "--json", "--columns",
                             "ex.1:step/kind,ex.1:step/capacity,ex.2:stepcomp/x"});
    EXPECT_THAT(json.err, HasSubstr("stepcomp/x"));
    const Result good = Run({"--sweep", "project/qbrutto=10:20:2", "--json", "--columns",
                             "ex.1:kind,ex.1:step/co2.residual,"
                             "ex.1.comp.1:capacity.typed"});
    ASSERT_EQ(good.code, 0) << good.err;
    const auto rows = Lines(good.out);
    ASSERT_EQ(rows.size(), 2U);
    const auto row = nlohmann::json::parse(rows[1]);
    EXPECT_EQ(row.at("project/qbrutto"), 20.0);
    EXPECT_EQ(row.at("ex.1:kind"), "SAC_H");
    EXPECT_TRUE(row.at("ex.1.comp.1:capacity.typed").is_null()) << "not known";
}

TEST_F(SweepTest, UsualColumnsAreTheResultsOfThePlant)
{
    const auto rows = Lines(Run({"--sweep", "project/qbrutto=10:20:2"}).out);
    ASSERT_EQ(rows.size(), 3U);
    for (const char* column : {"project/qbrutto [m3/h],", "project/wnetto [m3]", "ex.2:step/run.time [h]",
                               "ex.1.comp.1.resin.1:compcomp/vol [m3]"})
        EXPECT_THAT(rows[0], HasSubstr(column));
    EXPECT_THAT(rows[1], testing::Not(HasSubstr(",,"))) << "all of them are known";
}

TEST_F(SweepTest, ValuesAreEvenAndExactAtTheEnds)
{
    struct
    {
        const char* text;
        std::vector<std::string> values;
    } const cases[] = {
        {"a=0:1:11", {"0", "0.1", "0.2", "0.3", "0.4", "0.5", "0.6", "0.7", "0.8", "0.9", "1"}},
        {"a=0.1:0.7mg/l:3", {"0.1mg/l", "0.4mg/l", "0.7mg/l"}},
        {"a=5:5:1", {"5"}},
        {"a=2:9:1", {"2"}},
        {"a=-1e-3:1e-3:3", {"-0.001", "0", "0.001"}}};
    for (const auto& each : cases) {
        const app::SweepRange range = app::ParseSweep(each.text);
        ASSERT_EQ(range.count, each.values.size());
        for (std::uint64_t i = 0; i < range.count; ++i)
            EXPECT_EQ(range.ValueText(i), each.values[i]);
    }
}

TEST_F(SweepTest, SaysWhatIsWrongBeforeItBegins)
{
    struct
    {
        Args args;
        int code;
        const char* text;
    } const cases[] = {
        {{"--sweep", "level=1:2:3"}, 1, "there is no value 'level'"},
        {{"--sweep", "ex.9:v.max=1:2:3"}, 1, "there is no 'ex.9' in the project"},
        {{"--sweep", "ex.1:step/v=1:2:3"}, 1, "'step/v' is calculated and cannot be set"},
        {{"--sweep", "ex.1:kind=1:2:3"}, 1, "ex.1:kind is no number"},
        {{"--sweep", "project/lz=nan:2:3"}, 1, "'nan' is no number"},
        {{"--sweep", "project/lz=1:inf:3"}, 1, "'inf' is no number"},
        {{"--sweep", "project/lz=:2:3"}, 1, "needs two numbers"},
        {{"--sweep", "project/lz=9:2:3"}, 1, "runs backwards, from 9 to 2"},
        {{"--sweep", "project/lz=2:2:3"}, 1, "has one value only"},
        {{"--sweep", "project/lz=-1e308:1e308:3"}, 1, "too wide"},
        {{"--sweep", "project/lz=1:2:0"}, 1, "one value at least"},
        {{"--sweep", "project/lz=1:2:1000001"}, 1, "may have 1000000 values at most"},
        {{"--sweep", "project/lz=1:2:99999999999999999999999"}, 1, "may have 1000000 values at most"},
        {{"--sweep", "project/lz=1:2:10001", "--sweep", "project/qbrutto=1:2:10000"},
         1,
         "may have 100000000 variants at most"},
        {{"--sweep", "project/lz=1:2:2", "--sweep", "project/lz=1:2:2"}, 1, "has two ranges"},
        {{"--sweep", "project/nlines=1:2:3"}, 1, "takes whole numbers"},
        {{"--sweep", "project/lz=1m:2h:3"}, 1, "has two units"},
        {{"--sweep", "project/lz=1:2mg/l:3"}, 1, "'mg/l' is no unit"},
        {{"--sweep", "project/lz=1:2"}, 2, "not of the form KEY=FROM:TO:N"},
        {{"--sweep", "project/lz=1:2:-3"}, 2, "not of the form KEY=FROM:TO:N"},
        {{"--sweep", "project/lz"}, 2, "not of the form KEY=FROM:TO:N"},
        {{"--sweep"}, 2, "--sweep needs KEY=FROM:TO:N"},
        {{"--columns", "a,"}, 2, "--columns needs KEY,KEY"},
        {{"--columns", "ex.1:nothing"}, 1, "there is no value 'nothing'"},
        {{"--shard", "1/2"}, 2, "--shard is for parts of a sweep"},
        {{"--sweep", "project/lz=1:2:2", "--shard", "0/2"}, 2, "no part 0 of 2"},
        {{"--sweep", "project/lz=1:2:2", "--shard", "3/2"}, 2, "no part 3 of 2"},
        {{"--sweep", "project/lz=1:2:2", "--shard", "1"}, 2, "not of the form K/N"},
    };
    for (const auto& each : cases) {
        const auto before = std::chrono::steady_clock::now();
        const Result result = Run(each.args);
        EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(1)) << each.text;
        EXPECT_EQ(result.code, each.code) << each.text;
        EXPECT_THAT(result.err, HasSubstr(each.text));
        EXPECT_THAT(result.out, IsEmpty());
    }
    EXPECT_EQ(Run({"--sweep", "project/nlines=1:4:4"}).code, 0);
}

TEST_F(SweepTest, EndsWhenNobodyTakesTheRowsAnyMore)
{
    FullDisk disk(10'000);
    std::ostream out(&disk);
    std::ostringstream err;
    const auto before = std::chrono::steady_clock::now();
    app::RunCalc({m_path, "--sweep", "project/qbrutto=1:2:10000", "--sweep", "project/lz=1:2:10000"}, out,
                 err);
    EXPECT_FALSE(out);
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(5))
        << "of a hundred million rows";
}

TEST_F(SweepTest, AVariantThatCannotBeSetLeavesItsRowAndIsTold)
{
    const app::Sweep sweep(
        {app::ParseSweep("project/qbrutto=10:20:2"), app::ParseSweep("ex.5:margin=0.5:0.9:2")});
    const app::VariantRow row(m_project, {"project/qbrutto", "project/lz"}, {"ex.1:step/v"},
                              app::VariantRow::Form::Csv);
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(app::WriteVariants(m_project, sweep, {}, row, out, err), 4U);
    EXPECT_EQ(Lines(out.str())[2], "10,0.9,");
    EXPECT_EQ(err.str(), "tarnvik calc: there is no 'ex.5' in the project\n");
}

}  // namespace
