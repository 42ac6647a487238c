// SPDX-License-Identifier: MIT
// "Print to PDF" with its real dialogs.
#include "gui_base/dialogs/tv_report_controller.h"

#include "app/language/language.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/dialogs/info_message_dialog.h"
#include "gui_base/dialogs/page_selection_dialog.h"
#include "gui_base/report/water_report.h"
#include "gui_base/support/translation.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/gui_test.h"
#include "tests/support/pdf.h"

#include <gmock/gmock.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>

namespace {

using namespace gui_test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ReportControllerTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        app::SwitchLanguage("en");
        ProjectDatabase::SetUserParameter("/Report/skipped.pages", "");
        ProjectDatabase::SetUserParameter("/Report/hide.disclaimer", false);
        m_project.GetLiquid(0).GetDetails()->At("liquid/na.orig").SetValue(22.99);
        m_project.AddLiquid("Second");
        m_project.CalculateDesign();
    }
    void TearDown() override
    {
        ProjectDatabase::Close();
        GuiTest::TearDown();
    }

    bool Print(const ReportContext& context = {}, int progressDelay = 500)
    {
        const ReportPageSource* const sources[] = {&m_waters};
        TvReportController controller(m_frame);
        controller.SetProgressDelay(std::chrono::milliseconds(progressDelay));
        return controller.Print(sources, context, {.title = "Plant", .date = "2026-11-21"},
                                wxFileName(wxString::FromUTF8(m_folder.Path().string()), "plant.pdf"));
    }

    /// Answers the choice of pages; `ids` replace what is chosen unless they are {-1}.
    void ExpectPages(std::vector<int> ids = {-1}, int answer = wxID_OK)
    {
        m_dialogs.Expect([this, ids, answer](wxDialog& window) {
            auto& dialog = dynamic_cast<PageSelectionDialog&>(window);
            m_offered.clear();
            for (const ReportPage& page : dialog.GetActiveReports())
                m_offered.push_back(page.id);
            if (ids != std::vector<int>{-1})
                dialog.SetActiveReports(ids);
            dialog.UpdateWindowUI(wxUPDATE_UI_RECURSE);
            m_canPrint = dialog.FindWindow(wxID_OK)->IsEnabled();
            return answer;
        });
    }
    void ExpectDisclaimer(int answer = wxID_OK, bool hide = false)
    {
        m_dialogs.Expect([answer, hide](wxDialog& window) {
            auto& dialog = dynamic_cast<InfoMessageDialog&>(window);
            EXPECT_NE(dialog.FindWindow(wxID_CANCEL), nullptr);
            if (hide)
                dynamic_cast<wxCheckBox*>(
                    wxWindow::FindWindowByLabel("Do not show this message again", &dialog))
                    ->SetValue(true);
            return answer;
        });
    }
    void ExpectFile(const std::filesystem::path& path)
    {
        m_dialogs.Expect([this, path](wxDialog& window) {
            auto& dialog = dynamic_cast<wxFileDialog&>(window);
            m_proposed = dialog.GetFilename().utf8_string();
            return ChooseFile(dialog, path) ? wxID_OK : wxID_CANCEL;
        });
    }
    void ExpectMessage(const std::string& part, int answer)
    {
        m_dialogs.Expect([part, answer](wxDialog& window) {
            EXPECT_THAT(dynamic_cast<wxMessageDialog&>(window).GetMessage().utf8_string(), HasSubstr(part));
            return answer;
        });
    }
    std::string Bytes() const { return support::ReadBytes(m_path); }
    int FileCount() const
    {
        return static_cast<int>(std::distance(std::filesystem::directory_iterator(m_folder.Path()), {}));
    }

    support::TempFolder m_folder;
    std::filesystem::path m_path = m_folder / "out.pdf";
    iex::IEXProject m_project;
    WaterReport m_waters{m_project};
    std::vector<int> m_offered;
    bool m_canPrint = false;
    std::string m_proposed;
};

TEST_F(ReportControllerTest, WritesTheChosenPagesInTheLanguageOfTheWindow)
{
    app::SwitchLanguage("de");
    ReportContext german;
    german.translate = [](const char* source) { return i18n::Translated(source).utf8_string(); };
    ExpectPages({1});
    m_dialogs.Expect([](wxDialog& dialog) {
        EXPECT_TRUE(wxWindow::FindWindowByLabel("Abbrechen", &dialog));
        return wxID_OK;
    });
    ExpectFile(m_path);
    ExpectMessage("Der Bericht steht in " + m_path.string(), wxID_NO);
    EXPECT_TRUE(Print(german));
    app::SwitchLanguage("en");
    EXPECT_EQ(m_proposed, "plant.pdf");
    const support::PdfFile pdf(Bytes());
    EXPECT_EQ(pdf.Pages(), 1);
    EXPECT_THAT(pdf.Text(),
                testing::AllOf(HasSubstr("Eigenschaften des Wassers"), HasSubstr("Seite 1 von 1")));
}

TEST_F(ReportControllerTest, RemembersTheChoiceOfPages)
{
    const auto choose = [this](std::vector<int> ids, int answer) {
        ExpectPages(std::move(ids), answer);
        if (answer == wxID_OK)
            ExpectDisclaimer(wxID_CANCEL);
        EXPECT_FALSE(Print());
    };
    choose({0, 2}, wxID_CANCEL);
    EXPECT_THAT(m_offered, ElementsAre(0, 1, 2, 3, 4, 5));
    choose({0, 3}, wxID_OK);
    EXPECT_THAT(m_offered, ElementsAre(0, 1, 2, 3, 4, 5)) << "a cancelled choice is forgotten";
    m_project.AddLiquid("Third");
    choose({-1}, wxID_CANCEL);
    EXPECT_THAT(m_offered, ElementsAre(0, 3, 6, 7, 8)) << "pages that are new are wanted";
    m_project.RemoveLiquid(2);
    m_project.RemoveLiquid(1);
    choose({1}, wxID_OK);
    m_project.AddLiquid("Second again");
    choose({-1}, wxID_CANCEL);
    EXPECT_THAT(m_offered, ElementsAre(1, 3)) << "what a smaller project lacked stays chosen or not";
    EXPECT_TRUE(m_canPrint);
    ExpectPages({}, wxID_OK);
    EXPECT_FALSE(Print()) << "nothing is no report";
    EXPECT_FALSE(m_canPrint);
    EXPECT_EQ(FileCount(), 0);
}

TEST_F(ReportControllerTest, ShowsTheReservationUntilItIsHidden)
{
    ExpectPages();
    ExpectDisclaimer(wxID_CANCEL, true);
    EXPECT_FALSE(Print()) << "hiding it counts only with OK";
    ExpectPages();
    ExpectDisclaimer(wxID_OK, true);
    m_dialogs.Expect([](wxDialog&) { return wxID_CANCEL; });  // the file
    EXPECT_FALSE(Print());
    ExpectPages();
    ExpectFile(m_path);
    ExpectMessage("was written", wxID_NO);
    EXPECT_TRUE(Print());
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(ReportControllerTest, TellsWhyNothingWasWritten)
{
    ProjectDatabase::SetUserParameter("/Report/hide.disclaimer", true);
    ExpectPages();
    ExpectFile("/proc/out.pdf");  // a folder in which nobody can write
    ExpectMessage("/proc/out.pdf: the folder does not exist.", wxID_OK);
    EXPECT_FALSE(Print());
    // A name that gets its ending added may mean a file of which the file dialog knew nothing.
    support::WriteBytes(m_path, "old");
    ExpectPages();
    ExpectFile(m_folder / "out");
    ExpectMessage("out.pdf exists already", wxID_NO);
    EXPECT_FALSE(Print());
    EXPECT_EQ(Bytes(), "old");
    ExpectPages();
    ExpectFile(m_folder / "out");
    ExpectMessage("out.pdf exists already", wxID_YES);
    ExpectMessage("was written", wxID_NO);
    EXPECT_TRUE(Print());
    EXPECT_THAT(Bytes(), testing::StartsWith("%PDF"));
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(ReportControllerTest, LeavesTheOldFileWhenCancelled)
{
    ProjectDatabase::SetUserParameter("/Report/hide.disclaimer", true);
    support::WriteBytes(m_path, "old");
    ExpectPages();
    ExpectFile(m_path);
    const gui_test::CancelsProgress cancelling;
    for (int i = 0; i < 300; ++i)
        m_project.AddLiquid("Water");
    EXPECT_FALSE(Print({}, 0));
    EXPECT_EQ(cancelling.Count(), 1);
    EXPECT_EQ(Bytes(), "old");
    EXPECT_EQ(FileCount(), 1);
}

}  // namespace
