// SPDX-License-Identifier: MIT
// A module panel of somebody else.
#include "gui_base/input/binding/database_combination.h"
#include "gui_base/input/binding/transfer_detail.h"
#include "gui_base/input/controls/tv_validated_textctrl.h"
#include "gui_base/input/events.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/support/events.h"
#include "tests/contract/input_framework_fixture.h"

namespace {

using namespace gui_test;

/// A module of somebody else, with every hook taken over.
class OwnModule : public ModulePanelBase
{
public:
    OwnModule(Project* project, wxWindow* parent)
        : ModulePanelBase(project, parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, "own")
    {
        Create();
    }
    void SetStatusBar(wxStatusBar* bar) override { ModulePanelBase::SetStatusBar(bar); }
    void ShowWhatIf() override {}
    void TransferDetailsToWindow() override { ModulePanelBase::TransferDetailsToWindow(); }
    void UpdateUnits(bool transferValues) override { ModulePanelBase::UpdateUnits(transferValues); }
    void Localize(const std::string& unitSystem) override { ModulePanelBase::Localize(unitSystem); }
    void UseAll()
    {
        BindControlToOnFieldUpdate(static_cast<DataBaseCombination*>(nullptr), tvCHANGE_EVENT);
        BindControlToOnFieldUpdate(static_cast<wxPanel*>(this), tvCHANGE_EVENT);
        BindControlToOnFieldUpdate(tvCHANGE_EVENT, 7000, 7001);
        ConnectControlToStatusBar(m_field);
        ConnectControlToStatusBar(static_cast<DataBaseCombination*>(nullptr));
        DetailData limits("limits", DetailType::Double, "bar");
        UpdateLimitsFromDetail(m_field, &limits);
        EXPECT_EQ(GetCurrentDisplayUnitSystem(), "iso");
        EXPECT_EQ(GetUnitSystemDisplay(), "iso");
        int width = 0;
        int height = 0;
        GetTextFieldSize("text", width, height);
        EXPECT_GT(width, 0);
        EXPECT_FALSE(IsProjectStatusLowerThanPanelStatus());
        ResetProjectStatus();
        EXPECT_LE(GetProjectStatus(), GetPanelProjectStatus());
        SendChangeEvent();
        TransferDetailsFromWindow();
        SetDefaultScrollRate();
        CalculateDesign();
        EXPECT_EQ(GetStatusBarUnchecked(), GetStatusBar());
        AddToDetailContainerWindows(nullptr);
        ClearTransferDetails();
        ClearLocalizableControls();
        RecreatePanel();
    }

protected:
    void DoTransferDetailsToWindows() override { ModulePanelBase::DoTransferDetailsToWindows(); }
    long GetPanelProjectStatus() override { return 0; }
    void DoUpdateProjectStatus() override {}
    void DoResetPanelStatus() override {}
    void DoResetMessages() override {}
    void DoCreateControls() override { m_field = new TvTextCtrl(this, wxID_ANY); }
    void DoSetTransferDetails() override {}
    void DoSetValidators() override { m_field->SetValidator(DoubleValidator(&m_value)); }
    void DoBindEvents() override { SetupInputControl(m_field); }
    void DoPrepare() override {}
    void DoUpdateUnits() override {}
    void DoLocalize() override {}
    void DoUpdateValues() override { CalculateDesign(); }
    void DoConnectTvTextCtrlsToStatusbar() override {}
    void DoSendVisualizeMessageEvent() override {}
    bool DoValidate() override { return true; }
    void DoUpdateValidators() override {}
    bool DoHasWhatIf() override { return true; }
    double GetCurrencyFactor() const override { return 1.0; }
    void Prepare() override { ModulePanelBase::Prepare(); }

private:
    TvTextCtrl* m_field = nullptr;
    double m_value = 0.0;
};

TEST_F(InputFramework, ModulePanels)
{
    auto* module = new OwnModule(&m_project, m_panel);
    module->UseAll();
    module->SetTransferDetails();
    module->SetValidators();
    module->BindEvents();
    module->UpdateValues();
    module->ConnectTvTextCtrlsToStatusbar();
    module->SendVisualizeMessageEvent();
    module->ResetMessages();
    EXPECT_TRUE(module->HasWhatIf());
    EXPECT_TRUE(module->Validate());
    module->SynchronizeProject();
    module->UpdateProjectStatus();
    for (const wxEventTypeTag<wxCommandEvent>& type :
         {tvCHANGE_EVENT, tvCHANGEUNITSYSTEM_EVENT, tvLOCALIZE_EVENT, tvCHANGEUNITSYSTEMPRINTOUT_EVENT,
          tvACTIVATECURRENTTREEITEM_EVENT, tvCHANGEWINDOWNAME_EVENT, tvCLOSEPROJECT_EVENT,
          tvUPDATEPROJECTLIST_EVENT})
        events::SendEvent(module, type, wxID_ANY, 0, "text");
    Pump();
}

}  // namespace
