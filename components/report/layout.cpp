// SPDX-License-Identifier: MIT
#include "report/layout.h"

#include "report/drawing.h"
#include "report/table.h"

#include <fmt/format.h>

#include <algorithm>

namespace report {
namespace {

constexpr double kCaptionRoom = 24.0;
constexpr double kContentsIndent = 10.0;
/// With more sections than this the contents have a page of their own.
constexpr std::size_t kContentsBesideText = 12;
/// A section begins below the one before it where that much is left of a page: its title, a heading and some
/// rows.
constexpr double kRoomToBegin = 140.0;

void SetColour(cairo_t* canvas, const style::Colour& colour)
{
    cairo_set_source_rgb(canvas, colour.red, colour.green, colour.blue);
}

}  // namespace

PageSize SizeOf(PaperSize paper)
{
    return paper == PaperSize::Letter ? PageSize{612.0, 792.0} : PageSize{595.276, 841.890};
}

std::string SectionTarget(std::size_t section)
{
    return fmt::format("section{}", section);
}

Layout::Layout(const Document& document) : m_document(document), m_size(SizeOf(document.paper)) {}

void Layout::AddFront(const std::shared_ptr<const SectionPages>& pages)
{
    if (!m_document.title.empty())
        AddText(m_document.title, {.size = style::kTitleSize, .bold = true, .colour = style::kAccent}, 0.0,
                true);
    if (!m_document.subtitle.empty())
        AddText(m_document.subtitle, {.size = style::kHeadingSize, .colour = style::kMuted}, 4.0, true);
    const std::size_t first = HasFrontSheet() ? 1 : 0;
    if (first > 0)
        AddSection(0);
    if (m_document.sections.size() < 2)
        return;
    AddText(m_document.contentsTitle, {.size = style::kHeadingSize, .bold = true}, style::kHeadingGap, true);
    m_boxes.back().keepWithNext = true;
    for (std::size_t i = first; i < m_document.sections.size(); ++i)
        AddContentsLine(i, pages);
}

void Layout::AddContentsLine(std::size_t index, const std::shared_ptr<const SectionPages>& pages)
{
    const double left = Left() + kContentsIndent;
    const double right = Left() + Width();
    auto text = std::make_shared<Text>(m_context, m_document.sections[index].title, TextStyle{});
    const double room = m_context.WidthOf("0000 ");
    text->Wrap(right - left - room, PANGO_ALIGN_LEFT);
    Box box;
    box.height = text->Height() + 2.0 * style::kCellTop;
    box.draw = [this, text, pages, index, left, right, height = box.height](cairo_t* canvas, double top,
                                                                            double) {
        const std::string link = fmt::format("dest='{}'", SectionTarget(index));
        cairo_tag_begin(canvas, CAIRO_TAG_LINK, link.c_str());
        text->Draw(canvas, left, top + style::kCellTop);
        Text number(m_context, fmt::format("{}", pages->pages.at(index)), TextStyle{});
        number.Draw(canvas, right - number.Width(), top + style::kCellTop);
        cairo_tag_end(canvas, CAIRO_TAG_LINK);
        SetColour(canvas, style::kRule);
        cairo_set_line_width(canvas, style::kThinRule);
        cairo_move_to(canvas, left, top + height);
        cairo_line_to(canvas, right, top + height);
        cairo_stroke(canvas);
    };
    m_boxes.push_back(std::move(box));
}

void Layout::AddSection(std::size_t index)
{
    const Section& section = m_document.sections[index];
    const std::size_t first = m_boxes.size();
    AddText(section.title, {.size = style::kSectionSize, .bold = true, .colour = style::kAccent},
            2.0 * style::kHeadingGap, true);
    m_boxes.back().keepWithNext = true;
    m_boxes[first].outlineLevel = 1;
    m_boxes[first].title = section.title;
    for (std::size_t i = 0; i < section.blocks.size(); ++i) {
        std::visit([this](const auto& content) { AddBlock(content); }, section.blocks[i]);
        // A note stands on the page of what it belongs to, which makes room for it.
        const auto* figure = std::get_if<Figure>(&section.blocks[i]);
        const auto* note =
            i + 1 < section.blocks.size() ? std::get_if<Paragraph>(&section.blocks[i + 1]) : nullptr;
        if (figure != nullptr && figure->leastHeight > 0.0 && note != nullptr && note->small)
            m_boxes.back().keepWithNext = true;
    }
    // What the last block would keep together with does not exist.
    m_boxes.back().keepWithNext = false;
    SetBeginning(index, first);
}

void Layout::SetBeginning(std::size_t index, std::size_t first)
{
    Box& title = m_boxes[first];
    double whole = 0.0;
    for (std::size_t i = first; i < m_boxes.size(); ++i)
        whole += m_boxes[i].height + (i > first ? m_boxes[i].spaceBefore : 0.0);
    if (index > (HasFrontSheet() ? 1U : 0U)) {
        title.startsPage = true;
        title.roomToJoin = std::min(whole, kRoomToBegin);
    } else if (index > 0 || (!HasFrontSheet() && m_document.sections.size() > kContentsBesideText)) {
        // The first page is that of the contents.
        title.startsPage = true;
        title.roomToJoin = m_document.sections[index].joins ? whole : 0.0;
    }
}

void Layout::AddText(const std::string& text, const TextStyle& style, double spaceBefore, bool keepTogether)
{
    auto set = std::make_shared<Text>(m_context, text, style);
    set->Wrap(Width(), PANGO_ALIGN_LEFT);
    const std::size_t count = set->LineCount();
    for (std::size_t i = 0; i < count; ++i) {
        Box box;
        box.height = set->LineHeight(i);
        box.spaceBefore = i == 0 ? spaceBefore : 0.0;
        // No single line of a paragraph at the end or the beginning of a page.
        box.keepWithNext = i + 1 < count && (keepTogether || i == 0 || i + 2 == count);
        box.draw = [set, i, left = Left()](cairo_t* canvas, double top, double) {
            set->Draw(canvas, left, top, i, i + 1);
        };
        m_boxes.push_back(std::move(box));
    }
}

void Layout::AddBlock(const Heading& heading)
{
    const std::size_t first = m_boxes.size();
    AddText(heading.text, {.size = style::kHeadingSize, .bold = true}, style::kHeadingGap, true);
    m_boxes[first].outlineLevel = 2;
    m_boxes[first].title = heading.text;
    m_boxes.back().keepWithNext = true;
}

void Layout::AddBlock(const Paragraph& paragraph)
{
    const TextStyle style =
        paragraph.small ? TextStyle{.size = style::kSmallSize, .colour = style::kMuted} : TextStyle{};
    AddText(paragraph.text, style, style::kBlockGap, false);
}

void Layout::AddBlock(const Table& table)
{
    if (!table.columns.empty())
        AddTable(m_context, table, {.left = Left(), .width = Width(), .pageHeight = Height()},
                 m_document.decimalSign, m_boxes);
}

void Layout::AddBlock(const Drawing& drawing)
{
    AddPicture(DrawingBox(drawing, Left(), Width(), Height() - kCaptionRoom), drawing.caption);
}

void Layout::AddBlock(const Figure& figure)
{
    AddPicture(FigureBox(figure, Left(), Width(), Height() - kCaptionRoom), figure.caption);
}

void Layout::AddPicture(Box box, const std::string& caption)
{
    box.spaceBefore = style::kBlockGap;
    box.keepWithNext = !caption.empty();
    m_boxes.push_back(std::move(box));
    if (!caption.empty())
        AddText(caption, {.size = style::kSmallSize, .colour = style::kMuted}, style::kCellTop, true);
}

}  // namespace report
