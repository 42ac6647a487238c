// SPDX-License-Identifier: MIT
#pragma once

/// A document as boxes. Internal to the writer.

#include "report/pages.h"
#include "report/text.h"

#include <memory>
#include <vector>

namespace report {

struct PageSize
{
    double width;
    double height;
};

PageSize SizeOf(PaperSize paper);

/// Where the sections begin; filled once the pages are known, read when the contents are drawn.
struct SectionPages
{
    std::vector<std::size_t> pages;  ///< counted from 1
};

/// Name of the place that links to a section lead to.
std::string SectionTarget(std::size_t section);

class Layout
{
public:
    /// `document` outlives the layout.
    explicit Layout(const Document& document);

    /// Whether the first section stands with the title.
    bool HasFrontSheet() const
    {
        return !m_document.sections.empty() && m_document.sections.front().isFrontSheet;
    }
    /// The title, the front sheet and, for several other sections, the contents, which take the page numbers
    /// from `pages`.
    void AddFront(const std::shared_ptr<const SectionPages>& pages);
    void AddSection(std::size_t index);
    std::vector<Box>& Boxes() { return m_boxes; }
    const TextContext& Context() const { return m_context; }

    double Left() const { return style::kMarginX; }
    double Width() const { return m_size.width - 2.0 * style::kMarginX; }
    double Top() const { return style::kBodyTop; }
    double Bottom() const { return m_size.height - style::kBodyBottom; }
    PageSize Size() const { return m_size; }

private:
    double Height() const { return Bottom() - Top(); }
    /// One box for each line, so that a page break falls between lines.
    void AddText(const std::string& text, const TextStyle& style, double spaceBefore, bool keepTogether);
    /// Says where the section may begin whose boxes are the last ones from `first`.
    void SetBeginning(std::size_t index, std::size_t first);
    void AddContentsLine(std::size_t index, const std::shared_ptr<const SectionPages>& pages);
    void AddBlock(const Heading& heading);
    void AddBlock(const Paragraph& paragraph);
    void AddBlock(const Table& table);
    void AddBlock(const Drawing& drawing);
    void AddBlock(const Figure& figure);
    void AddPicture(Box box, const std::string& caption);

    const Document& m_document;
    PageSize m_size;
    TextContext m_context;
    std::vector<Box> m_boxes;
};

}  // namespace report
