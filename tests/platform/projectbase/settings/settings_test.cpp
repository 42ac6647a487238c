// SPDX-License-Identifier: MIT
#include "projectbase/settings/settings.h"

#include "dbinterfaces/database_error.h"
#include "dbinterfaces/project_database.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace {

class SettingsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings::Reset();
        ProjectDatabase::Open(File());
        Settings::Load();
    }
    void TearDown() override
    {
        Settings::Reset();
        ProjectDatabase::Close();
    }
    std::string File() const { return (m_folder / "settings.db").string(); }

private:
    support::TempFolder m_folder;
};

TEST_F(SettingsTest, StartWithTheDefaults)
{
    EXPECT_EQ(Settings::GetSetting("temp.init").GetDoubleValue(), 15.0);
    EXPECT_EQ(Settings::GetSetting("temp.init").GetUnit(), "°C");
    EXPECT_EQ(Settings::GetSetting("unit.system").GetStdStringValue(), "iso");
    EXPECT_THROW(Settings::GetSetting("no.such"), std::runtime_error);
}

TEST_F(SettingsTest, KeepWhatWasSavedToTheLastBit)
{
    Settings::GetSetting("temp.init").SetValue(0.1 + 0.2);
    Settings::GetSetting("language").SetValue("de");
    Settings::GetSetting("autosave.minutes").SetValue(12);
    Settings::Save();
    Settings::Reset();
    EXPECT_EQ(Settings::GetSetting("language").GetStdStringValue(), "");
    Settings::Load();
    EXPECT_EQ(Settings::GetSetting("temp.init").GetDoubleValue(), 0.1 + 0.2);
    EXPECT_EQ(Settings::GetSetting("language").GetStdStringValue(), "de");
    EXPECT_EQ(Settings::GetSetting("autosave.minutes").GetLongValue(), 12);

    // A setting that goes back to its default is stored too.
    Settings::GetSetting("autosave.minutes").SetValue(5);
    Settings::Save();
    Settings::GetSetting("autosave.minutes").SetValue(7);
    Settings::Load();
    EXPECT_EQ(Settings::GetSetting("autosave.minutes").GetLongValue(), 5);
}

TEST_F(SettingsTest, StoreOnlyWhatChangedHere)
{
    ProjectDatabase::SetUserParameter("/Settings/language", "fr");  // another program, after our Load
    Settings::GetSetting("autosave.minutes").SetValue(9);
    Settings::Save();
    EXPECT_EQ(ProjectDatabase::GetUserParameter("/Settings/language"), "fr");
    EXPECT_EQ(ProjectDatabase::GetUserParameter("/Settings/temp.init", "not stored"), "not stored");
}

TEST_F(SettingsTest, IgnoreStoredNonsense)
{
    for (const char* text : {"warm", "1e400", "-300", "101", "nan"}) {
        ProjectDatabase::SetUserParameter("/Settings/temp.init", text);
        Settings::Load();
        EXPECT_EQ(Settings::GetSetting("temp.init").GetDoubleValue(), 15.0) << text;
    }
    ProjectDatabase::SetUserParameter("/Settings/autosave.minutes", "many");
    ProjectDatabase::SetUserParameter("/Settings/laboratory.limits", "TWICE");
    Settings::Load();
    EXPECT_EQ(Settings::GetSetting("laboratory.limits").GetStdStringValue(), "HALF");
    EXPECT_EQ(Settings::GetSetting("autosave.minutes").GetLongValue(), 5);
}

TEST_F(SettingsTest, TheConnectionStaysOnThisMachine)
{
    Settings::GetSetting("database.connection").SetValue(File());
    Settings::Save();
    EXPECT_EQ(ProjectDatabase::GetUserParameter("/Settings/database.connection", "none"), "none");
    ProjectDatabase::SetUserParameter("where", "here");
    ProjectDatabase::Close();
    ProjectDatabase::OpenConfigured();
    EXPECT_EQ(ProjectDatabase::GetUserParameter("where"), "here");
    Settings::GetSetting("database.connection").SetValue("");
    Settings::Save();
}

TEST_F(SettingsTest, SurviveADatabaseThatCannotBeRead)
{
    Settings::GetSetting("language").SetValue("de");
    EXPECT_THROW(ProjectDatabase::Open("nonsense"), DatabaseError);
    EXPECT_EQ(Settings::GetSetting("language").GetStdStringValue(), "de");
}

}  // namespace
