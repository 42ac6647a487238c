// SPDX-License-Identifier: MIT
#include "app/command_line/command_line.h"

#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <sstream>

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using Args = std::vector<std::string>;

int CountArguments(const Args& args, std::ostream& out, std::ostream&)
{
    out << args.size();
    return 1;
}

int Repeat(const Args& args, std::ostream& out, std::ostream& err)
{
    out << args.at(0) << '\n';
    err << args.at(0) << '\n';
    return 0;
}

constexpr std::array kCommands{app::Command{"count", "WORD...", "counts its words", CountArguments},
                               app::Command{"repeat", "", "says it once more", Repeat},
                               app::Command{"other", "", "does nothing", CountArguments}};

TEST(CommandLine, SaysWhatItIsAskedForOrLeavesItToTheWindow)
{
    const support::TempFolder folder;
    const std::string file = (folder / "plain").string();
    std::ofstream(file) << "x";
    struct Case
    {
        Args args;
        std::optional<int> code;
        std::string out;  ///< part of the standard output, which is empty otherwise
        std::string err;
    };
    const std::array cases{
        Case{{}, std::nullopt, "", ""},
        Case{{"--help"}, 0, "tarnvik count WORD...", ""},
        Case{{"-h", "x"}, 0, "tarnvik other", ""},
        Case{{"--version"}, 0, "Tarnvik ", ""},
        Case{{"count", "a", "--help"}, 1, "2", ""},
        Case{{"repeat", "a\x1b[2J\xff"}, 0, "a\\x1b[2J\\xff\n", "a\\x1b[2J\\xff\n"},
        Case{{"c\x1b[2J"}, 2, "", "'c\\x1b[2J' is neither"},
        Case{{"cuont"}, 2, "", "'cuont' is neither a command nor a file"},
        Case{{"--hlep"}, 2, "", "unknown option '--hlep'"},
        Case{{"a.tarnvik", "b.tarnvik"}, 2, "", "'b.tarnvik' is more than one file"},
        Case{{"missing.tarnvik"}, std::nullopt, "", ""},
        Case{{"folder/word"}, std::nullopt, "", ""},
        Case{{file}, std::nullopt, "", ""},
        Case{{"--", "count"}, std::nullopt, "", ""},
        Case{{"--display=:1", "a.tarnvik"}, std::nullopt, "", ""},
    };
    for (const Case& row : cases) {
        const std::string where = testing::PrintToString(row.args);
        std::ostringstream out;
        std::ostringstream err;
        EXPECT_EQ(app::RunCommandLine(kCommands, row.args, out, err), row.code) << where;
        EXPECT_THAT(out.str(),
                    row.out.empty() ? testing::Matcher<std::string>(IsEmpty()) : HasSubstr(row.out))
            << where;
        EXPECT_THAT(err.str(),
                    row.err.empty() ? testing::Matcher<std::string>(IsEmpty()) : HasSubstr(row.err))
            << where;
    }
}

TEST(CommandLine, SaysWhenTheResultsAreLost)
{
    std::ostringstream err;
    std::ostringstream closed;
    closed.setstate(std::ios::badbit);
    EXPECT_EQ(app::RunCommandLine(kCommands, {"repeat", "a"}, closed, err), 1);
    EXPECT_THAT(err.str(), testing::EndsWith("tarnvik repeat: the results could not be written\n"));
}

}  // namespace
