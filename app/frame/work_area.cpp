// SPDX-License-Identifier: MIT
#include "app/frame/work_area.h"

#include "app/frame/message_strip.h"
#include "app/frame/page_item.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/support/translation.h"

#include <wx/aui/dockart.h>
#include <wx/settings.h>
#include <wx/treectrl.h>

#include <algorithm>
#include <functional>
#include <string>

namespace app {
namespace {

/// Begins with the version of the arrangement: what an older program kept has other panes.
constexpr const char* kDocking = "/Window/docking.1";
constexpr const char* kMessagesHeight = "/Window/messages";

struct PaneRow
{
    WorkPane pane;
    const char* id;
    const char* title;
    int narrowWidth;  ///< in DIP, where the window is narrow
    int width;        ///< where it is neither narrow nor wide
    int wideWidth;    ///< where it is wider than the pages use
};

constexpr std::array<PaneRow, kWorkPanes> kPanes{
    PaneRow{WorkPane::Navigator, "navigator", wxTRANSLATE("Navigator"), 140, 190, 190},
    PaneRow{WorkPane::Results, "results", wxTRANSLATE("Results"), 220, 250, 420},
    PaneRow{WorkPane::Diagram, "diagram", wxTRANSLATE("Diagram"), 220, 250, 420},
};
/// Below it, in DIP, the panes give the pages what they can.
constexpr int kNarrow = 1200;
/// From there on, in DIP, the names of the navigator are shown whole as far as they go.
constexpr int kWide = 1600;
/// From there on, in DIP, tiles stand side by side in the results.
constexpr int kVeryWide = 2000;
constexpr int kWidestNavigator = 305;
/// By what each level of the tree stands further right.
constexpr int kIndent = 14;
/// Between a symbol and its text.
constexpr int kBesideSymbol = 8;
/// What stays free beside the longest name.
constexpr int kBesideNames = 14;
/// What stays free above and below the title of a pane.
constexpr int kBesideCaption = 4;
constexpr int kPaneMinimum = 90;
constexpr int kDiagramHeight = 240;

const PaneRow& RowOf(WorkPane pane)
{
    return kPanes.at(static_cast<std::size_t>(pane));
}

}  // namespace

WorkArea::WorkArea(wxWindow* parent)
    : wxSplitterWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSP_LIVE_UPDATE | wxSP_NOBORDER),
      m_desk(new wxPanel(this))
{
    m_tree = new wxTreeCtrl(
        m_desk, wxID_ANY, wxDefaultPosition, wxDefaultSize,
        wxTR_DEFAULT_STYLE | wxTR_HIDE_ROOT | wxTR_NO_LINES | wxTR_FULL_ROW_HIGHLIGHT | wxTR_EDIT_LABELS);
    m_tree->SetIndent(m_tree->FromDIP(kIndent));
    m_tree->SetSpacing(m_tree->FromDIP(kBesideSymbol));
    // Names that are longer than the tree is wide have their tips.
    m_tree->ShowScrollbars(wxSHOW_SB_NEVER, wxSHOW_SB_DEFAULT);
    // Its best size is that of all names, not of the last ones.
    m_tree->SetQuickBestSize(false);
    m_middle = new wxSimplebook(m_desk);
    m_notebook = new AuiNotebook(m_middle, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                 wxAUI_NB_TOP | wxAUI_NB_TAB_SPLIT | wxAUI_NB_TAB_MOVE |
                                     wxAUI_NB_SCROLL_BUTTONS | wxAUI_NB_WINDOWLIST_BUTTON);
    m_middle->AddPage(m_notebook, wxString());
    m_messages = new MessageStrip(this);
    m_messages->SetOnToggled([this] { OnMessagesToggled(); });

    m_docking.SetManagedWindow(m_desk);
    m_docking.SetFlags(wxAUI_MGR_DEFAULT | wxAUI_MGR_LIVE_RESIZE);
    m_docking.AddPane(m_middle, wxAuiPaneInfo().Name("pages").CentrePane().PaneBorder(false));
    TakeColours();
    AddPane(WorkPane::Navigator, m_tree);

    SetSashGravity(1.0);
    SetMinimumPaneSize(m_messages->GetStripHeight());
    SplitHorizontally(m_desk, m_messages, -m_messages->GetStripHeight());
    Bind(wxEVT_SIZE, &WorkArea::OnSize, this);
    // Dragging the sash is the other way to open and close the list.
    Bind(wxEVT_SPLITTER_SASH_POS_CHANGED, [this](wxSplitterEvent& event) {
        event.Skip();
        m_messages->SetHeight(GetClientSize().y - event.GetSashPosition());
    });
}

void WorkArea::TakeColours()
{
    wxAuiDockArt& art = *m_docking.GetArtProvider();
    art.SetMetric(wxAUI_DOCKART_GRADIENT_TYPE, wxAUI_GRADIENT_NONE);
    art.SetMetric(wxAUI_DOCKART_PANE_BORDER_SIZE, 0);
    // Larger texts want higher captions.
    art.SetMetric(wxAUI_DOCKART_CAPTION_SIZE, GetCharHeight() + FromDIP(kBesideCaption));
    const wxColour face = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    for (const int part : {wxAUI_DOCKART_ACTIVE_CAPTION_COLOUR, wxAUI_DOCKART_INACTIVE_CAPTION_COLOUR,
                           wxAUI_DOCKART_BACKGROUND_COLOUR, wxAUI_DOCKART_SASH_COLOUR})
        art.SetColour(part, face);
    for (const int part :
         {wxAUI_DOCKART_ACTIVE_CAPTION_TEXT_COLOUR, wxAUI_DOCKART_INACTIVE_CAPTION_TEXT_COLOUR})
        art.SetColour(part, wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT));
    art.SetFont(wxAUI_DOCKART_CAPTION_FONT, GetFont().Bold());
    m_docking.Update();
    // Pages show what their notebook paints below them: the face of the window, not the toolkit's darker one.
    m_notebook->GetAuiManager().GetArtProvider()->SetColour(wxAUI_DOCKART_BACKGROUND_COLOUR, face);
    m_notebook->Refresh();
}

WorkArea::~WorkArea()
{
    m_docking.UnInit();
}

bool WorkArea::IsNarrow() const
{
    return wxGetTopLevelParent(m_desk)->GetClientSize().x < FromDIP(kNarrow);
}

int WorkArea::UsualWidth(WorkPane pane) const
{
    const int room = wxGetTopLevelParent(m_desk)->GetClientSize().x;
    const PaneRow& row = RowOf(pane);
    if (IsNarrow())
        return FromDIP(row.narrowWidth);
    if (pane == WorkPane::Navigator && room >= FromDIP(kWide))
        return std::clamp(WidthOfNames(*m_tree) + FromDIP(kBesideNames), FromDIP(row.width),
                          FromDIP(kWidestNavigator));
    return FromDIP(room >= FromDIP(kVeryWide) ? row.wideWidth : row.width);
}

std::array<int, kWorkPanes> WorkArea::UsualWidths() const
{
    std::array<int, kWorkPanes> widths{};
    std::ranges::transform(kPanes, widths.begin(),
                           [this](const PaneRow& row) { return UsualWidth(row.pane); });
    return widths;
}

bool WorkArea::IsUsual()
{
    return !m_usual.empty() && m_docking.SavePerspective() == m_usual;
}

bool WorkArea::HasOtherWidths()
{
    return IsUsual() && UsualWidths() != m_usualWidths;
}

void WorkArea::FitPanes()
{
    if (HasOtherWidths())
        ArrangeAsUsual();
}

void WorkArea::OnSize(wxSizeEvent& event)
{
    event.Skip();
    if (HasOtherWidths())
        CallAfter(&WorkArea::ArrangeAsUsual);
}

wxAuiPaneInfo WorkArea::UsualPlace(WorkPane pane) const
{
    const PaneRow& row = RowOf(pane);
    const int width = UsualWidth(pane);
    wxAuiPaneInfo place;
    place.Name(row.id).Caption(i18n::Translated(row.title)).Layer(1);
    place.MinSize(FromDIP(wxSize(kPaneMinimum, kPaneMinimum))).BestSize(width, FromDIP(kDiagramHeight));
    place.FloatingSize(width, 2 * FromDIP(kDiagramHeight));
    if (pane == WorkPane::Navigator)
        return place.Left();
    place.Right().Position(pane == WorkPane::Results ? 0 : 1);
    // In a narrow window the results want the height.
    place.Show(!IsNarrow() || pane == WorkPane::Results);
    // Of the height that they share the results get what the diagram leaves; tiles side by side want less.
    const bool isTiled = width >= FromDIP(RowOf(WorkPane::Results).wideWidth);
    const int results = isTiled ? 100000 : 140000;
    place.dock_proportion = pane == WorkPane::Results ? results : 200000 - results;
    return place;
}

void WorkArea::AddPane(WorkPane pane, wxWindow* content)
{
    m_docking.AddPane(content, UsualPlace(pane));
    m_docking.Update();
}

bool WorkArea::IsPaneShown(WorkPane pane) const
{
    // The manager's search does not change it.
    const wxAuiPaneInfo& info = const_cast<Docking&>(m_docking).GetPane(RowOf(pane).id);
    return info.IsOk() && info.IsShown();
}

void WorkArea::ShowPane(WorkPane pane, bool show)
{
    wxAuiPaneInfo& info = m_docking.GetPane(RowOf(pane).id);
    if (!info.IsOk())
        return;
    info.Show(show);
    m_docking.Update();
}

void WorkArea::SetCover(wxWindow* cover)
{
    m_middle->AddPage(cover, wxString());
}

void WorkArea::ShowCover(bool show)
{
    if (m_middle->GetPageCount() > 1)
        m_middle->ChangeSelection(show ? 1 : 0);
    // The toolkit leads Tab past what had nothing to stop at when it last looked, as a cover before it is
    // first filled: it looks again.
    if (IsCoverShown())
        m_middle->GetPage(1)->MoveAfterInTabOrder(m_middle->GetPage(0));
}

bool WorkArea::IsCoverShown() const
{
    return m_middle->GetSelection() == 1;
}

void WorkArea::ArrangeAsUsual()
{
    // Panes get their share of a desk that has its size.
    const wxSize room = wxGetTopLevelParent(this)->GetClientSize();
    if (m_desk->GetSize().x < room.x / 2)
        m_desk->SetSize(room);
    std::array<wxWindow*, kPanes.size()> contents{};
    for (std::size_t i = 0; i < kPanes.size(); ++i) {
        contents[i] = m_docking.GetPane(kPanes[i].id).window;
        if (contents[i] != nullptr)
            m_docking.DetachPane(contents[i]);
    }
    // Docks forget their sizes when they are laid out empty.
    m_docking.Update();
    for (std::size_t i = 0; i < kPanes.size(); ++i) {
        if (contents[i] != nullptr)
            m_docking.AddPane(contents[i], UsualPlace(kPanes[i].pane));
    }
    m_docking.Update();
    m_usual = m_docking.SavePerspective();
    m_usualWidths = UsualWidths();
}

void WorkArea::TakeKeptLayout()
{
    const std::string docking = ProjectDatabase::GetLocalParameter(kDocking);
    if (docking.empty() || !m_docking.LoadPerspective(wxString::FromUTF8(docking), false))
        ArrangeAsUsual();
    Localize();
    const int height = wxAtoi(wxString::FromUTF8(ProjectDatabase::GetLocalParameter(kMessagesHeight)));
    if (height > 0)
        m_messages->SetExpandedHeight(height);
}

void WorkArea::ShowFloating()
{
    for (const PaneRow& row : kPanes) {
        const wxAuiPaneInfo& info = m_docking.GetPane(row.id);
        if (!info.IsOk() || !info.IsShown() || !info.IsFloating() || info.frame == nullptr)
            continue;
        info.frame->Hide();
        info.frame->ShowWithoutActivating();
    }
}

void WorkArea::KeepLayout()
{
    // The usual arrangement goes on following the width of the window at the next start.
    const wxString arrangement = m_docking.SavePerspective();
    ProjectDatabase::SetLocalParameter(kDocking,
                                       arrangement == m_usual ? std::string() : arrangement.utf8_string());
    ProjectDatabase::SetLocalParameter(kMessagesHeight, std::to_string(m_messages->GetExpandedHeight()));
}

void WorkArea::Localize()
{
    const bool isUsual = IsUsual();
    for (const PaneRow& row : kPanes) {
        wxAuiPaneInfo& info = m_docking.GetPane(row.id);
        if (info.IsOk())
            info.Caption(i18n::Translated(row.title));
    }
    m_docking.Update();
    // The arrangement as text holds the captions.
    if (isUsual)
        m_usual = m_docking.SavePerspective();
    m_messages->Localize();
}

void WorkArea::OnMessagesToggled()
{
    SetSashPosition(-m_messages->GetHeight());
}

}  // namespace app
