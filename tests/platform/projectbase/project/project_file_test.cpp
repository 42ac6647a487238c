// SPDX-License-Identifier: MIT
#include "projectbase/project/project_file.h"

#include "tests/support/project_fixture.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cmath>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using Problem = ProjectFileProblem;

/// Works on a project file with SQL, as another version of the program might have written it.
void Sql(const fs::path& path, const std::string& statements)
{
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
}

Problem ProblemOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const ProjectFileError& error) {
        EXPECT_NE(std::string(error.what()).find(error.GetPath().string()), std::string::npos)
            << error.what();
        EXPECT_EQ(std::string(error.what()).find('{'), std::string::npos) << error.what();
        return error.GetProblem();
    }
    ADD_FAILURE() << "no error";
    return Problem::WriteFailed;
}

class ProjectFileTest : public testing::Test
{
protected:
    std::size_t FilesInFolder() const
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_folder.Path()), {}));
    }

    support::TempFolder m_folder;
    fs::path m_path = m_folder / "plant \u00e4.tarnvik";
};

TEST_F(ProjectFileTest, BringsBackEveryValueExactly)
{
    const auto project = support::MakeSampleProject();
    ProjectFile::Save(*project, m_path);
    const auto loaded = ProjectFile::Load(m_path);
    support::ExpectSameProject(*project, *loaded);
    EXPECT_FALSE(loaded->IsChanged());
    EXPECT_TRUE(std::signbit(loaded->GetLiquid(1).GetDetails()->At("liquid/ca.orig").GetDoubleValue()));
    EXPECT_TRUE(loaded->GetLiquid(1).GetDetails()->At("liquid/na.meql").IsDerived());

    // A second save of the same gives the same bytes.
    const std::string bytes = support::ReadBytes(m_path);
    ProjectFile::Save(*loaded, m_path);
    EXPECT_EQ(support::ReadBytes(m_path), bytes);
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(ProjectFileTest, ADateStaysTheSameDayInAnotherTimeZone)
{
    const auto project = support::MakeSampleProject();
    ProjectFile::Save(*project, m_path);
    setenv("TZ", "America/Los_Angeles", 1);
    tzset();
    const wxDateTime date = ProjectFile::Load(m_path)->GetDetails().At("project/date").GetDateValue();
    EXPECT_EQ(date.FormatISOCombined().utf8_string(), "2024-02-29T13:14:15");
    unsetenv("TZ");
    tzset();
}

TEST_F(ProjectFileTest, ToleratesANewerMinorVersion)
{
    const auto project = support::MakeSampleProject();
    project->GetLiquid(0).GetDetails()->Add(DetailData("liquid/future", DetailType::String)).SetValue("kept");
    ProjectFile::Save(*project, m_path);
    Sql(m_path,
        "PRAGMA user_version = 107; CREATE TABLE future (x); INSERT INTO future VALUES (1);"
        "ALTER TABLE liquid ADD COLUMN colour TEXT;");
    const auto loaded = ProjectFile::Load(m_path);
    EXPECT_EQ(loaded->GetLiquid(0).GetDetails()->At("liquid/future").GetStdStringValue(), "kept");
    support::ExpectSameProject(*project, *loaded);
}

TEST_F(ProjectFileTest, WhatAnOlderFileLacksIsNotKnown)
{
    const auto project = ProjectFile::Load(TARNVIK_SOURCE_DIR "/fuzz/corpus/project_file/plant.tarnvik");
    const DetailList& water = *project->GetLiquid(0).GetDetails();
    EXPECT_TRUE(std::isnan(water.At("liquid/oil").GetDoubleValue()));
    ProjectFile::Save(*project, m_path);
    support::ExpectSameProject(*project, *ProjectFile::Load(m_path));
}

TEST_F(ProjectFileTest, RefusesWhatIsNoProjectOfThisVersion)
{
    const auto project = support::MakeSampleProject();
    const auto saved = m_folder / "saved.tarnvik";
    ProjectFile::Save(*project, saved);
    const struct
    {
        const char* sql;
        Problem problem;
    } changes[] = {
        {"PRAGMA user_version = 200", Problem::NewerVersion},
        {"PRAGMA user_version = 0", Problem::Damaged},
        {"PRAGMA application_id = 5", Problem::NoProject},
        {"UPDATE detail SET value = 1.5 WHERE name = 'liquid/na.orig'", Problem::Damaged},
        {"UPDATE note SET text = 'imperial' WHERE name = 'unit.system'", Problem::Damaged},
        {"DELETE FROM note", Problem::Damaged},
        {"DELETE FROM liquid WHERE id = 0", Problem::Damaged},
        {"DROP TABLE detail", Problem::Damaged},
        // A view instead of a table that would keep the reader busy for ever.
        {"DROP TABLE liquid; CREATE VIEW liquid AS WITH RECURSIVE c(id) AS (SELECT 1 UNION ALL SELECT id + 1 "
         "FROM c) "
         "SELECT id, 'x' AS name FROM c",
         Problem::Damaged},
    };
    for (const auto& change : changes) {
        SCOPED_TRACE(change.sql);
        fs::copy_file(saved, m_path, fs::copy_options::overwrite_existing);
        Sql(m_path, change.sql);
        const std::string before = support::ReadBytes(m_path);
        EXPECT_EQ(ProblemOf([this] { ProjectFile::Load(m_path); }), change.problem);
        EXPECT_EQ(support::ReadBytes(m_path), before);
    }
}

TEST_F(ProjectFileTest, RefusesWhatIsNoFileOfOurs)
{
    const auto project = support::MakeSampleProject();
    Sql(m_folder / "foreign.db", "CREATE TABLE songs (title TEXT)");
    support::WriteBytes(m_folder / "text", "Dear reader, this is a letter.");
    support::WriteBytes(m_folder / "empty", "");
    ASSERT_EQ(mkfifo((m_folder / "pipe").c_str(), 0600), 0);
    support::WriteBytes(m_folder / "large", "SQLite format 3");
    fs::resize_file(m_folder / "large", ProjectFile::kMaxSize + 1);
    const struct
    {
        fs::path path;
        Problem loading;
    } cases[] = {
        {m_folder / "missing", Problem::Missing},      {m_folder.Path(), Problem::Folder},
        {m_folder / "foreign.db", Problem::NoProject}, {m_folder / "text", Problem::NoProject},
        {m_folder / "empty", Problem::NoProject},      {m_folder / "pipe", Problem::NoRegularFile},
        {m_folder / "large", Problem::TooLarge},       {m_folder / "text/inside", Problem::Missing},
    };
    for (const auto& row : cases)
        EXPECT_EQ(ProblemOf([&row] { ProjectFile::Load(row.path); }), row.loading) << row.path;

    const auto save = [&](const fs::path& path) {
        return [&project, path] { ProjectFile::Save(*project, path); };
    };
    EXPECT_EQ(ProblemOf(save(m_folder / "no/such/folder/plant.tarnvik")), Problem::FolderMissing);
    EXPECT_EQ(ProblemOf(save(m_folder / "text/plant.tarnvik")), Problem::FolderMissing);
    EXPECT_EQ(ProblemOf(save(m_folder.Path())), Problem::Folder);
    EXPECT_EQ(ProblemOf(save(m_folder / "pipe")), Problem::NoRegularFile);
    EXPECT_EQ(support::ReadBytes(m_folder / "text"), "Dear reader, this is a letter.");
}

TEST_F(ProjectFileTest, KeepsPermissionsAndLinks)
{
    const auto project = support::MakeSampleProject();
    fs::create_directory(m_folder / "real");
    const auto real = m_folder / "real/plant.tarnvik";
    ProjectFile::Save(*project, real);
    fs::permissions(real, fs::perms{0640});
    fs::create_symlink("real/plant.tarnvik", m_folder / "inner");
    fs::create_symlink(m_folder / "inner", m_folder / "outer");
    fs::create_symlink("real/new.tarnvik", m_folder / "dangling");

    project->SetUnitSystemDisplay("imperial");
    ProjectFile::Save(*project, m_folder / "outer");
    EXPECT_TRUE(fs::is_symlink(m_folder / "outer"));
    EXPECT_TRUE(fs::is_symlink(m_folder / "inner"));
    EXPECT_EQ(fs::status(real).permissions(), fs::perms{0640});
    EXPECT_EQ(ProjectFile::Load(real)->GetUnitSystemDisplay(), "imperial");

    const mode_t mask = umask(027);
    ProjectFile::Save(*project, m_folder / "dangling");
    umask(mask);
    EXPECT_TRUE(fs::is_symlink(m_folder / "dangling"));
    EXPECT_EQ(fs::status(m_folder / "real/new.tarnvik").permissions(), fs::perms{0640});

    fs::create_symlink("loop", m_folder / "loop");
    EXPECT_EQ(ProblemOf([&] { ProjectFile::Save(*project, m_folder / "loop"); }), Problem::WriteFailed);
}

}  // namespace
