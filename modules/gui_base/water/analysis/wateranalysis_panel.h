// SPDX-License-Identifier: MIT
#pragma once

/// The input panel of one water analysis: cations and anions typed in the laboratory's units with their
/// values in meq/l and mg/l, the other properties of the water, and a summary of what follows from them.
///
/// The panel only shows and stores: the chemistry is the project's normalisation. Typed values stay in the
/// unit that was chosen for them; whatever is not known is shown empty. Built once per water; the project and
/// the help provider are not owned and outlive the panel.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/form/field_set.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "gui_base/water/analysis/ion_grid.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class BalancePanel;
class TVHelpFileProvider;
class TvButton;
class TvCheckBox;
class TvRadioButton;
class wxBitmapButton;
class wxCollapsiblePane;
class wxCollapsiblePaneEvent;
class wxStaticText;

class GUI_BASE_EXPORT WaterAnalysisPanel : public ModulePanelBase
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
    /// See ions::ReversePolarizationEffect.
    static double ReversePolarizationEffect(double conductivity);

    /// Stores several typed values, by detail key, as one change.
    void StoreTypedValues(const std::vector<std::pair<std::string, double>>& values);
    /// Opens the page of this module in the user guide.
    void ShowHelp() const;
    LiquidData& GetLiquid() const { return m_liquid; }
    const std::vector<std::unique_ptr<wateranalysis::IonGrid>>& GetIonGrids() const { return m_grids; }
    BalancePanel* GetBalancePanel() const { return m_balance; }
    /// The typed value of an ion's row, or of a property, by its detail key; null when the panel has none.
    TvTextCtrl* FindField(const std::string& key) const;
    tvUnitChoice* FindUnitChoice(const std::string& key) const;

protected:
    long GetPanelProjectStatus() override;
    void DoResetPanelStatus() override;
    void DoResetMessages() override { m_sentViolations.reset(); }
    void DoCreateControls() override;
    void DoSetTransferDetails() override { SetTransferInfo(); }
    void DoSetValidators() override { SetValidators(GetCurrentDisplayUnitSystem()); }
    void DoBindEvents() override;
    void DoPrepare() override;
    void DoUpdateUnits() override;
    void DoLocalize() override;
    void DoUpdateValues() override { NormalizeLiquid(); }
    void DoUpdateValidators() override;
    void DoConnectTvTextCtrlsToStatusbar() override;
    void DoSendVisualizeMessageEvent() override;
    void DoTransferDetailsToWindows() override;
    bool DoConcerns(const ProjectChanges& changes) override;

    virtual void SetTransferInfo();
    virtual void SetValidators(const std::string& unitSystem);

private:
    enum class AnalysisType
    {
        Full,
        ShortTds,
        ShortConductivity
    };

    void CreateControls();
    wxSizer* CreateAnalysisTypeBox();
    wxSizer* CreateIonsBox();
    wxSizer* CreateCationGrid(wxWindow* parent, const wxString& title, const std::vector<wxString>& labels);
    wxSizer* CreateAnionGrid(wxWindow* parent, const wxString& title, const std::vector<wxString>& labels);
    wxSizer* CreateOthersPanel();
    void CreateTemperatureRow(wxWindow* parent, wxSizer& grid);
    void CreateCo2Rows(wxWindow* parent, wxSizer& grid);
    void CreateFurtherPropertiesPane(wxWindow* parent, wxSizer& box);
    wxSizer* CreateSummaryPanel();
    void FillLists();

    AnalysisType GetAnalysisType() const;
    void SetAnalysisType(const char* type);
    void ShortAnalysisTDS();
    void ShortAnalysisCond();
    void EnableInputFields();
    void DisableShortAnalysis(bool disable);
    void EnableDefaultUnitButton(bool enable);
    wateranalysis::IonGrid::Row* FindNamedRow(const wxObject* nameField);
    void EnableRow(wateranalysis::IonGrid::Row& row, bool enable);
    void UpdateTempOrigCtrlValidatorLimits();
    /// The dry residue and the balance error stand in the tooltips of the values that they belong to.
    void UpdateToolTips();
    /// Warns once of an alkalization that could not be calculated.
    void TellAlkalization();
    /// The present place of the water: others may come and go before it.
    std::size_t GetLiquidIndex() const { return m_liquid.GetPosition(); }
    /// Says beside the button what the water is alkalised with, or why it is not.
    void ShowAlkalization();
    void ArrangeColumns();
    void UpdateAndSignal();
    /// Shows, recalculates and tells what a dialog changed in the water.
    void TakeOverFromDialog(bool changed);

    /// Bindings on the panel itself, which outlive a recreation of its controls.
    void BindPanelEvents();

    void OnCheckBoxClicked(wxCommandEvent& event);
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
    void OnUnitChanged(wxCommandEvent& event);
    void OnHPlusUpdate(wxUpdateUIEvent& event);
    void OnOhMinusUpdate(wxUpdateUIEvent& event);
    void OnPhUpdate(wxUpdateUIEvent& event);
    void OnSize(wxSizeEvent& event);

    LiquidData& m_liquid;
    TVHelpFileProvider* m_help;
    std::unique_ptr<FieldSet> m_fields;
    wateranalysis::IonGrid::UnitLists m_units;
    std::vector<std::unique_ptr<wateranalysis::IonGrid>> m_grids;
    TvTextCtrl* m_temperatureField = nullptr;
    tvUnitChoice* m_temperatureUnit = nullptr;
    tvUnitChoice* m_co2Unit = nullptr;
    TvRadioButton* m_full = nullptr;
    TvRadioButton* m_shortTds = nullptr;
    TvRadioButton* m_shortCond = nullptr;
    BalancePanel* m_balance = nullptr;
    TvButton* m_alkalize = nullptr;
    TvButton* m_co2Calculator = nullptr;
    wxStaticText* m_alkalization = nullptr;
    TvCheckBox* m_calculateCo2 = nullptr;
    wxBitmapButton* m_defaultUnit = nullptr;
    wxCollapsiblePane* m_furtherPane = nullptr;
    wxBoxSizer* m_columns = nullptr;
    wxBoxSizer* m_rightColumn = nullptr;
    /// Unit for which the limits of the temperature were set last.
    std::string m_limitedTemperatureUnit;
    /// What the user was told last about the alkalization.
    water::AlkalizationResult m_toldAlkalization = water::AlkalizationResult::None;
    /// Keys of the details out of range that the host was told last.
    std::optional<std::vector<std::string>> m_sentViolations;
};
