// SPDX-License-Identifier: MIT
#pragma once

/// The organic load of the feed water: the medium that carries it, what it consists of, and the temperature
/// in the unit of the user's choice. A view: what the choices offer and where the medium is stored is the
/// controller's matter.
///
/// The medium detail holds the identifier of the medium, the organics detail the key of the organics; neither
/// is owned. An edit is told by a tvCHANGE_EVENT that climbs.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/combinations/choice_combination.h"
#include "gui_base/input/panel/tv_panel.h"
#include "projectbase/feed/feed_medium.h"

#include <utility>
#include <vector>

class Project;
class TvStaticBoxSizer;
class TvValidatedDoubleTextCtrl;

class GUI_BASE_EXPORT OrganicsInputPanel : public TvPanel
{
public:
    OrganicsInputPanel(DetailData* mediumDetail, DetailData* organicsDetail, wxWindow* parent,
                       wxStatusBar* statusBar, int id = wxID_ANY, const wxPoint& pos = wxDefaultPosition,
                       const wxSize& size = wxDefaultSize, long style = wxTAB_TRAVERSAL);
    ~OrganicsInputPanel() override;

    FeedMedium::Data GetMedium() const;
    void SetMedium(const FeedMedium::Data& medium);
    void SetMediumSelection(const std::vector<std::pair<long, wxString>>& mediums);
    /// Replaces the entries, whose labels are source texts; the chosen key stays chosen.
    void SetOrganicsSelection(const std::vector<std::pair<wxString, wxString>>& organics);
    /// Identifiers are those of TemperatureUnit.
    void SetTemperatureUnitSelection(const std::vector<std::pair<long, wxString>>& units);

    tvChoice* GetMediumChoice() const { return m_medium; }
    tvChoiceAdv* GetOrganicsChoice() const { return m_organics; }
    tvChoice* GetTemperatureUnitChoice() const { return m_temperatureUnit; }
    TvValidatedDoubleTextCtrl* GetTemperatureField() const { return m_temperatureField; }

private:
    TemperatureUnit GetTemperatureUnit() const;
    void ShowTemperature(const Temperature& temperature);
    void OnTemperatureUnit(wxCommandEvent& event);

    double m_density = 1.0;
    DetailData m_temperature{"temperature"};
    TemperatureUnit m_shownUnit = TemperatureUnit::Celsius;
    tvChoice* m_medium;
    tvChoiceAdv* m_organics;
    TvValidatedDoubleTextCtrl* m_temperatureField;
    tvChoice* m_temperatureUnit;
};

/// Fills the panel from the databases and keeps its medium in the details of the project. Neither is owned;
/// both outlive the controller, which the owner of the panel destroys first.
class GUI_BASE_EXPORT OrganicsInputPanelController
{
public:
    OrganicsInputPanelController(Project* project, OrganicsInputPanel* panel);
    ~OrganicsInputPanelController();
    OrganicsInputPanelController(const OrganicsInputPanelController&) = delete;
    OrganicsInputPanelController& operator=(const OrganicsInputPanelController&) = delete;

    /// Shows what the project holds.
    void TransferToView();

private:
    void OnChanged(wxCommandEvent& event);

    Project* m_project;
    wxWeakRef<OrganicsInputPanel> m_panel;
};
