// SPDX-License-Identifier: MIT
// The plant of a project is chosen and changed in the window.
#include "app/frame/plant_dialog.h"

#include "projectbase/project/iex_project.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace {

using namespace gui_test;
using ::testing::HasSubstr;

class PlantDialogTest : public ProgramTest
{
protected:
    PlantDialogTest() : ProgramTest(nullptr) {}

    iex::IEXProject& Plant() { return dynamic_cast<iex::IEXProject&>(OpenProject()); }
    bool HasPage(const char* module) { return m_frame->GetBook().Show(module, {}) != nullptr; }

    /// Answers the next dialog by a type and exchangers that are ticked where they were not.
    void Choose(long row, std::vector<wxString> ticked = {})
    {
        m_dialogs.Expect([row, ticked = std::move(ticked)](wxDialog& dialog) {
            Find<wxListView>(dialog).Select(row);
            for (const wxString& exchanger : ticked) {
                auto& check = Find<wxCheckBox>(dialog, exchanger);
                EXPECT_TRUE(check.IsEnabled() && !check.GetValue()) << exchanger;
                check.SetValue(true);
            }
            return static_cast<int>(wxID_OK);
        });
    }
};

constexpr long kDemi = 3;
constexpr long kMixedBed = 4;

TEST_F(PlantDialogTest, ChangingThePlantNamesWhatIsLostAndIsOneStep)
{
    const int id = m_frame->GetMenuBar()->FindMenuItem("Tools", "Change plant...");
    ASSERT_NE(id, wxNOT_FOUND);
    EXPECT_FALSE(HasPage("design"));
    Choose(kDemi, {"Weak-acid cation exchanger", "Degasser"});
    Menu(id);
    EXPECT_EQ(Plant().GetModuleType(), "DEMI");
    EXPECT_EQ(Plant().NumberSteps(), 4U) << "WAC, SAC, degasser, SBA";
    EXPECT_TRUE(HasPage("design"));

    // What is lost is asked for, and refused.
    const auto answer = [this](int button) {
        m_dialogs.Expect([button](wxDialog& dialog) {
            const auto text = dynamic_cast<wxMessageDialog&>(dialog).GetMessage();
            EXPECT_THAT(text.utf8_string(), HasSubstr("1 Weak"));
            EXPECT_THAT(text.utf8_string(), HasSubstr("\n4 Strong"));
            return button;
        });
    };
    Choose(kMixedBed);
    answer(wxID_NO);
    Menu(id);
    EXPECT_EQ(Plant().GetModuleType(), "DEMI");
    Choose(kMixedBed);
    answer(wxID_YES);
    Menu(id);
    EXPECT_EQ(Plant().GetModuleType(), "MB");
    EXPECT_EQ(m_frame->UndoText(), "&Undo change plant");
    m_frame->Undo();
    EXPECT_EQ(Plant().NumberSteps(), 4U);
    m_frame->Undo();
    EXPECT_EQ(Plant().GetModuleType(), "iex");
    EXPECT_FALSE(HasPage("design"));
    EXPECT_FALSE(m_frame->GetDocument().GetHistory().CanUndo());
}

TEST_F(PlantDialogTest, ANewPlantHasTheExchangersThatWereTicked)
{
    Choose(kDemi, {"Weak-base anion exchanger"});
    Menu(m_frame->GetMenuBar()->FindMenuItem("File", "New plant..."));
    EXPECT_EQ(Plant().GetModuleType(), "DEMI");
    ASSERT_EQ(Plant().NumberSteps(), 3U);
    EXPECT_EQ(Plant().GetStep(1).GetDetails()->At("step/kind").GetStdStringValue(), "WBA");
    EXPECT_FALSE(m_frame->GetDocument().IsUnsaved());
}

}  // namespace
