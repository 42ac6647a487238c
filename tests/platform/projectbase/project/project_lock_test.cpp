// SPDX-License-Identifier: MIT
#include "projectbase/project/project_lock.h"

#include "projectbase/project/file_stamp.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class Lock : public testing::Test
{
protected:
    void SetUp() override { support::WriteBytes(m_path, "a project"); }
    std::size_t FilesInFolder() const
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_folder.Path()), {}));
    }

    support::TempFolder m_folder;
    fs::path m_path = m_folder / "plant.tarnvik";
    fs::path m_lockFile = m_folder / ".plant.tarnvik.lock";
};

TEST_F(Lock, IsHeldByOneWindowAtATimeWhateverTheNameOfTheFile)
{
    fs::create_directory_symlink(m_folder.Path(), m_folder / "link");
    fs::create_symlink(m_path, m_folder / "other name.tarnvik");
    const std::size_t before = FilesInFolder();
    auto first = ProjectLock::TryTake(m_path);
    ASSERT_TRUE(first.lock);
    EXPECT_TRUE(first.lock->IsOf(m_folder / "link/plant.tarnvik"));
    for (const fs::path& name : {m_path, m_folder / "link/plant.tarnvik", m_folder / "other name.tarnvik"}) {
        const auto second = ProjectLock::TryTake(name);
        EXPECT_FALSE(second.lock) << name;
        ASSERT_TRUE(second.holder) << name;
        EXPECT_NE(second.holder->host, "");
        EXPECT_LT(std::chrono::system_clock::now() - second.holder->since, std::chrono::minutes(1));
    }
    EXPECT_TRUE(ProjectLock::TryTake(m_folder / "another.tarnvik").lock);
    first.lock.reset();
    EXPECT_EQ(FilesInFolder(), before) << "nothing is left beside the project";
    EXPECT_TRUE(ProjectLock::TryTake(m_path).lock);
}

TEST_F(Lock, GoesWithTheProgramThatIsKilled)
{
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        const auto attempt = ProjectLock::TryTake(m_path);
        static_cast<void>(write(ready[1], attempt.lock ? "y" : "n", 1));
        pause();
        _exit(0);
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    EXPECT_TRUE(ProjectLock::TryTake(m_path).holder);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(fs::exists(m_lockFile)) << "nobody was left to remove it";
    EXPECT_TRUE(ProjectLock::TryTake(m_path).lock);
    EXPECT_FALSE(fs::exists(m_lockFile));
    close(ready[0]);
    close(ready[1]);
}

TEST_F(Lock, NamesItsHolderWhateverTheEnvironment)
{
    const char* const present = std::getenv("USER");
    const std::string user = present != nullptr ? present : "";
    unsetenv("USER");
    const auto taken = ProjectLock::TryTake(m_path);
    EXPECT_NE(ProjectLock::TryTake(m_path).holder.value().user, "");
    if (present != nullptr)
        setenv("USER", user.c_str(), 1);
}

TEST_F(Lock, IsSeenByAUserWhoMayNotWriteIt)
{
    fs::permissions(m_folder.Path(), fs::perms::all);
    auto other = ProjectLock::TryTake(m_path);
    ASSERT_TRUE(other.lock);
    fs::permissions(m_lockFile, static_cast<fs::perms>(0444));
    const uid_t user = geteuid();
    constexpr uid_t kNobody = 65534;
    // Root may write everything.
    ASSERT_TRUE(user != 0 || seteuid(kNobody) == 0);
    EXPECT_TRUE(ProjectLock::TryTake(m_path).holder);
    ASSERT_EQ(seteuid(user), 0);
    other.lock.reset();

    support::WriteBytes(m_lockFile, "tarnvik lock\nanna\nplant-7\n1\n");
    fs::permissions(m_lockFile, static_cast<fs::perms>(0444));
    ASSERT_TRUE(user != 0 || seteuid(kNobody) == 0);
    {
        const auto taken = ProjectLock::TryTake(m_path);
        EXPECT_TRUE(taken.lock) << "a crash of somebody else left it";
        const auto holder = ProjectLock::TryTake(m_path).holder;
        EXPECT_TRUE(holder && holder->user != "anna");
    }
    EXPECT_FALSE(fs::exists(m_lockFile));
    ASSERT_EQ(seteuid(user), 0);
}

TEST_F(Lock, TouchesNoStrangersFile)
{
    const auto nothing = [](const ProjectLock::Attempt& attempt) { return !attempt.lock && !attempt.holder; };
    support::WriteBytes(m_lockFile, "somebody's notes");
    EXPECT_TRUE(nothing(ProjectLock::TryTake(m_path)));
    EXPECT_EQ(support::ReadBytes(m_lockFile), "somebody's notes");

    fs::remove(m_lockFile);
    support::WriteBytes(m_folder / "dear", "");
    fs::create_symlink(m_folder / "dear", m_lockFile);
    EXPECT_TRUE(nothing(ProjectLock::TryTake(m_path)));
    EXPECT_EQ(support::ReadBytes(m_folder / "dear"), "");

    fs::remove(m_lockFile);
    fs::create_directory(m_lockFile);
    EXPECT_TRUE(nothing(ProjectLock::TryTake(m_path)));
    EXPECT_TRUE(nothing(ProjectLock::TryTake(m_folder / "no folder/plant.tarnvik")));
}

TEST_F(Lock, StampsTellContentsNotTimes)
{
    const auto before = FileStamp::OfFile(m_path);
    ASSERT_TRUE(before);
    EXPECT_EQ(*before, FileStamp::OfBytes("a project"));
    fs::last_write_time(m_path, fs::file_time_type::clock::now() + std::chrono::hours(1));
    EXPECT_EQ(FileStamp::OfFile(m_path), before);
    const auto time = fs::last_write_time(m_path);
    support::WriteBytes(m_path, "a Project");
    fs::last_write_time(m_path, time);
    EXPECT_NE(FileStamp::OfFile(m_path), before);
    EXPECT_FALSE(FileStamp::OfFile(m_folder / "none"));

    EXPECT_EQ(FileStamp::FromText(before->ToText()), before);
    for (const char* text : {"", "12", ":ab", "x:ab", "-1:ab"})
        EXPECT_FALSE(FileStamp::FromText(text)) << text;
}

}  // namespace
