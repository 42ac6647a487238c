// SPDX-License-Identifier: MIT
#pragma once

/// The calculator of the carbon dioxide that a water of known pH, temperature and bicarbonate holds.
///
/// While it is open the water's CO2 is calculated. Cancel brings pH, temperature and bicarbonate back, also
/// as they were typed, and switches the calculation off.

#include "gui_base/water/tools/liquid_tool_dialog.h"

#include <utility>
#include <vector>

class GUI_BASE_EXPORT tvCO2CalculatorPanel : public LiquidToolPanel
{
public:
    tvCO2CalculatorPanel(Project* project, int liquid, wxWindow* parent, int id = wxID_ANY,
                         const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                         long style = wxTAB_TRAVERSAL, const wxString& name = wxASCII_STR(wxPanelNameStr));

    /// A row of its own for a detail of the water, while the rows are made: for derived panels. Labels are
    /// source texts; the number of an input is checked against both limits. They throw std::runtime_error for
    /// a key that the water lacks.
    void AddInputCombinationControl(const wxString& label, const wxString& key, double min, double max);
    /// With a choice of the units in which a temperature or an ion can be typed.
    void AddInputCombinationUnitControl(const wxString& label, const wxString& key, const wxString& unitKey,
                                        double min, double max);
    /// A number that is only shown.
    void AddDoubleOutputCombinationControl(const wxString& label, const wxString& key);

protected:
    void DoCreateRows() override;

private:
    void AddRow(const wxString& label, const wxString& key, FormRow row);
};

class GUI_BASE_EXPORT tvCO2CalculatorDialog : public LiquidToolDialog
{
public:
    tvCO2CalculatorDialog(Project* project, int liquid, wxWindow* parent, int id = wxID_ANY,
                          const wxString& title = {}, const wxPoint& pos = wxDefaultPosition,
                          const wxSize& size = wxDefaultSize, long style = wxDEFAULT_DIALOG_STYLE,
                          const wxString& name = wxASCII_STR(wxDialogNameStr));
    ~tvCO2CalculatorDialog() override;

    /// Shows the dialog for a water of the project; all that the user does in it is one step of the history.
    /// Whether it was accepted.
    static bool ShowFor(Project& project, const LiquidData& water, wxWindow* parent);

    tvCO2CalculatorPanel* GetPanel() const { return static_cast<tvCO2CalculatorPanel*>(GetToolPanel()); }

    void RestoreData() override;

private:
    double m_pH;
    double m_temperature;
    double m_bicarbonate;
    /// What the normalised bicarbonate and the temperature were typed as: they follow from it.
    std::vector<std::pair<DetailData*, DetailData::Value>> m_typed;
};
