// SPDX-License-Identifier: MIT
#pragma once

/// Where the user finds compounds: the filters by element, category and text, the list, and the buttons for
/// what can be done with the database. What the user does it tells by the events of feed_events.h.

#include "gui_base/input/panel/tv_panel.h"
#include "gui_base/ionexchange/feed/compound_list.h"
#include "gui_base/ionexchange/feed/feed_events.h"

#include <functional>
#include <utility>
#include <vector>

class TvButton;
class NothingFound;
class TvSearchControl;
class tvChoice;
class wxBoxSizer;

class GUI_BASE_EXPORT CompoundBrowser : public TvPanel
{
public:
    using Selection = std::vector<std::pair<long, wxString>>;
    using Post = std::function<void(FeedEvent)>;
    /// `selected` compounds; called with the selection before it is told.
    using OnSelection = std::function<void(std::size_t selected)>;

    CompoundBrowser(wxWindow* parent, Post post, OnSelection onSelection);

    void Localize(const std::string& unitSystem) override;
    void SetCategories(const Selection& items);
    void SetElements(const Selection& items);
    /// Shows other compounds in the list; nothing is selected then.
    void SetCompounds(CompoundList::Compounds compounds);
    /// Chooses an element without an event; one that is not offered changes nothing.
    void SelectElement(const wxString& element);
    const tvChoice& GetElement() const { return *m_element; }
    const tvChoice& GetCategory() const { return *m_category; }
    wxString GetSearchText() const;
    /// Clears the search text, without an event.
    void CancelSearch();
    void EnableEditAndDeleteCompoundButtons(bool edit, bool remove);
    CompoundList& GetList() const { return *m_list; }

private:
    void AddFilterRow(wxBoxSizer& sizer);
    void AddCompoundList(wxBoxSizer& sizer);
    void AddButtonRow(wxBoxSizer& sizer);
    void BindEvents();
    void NameControls();
    void ClearFilters();

    void PostEvent(wxEventType type, std::vector<int> compounds = {});
    void PostElementChoiceEvent() { PostEvent(tvFEED_ELEMENT_CHOSEN); }
    void PostCategoryChoiceEvent() { PostEvent(tvFEED_CATEGORY_CHOSEN); }
    void PostCompoundAddedEvent(const std::vector<int>& compounds);
    void PostCompoundSelectedEvent(const std::vector<int>& compounds);
    void PostCompoundEditEvent(const std::vector<int>& compounds);
    void PostCompoundDeleteEvent(const std::vector<int>& compounds);
    void OnCompoundAddedToComposition(wxListEvent& event);
    void OnCompoundSelected();
    void OnEditCompoundClick();
    void OnDeleteCompoundClick();
    void OnListContextMenu();
    void OnListKey(wxListEvent& event);

    Post m_post;
    OnSelection m_onSelection;
    tvChoice* m_element = nullptr;
    tvChoice* m_category = nullptr;
    TvSearchControl* m_search = nullptr;
    CompoundList* m_list = nullptr;
    NothingFound* m_nothing = nullptr;
    TvButton* m_edit = nullptr;
    TvButton* m_delete = nullptr;
};
