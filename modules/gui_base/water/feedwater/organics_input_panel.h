// SPDX-License-Identifier: MIT
#pragma once

/// The organic load of the feed water: the medium that carries it, what it consists of, and the temperature
/// in the unit of the user's choice. A view: what the choices offer and where the medium is stored is the
/// controller's matter.
///
/// The medium detail holds the identifier of the medium, the organics detail the key of the organics; neither
/// is owned. An edit is told to the parent by one queued tvCHANGE_EVENT with the id of the panel.

#include "gui_base/water/feedwater/feed_medium_form.h"

class Project;

class GUI_BASE_EXPORT OrganicsInputPanel : public FeedMediumForm
{
public:
    OrganicsInputPanel(DetailData* mediumDetail, DetailData* organicsDetail, wxWindow* parent,
                       wxStatusBar* statusBar, int id = wxID_ANY, const wxPoint& pos = wxDefaultPosition,
                       const wxSize& size = wxDefaultSize, long style = wxTAB_TRAVERSAL);

    /// Replaces the entries, whose labels are source texts; the chosen key stays chosen.
    void SetOrganicsSelection(const std::vector<std::pair<wxString, wxString>>& organics);

private:
    tvChoiceAdv* m_organics;
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
    void OnChanged();

    Project* m_project;
    wxWeakRef<OrganicsInputPanel> m_panel;
};
