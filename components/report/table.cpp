// SPDX-License-Identifier: MIT
#include "report/table.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <string_view>

namespace report {
namespace {

constexpr double kRounding = 0.01;
/// Up to that height a table is not torn apart, points.
constexpr double kSmallTable = 130.0;
/// Fewer are not worth a head at the end of a page.
constexpr std::size_t kRowsBelowHead = 5;

/// A cell that is set; nothing for an empty one.
struct SetCell
{
    std::optional<Text> text;
    bool isNumber = false;
    double behindSign = 0.0;  ///< width of a number behind the decimal sign
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

/// Whether a text is one number, perhaps behind a mark: "× 0.95", "▼ 12", "1.2e+08"; no range and no word.
bool IsOneNumber(std::string_view text, const std::string& decimalSign)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    while (!text.empty() && !isDigit(text.front()) && !isLetter(text.front()))
        text.remove_prefix(1);
    bool hasSign = false;
    bool hasExponent = false;
    for (std::size_t i = 0; i < text.size();) {
        if (isDigit(text[i])) {
            ++i;
        } else if (!hasSign && !hasExponent && text.substr(i).starts_with(decimalSign)) {
            hasSign = true;
            i += decimalSign.size();
        } else if (!hasExponent && i > 0 && (text[i] == 'e' || text[i] == 'E')) {
            hasExponent = true;
            i += text.substr(i + 1).starts_with('+') || text.substr(i + 1).starts_with('-') ? 2 : 1;
        } else {
            return false;
        }
    }
    return !text.empty();
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
        row.cells[i].isNumber =
            table.columns[i].align == Align::Number && IsOneNumber(cell.text, decimalSign);
        if (row.cells[i].isNumber)
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
            widest =
                std::max(widest, cell.text->Width() + (cell.isNumber ? behindSign - cell.behindSign : 0.0));
    }
    return widest;
}

/// What of a table is not to be torn apart.
enum class Whole
{
    Words,
    WordsOfRows,
    Numbers
};

/// The width below which that would happen in a column.
double LeastWidth(const TextContext& context, const SetTable& set, const Table& table, std::size_t column,
                  Whole whole)
{
    double least = 0.0;
    const auto add = [&](const std::string& text, bool bold) {
        for (std::size_t begin = 0; begin < text.size();) {
            const std::size_t end = std::min(text.find_first_of(" \n", begin), text.size());
            if (end > begin)
                least =
                    std::max(least, Text(context, text.substr(begin, end - begin), {.bold = bold}).Width());
            begin = end + 1;
        }
    };
    if (table.showTitles && whole == Whole::Words)
        add(table.columns[column].title, true);
    for (std::size_t i = 0; i < set.rows.size(); ++i) {
        const SetCell& cell = set.rows[i].cells[column];
        if (cell.isNumber)
            least = std::max(least, cell.text->Width() + set.columns[column].behindSign - cell.behindSign);
        else if (cell.text && whole != Whole::Numbers)
            add(table.rows[i].cells[column].text, table.rows[i].total);
    }
    return least;
}

/// The least widths of all columns of a table that has not the room it wants: words are torn apart before
/// numbers, and those of titles first.
std::vector<double> LeastWidths(const TextContext& context, const SetTable& set, const Table& table,
                                std::span<const double> natural, double available)
{
    std::vector<double> least(natural.begin(), natural.end());
    for (const Whole whole : {Whole::Words, Whole::WordsOfRows, Whole::Numbers}) {
        if (std::accumulate(least.begin(), least.end(), 0.0) <= available)
            break;
        for (std::size_t i = 0; i < least.size(); ++i)
            least[i] = std::min(natural[i], LeastWidth(context, set, table, i, whole));
    }
    return least;
}

void SetColumns(const TextContext& context, SetTable& set, const Table& table, const TablePlace& place)
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
    const double available = std::max(0.0, place.width - gaps);
    const auto widths =
        ColumnWidths(natural, stretch, available, LeastWidths(context, set, table, natural, available));
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
        double reserve = cell.isNumber && !isTitle ? column.behindSign - cell.behindSign : 0.0;
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
    box.draw = [set, height = box.height](cairo_t* canvas, double top, double) {
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
    box.draw = [set, index, lines = std::move(part.lines), lastPart](cairo_t* canvas, double top,
                                                                     double height) {
        const SetRow& row = set->rows[index];
        if (row.total && (index == 0 || !set->rows[index - 1].total))
            DrawRule(canvas, *set, top, style::kThinRule, style::kInk);
        DrawCells(canvas, *set, row, lines, top + style::kCellTop);
        if (lastPart && !row.total)
            DrawRule(canvas, *set, top + height, style::kThinRule, style::kRule);
    };
    return box;
}

/// A small table is not torn apart, and of a large one some rows stand below its head and more than one at
/// the beginning of a page. The boxes from `first` are its own, its rows begin at `firstRow`.
void KeepRowsTogether(std::vector<Box>& boxes, std::size_t first, std::size_t firstRow)
{
    if (boxes.size() < firstRow + 2)
        return;
    double height = 0.0;
    for (std::size_t i = first; i < boxes.size(); ++i)
        height += boxes[i].height;
    const std::size_t lastButOne = boxes.size() - 2;
    for (std::size_t i = firstRow; i <= lastButOne; ++i) {
        if (height <= kSmallTable || i + 1 < firstRow + kRowsBelowHead || i == lastButOne)
            boxes[i].keepWithNext = true;
    }
}

}  // namespace

std::vector<double> ColumnWidths(std::span<const double> natural, std::span<const double> stretch,
                                 double available, std::span<const double> least)
{
    std::vector<double> widths(natural.begin(), natural.end());
    const double total = std::accumulate(widths.begin(), widths.end(), 0.0);
    const double shares = std::accumulate(stretch.begin(), stretch.end(), 0.0);
    if (total <= available) {
        for (std::size_t i = 0; shares > 0.0 && i < widths.size(); ++i)
            widths[i] += (available - total) * stretch[i] / shares;
        return widths;
    }
    // What must not be torn apart has its room before the others share what is left.
    const double needed = std::accumulate(least.begin(), least.end(), 0.0);
    if (needed > 0.0 && needed <= available) {
        std::vector<double> wanted;
        for (std::size_t i = 0; i < widths.size(); ++i)
            wanted.push_back(widths[i] - least[i]);
        widths = ColumnWidths(wanted, {}, available - needed, {});
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] += least[i];
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
    SetColumns(context, *set, table, place);
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
    KeepRowsTogether(boxes, first, first + (titles ? 1 : 0));
}

}  // namespace report
