// SPDX-License-Identifier: MIT
// The program's window with real files, menus and keys.
#include "app/frame/results_text.h"
#include "app/frame/settings_dialog.h"
#include "app/frame/template_dialog.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/events.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/support/help_file_provider.h"
#include "projectbase/project/project_file.h"
#include "tests/support/pdf.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>
#include <wx/filedlg.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/srchctrl.h>
#include <wx/uiaction.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <functional>

namespace {

using namespace gui_test;

std::string Bytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class MainFrameTest : public ProgramTest
{
protected:
    MainFrameTest() : ProgramTest("world_river_livingstone") {}

    TvTextCtrl& Field(const std::string& key) { return *WaterPage().FindField("liquid/" + key); }
    double Value(const std::string& key) { return Water(key).GetDoubleValue(); }
};

TEST_F(MainFrameTest, ShowsARealWaterAtOnce)
{
    EXPECT_EQ(Field("na.orig").GetValue(), "6.3");
    EXPECT_NEAR(Value("tds"), 120.0, 0.5);
    EXPECT_EQ(Field("ph").GetValue(), "") << "the source states no pH";
    EXPECT_EQ(m_frame->GetTitle(), "Untitled - Tarnvik");
    EXPECT_TRUE(Messages().empty());
}

TEST_F(MainFrameTest, SavesAndReopensEveryDigit)
{
    const auto path = m_folder / "water.tarnvik";
    gui_test::Enter(Field("na.orig"), "6.123456789012345");
    EXPECT_EQ(m_frame->GetTitle(), "*Untitled - Tarnvik");
    ASSERT_TRUE(m_frame->Files().SaveTo(path));
    EXPECT_EQ(m_frame->GetTitle(), "water - Tarnvik");
    gui_test::Enter(Field("na.orig"), "1");
    ASSERT_TRUE(m_frame->Files().Open(path));
    Pump();
    EXPECT_EQ(Value("na.orig"), 6.123456789012345);
    EXPECT_TRUE(std::isnan(Value("ph"))) << "what was not known still is not";
    EXPECT_EQ(m_frame->GetTitle(), "water - Tarnvik");
    EXPECT_EQ(m_frame->GetMenuBar()->GetMenu(0)->FindItemByPosition(4)->GetSubMenu()->GetMenuItemCount(), 1u);
}

TEST_F(MainFrameTest, SavingCommitsTheFieldThatIsBeingEdited)
{
    const auto path = m_folder / "water.tarnvik";
    ASSERT_TRUE(m_frame->Files().SaveTo(path));
    Focus(Field("mg.orig"));
    Field("mg.orig").SelectAll();
    Type("9.75");
    Menu(wxID_SAVE);
    const auto loaded = ProjectFile::Load(path);
    EXPECT_EQ(loaded->GetLiquid(0).GetDetails()->At("liquid/mg.orig").GetDoubleValue(), 9.75);
}

TEST_F(MainFrameTest, BadFilesAreAnsweredInTheMessageArea)
{
    const auto good = m_folder / "good.tarnvik";
    ASSERT_TRUE(m_frame->Files().SaveTo(good));
    const std::string bytes = Bytes(good);
    const auto write = [&](const char* name, const std::string& content) {
        std::ofstream(m_folder / name, std::ios::binary) << content;
        return m_folder / name;
    };
    // Pages have room that nothing is kept in: a byte of a detail's name is in use.
    std::string flipped = bytes;
    const std::size_t at = flipped.find("liquid/ca.orig");
    ASSERT_NE(at, std::string::npos);
    flipped[at + 7] = static_cast<char>(flipped[at + 7] ^ 0x55);
    const double sodium = Value("na.orig");
    for (const auto& path :
         {write("empty.tarnvik", ""), write("foreign.tarnvik", "hello"),
          write("cut.tarnvik", bytes.substr(0, bytes.size() / 2)), write("flipped.tarnvik", flipped),
          m_folder / "missing.tarnvik", m_folder / "."}) {
        const auto before = Messages().size();
        m_dialogs.Expect([&path](wxDialog& dialog) {
            const wxString text = dynamic_cast<wxMessageDialogBase&>(dialog).GetMessage();
            EXPECT_TRUE(text.Contains(wxString::FromUTF8(path.string()))) << text;
            return wxID_OK;
        });
        EXPECT_FALSE(m_frame->Files().Open(path)) << path;
        ASSERT_EQ(Messages().size(), before + 1) << path;
        EXPECT_NE(Messages().back().find(path.string()), std::string::npos) << Messages().back();
        EXPECT_EQ(Value("na.orig"), sodium) << "the open project stays";
    }
}

TEST_F(MainFrameTest, AFailedSaveLeavesTheOldFileAndSaysSo)
{
    const auto path = m_folder / "water.tarnvik";
    ASSERT_TRUE(m_frame->Files().SaveTo(path));
    const std::string before = Bytes(path);
    gui_test::Enter(Field("na.orig"), "77");
    const auto nowhere = m_folder / "no" / "such" / "folder.tarnvik";
    EXPECT_FALSE(m_frame->Files().SaveTo(nowhere));
    EXPECT_NE(Messages().back().find(nowhere.string()), std::string::npos);
    EXPECT_EQ(Bytes(path), before);
    EXPECT_TRUE(m_frame->GetDocument().IsUnsaved());
    EXPECT_EQ(m_frame->GetDocument().GetPath(), path);
}

TEST_F(MainFrameTest, UndoAndRedoGoStepByStep)
{
    gui_test::Enter(Field("na.orig"), "10");
    gui_test::Enter(Field("ca.orig"), "20");
    Focus(Field("mg.orig"));
    Field("mg.orig").SelectAll();
    Type("30");
    m_frame->Undo();
    EXPECT_NEAR(Value("mg.orig"), 4.1, 1e-12) << "the edit that was going on is the last step";
    EXPECT_EQ(Field("mg.orig").GetValue(), "4.1");
    m_frame->Undo();
    m_frame->Undo();
    EXPECT_EQ(Value("ca.orig"), 15.0);
    EXPECT_EQ(Value("na.orig"), 6.3);
    EXPECT_NEAR(Value("na.meql"), 6.3 / 22.99, 1e-12) << "recalculated";
    m_frame->Undo();
    EXPECT_EQ(Value("na.orig"), 6.3);
    m_frame->Redo();
    m_frame->Redo();
    EXPECT_EQ(Value("na.orig"), 10.0);
    EXPECT_EQ(Field("ca.orig").GetValue(), "20");
    EXPECT_TRUE(PumpUntil([this] { return Field("ca.orig").HasFocus(); }));
}

TEST_F(MainFrameTest, UnitSystemAndLanguageSwitchWithoutLosingADigit)
{
    gui_test::Enter(Field("temp.orig"), "12.3456789");
    const double temperature = Value("temp.orig");
    for (const char* system : {"us", "imperial", "iso", "us"}) {
        m_frame->View().SetUnitSystem(system);
        Pump();
    }
    EXPECT_EQ(Value("temp.orig"), temperature);
    EXPECT_NEAR(wxAtof(Field("temp").GetValue()), 54.22, 0.01);
    struct Texts
    {
        const char* language;
        const char* menu;
        const char* field;
        const char* title;
        const char* book;
    };
    m_frame->ShowHelp();
    for (const Texts& texts :
         {Texts{"de", "Datei", "Natrium [mg/l]", "*Ohne Titel - Tarnvik", "help/de/"},
          Texts{"fr", "Fichier", "Sodium [mg/l]", "*Sans titre - Tarnvik", "help/fr/"},
          Texts{"en", "File", "Sodium [mg/l]", "*Untitled - Tarnvik", "share/tarnvik/help/"}}) {
        m_frame->View().SetLanguage(texts.language);
        Pump();
        EXPECT_EQ(m_frame->GetMenuBar()->GetMenuLabelText(0), texts.menu);
        EXPECT_EQ(Field("na.orig").GetName(), texts.field);
        EXPECT_EQ(m_frame->GetTitle(), texts.title);
        EXPECT_THAT(m_frame->GetHelp()->GetShownPage().utf8_string(),
                    testing::EndsWith(texts.book + std::string("tarnvik6.htb#zip:wateranalysis.html")));
    }
    EXPECT_EQ(Value("temp.orig"), temperature);
}

TEST_F(MainFrameTest, ALineOfTheMessageAreaLeadsToItsField)
{
    gui_test::Enter(Field("ph"), "15");
    Pump();
    EXPECT_EQ(Messages(), std::vector<std::string>{"pH 15 is above the maximum of 14"});
    Focus(Field("na.orig"));
    FollowMessage(0);
    EXPECT_TRUE(PumpUntil([this] { return Field("ph").HasFocus(); }));
    gui_test::Enter(Field("ph"), "7");
    EXPECT_TRUE(Messages().empty());

    gui_test::Enter(Field("na.orig"), "77");
    EXPECT_THAT(Messages(),
                testing::ElementsAre(testing::HasSubstr("over the limit of Standard Methods 1030E")));
    FollowMessage(0);
    auto& automatic = gui_test::Find<TvCheckBox>(WaterPage(), "Automatic balancing");
    EXPECT_TRUE(PumpUntil([&] { return automatic.HasFocus(); }));
}

TEST_F(MainFrameTest, ArrowKeysWalkTheMessagesWithoutLeavingThem)
{
    gui_test::Enter(Field("ph"), "15");
    gui_test::Enter(Field("temp.orig"), "150");
    app::MessageArea& area = m_frame->GetMessageArea();
    ASSERT_EQ(area.GetItemCount(), 2);
    struct Way
    {
        const char* name;
        std::function<void()> go;
    };
    const auto click = [&area] {
        wxRect line;
        area.GetItemRect(1, line);
        wxUIActionSimulator mouse;
        mouse.MouseMove(area.ClientToScreen(wxPoint(line.x + 20, line.y + line.height / 2)));
        Pump();
        mouse.MouseClick();
    };
    for (const Way& way : {Way{"Enter", [] { Press(WXK_RETURN); }}, Way{"Space", [] { Press(WXK_SPACE); }},
                           Way{"click", click}}) {
        Focus(area);
        area.Select(0);
        area.Focus(0);
        Pump();
        Press(WXK_DOWN);
        Pump();
        EXPECT_EQ(area.GetFirstSelected(), 1);
        EXPECT_TRUE(area.HasFocus() || area.IsDescendant(wxWindow::FindFocus())) << way.name;
        way.go();
        EXPECT_TRUE(PumpUntil([this] { return Field("temp.orig").HasFocus(); })) << way.name;
    }
}

TEST_F(MainFrameTest, ProgrammingErrorsAppearInTheMessageArea)
{
    EXPECT_THROW(WaterPage().NormalizeIon("nosuch", false), std::exception);
    ASSERT_EQ(Messages().size(), 1u);
    EXPECT_EQ(Messages().front().find("Exception in  WaterAnalysisPanel::NormalizeIon: "), 0u);
    wxLogError("from the toolkit");
    wxLog::FlushActive();
    EXPECT_EQ(Messages().back(), "from the toolkit");
}

TEST_F(MainFrameTest, ClosingAsksAboutChanges)
{
    gui_test::Enter(Field("na.orig"), "10");
    m_dialogs.Expect([](wxDialog& dialog) {
        EXPECT_EQ(dialog.GetTitle(), "Confirm");
        return wxID_CANCEL;
    });
    EXPECT_FALSE(m_frame->Close());
    EXPECT_EQ(Value("na.orig"), 10.0);
    m_dialogs.Expect([](wxDialog&) { return wxID_CANCEL; });
    Menu(wxID_NEW);
    EXPECT_EQ(Value("na.orig"), 10.0);
    m_dialogs.Expect([](wxDialog&) { return wxID_NO; });
    Menu(wxID_NEW);
    EXPECT_EQ(Value("na.orig"), 0.0);
    EXPECT_EQ(m_frame->GetTitle(), "Untitled - Tarnvik");
}

TEST_F(MainFrameTest, TheArrangementOfThePagesOutlivesTheProgram)
{
    const auto twoWaters = [] {
        auto project = app::NewEmptyProject();
        project->AddLiquid("Second");
        return std::make_unique<app::Document>(std::move(project));
    };
    m_frame->SetDocument(twoWaters());
    m_frame->GetNotebook().Split(2, wxRIGHT);
    Pump();
    const wxString arranged = m_frame->GetNotebook().SavePerspective();
    m_frame->Close();
    Pump();
    m_frame = new app::MainFrame(twoWaters());
    m_frame->Show();
    Pump();
    EXPECT_EQ(m_frame->GetNotebook().SavePerspective().BeforeFirst('@'), arranged.BeforeFirst('@'));
    const std::size_t pages = m_frame->GetNotebook().GetPageCount();
    // A project with fewer pages takes what fits.
    m_frame->SetDocument(std::make_unique<app::Document>(app::NewEmptyProject()));
    EXPECT_EQ(m_frame->GetNotebook().GetPageCount(), pages - 1) << "one water less";
    EXPECT_TRUE(Messages().empty());
}

TEST_F(MainFrameTest, ResultsAreCopiedInTheirOwnUnits)
{
    const auto line = [](const wxString& text, const wxString& label) -> std::string {
        for (const wxString& candidate : wxSplit(text, '\n', '\0')) {
            if (candidate.StartsWith(label + "\t"))
                return candidate.utf8_string();
        }
        return {};
    };
    const LiquidData& water = WaterPage().GetLiquid();
    const wxString iso = app::ResultsText(water, "iso");
    EXPECT_EQ(line(iso, "Sodium"), "Sodium\t6.3\tmg/l\t0.274032\t6.3");
    EXPECT_EQ(line(iso, "Temperature"), "Temperature\t15\t\u00b0C");
    EXPECT_EQ(line(iso, "pH"), "pH\t\t") << "not known";
    EXPECT_EQ(line(iso, "Barium"), "") << "not analysed";
    EXPECT_EQ(line(app::ResultsText(water, "us"), "Temperature"), "Temperature\t59\t\u00b0F");

    events::SendEvent(m_frame, tvCHANGEUNITSYSTEMPRINTOUT_EVENT, m_frame->GetId(), 0, "us");
    Pump();
    EXPECT_EQ(Settings::GetSetting("unit.system.printout").GetStringValue(), "us");
}

TEST_F(MainFrameTest, AUserDatabaseThatCannotBeUsedIsSaidAndDoesNotStopTheProgram)
{
    ProjectDatabase::Close();
    const char* old = std::getenv("TARNVIK_USER_DATA");
    const std::string previous = old != nullptr ? old : "";
    std::ofstream(m_folder / "file") << "no folder";
    setenv("TARNVIK_USER_DATA", (m_folder / "file").c_str(), 1);
    const UserMessage message = app::InitProgram();
    EXPECT_TRUE(message.text.Contains((m_folder / "file").string())) << message.text;
    EXPECT_TRUE(message.text.Contains("Check that")) << message.text;
    EXPECT_NE(message.details, "");
    setenv("TARNVIK_USER_DATA", previous.c_str(), 1);
    EXPECT_EQ(Value("na.orig"), 6.3);
}

TEST_F(MainFrameTest, SettingsTakeEffectTogetherOrNotAtAll)
{
    const app::ProgramSettings before{"en", "iso", "compact", 5, ""};
    app::SettingsDialog dialog(m_frame, before);
    const auto unchanged = dialog.GetSettings();
    EXPECT_EQ(unchanged.language, "en");
    EXPECT_EQ(unchanged.unitSystem, "iso");
    EXPECT_EQ(unchanged.autosaveMinutes, 5);
    EXPECT_EQ(unchanged.database, "");

    dialog.Show();
    Pump();
    auto* minutes =
        dynamic_cast<wxTextCtrl*>(wxWindow::FindWindowByName("Minutes between recovery copies", &dialog));
    ASSERT_NE(minutes, nullptr);
    gui_test::Enter(*minutes, "1000");
    EXPECT_EQ(dialog.GetSettings().autosaveMinutes, 240) << "at the limit";
    auto* search = wxWindow::FindWindowByName(wxASCII_STR(wxSearchCtrlNameStr), &dialog);
    ASSERT_NE(search, nullptr);
    dynamic_cast<wxSearchCtrl*>(search)->SetValue("RECOVERY");
    Pump();
    EXPECT_TRUE(minutes->IsShown());
    EXPECT_FALSE(wxWindow::FindWindowByName("Language", &dialog)->IsShown());

    gui_test::Enter(Field("na.orig"), "7.9");
    EXPECT_TRUE(Messages().empty());
    m_frame->View().ApplySettings(before,
                                  {"de", "us", "compact", 7, "", "DVWK", {{"limit.fe.soft.note", 0.7}}});
    Pump();
    EXPECT_THAT(Messages(), testing::ElementsAre(testing::HasSubstr("DVWK")));
    EXPECT_EQ(Settings::GetSetting("limit.fe.soft.note").GetDoubleValue(), 0.7);
    Settings::Reset("limit.fe.soft.note");
    Settings::Reset("balance.rule");
    m_frame->UpdateRangeMessages();
    EXPECT_EQ(Settings::GetSetting("autosave.minutes").GetLongValue(), 7);
    EXPECT_EQ(m_frame->GetDocument().GetProject().GetUnitSystemDisplay(), "us");
    EXPECT_EQ(m_frame->GetMenuBar()->GetMenuLabelText(0), "Datei");
    m_frame->View().ApplySettings(
        {"de", "us", "compact", 7, ""},
        {"en", "iso", "comfortable", 9, "postgresql://host=127.0.0.1 port=1 dbname=none"});
    EXPECT_THAT(Messages(), testing::ElementsAre(testing::HasSubstr("Die Datenbank PostgreSQL kann nicht")));
    EXPECT_EQ(Settings::GetSetting("autosave.minutes").GetLongValue(), 7) << "nothing is applied";
    EXPECT_EQ(app::CurrentLanguage(), "de");
}

TEST_F(MainFrameTest, EveryExampleOpens)
{
    EXPECT_GE(app::WaterTemplates().size(), 19u);
    for (const app::WaterTemplate& water : app::WaterTemplates()) {
        EXPECT_FALSE(water.source.empty()) << water.name;
        m_frame->SetDocument(std::make_unique<app::Document>(app::NewProjectFrom(water)));
        EXPECT_GT(Value("tds"), 0.0) << water.name;
        // One of them was published with charges that differ by more than its laboratory should allow.
        const bool isOff = water.id == "bc_1401377_2020";
        EXPECT_THAT(Messages(), testing::SizeIs(isOff ? 1 : 0)) << water.name;
        if (isOff) {
            EXPECT_THAT(Messages(),
                        testing::ElementsAre(testing::HasSubstr("Balance error -3.83\u00a0% is over")));
        }
    }
}

TEST_F(MainFrameTest, PrintsWhatWasJustTyped)
{
    ProjectDatabase::SetUserParameter("/Report/hide.disclaimer", true);
    events::SendEvent(m_frame, tvCHANGEUNITSYSTEMPRINTOUT_EVENT, m_frame->GetId(), 0, "us");
    Pump();
    const auto path = m_folder / "report.pdf";
    ASSERT_TRUE(m_frame->Files().SaveTo(m_folder / "river.tarnvik"));
    Focus(Field("na.orig"));
    Field("na.orig").SelectAll();
    Type("6.4");
    m_dialogs.Expect([](wxDialog&) { return wxID_OK; });  // all pages
    m_dialogs.Expect([&path](wxDialog& window) {
        auto& dialog = dynamic_cast<wxFileDialog&>(window);
        EXPECT_EQ(dialog.GetFilename(), "river.pdf");
        return ChooseFile(dialog, path) ? wxID_OK : wxID_CANCEL;
    });
    m_dialogs.Expect([](wxDialog&) { return wxID_NO; });  // open it?
    Press('P', wxMOD_CONTROL);
    ASSERT_TRUE(PumpUntil([&path] { return std::filesystem::exists(path); }));
    const std::string text = support::PdfFile(support::ReadBytes(path)).Text();
    EXPECT_THAT(text, testing::ContainsRegex("Sodium +6\\.4 +mg/l"));
    EXPECT_THAT(text, testing::HasSubstr("\u00b0F"));
    EXPECT_THAT(text, testing::HasSubstr("Page 1 of 5"));
    ProjectDatabase::SetUserParameter("/Report/hide.disclaimer", false);
}

}  // namespace
