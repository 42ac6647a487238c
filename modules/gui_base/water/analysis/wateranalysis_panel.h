// SPDX-License-Identifier: MIT
#pragma once

/// The input panel of one water analysis: cations and anions typed in the laboratory's units with their
/// values in meq/l and mg/l, the other properties of the water, and a summary of what follows from them.
///
/// The panel is a frame around its boxes, each of which knows its own controls; it stores what was committed
/// in them, lets the project calculate and tells the host. Typed values stay in the unit that was chosen for
/// them; whatever is not known is shown empty. Built once per water; the project and the help provider are
/// not owned and outlive the panel.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/form/form_panel.h"
#include "gui_base/input/form/value_keys.h"
#include "gui_base/water/analysis/ion_grid.h"
#include "projectbase/water/units_of_ions.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

class FlowSizer;
class BalancePanel;
class TVHelpFileProvider;
class wxCollapsiblePaneEvent;

namespace wateranalysis {
enum class AnalysisType;
class AnalysisTypeBox;
class IonsBox;
class OthersBox;
}  // namespace wateranalysis

class GUI_BASE_EXPORT WaterAnalysisPanel : public FormPanel
{
public:
    /// `detailIndex` is the index of the water in the project. `help` may be null.
    WaterAnalysisPanel(Project* project, std::size_t detailIndex, wxWindow* parent, int id,
                       TVHelpFileProvider* help, const wxPoint& pos = wxDefaultPosition,
                       const wxSize& size = wxDefaultSize,
                       long style = wxTAB_TRAVERSAL | wxHSCROLL | wxVSCROLL);

    /// Normalises one ion; with `checkName` an unnamed row counts as unused. An exception is logged and
    /// passes on.
    void NormalizeIon(const wxString& ion, bool checkName);
    /// Normalises all ions of the water and refreshes what follows from them.
    void NormalizeLiquid();
    /// Settles which fields can be edited, by the type of the analysis, the names given and what is
    /// calculated.
    void CheckAnalysisType();
    /// Stores every input, recalculates, shows the results and settles which fields can be edited.
    void UpdateAnalysis();
    /// Marks the project as changed and tells the host.
    void SignalChanges();
    /// Resets H+ and OH-: all values 0, the unit meq/l.
    void InitializeExtended();
    /// Runs the project's alkalization on the water; nothing while no agent is chosen.
    void CalculateAlkalization();
    using FormPanel::TransferDetailsFromWindow;
    /// Binds every field to its detail.
    virtual void SetTransferInfo();
    using FormPanel::SetValidators;
    virtual void SetValidators(const std::string& unitSystem);
    /// Sodium and chloride of a short analysis, from the dissolved solids or the conductivity that was typed.
    void ShortAnalysisTDS();
    void ShortAnalysisCond();
    /// What CheckAnalysisType settles, one by one.
    void EnableInputFields();
    void DisableShortAnalysis(bool disable);
    void EnableDefaultUnitButton(bool enable);
    /// Limits of the temperature in the unit that is chosen for it.
    void UpdateTempOrigCtrlValidatorLimits();
    /// See ions::ReversePolarizationEffect.
    static double ReversePolarizationEffect(double conductivity);

    /// Stores several typed values, by detail key, as one change.
    void StoreTypedValues(const std::vector<std::pair<std::string, double>>& values);
    /// Gives all ions one unit, as one step of the history.
    void StoreUnitOfIons(const std::string& unit, water::TypedNumbers numbers);
    /// Opens the page of this module in the user guide.
    void ShowHelp() const;
    /// Also the check box of automatic balancing, to which an analysis leads whose charges differ.
    bool FocusDetail(const DetailAddress& address) override;
    LiquidData& GetLiquid() const { return m_liquid; }
    /// The grid of ions that holds the focus, otherwise that of the cations.
    const wateranalysis::IonGrid& GetFocusedGrid() const;
    /// The number or text field of a detail, or null.
    TvTextCtrl* FindField(const std::string& key) const { return GetFields().FindField(key); }

    /// What the controls of the panel tell it.
    void OnAnalysisFullSelected(wxCommandEvent& event);
    void OnAnalysisShortTdsSelected(wxCommandEvent& event);
    void OnAnalysisShortCondSelected(wxCommandEvent& event);
    void OnShortTDSChanged(wxCommandEvent& event);
    void OnShortCondChanged(wxCommandEvent& event);
    void OnBalanceAutoClick(wxCommandEvent& event);
    void OnBalancePHClick(wxCommandEvent& event);
    void OnAlkalizationClick(wxCommandEvent& event);
    void OnCO2CalculatorClick(wxCommandEvent& event);
    void OnCalculateCO2Click(wxCommandEvent& event);
    void OnDefaultUnitClicked(wxCommandEvent& event);
    void OnNameChange(wxCommandEvent& event);
    void OnNameUpdate(wxCommandEvent& event);
    void OnCollPaneChanged(wxCollapsiblePaneEvent& event);
    void OnTemparatureUnitChanged(wxCommandEvent& event);
    void OnHPlusUpdate(wxUpdateUIEvent& event);
    void OnOhMinusUpdate(wxUpdateUIEvent& event);
    void OnPhUpdate(wxUpdateUIEvent& event);

protected:
    /// For panels that add controls of their own: their constructor calls Create.
    struct CreatedByDerived
    {};
    WaterAnalysisPanel(CreatedByDerived, Project* project, std::size_t detailIndex, wxWindow* parent, int id,
                       TVHelpFileProvider* help, const wxPoint& pos, const wxSize& size, long style);

    /// What stands above the ions, side by side as far as there is room.
    FlowSizer& GetHead() { return *m_head; }

    long GetPanelProjectStatus() override;
    void DoResetMessages() override { m_sentViolations.reset(); }
    void DoCreateForm() override { CreateControls(); }
    void DoSetTransferDetails() override { SetTransferInfo(); }
    void DoSetValidators() override { SetValidators(GetCurrentDisplayUnitSystem()); }
    void DoBindEvents() override;
    void DoPrepare() override;
    void DoLocalize() override;
    void DoUpdateValues() override { NormalizeLiquid(); }
    void DoUpdateValidators() override;
    void DoConnectTvTextCtrlsToStatusbar() override;
    void DoSendVisualizeMessageEvent() override;
    void DoTransferDetailsToWindows() override;
    bool DoConcerns(const ProjectChanges& changes) override;
    void DoArrange(int width) override;

private:
    void CreateControls();
    wxSizer* CreateCationGrid(const wxString& title, const std::vector<wxString>& labels);
    wxSizer* CreateAnionGrid(const wxString& title, const std::vector<wxString>& labels);
    wxSizer* CreateOthersPanel();
    wxSizer* CreateSummaryPanel();

    void StoreType(wateranalysis::AnalysisType type);
    /// Warns once of an alkalization that could not be calculated.
    void TellAlkalization();
    void UpdateAndSignal();
    bool IsFull() const;

    void OnUnitChanged(wxCommandEvent& event);
    void PlaceSummary(wxSizer& place);
    void PlaceHead(bool isAbove);

    LiquidData& m_liquid;
    TVHelpFileProvider* m_help;
    /// Through the values of the ions and of what else was analysed.
    ValueKeys m_keys;
    /// The choices of units, built once.
    const wateranalysis::IonGrid::UnitLists m_units;
    /// The boxes belong to the layout.
    wateranalysis::AnalysisTypeBox* m_typeBox = nullptr;
    BalancePanel* m_balance = nullptr;
    wateranalysis::IonsBox* m_ions = nullptr;
    wateranalysis::OthersBox* m_others = nullptr;
    FlowSizer* m_head = nullptr;
    wxBoxSizer* m_columns = nullptr;
    wxBoxSizer* m_rightColumn = nullptr;
    wxSizer* m_summary = nullptr;
    /// What the user was told last about the alkalization.
    water::AlkalizationResult m_toldAlkalization = water::AlkalizationResult::None;
    /// Keys of the details out of range that the host was told last.
    std::optional<std::vector<std::string>> m_sentViolations;
};
