// SPDX-License-Identifier: MIT
// Whole waters in the program's window: copying, the library, and what stands above the analysis.
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/support/file_path.h"
#include "gui_base/water/analysis/laboratory_dialog.h"
#include "gui_base/water/feedwater/water_clipboard.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/library/water_lib_list.h"
#include "projectbase/project/project_file.h"
#include "projectbase/settings/settings.h"
#include "tests/support/program_fixture.h"
#include "tncommon/atomic_file.h"

#include <wx/button.h>
#include <wx/filedlg.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/progdlg.h>
#include <wx/radiobut.h>
#include <wx/timer.h>

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
    Menu("Extras", "Wasserbibliothek ...");
    EXPECT_FALSE(m_frame->GetDocument().IsUnsaved());
}

TEST_F(WaterToolsTest, ALaboratorysFileIsPreviewedAndTakenOver)
{
    const std::filesystem::path path = m_folder / "lab.csv";
    std::ofstream(path, std::ios::binary) << "Probe;Ca [mg/l];Uran [\xb5g/l];pH;Cl [mg/l]\n"
                                             "A;40,5;1;7,25;<1\nB;50;2;8;9\n";
    const double sodium = Water("na.orig").GetDoubleValue();
    wxString shown;
    const auto look = [&shown](wxDialog& dialog) {
        const wxListView& list = dynamic_cast<LaboratoryDialog&>(dialog).GetList();
        for (int row = 0; row < list.GetItemCount(); ++row)
            shown += list.GetItemText(row, 0) + "=" + list.GetItemText(row, 2) + "/" +
                     list.GetItemText(row, 4) + ";";
    };
    m_dialogs.Expect([&](wxDialog& dialog) {
        look(dialog);
        return wxID_CANCEL;
    });
    m_frame->Waters().ImportFrom(path);
    EXPECT_EQ(shown, wxString::FromUTF8(
                         "Probe=/Name of the sample;Ca [mg/l]=40.5/;"
                         "Uran [\u00b5g/l]=/Unknown parameter;pH=7.25/;Cl [mg/l]=0.5/Limit of detection;"));
    EXPECT_EQ(Water("na.orig").GetDoubleValue(), sodium) << "nothing changes before OK";
    EXPECT_FALSE(m_frame->GetDocument().IsUnsaved());

    m_dialogs.Expect([](wxDialog&) { return wxID_OK; });
    m_frame->Waters().ImportFrom(path);
    Pump();
    EXPECT_EQ(Water("ca.orig").GetDoubleValue(), 40.5);
    EXPECT_EQ(Water("ph").GetDoubleValue(), 7.25);
    EXPECT_EQ(Water("na.orig").GetDoubleValue(), 0.0);
    EXPECT_EQ(Panel().FindField("liquid/ca.orig")->GetValue(), "40.5");
    m_frame->Undo();
    Pump();
    EXPECT_EQ(Water("na.orig").GetDoubleValue(), sodium);

    std::ofstream(m_folder / "letter.txt") << "Dear customer,\nthe results follow.\n";
    m_frame->Waters().ImportFrom(m_folder / "letter.txt");
    m_frame->Waters().ImportFrom(m_folder / "missing.csv");
    EXPECT_EQ(MessageCount(), 2);
}

TEST_F(WaterToolsTest, LimitsOfDetectionAreReadAsChosenBefore)
{
    const std::filesystem::path path = m_folder / "lab.csv";
    std::ofstream(path) << "Ca [mg/l];Cl [mg/l]\n40;<8\n";
    const auto expect = [this](const char* before, const char* chosen, int answer) {
        m_dialogs.Expect([=](wxDialog& dialog) {
            auto& choice = gui_test::Find<wxChoice>(dialog, "Values below a limit of detection count as");
            EXPECT_EQ(choice.GetStringSelection(), before);
            choice.SetStringSelection(chosen);
            wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
            event.SetInt(choice.GetSelection());
            choice.GetEventHandler()->ProcessEvent(event);
            return answer;
        });
    };
    expect("half of the limit", "the limit", wxID_OK);
    m_frame->Waters().ImportFrom(path);
    EXPECT_EQ(Water("cl.orig").GetDoubleValue(), 8.0);
    expect("the limit", "zero", wxID_CANCEL);
    m_frame->Waters().ImportFrom(path);
    Settings::Save();
    Settings::Reset();
    Settings::Load();
    expect("the limit", "half of the limit", wxID_OK);
    m_frame->Waters().ImportFrom(path);
    EXPECT_EQ(Water("cl.orig").GetDoubleValue(), 4.0);

    std::ofstream(path) << "Ca [mg/l];Cl [mg/l]\n40;8\n";
    m_dialogs.Expect([](wxDialog& dialog) {
        EXPECT_THROW(gui_test::Find<wxChoice>(dialog), std::runtime_error) << "nothing to choose";
        return wxID_CANCEL;
    });
    m_frame->Waters().ImportFrom(path);
}

TEST_F(WaterToolsTest, ATableTooLargeIsRefused)
{
    const std::filesystem::path path = m_folder / "wide.csv";
    std::ofstream(path) << "Ca;Na\n" << std::string(8'000'000, ';');
    m_frame->Waters().ImportFrom(path);
    ASSERT_EQ(MessageCount(), 1);
    EXPECT_NE(m_frame->GetMessageArea().GetItemText(0, 1).Find(
                  "it has more than 1000 columns (row 2, column 1001)"),
              wxNOT_FOUND);
    EXPECT_FALSE(m_frame->GetDocument().IsUnsaved());
    std::ofstream(path, std::ios::app) << std::string(9'000'000, '1');
    m_frame->Waters().ImportFrom(path);
    EXPECT_EQ(MessageCount(), 2) << "larger than such a file may be";
    EXPECT_TRUE(m_frame->GetMessageArea().GetItemText(1, 1).EndsWith("it is larger than 16 MiB"));
}

TEST_F(WaterToolsTest, FilesAndWatersWhoseNamesAreNoTextAreShownEscaped)
{
    const std::filesystem::path path = m_folder / "l\xff\x1b[2Jab.csv";
    m_frame->Waters().ImportFrom(path);
    ASSERT_EQ(MessageCount(), 1);
    const wxString text = m_frame->GetMessageArea().GetItemText(0, 1);
    EXPECT_TRUE(text.Contains("l\\xff\\x1b[2Jab.csv cannot be read: there is no such file")) << text;

    std::ofstream(path) << "Ca [mg/l]\n40\n";
    m_dialogs.Expect([](wxDialog&) { return wxID_OK; });
    m_frame->Waters().ImportFrom(PathOf(DialogPath(path)));
    EXPECT_EQ(Water("ca.orig").GetDoubleValue(), 40.0);

    OpenProject().RenameOwner(OpenProject().GetLiquid(0), "W\x1b[2J\xff");
    Pump();
    EXPECT_EQ(m_frame->GetBook().GetCurrent()->GetModule().id, "water");
    const auto& tabs = gui_test::Find<AuiNotebook>(*m_frame);
    EXPECT_EQ(tabs.GetPageText(static_cast<std::size_t>(tabs.GetSelection())), "W\\x1b[2J\\xff");
}

TEST_F(WaterToolsTest, ALongReadingIsShownAndCancelled)
{
    const std::filesystem::path path = m_folder / "long.csv";
    std::ofstream file(path);
    file << "Ca [mg/l],Na [mg/l]\n";
    for (int row = 1; row < 100'000; ++row)
        file << "12.5,<0.01\n";
    file.close();
    m_frame->Waters().SetProgressDelay(std::chrono::milliseconds(0));
    int pressed = 0;
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
        for (wxWindow* window : wxTopLevelWindows) {
            wxWindow* button = dynamic_cast<wxGenericProgressDialog*>(window) != nullptr
                                   ? window->FindWindow(wxID_CANCEL)
                                   : nullptr;
            if (button == nullptr || pressed > 0)
                continue;
            ++pressed;
            wxCommandEvent event(wxEVT_BUTTON, wxID_CANCEL);
            event.SetEventObject(button);
            window->GetEventHandler()->ProcessEvent(event);
        }
    });
    timer.Start(1);
    m_frame->Waters().ImportFrom(path);
    EXPECT_EQ(pressed, 1);
    EXPECT_EQ(MessageCount(), 0) << "who cancels need not be told";
    pressed = 1;  // not again
    m_dialogs.Expect([](wxDialog& dialog) {
        EXPECT_EQ(gui_test::Find<wxSpinCtrl>(dialog).GetMax(), 99'999);
        return wxID_OK;
    });
    m_frame->Waters().ImportFrom(path);
    EXPECT_EQ(Water("ca.orig").GetDoubleValue(), 12.5);
}

TEST_F(WaterToolsTest, AllWatersAreExportedWithTheOneInFrontAsTheFirst)
{
    const std::filesystem::path path = m_folder / "all.csv";
    const auto save = [&](int answer) {
        m_dialogs.Expect([answer](wxDialog&) { return answer; });
        if (answer == wxID_CANCEL)
            return;
        m_dialogs.Expect([&](wxDialog& dialog) {
            return ChooseFile(dynamic_cast<wxFileDialog&>(dialog), path) ? wxID_OK : wxID_CANCEL;
        });
    };
    Menu("Tools", "Add water");
    save(wxID_YES);
    Menu("File", "Export analysis...");
    const auto read = [&path] { return laboratory::Read(tncommon::ReadWholeFile(path, 100'000)); };
    ASSERT_EQ(read().samples.size(), 2u);
    EXPECT_EQ(read().GetSampleName(0), "Water") << "the one in front";
    EXPECT_EQ(read().GetSampleName(1), "Brandenburg groundwater");
    std::filesystem::remove(path);
    save(wxID_CANCEL);
    Menu("File", "Export analysis...");
    EXPECT_FALSE(std::filesystem::exists(path));
    save(wxID_NO);
    Menu("File", "Export analysis...");
    EXPECT_EQ(read().samples.size(), 1u);
}

TEST_F(WaterToolsTest, AnExportedAnalysisCanBeImported)
{
    const std::filesystem::path path = m_folder / "out.csv";
    m_dialogs.Expect([&](wxDialog& dialog) {
        return ChooseFile(dynamic_cast<wxFileDialog&>(dialog), path) ? wxID_OK : wxID_CANCEL;
    });
    Menu("File", "Export analysis...");
    ASSERT_TRUE(std::filesystem::exists(path));
    const double calcium = Water("ca.orig").GetDoubleValue();
    m_frame->SetDocument(MakeDocument("amazon"));
    Pump();
    m_dialogs.Expect([](wxDialog&) { return wxID_OK; });
    m_frame->Waters().ImportFrom(path);
    Pump();
    EXPECT_EQ(Water("ca.orig").GetDoubleValue(), calcium);
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
    EXPECT_NEAR(OpenProject().GetLiquid(1).FindDetail("liquid/na.mgl")->GetDoubleValue(), 8.15, 1e-9);
    Menu("Tools", "Remove water");
    Menu("Tools", "Remove water");
    EXPECT_EQ(OpenProject().GetLiquidCount(), 1u) << "the last one stays";
}

}  // namespace
