// SPDX-License-Identifier: MIT
#pragma once

/// The choice of a base that raises the pH of a water, and of the dose or the pH that is wanted.
///
/// The water is alkalised while the user chooses, so that pH, dose and composition can be watched; what was
/// typed into the analysis stays as it is. "None" takes the alkalization away. Cancel restores every value of
/// the water exactly.

#include "gui_base/input/combinations/combo_combination.h"
#include "gui_base/water/tools/liquid_tool_dialog.h"
#include "projectbase/water/alkalization.h"

class TvRadioButton;

class GUI_BASE_EXPORT AlkalizationPanel : public LiquidToolPanel
{
public:
    AlkalizationPanel(Project* project, int liquid, wxWindow* parent, int id = wxID_ANY);

protected:
    void DoCreateRows() override;
    void DoPrepare() override;
    void DoUpdateValues() override;

private:
    void CreateAgentChoice();
    TvRadioButton* AddGoal(const FormRow& row, const char* mode, long style);
    /// Enables the field of the goal that is chosen and shows what came of it.
    void ShowGoal();

    std::unique_ptr<ComboCombination> m_agent;
    TvRadioButton* m_byPh = nullptr;
    TvRadioButton* m_byDose = nullptr;
    wxStaticText* m_message = nullptr;
    water::AlkalizationResult m_result = water::AlkalizationResult::None;
};

class GUI_BASE_EXPORT AlkalizationDialog : public LiquidToolDialog
{
public:
    AlkalizationDialog(Project* project, int liquid, wxWindow* parent, int id = wxID_ANY,
                       const wxString& title = {});

    /// Shows the dialog for a water of the project; all that the user does in it is one step of the history.
    /// Whether it was accepted.
    static bool ShowFor(Project& project, const LiquidData& water, wxWindow* parent);

    AlkalizationPanel* GetPanel() const { return static_cast<AlkalizationPanel*>(GetToolPanel()); }

protected:
    void RestoreData() override;

private:
    std::vector<std::pair<DetailData*, DetailData::Value>> m_before;
};
