// SPDX-License-Identifier: MIT
#include "gui_base/water/feedwater/organics_input_panel.h"

#include "gui_base/input/events.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/gui_test.h"

#include <wx/frame.h>

namespace {

using namespace gui_test;

class OrganicsTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        wxPanel* parent = MakePanel();
        parent->Bind(tvCHANGE_EVENT, [this](wxCommandEvent& event) { m_heard.push_back(event.GetId()); });
        m_panel = new OrganicsInputPanel(&Detail("feed/medium"), &Detail("feed/organics"), parent, nullptr);
        m_controller = std::make_unique<OrganicsInputPanelController>(&m_project, m_panel);
        Pump();
    }
    tvChoice& Medium() { return Find<tvChoice>(*m_panel, "Medium"); }
    tvChoiceAdv& Organics() { return Find<tvChoiceAdv>(*m_panel, "Organics"); }
    /// The one field of the panel.
    TvTextCtrl& Degrees() { return Find<TvTextCtrl>(*m_panel); }
    DetailData& Detail(const char* key) { return m_project.GetDetails().At(key); }

    iex::IEXProject m_project;
    OrganicsInputPanel* m_panel = nullptr;
    std::unique_ptr<OrganicsInputPanelController> m_controller;
    std::vector<int> m_heard;
};

TEST_F(OrganicsTest, KeysChooseMediumOrganicsAndTemperature)
{
    EXPECT_GT(Medium().GetCount(), 3u);
    EXPECT_EQ(Organics().GetStringSelection(), "None");
    Focus(Organics());
    Press(WXK_DOWN);
    EXPECT_EQ(Detail("feed/organics").GetStringValue(), "fulvic");

    Medium().SetSelection(static_cast<int>(Medium().GetCount()) - 2);
    Focus(Medium());
    Press(WXK_DOWN);
    EXPECT_EQ(Detail("feed/medium").GetLongValue(), m_panel->GetMedium().id);
    EXPECT_NEAR(Detail("feed/density").GetDoubleValue(), 1.025, 1e-9) << "sea water brings its density";

    Enter(Degrees(), "25");
    EXPECT_DOUBLE_EQ(Detail("feed/medium.temp").GetDoubleValue(), 25.0);
    Focus(Find<tvChoice>(*m_panel, "Temperature, Unit"));
    Press(WXK_DOWN);
    EXPECT_EQ(Degrees().GetValue(), "77") << "the temperature stays what it is";
    EXPECT_NEAR(Detail("feed/medium.temp").GetDoubleValue(), 25.0, 1e-9);
    Enter(Degrees(), "50");
    EXPECT_NEAR(Detail("feed/medium.temp").GetDoubleValue(), 10.0, 1e-9);
    EXPECT_EQ(m_heard, std::vector<int>(5, m_panel->GetId())) << "one event an edit";
}

TEST_F(OrganicsTest, LanguageKeepsTheChosenOrganics)
{
    Detail("feed/organics").SetValue("humic");
    m_controller->TransferToView();
    const TestCatalogue german({{"Humic acids", "Huminsäuren"}, {"Organics", "Organik"}});
    m_panel->Localize("us");
    tvChoiceAdv& organics = Find<tvChoiceAdv>(*m_panel, "Organik");
    EXPECT_EQ(organics.GetStringSelection(), wxString::FromUTF8("Huminsäuren"));
    m_panel->SetOrganicsSelection({{"humic", "Humic acids"}});
    EXPECT_EQ(organics.GetKey(), "humic");
    EXPECT_EQ(Detail("feed/organics").GetStringValue(), "humic");
    EXPECT_TRUE(m_heard.empty());
}

}  // namespace
