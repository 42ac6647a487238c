// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/regeneration/waste_water_panel.h"

#include "projectbase/project/iex_project.h"
#include "tests/support/gui_test.h"

#include <wx/frame.h>

namespace {

using namespace gui_test;

using WasteWaterTest = GuiTest;

TEST_F(WasteWaterTest, ShowsWhatTheDesignKnows)
{
    iex::IEXProject project("SOFT");
    DetailList& step = *project.GetStep(0).GetDetails();
    step.At("step/m.th").SetValue(12.5);
    auto acid = std::make_shared<DetailList>();
    acid->LoadGroup("stepcomp", "BASE");
    acid->At("stepcomp/rm").SetValue(80.0);
    auto* panel =
        new TvWasteWaterAndComposition(&project, m_frame, {{"HCl", acid}, {"NaOH", nullptr}}, "Step");
    EXPECT_EQ(panel->FindField("step/m.th")->GetValue(), "12.5");
    EXPECT_EQ(panel->FindField("step/c.th")->GetValue(), "") << "unknown, not zero";
    EXPECT_FALSE(panel->FindField("step/m.th")->IsEditable());
    EXPECT_EQ(panel->FindField("stepcomp/rm", 0)->GetValue(), "80");
    EXPECT_EQ(panel->FindField("stepcomp/rm", 1)->GetValue(), "");
    const auto top = [&](const char* key) { return panel->FindField(key, 0)->GetPosition().y; };
    EXPECT_EQ(top("stepcomp/rm"), top("stepcomp/m.neutral"));
    EXPECT_EQ(top("stepcomp/rm"), top("stepcomp/rb.spec"));
    EXPECT_GT(top("stepcomp/rb.delta"), top("stepcomp/rm"));
    EXPECT_EQ(top("stepcomp/rb.neutral"), top("stepcomp/rb.delta"));
    EXPECT_NE(panel->FindField("stepcomp/rm", 1), nullptr);
    EXPECT_EQ(panel->FindField("stepcomp/rb.neutral", 1), nullptr) << "a base has no free acid";
    const auto right = [&](const char* key, int regenerant) {
        return panel->FindField(key, regenerant)->GetRect().GetRight();
    };
    const int whole = TvWasteWaterAndComposition::kStep;
    EXPECT_EQ(right("step/m.th", whole), right("project/qnetto", whole));
    EXPECT_EQ(right("step/m.th", whole), right("stepcomp/rm", 0));
    EXPECT_EQ(right("step/m.cl", whole), right("step/neutral", whole));
    step.At("step/neutral").SetValue(3.0);
    project.SetUnitSystemDisplay("us");
    panel->UpdateUnits(true);
    EXPECT_EQ(panel->FindField("step/neutral")->GetValue(), "2.3169") << "kilograins of calcium carbonate";
    EXPECT_EQ(panel->FindField("stepcomp/rm", 0)->GetValue().BeforeFirst('.'), "176") << "pounds";
    panel->Destroy();

    auto* empty = new TvWasteWaterAndComposition(&project, m_frame, {}, "Step");
    EXPECT_NE(empty->FindField("step/c.other.a"), nullptr);
    EXPECT_EQ(empty->FindField("stepcomp/rm", 0), nullptr);
    empty->Destroy();
    Pump();
}

}  // namespace
