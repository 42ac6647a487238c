// SPDX-License-Identifier: MIT
#pragma once

/// Projects with values of every type, and their comparison.

#include "projectbase/project/iex_project.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <string>

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

/// The first detail in which two lists differ; empty when they hold the same.
inline std::string Difference(const DetailList& a, const DetailList& b)
{
    for (const auto& [name, detail] : a) {
        const DetailData* other = b.GetDetail(name);
        if (other == nullptr)
            return name + " is missing";
        if (!detail.HasSameValue(*other))
            return name + ": " + detail.GetValueAsString().utf8_string() + " / " +
                   other->GetValueAsString().utf8_string();
        if (detail.GetUnit() != other->GetUnit() || detail.GetMaxValue() != other->GetMaxValue())
            return name + ": unit or limit";
    }
    return a.Size() == b.Size() ? "" : "details were added";
}

/// The same of two owners with all that belongs to them; `identities` are compared on request, as files do
/// not keep them.
inline std::string Difference(const OwnerNode& a, const OwnerNode& b, bool identities)
{
    const std::string where = std::string(OwnerWord(a.GetKind())) + "." + std::to_string(a.GetPosition() + 1);
    if (a.GetName() != b.GetName())
        return where + " is called " + a.GetName() + " / " + b.GetName();
    if (identities && a.GetOwner() != b.GetOwner())
        return where + " is another one";
    if (const std::string found = Difference(*a.GetDetails(), *b.GetDetails()); !found.empty())
        return where + ": " + found;
    for (std::size_t kind = 0; kind < kOwnerKinds; ++kind) {
        const auto first = a.GetChildren(static_cast<OwnerKind>(kind));
        const auto second = b.GetChildren(static_cast<OwnerKind>(kind));
        if (first.size() != second.size())
            return where + " has other parts";
        for (std::size_t i = 0; i < first.size(); ++i) {
            if (const std::string found = Difference(*first[i], *second[i], identities); !found.empty())
                return where + "/" + found;
        }
    }
    return {};
}

/// The same of everything that a project holds.
inline std::string Difference(const Project& a, const Project& b, bool identities)
{
    if (a.GetModuleType() != b.GetModuleType() || a.GetUnitSystemDisplay() != b.GetUnitSystemDisplay() ||
        a.GetStatus() != b.GetStatus())
        return "type, unit system or status";
    if (const std::string found = Difference(a.GetRoot(), b.GetRoot(), identities); !found.empty())
        return found;
    if (a.GetAllDetailGroups().size() != b.GetAllDetailGroups().size())
        return "kinds of groups";
    for (const auto& [kind, groups] : a.GetAllDetailGroups()) {
        const DetailGroupsPtr other = b.GetDetailGroups(kind);
        if (!other || !std::ranges::equal(*groups, *other, [](const auto& first, const auto& second) {
                return SameGroup(*first, *second);
            }))
            return "groups " + kind;
    }
    return {};
}

inline void ExpectSameProject(const Project& a, const Project& b)
{
    EXPECT_EQ(Difference(a, b, false), "");
}

}  // namespace support
