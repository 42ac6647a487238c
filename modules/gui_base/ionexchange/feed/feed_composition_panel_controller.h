// SPDX-License-Identifier: MIT
#pragma once

/// The controller of the feed composition: it answers what the view tells, talks to the project and to the
/// databases, and gives the view what is to be seen. After every change the composition is saved in the
/// project, shown, and the host is told; what others change in the project the view follows.
///
/// Project and view are not owned; the project outlives the controller, the view may go before it. What a
/// database refuses is shown as an error and leaves everything as it was. GUI thread only.

#include "dbinterfaces/db_objects.h"
#include "gui_base/gui_base_export.h"
#include "gui_base/ionexchange/feed/pfeedcomposition.h"
#include "projectbase/project/iex_project.h"

#include <wx/event.h>
#include <wx/recguard.h>
#include <wx/weakref.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class wxXmlDocument;

class GUI_BASE_EXPORT FeedCompositionPanelController : public wxEvtHandler, private ProjectObserver
{
public:
    using Compounds = std::vector<DBObjects::Compound>;

    /// Fills the view. Throws DatabaseError when the master data cannot be read.
    FeedCompositionPanelController(iex::IEXProject& project, std::unique_ptr<FeedComposition> composition,
                                   FeedCompositionPanel& view);
    ~FeedCompositionPanelController() override;

    const FeedComposition& GetComposition() const { return *m_composition; }
    /// Reads categories and compounds of the user database again, after it changed or was replaced. The first
    /// time this happens by itself when the view is seen.
    void RefreshCompounds();

    /// Writes the selected compounds to an exchange file and says so; an error is shown.
    void Export(const std::vector<int>& selected, const Compounds& compounds, const wxString& path);
    /// Lets the user choose among the compounds of a document, asks about those that the database already
    /// has, and stores the others in one transaction. Throws CompoundFileError for a document that is no list
    /// of compounds.
    void Import(const wxXmlDocument& document);
    /// Reads an exchange file and imports its document; a file that cannot be read is shown as an error.
    void ImportFile(const wxString& path);

    /// The lists to choose from, read anew.
    void InitCategorySelection();
    void InitElementSelection();
    void InitMediumSelection();
    void InitTemperatureUnitSelection();
    /// What the project holds of the feed, not shown yet: the whole, and its parts.
    void LoadCompositionFromDetails();
    void LoadCompositionBaseFromDetails() { m_project.LoadCompositionBaseFromDetails(*m_composition); }
    void LoadFeedCompoundsFromDetails() { m_project.LoadFeedCompoundsFromDetails(*m_composition); }
    void LoadFeedMediumFromDetails() { m_composition->SetMedium(m_project.LoadFeedMediumFromDetails()); }
    void SaveFeedCompositionToDetails();
    void TransferCompositionToView();
    void SendTvChangeEventToView();
    /// Saves, shows and tells.
    void CompositionChanged();
    void UpdateCompoundSelectionFiltered();
    void UpdateCompoundSelectionShowAll();
    DBObjects::Compound GetCompoundFromDB(int id) const;
    /// Stores a compound that is valid; whether it was.
    bool SaveCompoundToDB(const DBObjects::Compound& compound);

    /// The answers to what the view tells.
    void CallbackCompoundAddedToComposition(FeedEvent& event);
    void CallbackCompoundSelected(FeedEvent& event);
    void CallbackCompoundListDeselected(FeedEvent& event);
    void FilterCallback(FeedEvent& event);
    void ElementSearchCallback(FeedEvent& event);
    void CallbackAddCompound(FeedEvent& event);
    void CallbackEditCompound(FeedEvent& event);
    void CallbackDeleteCompound(FeedEvent& event);
    void CallbackCompoundRemovedFromComposition(FeedEvent& event);
    void ImportCompoundFromProjectCallback(FeedEvent& event);
    void CallbackFeedCompositionChanged(FeedEvent& event);
    void CallbackEffluentCompositionChanged(FeedEvent& event);
    void UpdatePhAdjustment(FeedEvent& event);
    void UpdateUseEffluentInput(FeedEvent& event);
    void UpdateFeedMedium(FeedEvent& event);
    void ExportCompoundsCallback(FeedEvent& event);
    void ImportCompoundsCallback(FeedEvent& event);

private:
    void OnProjectChanged(const ProjectChanges& changes) override;
    /// Takes what the project now holds and shows it.
    void ReloadComposition();
    using Handler = void (FeedCompositionPanelController::*)(FeedEvent&);

    /// Lets the user edit a compound, stores it and shows the list anew.
    void EditCompound(const DBObjects::Compound& record);

    void RegisterCallbacks();
    void OnViewEvent(FeedEvent& event);
    void OnUnitSystemChanged(wxCommandEvent& event);
    /// Runs `work`; what it throws is shown. Whether it threw nothing.
    bool Guarded(const std::function<void()>& work);

    void CallbackViewShown(FeedEvent& event);

    iex::IEXProject& m_project;
    std::unique_ptr<FeedComposition> m_composition;
    wxWeakRef<FeedCompositionPanel> m_view;
    std::vector<std::pair<wxEventType, Handler>> m_handlers;
    bool m_compoundsShown = false;
    wxRecursionGuardFlag m_saving = 0;
    bool m_stale = false;  ///< others changed the feed while the view was out of sight
};
