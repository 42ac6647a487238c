// SPDX-License-Identifier: MIT
#pragma once

/// What a report says, apart from how it is laid out: sections of headings, paragraphs, tables and drawings.
///
/// Plain values that own their texts. All texts are UTF-8, in the reader's language and with numbers as the
/// reader writes them: the writer translates and formats nothing but page numbers. Lengths are in points
/// (1/72 inch).

#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// The drawing context of the graphics library, which only drawing callbacks need to know.
using ReportCanvas = struct _cairo;

namespace report {

enum class PaperSize
{
    A4,
    Letter
};

/// A heading within a section; it also appears in the outline and never stands alone at the end of a page.
struct Heading
{
    std::string text{};
};

/// Text that is wrapped to the width of the page. Line feeds begin new lines.
struct Paragraph
{
    std::string text{};
    bool small = false;  ///< a note
};

enum class Align
{
    Left,
    Right,
    Centre,
    Number  ///< on the decimal sign; what does not fit or is no single number is set to the right
};

struct Column
{
    std::string title{};
    std::string unit{};  ///< below the title
    Align align = Align::Left;
    double minWidth = 0.0;  ///< so that tables below each other have their columns below each other
    /// Share of what all columns leave over; 0 keeps a column as narrow as its contents.
    double stretch = 0.0;
};

struct Cell
{
    std::string text{};
    bool alarm = false;  ///< in the colour of what is out of range
};

struct Row
{
    std::vector<Cell> cells{};  ///< missing ones are empty
    bool total = false;         ///< bold, below a rule, together with the row before it
};

/// Rows are not torn apart (unless one is higher than a page); after a page break the titles are repeated.
struct Table
{
    std::vector<Column> columns{};
    std::vector<Row> rows{};
    bool showTitles = true;
};

/// A drawing given as SVG text. Files and addresses that it refers to are not read. Scaled down to the page
/// where it is too large; a size of 0 is the drawing's own.
struct Drawing
{
    std::string svg{};
    std::string caption{};
    double width = 0.0;
    double height = 0.0;
};

/// Something that draws itself into a rectangle with its corner at (0, 0), for example a chart.
struct Figure
{
    std::function<void(ReportCanvas* canvas, double width, double height)> draw{};
    std::string caption{};
    double width = 0.0;  ///< 0: as wide as the text
    double height = 200.0;
    /// So low it may become where it then stands on the page of what it belongs to; 0: not lower.
    double leastHeight = 0.0;
};

using Block = std::variant<Heading, Paragraph, Table, Drawing, Figure>;

/// A chapter, in the outline and the contents. It begins below the one before it where a page has room for
/// its title and some of what follows; behind the contents of the first page it begins on a new one.
struct Section
{
    std::string title{};
    std::vector<Block> blocks{};
    /// The first section: on the first page, above the contents, which leave it out.
    bool isFrontSheet = false;
    /// It begins below the contents, too, where all of it has room there.
    bool joins = false;
};

struct Document
{
    std::string title{};
    std::string subtitle{};
    std::string headerLeft{};   ///< on every page, the project say
    std::string headerRight{};  ///< on every page, the date say
    std::string footer{};       ///< on every page, beside the page number
    std::vector<Section> sections{};

    std::string author{};
    std::string creator{};  ///< the program
    std::optional<std::time_t> created;

    PaperSize paper = PaperSize::A4;
    std::string decimalSign = ".";
    std::string pageLabel = "Page {page} of {pages}";
    std::string contentsTitle = "Contents";  ///< the list is there when there are several sections
};

}  // namespace report
