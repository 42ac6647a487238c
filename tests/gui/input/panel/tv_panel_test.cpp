// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/choice_combination.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_notebook.h"
#include "gui_base/input/panel/advanced_input_options.h"
#include "tests/support/gui_test.h"

#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

namespace {

using namespace gui_test;
using Entries = std::vector<std::pair<std::string, std::string>>;

class PanelsTest : public GuiTest
{};

TEST_F(PanelsTest, TabTitlesFollowTheirPages)
{
    auto* book = new TvNotebook(MakePanel());
    const auto page = [book] { return new wxPanel(book); };
    book->AddPage(page(), "Feed");
    book->AddPage(page(), "Effluent");
    book->InsertPage(0, page(), "First");
    book->SetPageText(2, "Value");
    const auto titles = [book] {
        wxString text;
        for (std::size_t i = 0; i < book->GetPageCount(); ++i)
            text += book->GetPageText(i) + ";";
        return text;
    };
    {
        const TestCatalogue german(Entries{{"Feed", "Zulauf"}, {"Value", "Wert"}});
        book->Localize("iso");
        EXPECT_EQ(titles(), "First;Zulauf;Wert;");
        book->RemovePage(0);
        book->AddPage(page(), "Feed", true);
        EXPECT_EQ(titles(), "Zulauf;Wert;Zulauf;");
        EXPECT_EQ(book->GetSelection(), 2);
    }
    book->Localize("us");
    EXPECT_EQ(titles(), "Feed;Value;Feed;");
    book->DeleteAllPages();
    book->AddPage(page(), "Value");
    book->Localize("iso");
    EXPECT_EQ(titles(), "Value;");
}

TEST_F(PanelsTest, PanelAsksAllItsParts)
{
    auto* panel = new TvPanel(m_frame);
    DetailData flag("flag", DetailType::Bool);
    DetailData key("key", DetailType::String);
    auto* button = panel->AddControl(new TvButton(panel, wxID_ANY, "Value"));
    auto* box =
        panel->AddControl(new TvCheckBox(panel, wxID_ANY, "Value", wxDefaultPosition, wxDefaultSize, 0,
                                         wxDefaultValidator, wxASCII_STR(wxCheckBoxNameStr), &flag));
    auto* gone =
        panel->AddControl(new TvCheckBox(panel, wxID_ANY, "Value", wxDefaultPosition, wxDefaultSize, 0,
                                         wxDefaultValidator, wxASCII_STR(wxCheckBoxNameStr), &flag));
    auto* row = panel->AddCombination(std::make_unique<ChoiceCombination>(
        panel, wxID_ANY, "Value", ":", tvChoiceAdv::Items{{"a", "Alpha"}, {"b", "Value"}}, &key));
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(row->GetSizer());
    panel->SetSizer(sizer);
    gone->Destroy();
    flag.SetValue(true);
    key.SetValue("b");
    panel->TransferDetailsToWindow();
    EXPECT_TRUE(box->GetValue());
    const TestCatalogue german(Entries{{"Value", "Wert"}});
    panel->Localize("us");
    EXPECT_EQ(button->GetLabel(), "Wert");
    EXPECT_EQ(box->GetLabel(), "Wert");
    EXPECT_EQ(row->GetChoice()->GetStringSelection(), "Wert");
}

TEST_F(PanelsTest, AdvancedOptionsOpenByKeyAndMakeRoom)
{
    wxPanel* panel = MakePanel();
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    auto* first = new wxTextCtrl(panel, wxID_ANY);
    auto* section = new AdvancedInputOptions(panel);
    auto* hidden = new wxTextCtrl(section->GetOptions(), wxID_ANY);
    auto* inner = new wxBoxSizer(wxVERTICAL);
    inner->Add(hidden);
    section->GetOptions()->SetSizer(inner);
    auto* below = new wxTextCtrl(panel, wxID_ANY);
    sizer->Add(first);
    sizer->Add(section, wxSizerFlags().Expand());
    sizer->Add(below);
    panel->SetSizer(sizer);
    panel->Layout();
    Pump();
    const int folded = below->GetPosition().y;
    EXPECT_FALSE(section->IsOpen());
    Focus(*first);
    Press(WXK_TAB);
    EXPECT_FALSE(hidden->HasFocus());
    Press(WXK_SPACE);
    ASSERT_TRUE(PumpUntil([section] { return section->IsOpen(); }));
    ASSERT_TRUE(PumpUntil([below, folded] { return below->GetPosition().y > folded; }));
    Press(WXK_TAB);
    EXPECT_TRUE(hidden->HasFocus());
    section->SetOpen(false);
    ASSERT_TRUE(PumpUntil([below, folded] { return below->GetPosition().y == folded; }));
    Focus(*first);
    Press(WXK_TAB);
    Press(WXK_TAB);
    EXPECT_TRUE(below->HasFocus()) << "what is folded is passed by";
    EXPECT_FALSE(section->IsOpen());
    AdvancedInputOptions::OpenAround(*hidden);
    Focus(*hidden);
    EXPECT_TRUE(hidden->HasFocus());
    ASSERT_TRUE(PumpUntil([below, folded] { return below->GetPosition().y > folded; }));
    section->SetOpen(false);
    ASSERT_TRUE(PumpUntil([below, folded] { return below->GetPosition().y == folded; }));

    const TestCatalogue german(Entries{{"Advanced options", "Mehr"}});
    section->Localize("iso");
    EXPECT_EQ(section->GetName(), "Mehr");
}

}  // namespace
