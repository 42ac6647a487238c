// SPDX-License-Identifier: MIT
#include "report/pdf_writer.h"

#include "report/layout.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <cairo-pdf.h>

namespace report {
namespace {

/// Share of the whole work that is done when all boxes are measured.
constexpr double kMeasured = 0.5;
constexpr double kFooterGap = 16.0;

void Check(cairo_status_t status)
{
    if (status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error(fmt::format("report::WritePdf: {}", cairo_status_to_string(status)));
}

/// Nothing may be thrown through the graphics library.
cairo_status_t Append(void* bytes, const unsigned char* data, unsigned length) noexcept
try {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
} catch (...) {
    return CAIRO_STATUS_WRITE_ERROR;
}

std::string Replaced(std::string text, std::string_view placeholder, std::size_t number)
{
    const auto at = text.find(placeholder);
    return at == std::string::npos ? text : text.replace(at, placeholder.size(), std::to_string(number));
}

class Writer
{
public:
    Writer(const Document& document, const Progress& progress)
        : m_document(document), m_progress(progress), m_layout(document)
    {}

    std::string Write()
    {
        Measure();
        const PageSize size = m_layout.Size();
        std::string bytes;
        const Surface surface(cairo_pdf_surface_create_for_stream(&Append, &bytes, size.width, size.height),
                              cairo_surface_destroy);
        cairo_pdf_surface_restrict_to_version(surface.get(), CAIRO_PDF_VERSION_1_5);
        SetMetadata(surface.get());
        const Canvas canvas(cairo_create(surface.get()), cairo_destroy);
        for (std::size_t i = 0; i < m_pages.size(); ++i) {
            Report(kMeasured +
                   (1.0 - kMeasured) * static_cast<double>(i) / static_cast<double>(m_pages.size()));
            DrawPage(surface.get(), canvas.get(), i);
            Check(cairo_status(canvas.get()));
        }
        cairo_surface_finish(surface.get());
        Check(cairo_surface_status(surface.get()));
        Report(1.0);
        return bytes;
    }

private:
    using Surface = std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)>;
    using Canvas = std::unique_ptr<cairo_t, void (*)(cairo_t*)>;

    void Report(double done) const
    {
        if (m_progress && !m_progress(done))
            throw Cancelled();
    }

    void Measure()
    {
        const auto sections = std::make_shared<SectionPages>();
        m_layout.AddFront(sections);
        for (std::size_t i = m_layout.HasFrontSheet() ? 1 : 0; i < m_document.sections.size(); ++i) {
            Report(kMeasured * static_cast<double>(i) / static_cast<double>(m_document.sections.size()));
            m_layout.AddSection(i);
        }
        m_pages = BreakIntoPages(m_layout.Boxes(), m_layout.Top(), m_layout.Bottom());
        for (std::size_t page = 0; page < m_pages.size(); ++page) {
            for (const PlacedBox& placed : m_pages[page]) {
                if (placed.box->outlineLevel == 1)
                    sections->pages.push_back(page + 1);
            }
        }
    }

    void SetMetadata(cairo_surface_t* surface) const
    {
        const auto set = [surface](cairo_pdf_metadata_t key, const std::string& text) {
            if (!text.empty())
                cairo_pdf_surface_set_metadata(surface, key, CleanUtf8(text).c_str());
        };
        set(CAIRO_PDF_METADATA_TITLE, m_document.title);
        set(CAIRO_PDF_METADATA_SUBJECT, m_document.subtitle);
        set(CAIRO_PDF_METADATA_AUTHOR, m_document.author);
        set(CAIRO_PDF_METADATA_CREATOR, m_document.creator);
        if (m_document.created)
            set(CAIRO_PDF_METADATA_CREATE_DATE,
                fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", fmt::gmtime(*m_document.created)));
    }

    void DrawPage(cairo_surface_t* surface, cairo_t* canvas, std::size_t index)
    {
        DrawFrame(canvas, index);
        for (const PlacedBox& placed : m_pages[index]) {
            if (placed.box->outlineLevel > 0)
                AddOutline(surface, canvas, *placed.box);
            placed.box->draw(canvas, placed.top, placed.height);
        }
        cairo_show_page(canvas);
    }

    /// An entry of the outline with the place that it leads to.
    void AddOutline(cairo_surface_t* surface, cairo_t* canvas, const Box& box)
    {
        const bool isSection = box.outlineLevel == 1;
        const std::string target =
            isSection ? SectionTarget(m_sectionsDrawn++) : fmt::format("heading{}", m_headingsDrawn++);
        cairo_tag_begin(canvas, CAIRO_TAG_DEST, fmt::format("name='{}'", target).c_str());
        cairo_tag_end(canvas, CAIRO_TAG_DEST);
        const int entry = cairo_pdf_surface_add_outline(
            surface, isSection ? CAIRO_PDF_OUTLINE_ROOT : m_sectionEntry, CleanUtf8(box.title).c_str(),
            fmt::format("dest='{}'", target).c_str(), CAIRO_PDF_OUTLINE_FLAG_OPEN);
        if (isSection)
            m_sectionEntry = entry;
    }

    void DrawRule(cairo_t* canvas, double y) const
    {
        cairo_set_source_rgb(canvas, style::kRule.red, style::kRule.green, style::kRule.blue);
        cairo_set_line_width(canvas, style::kThinRule);
        cairo_move_to(canvas, m_layout.Left(), y);
        cairo_line_to(canvas, m_layout.Left() + m_layout.Width(), y);
        cairo_stroke(canvas);
    }

    /// Two texts on one line; the left one is cut where it would meet the right one.
    void DrawPair(cairo_t* canvas, const std::string& left, const std::string& right, double y) const
    {
        const TextStyle style{.size = style::kSmallSize, .colour = style::kMuted};
        Text rightText(m_layout.Context(), right, style);
        const double edge = m_layout.Left() + m_layout.Width();
        rightText.Draw(canvas, edge - rightText.Width(), y, 0, 1);
        Text leftText(m_layout.Context(), left, style);
        leftText.Shorten(m_layout.Width() - rightText.Width() - kFooterGap);
        leftText.Draw(canvas, m_layout.Left(), y, 0, 1);
    }

    void DrawFrame(cairo_t* canvas, std::size_t index) const
    {
        DrawPair(canvas, m_document.headerLeft, m_document.headerRight, style::kHeaderLine);
        DrawRule(canvas, style::kHeaderLine + 1.8 * style::kSmallSize);
        const double footer = m_layout.Size().height - style::kFooterLine;
        DrawRule(canvas, footer - style::kSmallSize);
        const std::string label =
            Replaced(Replaced(m_document.pageLabel, "{page}", index + 1), "{pages}", m_pages.size());
        DrawPair(canvas, m_document.footer, label, footer);
    }

    const Document& m_document;
    const Progress& m_progress;
    Layout m_layout;
    std::vector<Page> m_pages;
    std::size_t m_sectionsDrawn = 0;
    std::size_t m_headingsDrawn = 0;
    int m_sectionEntry = CAIRO_PDF_OUTLINE_ROOT;
};

}  // namespace

Cancelled::Cancelled() : std::runtime_error("report::WritePdf: cancelled") {}

Cancelled::~Cancelled() = default;

std::string WritePdf(const Document& document, const Progress& progress)
{
    return Writer(document, progress).Write();
}

}  // namespace report
