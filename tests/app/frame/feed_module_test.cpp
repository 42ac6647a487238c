// SPDX-License-Identifier: MIT
// The module of the feed composition in the program's window.
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/ionexchange/feed/compound_editor_dialog.h"
#include "gui_base/ionexchange/feed/compound_editor_panel.h"
#include "gui_base/ionexchange/feed/feed_composition_grid.h"
#include "gui_base/ionexchange/feed/feed_medium_box.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_file.h"
#include "tests/support/program_fixture.h"

#include <wx/srchctrl.h>

#include <algorithm>

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

TEST_F(FeedModuleTest, ANarrowTableCutsNoColumnAndShowsItsBar)
{
    AddFirst();
    TypeFirstCell("244.5");
    Press(WXK_RETURN);
    const auto widthOf = [this](int columns, int most) {
        int width = 0;
        for (int place = 0; place < columns && width < most; ++place)
            width += Grid().GetColSize(Grid().GetColAt(place));
        return width;
    };
    for (const int width : {1024, 1037, 1051, 1590, 1024}) {
        m_frame->SetSize(m_frame->FromDIP(wxSize(width, 740)));
        Pump();
        const int room = Grid().GetClientSize().x;
        const int all = widthOf(kFeedColumnCount, 10 * room);
        const int whole = widthOf(kFeedColumnCount, room);
        if (width > 1500) {
            EXPECT_EQ(Grid().GetColAt(kFeedAcidBase), kFeedAcidBase);
            EXPECT_LT(all, room) << "names take no more than they need";
            continue;
        }
        EXPECT_EQ(whole, room) << width;
        EXPECT_GT(all, room);
        EXPECT_TRUE(Grid().IsVisible(0, kFeedFirstUnit + 3, true)) << width;
        EXPECT_LE(Grid().GetScreenRect().GetBottom(), Panel().GetScreenRect().GetBottom()) << width;
    }
    m_frame->GetDocument().SetUnsaved(false);
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

TEST_F(FeedModuleTest, CompoundsHaveTheirNamesInTheLanguageOfTheWindowAndAreFoundByAny)
{
    CompoundList& list = Panel().GetCompoundList();
    const auto search = [&](const char* text) {
        auto& field = gui_test::Find<wxSearchCtrl>(Panel());
        Focus(field);
        field.SelectAll();
        Type(wxString::FromUTF8(text));
        return list.GetItemCount() == 1 ? list.GetItemText(0).utf8_string() : std::string();
    };
    EXPECT_EQ(search("natriumchlorid"), "sodium chloride");
    list.Select(0);
    list.Focus(0);
    Focus(list);
    Press(WXK_RETURN);
    EXPECT_EQ(Grid().GetCellValue(0, kFeedName), "sodium chloride");
    search("sodium");
    long salt = 0;
    while (list.GetItemText(salt, 1) != "NaCl")
        ++salt;
    list.Select(salt);
    Pump();
    const int id = list.GetId(salt);

    m_frame->View().SetLanguage("de");
    Pump();
    EXPECT_EQ(Grid().GetCellValue(0, kFeedName), "Natriumchlorid");
    EXPECT_EQ(list.GetSelectedIds(), std::vector<int>{id}) << "in another row";
    std::vector<wxString> names;
    for (long row = 0; row < list.GetItemCount(); ++row)
        names.push_back(list.GetItemText(row).Lower());
    EXPECT_TRUE(std::ranges::is_sorted(names));
    EXPECT_EQ(search("sodium chlor"), "Natriumchlorid");
    EXPECT_EQ(search("chlorure de sod"), "Natriumchlorid");
    FeedComposition stored = dynamic_cast<iex::IEXProject&>(OpenProject()).LoadFeedCompositionFromDetails();
    EXPECT_EQ(stored.GetEntries().at(0).name, "sodium chloride");

    // The editor shows the same name, and files the compound under the name that it had.
    CompoundEditorDialog editor(Compound(ProjectDatabase::GetCompound(id)), m_frame, wxID_ANY, "editor");
    auto& name = gui_test::Find<wxTextCtrl>(editor, "Name");
    const auto filed = [&] { return editor.GetPanel().GetData().compound.name; };
    EXPECT_EQ(name.GetValue(), "Natriumchlorid");
    EXPECT_EQ(filed(), "sodium chloride");
    name.SetValue("Kochsalz");
    EXPECT_EQ(filed(), "Kochsalz");
    name.SetValue("Natriumchlorid");
    EXPECT_EQ(filed(), "sodium chloride");
}

}  // namespace
