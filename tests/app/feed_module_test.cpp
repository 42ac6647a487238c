// SPDX-License-Identifier: MIT
// The module of the feed composition in the program's window.
#include "app/document/templates.h"
#include "app/frame/main_frame.h"
#include "app/frame/tarnvik_app.h"
#include "app/language/language.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/ionexchange/feed/feed_composition_grid.h"
#include "gui_base/ionexchange/feed/feed_composition_panel_controller.h"
#include "gui_base/ionexchange/feed/feed_medium_box.h"
#include "projectbase/project/project_file.h"
#include "projectbase/settings/settings.h"
#include "tests/support/gui_test.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace gui_test;

class FeedModuleTest : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string error;
        app::InitProgram(error);
        EXPECT_EQ(error, "");
        Settings::Reset();
        app::SwitchLanguage("en");
        m_frame = new app::MainFrame(std::make_unique<app::Document>(app::NewEmptyProject()));
        m_frame->SetPosition(wxPoint(0, 0));
        m_frame->Show();
        Pump();
        ASSERT_NE(m_frame->GetFeedPanel(), nullptr);
        ShowModule();
    }
    void TearDown() override
    {
        m_frame->GetDocument().GetProject().SetChanged(false);
        m_frame->Close();
        Pump();
        app::SwitchLanguage("en");
        ProjectDatabase::Close();
    }

    FeedCompositionPanel& Panel() { return *m_frame->GetFeedPanel(); }
    FeedCompositionGrid& Grid() { return gui_test::Find<FeedCompositionGrid>(Panel()); }
    void ShowModule()
    {
        AuiNotebook& pages = m_frame->GetNotebook();
        pages.SetSelection(static_cast<std::size_t>(pages.GetPageIndex(&Panel())));
        Pump();
    }
    void AddFirst()
    {
        Panel().GetCompoundList().Select(0);
        Panel().GetCompoundList().Focus(0);
        Focus(Panel().GetCompoundList());
        Press(WXK_RETURN);
    }
    void TypeFirstCell(const wxString& text)
    {
        Grid().GoToCell(0, kFeedFirstUnit);
        Focus(*Grid().GetGridWindow());
        Type(text);
    }
    wxString FirstCell() { return Grid().GetCellValue(0, kFeedFirstUnit); }

    app::MainFrame* m_frame = nullptr;
    support::TempFolder m_folder;
    DialogAnswers m_dialogs;
};

TEST_F(FeedModuleTest, EditsAreUndoneSavedAndReopened)
{
    EXPECT_GT(Panel().GetCompoundList().GetItemCount(), 100) << "read when the module is first seen";
    AddFirst();
    TypeFirstCell("12.5");
    Press(WXK_RETURN);
    EXPECT_EQ(m_frame->GetTitle(), "*Untitled - Tarnvik");
    TypeFirstCell("99");
    m_frame->Undo();
    EXPECT_EQ(FirstCell(), "12.5") << "the cell that was being typed is the last step";
    m_frame->Undo();
    EXPECT_EQ(FirstCell(), "0");
    m_frame->Undo();
    EXPECT_EQ(Grid().GetNumberRows(), 0);
    m_frame->Redo();
    m_frame->Redo();
    EXPECT_EQ(FirstCell(), "12.5");
    // An undo goes to the module that it concerns.
    m_frame->GetNotebook().SetSelection(0);
    m_frame->Undo();
    EXPECT_EQ(m_frame->GetNotebook().GetCurrentPage(), &Panel());
    m_frame->Redo();

    const auto path = m_folder / "feed.tarnvik";
    TypeFirstCell("13.75");
    Press(WXK_RETURN);
    m_frame->GetDocument().Save(path);
    TypeFirstCell("1");
    Press(WXK_RETURN);
    TypeFirstCell("2");  // an open cell goes with its project
    m_frame->SetDocument(std::make_unique<app::Document>(ProjectFile::Load(path), path));
    Pump();
    ASSERT_EQ(Grid().GetNumberRows(), 1);
    EXPECT_EQ(FirstCell(), "13.75");
}

TEST_F(FeedModuleTest, UnitSystemAndLanguageSwitchWhileItIsOpen)
{
    AddFirst();
    TypeFirstCell("12.5");
    Press(WXK_RETURN);
    TvTextCtrl& temperature = gui_test::Find<TvTextCtrl>(gui_test::Find<FeedMediumBox>(Panel()));
    EXPECT_EQ(temperature.GetValue(), "20");
    m_frame->SetUnitSystem("us");
    EXPECT_EQ(temperature.GetValue(), "68");
    m_frame->SetLanguage("de");
    EXPECT_EQ(Grid().GetColLabelValue(kFeedFormula), "Formel");
    EXPECT_EQ(temperature.GetValue(), "68");
    m_frame->SetLanguage("en");
    m_frame->SetUnitSystem("iso");
    EXPECT_EQ(temperature.GetValue(), "20");
    EXPECT_EQ(FirstCell(), "12.5");
    m_frame->GetDocument().GetProject().SetChanged(false);
}

}  // namespace
