// SPDX-License-Identifier: MIT
// What the user reads about files and databases that cannot be used, made by real ones.
#include "gui_base/messages/user_message.h"

#include "dbinterfaces/database_error.h"
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "projectbase/project/project.h"
#include "projectbase/project/project_file.h"
#include "tests/support/gui_test.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;

class UserMessages : public gui_test::GuiTest
{
protected:
    void TearDown() override
    {
        MasterDatabase::SetPath({});
        ProjectDatabase::SetBusyTimeout(std::chrono::seconds(5));
        ProjectDatabase::Close();
        GuiTest::TearDown();
    }

    /// What `work` fails with.
    static UserMessage Of(const std::function<void()>& work)
    {
        try {
            work();
        } catch (const std::exception& error) {
            return MessageOf(error);
        }
        ADD_FAILURE() << "nothing failed";
        return {};
    }
    static void Expect(const UserMessage& message, const std::string& what, const std::string& advice)
    {
        EXPECT_THAT(message.text.utf8_string(), AllOf(HasSubstr(what), HasSubstr(advice)));
        EXPECT_FALSE(message.text.Contains("::")) << "the technical text stands apart: " << message.text;
        EXPECT_THAT(message.details.utf8_string(), HasSubstr("::"));
    }

    support::TempFolder m_folder;
};

TEST_F(UserMessages, NameTheFileTheTroubleAndWhatToDo)
{
    const fs::path file = m_folder / "user.db";
    const auto open = [&] { ProjectDatabase::Open(file.string()); };
    support::WriteBytes(file, std::string(5000, 'x'));
    Expect(Of(open), file.string(), "Put a backup in its place");
    EXPECT_EQ(support::ReadBytes(file), std::string(5000, 'x'));

    fs::remove(file);
    open();
    ProjectDatabase::Close();
    {
        soci::session newer(*soci::factory_sqlite3(), "dbname=\"" + file.string() + "\"");
        newer << "UPDATE tarnvik_schema SET version = version + 1000";
        Expect(Of(open), file.string(), "newer version of the program. Update");
        newer << "UPDATE tarnvik_schema SET version = version - 1000";
        ProjectDatabase::SetBusyTimeout(std::chrono::milliseconds(10));
        open();
        newer << "BEGIN IMMEDIATE";
        Expect(Of([] { ProjectDatabase::SetUserParameter("a", "b"); }), file.string(),
               "locked by another program");
    }
    support::WriteBytes(m_folder / "no folder", "");
    Expect(Of([&] { ProjectDatabase::Open((m_folder / "no folder/user.db").string()); }), "no folder/user.db",
           "Check that it can be reached");

    MasterDatabase::SetPath(m_folder / "data/master.db");
    Expect(Of([] { MasterDatabase::GetPlantTypes(); }), (m_folder / "data").string(),
           "Install the program again");

    Expect(Of([&] { ProjectFile::Load(m_folder / "b\xff\x1b[2Jad.tarnvik"); }), "b\\xff\\x1b[2Jad.tarnvik",
           "There is no file");
}

}  // namespace
