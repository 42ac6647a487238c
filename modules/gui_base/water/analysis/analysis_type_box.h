// SPDX-License-Identifier: MIT
#pragma once

/// The box in which the user says how complete an analysis is: the full one, or a short one with the one
/// value that it is based on. Owned by the layout of its panel, as every sizer.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/controls/collapsible_box.h"
#include "gui_base/input/form/field_set.h"

class TvRadioButton;

namespace wateranalysis {

enum class AnalysisType
{
    Full,
    ShortTds,
    ShortConductivity
};

/// What "liquid/analysis.type" of a water says; a full analysis for any text that is no type.
GUI_BASE_EXPORT AnalysisType GetAnalysisType(const DetailList& liquid);
void SetAnalysisType(DetailList& liquid, AnalysisType type);

class GUI_BASE_EXPORT AnalysisTypeBox : public CollapsibleBox
{
public:
    AnalysisTypeBox(wxWindow* parent, FieldSet& fields);

    TvRadioButton& GetButton(AnalysisType type) const;
    /// What a short analysis is based on.
    TvTextCtrl& GetTds() const { return *m_tds; }
    TvTextCtrl& GetConductivity() const { return *m_conductivity; }

    /// Chooses the type and lets only its own value be typed.
    void ShowType(AnalysisType type);
    void EnableShortTypes(bool enable);

private:
    TvRadioButton* AddButton(FieldSet& fields, wxSizer& grid, const char* label, long style);
    TvTextCtrl* AddValue(FieldSet& fields, wxSizer& grid, const NumberSpec& spec);

    TvRadioButton* m_full = nullptr;
    TvRadioButton* m_shortTds = nullptr;
    TvRadioButton* m_shortConductivity = nullptr;
    TvTextCtrl* m_tds = nullptr;
    TvTextCtrl* m_conductivity = nullptr;
};

}  // namespace wateranalysis
