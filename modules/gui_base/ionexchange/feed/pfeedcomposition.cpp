// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/pfeedcomposition.h"

#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_notebook.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/ionexchange/feed/compound_browser.h"
#include "gui_base/ionexchange/feed/compound_info_box.h"
#include "gui_base/ionexchange/feed/feed_composition_grid.h"
#include "gui_base/ionexchange/feed/feed_medium_box.h"
#include "gui_base/ionexchange/feed/feed_tab.h"

#include <wx/statbox.h>

namespace {

constexpr int kGap = 4;
/// What frames and gaps around the totals take of the width.
constexpr int kBoxMargins = 64;
/// Shares of the height.
constexpr int kTopShare = 2;
constexpr int kTableShare = 3;

}  // namespace

FeedCompositionPanel::FeedCompositionPanel(wxWindow* parent, int id, wxStatusBar* statusBar,
                                           const wxPoint& pos, const wxSize& size, long style)
    : ModulePanelBase(nullptr, parent, id, pos, size, style)
{
    if (statusBar != nullptr)
        ModulePanelBase::SetStatusBar(statusBar);
    Create();
}

FeedCompositionPanel::~FeedCompositionPanel()
{
    // The grids show a member of this panel, and an open cell must tell nobody any more.
    m_closing = true;
    DestroyChildren();
}

void FeedCompositionPanel::CreateControls()
{
    m_outer = new wxBoxSizer(wxVERTICAL);
    SetSizer(m_outer);
    AddTopSizer();
    AddStatBoxTop();
    AddCompoundInfoBox();
    AddMediumBox();
    AddTableNotebook();
}

void FeedCompositionPanel::AddTopSizer()
{
    m_top = new wxBoxSizer(wxHORIZONTAL);
    m_outer->Add(m_top, wxSizerFlags(kTopShare).Expand().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::AddStatBoxTop()
{
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Compound selection")));
    m_browser = AddLocalizable(new CompoundBrowser(
        box->GetStaticBox(), [this](const FeedEvent& event) { PostFeedEvent(event); },
        [this](std::size_t selected) { OnCompoundSelected(selected); }));
    box->Add(m_browser, wxSizerFlags(1).Expand());
    m_top->Add(box, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::AddCompoundInfoBox()
{
    m_side = new wxBoxSizer(wxVERTICAL);
    m_top->Add(m_side, wxSizerFlags().Expand());
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Compound details")));
    m_info = AddLocalizable(new CompoundInfoBox(box->GetStaticBox()));
    box->Add(m_info, wxSizerFlags(1).Expand());
    m_side->Add(box, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::AddMediumBox()
{
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Feed medium")));
    m_medium = AddLocalizable(new FeedMediumBox(box->GetStaticBox()));
    box->Add(m_medium, wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
    m_side->Add(box, wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::AddTableNotebook()
{
    m_tabs = AddLocalizable(new TvNotebook(this));
    AddFeedTabPanel();
    AddEffluentTabPanel();
    m_outer->Add(m_tabs,
                 wxSizerFlags(kTableShare).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(2 * kGap)));
}

void FeedCompositionPanel::AddFeedTabPanel()
{
    m_feed = AddLocalizable(new FeedTab(
        m_tabs, [this](const FeedEvent& event) { PostFeedEvent(event); }, m_composition));
    m_tabs->AddPage(m_feed, wxTRANSLATE("Feed"));
}

void FeedCompositionPanel::AddEffluentTabPanel()
{
    m_effluent = AddLocalizable(new EffluentTab(
        m_tabs, [this](const FeedEvent& event) { PostFeedEvent(event); }, m_composition));
    m_tabs->AddPage(m_effluent, wxTRANSLATE("Effluent"));
}

void FeedCompositionPanel::DoArrange(int width)
{
    if (m_feed == nullptr || m_effluent == nullptr)
        return;
    const int inside = width - FromDIP(kBoxMargins);
    m_feed->ArrangeFor(inside);
    m_effluent->ArrangeFor(inside);
    // Below each other the boxes at the side are least wide; beside each other they are least high.
    const int room = width - 2 * FromDIP(kGap);
    m_side->SetOrientation(wxVERTICAL);
    SetFeedOrientationFor(*m_top, room);
    const bool isColumn = m_top->GetOrientation() == wxVERTICAL;
    if (isColumn)
        SetFeedOrientationFor(*m_side, room);
    // Below each other there is no height to share: the table comes as far up as it can.
    m_outer->GetItem(m_top)->SetProportion(isColumn ? 0 : kTopShare);
}

void FeedCompositionPanel::DoBindEvents()
{
    m_medium->SetOnChange([this] { OnFeedMediumChanged(); });
    Bind(wxEVT_SHOW, &FeedCompositionPanel::OnShow, this);
}

void FeedCompositionPanel::OnShow(wxShowEvent& event)
{
    event.Skip();
    if (event.IsShown())
        Post(tvFEED_SHOWN);
}

void FeedCompositionPanel::PostFeedEvent(FeedEvent event)
{
    if (m_closing || IsBeingDeleted())
        return;
    event.SetId(GetId());
    event.SetEventObject(this);
    event.StopPropagation();
    ProcessWindowEvent(event);
}

void FeedCompositionPanel::OnCompoundSelected(std::size_t selected)
{
    if (selected == 0)
        m_info->Clear();
    else if (selected > 1)
        m_info->ShowFields(false);
}

void FeedCompositionPanel::DoPrepare()
{
    UnSelectedCompound();
}

void FeedCompositionPanel::DoConnectTvTextCtrlsToStatusbar()
{
    m_feed->ConnectStatusBar(GetStatusBar());
    m_medium->SetStatusBar(GetStatusBar());
}

void FeedCompositionPanel::SetStatusBar(wxStatusBar* statusBar)
{
    ModulePanelBase::SetStatusBar(statusBar);
    DoConnectTvTextCtrlsToStatusbar();
}

void FeedCompositionPanel::DoLocalize()
{
    SetComposition(m_composition);
}

void FeedCompositionPanel::ShowUnitSystem(const std::string& unitSystem)
{
    if (unitSystem == m_unitSystem)
        return;
    m_unitSystem = unitSystem;
    UpdateUnits(false);
}

void FeedCompositionPanel::SetCategorySelection(const Selection& items)
{
    m_browser->SetCategories(items);
    FitAndLayout();
}

void FeedCompositionPanel::SetElementSelection(const Selection& items)
{
    m_browser->SetElements(items);
}

void FeedCompositionPanel::SetMediumSelection(const Selection& items)
{
    m_medium->SetMediumSelection(items);
    FitAndLayout();
}

void FeedCompositionPanel::SetTemperatureUnitSelection(const Selection& items)
{
    m_medium->SetTemperatureUnitSelection(items);
}

void FeedCompositionPanel::SetCompoundSelection(CompoundList::Compounds compounds)
{
    m_browser->SetCompounds(std::move(compounds));
    UnSelectedCompound();
}

void FeedCompositionPanel::SetComposition(const FeedComposition& composition)
{
    if (&m_composition != &composition)
        m_composition = composition;
    m_feed->ShowComposition();
    m_effluent->ShowComposition();
    SetMedium(m_composition.GetMedium());
}

void FeedCompositionPanel::ShowEntry(std::size_t row)
{
    FeedCompositionGrid& grid = m_feed->GetGrid();
    if (static_cast<int>(row) < grid.GetNumberRows())
        grid.GoToCell(static_cast<int>(row), kFeedFirstUnit);
}

void FeedCompositionPanel::SetMedium(const FeedMedium::Data& medium)
{
    m_medium->SetMedium(medium);
}

void FeedCompositionPanel::SetTotalCompositionResults(const FeedComposition& composition)
{
    m_feed->ShowTotals(composition);
    m_effluent->ShowTotals(composition);
}

void FeedCompositionPanel::ShowCompoundDetails(const DBObjects::Compound& compound, double molweight)
{
    m_info->ShowCompound(compound, molweight);
}

void FeedCompositionPanel::ShowCompoundDetailFields(bool show)
{
    m_info->ShowFields(show);
}

void FeedCompositionPanel::UnSelectedCompound()
{
    m_info->Clear();
    m_browser->EnableEditAndDeleteCompoundButtons(false, false);
}

void FeedCompositionPanel::SelectElement(const wxString& element)
{
    m_browser->SelectElement(element);
}

FeedCompositionPanel::Data FeedCompositionPanel::GetData() const
{
    return {.medium = m_medium->GetMedium(),
            .adjustPh = m_feed->IsPhAdjusted(),
            .totalPh = m_feed->GetTotalPh(),
            .useEffluent = m_effluent->IsUsed()};
}

wxString FeedCompositionPanel::GetSelectedElement() const
{
    return m_browser->GetElement().GetStringUnlocalized();
}

long FeedCompositionPanel::GetSelectedElementID() const
{
    return m_browser->GetElement().GetID();
}

wxString FeedCompositionPanel::GetSelectedCategory() const
{
    return m_browser->GetCategory().GetStringUnlocalized();
}

long FeedCompositionPanel::GetSelectedCategoryID() const
{
    return m_browser->GetCategory().GetID();
}

wxString FeedCompositionPanel::GetElementSearchString() const
{
    return m_browser->GetSearchText();
}

void FeedCompositionPanel::CancelTextSearch()
{
    m_browser->CancelSearch();
}

CompoundList& FeedCompositionPanel::GetCompoundList() const
{
    return m_browser->GetList();
}

bool FeedCompositionPanel::FocusDetail(const DetailAddress& address)
{
    const std::string& key = address.key;
    if (address.entry >= 0) {
        ShowEntry(static_cast<std::size_t>(address.entry));
        m_feed->GetGrid().SetFocus();
        return true;
    }
    if (key == "feed/ph" || key == "feed/adjust.ph") {
        m_tabs->SetSelection(0);
        m_feed->FocusPh();
        return true;
    }
    if (key == "feed/use.effluent") {
        m_tabs->SetSelection(1);
        m_effluent->FocusUse();
        return true;
    }
    if (key == "feed/medium.temp") {
        m_medium->FindField(FeedMediumBox::kTemperature)->SetFocus();
        return true;
    }
    return false;
}
