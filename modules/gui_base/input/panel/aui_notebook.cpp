// SPDX-License-Identifier: MIT
#include "gui_base/input/panel/aui_notebook.h"

#include "core/notebook_perspective.h"
#include "gui_base/input/panel/tab_art.h"

#include <wx/dcclient.h>
#include <wx/weakref.h>
#include <wx/wupdlock.h>

namespace {

/// A pane that floats, is maximised, counts as a toolbar or has a caption is no tab group.
constexpr unsigned kForeignStates = wxAuiPaneInfo::optionFloating | wxAuiPaneInfo::optionMaximized |
                                    wxAuiPaneInfo::optionToolbar | wxAuiPaneInfo::optionCaption |
                                    wxAuiPaneInfo::optionGripper | wxAuiPaneInfo::optionGripperTop |
                                    wxAuiPaneInfo::optionDestroyOnClose;

/// Proportion that the manager gives a new pane.
constexpr int kWholeShare = 100000;

bool IsPlaceholder(const wxAuiPaneInfo& pane)
{
    return pane.name ==
           wxString::FromUTF8(perspective::kPlaceholder.data(), perspective::kPlaceholder.size());
}

/// Sets a flag for the life of the object.
class FlagScope
{
public:
    explicit FlagScope(bool& flag) : m_flag(flag) { m_flag = true; }
    FlagScope(const FlagScope&) = delete;
    ~FlagScope() { m_flag = false; }

private:
    bool& m_flag;
};

}  // namespace

AuiNotebook::AuiNotebook(wxWindow* parent, int id, const wxPoint& pos, const wxSize& size, long style)
    : wxAuiNotebook(parent, id, pos, size, style)
{
    SetArtProvider(new TabArt);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        m_tabsMoved = true;
    });
    Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
        event.Skip();
        if (m_tabsMoved && IsShownOnScreen())
            ShowActiveTabs();
    });
}

void AuiNotebook::ShowActiveTabs()
{
    m_tabsMoved = false;
    for (wxAuiTabCtrl* group : GetTabGroups()) {
        // The toolkit takes what it has not drawn yet for visible.
        group->Update();
        if (group->GetActivePage() != wxNOT_FOUND)
            group->MakeTabVisible(group->GetActivePage(), group);
    }
}

void AuiNotebook::ShowPageList()
{
    wxArrayString names;
    for (std::size_t i = 0; i < GetPageCount(); ++i)
        names.Add(GetPageText(i));
    const int chosen = ChooseFromMenu(*this, {0, GetTabCtrlHeight()}, names, GetSelection());
    if (chosen == wxNOT_FOUND)
        return;
    SetSelection(static_cast<std::size_t>(chosen));
    GetCurrentPage()->SetFocus();
}

bool AuiNotebook::SetPageText(std::size_t page, const wxString& text)
{
    m_tabsMoved = true;
    wxClientDC dc(this);
    const auto* art = dynamic_cast<const TabArt*>(GetArtProvider());
    const bool isWhole = art == nullptr || art->Shortened(text, dc, *this) == text;
    return wxAuiNotebook::SetPageText(page, text) && SetPageToolTip(page, isWhole ? wxString() : text);
}

std::vector<wxAuiTabCtrl*> AuiNotebook::GetTabGroups()
{
    // The panes hold frames of a class that only the toolkit knows; the tab controls are found as our
    // children.
    std::vector<wxAuiTabCtrl*> controls;
    for (wxWindow* child : GetChildren())
        if (auto* control = wxDynamicCast(child, wxAuiTabCtrl))
            controls.push_back(control);
    std::vector<wxAuiTabCtrl*> groups;
    const wxAuiPaneInfoArray& panes = m_mgr.GetAllPanes();
    for (size_t i = 0; i < panes.GetCount(); ++i)
        for (wxAuiTabCtrl* control : controls)
            if (!IsPlaceholder(panes.Item(i)) && panes.Item(i).window == GetTabFrameFromTabCtrl(control))
                groups.push_back(control);
    return groups;
}

wxString AuiNotebook::SavePerspective()
{
    perspective::Arrangement arrangement;
    for (wxAuiTabCtrl* control : GetTabGroups()) {
        perspective::Group group;
        group.name = m_mgr.GetPane(GetTabFrameFromTabCtrl(control)).name.utf8_string();
        for (size_t i = 0; i < control->GetPageCount(); ++i) {
            const int index = FindPage(control->GetWindowFromIdx(i));
            const bool active = control->GetActivePage() == static_cast<int>(i);
            const auto mark = index == GetSelection() ? perspective::Mark::Selected
                              : active                ? perspective::Mark::Active
                                                      : perspective::Mark::None;
            group.pages.push_back({static_cast<size_t>(index), mark});
        }
        arrangement.groups.push_back(std::move(group));
    }
    arrangement.layout = m_mgr.SavePerspective().utf8_string();
    return wxString::FromUTF8(perspective::Print(arrangement));
}

bool AuiNotebook::LoadPerspective(const wxString& layout)
{
    perspective::Arrangement arrangement = perspective::Parse(layout.utf8_string());
    perspective::FitToPages(arrangement, GetPageCount());
    if (arrangement.groups.empty())
        return false;
    const wxWeakRef<wxWindow> focused(FindFocus());
    int selection = GetSelection();
    bool accepted = false;
    {
        const FlagScope silent(m_restoring);
        const wxWindowUpdateLocker frozen(this);
        BuildGroups(arrangement.groups);
        accepted = LoadLayout(arrangement.layout);
        // The selection as it was, so that the host hears of one change at most.
        if (selection != wxNOT_FOUND)
            DoModifySelection(static_cast<size_t>(selection), false);
        ActivatePages(arrangement.groups);
    }
    for (const perspective::Group& group : arrangement.groups)
        for (const perspective::Page& page : group.pages)
            if (page.mark == perspective::Mark::Selected)
                selection = static_cast<int>(page.index);
    SelectAfterRestore(selection);
    if (focused)
        GiveFocusBack(*focused);
    return accepted;
}

void AuiNotebook::GiveFocusBack(wxWindow& window)
{
    // A page that gets the focus becomes the selected one.
    const bool inPage = IsDescendant(&window);
    const bool inSelection = GetSelection() != wxNOT_FOUND && GetCurrentPage()->IsDescendant(&window);
    if ((!inPage || inSelection) && FindFocus() != &window && window.IsShownOnScreen())
        window.SetFocus();
}

int AuiNotebook::DoModifySelection(size_t n, bool events)
{
    m_tabsMoved = true;
    return wxAuiNotebook::DoModifySelection(n, events && !m_restoring);
}

wxAuiTabCtrl* AuiNotebook::FindGroupOf(wxWindow* page)
{
    wxAuiTabCtrl* control = nullptr;
    int position = wxNOT_FOUND;
    return FindTab(page, &control, &position) ? control : nullptr;
}

void AuiNotebook::MovePageToEnd(wxAuiTabCtrl& from, wxAuiTabCtrl& to, wxWindow* page)
{
    wxAuiNotebookPage info = from.GetPage(static_cast<size_t>(from.GetIdxFromWindow(page)));
    info.active = false;
    from.RemovePage(page);
    to.AddPage(page, info);
}

wxAuiTabCtrl* AuiNotebook::GatherPages()
{
    const std::vector<wxAuiTabCtrl*> groups = GetTabGroups();
    for (wxAuiTabCtrl* group : groups)
        while (group != groups.front() && group->GetPageCount() > 0)
            MovePageToEnd(*group, *groups.front(), group->GetWindowFromIdx(0));
    RemoveEmptyTabFrames();
    // Nothing of an earlier place is to stay where the text tells none.
    wxAuiPaneInfo& pane = m_mgr.GetPane(GetTabFrameFromTabCtrl(groups.front()));
    wxAuiPaneInfo fresh = wxAuiPaneInfo().Name(pane.name).Centre().CaptionVisible(false);
    fresh.BestSize(FromDIP(wxSize(200, 200)));
    fresh.dock_proportion = kWholeShare;
    pane.SafeSet(fresh);
    return groups.front();
}

void AuiNotebook::BuildGroups(const std::vector<perspective::Group>& groups)
{
    wxAuiTabCtrl* first = GatherPages();
    for (const perspective::Group& group : groups) {
        wxAuiTabCtrl* control = first;
        if (&group != &groups.front()) {
            // A split gives the page a group of its own, as the last pane of the manager.
            Split(group.pages.front().index, wxRIGHT);
            control = FindGroupOf(GetPage(group.pages.front().index));
        }
        NameGroup(control, group.name);
        if (control == first)
            continue;
        for (size_t i = 1; i < group.pages.size(); ++i)
            MovePageToEnd(*first, *control, GetPage(group.pages[i].index));
    }
    for (const perspective::Page& page : groups.front().pages)
        MovePageToEnd(*first, *first, GetPage(page.index));
}

void AuiNotebook::NameGroup(wxAuiTabCtrl* group, const std::string& name)
{
    if (!name.empty())
        m_mgr.GetPane(GetTabFrameFromTabCtrl(group)).name = wxString::FromUTF8(name);
}

void AuiNotebook::ActivatePages(const std::vector<perspective::Group>& groups)
{
    for (const perspective::Group& group : groups)
        for (const perspective::Page& page : group.pages) {
            if (page.mark == perspective::Mark::None)
                continue;
            wxWindow* window = GetPage(page.index);
            wxAuiTabCtrl* control = FindGroupOf(window);
            control->SetActivePage(window);
            control->DoShowHide();
            control->Refresh();
        }
}

bool AuiNotebook::LoadLayout(const std::string& layout)
{
    const std::string sound = perspective::SoundLayout(layout, ~kForeignStates);
    const bool accepted = m_mgr.LoadPerspective(wxString::FromUTF8(sound), false);
    wxAuiPaneInfoArray& panes = m_mgr.GetAllPanes();
    wxAuiPaneInfo* first = nullptr;
    wxAuiPaneInfo* centre = nullptr;
    for (size_t i = 0; i < panes.GetCount(); ++i) {
        wxAuiPaneInfo& pane = panes.Item(i);
        pane.Show(!IsPlaceholder(pane));
        if (IsPlaceholder(pane))
            continue;
        pane.Resizable();
        first = first != nullptr ? first : &pane;
        if (pane.dock_direction != wxAUI_DOCK_CENTER)
            continue;
        // The notebook has one group in its centre, around which the others are docked.
        if (centre != nullptr)
            pane.Right();
        else
            centre = &pane;
    }
    if (centre == nullptr && first != nullptr)
        first->Centre();
    m_mgr.Update();
    return accepted;
}

void AuiNotebook::SelectAfterRestore(int selection)
{
    if (selection != wxNOT_FOUND && selection != GetSelection())
        SetSelection(static_cast<size_t>(selection));
    if (GetSelection() == wxNOT_FOUND)
        return;
    // The host may have refused the change: the page that stays selected must be in sight.
    wxWindow* page = GetPage(static_cast<size_t>(GetSelection()));
    wxAuiTabCtrl* control = FindGroupOf(page);
    control->SetActivePage(page);
    control->DoShowHide();
    control->Refresh();
}
