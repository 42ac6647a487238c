// SPDX-License-Identifier: MIT
// The page of the costs, by the keyboard: prices, currencies, and what follows from them.
#include "gui_base/ionexchange/costs/irx_costpanel.h"

#include "app/document/document.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/support/translation.h"
#include "projectbase/costs/project_costs.h"
#include "projectbase/project/project_json.h"
#include "tests/gui/network/network_fixture.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/project_history.h"
#include "wxchartdir/wx_chart_viewer.h"

#include <gmock/gmock.h>
#include <wx/log.h>
#include <wx/msgdlg.h>

#include <array>
#include <cmath>
#include <functional>

namespace {

using namespace gui_test;
using network_test::LoopbackServer;
using network_test::NetworkTest;
using testing::HasSubstr;

constexpr double kDollars = 1.25;

class CostsPanelTest : public NetworkTest
{
protected:
    void SetUp() override
    {
        NetworkTest::SetUp();
        ProjectDatabase::SetConversionRates({{"EUR", 1.0}, {"USD", kDollars}});
        support::SetWater(m_project, {{"ca", 2.5}, {"na", 1.0}, {"hco3", 2.5}, {"cl", 1.0}, {"sio2", 0.1}});
        support::SetFlow(m_project);
        const ProjectEdit edit(m_project);
        support::Put(m_project, "", "cost/cc.cost.resin1", 2.5);
        support::Put(m_project, "", "cost/op.cost.regen1", 0.5);
        support::Put(m_project, "", "cost/cc.cost.piping", 10'000.0);
    }
    void TearDown() override
    {
        m_panel->Destroy();
        Pump();
        NetworkTest::TearDown();
    }
    void Show()
    {
        m_panel = new IRXCostsPanel(&m_project, m_frame);
        m_panel->SetSize(m_frame->GetClientSize());
        m_frame->Show();
        Pump();
    }
    /// The sentence that holds these words, where it is shown.
    wxString NoteWith(const wxString& words) const
    {
        const std::function<wxString(const wxWindow&)> search = [&](const wxWindow& window) -> wxString {
            const auto* text = dynamic_cast<const wxStaticText*>(&window);
            if (text != nullptr && text->IsShown() && text->GetLabelText().Contains(words))
                return text->GetLabelText();
            for (const wxWindow* child : window.GetChildren()) {
                if (const wxString found = search(*child); !found.empty())
                    return found;
            }
            return {};
        };
        return search(*m_panel);
    }
    /// As somebody does who types the code and goes on.
    void Choose(const wxString& code)
    {
        Focus(Find<tvAutoComboBox>(*m_panel, "Select currency"));
        Press('A', wxMOD_CONTROL);
        Type(code);
        Press(WXK_RETURN);
        Pump();
    }
    TvTextCtrl& Field(const char* key) { return *m_panel->FindField(key); }
    wxString Text(const char* key) { return Field(key).GetValue(); }
    std::size_t Bars() const { return m_panel->GetChart().GetChart()->getImageMap().spots.size(); }
    double Value(const char* key) { return support::Get(m_project, "", key); }
    wxTextCtrl& ProjectRate(const wxString& code)
    {
        return Find<wxTextCtrl>(*m_panel, "Rate of the project for 1 EUR [" + code + "]");
    }
    wxString ListedRate(const wxString& code)
    {
        return Find<wxTextCtrl>(*m_panel, "Rate for 1 EUR [" + code + "]").GetValue();
    }
    void Push(const wxString& label)
    {
        Focus(Labelled<TvButton>(*m_panel, label));
        Press(WXK_SPACE);
        Pump();
    }

    iex::IEXProject m_project{"DEMI"};
    IRXCostsPanel* m_panel = nullptr;
};

TEST_F(CostsPanelTest, CostsFollowWhatIsTypedAndTheDesign)
{
    support::History history(m_project);
    Show();
    EXPECT_EQ(m_project.GetStatus(), StatusCosts);
    const double capital = Value("cost/cost.system.total");
    Enter(Field("cost/cc.cost.pumps"), "5000");
    Pump();
    EXPECT_NEAR(Value("cost/cost.system.total"), capital + 5'000.0, 1e-6);
    EXPECT_EQ(Text("cost/cc.cost.pumps"), "5000.00");
    const wxString share = Find<wxTextCtrl>(*m_panel, "Hydrochloric acid, Share [%]").GetValue();
    EXPECT_EQ(share, "100.0");
    Enter(Field("cost/op.cost.regen2"), "0.5");
    Pump();
    EXPECT_NE(Find<wxTextCtrl>(*m_panel, "Hydrochloric acid, Share [%]").GetValue(), share);
    history.stack.Undo();
    Pump();
    EXPECT_EQ(Find<wxTextCtrl>(*m_panel, "Hydrochloric acid, Share [%]").GetValue(), share);
    const wxString volume = Text("cost/cc.volume.resin1");
    support::SetFlow(m_project, 40.0);
    Pump();
    EXPECT_NE(Text("cost/cc.volume.resin1"), volume);
    EXPECT_EQ(NoteWith("not counted"), "");
}

TEST_F(CostsPanelTest, MoneyIsConvertedInTheWindowOnly)
{
    Show();
    const std::string before = ProjectToJson(m_project, {}, {});
    EXPECT_EQ(Text("cost/cc.cost.piping"), "10000.00");
    Choose("USD");
    EXPECT_EQ(ProjectDatabase::GetUserParameter("/Settings/Currency"), "USD");
    EXPECT_EQ(Text("cost/cc.cost.piping"), "12500.00");
    EXPECT_EQ(ListedRate("USD"), "1.2500");
    EXPECT_EQ(Text("cost/op.cost.regen1"), "0.625");
    EXPECT_NO_THROW(Find<wxTextCtrl>(*m_panel, "Hydrochloric acid, Price [USD/kg]"));
    EXPECT_EQ(ProjectToJson(m_project, {}, {}), before);
    Enter(Field("cost/cc.cost.piping"), "2500");
    Pump();
    EXPECT_EQ(Value("cost/cc.cost.piping"), 2'000.0);
    // The limits are the same amount.
    Enter(Field("cost/cc.cost.piping"), "1200000000");
    Pump();
    EXPECT_EQ(support::Detail(m_project, "", "cost/cc.cost.piping").GetRangeFlag(), 0);
    Enter(Field("cost/cc.cost.piping"), "1260000000");
    Pump();
    EXPECT_EQ(support::Detail(m_project, "", "cost/cc.cost.piping").GetRangeFlag(), 1);
}

TEST_F(CostsPanelTest, AThousandSwitchesChangeNothing)
{
    // Numbers that a conversion to and fro would not bring back to the last digit.
    for (std::size_t n = 0; n < costs::kEquipment.size(); ++n)
        support::Put(m_project, "", std::string("cost/cc.cost.") + costs::kEquipment.at(n),
                     std::sqrt(7.0 * static_cast<double>(n) + 2.0));
    m_project.SetUnitSystemDisplay("us");
    Show();
    const std::string before = ProjectToJson(m_project, {}, {});
    support::History history(m_project);
    ProjectDatabase::Transaction unsaved;
    constexpr std::array kRates{1.25, 0.0003, 151.7, 17'000.0 / 3.0, 89'500.0};
    for (std::size_t i = 0; i < 1'000; ++i) {
        // Every now and then another currency; between them other rates, which are quicker.
        if (i % 50 == 0)
            ProjectDatabase::SetUserParameter("/Settings/Currency", i % 100 == 0 ? "USD" : "EUR");
        ProjectDatabase::SetConversionRate("USD", kRates[i % kRates.size()]);
        m_panel->UpdateCurrencyDisplay();
        if (i % 7 == 0)
            m_panel->SynchronizeProject();
    }
    EXPECT_EQ(ProjectToJson(m_project, {}, {}), before);
    EXPECT_EQ(history.told, 0);
}

TEST_F(CostsPanelTest, TheProjectKeepsARateOfItsOwn)
{
    support::History history(m_project);
    Show();
    Choose("USD");
    EXPECT_TRUE(ProjectRate("USD").IsEmpty());
    Push("Copy rate");
    EXPECT_EQ(ProjectRate("USD").GetValue(), "1.2500");
    EXPECT_EQ(support::Detail(m_project, "", "cost/currency").GetStdStringValue(), "USD");
    ProjectDatabase::SetConversionRates({{"EUR", 1.0}, {"USD", 2.0}});
    m_panel->UpdateCurrencyDisplay();
    EXPECT_EQ(ListedRate("USD"), "2.0000");
    EXPECT_EQ(Text("cost/cc.cost.piping"), "12500.00") << "by the project's rate";
    Focus(ProjectRate("USD"));
    Press('A', wxMOD_CONTROL);
    Type("1.5");
    Press(WXK_RETURN);
    Pump();
    EXPECT_EQ(Value("cost/currency.rate"), 1.5);
    EXPECT_EQ(ProjectDatabase::GetConversionRate("USD"), 1.5);
    EXPECT_EQ(Text("cost/cc.cost.piping"), "15000.00");
    history.stack.Undo();
    Pump();
    EXPECT_EQ(Text("cost/cc.cost.piping"), "12500.00");
    EXPECT_EQ(ProjectRate("USD").GetValue(), "1.2500");
}

TEST_F(CostsPanelTest, RatesThatAreNoneAreNotTaken)
{
    Show();
    Choose("USD");
    for (const char* text : {"0", "-1", "nan", "1e300", "abc", ""}) {
        Focus(ProjectRate("USD"));
        Press('A', wxMOD_CONTROL);
        Press(WXK_DELETE);
        Type(text);
        Press(WXK_RETURN);
        Pump();
        EXPECT_FALSE(Labelled<TvButton>(*m_panel, "Set rate").IsEnabled()) << text;
        EXPECT_EQ(support::Detail(m_project, "", "cost/currency").GetStdStringValue(), "EUR") << text;
    }
    // What a file brings counts for nothing, either.
    support::Put(m_project, "", "cost/currency", "USD");
    for (const double rate : {0.0, -1.0, std::nan(""), 1e300}) {
        support::Put(m_project, "", "cost/currency.rate", rate);
        Pump();
        EXPECT_EQ(Text("cost/cc.cost.piping"), "10000.00") << rate;
        EXPECT_NE(NoteWith("No rate of USD"), "") << rate;
    }
}

TEST_F(CostsPanelTest, ACurrencyWithoutARateLeavesTheEuro)
{
    Show();
    Choose("CHF");
    EXPECT_EQ(ProjectDatabase::GetUserParameter("/Settings/Currency"), "CHF");
    EXPECT_EQ(Text("cost/cc.cost.piping"), "10000.00");
    EXPECT_EQ(NoteWith("No rate"), "No rate of CHF is known: amounts are in EUR.");
    EXPECT_FALSE(Labelled<TvButton>(*m_panel, "Copy rate").IsEnabled());
    EXPECT_NO_THROW(Find<wxTextCtrl>(*m_panel, "Piping [EUR]"));
    Enter(ProjectRate("CHF"), "0.9");
    Push("Set rate");
    EXPECT_EQ(Text("cost/cc.cost.piping"), "9000.00");
    EXPECT_EQ(NoteWith("No rate"), "");
}

constexpr const char* kRates =
    "<UN_OPERATIONAL_RATES_DATASET><UN_OPERATIONAL_RATES f_curr_code='EUR' rate='0.5'/>"
    "</UN_OPERATIONAL_RATES_DATASET>";

TEST_F(CostsPanelTest, RatesAreRenewedOrStay)
{
    const LoopbackServer service([](auto& connection, const auto&) { connection.Answer(200, kRates); });
    SetTestPage(service);
    Show();
    Choose("USD");
    const auto expect = [this](const wxString& title, const wxString& text) {
        m_dialogs.Expect([=](wxDialog& dialog) {
            EXPECT_EQ(dialog.GetTitle(), title);
            EXPECT_EQ(dynamic_cast<wxMessageDialog&>(dialog).GetMessage(), text);
            return wxID_CANCEL;
        });
    };
    SetEndpoint(endpoints::kCurrencyRates, wxString::FromUTF8(service.Url("/rates")));
    expect("Conversion Rate Update Info", "Conversion rates have been updated successfully.");
    Push("Update rates");
    EXPECT_EQ(ListedRate("USD"), "2.0000");
    EXPECT_EQ(Text("cost/cc.cost.piping"), "20000.00");
    const LoopbackServer broken([](auto& connection, const auto&) { connection.Answer(200, "<none>"); });
    SetEndpoint(endpoints::kCurrencyRates, wxString::FromUTF8(broken.Url("/rates")));
    expect("Conversion Rate Update Error", "Update of conversion rates failed.");
    const wxLogNull silence;
    Push("Update rates");
    EXPECT_EQ(ListedRate("USD"), "2.0000");
    EXPECT_EQ(Text("cost/cc.cost.piping"), "20000.00");
}

TEST_F(CostsPanelTest, WhatIsUnsavedStaysUnsaved)
{
    auto owned = std::make_unique<iex::IEXProject>("DEMI");
    iex::IEXProject& project = *owned;
    app::Document document(std::move(owned));
    support::SetWater(project, {{"ca", 2.5}, {"na", 1.0}, {"hco3", 2.5}, {"cl", 1.0}});
    support::SetFlow(project);
    ASSERT_TRUE(document.IsUnsaved());
    m_panel = new IRXCostsPanel(&project, m_frame);
    EXPECT_TRUE(document.IsUnsaved());
    EXPECT_FALSE(project.IsChanged());
    EXPECT_EQ(project.GetStatus(), StatusCosts);
    // Nor does the page make anything unsaved.
    document.SetUnsaved(false);
    m_panel->CalculateCost();
    m_panel->UpdateCurrencyDisplay();
    EXPECT_FALSE(document.IsUnsaved());
    m_panel->Destroy();
    Pump();
    Show();
}

TEST_F(CostsPanelTest, ShowsLinesThatThereAreInTheLanguageOfTheUser)
{
    Show();
    EXPECT_TRUE(Field("cost/cc.cost.resin2").IsShown());
    EXPECT_FALSE(Field("cost/cc.cost.resin3").IsShown());
    EXPECT_FALSE(Field("cost/op.cost.cond1").IsShownOnScreen());
    const TestCatalogue other({{"Hydrochloric acid", "\u76d0\u9178"}, {"Price", "\u0426\u0435\u043d\u0430"}});
    m_panel->Localize("iso");
    EXPECT_NO_THROW(
        Find<wxTextCtrl>(*m_panel, wxString::FromUTF8("\u76d0\u9178, \u0426\u0435\u043d\u0430 [EUR/kg]")));
    m_project.SetUnitSystemDisplay("us");
    m_panel->UpdateUnits(true);
    EXPECT_NO_THROW(
        Find<wxTextCtrl>(*m_panel, wxString::FromUTF8("\u76d0\u9178, \u0426\u0435\u043d\u0430 [EUR/lb]")));
}

TEST_F(CostsPanelTest, APlantThatIsNotDesignedHasNoCosts)
{
    Show();
    for (const char* key : {"cost/cost.npv", "cost/cost.system.total", "cost/op.watercost"})
        EXPECT_FALSE(Text(key).empty()) << key;
    EXPECT_EQ(Bars(), 40U);
    Enter(Field("cost/cost.plant.life"), "0");
    Pump();
    EXPECT_EQ(Text("cost/cost.npv"), "0.00");
    EXPECT_EQ(Bars(), 0U);
    m_panel->Destroy();
    iex::IEXProject undesigned("DEMI");
    m_panel = new IRXCostsPanel(&undesigned, m_frame);
    for (const char* key : {"cost/cost.npv", "cost/cost.system.total", "cost/op.watercost"})
        EXPECT_TRUE(Text(key).empty()) << key;
    EXPECT_EQ(Bars(), 0U);
    m_panel->Destroy();
    Pump();
    Show();
}

}  // namespace
