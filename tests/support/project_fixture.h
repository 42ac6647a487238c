// SPDX-License-Identifier: MIT
#pragma once

/// Projects with values of every type, and their comparison.

#include "projectbase/project/iex_project.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

namespace support {

inline std::unique_ptr<Project> MakeSampleProject()
{
    auto project = std::make_unique<iex::IEXProject>();
    project->SetUnitSystemDisplay("us");
    DetailList& details = project->GetDetails();
    details.At("project/title").SetValue("Kesselspeisewasser Gr\u00f6\u00dfe \u6c34");
    details.At("project/comments").SetValue(std::string("two\nlines, a \"quote\" and a nul: ") + '\0' + "!");
    wxDateTime sampled(29, wxDateTime::Feb, 2024, 13, 14, 15, 167);
    details.At("project/date").SetValue(sampled);
    details.Add(DetailData("test/far", DetailType::Date)).SetValue(wxDateTime(1, wxDateTime::Jan, 12024));
    details.Add(DetailData("test/count", DetailType::Long)).SetValue(std::numeric_limits<long>::min());

    project->AddLiquid("Brunnen 2 \u00e4");
    const double values[] = {0.1 + 0.2,
                             -0.0,
                             5e-324,
                             1.7976931348623157e308,
                             std::nan(""),
                             1.0,
                             std::numeric_limits<double>::infinity()};
    const char* const keys[] = {"na", "ca", "mg", "k", "sr", "ba", "mn"};
    for (std::size_t i = 0; i < std::size(values); ++i)
        project->GetLiquid(1)
            .GetDetails()
            ->At(std::string("liquid/") + keys[i] + ".orig")
            .SetValue(values[i]);
    project->GetLiquid(0).GetDetails()->At("liquid/na.unit").SetValue("\u00b0d");
    project->GetLiquid(0).GetDetails()->At("liquid/balance.auto").SetValue(true);
    project->CalculateDesign();
    project->ResetStatus(3);
    return project;
}

inline void ExpectSameDetails(const DetailList& a, const DetailList& b)
{
    EXPECT_EQ(a.Size(), b.Size());
    for (const auto& [name, detail] : a) {
        const DetailData* other = b.GetDetail(name);
        ASSERT_NE(other, nullptr) << name;
        EXPECT_TRUE(detail.HasSameValue(*other)) << name;
        EXPECT_EQ(detail.GetUnit(), other->GetUnit()) << name;
        EXPECT_EQ(detail.GetMaxValue(), other->GetMaxValue()) << name;
    }
}

inline void ExpectSameProject(const Project& a, const Project& b)
{
    EXPECT_EQ(a.GetModuleType(), b.GetModuleType());
    EXPECT_EQ(a.GetUnitSystemDisplay(), b.GetUnitSystemDisplay());
    EXPECT_EQ(a.GetStatus(), b.GetStatus());
    ExpectSameDetails(a.GetDetails(), b.GetDetails());
    ASSERT_EQ(a.GetLiquidCount(), b.GetLiquidCount());
    for (std::size_t i = 0; i < a.GetLiquidCount(); ++i) {
        EXPECT_EQ(a.GetLiquid(i).GetName(), b.GetLiquid(i).GetName());
        ExpectSameDetails(*a.GetLiquid(i).GetDetails(), *b.GetLiquid(i).GetDetails());
    }
}

}  // namespace support
