// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/design/design_panel.h"

#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_choiceadv.h"
#include "gui_base/network/data_sheet_dialog.h"
#include "tests/support/gui_test.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/project_history.h"

#include <gmock/gmock.h>
#include <wx/frame.h>

namespace {

using namespace gui_test;
using testing::HasSubstr;
using testing::Not;

class DesignPanelTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        support::SetWater(m_project, {{"ca", 2.5}, {"na", 1.0}, {"hco3", 2.5}, {"cl", 1.0}, {"sio2", 0.1}});
        support::SetFlow(m_project);
        m_panel = new DesignPanel(m_project, m_frame);
        m_panel->SetSize(m_frame->GetClientSize());
        m_frame->Show();
        Pump();
    }
    void TearDown() override
    {
        m_panel->Destroy();
        Pump();
        GuiTest::TearDown();
    }

    TvTextCtrl* Field(const char* owner, const char* key)
    {
        return m_panel->FindField(support::Detail(m_project, owner, key));
    }
    std::string Notes(std::size_t exchanger) { return m_panel->GetNotes(exchanger).utf8_string(); }

    iex::IEXProject m_project{"DEMI"};
    DesignPanel* m_panel = nullptr;
};

TEST_F(DesignPanelTest, OffersTheDataSheetsOfTheResinThatIsChosen)
{
    DialogAnswers answers;
    wxString product;
    answers.Expect([&product](wxDialog& dialog) {
        EXPECT_NE(dynamic_cast<DataSheetDialog*>(&dialog), nullptr);
        product = Find<wxChoice>(dialog, "Product").GetStringSelection();
        return wxID_CANCEL;
    });
    support::Detail(m_project, "ex.1.comp.1.resin.1", "compcomp/resin").SetValue("wac_acrylic");
    Click(Labelled<TvButton>(*m_panel, "Data sheets..."));
    ASSERT_TRUE(PumpUntil([&product] { return !product.empty(); }));
    EXPECT_EQ(product, "Weak-acid cation resin, acrylic (wac_acrylic)");
}

TEST_F(DesignPanelTest, ShowsWhatFollowsFromWhatIsTyped)
{
    support::History history(m_project);
    TvTextCtrl* level = Field("ex.1.comp.1", "stepcomp/level");
    ASSERT_NE(level, nullptr);
    EXPECT_EQ(level->GetValue(), "60");
    const wxString volume = Field("ex.1.comp.1.resin.1", "compcomp/vol")->GetValue();
    EXPECT_THAT(Notes(0), HasSubstr("curve of counter-current regeneration"));
    EXPECT_THAT(Notes(0), HasSubstr("share of sodium, potassium and ammonium"));
    EXPECT_THAT(Notes(0), HasSubstr("Leakage: Sodium: 0.01"));
    EXPECT_THAT(Notes(0), Not(HasSubstr("usual range")));
    Enter(*level, "100");
    Pump();
    EXPECT_EQ(support::Get(m_project, "ex.1.comp.1", "stepcomp/level"), 100.0);
    EXPECT_NE(Field("ex.1.comp.1.resin.1", "compcomp/vol")->GetValue(), volume);
    EXPECT_THAT(Notes(0), HasSubstr("is above the usual range, which ends with 70"));
    EXPECT_THAT(Notes(1), Not(HasSubstr("usual range")));
    EXPECT_FALSE(Field("ex.1", "step/v")->IsEditable());
    history.stack.Undo();
    Pump();
    EXPECT_EQ(Field("ex.1.comp.1", "stepcomp/level")->GetValue(), "60");
    EXPECT_EQ(Field("ex.1.comp.1.resin.1", "compcomp/vol")->GetValue(), volume);
}

TEST_F(DesignPanelTest, ListsTakeTheRoomThatTheirLineLeaves)
{
    const wxChoice& resin = Find<tvChoiceAdv>(*m_panel, "Resin");
    const wxChoice& other = Find<tvChoiceAdv>(*m_panel, "Resin", 1);
    const auto arrange = [&](int width) {
        m_panel->SetMinSize(wxDefaultSize);
        m_panel->SetSize(m_panel->FromDIP(wxSize(width, 900)));
        Pump();
        EXPECT_EQ(resin.GetSize().x, other.GetSize().x) << width;
        return resin.GetSize().x;
    };
    const int least = arrange(500);
    EXPECT_LT(least, resin.GetBestSize().x);
    EXPECT_GE(arrange(1800), resin.GetBestSize().x);
    EXPECT_EQ(arrange(500), least);
}

TEST_F(DesignPanelTest, AMessageLeadsToTheField)
{
    const auto lead = [this](const char* owner, const char* key) {
        return m_panel->FocusDetail({m_project.FindOwner(owner)->GetOwner(), key});
    };
    EXPECT_TRUE(lead("ex.2", "step/v"));
    EXPECT_TRUE(lead("ex.2.comp.1", "stepcomp/level"));
    EXPECT_TRUE(Field("ex.2.comp.1", "stepcomp/level")->HasFocus());
    EXPECT_TRUE(lead("ex.1.comp.1.resin.1", "compcomp/resin")) << "a choice";
    EXPECT_FALSE(lead("water.1", "liquid/ph"));
}

TEST_F(DesignPanelTest, LayersComeAndGoByTheirButtons)
{
    const auto push = [this](const wxString& label) {
        Click(Labelled<TvButton>(*m_panel, label));
        Pump();
    };
    const auto resins = [this] {
        std::vector<std::string> keys;
        for (const auto& resin : m_project.FindOwner("ex.1.comp.1")->GetChildren(OwnerKind::Resin))
            keys.push_back(resin->GetDetails()->At("compcomp/resin").GetStdStringValue());
        return keys;
    };
    using Keys = std::vector<std::string>;
    const double volume = support::Get(m_project, "ex.1.comp.1.resin.1", "compcomp/vol");
    push("Add layer below");
    EXPECT_EQ(resins(), (Keys{"inert", "sac_gel"}));
    push("Add layer above");
    EXPECT_EQ(resins(), (Keys{"inert", "sac_gel", "inert"}));
    EXPECT_EQ(support::Get(m_project, "ex.1.comp.1.resin.2", "compcomp/vol"), volume);
    push("Remove layer");
    EXPECT_EQ(resins(), (Keys{"sac_gel", "inert"}));
    push("Remove layer");
    push("Add layer below");
    EXPECT_EQ(resins(), (Keys{"inert", "inert"})) << "no exchanger needs a resin to be shown";
}

TEST_F(DesignPanelTest, FollowsExchangersThatComeAndGo)
{
    m_project.AddStep("DEGAS", 1);
    m_project.AddStep("WBA", 2);
    Pump();
    ASSERT_NE(Field("ex.3.comp.1", "stepcomp/level"), nullptr);
    EXPECT_NE(Field("ex.2", "step/co2.residual"), nullptr);
    EXPECT_EQ(Field("ex.2", "step/v"), nullptr) << "a degasser has no bed";
    EXPECT_THAT(Notes(2), HasSubstr("typical figure of the resin"));
    m_project.RemoveOwner(m_project.GetStep(2));
    Pump();
    EXPECT_THAT(Notes(2), HasSubstr("counter-current"));
    m_project.SetUnitSystemDisplay("us");
    m_panel->UpdateUnits(true);
    EXPECT_EQ(Field("ex.1.comp.1", "stepcomp/level")->GetValue().BeforeFirst('.'), "3") << "lb/ft3";
}

}  // namespace
