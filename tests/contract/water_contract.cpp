// SPDX-License-Identifier: MIT
// What programs that use the panels of waters and feeds rely on.
#include "dbinterfaces/project_database.h"
#include "gui_base/input/controls/check_tree.h"
#include "gui_base/input/controls/tv_auto_combobox.h"
#include "gui_base/input/controls/tv_listview_combopopup.h"
#include "gui_base/ionexchange/feed/compound_editor_dialog.h"
#include "gui_base/ionexchange/feed/compound_editor_panel.h"
#include "gui_base/ionexchange/feed/compound_element_listctrl.h"
#include "gui_base/ionexchange/feed/feed_composition_grid.h"
#include "gui_base/ionexchange/feed/feed_composition_panel_controller.h"
#include "gui_base/ionexchange/feed/pfeedcomposition.h"
#include "gui_base/ionexchange/regeneration/waste_water_panel.h"
#include "gui_base/water/analysis/balance_panel.h"
#include "gui_base/water/feedwater/comment_entry_dialog.h"
#include "gui_base/water/feedwater/feed_meta_information.h"
#include "gui_base/water/feedwater/feed_water_panel.h"
#include "gui_base/water/feedwater/feed_water_specification.h"
#include "gui_base/water/feedwater/organics_input_panel.h"
#include "gui_base/water/feedwater/water_clipboard.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/library/water_lib_items.h"
#include "gui_base/water/tools/co2_calculator_dialog.h"
#include "projectbase/feed/compounds_importer.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/gui_test.h"

#include <wx/combo.h>
#include <wx/listctrl.h>
#include <wx/xml/xml.h>

namespace {

using namespace gui_test;

class Waters : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_panel = MakePanel();
    }
    LiquidData& Water() { return m_project.GetLiquid(0); }

    wxPanel* m_panel = nullptr;
    iex::IEXProject m_project;
};

/// The analysis of somebody else, with bindings and validators of his own.
class OwnAnalysis : public WaterAnalysisPanel
{
public:
    using WaterAnalysisPanel::WaterAnalysisPanel;
    void SetTransferInfo() override { WaterAnalysisPanel::SetTransferInfo(); }
    void SetValidators(const std::string& unitSystem) override
    {
        WaterAnalysisPanel::SetValidators(unitSystem);
    }
};

TEST_F(Waters, Analysis)
{
    auto* panel =
        new OwnAnalysis(&m_project, 0, m_panel, wxID_ANY, nullptr, wxDefaultPosition, wxDefaultSize, 0);
    panel->TransferDetailsToWindow();
    panel->TransferDetailsFromWindow();
    panel->UpdateUnits(true);
    panel->Localize("iso");
    panel->SignalChanges();
    panel->SynchronizeProject();
    panel->UpdateAnalysis();
    panel->NormalizeIon("na", false);
    panel->NormalizeLiquid();
    panel->CheckAnalysisType();
    panel->EnableInputFields();
    panel->DisableShortAnalysis(true);
    panel->EnableDefaultUnitButton(true);
    panel->InitializeExtended();
    panel->CalculateAlkalization();
    panel->ShortAnalysisTDS();
    panel->ShortAnalysisCond();
    panel->UpdateTempOrigCtrlValidatorLimits();
    EXPECT_EQ(WaterAnalysisPanel::ReversePolarizationEffect(0.0), 0.0);
    new FeedWaterPanel(&m_project, 0, m_panel, wxID_ANY, nullptr);
    using Handler = void (WaterAnalysisPanel::*)(wxCommandEvent&);
    for (const Handler handler :
         {&WaterAnalysisPanel::OnAnalysisShortTdsSelected, &WaterAnalysisPanel::OnShortTDSChanged,
          &WaterAnalysisPanel::OnAnalysisShortCondSelected, &WaterAnalysisPanel::OnShortCondChanged,
          &WaterAnalysisPanel::OnAnalysisFullSelected, &WaterAnalysisPanel::OnBalanceAutoClick,
          &WaterAnalysisPanel::OnBalancePHClick, &WaterAnalysisPanel::OnCalculateCO2Click,
          &WaterAnalysisPanel::OnDefaultUnitClicked, &WaterAnalysisPanel::OnTemparatureUnitChanged}) {
        wxCommandEvent event(wxEVT_BUTTON, panel->GetId());
        (panel->*handler)(event);
    }
    FieldSet fields(*Water().GetDetails());
    new BalancePanel(m_panel, fields);
}

TEST_F(Waters, FeedWater)
{
    auto* block = new FeedWaterSpecification(&m_project, 0, m_panel, wxID_ANY, wxDefaultPosition,
                                             wxDefaultSize, 0, false);
    EXPECT_FALSE(block->Check());
    block->EnableFlowRate(true);
    block->Localize();
    block->TransferDetailToWindow();
    block->UpdateUnit("us");
    block->TransferDetailsFromWindow();

    WaterClipboard::PutLiquid(nullptr);
    EXPECT_FALSE(WaterClipboard::LiquidAvailable());
    WaterClipboard::PutLiquid(&Water());
    LiquidData other;
    EXPECT_TRUE(WaterClipboard::GetLiquid(&other));
    WaterClipboard::RemoveLiquid();

    CommentEntryDialog later;
    EXPECT_TRUE(later.Create(m_frame, wxID_ANY, "Comments", wxDefaultPosition, wxDefaultSize, wxCAPTION));
    CommentEntryDialog dialog(m_frame, wxID_ANY, "Comments", wxDefaultPosition, wxDefaultSize, wxCAPTION);
    dialog.SetComment("text");
    EXPECT_EQ(dialog.GetComment(), "text");

    FeedMetaInformationConfig config;
    config.parent = m_panel;
    config.liquid = &Water();
    auto* meta = new FeedMetaInformation(config);
    meta->Localize("us");
    meta->TransferDetailToWindow();
}

/// A calculator of somebody else, with a row more.
class OwnCalculator : public tvCO2CalculatorPanel
{
public:
    using tvCO2CalculatorPanel::tvCO2CalculatorPanel;
    void AddAll()
    {
        AddInputCombinationControl("Turbidity", "liquid/turbidity", 0.0, 10.0);
        AddInputCombinationUnitControl("Na", "liquid/na.orig", "liquid/na.unit", 0.0, 100.0);
        AddDoubleOutputCombinationControl("TDS", "liquid/tds");
    }
};

TEST_F(Waters, ToolsAndOrganics)
{
    tvCO2CalculatorDialog dialog(&m_project, 0, m_frame, wxID_ANY, "CO2", wxDefaultPosition, wxDefaultSize,
                                 wxDEFAULT_DIALOG_STYLE, "co2");
    EXPECT_NE(dialog.GetPanel()->GetLiquidDetail("liquid/ph"), nullptr);
    Water().GetDetails()->At("liquid/ph").SetValue(3.0);
    dialog.RestoreData();
    EXPECT_FALSE(Water().GetDetails()->At("liquid/calculate.co2").GetBoolValue());
    auto* calculator =
        new OwnCalculator(&m_project, 0, m_panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, "co2");
    calculator->AddAll();
    for (const char* key : {"liquid/turbidity", "liquid/tds"})
        EXPECT_NE(calculator->FindField(key), nullptr) << key;

    DetailList& details = m_project.GetDetails();
    auto* organics =
        new OrganicsInputPanel(&details.At("feed/medium"), &details.At("feed/organics"), m_panel, nullptr);
    organics->SetMediumSelection({{1, "Well water"}, {2, "Spring water"}});
    organics->SetOrganicsSelection({{"none", "None"}});
    organics->SetTemperatureUnitSelection({{1, "C"}});
    FeedMedium::Data medium;
    medium.id = 2;
    organics->SetMedium(medium);
    EXPECT_EQ(organics->GetMedium().id, 2);
    const OrganicsInputPanelController controller(&m_project, organics);

    const std::vector<WasteData> none;
    new TvWasteWaterAndComposition(&m_project, m_panel, none, "Waste water");
}

TEST_F(Waters, Library)
{
    Logger logger;
    const WaterLibDialog hidden(logger);
    const WaterLibDialog dialog(logger, m_frame, wxID_ANY, wxPoint(10, 10));
    const auto select = [&](WaterLibDialog& library) { return library.SelectLiquidData(&Water()); };
    const auto save = [&] { return WaterLibDialog::SaveLiquidData(&Water()); };
    static_cast<void>(select);
    static_cast<void>(save);
    EXPECT_EQ(WaterLibDialog::BuildDetailLabel("liquid/temp"), "Temperature");
    const WaterLibTreeItemData node(5, WaterLibTreeItemData::kCountry, true);
    EXPECT_EQ(node.GetLevel(), 3);
    const WaterLibListViewItem row(7, true, "Canada", "Place", "Well");
    EXPECT_EQ(row.GetData(), 7u);
}

TEST_F(Waters, TreesAndLists)
{
    wxCheckTreeCtrl tree(m_panel, wxID_ANY, wxDefaultPosition, wxSize(100, 100), wxTR_DEFAULT_STYLE,
                         wxDefaultValidator, "tree");
    const wxTreeItemId root = tree.AddRoot("root", false, nullptr);
    const wxTreeItemId leaf = tree.AppendItem(root, "leaf", true, nullptr);
    EXPECT_TRUE(tree.IsChecked(leaf));
    tree.PropagatePartialToRoot(leaf);
    EXPECT_TRUE(tree.IsPartial(root));
    tree.RecursiveCheck(root, true);
    tree.Check(leaf, false);
    const wxTreeItemId other = tree.AppendItem(root, "other", 0, 0, nullptr);
    tree.SetState(other, wxCKTR_PARTIAL);
    EXPECT_TRUE(tree.IsPartial(other));
    EXPECT_TRUE(tree.Enable(false));
    wxCheckTreeCtrlEvent event(wxEVT_CKTR_ITEM_SELECTED, 1);
    event.SetItem(leaf);
    const std::unique_ptr<wxEvent> copy(event.Clone());
    EXPECT_EQ(dynamic_cast<wxCheckTreeCtrlEvent&>(*copy).GetItem(), leaf);

    const std::vector<std::pair<wxString, wxString>> entries{{"a", "First"}, {"b", "Second"}};
    tvAutoComboBox box(entries, m_panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
                       "box");
    box.SetDefault("b");
    EXPECT_EQ(box.GetID(), "b");
    box.SelectWithEvent(0);
    box.Set(entries);
    box.Localize();
    auto* combo = new wxComboCtrl(m_panel, wxID_ANY);
    auto* list = new tvListViewComboPopup;
    combo->SetPopupControl(list);
    EXPECT_EQ(list->GetControl(), list);
    list->SetStringValue("nothing");
    EXPECT_EQ(list->GetStringValue(), "");
    EXPECT_GE(list->GetAdjustedSize(50, 100, 200).x, 50);
    wxArrayString items;
    items.Add("one");
    const wxAutoComboBox plain(m_panel, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, items, 0,
                               wxDefaultValidator, "plain");
}

TEST_F(Waters, Feeds)
{
    ProjectDatabase::OpenConfigured();
    auto* view = new FeedCompositionPanel(m_panel, wxID_ANY, nullptr, wxDefaultPosition, wxDefaultSize, 0);
    FeedCompositionPanelController controller(m_project, std::make_unique<FeedComposition>(), *view);
    controller.InitCategorySelection();
    controller.InitElementSelection();
    controller.InitMediumSelection();
    controller.InitTemperatureUnitSelection();
    controller.LoadCompositionFromDetails();
    controller.LoadCompositionBaseFromDetails();
    controller.LoadFeedCompoundsFromDetails();
    controller.LoadFeedMediumFromDetails();
    controller.UpdateCompoundSelectionShowAll();
    controller.UpdateCompoundSelectionFiltered();
    controller.SaveFeedCompositionToDetails();
    controller.TransferCompositionToView();
    controller.SendTvChangeEventToView();
    EXPECT_FALSE(controller.SaveCompoundToDB({}));
    EXPECT_EQ(controller.GetCompoundFromDB(-5).id, -1);
    view->SelectElement("All elements");
    view->CancelTextSearch();
    view->UnSelectedCompound();
    view->ShowCompoundDetailFields(true);
    EXPECT_EQ(view->GetSelectedElementID(), 0);
    EXPECT_EQ(view->GetSelectedCategoryID(), 0);
    EXPECT_EQ(view->GetSelectedElement(), "All elements");
    EXPECT_EQ(view->GetSelectedCategory(), "All categories");
    EXPECT_EQ(view->GetElementSearchString(), "");
    static_cast<void>(view->GetData());
    view->SetCategorySelection({{0, "All categories"}});
    view->SetElementSelection({{0, "All elements"}});
    view->SetMediumSelection({{1, "Water"}});
    view->SetTemperatureUnitSelection({{1, "C"}});
    view->SetCompoundSelection({});
    view->SetComposition(controller.GetComposition());
    view->SetTotalCompositionResults(controller.GetComposition());
    view->SetMedium(FeedMedium::Data());
    view->ShowCompoundDetails({}, 58.44);
    const wxXmlDocument document;
    EXPECT_THROW(controller.Import(document), CompoundFileError) << "no list of compounds";

    FeedComposition composition;
    DBObjects::Compound salt;
    salt.name = "salt";
    salt.formula = "NaCl";
    composition.Add(salt);
    new FeedCompositionGrid(m_panel, wxID_ANY, composition);
    new EffluentCompositionGrid(m_panel, wxID_ANY, composition);
    std::vector<CompoundElement> known(1);
    known[0].symbol = "Na";
    const std::vector<CompoundElement> found = ChemicalFormulaParser(known).Parse("Na2X");
    ASSERT_EQ(found.size(), 2u);
    CompoundElementListCtrl elements(m_panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_SINGLE_SEL);
    elements.InsertRow(found[0]);
    elements.InsertRows({found[1]});
    EXPECT_EQ(elements.GetItem(0).count, 2);
    elements.ClearList();

    CompoundEditorPanel editor(m_panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0);
    CompoundEditorPanel::Data data = editor.GetData();
    editor.SetData(data);
    const CompoundEditorDialog dialog(Compound(), m_frame, wxID_ANY, "Compound editor", wxDefaultPosition,
                                      wxDefaultSize, wxDEFAULT_DIALOG_STYLE);
    Pump();
    ProjectDatabase::Close();
}

}  // namespace
