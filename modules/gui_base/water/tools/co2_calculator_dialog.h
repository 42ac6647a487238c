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

protected:
    void DoCreateRows() override;
};

class GUI_BASE_EXPORT tvCO2CalculatorDialog : public LiquidToolDialog
{
public:
    tvCO2CalculatorDialog(Project* project, int liquid, wxWindow* parent, int id = wxID_ANY,
                          const wxString& title = {}, const wxPoint& pos = wxDefaultPosition,
                          const wxSize& size = wxDefaultSize, long style = wxDEFAULT_DIALOG_STYLE,
                          const wxString& name = wxASCII_STR(wxDialogNameStr));
    ~tvCO2CalculatorDialog() override;

    tvCO2CalculatorPanel* GetPanel() const { return static_cast<tvCO2CalculatorPanel*>(GetToolPanel()); }

protected:
    void RestoreData() override;

private:
    double m_pH;
    double m_temperature;
    double m_bicarbonate;
    /// What the normalised bicarbonate and the temperature were typed as: they follow from it.
    std::vector<std::pair<DetailData*, DetailData::Value>> m_typed;
};
