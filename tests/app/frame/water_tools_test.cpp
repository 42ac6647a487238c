// SPDX-License-Identifier: MIT
// Whole waters in the program's window: copying, the library, and what stands above the analysis.
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/water/feedwater/water_clipboard.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/library/water_lib_list.h"
#include "projectbase/project/project_file.h"
#include "tests/support/program_fixture.h"

#include <wx/filedlg.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/radiobut.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>

namespace {

using namespace gui_test;

class WaterToolsTest : public ProgramTest
{
protected:
    WaterToolsTest() : ProgramTest("brandenburg_fresh") {}

    std::string File() const { return (m_folder / "user.db").string(); }
    FeedWaterPanel& Panel() { return WaterPage(); }
    DetailData& Feed(const std::string& key) { return OpenProject().GetDetails().At("project/" + key); }
    int MessageCount() { return m_frame->GetMessageArea().GetItemCount(); }
};

TEST_F(WaterToolsTest, AWaterIsCopiedIntoAnotherProject)
{
    Menu("Edit", "Paste water");
    EXPECT_EQ(MessageCount(), 1) << "nothing was copied yet";
    Menu("Edit", "Copy water");
    m_frame->SetDocument(MakeDocument("amazon"));
    Pump();
    EXPECT_EQ(Water("na.orig").GetDoubleValue(), 1.8);
    Menu("Edit", "Paste water");
    EXPECT_EQ(Water("na.orig").GetDoubleValue(), 16.3);
    EXPECT_EQ(Panel().FindField("liquid/na.orig")->GetValue(), "16.3");
    EXPECT_EQ(Water("place").GetStringValue(), "Brandenburg");
    EXPECT_TRUE(m_frame->GetDocument().IsUnsaved());
    m_frame->Undo();
    Pump();
    EXPECT_EQ(Water("na.orig").GetDoubleValue(), 1.8) << "one step takes all of it back";
    EXPECT_EQ(Water("place").GetStringValue(), "Amazon");
    EXPECT_EQ(gui_test::Find<wxTextCtrl>(Panel(), "Place").GetValue(), "Amazon");
    m_frame->Redo();
    EXPECT_EQ(Water("country").GetStringValue(), "DE");
    WaterClipboard::PutLiquid(nullptr);
}

TEST_F(WaterToolsTest, AWaterGoesThroughTheLibrary)
{
    m_dialogs.Expect([](wxDialog& dialog) {
        EXPECT_EQ(dynamic_cast<wxMessageDialog&>(dialog).GetMessage(), "Analysis saved to water library");
        return wxID_OK;
    });
    Menu("Tools", "Save to water library");
    m_frame->SetDocument(MakeDocument("amazon"));
    Pump();
    m_dialogs.Expect([this](wxDialog& shown) {
        auto& library = dynamic_cast<WaterLibDialog&>(shown);
        auto& tree = gui_test::Find<wxTreeCtrl>(library);
        tree.UnselectAll();
        tree.SelectItem(tree.GetLastChild(tree.GetRootItem()));
        EXPECT_EQ(library.GetWaterList().GetItemCount(), 1);
        library.GetWaterList().Select(0);
        m_dialogs.Expect([](wxDialog&) { return wxID_YES; });
        wxWindow* use = wxWindow::FindWindowByLabel("Use current selection as feed water", &library);
        wxCommandEvent click(wxEVT_BUTTON, use->GetId());
        use->GetEventHandler()->ProcessEvent(click);
        return wxID_OK;
    });
    Menu("Tools", "Water library...");
    EXPECT_EQ(Water("water.source").GetStringValue(), "Groundwater 30a9e918");
    EXPECT_EQ(Water("nh4.orig").GetDoubleValue(), 0.1);
    EXPECT_TRUE(std::isnan(Water("turbidity").GetDoubleValue()));
    EXPECT_TRUE(m_frame->GetDocument().IsUnsaved());
    EXPECT_EQ(m_frame->UndoText(), "&Undo water of the library");
    m_frame->Undo();
    EXPECT_EQ(Water("water.source").GetStringValue(), "Amazon river");
    EXPECT_FALSE(m_frame->GetDocument().GetHistory().CanUndo()) << "one step";
}

TEST_F(WaterToolsTest, WhatIsCopiedOrStoredOfABlendIsAnOrdinaryWater)
{
    Menu("Tools", "Add water");
    m_dialogs.Expect([](wxDialog&) { return wxID_OK; });
    Menu("Tools", "Blend waters...");
    Project& project = OpenProject();
    ASSERT_TRUE(project.IsMixed(project.GetLiquid(2)));
    const auto text = [&project](std::size_t water, const char* key) {
        return project.GetLiquid(water).FindDetail(key)->GetStdStringValue();
    };
    Menu("Edit", "Copy water");
    WaterPage(1);
    Menu("Edit", "Paste water");
    EXPECT_EQ(project.GetLiquid(1).FindDetail("liquid/na.mgl")->GetDoubleValue(), 8.15);
    EXPECT_EQ(text(1, "liquid/blend.first") + text(1, "liquid/blend.second"), "");
    WaterClipboard::PutLiquid(nullptr);

    LiquidData& blend = project.GetLiquid(2);
    blend.FindDetail("liquid/place")->SetValue("Plant");
    blend.FindDetail("liquid/water.source")->SetValue("Blend");
    blend.FindDetail("liquid/country")->SetValue("DE");
    WaterPage(2);
    m_dialogs.Expect([](wxDialog&) { return wxID_OK; });
    Menu("Tools", "Save to water library");
    const auto stored = ProjectDatabase::WaterLib_GetUserAnalysisById(
        ProjectDatabase::WaterLib_GetUserWatersByValues(
            ProjectDatabase::WaterLib_GetUserCountry("Germany").id, "Plant", "Blend", -1)
            .at(0)
            .id);
    EXPECT_TRUE(std::ranges::any_of(stored, [](const auto& value) { return value.key == "liquid/na.orig"; }));
    EXPECT_FALSE(std::ranges::any_of(
        stored, [](const auto& value) { return value.key.starts_with("liquid/blend."); }));
}

TEST_F(WaterToolsTest, APastedShortAnalysisIsAFullOneWhereBlendsAreCalculated)
{
    Water("analysis.type").SetValue("SHORT_TDS");
    Menu("Edit", "Copy water");
    m_frame->SetDocument(MakeDocument("amazon"));
    Pump();
    OpenProject().GetDetails().At("arrangement/calculate.blend").SetValue(true);
    Menu("Edit", "Paste water");
    EXPECT_EQ(Water("analysis.type").GetStringValue(), "FULL");
    EXPECT_TRUE(gui_test::Find<wxRadioButton>(Panel(), "Full analysis").GetValue());
    EXPECT_EQ(Panel().FindField("liquid/na.orig")->GetValue(), "16.3");
    WaterClipboard::PutLiquid(nullptr);
}

TEST_F(WaterToolsTest, ALibraryThatCannotBeReachedIsReported)
{
    std::filesystem::remove(File());
    Menu("Tools", "Save to water library");
    EXPECT_EQ(MessageCount(), 1);
    EXPECT_NE(m_frame->GetMessageArea().GetItemText(0, 1).Find("Check that it can be reached"), wxNOT_FOUND);
    EXPECT_FALSE(m_frame->GetDocument().IsUnsaved());
}

TEST_F(WaterToolsTest, TheFeedIsSavedAndUndone)
{
    auto& block = gui_test::Find<FeedWaterSpecification>(Panel());
    gui_test::Enter(*block.FindField("project/qbrutto"), "12");
    gui_test::Enter(*block.FindField("project/lz"), "10");
    gui_test::Enter(*block.FindField("project/nlines"), "2");
    gui_test::Enter(gui_test::Find<wxTextCtrl>(Panel(), "Water source"), "Well 7");
    EXPECT_TRUE(m_frame->GetDocument().IsUnsaved());
    const auto path = m_folder / "feed.tarnvik";
    ASSERT_TRUE(m_frame->Files().SaveTo(path));
    const auto loaded = ProjectFile::Load(path);
    EXPECT_EQ(loaded->GetDetails().At("project/wbrutto").GetDoubleValue(), 120.0);
    EXPECT_EQ(loaded->GetDetails().At("project/nlines").GetLongValue(), 2);
    EXPECT_EQ(loaded->GetLiquid(0).FindDetail("liquid/water.source")->GetStringValue(), "Well 7");

    m_frame->Undo();
    EXPECT_EQ(Water("water.source").GetStringValue(), "Groundwater 30a9e918");
    m_frame->Undo();
    m_frame->Undo();
    EXPECT_EQ(Feed("nlines").GetLongValue(), 1);
    EXPECT_TRUE(std::isnan(Feed("wbrutto").GetDoubleValue()));
    EXPECT_EQ(block.FindField("project/wbrutto")->GetValue(), "");
    EXPECT_EQ(block.FindField("project/qbrutto")->GetValue(), "12");
}

TEST_F(WaterToolsTest, AFeedOutOfRangeIsListed)
{
    gui_test::Enter(*gui_test::Find<FeedWaterSpecification>(Panel()).FindField("project/qbrutto"), "-1");
    ASSERT_EQ(MessageCount(), 1);
    EXPECT_NE(m_frame->GetMessageArea().GetItemText(0, 1).Find("Source flow rate"), wxNOT_FOUND);
    gui_test::Enter(*gui_test::Find<FeedWaterSpecification>(Panel()).FindField("project/qbrutto"), "1");
    EXPECT_EQ(MessageCount(), 0);
}

TEST_F(WaterToolsTest, SpeaksGerman)
{
    m_frame->View().SetLanguage("de");
    Pump();
    EXPECT_EQ(gui_test::Find<wxChoice>(Panel(), "Land").GetStringSelection(), "Deutschland");
    EXPECT_EQ(gui_test::Find<wxChoice>(Panel(), "Wasserart").GetStringSelection(), "Brunnenwasser");
    EXPECT_EQ(gui_test::Find<FeedWaterSpecification>(Panel()).FindField("project/lz")->GetName(),
              "Laufzeit [h]");
    m_dialogs.Expect([](wxDialog& shown) {
        auto& library = dynamic_cast<WaterLibDialog&>(shown);
        EXPECT_EQ(library.GetTitle(), "Wasserbibliothek");
        EXPECT_EQ(library.GetWaterList().GetItemText(0, 0), "Brasilien");
        library.GetWaterList().Select(0);
        EXPECT_EQ(gui_test::Find<wxListView>(library, "Einzelheiten").GetItemText(0, 0), "Natrium");
        return wxID_CANCEL;
    });
    Menu("Extras", "Wasserbibliothek...");
    EXPECT_FALSE(m_frame->GetDocument().IsUnsaved());
}

TEST_F(WaterToolsTest, WatersAreAddedBlendedAndRemoved)
{
    Menu("Tools", "Blend waters...");
    EXPECT_EQ(MessageCount(), 1) << "two waters are needed";
    Menu("Tools", "Add water");
    ASSERT_EQ(OpenProject().GetLiquidCount(), 2u);
    EXPECT_EQ(OpenProject().GetLiquid(1).GetName(), "Water");
    m_dialogs.Expect([](wxDialog&) { return wxID_OK; });
    Menu("Tools", "Blend waters...");
    ASSERT_EQ(OpenProject().GetLiquidCount(), 3u);
    const auto blended = [this](const char* key) {
        return OpenProject().GetLiquid(2).FindDetail(key)->GetDoubleValue();
    };
    EXPECT_NEAR(blended("liquid/na.mgl"), 8.15, 1e-9);
    for (const char* key : {"liquid/na.orig", "liquid/temp.orig"}) {
        const auto colour = [&](std::size_t water) {
            return WaterPage(water).FindField(key)->GetBackgroundColour();
        };
        EXPECT_EQ(colour(2), TvTextCtrl::ReadOnlyColour()) << "nobody types into a blend; " << key;
        EXPECT_EQ(colour(1), TvTextCtrl::EditableColour()) << key;
    }

    // An edit of the first water shows in the blend at once, and is undone with it.
    WaterPage();
    Enter(*Panel().FindField("liquid/na.orig"), "100");
    Pump();
    EXPECT_NEAR(blended("liquid/na.mgl"), 50.0, 1e-9);
    m_frame->Undo();
    Pump();
    EXPECT_NEAR(blended("liquid/na.mgl"), 8.15, 1e-9);

    WaterPage(1);
    Menu("Tools", "Remove water");
    ASSERT_EQ(OpenProject().GetLiquidCount(), 2u);
    EXPECT_EQ(WaterPage(1).FindField("liquid/na.orig")->GetBackgroundColour(), TvTextCtrl::EditableColour());
    EXPECT_NEAR(OpenProject().GetLiquid(1).FindDetail("liquid/na.mgl")->GetDoubleValue(), 8.15, 1e-9);
    Menu("Tools", "Remove water");
    Menu("Tools", "Remove water");
    EXPECT_EQ(OpenProject().GetLiquidCount(), 1u) << "the last one stays";
}

TEST_F(WaterToolsTest, ABlendIsNamedWhereItIsMade)
{
    Menu("Tools", "Add water");
    const auto blend = [this](const char* offered, const char* typed) {
        m_dialogs.Expect([=](wxDialog& dialog) {
            auto& name = gui_test::Find<wxTextCtrl>(dialog, "Name");
            EXPECT_EQ(name.GetValue(), offered);
            name.SetValue(typed);
            return wxID_OK;
        });
        Menu("Tools", "Blend waters...");
    };
    const auto names = [this] {
        std::string all;
        for (std::size_t i = 2; i < OpenProject().GetLiquidCount(); ++i)
            all += OpenProject().GetLiquid(i).GetName() + ";";
        return all;
    };
    blend("Blend", " Mixed ");
    EXPECT_EQ(names(), "Mixed;");
    // On its own page it is changed, in one step.
    blend("Mixed", "");
    EXPECT_EQ(names(), "Mixed;");
    blend("Mixed", "Water");
    EXPECT_EQ(names(), "Water 2;") << "taken";
    m_frame->Undo();
    EXPECT_EQ(names(), "Mixed;");
    WaterPage();
    blend("Blend", "");
    EXPECT_EQ(names(), "Mixed;Blend;");
    m_frame->Undo();
    EXPECT_EQ(names(), "Mixed;");
}

}  // namespace
