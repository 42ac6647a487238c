// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/compound_browser.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/input/controls/nothing_found.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/input/events.h"
#include "gui_base/ionexchange/feed/feed_hint.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/menu.h>
#include <wx/utils.h>

#include <algorithm>

namespace {

constexpr int kGap = 4;

/// Symbols of elements are no words: "No" must not become an answer.
class ElementChoice : public tvChoice
{
public:
    explicit ElementChoice(wxWindow* parent) : tvChoice({}, nullptr, parent, wxID_ANY) {}

protected:
    wxString DisplayText(const wxString& label) const override
    {
        return label.length() > 3 ? tvChoice::DisplayText(label) : label;
    }
};

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

bool IsMenuKey(int key)
{
    return key == WXK_MENU || key == WXK_WINDOWS_MENU || (key == WXK_F10 && wxGetKeyState(WXK_SHIFT));
}

bool Offers(const CompoundBrowser::Selection& items, const wxString& label)
{
    return std::any_of(items.begin(), items.end(), [&](const auto& item) { return item.second == label; });
}

/// Shows other items of a filter; the first one, which stands for all, where the chosen one is gone.
void ShowItems(tvChoice& choice, const CompoundBrowser::Selection& items)
{
    const wxString chosen = choice.GetStringUnlocalized();
    choice.Set(items);
    if (Offers(items, chosen))
        choice.SetStringSelectionFromUnlocalized(chosen);
    else if (!items.empty())
        choice.SetSelection(0);
}

}  // namespace

CompoundBrowser::CompoundBrowser(wxWindow* parent, Post post, OnSelection onSelection)
    : TvPanel(parent), m_post(std::move(post)), m_onSelection(std::move(onSelection))
{
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    AddFilterRow(*sizer);
    AddCompoundList(*sizer);
    AddButtonRow(*sizer);
    SetSizer(sizer);
    BindEvents();
    NameControls();
}

void CompoundBrowser::AddFilterRow(wxBoxSizer& sizer)
{
    const wxSizerFlags line = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(kGap));
    sizer.Add(
        AddControl(NewFeedHint(this, wxTRANSLATE("Filter by element or category, or search for compounds"))),
        line);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    m_element = AddControl(new ElementChoice(this));
    m_category = AddControl(new tvChoice({}, nullptr, this, wxID_ANY));
    m_search = AddControl(new TvSearchControl(this, wxID_ANY));
    m_search->SetTranslatableHint(wxTRANSLATE("Search for compound name or formula ..."));
    m_search->ShowCancelButton(true);
    m_search->SetMinSize(FromDIP(wxSize(150, -1)));
    const wxSizerFlags cell = wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(kGap));
    row->Add(m_element, cell);
    row->Add(m_category, cell);
    row->Add(m_search, wxSizerFlags(1).CentreVertical());
    sizer.Add(row, line);
}

void CompoundBrowser::AddCompoundList(wxBoxSizer& sizer)
{
    const wxSizerFlags line = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(kGap));
    m_list = AddControl(new CompoundList(this, wxID_ANY));
    m_list->SetMinSize(FromDIP(wxSize(320, 110)));
    m_nothing =
        AddControl(new NothingFound(*m_list, wxTRANSLATE("Clear filters"), [this] { ClearFilters(); }));
    sizer.Add(m_list, wxSizerFlags(line).Proportion(1));
    sizer.Add(AddControl(NewFeedHint(this, wxTRANSLATE("Double click a compound to add it to the feed"))),
              line);
}

void CompoundBrowser::AddButtonRow(wxBoxSizer& sizer)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const auto add = [&](const char* label, const char* tooltip, const std::function<void()>& action) {
        auto* button = AddControl(new TvButton(this, wxID_ANY, label));
        button->SetTranslatableToolTip(tooltip);
        button->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
        row->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(kGap)));
        return button;
    };
    add(wxTRANSLATE("New"), wxTRANSLATE("Add a compound to the database"),
        [this] { PostEvent(tvFEED_COMPOUND_NEW); });
    m_edit = add(wxTRANSLATE("Edit"), wxTRANSLATE("Edit the selected compound"),
                 [this] { OnEditCompoundClick(); });
    m_delete = add(wxTRANSLATE("Delete"), wxTRANSLATE("Delete the selected compounds from the database"),
                   [this] { OnDeleteCompoundClick(); });
    add(wxTRANSLATE("Import"), wxTRANSLATE("Read compounds from a file"),
        [this] { PostEvent(tvFEED_IMPORT); });
    add(wxTRANSLATE("Export"), wxTRANSLATE("Write the listed compounds to a file"),
        [this] { PostEvent(tvFEED_EXPORT); });
    sizer.Add(row, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
}

void CompoundBrowser::BindEvents()
{
    m_list->SetOnSelection([this] { OnCompoundSelected(); });
    m_list->Bind(wxEVT_LIST_ITEM_ACTIVATED, &CompoundBrowser::OnCompoundAddedToComposition, this);
    m_list->Bind(wxEVT_LIST_ITEM_RIGHT_CLICK, [this](wxListEvent&) { OnListContextMenu(); });
    m_list->Bind(wxEVT_LIST_KEY_DOWN, &CompoundBrowser::OnListKey, this);
    m_search->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { PostEvent(tvFEED_SEARCH); });
    m_search->Bind(wxEVT_SEARCH_CANCEL, [this](wxCommandEvent&) {
        CancelSearch();
        PostEvent(tvFEED_SEARCH);
    });
    // Enter goes on to what was found.
    m_search->Bind(wxEVT_SEARCH, [this](wxCommandEvent&) { m_list->SetFocus(); });
    // A filter changes no project: nobody else hears of it.
    m_element->Bind(tvCHANGE_EVENT, [this](wxCommandEvent&) { PostElementChoiceEvent(); });
    m_category->Bind(tvCHANGE_EVENT, [this](wxCommandEvent&) { PostCategoryChoiceEvent(); });
}

void CompoundBrowser::Localize(const std::string& unitSystem)
{
    TvPanel::Localize(unitSystem);
    NameControls();
}

void CompoundBrowser::NameControls()
{
    accessibility::SetName(*m_element, Tr(wxTRANSLATE("Element")));
    accessibility::SetName(*m_category, Tr(wxTRANSLATE("Category")));
    accessibility::SetName(*m_search, Tr("Search for compound name or formula ..."));
    accessibility::SetName(*m_list, Tr(wxTRANSLATE("Compounds")));
}

void CompoundBrowser::SetCompounds(CompoundList::Compounds compounds)
{
    const bool isFiltered =
        !m_search->IsEmpty() || m_element->GetSelection() > 0 || m_category->GetSelection() > 0;
    m_nothing->ShowIf(compounds.empty() && isFiltered);
    m_list->SetCompounds(std::move(compounds));
}

void CompoundBrowser::ClearFilters()
{
    m_search->SetFocus();
    CancelSearch();
    for (tvChoice* filter : {m_element, m_category}) {
        if (filter->GetCount() > 0)
            filter->SetSelection(0);
    }
    PostEvent(tvFEED_SEARCH);
}

void CompoundBrowser::SetCategories(const Selection& items)
{
    ShowItems(*m_category, items);
}

void CompoundBrowser::SetElements(const Selection& items)
{
    ShowItems(*m_element, items);
}

void CompoundBrowser::SelectElement(const wxString& element)
{
    if (Offers(m_element->GetItems(), element))
        m_element->SetStringSelectionFromUnlocalized(element);
}

wxString CompoundBrowser::GetSearchText() const
{
    return m_search->GetValue();
}

void CompoundBrowser::CancelSearch()
{
    m_search->ChangeValue(wxString());
}

void CompoundBrowser::EnableEditAndDeleteCompoundButtons(bool edit, bool remove)
{
    m_edit->Enable(edit);
    m_delete->Enable(remove);
}

void CompoundBrowser::PostEvent(wxEventType type, std::vector<int> compounds)
{
    FeedEvent event(type);
    event.compounds = std::move(compounds);
    m_post(event);
}

void CompoundBrowser::PostCompoundAddedEvent(const std::vector<int>& compounds)
{
    PostEvent(tvFEED_COMPOUND_ADDED, compounds);
}

void CompoundBrowser::PostCompoundSelectedEvent(const std::vector<int>& compounds)
{
    PostEvent(tvFEED_COMPOUND_SELECTED, compounds);
}

void CompoundBrowser::PostCompoundEditEvent(const std::vector<int>& compounds)
{
    PostEvent(tvFEED_COMPOUND_EDIT, compounds);
}

void CompoundBrowser::PostCompoundDeleteEvent(const std::vector<int>& compounds)
{
    PostEvent(tvFEED_COMPOUND_DELETE, compounds);
}

void CompoundBrowser::OnCompoundAddedToComposition(wxListEvent& event)
{
    const int activated = m_list->GetId(event.GetIndex());
    std::vector<int> compounds = m_list->GetSelectedIds();
    if (std::find(compounds.begin(), compounds.end(), activated) == compounds.end())
        compounds = {activated};
    PostCompoundAddedEvent(compounds);
}

void CompoundBrowser::OnCompoundSelected()
{
    const std::vector<int> selected = m_list->GetSelectedIds();
    EnableEditAndDeleteCompoundButtons(selected.size() == 1, !selected.empty());
    m_onSelection(selected.size());
    if (selected.empty())
        PostEvent(tvFEED_COMPOUND_DESELECTED);
    else if (selected.size() == 1)
        PostCompoundSelectedEvent(selected);
}

void CompoundBrowser::OnEditCompoundClick()
{
    const std::vector<int> selected = m_list->GetSelectedIds();
    if (selected.size() == 1)
        PostCompoundEditEvent(selected);
}

void CompoundBrowser::OnDeleteCompoundClick()
{
    const std::vector<int> selected = m_list->GetSelectedIds();
    if (selected.empty())
        return;
    const bool one = selected.size() == 1;
    const wxString question = Tr(one ? wxTRANSLATE("Do you really want to delete this entry?")
                                     : wxTRANSLATE("Do you really want to delete these entries?"));
    const wxString title = Tr(one ? wxTRANSLATE("Delete entry") : wxTRANSLATE("Delete entries"));
    if (dialogs::AskYesNo(this, question, title, wxICON_QUESTION) == wxID_YES)
        PostCompoundDeleteEvent(selected);
}

void CompoundBrowser::OnListContextMenu()
{
    const std::vector<int> selected = m_list->GetSelectedIds();
    if (selected.empty())
        return;
    wxMenu menu;
    menu.Append(wxID_ADD, Tr(wxTRANSLATE("Add to the feed")));
    menu.Append(wxID_EDIT, Tr("Edit"))->Enable(selected.size() == 1);
    menu.Append(wxID_DELETE, Tr("Delete"));
    switch (m_list->GetPopupMenuSelectionFromUser(menu)) {
        case wxID_ADD:
            PostCompoundAddedEvent(selected);
            break;
        case wxID_EDIT:
            OnEditCompoundClick();
            break;
        case wxID_DELETE:
            OnDeleteCompoundClick();
            break;
        default:
            break;
    }
}

void CompoundBrowser::OnListKey(wxListEvent& event)
{
    if (event.GetKeyCode() == WXK_DELETE)
        OnDeleteCompoundClick();
    else if (IsMenuKey(event.GetKeyCode()))
        OnListContextMenu();
    else
        event.Skip();
}
