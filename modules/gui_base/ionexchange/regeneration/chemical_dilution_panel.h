// SPDX-License-Identifier: MIT
#pragma once

/// How a chemical for regeneration or conditioning is supplied and diluted. GUI thread only.

#include "gui_base/input/form/form_panel.h"
#include "projectbase/project/owner_node.h"

#include <utility>
#include <vector>

class TvStaticText;
class TvTextCtrl;

/// The details of one chemical; not owned, they outlive the panel.
struct DilutionDetails
{
    DetailData& chemical;
    DetailData& consumption;  ///< kg of pure chemical per m³ of resin
    DetailData& supply;       ///< concentrations in % by mass
    DetailData& progressive;  ///< in two dilutions
    DetailData& first;
    DetailData& firstPortion;  ///< %
    DetailData& second;
    DetailData& secondPortion;
    DetailData& temperature;
};

class GUI_BASE_EXPORT TvChemicalDiliutionPanel : public FormPanel
{
public:
    using Chemicals = std::vector<std::pair<wxString, wxString>>;  ///< identifier and source name

    /// `kind` and `label` are source texts: "Kind of regeneration" and "Regenerant".
    TvChemicalDiliutionPanel(Project* project, wxWindow* parent, const DilutionDetails& details,
                             Chemicals chemicals, const char* kind, const char* label);

    void EnableSecondDilution(bool enable);
    /// The field of a detail, or null.
    TvTextCtrl* FindField(const DetailData& detail) const { return GetFields().FindField(detail); }

protected:
    void DoCreateForm() override;
    void DoPrepare() override;
    void DoUpdateUnits() override;
    void DoTransferDetailsToWindows() override;

private:
    void AddChemical(wxWindow* parent, wxSizer& grid);
    void AddDilutions(wxWindow* parent, wxSizer& grid);
    void OnProgressiveChanged();

    DilutionDetails m_dilution;
    Chemicals m_chemicals;
    const char* m_kind;
    const char* m_label;
    TvStaticText* m_temperatureLabel = nullptr;
};

/// The panel for the regenerant of a compartment, and for its conditioner; the compartment outlives it. What
/// can be chosen is what the master database holds.
GUI_BASE_EXPORT TvChemicalDiliutionPanel* MakeRegenerationPanel(Project* project, wxWindow* parent,
                                                                OwnerNode& compartment);
GUI_BASE_EXPORT TvChemicalDiliutionPanel* MakeConditioningPanel(Project* project, wxWindow* parent,
                                                                OwnerNode& compartment);
