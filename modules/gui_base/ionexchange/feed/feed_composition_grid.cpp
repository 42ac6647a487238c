// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/feed_composition_grid.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/input/validation/number_room.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/grid_keys.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"

#include <wx/dcclient.h>
#include <wx/menu.h>

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace {

/// Of usual numbers; longer ones widen their column.
constexpr int kColumnWidth = 64;
constexpr int kNarrowColumnWidth = 26;
constexpr int kLeastNameWidth = 88;
/// Longer names give way where the columns do not fit.
constexpr int kUsualNameWidth = 132;
constexpr int kHeadMargin = 10;

}  // namespace

FeedCompositionGridBase::FeedCompositionGridBase(wxWindow* parent, int id, FeedCompositionTable::Side side,
                                                 const FeedComposition& composition)
    : wxGrid(parent, id, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxBORDER_THEME),
      m_composition(composition),
      m_table(new FeedCompositionTable(side, composition,
                                       [this](std::size_t row, FeedComposition::Unit unit, double value) {
                                           if (m_onEdit)
                                               m_onEdit(row, unit, value);
                                       })),
      m_side(side)
{
    SetTable(m_table, true, wxGridSelectCells);
    HideRowLabels();
    SetColLabelSize(FromDIP(26));
    SetDefaultRowSize(FromDIP(26));
    SetDefaultColSize(FromDIP(kColumnWidth), true);
    SetColSize(kFeedRemove, FromDIP(kNarrowColumnWidth));
    FitColumns();
    UpdateGridColumnPhVisibility(false);
    DisableDragRowSize();
    SetCellHighlightROPenWidth(1);
    // Room for some rows; the others scroll.
    SetMinSize(FromDIP(wxSize(360, 150)));

    Bind(wxEVT_GRID_CELL_LEFT_CLICK, &FeedCompositionGridBase::OnLeftClick, this);
    Bind(wxEVT_GRID_CELL_RIGHT_CLICK, &FeedCompositionGridBase::OnRightClick, this);
    Bind(wxEVT_GRID_TABBING, &FeedCompositionGridBase::OnTabbing, this);
    Bind(wxEVT_KEY_DOWN, &FeedCompositionGridBase::OnKeyDown, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        FitToWidth();
    });
    Bind(wxEVT_GRID_COL_SIZE, [this](wxGridSizeEvent& event) {
        event.Skip();
        m_isNameDragged = m_isNameDragged || event.GetRowOrCol() == kFeedName;
    });
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        m_table->TakeColours(IsThisEnabled());
        ForceRefresh();
        event.Skip();
    });
}

void FeedCompositionGridBase::ShowComposition()
{
    const std::vector<FeedComposition::CompoundEntry> before =
        std::exchange(m_shown, m_composition.GetEntries());
    const bool sameCompounds = std::equal(before.begin(), before.end(), m_shown.begin(), m_shown.end(),
                                          [](const auto& a, const auto& b) { return a.name == b.name; });
    if (sameCompounds)
        RefreshChangedRows(before);
    else
        FillRows();
}

void FeedCompositionGridBase::RefreshChangedRows(const std::vector<FeedComposition::CompoundEntry>& before)
{
    const auto sameNumber = [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    std::optional<int> first;
    int last = 0;
    for (std::size_t row = 0; row < m_shown.size(); ++row) {
        const auto& was = before[row];
        const auto& is = m_shown[row];
        const auto& wasSide = was.*m_side;
        const auto& isSide = is.*m_side;
        const bool same =
            std::tie(was.formula, was.acidBase, was.ionicCharge, was.valency) ==
                std::tie(is.formula, is.acidBase, is.ionicCharge, is.valency) &&
            sameNumber(wasSide.pH, isSide.pH) &&
            std::equal(wasSide.values.begin(), wasSide.values.end(), isSide.values.begin(), sameNumber);
        if (same)
            continue;
        last = static_cast<int>(row);
        first = first.value_or(last);
        RefreshBlock(last, 0, last, GetNumberCols() - 1);
    }
    if (first)
        GrowColumns(*first, last);
}

void FeedCompositionGridBase::GrowColumns(int first, int last)
{
    for (int column = kFeedFirstUnit; column < kFeedPh; ++column)
        number_room::GrowColumn(*this, column, first, last);
    FitToWidth();
}

void FeedCompositionGridBase::FillRows()
{
    const wxGridUpdateLocker frozen(this);
    DisableCellEditControl();
    const int before = m_table->GetNumberRows();
    const int column = std::max(GetGridCursorCol(), 0);
    const int row = GetGridCursorRow();
    ClearSelection();
    if (before > 0) {
        m_table->SetRowCount(0);
        wxGridTableMessage removed(m_table, wxGRIDTABLE_NOTIFY_ROWS_DELETED, 0, before);
        ProcessTableMessage(removed);
    }
    const int count = static_cast<int>(m_shown.size());
    if (count > 0) {
        m_table->SetRowCount(count);
        wxGridTableMessage added(m_table, wxGRIDTABLE_NOTIFY_ROWS_APPENDED, count);
        ProcessTableMessage(added);
        SetGridCursor(std::clamp(row, 0, count - 1), column);
    }
    FitColumns();
}

void FeedCompositionGridBase::FitColumns()
{
    m_isNameDragged = false;
    AutoSizeColumn(kFeedName, false);
    m_nameWidth = std::max(GetColSize(kFeedName), FromDIP(kLeastNameWidth));
    AutoSizeColumn(kFeedFormula, false);
    wxClientDC dc(GetGridColLabelWindow());
    dc.SetFont(GetLabelFont());
    for (int column = kFeedFormula; column < kFeedFirstUnit; ++column) {
        int wanted = column == kFeedFormula ? GetColSize(column) : 0;
        for (const wxString& text : m_table->KnownTexts(column))
            wanted = std::max(wanted, dc.GetTextExtent(text).x + FromDIP(kHeadMargin));
        SetColSize(column, wanted);
    }
    GrowColumns(0, GetNumberRows() - 1);
}

void FeedCompositionGridBase::FitToWidth()
{
    const int width = GetClientSize().x;
    const int least = std::min(m_nameWidth, FromDIP(kUsualNameWidth));
    int all = least;
    for (int column = kFeedName + 1; column < kFeedColumnCount; ++column)
        all += GetColSize(column);
    if (const bool isNarrow = all > width; std::exchange(m_isNarrow, isNarrow) != isNarrow)
        PutNumbersFirst(isNarrow);
    if (m_isNameDragged)
        return;
    int columns = 0;
    for (int place = kFeedName + 1; place < kFeedColumnCount; ++place) {
        const int next = GetColSize(GetColAt(place));
        if (least + columns + next > width)
            break;
        columns += next;
    }
    const int left = std::max(width - columns, least);
    const int wanted = m_isNarrow && columns > 0 ? left : std::min(m_nameWidth, left);
    if (wanted != GetColSize(kFeedName))
        SetColSize(kFeedName, wanted);
}

void FeedCompositionGridBase::PutNumbersFirst(bool first)
{
    if (!first)
        return ResetColPos();
    for (int column = kFeedAcidBase; column < kFeedFirstUnit; ++column)
        SetColPos(column, kFeedPh);
}

void FeedCompositionGridBase::UpdateGridColumnPhVisibility(bool visible)
{
    if (visible != IsPhVisible())
        SetColSize(kFeedPh, visible ? GetDefaultColSize() : 0);
    FitToWidth();
}

void FeedCompositionGridBase::Localize(const std::string&)
{
    FitColumns();
    ForceRefresh();
}

bool FeedCompositionGridBase::Enable(bool enable)
{
    if (!enable)
        DisableCellEditControl();
    const bool changed = wxGrid::Enable(enable);
    EnableEditing(enable);
    m_table->TakeColours(enable);
    ForceRefresh();
    return changed;
}

void FeedCompositionGridBase::AskRemove(int row)
{
    if (row < 0 || row >= GetNumberRows() || !IsThisEnabled())
        return;
    CommitCell();
    if (dialogs::AskYesNo(this, i18n::Translated(wxTRANSLATE("Do you really want to remove this entry?")),
                          i18n::Translated(wxTRANSLATE("Remove entry")), wxICON_QUESTION) == wxID_YES &&
        m_onRemove)
        m_onRemove(static_cast<std::size_t>(row));
}

void FeedCompositionGridBase::PopupRowMenu(int row, const wxPoint& position)
{
    if (row < 0 || row >= GetNumberRows())
        return;
    CommitCell();
    SetGridCursor(row, std::max(GetGridCursorCol(), 0));
    wxMenu menu;
    auto* remove = new wxMenuItem(&menu, wxID_REMOVE, i18n::Translated(wxTRANSLATE("Remove")));
    remove->SetBitmap(ImageLoader::LoadBundle("icons/i16/delete.png", wxSize(16, 16)));
    menu.Append(remove);
    menu.Append(wxID_ADD, i18n::Translated(wxTRANSLATE("Import compound")));
    const int chosen = GetPopupMenuSelectionFromUser(menu, position);
    if (chosen == wxID_REMOVE)
        AskRemove(row);
    else if (chosen == wxID_ADD && m_onImport)
        m_onImport(static_cast<std::size_t>(row));
}

void FeedCompositionGridBase::OnLeftClick(wxGridEvent& event)
{
    event.Skip();
    if (event.GetCol() != kFeedRemove || event.ShiftDown() || event.ControlDown())
        return;
    // The grid still holds the mouse.
    CallAfter([this, row = event.GetRow()] { AskRemove(row); });
}

void FeedCompositionGridBase::OnRightClick(wxGridEvent& event)
{
    PopupRowMenu(event.GetRow(), wxDefaultPosition);
}

void FeedCompositionGridBase::OnKeyDown(wxKeyEvent& event)
{
    const int row = GetGridCursorRow();
    const bool editing = IsCellEditControlShown();
    if (event.GetKeyCode() == WXK_DELETE && !editing && !event.HasAnyModifiers())
        AskRemove(row);
    else if (grid_keys::IsMenuKey(event) && !editing && row >= 0)
        PopupRowMenu(row,
                     CalcScrolledPosition(CellToRect(row, std::max(GetGridCursorCol(), 0)).GetBottomLeft()));
    else
        event.Skip();
}

void FeedCompositionGridBase::OnTabbing(wxGridEvent& event)
{
    const bool forward = !event.ShiftDown();
    const int step = forward ? 1 : -1;
    int row = event.GetRow();
    int column = event.GetCol();
    const int inputs = static_cast<int>(FeedComposition::kUnitCount);
    // From cell to cell that can be edited, in reading order, and out of the grid behind the last one.
    int place = row * inputs;
    if (column < kFeedFirstUnit)
        place += forward ? 0 : -1;
    else if (column >= kFeedPh)
        place += forward ? inputs : inputs - 1;
    else
        place += column - kFeedFirstUnit + step;
    if (!IsThisEnabled() || place < 0 || place >= GetNumberRows() * inputs) {
        event.Veto();
        CommitCell();
        CallAfter([this, forward] { grid_keys::LeaveByTab(*this, forward); });
        return;
    }
    row = place / inputs;
    column = kFeedFirstUnit + place % inputs;
    CommitCell();
    GoToCell(row, column);
}
