// SPDX-License-Identifier: MIT
// The what-if analysis in the program.
#include "gui_base/ionexchange/whatif/what_if_dialog.h"
#include "tests/support/program_fixture.h"

namespace {

using namespace gui_test;

class WhatIfCommandTest : public ProgramTest
{
protected:
    WhatIfCommandTest() : ProgramTest(nullptr) {}
};

TEST_F(WhatIfCommandTest, IsOfferedWhereThePageInFrontHasOneAndIsOneStepOfTheHistory)
{
    const int id = m_frame->GetMenuBar()->FindMenuItem("Tools", "What-if analysis...");
    ASSERT_NE(id, wxNOT_FOUND);
    FeedPage();
    EXPECT_FALSE(MenuItem(id).IsEnabled());
    WaterPage();
    ASSERT_TRUE(MenuItem(id).IsEnabled());

    DetailList& details = OpenProject().GetDetails();
    details.At("project/qbrutto").SetValue(20.0);
    details.At("project/lz").SetValue(12.0);
    m_frame->GetDocument().GetHistory().Clear();
    m_dialogs.Expect([](wxDialog& dialog) {
        auto& whatIf = dynamic_cast<WhatIfDialog&>(dialog);
        whatIf.OnEdited(0, 300.0);
        whatIf.OnEdited(1, 600.0);
        EXPECT_EQ(whatIf.GetGrid().GetCellValue(0, WifTable::kFoundValue), "25");
        whatIf.OnApply();
        return wxID_CLOSE;
    });
    Menu(id);
    EXPECT_NEAR(details.At("project/lz").GetDoubleValue(), 24.0, 1e-9);
    EXPECT_EQ(m_frame->UndoText(), "&Undo what-if analysis");
    m_frame->Undo();
    EXPECT_EQ(details.At("project/qbrutto").GetDoubleValue(), 20.0);
    EXPECT_EQ(details.At("project/lz").GetDoubleValue(), 12.0);
    EXPECT_FALSE(m_frame->GetDocument().GetHistory().CanUndo());

    m_dialogs.Expect([](wxDialog& dialog) {
        dynamic_cast<WhatIfDialog&>(dialog).OnEdited(0, 300.0);
        return wxID_CLOSE;
    });
    Menu(id);
    EXPECT_EQ(details.At("project/qbrutto").GetDoubleValue(), 20.0) << "without Apply nothing changes";
}

}  // namespace
