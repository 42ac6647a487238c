// SPDX-License-Identifier: MIT
#include "gui_base/graphics/svg/svg_renderer.h"

#include "gui_base/graphics/svg/svg_fit.h"
#include "gui_base/graphics/svg/svg_raster.h"
#include "gui_base/support/drawing_sheet.h"
#include "gui_base/support/translation.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace {

/// Beyond these numbers the graphics library gives up the whole drawing.
constexpr double kMostExtent = 1.0e6;

wxSize SizeOf(const SvgParserBase::ParserResult* result)
{
    return result != nullptr && result->bitmap.IsOk() ? result->bitmap.GetSize() : wxSize(0, 0);
}

bool IsMeasure(double length)
{
    return length > 0.0 && length < kMostExtent;
}

bool CanDraw(const SvgParserBase::Element& element)
{
    if (!svg::IsUsable(element.transform) || std::abs(element.x) > kMostExtent ||
        std::abs(element.y) > kMostExtent)
        return false;
    const auto* const image = dynamic_cast<const SvgParserBase::ImageElement*>(&element);
    return image == nullptr || (image->image.IsOk() && IsMeasure(image->width) && IsMeasure(image->height));
}

}  // namespace

template <typename LoadPolicy>
SvgRenderer<LoadPolicy>::SvgRenderer(const SvgGraphicInfo<LoadPolicy>& info,
                                     const std::unique_ptr<SvgParserBase>& parser)
    : m_parser(parser)
{
    SetGraphic(info);
}

template <typename LoadPolicy>
SvgRenderer<LoadPolicy>::~SvgRenderer() = default;

template <typename LoadPolicy>
void SvgRenderer<LoadPolicy>::SetGraphic(const SvgGraphicInfo<LoadPolicy>& info)
{
    m_items.clear();
    m_shapes = {};
    m_background = {};
    m_info = std::make_unique<SvgGraphicInfo<LoadPolicy>>(info);
    ParseInfo();
}

template <typename LoadPolicy>
void SvgRenderer<LoadPolicy>::ParseInfo()
{
    std::fputs("SvgRenderer: ParseXML called \n", stdout);
    // A parser that throws has dropped its former result.
    m_result = nullptr;
    if (m_parser == nullptr || m_info == nullptr)
        return;
    m_result = m_parser->ParseXml(&m_info->document);
    m_parsedBy = m_parser.get();
    if (m_result != nullptr)
        CollectItems();
}

template <typename LoadPolicy>
void SvgRenderer<LoadPolicy>::CollectItems()
{
    for (const auto& element : m_result->elements) {
        if (!CanDraw(*element))
            continue;
        const auto shows = [&](const auto& mapping) {
            return mapping != nullptr && mapping->GetId() == element->id;
        };
        const auto mapping = std::ranges::find_if(m_info->mappings, shows);
        const bool isValue = element->kind == SvgParserBase::kText && mapping != m_info->mappings.end();
        m_items.push_back({.element = element.get(), .mapping = isValue ? mapping->get() : nullptr});
    }
}

template <typename LoadPolicy>
SvgParserBase::ParserResult* SvgRenderer<LoadPolicy>::Result() const
{
    return m_parser.get() == m_parsedBy ? m_result : nullptr;
}

template <typename LoadPolicy>
void SvgRenderer<LoadPolicy>::SetUnitsystem(const wxString& unitsystem) const
{
    if (m_info != nullptr)
        m_info->unitsystem = unitsystem;
}

template <typename LoadPolicy>
void SvgRenderer<LoadPolicy>::SetSize(double width, double height)
{
    const wxSize own = SizeOf(Result());
    m_scale = 1.0;
    if (own.x <= 0 || own.y <= 0 || width < 0.0 || height < 0.0)
        return;
    if (const double scale = std::min(width / own.x, height / own.y); scale > 0.0)
        m_scale = scale;
}

template <typename LoadPolicy>
void SvgRenderer<LoadPolicy>::SetSheet(const wxColour& sheet)
{
    m_sheet = sheet;
    m_background = {};
}

template <typename LoadPolicy>
double SvgRenderer<LoadPolicy>::GetScaledWidth() const
{
    return SizeOf(Result()).x * m_scale;
}

template <typename LoadPolicy>
double SvgRenderer<LoadPolicy>::GetScaledHeight() const
{
    return SizeOf(Result()).y * m_scale;
}

template <typename LoadPolicy>
wxSize SvgRenderer<LoadPolicy>::GetDrawableMinSize() const
{
    return SizeOf(Result());
}

template <typename LoadPolicy>
wxSize SvgRenderer<LoadPolicy>::DrawOnContext(wxGraphicsContext* context)
{
    if (context == nullptr || m_info == nullptr || Result() == nullptr)
        return {0, 0};
    m_context = context;
    context->PushState();
    DrawBackground(*context);
    DrawItems(*context);
    context->PopState();
    m_context = nullptr;
    return SizeOf(Result());
}

template <typename LoadPolicy>
void SvgRenderer<LoadPolicy>::DrawBackground(wxGraphicsContext& context)
{
    const wxSize own = SizeOf(Result());
    if (own.x == 0)
        return;
    const double largest = std::max(own.x, own.y) * m_scale;
    if (largest > kMostExtent)
        return;
    const wxSize scaled(wxRound(own.x * m_scale), wxRound(own.y * m_scale));
    // A screen may have several pixels where the toolkit counts one.
    const double factor = context.GetContentScaleFactor();
    const wxSize pixels(wxRound(scaled.x * factor), wxRound(scaled.y * factor));
    if (m_background.IsNull() || m_pixels != pixels) {
        m_pixels = pixels;
        // Beyond the largest picture lines become coarse.
        const wxBitmap picture = pixels == own ? m_result->bitmap : EnlargedShapes(pixels);
        m_background =
            context.GetRenderer()->CreateBitmap(OnSheet(picture.IsOk() ? picture : m_result->bitmap));
    }
    context.DrawBitmap(m_background, 0.0, 0.0, scaled.x, scaled.y);
}

template <typename LoadPolicy>
wxBitmap SvgRenderer<LoadPolicy>::OnSheet(const wxBitmap& shapes) const
{
    if (!m_sheet.IsOk())
        return shapes;
    wxImage turned = shapes.ConvertToImage();
    drawing_sheet::TurnTo(m_sheet, turned);
    return turned;
}

template <typename LoadPolicy>
wxBitmap SvgRenderer<LoadPolicy>::EnlargedShapes(const wxSize& pixels)
{
    if (!m_shapes.IsOk())
        m_shapes = svg::ShapesOf(m_info->document);
    return svg::RasteriseIn(m_shapes, pixels);
}

template <typename LoadPolicy>
std::optional<wxAffineMatrix2D> SvgRenderer<LoadPolicy>::FromDocument() const
{
    const SvgParserBase::ParserResult* const result = Result();
    return result != nullptr ? svg::FitDocument(*result, SizeOf(result), m_scale) : std::nullopt;
}

template <typename LoadPolicy>
void SvgRenderer<LoadPolicy>::DrawItems(wxGraphicsContext& context)
{
    const auto fromDocument = FromDocument();
    if (!fromDocument)
        return;
    wxRect2DDouble clip;
    context.GetClipBox(&clip.m_x, &clip.m_y, &clip.m_width, &clip.m_height);
    for (Item& item : m_items) {
        if (item.isMeasured && !BoxOf(item, *fromDocument).Intersects(clip))
            continue;
        context.PushState();
        context.ConcatTransform(context.CreateMatrix(*fromDocument));
        context.ConcatTransform(context.CreateMatrix(item.element->transform));
        DrawItem(item, context);
        context.PopState();
    }
}

template <typename LoadPolicy>
void SvgRenderer<LoadPolicy>::DrawItem(Item& item, wxGraphicsContext& context) const
{
    const SvgParserBase::Element& element = *item.element;
    if (const auto* const image = dynamic_cast<const SvgParserBase::ImageElement*>(&element)) {
        if (item.picture.IsNull())
            item.picture = context.GetRenderer()->CreateBitmap(wxBitmap(image->image, -1, 1.0));
        context.PushState();
        context.Translate(element.x, element.y);
        context.DrawBitmap(item.picture, 0.0, 0.0, image->width, image->height);
        context.PopState();
        return;
    }
    Measure(item, context);
    if (!item.text.empty())
        context.DrawText(item.text, element.x, element.y);
}

template <typename LoadPolicy>
wxString SvgRenderer<LoadPolicy>::ChooseText(const Item& item) const
{
    if (m_info == nullptr)
        return "Value not found!";
    return item.mapping != nullptr ? item.mapping->GetText(m_info->unitsystem) : item.element->text;
}

template <typename LoadPolicy>
bool SvgRenderer<LoadPolicy>::Measure(Item& item, wxGraphicsContext& context) const
{
    const auto& element = dynamic_cast<const SvgParserBase::TextElement&>(*item.element);
    context.SetFont(element.font,
                    drawing_sheet::InkOn(m_sheet, element.fill.IsOk() ? element.fill : *wxBLACK));
    const wxString source = ChooseText(item);
    // A line that no screen holds is not worth its time.
    constexpr std::size_t kMostLetters = 1000;
    const wxString text = source.empty() ? source : i18n::Translated(source.Left(kMostLetters));
    if (item.isMeasured && text == item.text)
        return false;
    item.text = text;
    item.isMeasured = true;
    context.GetTextExtent(text.empty() ? wxString("0") : text, &item.width, &item.height);
    return true;
}

template <typename LoadPolicy>
wxRect2DDouble SvgRenderer<LoadPolicy>::BoxOf(const Item& item, const wxAffineMatrix2D& fromDocument)
{
    const SvgParserBase::Element& element = *item.element;
    wxAffineMatrix2D matrix = fromDocument;
    matrix.Concat(element.transform);
    return svg::TransformedBox({element.x, element.y, item.width, item.height}, matrix);
}

template <typename LoadPolicy>
std::vector<SvgShownValue> SvgRenderer<LoadPolicy>::GetShownValues()
{
    std::vector<SvgShownValue> values;
    const auto fromDocument = FromDocument();
    if (!fromDocument)
        return values;
    std::unique_ptr<wxGraphicsContext> context;
    for (Item& item : m_items) {
        if (item.mapping == nullptr)
            continue;
        if (!item.isMeasured) {
            if (context == nullptr)
                context.reset(wxGraphicsContext::Create());
            Measure(item, *context);
        }
        values.push_back({item.mapping, item.text, BoxOf(item, *fromDocument)});
    }
    return values;
}

template <typename LoadPolicy>
std::vector<wxRect2DDouble> SvgRenderer<LoadPolicy>::UpdateValues()
{
    std::vector<wxRect2DDouble> changed;
    const auto fromDocument = FromDocument();
    if (!fromDocument)
        return changed;
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create());
    for (Item& item : m_items) {
        if (item.mapping == nullptr)
            continue;
        const bool wasShown = item.isMeasured;
        const wxRect2DDouble before = BoxOf(item, *fromDocument);
        if (!Measure(item, *context))
            continue;
        wxRect2DDouble box = BoxOf(item, *fromDocument);
        if (wasShown)
            box.Union(before);
        changed.push_back(box);
    }
    return changed;
}

template class SvgRenderer<FileLoadPolicy>;
template class SvgRenderer<ArchiveLoadPolicy>;
