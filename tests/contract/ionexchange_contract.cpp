// SPDX-License-Identifier: MIT
// What programs that use the panels of the plant design rely on.
#include "dbinterfaces/master_database.h"
#include "gui_base/ionexchange/regeneration/chemical_dilution_panel.h"
#include "gui_base/ionexchange/regeneration/mb_regeneration_type.h"
#include "gui_base/ionexchange/regeneration/tv_regseq_mediums.h"
#include "gui_base/ionexchange/regeneration/tv_regseq_seq.h"
#include "gui_base/ionexchange/regeneration/tv_regseq_seq_controller.h"
#include "gui_base/ionexchange/whatif/panel_not_exist.h"
#include "gui_base/ionexchange/whatif/what_if_dialog.h"
#include "gui_base/ionexchange/whatif/what_if_grid_pair_loader.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/whatif/what_if.h"
#include "tests/support/gui_test.h"

namespace {

using namespace gui_test;

class Plants : public GuiTest
{
protected:
    iex::IEXProject m_project{"MB"};
};

/// A view of somebody else, who answers for the what-if analysis himself.
class OwnSequence : public TVRegSeqSubPanel
{
public:
    using TVRegSeqSubPanel::TVRegSeqSubPanel;

protected:
    bool DoHasWhatIf() override { return false; }
};

TEST_F(Plants, RegenerationSequences)
{
    auto* view = new OwnSequence(&m_project, m_frame, wxID_ANY, 0, wxDefaultPosition, wxDefaultSize, 0);
    EXPECT_FALSE(view->HasWhatIf());
    TVRegSeqSubPanelController controller(view, &m_project);
    const TVRegSeqSubPanelController copy = controller;
    controller.LoadDataFromDetails();
    controller.GetDataFromView();
    const std::size_t count = controller.GetData().steps.size();
    controller.AddStep();
    controller.StepsMoveUp({static_cast<int>(count)});
    controller.StepsMoveDown({static_cast<int>(count) - 1});
    controller.SaveDataToProject();
    controller.Calculate();
    EXPECT_EQ(m_project.GetRegSeqData(0).steps.size(), count + 1);
    controller.LoadDataFromDetails();
    controller.RemoveSteps({static_cast<int>(count)});
    controller.SetDataToView();
    controller.SelectGridRow(1);
    controller.ClearSelectedGridRows();
    controller.OnStepAdd();
    controller.OnStepMoveUp();
    controller.OnStepMoveDown();
    controller.OnStepRemove();
    controller.OnRemarksChanged();
    controller.OnUIUpdate();
    EXPECT_EQ(copy.GetData().steps.size(), count);

    RegSeqUIData data = view->GetData();
    data.types = {{"REGSEQ_BW", "Backwash"}};
    view->SetData(data);
    view->SetChoicesType(data.types);
    view->SetChoicesMedium({{"REGSEQ_TAP_WATER", "Tap water"}});
    view->SetChoicesDirection({{"UP", "Up"}});
    view->SetSequenceRows({RegSeqStep()});
    EXPECT_EQ(view->GetSequenceRows().size(), 1u);
    EXPECT_EQ(view->GetSequenceRows()[0].type, "REGSEQ_BW");
    EXPECT_EQ(view->GetSequenceRows()[0].medium, "REGSEQ_TAP_WATER");
    EXPECT_EQ(view->GetSequenceRows()[0].direction, "UP");
    view->SelectRows({0});
    EXPECT_EQ(view->GetSelectedRows(), std::vector<int>{0});
    EXPECT_EQ(view->GetSelectedAndRemoveableRows(), std::vector<int>{0});
    view->EnableButtons(false, false, true);
    view->SetRemarks("remarks");
    EXPECT_EQ(view->GetRemarks(), "remarks");
    view->UpdateCharLimitCounter();
    view->PostRemarksChangedEvent();
    view->PostMoveUpEvent();
    view->PostMoveDownEvent();
    view->PostTVRegSeqChangedEvent();
    view->PostAddStepEvent();
    view->PostRemoveStepEvent();
    EXPECT_NE(view->FindWindow(6001), nullptr);
}

TEST_F(Plants, MediumsAndChemicals)
{
    auto* mediums = new TVRegenerationMediumsSubpanel(&m_project, m_frame, wxID_ANY, wxDefaultPosition,
                                                      wxDefaultSize, 0, "mediums");
    mediums->UpdateGrid();
    mediums->SetProjectStatusValue(2);
    EXPECT_EQ(mediums->GetPanelProjectStatus(), 2);
    EXPECT_EQ(mediums->GetGrid().GetNumberRows() == 0, m_project.GetRegSeqSums(0).empty());
    OwnerNode& compartment = *m_project.GetStep(0).GetChildren(OwnerKind::Compartment)[0];
    MakeRegenerationPanel(&m_project, m_frame, compartment)->EnableSecondDilution(true);
    MakeConditioningPanel(&m_project, m_frame, compartment)->EnableSecondDilution(false);
    DetailData type("type", DetailType::String);
    DetailData neutral("neutral", DetailType::Bool);
    auto* bed = new MBRegenerationType(&type, &neutral, m_frame, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                       0, "bed");
    for (int id = 6100; id <= 6103; ++id)
        EXPECT_NE(bed->FindWindow(id), nullptr) << id;
    bed->Localize("iso");
    EXPECT_FALSE(m_project.HasConditioning(0));
    EXPECT_FALSE(m_project.StepHasConditioning(0, RegSeqStep()));
}

TEST_F(Plants, WhatIfAnalyses)
{
    const std::vector<DBObjects::WhatIfPair> pairs = MasterDatabase::GetWhatIfTable("MB");
    EXPECT_FALSE(pairs.empty());
    const std::vector<WifPair> rows = WhatIfGridPairLoader::GetTable(m_project);
    EXPECT_FALSE(WhatIfGridPairLoader::GetTableForSteps(m_project).empty());
    OwnerNode& step = *m_project.FindOwner("ex.1.seq.1");
    EXPECT_FALSE(WhatIfGridPairLoader::GetTableForStep(m_project, step).empty());
    static_cast<void>(WhatIfGridPairLoader::GetTableForAnionerOnlyStep(m_project, step));
    ASSERT_FALSE(rows.empty());
    WhatIfDialog dialog(std::make_unique<WifTable>(rows, m_project), &m_project, m_frame);
    EXPECT_EQ(dialog.GetPosition(), -1);
    EXPECT_FALSE(dialog.UndoPossible() || dialog.RedoPossible());
    EXPECT_NE(dialog.GetDetailToAdjust(0), dialog.GetFixedDetail(0));
    dialog.SetColEditable(0, WifTable::kFoundValue);
    EXPECT_TRUE(dialog.CalculationErrorHandling(0, true, 1e-5));
    EXPECT_FALSE(dialog.CalculationErrorHandling(0, true, 1.1e-5));
    EXPECT_FALSE(dialog.CalculationErrorHandling(0, false, 0.0));
    dialog.Undo();
    dialog.Redo();
    dialog.UndoAll();
    dialog.RedoAll();
    dialog.OnApply();
    new PanelNotExist(&m_project, m_frame, wxID_ANY, "title", wxDefaultPosition, wxDefaultSize, 0);
}

}  // namespace
