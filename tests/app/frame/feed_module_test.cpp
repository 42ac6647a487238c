// SPDX-License-Identifier: MIT
// The module of the feed composition in the program's window.
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/ionexchange/feed/feed_composition_grid.h"
#include "gui_base/ionexchange/feed/feed_medium_box.h"
#include "projectbase/project/project_file.h"
#include "tests/support/program_fixture.h"

namespace {

using namespace gui_test;

class FeedModuleTest : public ProgramTest
{
protected:
    FeedModuleTest() : ProgramTest(nullptr) {}

    FeedCompositionPanel& Panel() { return FeedPage(); }
    FeedCompositionGrid& Grid() { return gui_test::Find<FeedCompositionGrid>(Panel()); }
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
    WaterPage();
    m_frame->Undo();
    EXPECT_EQ(m_frame->GetBook().GetCurrent()->GetModule().id, "feed");
    m_frame->Redo();

    const auto path = m_folder / "feed.tarnvik";
    TypeFirstCell("13.75");
    Press(WXK_RETURN);
    m_frame->GetDocument().Save(path);
    TypeFirstCell("1");
    Press(WXK_RETURN);
    TypeFirstCell("2");  // an open cell goes with its project
    m_frame->SetDocument(std::make_unique<app::Document>(ProjectFile::Open(path), path));
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
    m_frame->View().SetUnitSystem("us");
    EXPECT_EQ(temperature.GetValue(), "68");
    m_frame->View().SetLanguage("de");
    EXPECT_EQ(Grid().GetColLabelValue(kFeedFormula), "Formel");
    EXPECT_EQ(temperature.GetValue(), "68");
    m_frame->View().SetLanguage("en");
    m_frame->View().SetUnitSystem("iso");
    EXPECT_EQ(temperature.GetValue(), "20");
    EXPECT_EQ(FirstCell(), "12.5");
    m_frame->GetDocument().SetUnsaved(false);
}

}  // namespace
