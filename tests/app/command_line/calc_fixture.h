// SPDX-License-Identifier: MIT
#pragma once

/// The command "calc", run in this process; a fixture runs it on a project of two waters, whose file it must
/// not change.

#include "app/command_line/calc_command.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_file.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace calc_test {

struct Result
{
    int code = -1;
    std::string out;
    std::string err;
};

inline Result RunCalc(const std::vector<std::string>& args)
{
    std::ostringstream out;
    std::ostringstream err;
    const int code = app::RunCalc(args, out, err);
    return {code, out.str(), err.str()};
}

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

    Result Run(const std::vector<std::string>& args) const
    {
        const std::string before = support::ReadBytes(m_path);
        Result result = RunCalc(args);
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

}  // namespace calc_test
