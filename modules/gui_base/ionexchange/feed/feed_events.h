// SPDX-License-Identifier: MIT
#pragma once

/// What the view of the feed composition tells its controller. The view processes them on itself at once, so
/// that an edit is in the project when the event that caused it has been worked off.

#include "gui_base/gui_base_export.h"
#include "projectbase/feed/feed_composition.h"

#include <wx/event.h>

#include <vector>

class GUI_BASE_EXPORT FeedEvent : public wxCommandEvent
{
public:
    explicit FeedEvent(wxEventType type, int id = 0) : wxCommandEvent(type, id) {}
    wxEvent* Clone() const override { return new FeedEvent(*this); }

    std::vector<int> compounds;  ///< identifiers of the compounds of the list that are meant
    std::size_t row = 0;         ///< of the composition
    FeedComposition::Unit unit = FeedComposition::Unit::MgPerLitre;
    double value = 0.0;  ///< typed, in that unit
};

// About compounds of the list.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_COMPOUND_ADDED, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_COMPOUND_SELECTED, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_COMPOUND_DESELECTED, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_ELEMENT_CHOSEN, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_CATEGORY_CHOSEN, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_SEARCH, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_COMPOUND_NEW, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_COMPOUND_EDIT, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_COMPOUND_DELETE, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_EXPORT, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_IMPORT, FeedEvent);
// About the composition.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_ENTRY_REMOVED, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_ENTRY_IMPORTED, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_CELL_EDITED, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_EFFLUENT_CELL_EDITED, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_PH_CHANGED, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_EFFLUENT_CHANGED, FeedEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_MEDIUM_CHANGED, FeedEvent);
/// The view became visible.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvFEED_SHOWN, FeedEvent);
