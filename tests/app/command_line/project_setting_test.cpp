// SPDX-License-Identifier: MIT
#include "app/command_line/project_setting.h"

#include "projectbase/project/iex_project.h"

#include <gtest/gtest.h>

namespace {

/// Tries every derived value below a node; returns how many there were.
int TryDerived(Project& project, OwnerNode& node)
{
    int count = 0;
    const std::string owner = project.PathOf(node.GetOwner());
    for (const auto& [key, detail] : *node.GetDetails()) {
        // The name of a value that is typed stands for what is typed.
        if (!detail.IsDerived() || node.FindDetail(key + ".orig") != nullptr)
            continue;
        ++count;
        const app::ProjectSetting setting{.owner = owner, .key = key, .value = "1"};
        EXPECT_THROW(app::ApplySetting(project, setting), app::SettingError) << owner << ":" << key;
    }
    for (std::size_t kind = 0; kind < kOwnerKinds; ++kind) {
        for (const auto& child : node.GetChildren(static_cast<OwnerKind>(kind)))
            count += TryDerived(project, *child);
    }
    return count;
}

TEST(ProjectSetting, NothingThatIsCalculatedCanBeSet)
{
    iex::IEXProject project("DEMI");
    EXPECT_GT(TryDerived(project, project.GetRoot()), 100);
}

}  // namespace
