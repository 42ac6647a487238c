// SPDX-License-Identifier: MIT
// What happens to unsaved work and to files that others write, too.
#include "app/frame/file_commands.h"

#include "app/document/recent_files.h"
#include "app/frame/recovery_dialog.h"
#include "app/frame/session_end.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/project_lock.h"
#include "projectbase/project/recovery_file.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/filedlg.h>
#include <wx/listctrl.h>
#include <wx/msgdlg.h>

#include <csignal>
#include <cstdlib>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>

namespace {

namespace fs = std::filesystem;
using namespace gui_test;

class FileCommandsTest : public ProgramTest
{
protected:
    FileCommandsTest() : ProgramTest("world_river_livingstone") {}
    void SetUp() override
    {
        for (const RecoverableFile& file : RecoveryFile::List())
            RecoveryFile::Discard(file);
        ProgramTest::SetUp();
    }

    TvTextCtrl& Field(const std::string& key) { return *WaterPage().FindField("liquid/" + key); }
    double Value(const std::string& key) { return Water(key).GetDoubleValue(); }
    /// The file of another program, which holds this sodium.
    static void WriteAs(const fs::path& path, double sodium)
    {
        auto project = app::NewProjectFrom(*app::FindWaterTemplate("world_river_livingstone"));
        project->GetLiquid(0).GetDetails()->At("liquid/na.orig").SetValue(sodium);
        ProjectFile::Save(*project, path);
    }
    static double SodiumIn(const fs::path& path)
    {
        return ProjectFile::Load(path)->GetLiquid(0).GetDetails()->At("liquid/na.orig").GetDoubleValue();
    }
    /// What a program leaves behind that opened `path`, changed the sodium, and ended without saving.
    static void Crash(const fs::path& path, double sodium)
    {
        app::Document document(ProjectFile::Open(path), path);
        document.GetProject().GetLiquid(0).GetDetails()->At("liquid/na.orig").SetValue(sodium);
        document.Autosave();
    }
    /// Answers with real keys, when the dialog is up.
    void ExpectKeys(const std::function<void(wxDialog&)>& keys)
    {
        m_dialogs.Expect([keys](wxDialog& dialog) {
            dialog.CallAfter([&dialog, keys] {
                Pump();
                keys(dialog);
            });
            return static_cast<int>(wxID_NONE);
        });
    }
};

TEST_F(FileCommandsTest, UnsavedWorkIsOfferedUntilTheUserDecides)
{
    const fs::path first = m_folder / "first.tarnvik";
    const fs::path second = m_folder / "second.tarnvik";
    for (const fs::path& path : {first, second}) {
        WriteAs(path, 1.0);
        Crash(path, 77.0);
    }
    ExpectKeys([](wxDialog& dialog) {
        const auto& list = Find<wxListView>(dialog);
        ASSERT_EQ(list.GetItemCount(), 2);
        EXPECT_TRUE(list.GetItemText(0, 0).EndsWith("second.tarnvik") ||
                    list.GetItemText(1, 0).EndsWith("second.tarnvik"));
        EXPECT_THAT(list.GetItemText(0, 1).utf8_string(), testing::MatchesRegex("....-..-.. ..:.."));
        EXPECT_THAT(Find<wxStaticText>(dialog).GetLabelText().utf8_string(), testing::EndsWith("Sodium"));
        Press(WXK_ESCAPE);
    });
    m_frame->Files().OfferRecovery();
    EXPECT_EQ(RecoveryFile::List().size(), 2u) << "Esc means later";

    // To discard is asked by name and time, and "no" keeps it.
    for (const int answer : {wxID_NO, wxID_YES}) {
        m_dialogs.Expect([&](wxDialog& dialog) {
            dialog.CallAfter([&dialog] {
                Click(Find<wxButton>(dialog));
                Press(WXK_ESCAPE);
            });
            return static_cast<int>(wxID_NONE);
        });
        m_dialogs.Expect([answer](wxDialog& dialog) {
            const wxString text = dynamic_cast<wxMessageDialog&>(dialog).GetMessage();
            EXPECT_TRUE(text.Contains(".tarnvik") && text.Contains(wxDateTime::Now().Format("%Y-%m-%d")))
                << text;
            return answer;
        });
        m_frame->Files().ShowRecovery();
        EXPECT_EQ(RecoveryFile::List().size(), answer == wxID_NO ? 2u : 1u);
    }

    const fs::path left = RecoveryFile::List().at(0).project;
    ExpectKeys([](wxDialog&) { Press(WXK_RETURN); });
    m_frame->Files().ShowRecovery();
    Pump();
    EXPECT_EQ(Value("na.orig"), 77.0);
    EXPECT_TRUE(m_frame->GetDocument().IsUnsaved());
    EXPECT_EQ(m_frame->GetDocument().GetPath(), left);
    EXPECT_TRUE(RecoveryFile::List().empty()) << "this program keeps it now";
    EXPECT_EQ(SodiumIn(left), 1.0) << "not before it is saved";
    ASSERT_TRUE(m_frame->Files().Save());
    EXPECT_EQ(SodiumIn(left), 77.0);

    m_dialogs.Expect([](wxDialog& dialog) {
        EXPECT_TRUE(dynamic_cast<wxMessageDialog&>(dialog).GetMessage().Contains("no unsaved work"));
        return wxID_OK;
    });
    m_frame->Files().ShowRecovery();
}

TEST_F(FileCommandsTest, WorkGoesBackToItsOwnFileWhereverTheProgramStarts)
{
    const fs::path start = fs::current_path();
    fs::create_directories(m_folder / "a");
    fs::create_directories(m_folder / "b");
    WriteAs(m_folder / "a/plant.tarnvik", 1.0);
    WriteAs(m_folder / "b/plant.tarnvik", 2.0);
    fs::current_path(m_folder / "a");
    Crash("plant.tarnvik", 77.0);
    fs::current_path(m_folder / "b");
    ExpectKeys([](wxDialog&) { Press(WXK_RETURN); });
    m_frame->Files().OfferRecovery();
    EXPECT_TRUE(m_frame->Files().Save());
    fs::current_path(start);
    EXPECT_EQ(SodiumIn(m_folder / "a/plant.tarnvik"), 77.0);
    EXPECT_EQ(SodiumIn(m_folder / "b/plant.tarnvik"), 2.0);
}

TEST_F(FileCommandsTest, AFileThatSomebodyElseWroteIsNotReplacedUnasked)
{
    const fs::path path = m_folder / "plant.tarnvik";
    WriteAs(path, 1.0);
    ASSERT_TRUE(m_frame->Files().Open(path));
    Pump();
    Enter(Field("na.orig"), "5");
    Menu(wxID_SAVE);
    EXPECT_EQ(SodiumIn(path), 5.0) << "nobody else wrote it";
    fs::last_write_time(path, fs::file_time_type::clock::now() + std::chrono::hours(1));
    Enter(Field("na.orig"), "6");
    Menu(wxID_SAVE);
    EXPECT_EQ(SodiumIn(path), 6.0) << "only its time is another";

    const auto saveAfterAStranger = [&](int answer) {
        WriteAs(path, 100.0);
        m_dialogs.Expect([&](wxDialog& dialog) {
            EXPECT_TRUE(dynamic_cast<wxMessageDialog&>(dialog).GetMessage().EndsWith("plant.tarnvik"));
            return answer;
        });
        Menu(wxID_SAVE);
    };
    Enter(Field("na.orig"), "7");
    saveAfterAStranger(wxID_CANCEL);
    EXPECT_EQ(SodiumIn(path), 100.0);
    EXPECT_TRUE(m_frame->GetDocument().IsUnsaved());
    saveAfterAStranger(wxID_YES);
    EXPECT_EQ(SodiumIn(path), 7.0);
    EXPECT_FALSE(m_frame->GetDocument().IsUnsaved());
    Enter(Field("na.orig"), "8");
    saveAfterAStranger(wxID_NO);
    Pump();
    EXPECT_EQ(Value("na.orig"), 100.0) << "theirs";
    EXPECT_FALSE(m_frame->GetDocument().IsUnsaved());

    fs::remove(path);
    Enter(Field("na.orig"), "9");
    Menu(wxID_SAVE);
    EXPECT_EQ(SodiumIn(path), 9.0) << "a file that is gone comes back";

    // Restored work remembers which file it was based on.
    Crash(path, 77.0);
    WriteAs(path, 200.0);
    ExpectKeys([](wxDialog&) { Press(WXK_RETURN); });
    m_frame->Files().OfferRecovery();
    m_dialogs.Expect([](wxDialog&) { return wxID_CANCEL; });
    Menu(wxID_SAVE);
    EXPECT_EQ(SodiumIn(path), 200.0);
}

TEST_F(FileCommandsTest, AnEndingThatIsAddedReplacesNoFileUnasked)
{
    const fs::path path = m_folder / "plant.tarnvik";
    WriteAs(path, 1.0);
    // Otherwise the dialog completes the name by itself.
    WriteAs(m_folder / "plant 2.tarnvik", 2.0);
    Enter(Field("na.orig"), "5");
    for (const int answer : {wxID_NO, wxID_YES}) {
        m_dialogs.Expect([&](wxDialog& dialog) {
            return ChooseFile(dynamic_cast<wxFileDialog&>(dialog), m_folder / "plant") ? wxID_OK
                                                                                       : wxID_CANCEL;
        });
        m_dialogs.Expect([&](wxDialog& dialog) {
            EXPECT_TRUE(dynamic_cast<wxMessageDialog&>(dialog).GetMessage().Contains("plant.tarnvik exists"));
            return answer;
        });
        EXPECT_EQ(m_frame->Files().SaveAs(), answer == wxID_YES);
        EXPECT_EQ(SodiumIn(path), answer == wxID_YES ? 5.0 : 1.0);
    }
}

TEST_F(FileCommandsTest, ANewPlantIsOfTheTypeThatIsChosen)
{
    // Of the types in the list, softening and demineralisation, the latter with the figures of an example.
    for (const bool withExample : {false, true}) {
        m_dialogs.Expect([withExample](wxDialog& dialog) {
            Find<wxListView>(dialog).Select(withExample ? 3 : 1);
            Find<wxCheckBox>(dialog, "With the figures of an example").SetValue(withExample);
            return static_cast<int>(wxID_OK);
        });
        m_frame->Files().NewPlant();
        const Project& project = m_frame->GetProject();
        EXPECT_EQ(project.GetModuleType(), withExample ? "DEMI" : "SOFT");
        EXPECT_EQ(project.GetStatus(), withExample ? StatusDesigned : StatusWaters);
        EXPECT_NE(m_frame->GetBook().Show("design", {}), nullptr);
    }
    m_dialogs.Expect([](wxDialog&) { return static_cast<int>(wxID_CANCEL); });
    m_frame->Files().NewPlant();
    EXPECT_EQ(m_frame->GetProject().GetModuleType(), "DEMI");
}

TEST_F(FileCommandsTest, RecentFilesAreWhatTheyWereCalled)
{
    for (const char* name : {"b\xff\x1b.tarnvik", "two\nlines.tarnvik"}) {
        WriteAs(m_folder / name, 1.0);
        EXPECT_TRUE(m_frame->Files().Open(m_folder / name));
    }
    EXPECT_THAT(app::RecentFiles(), testing::ElementsAre(m_folder / "b\xff\x1b.tarnvik"));
    EXPECT_EQ(m_frame->GetTitle(), "two\\x0alines - Tarnvik");
}

TEST_F(FileCommandsTest, TwoWindowsOnOneProjectAreTold)
{
    const fs::path path = m_folder / "plant.tarnvik";
    WriteAs(path, 1.0);
    {
        const auto other = ProjectLock::TryTake(path);
        ASSERT_TRUE(other.lock);
        m_dialogs.Expect([](wxDialog& dialog) {
            EXPECT_TRUE(
                dynamic_cast<wxMessageDialog&>(dialog).GetMessage().Contains("open in another window"));
            return wxID_CANCEL;
        });
        EXPECT_FALSE(m_frame->Files().Open(path));
        EXPECT_EQ(Value("na.orig"), 6.3);

        m_dialogs.Expect([](wxDialog&) { return wxID_YES; });
        EXPECT_TRUE(m_frame->Files().Open(path));
        EXPECT_TRUE(m_frame->GetDocument().GetPath().empty()) << "a copy has no file";
        EXPECT_TRUE(m_frame->GetDocument().IsUnsaved());
        EXPECT_EQ(Value("na.orig"), 1.0);

        m_dialogs.Expect([](wxDialog&) { return wxID_NO; });
        EXPECT_FALSE(m_frame->Files().SaveTo(path)) << "the other window has it";
        EXPECT_EQ(SodiumIn(path), 1.0);

        m_dialogs.Expect([](wxDialog&) { return wxID_NO; });
        EXPECT_TRUE(m_frame->Files().Open(path));
        EXPECT_EQ(m_frame->GetDocument().GetPath(), path);
    }
    EXPECT_TRUE(m_frame->Files().Open(path));
    EXPECT_TRUE(m_frame->Files().Open(path)) << "once more in the same window";
    EXPECT_TRUE(ProjectLock::TryTake(path).holder);
    EXPECT_TRUE(m_frame->Files().SaveTo(m_folder / "other.tarnvik"));
    EXPECT_TRUE(ProjectLock::TryTake(path).lock) << "left for another file";
    EXPECT_TRUE(ProjectLock::TryTake(m_folder / "other.tarnvik").holder);
}

TEST_F(FileCommandsTest, AWindowThatMustCloseGivesNothingUp)
{
    Enter(Field("na.orig"), "12.5");
    m_frame->GetDocument().Autosave();
    m_frame->Close(true);
    Pump();
    ASSERT_EQ(RecoveryFile::List().size(), 1u);
    EXPECT_EQ(RecoveryFile::Load(RecoveryFile::List()[0])
                  ->GetLiquid(0)
                  .GetDetails()
                  ->At("liquid/na.orig")
                  .GetDoubleValue(),
              12.5);
    m_frame = new app::MainFrame(MakeDocument(m_water));
}

class SessionEndDeathTest : public FileCommandsTest
{
protected:
    void SetUp() override
    {
        // The process that is ended begins its test anew, and keeps where this one looks.
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        if (std::getenv("TARNVIK_TEST_STATE") == nullptr)
            setenv("TARNVIK_TEST_STATE", (m_folder / "ended").c_str(), 1);
        setenv("TARNVIK_USER_DATA", std::getenv("TARNVIK_TEST_STATE"), 1);
        FileCommandsTest::SetUp();
    }
    void TypeSodium()
    {
        app::KeepWorkAtSessionEnd(*m_frame);
        Focus(Field("na.orig"));
        Field("na.orig").SelectAll();
        Type("12.5");
    }
    /// As if the display server had ended.
    static void LoseDisplay()
    {
        for (int descriptor = 3; descriptor < 1024; ++descriptor) {
            sockaddr_un peer{};
            socklen_t size = sizeof(peer);
            if (getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) == 0 &&
                peer.sun_family == AF_UNIX &&
                std::string_view(peer.sun_path + 1, sizeof(peer.sun_path) - 1).find("X11-unix") !=
                    std::string_view::npos)
                shutdown(descriptor, SHUT_RDWR);
        }
    }
    void ExpectSodiumKept()
    {
        const auto kept = RecoveryFile::List();
        unsetenv("TARNVIK_TEST_STATE");
        ASSERT_EQ(kept.size(), 1u);
        const auto project = RecoveryFile::Load(kept[0]);
        EXPECT_EQ(project->GetLiquid(0).GetDetails()->At("liquid/na.orig").GetDoubleValue(), 12.5);
    }
};

TEST_F(SessionEndDeathTest, KeepsWhatIsTypedAndNotYetLeft)
{
    EXPECT_EXIT(
        {
            TypeSodium();
            std::raise(SIGTERM);
            Pump();
            std::exit(0);
        },
        testing::KilledBySignal(SIGTERM), "");
    ExpectSodiumKept();
}

TEST_F(SessionEndDeathTest, KeepsTheWorkWhenTheDisplayIsGone)
{
    EXPECT_EXIT(
        {
            TypeSodium();
            Press(WXK_TAB);
            LoseDisplay();
            Pump();
            std::exit(0);
        },
        testing::ExitedWithCode(1), "");
    ExpectSodiumKept();
}

}  // namespace
