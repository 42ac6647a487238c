// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/choice_combination.h"
#include "gui_base/input/combinations/country_place_combination.h"
#include "gui_base/input/events.h"
#include "projectbase/units/unit_system_manager.h"
#include "tests/support/gui_test.h"

#include <wx/panel.h>
#include <wx/textctrl.h>

#include <memory>

namespace {

using namespace gui_test;
using Entries = std::vector<std::pair<std::string, std::string>>;

class ChoiceCombinationTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_panel = MakePanel();
        m_sizer = new wxBoxSizer(wxHORIZONTAL);
        m_panel->SetSizer(m_sizer);
        m_panel->Bind(tvCHANGE_EVENT, [this](wxCommandEvent& event) {
            m_heard.emplace_back(event.GetId(), event.GetString());
        });
    }
    wxPanel* m_panel = nullptr;
    wxSizer* m_sizer = nullptr;
    std::vector<std::pair<int, wxString>> m_heard;
};

TEST_F(ChoiceCombinationTest, ChoicesAreStoredAndToldOnce)
{
    DetailData text("t", DetailType::String);
    DetailData number("n", DetailType::Long);
    auto byText = std::make_unique<ChoiceCombination>(
        m_panel, 701, "Value", ":", tvChoiceAdv::Items{{"a", "Alpha"}, {"b", "Beta"}}, &text, m_sizer);
    TvChoiceCombination byNumber(m_panel, 702, "Value", ":", {{10, "Alpha"}, {20, "Beta"}}, &number);
    m_sizer->Add(byNumber.GetSizer());
    m_panel->Layout();
    Pump();
    ASSERT_EQ(m_sizer->GetItemCount(), 3u);
    EXPECT_EQ(byNumber.GetSizer()->GetItemCount(), 2u);

    text.SetValue("a");
    number.SetValue(10L);
    byText->TransferDetailToWindow();
    byNumber.TransferDetailToWindow();
    EXPECT_TRUE(m_heard.empty());
    Focus(*byText->GetChoice());
    Press(WXK_DOWN);
    Focus(*byNumber.GetChoice());
    Press(WXK_DOWN);
    EXPECT_EQ(text.GetStringValue(), "b");
    EXPECT_EQ(number.GetLongValue(), 20);
    EXPECT_EQ(m_heard, (std::vector<std::pair<int, wxString>>{{701, "b"}, {702, "Beta"}}));

    const auto expect = [&](const wxString& label, const wxString& item) {
        for (const std::string& system : UnitSystemManager::GetUnitSystems()) {
            byText->UpdateUnit(system);
            byNumber.UpdateUnit(system);
            EXPECT_EQ(byText->GetLabel()->GetLabelText(), label);
            EXPECT_EQ(byText->GetChoice()->GetStringSelection(), item);
            EXPECT_EQ(byNumber.GetChoice()->GetStringSelection(), item);
        }
    };
    expect("Value:", "Beta");
    {
        const TestCatalogue german(Entries{{"Value", "Wert"}, {"Beta", "Zweites"}});
        expect("Wert:", "Zweites");
    }
    expect("Value:", "Beta");

    number.SetValue(30L);
    byNumber.TransferDetailToWindow();
    EXPECT_EQ(byNumber.GetChoice()->GetSelection(), wxNOT_FOUND);
    byNumber.SetItems({{30, "Gamma"}});
    EXPECT_EQ(byNumber.GetChoice()->GetStringSelection(), "Gamma");

    auto* choice = byText->GetChoice();
    byText.reset();
    m_heard.clear();
    Focus(*choice);
    Press(WXK_UP);
    ASSERT_EQ(m_heard.size(), 1u) << "only the choice's own event";
}

TEST_F(ChoiceCombinationTest, CountryAndPlace)
{
    DetailData country("liquid/country", DetailType::String);
    DetailData place("liquid/place", DetailType::String);
    country.SetValue("XK");
    place.SetValue("Old town");
    CountryPlaceCombination row(m_panel, 711, 712, "Country", "Place", ":",
                                {{"DE", "Germany"}, {"AT", "Austria"}}, &country, &place, m_sizer);
    auto* other = new wxTextCtrl(m_panel, wxID_ANY);
    m_sizer->Add(other);
    m_panel->Layout();
    Pump();
    tvChoiceAdv& choice = *row.GetChoice();
    EXPECT_EQ(wxJoin(choice.GetStrings(), ';'), ";Austria;Germany;XK");
    EXPECT_EQ(choice.GetStringSelection(), "XK");
    EXPECT_EQ(row.GetPlace()->GetValue(), "Old town");

    Focus(choice);
    Press(WXK_UP);
    EXPECT_EQ(country.GetStringValue(), "DE");
    Enter(*row.GetPlace(), "Harbour");
    EXPECT_EQ(place.GetStringValue(), "Harbour");
    Enter(*row.GetPlace(), "Harbour");
    EXPECT_EQ(m_heard, (std::vector<std::pair<int, wxString>>{{711, "DE"}, {712, ""}}));

    const TestCatalogue german(Entries{{"Country", "Land"}, {"Place", "Ort"}});
    row.SetCountries({{"DE", "Deutschland"}, {"AT", wxString::FromUTF8("Österreich")}});
    row.UpdateUnit("us");
    EXPECT_EQ(row.GetLabel()->GetLabelText(), "Land:");
    EXPECT_NO_THROW(Labelled<TvStaticText>(*m_panel, "Ort:"));
    EXPECT_EQ(choice.GetStringSelection(), "Deutschland");
    EXPECT_EQ(country.GetStringValue(), "DE");
    country.SetValue("");
    row.TransferDetailToWindow();
    EXPECT_EQ(choice.GetSelection(), 0);
}

}  // namespace
