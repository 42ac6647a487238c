// SPDX-License-Identifier: MIT
#include "report/table.h"

#include <algorithm>
#include <numeric>
#include <optional>

namespace report {
namespace {

constexpr double kRounding = 0.01;

/// A cell that is set; nothing for an empty one.
struct SetCell
{
    std::optional<Text> text;
    double behindSign = 0.0;  ///< width behind the decimal sign
};

struct SetRow
{
    std::vector<SetCell> cells;
    bool total = false;
};

/// A column as it was measured.
struct SetColumn
{
    Align align;
    double left = 0.0;
    double width = 0.0;
    double behindSign = 0.0;  ///< the widest of its cells
};

/// What all boxes of a table draw from.
struct SetTable
{
    std::vector<SetColumn> columns;
    std::vector<SetRow> titles;  ///< the titles and perhaps the units
    std::vector<SetRow> rows;
    double left = 0.0;
    double right = 0.0;
};

PangoAlignment ToPango(Align align)
{
    switch (align) {
        case Align::Left:
            return PANGO_ALIGN_LEFT;
        case Align::Centre:
            return PANGO_ALIGN_CENTER;
        default:
            return PANGO_ALIGN_RIGHT;
    }
}

SetCell SetText(const TextContext& context, const std::string& text, const TextStyle& style)
{
    SetCell cell;
    if (!text.empty())
        cell.text.emplace(context, text, style);
    return cell;
}

SetRow SetTitles(const TextContext& context, const Table& table, bool units)
{
    const TextStyle style{.size = units ? style::kSmallSize : style::kTextSize,
                          .bold = !units,
                          .colour = units ? style::kMuted : style::kAccent};
    SetRow row;
    for (const Column& column : table.columns)
        row.cells.push_back(SetText(context, units ? column.unit : column.title, style));
    return row;
}

SetRow SetCells(const TextContext& context, const Table& table, const Row& source,
                const std::string& decimalSign)
{
    SetRow row{.cells = std::vector<SetCell>(table.columns.size()), .total = source.total};
    for (std::size_t i = 0; i < std::min(source.cells.size(), row.cells.size()); ++i) {
        const Cell& cell = source.cells[i];
        row.cells[i] =
            SetText(context, cell.text,
                    {.bold = source.total || cell.alarm, .colour = cell.alarm ? style::kAlarm : style::kInk});
        if (row.cells[i].text && table.columns[i].align == Align::Number)
            row.cells[i].behindSign = row.cells[i].text->WidthBehind(decimalSign);
    }
    return row;
}

/// The width that a column wants: numbers need room on both sides of the sign.
double NaturalWidth(const SetTable& table, std::size_t column, double behindSign)
{
    double widest = 0.0;
    for (const SetRow& row : table.titles) {
        if (row.cells[column].text)
            widest = std::max(widest, row.cells[column].text->Width());
    }
    for (const SetRow& row : table.rows) {
        const SetCell& cell = row.cells[column];
        if (cell.text)
            widest = std::max(widest, cell.text->Width() + behindSign - cell.behindSign);
    }
    return widest;
}

void SetColumns(SetTable& set, const Table& table, const TablePlace& place)
{
    std::vector<double> natural;
    std::vector<double> stretch;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        double behind = 0.0;
        if (table.columns[i].align == Align::Number) {
            for (const SetRow& row : set.rows)
                behind = std::max(behind, row.cells[i].behindSign);
        }
        set.columns.push_back({.align = table.columns[i].align, .behindSign = behind});
        natural.push_back(std::max(table.columns[i].minWidth, NaturalWidth(set, i, behind)));
        stretch.push_back(table.columns[i].stretch);
    }
    const double gaps = style::kCellGap * static_cast<double>(std::max<std::size_t>(1, natural.size()) - 1);
    const auto widths = ColumnWidths(natural, stretch, std::max(0.0, place.width - gaps));
    double x = place.left;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        set.columns[i].left = x;
        set.columns[i].width = widths[i];
        x += widths[i] + style::kCellGap;
    }
    set.left = place.left;
    set.right = std::min(place.left + place.width, x - style::kCellGap);
}

void WrapRow(const SetTable& set, SetRow& row, bool isTitle)
{
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        SetCell& cell = row.cells[i];
        const SetColumn& column = set.columns[i];
        if (!cell.text)
            continue;
        // Beside the widest fraction the others end earlier; what has no room for that is set to the right.
        double reserve =
            column.align == Align::Number && !isTitle ? column.behindSign - cell.behindSign : 0.0;
        if (cell.text->Width() + reserve > column.width + kRounding)
            reserve = 0.0;
        cell.text->Wrap(column.width - reserve, ToPango(column.align));
    }
}

/// The lines of a row's cells that one box shows.
using LineRanges = std::vector<std::pair<std::size_t, std::size_t>>;

struct RowPart
{
    LineRanges lines;
    double height = 0.0;  ///< of the text
};

/// As many lines of each cell as fit into `available`, beginning where `begin` says; at least one of each.
RowPart TakeLines(const SetRow& row, const std::vector<std::size_t>& begin, double available)
{
    RowPart part;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        std::size_t line = begin[i];
        double height = 0.0;
        const std::size_t count = row.cells[i].text ? row.cells[i].text->LineCount() : 0;
        while (line < count &&
               (line == begin[i] || height + row.cells[i].text->LineHeight(line) <= available))
            height += row.cells[i].text->LineHeight(line++);
        part.lines.emplace_back(begin[i], line);
        part.height = std::max(part.height, height);
    }
    return part;
}

std::vector<RowPart> CutRow(const SetRow& row, double available)
{
    std::vector<RowPart> parts;
    std::vector<std::size_t> begin(row.cells.size(), 0);
    const auto isDone = [&] {
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            if (row.cells[i].text && begin[i] < row.cells[i].text->LineCount())
                return false;
        }
        return true;
    };
    do {
        parts.push_back(TakeLines(row, begin, available));
        for (std::size_t i = 0; i < begin.size(); ++i)
            begin[i] = parts.back().lines[i].second;
    } while (!isDone());
    return parts;
}

void DrawRule(cairo_t* canvas, const SetTable& set, double y, double width, const style::Colour& colour)
{
    cairo_set_source_rgb(canvas, colour.red, colour.green, colour.blue);
    cairo_set_line_width(canvas, width);
    cairo_move_to(canvas, set.left, y);
    cairo_line_to(canvas, set.right, y);
    cairo_stroke(canvas);
}

void DrawCells(cairo_t* canvas, const SetTable& set, const SetRow& row, const LineRanges& lines, double y)
{
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        if (row.cells[i].text)
            row.cells[i].text->Draw(canvas, set.columns[i].left, y, lines[i].first, lines[i].second);
    }
}

LineRanges AllLines(const SetRow& row)
{
    LineRanges lines;
    for (const SetCell& cell : row.cells)
        lines.emplace_back(0, cell.text ? cell.text->LineCount() : 0);
    return lines;
}

double TextHeight(const SetRow& row)
{
    double height = 0.0;
    for (const SetCell& cell : row.cells) {
        if (cell.text)
            height = std::max(height, cell.text->Height());
    }
    return height;
}

/// The titles stand on their rule, whatever the number of their lines.
Box TitleBox(const std::shared_ptr<const SetTable>& set)
{
    Box box;
    for (const SetRow& row : set->titles)
        box.height += TextHeight(row);
    box.height += 2.0 * style::kCellTop;
    box.keepWithNext = true;
    box.draw = [set, height = box.height](cairo_t* canvas, double top) {
        double y = top;
        for (const SetRow& row : set->titles) {
            DrawCells(canvas, *set, row, AllLines(row), y);
            y += TextHeight(row);
        }
        DrawRule(canvas, *set, top + height - style::kCellTop / 2.0, style::kThickRule, style::kAccent);
    };
    return box;
}

Box RowBox(const std::shared_ptr<const SetTable>& set, std::size_t index, RowPart part, bool lastPart)
{
    Box box;
    box.height = part.height + 2.0 * style::kCellTop;
    box.draw = [set, index, lines = std::move(part.lines), height = box.height, lastPart](cairo_t* canvas,
                                                                                          double top) {
        const SetRow& row = set->rows[index];
        if (row.total && (index == 0 || !set->rows[index - 1].total))
            DrawRule(canvas, *set, top, style::kThinRule, style::kInk);
        DrawCells(canvas, *set, row, lines, top + style::kCellTop);
        if (lastPart && !row.total)
            DrawRule(canvas, *set, top + height, style::kThinRule, style::kRule);
    };
    return box;
}

}  // namespace

std::vector<double> ColumnWidths(std::span<const double> natural, std::span<const double> stretch,
                                 double available)
{
    std::vector<double> widths(natural.begin(), natural.end());
    const double total = std::accumulate(widths.begin(), widths.end(), 0.0);
    const double shares = std::accumulate(stretch.begin(), stretch.end(), 0.0);
    if (total <= available) {
        for (std::size_t i = 0; shares > 0.0 && i < widths.size(); ++i)
            widths[i] += (available - total) * stretch[i] / shares;
        return widths;
    }
    // The cap that lets the narrow columns have what they want and makes the others equal.
    std::vector<double> sorted = widths;
    std::sort(sorted.begin(), sorted.end());
    double left = available;
    double cap = 0.0;
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        cap = left / static_cast<double>(sorted.size() - i);
        if (sorted[i] > cap)
            break;
        left -= sorted[i];
    }
    for (double& width : widths)
        width = std::min(width, cap);
    return widths;
}

void AddTable(const TextContext& context, const Table& table, const TablePlace& place,
              const std::string& decimalSign, std::vector<Box>& boxes)
{
    auto set = std::make_shared<SetTable>();
    if (table.showTitles) {
        set->titles.push_back(SetTitles(context, table, false));
        const auto hasUnit = [](const Column& column) { return !column.unit.empty(); };
        if (std::any_of(table.columns.begin(), table.columns.end(), hasUnit))
            set->titles.push_back(SetTitles(context, table, true));
    }
    for (const Row& row : table.rows)
        set->rows.push_back(SetCells(context, table, row, decimalSign));
    SetColumns(*set, table, place);
    for (SetRow& row : set->titles)
        WrapRow(*set, row, true);
    for (SetRow& row : set->rows)
        WrapRow(*set, row, false);

    const std::size_t first = boxes.size();
    std::shared_ptr<const Box> titles;
    double available = place.pageHeight - 2.0 * style::kCellTop;
    if (table.showTitles) {
        titles = std::make_shared<const Box>(TitleBox(set));
        boxes.push_back(*titles);
        available -= titles->height;
    }
    for (std::size_t i = 0; i < set->rows.size(); ++i) {
        if (set->rows[i].total && boxes.size() > first)
            boxes.back().keepWithNext = true;
        auto parts = CutRow(set->rows[i], available);
        for (std::size_t part = 0; part < parts.size(); ++part) {
            boxes.push_back(RowBox(set, i, std::move(parts[part]), part + 1 == parts.size()));
            boxes.back().repeated = titles;
        }
    }
    if (boxes.size() > first)
        boxes[first].spaceBefore = style::kBlockGap;
}

}  // namespace report
