// SPDX-License-Identifier: MIT
// Project files that are small and would be read as if they were large: their pages are patched.
#include "projectbase/project/project.h"
#include "projectbase/project/project_file.h"
#include "tests/support/bounded_work.h"
#include "tests/support/project_fixture.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPage = 512;

std::string BigEndian(std::uint64_t number, int size)
{
    std::string bytes;
    for (int i = size - 1; i >= 0; --i)
        bytes += static_cast<char>(number >> 8 * i & 0xff);
    return bytes;
}

std::string Varint(std::uint64_t number)
{
    std::string bytes(1, static_cast<char>(number & 0x7f));
    while ((number >>= 7) != 0)
        bytes.insert(bytes.begin(), static_cast<char>(0x80 | (number & 0x7f)));
    return bytes;
}

/// A real project in small pages, to which more are added.
class Forgery
{
public:
    Forgery() : m_path(m_folder / "forged.tarnvik")
    {
        ProjectFile::Save(*support::MakeSampleProject(), m_path);
        Sql("PRAGMA page_size = 512; VACUUM");
        m_bytes = support::ReadBytes(m_path);
    }

    const fs::path& Path() const { return m_path; }
    void Sql(const std::string& statements)
    {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(m_path.c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }
    std::uint32_t Pages() const { return static_cast<std::uint32_t>(m_bytes.size() / kPage); }
    /// The number of the new page.
    std::uint32_t Add(std::string page)
    {
        page.resize(kPage);
        m_bytes += page;
        return Pages();
    }
    void Replace(std::uint32_t number, std::string page)
    {
        page.resize(kPage);
        m_bytes.replace((number - std::size_t{1}) * kPage, kPage, page);
    }
    /// First page of the table of the parts of a plant, whose rows are numbered.
    std::uint32_t Root()
    {
        sqlite3* database = nullptr;
        sqlite3_open(m_path.c_str(), &database);
        std::uint32_t root = 0;
        sqlite3_exec(
            database, "SELECT rootpage FROM sqlite_master WHERE name = 'owner'",
            [](void* found, int, char** row, char**) {
                *static_cast<std::uint32_t*>(found) = static_cast<std::uint32_t>(std::stoul(row[0]));
                return 0;
            },
            &root, nullptr);
        sqlite3_close(database);
        return root;
    }
    void Write()
    {
        m_bytes.replace(28, 4, BigEndian(Pages(), 4));
        support::WriteBytes(m_path, m_bytes);
    }

    /// A page of cells; `kind` 13 is a leaf of a table, 5 one with branches, of which the last needs no cell.
    static std::string Page(char kind, const std::vector<std::string>& cells, std::uint32_t last = 0)
    {
        std::string body;
        std::string pointers;
        const std::size_t header = kind == 5 ? 12 : 8;
        for (const std::string& cell : cells) {
            pointers += BigEndian(kPage - body.size() - cell.size(), 2);
            body.insert(0, cell);
        }
        std::string page = std::string(1, kind) + BigEndian(0, 2) + BigEndian(cells.size(), 2) +
                           BigEndian(kPage - body.size(), 2) + std::string(1, '\0');
        if (kind == 5)
            page += BigEndian(last, 4);
        EXPECT_LE(header + pointers.size() + body.size(), kPage);
        return page + pointers + std::string(kPage - header - pointers.size() - body.size(), '\0') + body;
    }
    /// A row (number, parent 0, a text of `size` bytes, which goes on in the page `overflow`).
    static std::string Row(std::uint64_t number, std::uint64_t size, std::uint32_t overflow)
    {
        std::string header = BigEndian(0, 1) + BigEndian(8, 1) + Varint(2 * size + 13);
        header.insert(0, Varint(header.size() + 1));
        const std::uint64_t payload = header.size() + size;
        const std::uint64_t least = 39;  // what a leaf holds of a long row at the least
        std::uint64_t local = least + (payload - least) % (kPage - 4);
        local = local <= kPage - 35 ? local : least;
        header.resize(local, 'x');
        return Varint(payload) + Varint(number) + header + BigEndian(overflow, 4);
    }
    static std::string Branch(std::uint32_t page, std::uint64_t number)
    {
        return BigEndian(page, 4) + Varint(number);
    }
    /// A chain of pages; its first one.
    std::uint32_t AddChain(std::uint32_t length)
    {
        const std::uint32_t first = Pages() + 1;
        for (std::uint32_t i = 1; i <= length; ++i)
            Add(BigEndian(i == length ? 0 : first + i, 4) + std::string(kPage - 4, 'x'));
        return first;
    }

private:
    support::TempFolder m_folder;
    fs::path m_path;
    std::string m_bytes;
};

constexpr std::uint64_t kTextInChain =
    239'809;  // 39 bytes of the row in its own page, 472 pages of it elsewhere

/// Thousands of rows whose texts are one and the same chain.
void ShareAChain(Forgery& file)
{
    const std::uint32_t chain = file.AddChain(472);
    std::vector<std::uint32_t> leaves;
    for (std::uint64_t number = 0; leaves.size() < 496; number += 8) {
        std::vector<std::string> rows;
        for (std::uint64_t i = 1; i <= 8; ++i)
            rows.push_back(Forgery::Row(number + i, kTextInChain, chain));
        leaves.push_back(file.Add(Forgery::Page(13, rows)));
    }
    std::vector<std::string> top;
    std::uint32_t last = 0;
    for (std::size_t start = 0; start < leaves.size(); start += 31) {
        std::vector<std::string> branches;
        for (std::size_t i = start; i < start + 30; ++i)
            branches.push_back(Forgery::Branch(leaves[i], 8 * (i + 1)));
        last = file.Add(Forgery::Page(5, branches, leaves[start + 30]));
        if (start + 31 < leaves.size())
            top.push_back(Forgery::Branch(last, 8 * (start + 31)));
    }
    file.Replace(file.Root(), Forgery::Page(5, top, last));
}

/// A short row of the number 1.
std::string ShortRow()
{
    return std::string("\x5f\x01\x05\x00\x08\x81\x41", 7) + std::string(90, 'x');
}

/// Branches that meet again and again in the same pages: 50^8 leaves.
void ShareBranches(Forgery& file)
{
    std::uint32_t below = file.Add(Forgery::Page(13, {ShortRow()}));
    for (int level = 0; level < 8; ++level) {
        const std::vector<std::string> branches(50, Forgery::Branch(below, 1));
        const std::string page = Forgery::Page(5, branches, below);
        if (level == 7)
            file.Replace(file.Root(), page);
        else
            below = file.Add(page);
    }
}

/// A tree like a thread.
void GoDeep(Forgery& file)
{
    std::uint32_t below = file.Add(Forgery::Page(13, {}));
    for (int level = 0; level < 1000; ++level)
        below = file.Add(Forgery::Page(5, {}, below));
    file.Replace(file.Root(), Forgery::Page(5, {}, below));
}

/// A page whose one row is named two hundred times.
void RepeatARow(Forgery& file)
{
    std::string page = Forgery::Page(13, {ShortRow()});
    for (std::size_t i = 1; i < 200; ++i)
        page.replace(8 + 2 * i, 2, page.substr(8, 2));
    page.replace(3, 2, BigEndian(200, 2));
    file.Replace(file.Root(), page);
}

/// A row that says it is larger than the file.
void LieAboutARow(Forgery& file)
{
    file.Replace(file.Root(), Forgery::Page(13, {Forgery::Row(1, 899'999'755, file.AddChain(2))}));
}

void CalculateColumns(Forgery& file)
{
    file.Sql(
        "DROP TABLE owner; CREATE TABLE owner (id INTEGER PRIMARY KEY, parent INTEGER, n TEXT, "
        "kind TEXT AS (replace(hex(zeroblob(499000)), '00', n)))");
}

void NameManyTables(Forgery& file)
{
    std::string statements = "BEGIN;";
    for (int i = 0; i < 3000; ++i)
        statements += "CREATE TABLE t" + std::to_string(i) + " (a);";
    file.Sql(statements + "COMMIT;");
}

void HoldALongText(Forgery& file)
{
    file.Sql("INSERT INTO note VALUES ('long', hex(zeroblob(600000)))");
}

TEST(HostileProjectFile, IsRefusedCheaplyWithTheReason)
{
    const struct
    {
        void (*forge)(Forgery&);
        bool byPages;
        const char* reason;
    } cases[] = {
        {ShareAChain, true, "is used twice"},
        {ShareBranches, true, "is used twice"},
        {GoDeep, true, "too deep"},
        {RepeatARow, true, "names more than it holds"},
        {LieAboutARow, true, "larger than the file"},
        {CalculateColumns, false, "calculated columns"},
        {NameManyTables, false, "schema is too large"},
        {HoldALongText, false, "too big"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.reason);
        Forgery file;
        row.forge(file);
        if (row.byPages)
            file.Write();
        EXPECT_LT(fs::file_size(file.Path()), 2U << 20);
        support::ExpectRefusedCheaply([&] {
            try {
                ProjectFile::Load(file.Path());
                return false;
            } catch (const ProjectFileError& error) {
                const std::string what = error.what();
                const bool says = what.find(row.reason) != std::string::npos &&
                                  what.find(file.Path().string()) != std::string::npos;
                if (!says)
                    std::fprintf(stderr, "%s\n", what.c_str());
                return says && error.GetProblem() == ProjectFileProblem::Damaged;
            }
        });
    }
}

TEST(HostileProjectFile, DoesNotKeepPlainPagesFromBeingRead)
{
    // Pages of every size, long texts in chains of pages, and a tree of several levels.
    for (const char* size : {"512", "1024", "65536"}) {
        Forgery file;
        file.Sql(std::string("INSERT INTO note VALUES ('zz', hex(zeroblob(300000))); PRAGMA page_size = ") +
                 size + "; VACUUM");
        try {
            ProjectFile::Load(file.Path());
            ADD_FAILURE();
        } catch (const ProjectFileError& error) {
            EXPECT_THAT(error.what(), testing::HasSubstr("checksum")) << size;  // all of it was read
        }
        file.Sql("DELETE FROM note WHERE name = 'zz'");
        EXPECT_NO_THROW(ProjectFile::Load(file.Path())) << size;
    }
}

TEST(LargeProjectFile, IsNotSavedWhenItCouldNotBeOpenedAgain)
{
    const support::TempFolder folder;
    const auto project = support::MakeSampleProject();
    ProjectFile::Save(*project, folder / "plant.tarnvik");
    const std::string before = support::ReadBytes(folder / "plant.tarnvik");
    project->GetDetails().At("project/comments").SetValue(wxString(std::string((1 << 20) + 1, 'x')));
    try {
        ProjectFile::Save(*project, folder / "plant.tarnvik");
        ADD_FAILURE();
    } catch (const ProjectFileError& error) {
        EXPECT_EQ(error.GetProblem(), ProjectFileProblem::WriteFailed);
        EXPECT_THAT(error.what(), testing::HasSubstr("longer than 1048576 bytes"));
    }
    EXPECT_EQ(support::ReadBytes(folder / "plant.tarnvik"), before);
}

}  // namespace
