// SPDX-License-Identifier: MIT
#pragma once

/// The frame of the small panels that calculate something of one water: a column of labels, fields and units,
/// inputs first, results below. Each edit is stored in the water, which is recalculated at once.
///
/// The project is not owned and outlives the panel. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/combinations/input_combination_unit_choice.h"
#include "gui_base/input/controls/tv_validated_textctrl.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"

#include <wx/sizer.h>

#include <memory>
#include <vector>

class GUI_BASE_EXPORT LiquidToolPanel : public ModulePanelBase
{
public:
    LiquidToolPanel(Project* project, int liquid, wxWindow* parent, int id = wxID_ANY,
                    const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                    long style = wxTAB_TRAVERSAL, const wxString& name = wxASCII_STR(wxPanelNameStr));

    /// The detail of the water; throws std::runtime_error when it has none of that name.
    DetailData* GetLiquidDetail(const wxString& key) const;
    /// The input or result field of a detail, or null.
    wxTextCtrl* FindField(const wxString& key) const;

protected:
    /// A number that the user types, in a cell of its own.
    TvValidatedDoubleTextCtrl* AddInputField(const wxString& label, const wxString& key, double min,
                                             double max);
    /// A label and a number without a unit.
    TvValidatedDoubleTextCtrl* AddInputCombinationControl(const wxString& label, const wxString& key,
                                                          double min, double max);
    /// A label, a number and the choice of its unit, whose items are `units`.
    InputCombinationUnitChoice* AddInputCombinationUnitControl(const wxString& label, const wxString& key,
                                                               const wxString& unitKey, double min,
                                                               double max,
                                                               const std::vector<wxString>& units);
    /// A result that can be read only, with the unit of its detail in the displayed unit system.
    TvValidatedDoubleTextCtrl* AddDoubleOutputCombinationControl(const wxString& label, const wxString& key,
                                                                 int precision = 4);
    void AddLabel(const wxString& label);
    wxFlexGridSizer& GetForm() { return *m_form; }
    DetailList& GetDetails() const;
    int GetLiquidIndex() const { return m_liquid; }
    /// Makes the form; called first by DoCreateControls of a derived panel.
    void CreateForm();
    const wxSizerFlags& Cell() const { return m_cell; }

    long GetPanelProjectStatus() override { return 0; }
    void DoResetPanelStatus() override {}
    void DoResetMessages() override {}
    void DoSetTransferDetails() override {}
    void DoSetValidators() override {}
    /// Recalculates after an edit of an input.
    void DoBindEvents() override;
    void DoPrepare() override {}
    void DoUpdateUnits() override {}
    void DoLocalize() override {}
    void DoUpdateValues() override;
    void DoConnectTvTextCtrlsToStatusbar() override {}
    void DoSendVisualizeMessageEvent() override {}

private:
    TvValidatedDoubleTextCtrl* AddField(const wxString& label, const wxString& key,
                                        ValidatedDoubleTextCtrlConfig config);

    int m_liquid;
    wxFlexGridSizer* m_form = nullptr;
    wxSizerFlags m_cell;
    std::vector<std::unique_ptr<InputCombinationUnitChoice>> m_combinations;
    std::vector<std::pair<wxString, wxTextCtrl*>> m_fields;
    /// Identifiers of the fields whose edits are answered.
    std::vector<int> m_edited;
};
