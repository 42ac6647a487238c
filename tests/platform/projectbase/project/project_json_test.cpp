// SPDX-License-Identifier: MIT
#include "projectbase/project/project_json.h"

#include "projectbase/project/project.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

TEST(ProjectJson, WhatIsNoProjectIsRefusedAndNotGuessed)
{
    const std::pair<const char*, bool> cases[] = {
        {R"({})", true},
        {R"({"liquids": []})", true},
        {R"({"liquids": 5})", false},
        {R"({"liquids": [5]})", false},
        {R"({"project": [1]})", false},
        {R"({"project": {"project/title": {"value": "t"}}})", true},
        {R"({"project": {"project/title": {"value": 5}}})", false},
        {R"({"project": {"project/title": 5}})", false},
        {R"({"project": {"project/nlines": {"value": 2}}})", true},
        {R"({"project": {"project/nlines": {"value": 2.5}}})", false},
        {R"({"project": {"project/nlines": {"value": 1e300}}})", false},
        {R"({"groups": 5})", false},
        {R"({"groups": {"feedcompound": "abc"}})", false},
        {R"({"groups": {"feedcompound": [5]}})", false},
        {R"({"unitSystem": 5})", false},
        {R"({"unitSystem": "us"})", true},
        {R"({"liquids": [{"details": {"liquid/ph": {"value": 7}}}]})", true},
        {R"({"liquids": [{"details": {"liquid/ph": {"value": null}}}]})", true},
        {R"({"liquids": [{"details": {"liquid/ph": {"value": true}}}]})", false},
        {R"({"liquids": [{"details": {"liquid/ph": {"value": [1]}}}]})", false},
        {R"({"liquids": [{"details": {"liquid/balance.ph": {"value": 5}}}]})", false},
        {R"({"liquids": [{"details": {"liquid/sampling.date": {"value": 5}}}]})", false},
        {R"({"liquids": [{"details": {"liquid/alk.mode": {"value": "FOO"}}}]})", false},
        {R"({"liquids": [{"details": {"liquid/na.unit": {"value": "ppb"}}}]})", true},
        {R"({"liquids": [{"details": {"liquid/na.unit": {"value": "foo"}}}]})", false},
        {R"({"liquids": [{"details": {"liquid/na.orig": {"value": 5, "unit": "ppb"}}}]})", true},
        {R"({"liquids": [{"details": {"liquid/na.orig": {"value": 5, "unit": "foo"}}}]})", false},
        {R"({"liquids": [{"details": {"liquid/h.plus.unit": {"value": "mg/l"}}}]})", false},
        {R"({"liquids": [{"details": {"liquid/temp.unit": {"value": "foo"}}}]})", false},
    };
    for (const auto& [text, isRead] : cases) {
        std::string whole = text;
        whole.insert(1, whole == "{}" ? R"("module": "iex")" : R"("module": "iex", )");
        if (isRead)
            EXPECT_NO_THROW(ProjectFromJson(whole)) << text;
        else
            EXPECT_THROW(ProjectFromJson(whole), std::exception) << text;
    }
}

TEST(ProjectJson, BoundsItsTextsAndSaysWhich)
{
    const struct
    {
        const char* before;
        const char* after;
        std::size_t most;
        const char* what;
    } cases[] = {
        {R"({"module": "iex", "liquids": [{"name": ")", R"("}]})", 1'000, "the name of a water"},
        {R"({"module": "iex", "project": {"project/title": {"value": ")", R"("}}})", 1'000,
         "'project/title'"},
        {R"({"module": "iex", "project": {"project/comments": {"value": ")", R"("}}})", 100'000,
         "'project/comments'"},
        {R"({"module": "iex", "project": {")", R"(": {"value": 5}}})", 1'000, "the name of a value"},
        {R"({"module": "iex", "groups": {")", R"(": []}})", 1'000, "the name of a group"},
        {R"({"module": "iex", "groups": {"feedcompound": [{"feedcompound/formula": {"value": ")", R"("}}]}})",
         10'000, "'feedcompound/formula'"},
    };
    for (const auto& row : cases) {
        EXPECT_NO_THROW(ProjectFromJson(row.before + std::string(row.most, 'x') + row.after)) << row.what;
        try {
            ProjectFromJson(row.before + std::string(row.most + 1, 'x') + row.after);
            ADD_FAILURE() << row.what;
        } catch (const std::exception& error) {
            EXPECT_THAT(error.what(), testing::HasSubstr(row.what));
            EXPECT_THAT(error.what(), testing::HasSubstr(std::to_string(row.most) + " is the most"));
        }
    }
}

}  // namespace
