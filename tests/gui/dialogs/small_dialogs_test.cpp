// SPDX-License-Identifier: MIT
#include "app/language/language.h"
#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/dialogs/file_name_creator.h"
#include "gui_base/dialogs/gui_utils.h"
#include "gui_base/dialogs/info_message_dialog.h"
#include "gui_base/dialogs/page_selection_dialog.h"
#include "gui_base/dialogs/tv_gridcellchoiceeditor.h"
#include "gui_base/dialogs/tv_multichoicedialog.h"
#include "tests/support/gui_test.h"

#include <wx/button.h>
#include <wx/filedlg.h>

#include <algorithm>
#include <gtk/gtk.h>

namespace {

using namespace gui_test;

class SmallDialogsTest : public GuiTest
{
protected:
    static void Push(wxWindow& parent, const wxString& label)
    {
        auto* button = dynamic_cast<wxButton*>(wxWindow::FindWindowByLabel(label, &parent));
        ASSERT_NE(button, nullptr) << label.utf8_string();
        wxCommandEvent event(wxEVT_BUTTON, button->GetId());
        event.SetEventObject(button);
        button->GetEventHandler()->ProcessEvent(event);
    }
};

TEST_F(SmallDialogsTest, InfoMessageTellsOfTheChoice)
{
    InfoMessageDialog dialog("Something", m_frame);
    EXPECT_EQ(dialog.GetTitle(), "Information");
    EXPECT_FALSE(dialog.GetDontShowAgainValue());
    dialog.Show();
    Pump();
    auto* box = wxWindow::FindWindowByLabel("Do not show this message again", &dialog);
    ASSERT_NE(box, nullptr);
    Click(*box);
    EXPECT_TRUE(dialog.GetDontShowAgainValue());
}

TEST_F(SmallDialogsTest, MultiChoiceSelectsAllOrNone)
{
    const wxString choices[]{"one", "two", "three"};
    TvMultiChoiceDialog dialog(m_frame, "Which?", "Choose", 3, choices);
    const auto chosen = [&dialog] {
        dialog.TransferDataFromWindow();
        return dialog.GetSelections().size();
    };
    EXPECT_EQ(chosen(), 0u);
    Push(dialog, "Select all");
    EXPECT_EQ(chosen(), 3u);
    Push(dialog, "Deselect all");
    EXPECT_EQ(chosen(), 0u);
}

TEST_F(SmallDialogsTest, PageSelectionKeepsTheOrderOfThePages)
{
    PageSelectionDialog dialog({{"Water", 7}, {"Costs", 3}, {"Plant", 5}}, m_frame);
    EXPECT_EQ(dialog.GetTitle(), "Print to PDF");
    const auto ids = [&dialog] {
        std::vector<int> result;
        for (const ReportPage& page : dialog.GetActiveReports())
            result.push_back(page.id);
        return result;
    };
    EXPECT_EQ(ids(), (std::vector<int>{7, 3, 5}));
    Push(dialog, "Deselect all");
    EXPECT_TRUE(ids().empty());
    dialog.Show();
    Pump();
    wxCheckListBox* list = nullptr;
    for (wxWindow* child : dialog.GetChildren()) {
        for (wxWindow* grandchild : child->GetChildren()) {
            if (auto* found = dynamic_cast<wxCheckListBox*>(grandchild))
                list = found;
        }
    }
    ASSERT_NE(list, nullptr);
    list->Check(2);
    list->Check(0);
    EXPECT_EQ(ids(), (std::vector<int>{7, 5}));
}

TEST_F(SmallDialogsTest, GridEditorMapsTextsToIdentifiers)
{
    auto* grid = new wxGrid(m_frame, wxID_ANY);
    grid->CreateGrid(1, 1);
    auto* editor = new TvGridCellChoiceEditor({{"a", "Alpha"}, {"b", "Beta"}}, true);
    grid->SetCellEditor(0, 0, editor);
    grid->SetCellValue(0, 0, "Beta");
    m_frame->SendSizeEvent();
    Pump();
    EXPECT_EQ(editor->GetChoices().size(), 2u);
    grid->SetGridCursor(0, 0);
    grid->EnableCellEditControl();
    Pump();
    EXPECT_EQ(editor->GetSelectedId(), "b");
    grid->DisableCellEditControl();
    grid->SetCellValue(0, 0, "Gamma");
    grid->EnableCellEditControl();
    EXPECT_EQ(editor->GetSelectedId(), "");
    grid->DisableCellEditControl();
    const std::unique_ptr<wxGridCellEditor, void (*)(wxGridCellEditor*)> clone(
        editor->Clone(), [](wxGridCellEditor* e) { e->DecRef(); });
    EXPECT_EQ(dynamic_cast<TvGridCellChoiceEditor&>(*clone).GetChoices()[1].id, "b");
}

TEST_F(SmallDialogsTest, FileNamesGetTheirEnding)
{
    m_dialogs.Expect([](wxDialog&) { return wxID_CANCEL; });
    EXPECT_FALSE(FileNameCreator()(m_frame, "Export", "/tmp", "water", "*.csv", "csv").IsOk());
    m_dialogs.Expect([](wxDialog& dialog) {
        return ChooseFile(dynamic_cast<wxFileDialog&>(dialog), "/tmp/water") ? wxID_OK : wxID_CANCEL;
    });
    const wxFileName file = FileNameCreator()(m_frame, "Export", "/tmp", "water", "*.csv", "csv");
    EXPECT_EQ(file.GetFullPath(), "/tmp/water.csv");
}

TEST_F(SmallDialogsTest, CountriesFollowTheLanguage)
{
    const auto nameOf = [](const wxString& code) -> std::string {
        for (const auto& [candidate, name] : gui_utils::GetCountries()) {
            if (candidate == code)
                return name.utf8_string();
        }
        return {};
    };
    app::SwitchLanguage("en");
    EXPECT_EQ(nameOf("DE"), "Germany");
    EXPECT_GT(gui_utils::GetCountries().size(), 240u);
    app::SwitchLanguage("de");
    EXPECT_EQ(nameOf("DE"), "Deutschland");
    const auto countries = gui_utils::GetCountries();
    const auto position = [&countries](const wxString& code) {
        return std::find_if(countries.begin(), countries.end(),
                            [&](const auto& c) { return c.first == code; }) -
               countries.begin();
    };
    EXPECT_LT(position("DE"), position("FR")) << "sorted by name";
    app::SwitchLanguage("en");
}

TEST_F(GuiTest, StandardButtonsSpeakTheLanguageOfTheProgram)
{
    // The second text equals the toolkit's own name of the button in that language.
    const TestCatalogue german({{"OK", "Gut"}, {"Cancel", "Abbrechen"}, {"&Cancel", "&Abbrechen"}});
    wxDialog dialog(m_frame, wxID_ANY, "");
    dialog.SetSizerAndFit(dialogs::CreateButtons(dialog, true));
    dialog.Show();
    Pump();
    const auto shown = [&dialog](int id) {
        auto* button = GTK_BUTTON(dialog.FindWindow(id)->GetHandle());
        return std::string(gtk_button_get_label(button));
    };
    EXPECT_EQ(shown(wxID_OK), "Gut");
    EXPECT_EQ(shown(wxID_CANCEL), "Abbrechen");
}

}  // namespace
