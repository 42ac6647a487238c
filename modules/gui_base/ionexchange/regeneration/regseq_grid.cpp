// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/regeneration/regseq_grid.h"

#include "gui_base/input/controls/wheel.h"
#include "gui_base/input/validation/number_room.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/grid_keys.h"
#include "gui_base/support/translation.h"

#include <wx/dcclient.h>
#include <wx/menu.h>
#include <wx/settings.h>

#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr int kNumberWidth = 60;
/// Beside a text on both sides together.
constexpr int kMargins = 8;
constexpr int kMostRowsShown = 14;
/// On a page that is narrower than all columns the grid scrolls by itself.
constexpr int kLeastWidth = 480;
/// Beside the text of a choice stands the arrow of its list while it is edited.
constexpr int kArrowWidth = 36;

struct MenuRow
{
    TVRegSeqGrid::Command command;
    const char* label;
};
constexpr std::array kMenu{
    MenuRow{TVRegSeqGrid::Command::Add, wxTRANSLATE("Add")},
    MenuRow{TVRegSeqGrid::Command::MoveUp, wxTRANSLATE("Move up")},
    MenuRow{TVRegSeqGrid::Command::MoveDown, wxTRANSLATE("Move down")},
    MenuRow{TVRegSeqGrid::Command::Remove, wxTRANSLATE("Remove")},
};

struct Flag
{
    const char* label;
    bool RegSeqStep::*flag;
};
constexpr std::array kFlags{
    Flag{wxTRANSLATE("Counts as waste"), &RegSeqStep::counts},
    Flag{wxTRANSLATE("Product water is taken from the product"), &RegSeqStep::own},
};
constexpr int kFirstFlag = 100;

/// The toolkit keeps its light text on the pale background of a selection without the focus.
void TakeSelectionColours(wxGrid& grid)
{
    const wxColour window = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
    const wxColour highlight = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
    constexpr double kShare = 0.35;
    const auto mix = [](unsigned char a, unsigned char b) { return wxColour::AlphaBlend(a, b, kShare); };
    grid.SetSelectionForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    grid.SetSelectionBackground(wxColour(mix(highlight.Red(), window.Red()),
                                         mix(highlight.Green(), window.Green()),
                                         mix(highlight.Blue(), window.Blue())));
}

}  // namespace

TVRegSeqGrid::TVRegSeqGrid(wxWindow* parent, int id)
    : wxGrid(parent, id, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxBORDER_THEME),
      m_table(new RegSeqTable([this] {
          if (m_onEdit)
              m_onEdit();
      }))
{
    SetTable(m_table, true, wxGridSelectRows);
    SetColLabelSize(FromDIP(40));
    SetRowLabelSize(FromDIP(32));
    SetDefaultRowSize(FromDIP(28));
    DisableDragRowSize();
    SetCellHighlightROPenWidth(1);
    TakeSelectionColours(*this);
    GetGridWindow()->Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) {
        if (HasScrollbar(wxVERTICAL))
            event.Skip();
        else
            wheel::ScrollParent(*GetParent(), event);
    });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        ShareWidth();
        event.Skip();
    });
    // Columns that the user has sized stay so.
    Bind(wxEVT_GRID_COL_SIZE, [this](wxGridSizeEvent& event) {
        std::erase_if(m_choiceColumns,
                      [&](const ChoiceColumn& choice) { return choice.column == event.GetRowOrCol(); });
        event.Skip();
    });
    Bind(wxEVT_KEY_DOWN, &TVRegSeqGrid::OnKeyDown, this);
    Bind(wxEVT_GRID_TABBING, &TVRegSeqGrid::OnTabbing, this);
    Bind(wxEVT_GRID_LABEL_LEFT_CLICK, [this](wxGridEvent& event) {
        // The keys are for what is selected.
        SetFocus();
        event.Skip();
    });
    Bind(wxEVT_GRID_CELL_RIGHT_CLICK, [this](wxGridEvent& event) {
        const auto chosen = GetChosenRows();
        if (std::ranges::find(chosen, event.GetRow()) == chosen.end()) {
            SetGridCursor(event.GetRow(), event.GetCol());
            SelectRow(event.GetRow());
        }
        ShowMenu(wxDefaultPosition);
    });
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        m_table->TakeColours();
        TakeSelectionColours(*this);
        ForceRefresh();
        event.Skip();
    });
}

void TVRegSeqGrid::SetSteps(const std::vector<RegSeqStep>& steps)
{
    const wxGridUpdateLocker frozen(this);
    const int before = m_table->GetNumberRows();
    const int count = static_cast<int>(steps.size());
    const int row = GetGridCursorRow();
    const int column = std::max(GetGridCursorCol(), 0);
    if (before != count)
        DisableCellEditControl();
    m_table->SetSteps(steps);
    // The grid keeps the attribute of the cell that it asked for last.
    ClearAttrCache();
    if (count < before) {
        wxGridTableMessage removed(m_table, wxGRIDTABLE_NOTIFY_ROWS_DELETED, count, before - count);
        ProcessTableMessage(removed);
    } else if (count > before) {
        wxGridTableMessage added(m_table, wxGRIDTABLE_NOTIFY_ROWS_APPENDED, count - before);
        ProcessTableMessage(added);
    }
    if (count > 0 && row >= count)
        SetGridCursor(count - 1, column);
    if (before != count)
        FitHeight();
    GrowColumns();
    ForceRefresh();
}

void TVRegSeqGrid::FitHeight()
{
    const int rows = std::clamp(GetNumberRows(), 4, kMostRowsShown);
    SetMinSize(wxSize(FromDIP(kLeastWidth), GetColLabelSize() + rows * GetDefaultRowSize() + FromDIP(20)));
}

void TVRegSeqGrid::ShowTexts()
{
    DisableCellEditControl();
    FitColumns();
    ForceRefresh();
}

void TVRegSeqGrid::FitColumns()
{
    wxClientDC dc(GetGridColLabelWindow());
    m_choiceColumns.clear();
    for (int column = 0; column < kRegSeqColumnCount; ++column) {
        dc.SetFont(GetLabelFont());
        const int head = dc.GetMultiLineTextExtent(m_table->GetColLabelValue(column)).x + FromDIP(kMargins);
        const auto texts = m_table->TextsOf(column);
        if (texts.empty()) {
            SetColSize(column, std::max(head, FromDIP(kNumberWidth)));
            continue;
        }
        dc.SetFont(GetDefaultCellFont());
        ChoiceColumn choice{.column = column, .head = head, .widest = head};
        for (const wxString& text : texts)
            choice.widest = std::max(choice.widest, dc.GetTextExtent(text).x + FromDIP(kArrowWidth));
        m_choiceColumns.push_back(choice);
    }
    GrowColumns();
}

void TVRegSeqGrid::ShareWidth()
{
    if (m_choiceColumns.empty())
        return;
    wxClientDC dc(GetGridWindow());
    dc.SetFont(GetDefaultCellFont());
    int spare = GetSize().x - GetRowLabelSize() - FromDIP(kMargins);
    for (int column = 0; column < kRegSeqColumnCount; ++column)
        spare -= m_table->TextsOf(column).empty() ? GetColSize(column) : 0;
    std::vector<int> shown;
    for (const ChoiceColumn& choice : m_choiceColumns) {
        int width = choice.head;
        for (int row = 0; row < GetNumberRows(); ++row)
            width = std::max(width, dc.GetTextExtent(GetCellValue(row, choice.column)).x + FromDIP(kMargins));
        shown.push_back(std::min(width, choice.widest));
        spare -= shown.back();
    }
    for (std::size_t i = 0; i < m_choiceColumns.size(); ++i) {
        const ChoiceColumn& choice = m_choiceColumns[i];
        const int more = std::clamp(spare, 0, choice.widest - shown[i]);
        spare -= more;
        if (GetColSize(choice.column) != shown[i] + more)
            SetColSize(choice.column, shown[i] + more);
    }
}

void TVRegSeqGrid::GrowColumns()
{
    for (int column = 0; column < kRegSeqColumnCount; ++column)
        if (m_table->TextsOf(column).empty())
            number_room::GrowColumn(*this, column, 0, GetNumberRows() - 1);
    ShareWidth();
}

std::vector<int> TVRegSeqGrid::GetChosenRows() const
{
    std::vector<int> rows;
    for (const wxGridBlockCoords& block : GetSelectedRowBlocks()) {
        for (int row = block.GetTopRow(); row <= block.GetBottomRow(); ++row)
            rows.push_back(row);
    }
    if (rows.empty() && GetGridCursorRow() >= 0 && GetGridCursorRow() < GetNumberRows())
        rows.push_back(GetGridCursorRow());
    std::ranges::sort(rows);
    return rows;
}

void TVRegSeqGrid::SelectRows(const std::vector<int>& rows)
{
    ClearSelection();
    std::optional<int> first;
    for (const int row : rows) {
        if (row < 0 || row >= GetNumberRows())
            continue;
        first = std::min(first.value_or(row), row);
    }
    if (!first)
        return;
    SetGridCursor(*first, std::max(GetGridCursorCol(), 0));
    for (const int row : rows) {
        if (row >= 0 && row < GetNumberRows())
            SelectRow(row, true);
    }
}

void TVRegSeqGrid::ShowMenu(const wxPoint& position)
{
    DisableCellEditControl();
    wxMenu menu;
    for (const MenuRow& row : kMenu) {
        menu.Append(static_cast<int>(row.command) + 1, i18n::Translated(row.label));
        menu.Enable(static_cast<int>(row.command) + 1, !m_isPossible || m_isPossible(row.command));
    }
    const std::vector<int> rows = GetChosenRows();
    menu.AppendSeparator();
    for (std::size_t i = 0; !rows.empty() && i < kFlags.size(); ++i) {
        const int id = kFirstFlag + static_cast<int>(i);
        menu.AppendCheckItem(id, i18n::Translated(kFlags[i].label));
        menu.Check(id, GetSteps()[static_cast<std::size_t>(rows.front())].*kFlags[i].flag);
    }
    const int chosen = GetPopupMenuSelectionFromUser(menu, position);
    if (chosen >= kFirstFlag)
        m_table->SetFlag(rows, kFlags[static_cast<std::size_t>(chosen - kFirstFlag)].flag,
                         menu.IsChecked(chosen));
    else if (chosen != wxID_NONE && m_onCommand)
        m_onCommand(static_cast<Command>(chosen - 1));
}

void TVRegSeqGrid::OnKeyDown(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    const bool isAlt = event.GetModifiers() == wxMOD_ALT;
    std::optional<Command> command;
    if (!event.HasAnyModifiers() && (key == WXK_INSERT || key == WXK_NUMPAD_INSERT))
        command = Command::Add;
    else if (!event.HasAnyModifiers() && (key == WXK_DELETE || key == WXK_NUMPAD_DELETE))
        command = Command::Remove;
    else if (isAlt && (key == WXK_UP || key == WXK_NUMPAD_UP))
        command = Command::MoveUp;
    else if (isAlt && (key == WXK_DOWN || key == WXK_NUMPAD_DOWN))
        command = Command::MoveDown;
    if (IsCellEditControlShown()) {
        event.Skip();
    } else if (command) {
        if (m_onCommand && (!m_isPossible || m_isPossible(*command)))
            m_onCommand(*command);
    } else if (grid_keys::IsMenuKey(event)) {
        const int row = std::max(GetGridCursorRow(), 0);
        const wxPoint corner = CellToRect(row, std::max(GetGridCursorCol(), 0)).GetBottomLeft();
        ShowMenu(CalcScrolledPosition(corner));
    } else {
        event.Skip();
    }
}

void TVRegSeqGrid::OnTabbing(wxGridEvent& event)
{
    // From cell to cell that can be edited, in reading order, and out of the grid behind the last one.
    const bool forward = !event.ShiftDown();
    const int cells = GetNumberRows() * kRegSeqColumnCount;
    int place = event.GetRow() * kRegSeqColumnCount + event.GetCol();
    do
        place += forward ? 1 : -1;
    while (place >= 0 && place < cells &&
           !m_table->IsEditable(place / kRegSeqColumnCount, place % kRegSeqColumnCount));
    DisableCellEditControl();
    if (place < 0 || place >= cells) {
        event.Veto();
        CallAfter([this, forward] { grid_keys::LeaveByTab(*this, forward); });
        return;
    }
    ClearSelection();
    GoToCell(place / kRegSeqColumnCount, place % kRegSeqColumnCount);
}
