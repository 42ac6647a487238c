// SPDX-License-Identifier: MIT
#include "projectbase/project/recovery_file.h"

#include "projectbase/project/project_file.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/project_fixture.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class Recovery : public testing::Test
{
protected:
    std::vector<RecoverableFile> List() const { return RecoveryFile::List(m_folder / "state"); }

    support::TempFolder m_folder;
    fs::path m_state = m_folder / "state";
    fs::path m_path = m_folder / "plant.tarnvik";
    std::unique_ptr<Project> m_project = support::MakeSampleProject();
};

TEST_F(Recovery, OffersUnsavedWorkOnceItsOwnerIsGone)
{
    ProjectFile::Save(*m_project, m_path);
    const std::string original = support::ReadBytes(m_path);
    m_project->SetUnitSystemDisplay("imperial");
    {
        RecoveryFile recovery(m_path, m_state);
        EXPECT_TRUE(List().empty());
        recovery.Save(*m_project);
        recovery.Save(*m_project, {.base = FileStamp::OfBytes(original), .edits = {"Sodium", "add water"}});
        EXPECT_TRUE(List().empty());  // its owner is running
    }
    EXPECT_EQ(support::ReadBytes(m_path), original);

    const auto offered = List();
    ASSERT_EQ(offered.size(), 1U);
    EXPECT_EQ(offered[0].project, m_path);
    EXPECT_EQ(offered[0].title, m_project->GetDetails().At("project/title").GetStdStringValue());
    EXPECT_LT(std::chrono::system_clock::now() - offered[0].savedAt, std::chrono::minutes(1));
    EXPECT_EQ(offered[0].work.base, FileStamp::OfFile(m_path));
    EXPECT_EQ(offered[0].work.edits, (std::vector<std::string>{"Sodium", "add water"}));
    const auto recovered = RecoveryFile::Load(offered[0]);
    support::ExpectSameProject(*m_project, *recovered);
    EXPECT_TRUE(recovered->IsChanged());

    RecoveryFile::Discard(offered[0]);
    EXPECT_TRUE(fs::is_empty(m_state));
}

TEST_F(Recovery, KnowsItsProjectFromAnyFolder)
{
    const fs::path start = fs::current_path();
    fs::current_path(m_folder.Path());
    {
        RecoveryFile recovery("plant.tarnvik", m_state);
        recovery.Save(*m_project);
    }
    fs::current_path(start);
    ASSERT_EQ(List().size(), 1U);
    EXPECT_EQ(List()[0].project, fs::canonical(m_folder.Path()) / "plant.tarnvik");
}

TEST_F(Recovery, SurvivesAKilledProgram)
{
    const pid_t child = fork();
    if (child == 0) {
        RecoveryFile recovery({}, m_state);
        recovery.Save(*m_project);
        raise(SIGKILL);
    }
    waitpid(child, nullptr, 0);
    const auto offered = List();
    ASSERT_EQ(offered.size(), 1U);
    EXPECT_TRUE(offered[0].project.empty());
    support::ExpectSameProject(*m_project, *RecoveryFile::Load(offered[0]));
}

TEST_F(Recovery, IsGoneAfterASaveOrAClose)
{
    {
        RecoveryFile recovery(m_path, m_state);
        recovery.Save(*m_project);
        recovery.Discard();
    }
    EXPECT_TRUE(List().empty());
    EXPECT_TRUE(fs::is_empty(m_state));
    EXPECT_EQ(fs::status(m_state).permissions(), fs::perms::owner_all);
}

TEST_F(Recovery, KeepsTheLastGoodStateWhenSavingFails)
{
    {
        RecoveryFile recovery(m_path, m_state);
        recovery.Save(*m_project);
        m_project->SetUnitSystemDisplay("imperial");
        support::FailingFileSystem failing(4, ENOSPC);
        EXPECT_THROW(recovery.Save(*m_project, {}, failing), ProjectFileError);
    }
    const auto offered = List();
    ASSERT_EQ(offered.size(), 1U);
    EXPECT_EQ(RecoveryFile::Load(offered[0])->GetUnitSystemDisplay(), "us");
}

TEST_F(Recovery, ListsTheReadableOnesNewestFirst)
{
    for (const char* title : {"first", "second"}) {
        m_project->GetDetails().At("project/title").SetValue(title);
        RecoveryFile recovery({}, m_state);
        recovery.Save(*m_project);
        if (std::string(title) == "first")
            std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    }
    support::WriteBytes(m_state / "broken.tarnvik", "nothing of value");
    const auto offered = List();
    ASSERT_EQ(offered.size(), 2U);
    EXPECT_EQ(offered[0].title, "second");
    EXPECT_TRUE(fs::exists(m_state / "broken.tarnvik"));
    EXPECT_TRUE(RecoveryFile::List(m_folder / "no such folder").empty());
}

TEST_F(Recovery, SaysWhenThereIsNoPlaceForIt)
{
    support::WriteBytes(m_folder / "file", "");
    EXPECT_THROW(RecoveryFile({}, m_folder / "file"), ProjectFileError);
    EXPECT_THROW(RecoveryFile({}, m_folder / "file/state"), ProjectFileError);
}

TEST_F(Recovery, IsForTheOwnerOnly)
{
    const auto mode = [](const fs::path& path) {
        return static_cast<unsigned>(fs::status(path).permissions());
    };
    const mode_t mask = umask(0);
    fs::create_directory(m_state);
    fs::permissions(m_state, fs::perms(0755));
    {
        RecoveryFile recovery(m_path, m_state);
        recovery.Save(*m_project);
    }
    EXPECT_EQ(mode(m_state), 0700U);
    const fs::path copy = List().at(0).recovery;
    EXPECT_EQ(mode(copy), 0600U);
    // What an older version left behind.
    fs::permissions(copy, fs::perms(0644));
    fs::permissions(m_state, fs::perms(0755));
    List();
    EXPECT_EQ(mode(copy), 0600U);
    EXPECT_EQ(mode(m_state), 0700U);
    // A document of the user is for whom the user says.
    ProjectFile::Save(*m_project, m_path);
    EXPECT_EQ(mode(m_path), 0666U);
    umask(mask);
}

}  // namespace
