// SPDX-License-Identifier: MIT
// What a save or load survives: every failing call, a kill in the middle, a full disk, every damaged byte.
#include "projectbase/project/project_file.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/project_fixture.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class ProjectFileFaults : public testing::Test
{
protected:
    void SetUp() override
    {
        m_project = support::MakeSampleProject();
        ProjectFile::Save(*m_project, m_path);
        m_old = support::ReadBytes(m_path);
        m_project->SetUnitSystemDisplay("imperial");  // so that a new file differs from the old one
    }
    std::size_t FilesInFolder() const
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_folder.Path()), {}));
    }

    support::TempFolder m_folder;
    fs::path m_path = m_folder / "plant.tarnvik";
    std::unique_ptr<Project> m_project;
    std::string m_old;
};

TEST_F(ProjectFileFaults, EveryFailingCallOfASaveLeavesTheOldFile)
{
    support::FailingFileSystem counting(0);
    ProjectFile::Save(*m_project, m_path, counting);
    const std::string changed = support::ReadBytes(m_path);
    ASSERT_NE(changed, m_old);
    ASSERT_GT(counting.Calls(), 8);
    for (const int error : {EIO, ENOSPC, EACCES, EDQUOT}) {
        int failures = 0;
        for (int call = 1; call <= counting.Calls(); ++call) {
            SCOPED_TRACE(testing::Message() << "call " << call << ", error " << error);
            support::WriteBytes(m_path, m_old);
            support::FailingFileSystem failing(call, error);
            bool failed = false;
            try {
                ProjectFile::Save(*m_project, m_path, failing);
            } catch (const ProjectFileError& problem) {
                failed = true;
                EXPECT_EQ(problem.GetProblem() == ProjectFileProblem::DiskFull,
                          error == ENOSPC || error == EDQUOT);
            }
            failures += failed ? 1 : 0;
            EXPECT_EQ(support::ReadBytes(m_path), failed ? m_old : changed);
            EXPECT_EQ(FilesInFolder(), 1U);
        }
        // Only the folder's own sync may fail unnoticed: the file is in place by then.
        EXPECT_EQ(failures, counting.Calls() - 1);
    }
}

TEST_F(ProjectFileFaults, AFailingDiskNeverHarmsTheOldFile)
{
    support::FailingFileSystem counting(0);
    ProjectFile::Save(*m_project, m_folder / "other", counting);
    for (int call = 1; call < counting.Calls(); ++call) {
        support::FailingFileSystem failing(call, EIO, true);
        EXPECT_THROW(ProjectFile::Save(*m_project, m_path, failing), ProjectFileError) << call;
        EXPECT_EQ(support::ReadBytes(m_path), m_old) << call;
    }
}

TEST_F(ProjectFileFaults, EveryFailingCallOfALoadIsReported)
{
    support::FailingFileSystem counting(0);
    ProjectFile::Load(m_path, counting);
    for (int call = 1; call < counting.Calls(); ++call) {  // the last one closes the file
        support::FailingFileSystem failing(call, EIO);
        EXPECT_THROW(ProjectFile::Load(m_path, failing), ProjectFileError) << call;
    }
    EXPECT_EQ(support::ReadBytes(m_path), m_old);
}

TEST_F(ProjectFileFaults, AWriteProtectedFileIsNotReplaced)
{
    // Root may write anything, so the answer of the system is replaced.
    class Protected : public tncommon::FileSystem
    {
        bool MayWrite(const fs::path&) override { return false; }
    } fileSystem;
    try {
        ProjectFile::Save(*m_project, m_path, fileSystem);
        ADD_FAILURE();
    } catch (const ProjectFileError& error) {
        EXPECT_EQ(error.GetProblem(), ProjectFileProblem::NotWritable);
        EXPECT_EQ(error.Format("Datei {path}"), "Datei " + m_path.string());
        EXPECT_NE(error.Format("kaputt {pfad}").find(m_path.string()), std::string::npos);
    }
    EXPECT_EQ(support::ReadBytes(m_path), m_old);
    ProjectFile::Save(*m_project, m_folder / "new.tarnvik", fileSystem);
}

TEST_F(ProjectFileFaults, AFullDiskLeavesTheOldFile)
{
    // The system's own limit on file sizes, in a process of its own: the write fails half way.
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit{m_old.size() / 2, m_old.size() / 2};
        std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &limit);
        try {
            ProjectFile::Save(*m_project, m_path);
            _exit(1);
        } catch (const ProjectFileError&) {
            _exit(0);
        } catch (...) {
            _exit(2);
        }
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(support::ReadBytes(m_path), m_old);
    EXPECT_EQ(FilesInFolder(), 1U);
}

/// Ends the process at the n-th call.
class Killing : public support::FailingFileSystem
{
public:
    explicit Killing(int writes) : FailingFileSystem(0), m_writes(writes) {}
    std::size_t Write(int descriptor, const char* bytes, std::size_t size) override
    {
        if (--m_writes == 0)
            raise(SIGKILL);
        return FailingFileSystem::Write(descriptor, bytes, size);
    }
    void Rename(const fs::path&, const fs::path&) override { raise(SIGKILL); }

private:
    int m_writes;
};

TEST_F(ProjectFileFaults, AKillLeavesTheOldFileAndItsTraceGoesWithTheNextSave)
{
    for (const int writes : {1, 2, 1000}) {
        const pid_t child = fork();
        if (child == 0) {
            Killing killing(writes);
            ProjectFile::Save(*m_project, m_path, killing);
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        EXPECT_EQ(support::ReadBytes(m_path), m_old);
    }
    EXPECT_GT(FilesInFolder(), 1U);
    ProjectFile::Save(*m_project, m_path);
    EXPECT_EQ(FilesInFolder(), 1U);
    EXPECT_EQ(ProjectFile::Load(m_path)->GetUnitSystemDisplay(), "imperial");
}

/// Either the project that was saved, or an error.
void ExpectSameOrError(const fs::path& path, const Project& expected)
{
    std::unique_ptr<Project> loaded;
    try {
        loaded = ProjectFile::Load(path);
    } catch (const ProjectFileError&) {
        return;
    }
    support::ExpectSameProject(expected, *loaded);
}

TEST_F(ProjectFileFaults, ADamagedByteIsNoticedOrDoesNotMatter)
{
    const auto expected = ProjectFile::Load(m_path);
    const auto damaged = m_folder / "damaged.tarnvik";
    int refused = 0;
    int tried = 0;
    for (std::size_t position = 0; position < m_old.size(); position += position < 200 ? 1 : 97) {
        for (const int flip : {0x01, 0xff}) {
            std::string bytes = m_old;
            bytes[position] = static_cast<char>(bytes[position] ^ flip);
            support::WriteBytes(damaged, bytes);
            ++tried;
            try {
                const auto loaded = ProjectFile::Load(damaged);
                support::ExpectSameProject(*expected, *loaded);
            } catch (const ProjectFileError&) {
                ++refused;
            }
            ASSERT_FALSE(HasFailure()) << "position " << position << ", flip " << flip;
        }
    }
    EXPECT_GT(refused, tried / 4);  // a loader that looks at nothing would refuse none
}

TEST_F(ProjectFileFaults, ATruncatedOrExtendedFileIsNoticedOrDoesNotMatter)
{
    const auto expected = ProjectFile::Load(m_path);
    const auto damaged = m_folder / "damaged.tarnvik";
    for (std::size_t size = 0; size < m_old.size(); size += 509) {
        support::WriteBytes(damaged, m_old.substr(0, size));
        EXPECT_THROW(ProjectFile::Load(damaged), ProjectFileError) << size;
    }
    support::WriteBytes(damaged, m_old + std::string(5000, '\x55'));
    ExpectSameOrError(damaged, *expected);
}

}  // namespace
