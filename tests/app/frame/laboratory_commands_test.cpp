// SPDX-License-Identifier: MIT
// Analyses of laboratories in the program's window: imported with a preview, and exported.
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/support/file_path.h"
#include "gui_base/water/analysis/laboratory_dialog.h"
#include "projectbase/settings/settings.h"
#include "tests/support/program_fixture.h"
#include "tncommon/atomic_file.h"

#include <wx/filedlg.h>
#include <wx/msgdlg.h>
#include <wx/spinctrl.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>

namespace {

using namespace gui_test;

class LaboratoryCommandsTest : public ProgramTest
{
protected:
    LaboratoryCommandsTest() : ProgramTest("brandenburg_fresh") {}

    FeedWaterPanel& Panel() { return WaterPage(); }
    int MessageCount() { return m_frame->GetMessageArea().GetItemCount(); }
};

TEST_F(LaboratoryCommandsTest, ALaboratorysFileIsPreviewedAndTakenOver)
{
    const std::filesystem::path path = m_folder / "lab.csv";
    std::ofstream(path, std::ios::binary) << "Probe;Ca [mg/l];Uran [\xb5g/l];pH;Cl [mg/l];KS4,3 [mmol/l]\n"
                                             "A;40,5;1;7,25;<1;2,5\nB;50;2;8;9;3\n";
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
                         "Uran [\u00b5g/l]=/Unknown parameter;pH=7.25/;Cl [mg/l]=<1/Limit of detection;"
                         "KS4,3 [mmol/l]=2.45/m-value: less 0.05 mmol/l;"));
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

TEST_F(LaboratoryCommandsTest, LimitsOfDetectionAreReadAsChosenBefore)
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
    EXPECT_EQ(WaterPage().FindField("liquid/cl.orig")->GetValue(), "<8");
    EXPECT_EQ(Water("cl.mgl").GetDoubleValue(), 8.0);
    expect("the limit", "zero", wxID_CANCEL);
    m_frame->Waters().ImportFrom(path);
    Settings::Save();
    Settings::Reset();
    Settings::Load();
    expect("the limit", "half of the limit", wxID_OK);
    m_frame->Waters().ImportFrom(path);
    EXPECT_EQ(Water("cl.mgl").GetDoubleValue(), 4.0);

    std::ofstream(path) << "Ca [mg/l];Cl [mg/l]\n40;8\n";
    m_dialogs.Expect([](wxDialog& dialog) {
        EXPECT_THROW(gui_test::Find<wxChoice>(dialog), std::runtime_error) << "nothing to choose";
        return wxID_CANCEL;
    });
    m_frame->Waters().ImportFrom(path);
}

TEST_F(LaboratoryCommandsTest, ATableTooLargeIsRefused)
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

TEST_F(LaboratoryCommandsTest, FilesAndWatersWhoseNamesAreNoTextAreShownEscaped)
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

TEST_F(LaboratoryCommandsTest, ALongReadingIsShownAndCancelled)
{
    const std::filesystem::path path = m_folder / "long.csv";
    std::ofstream file(path);
    file << "Ca [mg/l],Na [mg/l]\n";
    for (int row = 1; row < 100'000; ++row)
        file << "12.5,<0.01\n";
    file.close();
    m_frame->Waters().SetProgressDelay(std::chrono::milliseconds(0));
    auto cancelling = std::make_unique<CancelsProgress>();
    m_frame->Waters().ImportFrom(path);
    EXPECT_EQ(cancelling->Count(), 1);
    EXPECT_EQ(MessageCount(), 0) << "who cancels need not be told";
    cancelling.reset();
    m_dialogs.Expect([](wxDialog& dialog) {
        EXPECT_EQ(gui_test::Find<wxSpinCtrl>(dialog).GetMax(), 99'999);
        return wxID_OK;
    });
    m_frame->Waters().ImportFrom(path);
    EXPECT_EQ(Water("ca.orig").GetDoubleValue(), 12.5);
}

TEST_F(LaboratoryCommandsTest, AllWatersAreExportedWithTheOneInFrontAsTheFirst)
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

TEST_F(LaboratoryCommandsTest, AnExportedAnalysisCanBeImported)
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

}  // namespace
