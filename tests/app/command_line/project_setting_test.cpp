// SPDX-License-Identifier: MIT
#include "app/command_line/project_setting.h"

#include "dbinterfaces/master_database.h"
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

TEST(ProjectSetting, CompoundsOfTheFeedAreSetAsMessagesNameThem)
{
    using Unit = FeedComposition::Unit;
    iex::IEXProject project;
    FeedComposition composition;
    for (const DBObjects::Compound& compound : MasterDatabase::GetSuppliedCompounds()) {
        if (compound.formula == "NaCl" || compound.formula == "Ca")
            composition.Add(compound);
    }
    ASSERT_EQ(composition.GetEntries().size(), 2u);
    project.SaveFeedCompositionToDetails(composition);
    const auto value = [&](std::size_t entry, Unit unit, bool effluent = false) {
        const FeedComposition now = project.LoadFeedCompositionFromDetails();
        return (effluent ? now.GetEntries()[entry].effluent : now.GetEntries()[entry].feed)[unit];
    };
    const auto set = [&](const char* text) { app::ApplySetting(project, app::ParseSetting(text)); };
    set("feedcompound.1:conc=2mmol/l");
    EXPECT_NEAR(value(0, Unit::MmolPerLitre), 2.0, 1e-12);
    set("feedcompound.1:conc=3");
    EXPECT_NEAR(value(0, Unit::MmolPerLitre), 3.0, 1e-12) << "in the unit in which it was stated";
    set("feedcompound.2:feedcompound/conc.meql=4");
    EXPECT_NEAR(value(1, Unit::MeqPerLitre), 4.0, 1e-12);
    set("feedcompound.1:conc.effluent=9mmol/l");
    EXPECT_NEAR(value(0, Unit::MmolPerLitre, true), 3.0, 1e-12) << "never more than the feed";
    for (const char* bad :
         {"feedcompound.0:conc=1", "feedcompound.3:conc=1", "feedcompound.1x:conc=1",
          "feedcompound.1:formula=KCl", "feedcompound.1:conc=abc", "feedcompound.1:conc=1psi"})
        EXPECT_THROW(set(bad), app::SettingError) << bad;
    EXPECT_NEAR(value(0, Unit::MmolPerLitre), 3.0, 1e-12);
}

TEST(ProjectSetting, BoundsTexts)
{
    iex::IEXProject project;
    const auto set = [&](const std::string& text) { app::ApplySetting(project, app::ParseSetting(text)); };
    for (const auto& [key, most] :
         {std::pair("project/title", 1'000U), {"project/comments", 100'000U}, {"liquid/place", 1'000U}}) {
        EXPECT_NO_THROW(set(std::string(key) + "=" + std::string(most, 'x')));
        try {
            set(std::string(key) + "=" + std::string(most + 1, 'x'));
            ADD_FAILURE() << key;
        } catch (const app::SettingError& error) {
            EXPECT_NE(std::string(error.what()).find(std::to_string(most) + " is the most"),
                      std::string::npos)
                << error.what();
        }
    }
}

}  // namespace
