// SPDX-License-Identifier: MIT
// The values of the plant overview lead to the pages on which they are typed or calculated.
#include "gui_base/ionexchange/overview/iex_wplantoverview.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

#include <map>

namespace {

using namespace gui_test;

class OverviewModuleTest : public ProgramTest
{
protected:
    OverviewModuleTest() : ProgramTest("brandenburg_fresh") {}

    iex::IEXProject& Plant() { return dynamic_cast<iex::IEXProject&>(OpenProject()); }
    ValueGraphic& ShowGraphic()
    {
        auto* const page = m_frame->GetBook().Show("overview", {});
        Pump();
        return *dynamic_cast<iex::IEXPlantOverviewPanelImpl&>(*page).GetGraphics().at(0);
    }
    const std::string& CurrentModule() { return m_frame->GetBook().GetCurrent()->GetModule().id; }
};

TEST_F(OverviewModuleTest, EveryValueLeadsToItsField)
{
    EXPECT_EQ(m_frame->GetBook().Show("overview", {}), nullptr) << "a project of waters has no plant";
    Plant().SetPlant("DEMI", {"SAC_H", "DEGAS", "SBA"});
    support::SetFlow(Plant());
    Pump();
    const std::size_t count = ShowGraphic().GetShownValues().size();
    std::map<std::string, int> modules;
    for (std::size_t i = 0; i < count; ++i) {
        ValueGraphic& graphic = ShowGraphic();
        Focus(graphic);
        graphic.Select(i);
        const std::string id = graphic.GetShownValues()[i].mapping->GetId().utf8_string();
        Press(WXK_RETURN);
        EXPECT_TRUE(PumpUntil([&] { return CurrentModule() != "overview"; })) << id;
        const wxWindow* const focus = wxWindow::FindFocus();
        EXPECT_NE(dynamic_cast<const wxControl*>(focus), nullptr)
            << id << " has no field in " << CurrentModule();
        ++modules[CurrentModule()];
    }
    EXPECT_GT(modules["design"], 20);
    EXPECT_GT(modules["water"], 2);
}

TEST_F(OverviewModuleTest, UndoAndLanguageAreFollowed)
{
    Plant().SetPlant("DEMI", {"SAC_H", "SBA"});
    Pump();
    const auto text = [this](const char* id) {
        for (const SvgShownValue& value : ShowGraphic().GetShownValues()) {
            if (value.mapping->GetId() == id)
                return value.text.utf8_string();
        }
        return std::string("none");
    };
    EXPECT_EQ(text("feed.q"), "");
    support::SetFlow(Plant(), 30.5);
    EXPECT_EQ(text("feed.q"), "30.5 m\u00b3/h");
    Menu(wxID_UNDO);
    EXPECT_EQ(text("feed.q"), "");
    Menu(wxID_UNDO);
    EXPECT_EQ(m_frame->GetBook().Show("overview", {}), nullptr);
    Menu(wxID_REDO);
    EXPECT_EQ(text("ex2.c1.chemical"), "NaOH");
}

}  // namespace
