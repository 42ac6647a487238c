// SPDX-License-Identifier: MIT
#include "gui_base/graphics/svg/svg_parser.h"

#include "gui_base/graphics/svg/svg_raster.h"
#include "tncommon/printable_text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

namespace {

/// Made once: a text becomes a wxString at some cost.
namespace names {
const wxString kBold("bold");
const wxString kClass("class");
const wxString kFill("fill");
const wxString kFontFamily("font-family");
const wxString kFontSize("font-size");
const wxString kFontStyle("font-style");
const wxString kFontWeight("font-weight");
const wxString kHeight("height");
const wxString kId("id");
const wxString kImage("image");
const wxString kItalic("italic");
const wxString kLineThrough("line-through");
const wxString kPreserveAspectRatio("preserveAspectRatio");
const wxString kStyle("style");
const wxString kText("text");
const wxString kTextDecoration("text-decoration");
const wxString kTransform("transform");
const wxString kTspan("tspan");
const wxString kUnderlined("underlined");
const wxString kViewBox("viewBox");
const wxString kWidth("width");
const wxString kX("x");
const wxString kXlinkHref("xlink:href");
const wxString kY("y");
}  // namespace names

void Trace(const char* line)
{
    std::fputs(line, stdout);
}

void Trace(const char* line, const wxString& value)
{
    const std::string text = line + tncommon::PrintableText(value.utf8_string()) + "\n";
    Trace(text.c_str());
}

wxString ValueOf(const svg::Declarations& declarations, const wxString& name)
{
    const auto found = declarations.find(name);
    return found == declarations.end() ? wxString() : found->second;
}

void FillPlace(const wxXmlNode& node, SvgParserBase::Element& element)
{
    element.id = node.GetAttribute(names::kId);
    element.x = svg::ToNumber(node.GetAttribute(names::kX));
    element.y = svg::ToNumber(node.GetAttribute(names::kY));
}

/// The first text on the chain of first children.
wxString FirstText(const wxXmlNode& node)
{
    for (const wxXmlNode* at = &node; at != nullptr; at = svg::FirstChild(*at)) {
        if (!at->GetContent().empty())
            return at->GetContent();
    }
    return {};
}

/// What the spans on the chain of first children say: their place and, the deeper the stronger, their style.
void ApplySpans(const wxXmlNode& node, SvgParserBase::TextElement& element)
{
    for (const wxXmlNode* at = &node; at != nullptr; at = svg::FirstChild(*at)) {
        if (at->GetName() != names::kTspan)
            continue;
        if (at->HasAttribute(names::kX) && at->HasAttribute(names::kY)) {
            element.x = svg::ToNumber(at->GetAttribute(names::kX));
            element.y = svg::ToNumber(at->GetAttribute(names::kY));
        }
        for (const auto& [name, value] : svg::ParseDeclarations(at->GetAttribute(names::kStyle)))
            element.style[name] = value;
    }
}

}  // namespace

SvgParser::SvgParser()
    : m_pixelsOfUnit{{"", 1.0},    {"px", 1.0},       {"mm", 3.7795}, {"cm", 37.795},
                     {"in", 96.0}, {"pt", 4.0 / 3.0}, {"pc", 16.0}},
      m_pointsOfUnit{{"", 0.75},      {"pt", 1.0},     {"px", 0.75},  {"mm", 2.8353},
                     {"cm", 28.3527}, {"in", 72.0159}, {"pc", 0.9952}},
      m_fontFamilies{{"", wxFONTFAMILY_DEFAULT},
                     {"Arial", wxFONTFAMILY_DEFAULT},
                     {"serif", wxFONTFAMILY_ROMAN},
                     {"sans-serif", wxFONTFAMILY_SWISS},
                     {"monospace", wxFONTFAMILY_TELETYPE}},
      m_alignments{{{"none", Align::None},
                    {"xMinYMin", Align::XMinYMin},
                    {"xMidYMin", Align::XMidYMin},
                    {"xMaxYMin", Align::XMaxYMin},
                    {"xMinYMid", Align::XMinYMid},
                    {"xMidYMid", Align::XMidYMid},
                    {"xMaxYMid", Align::XMaxYMid},
                    {"xMinYMax", Align::XMinYMax},
                    {"xMidYMax", Align::XMidYMax},
                    {"xMaxYMax", Align::XMaxYMax}},
                   {{"meet", MeetOrSlice::Meet}, {"slice", MeetOrSlice::Slice}}}
{}

SvgParser::~SvgParser() = default;

SvgParserBase::ParserResult* SvgParser::DoParseXml(wxXmlDocument* document)
{
    Trace("SvgParser::DoParseXml called \n");
    m_document = document;
    m_result = std::make_unique<ParserResult>();
    m_styleSheet.clear();
    m_transforms.clear();
    m_fonts.clear();
    const wxXmlNode* const root = document != nullptr ? document->GetRoot() : nullptr;
    if (root == nullptr)
        return m_result.get();
    ReadStyleSheets(*root);
    ReadViewport(*root);
    ParseXMLForElementsToDraw(*root);
    if (const wxSize size = DocumentSize(*root); size.x > 0 && size.y > 0)
        m_result->bitmap = svg::RasteriseIn(svg::ShapesOf(*document), size);
    return m_result.get();
}

void SvgParser::ReadStyleSheets(const wxXmlNode& root)
{
    for (const wxXmlNode* node = &root; node != nullptr; node = svg::NextInOrder(*node, root)) {
        // Each sheet takes the place of the one before it.
        if (node->GetName() == names::kStyle)
            m_styleSheet = svg::ParseStyleSheet(svg::TextOf(*node));
    }
}

void SvgParser::ReadViewport(const wxXmlNode& root)
{
    const wxString ratio = root.GetAttribute(names::kPreserveAspectRatio);
    if (!ratio.empty()) {
        m_result->align = svg::LookUp(m_alignments.first, ratio.BeforeFirst(' '));
        m_result->meetOrSlice =
            svg::LookUp(m_alignments.second, ratio.Contains(" ") ? ratio.AfterFirst(' ') : ratio);
    }
    const std::vector<double> box = svg::ToNumbers(root.GetAttribute(names::kViewBox));
    if (box.size() >= 4)
        m_result->viewBox = ViewBox{box[0], box[1], box[2], box[3]};
}

void SvgParser::ParseXMLForElementsToDraw(const wxXmlNode& root)
{
    m_result->elements.clear();
    double pixelsLeft = svg::kMostPixels;
    const wxXmlNode* node = root.GetChildren();
    for (; node != nullptr; node = svg::NextInOrder(*node, root)) {
        if (node->GetType() != wxXML_ELEMENT_NODE)
            continue;
        if (node->GetName() == names::kText) {
            Trace("SvgParser::ParseXMLForElementsToDraw creating text element\n");
            m_result->elements.push_back(MakeText(*node));
        } else if (node->GetName() == names::kImage) {
            Trace("SvgParser::ParseXMLForElementsToDraw creating image element\n");
            m_result->elements.push_back(MakeImage(*node, pixelsLeft));
        }
    }
}

std::unique_ptr<SvgParserBase::TextElement> SvgParser::MakeText(const wxXmlNode& node)
{
    auto element = std::make_unique<TextElement>();
    element->kind = kText;
    FillPlace(node, *element);
    element->text = FirstText(node);
    element->style = svg::ParseDeclarations(node.GetAttribute(names::kStyle));
    element->transform = CumulativeTransform(node);
    const wxString name = node.GetAttribute(names::kClass);
    if (const auto found = m_styleSheet.find(name); !name.empty() && found != m_styleSheet.end())
        element->style.insert(found->second.begin(), found->second.end());
    ApplySpans(node, *element);
    SetFontStylesOnTextElement(*element);
    element->fill = svg::ParseColour(ValueOf(element->style, names::kFill));
    return element;
}

std::unique_ptr<SvgParserBase::ImageElement> SvgParser::MakeImage(const wxXmlNode& node, double& pixelsLeft)
{
    auto element = std::make_unique<ImageElement>();
    element->kind = kImage;
    FillPlace(node, *element);
    element->transform = CumulativeTransform(node);
    element->width = svg::ToNumber(node.GetAttribute(names::kWidth));
    element->height = svg::ToNumber(node.GetAttribute(names::kHeight));
    element->image = svg::ParsePngReference(node.GetAttribute(names::kXlinkHref), pixelsLeft);
    if (element->image.IsOk())
        pixelsLeft -= static_cast<double>(element->image.GetWidth()) * element->image.GetHeight();
    return element;
}

Affine2DMatrix SvgParser::CumulativeTransform(const wxXmlNode& node)
{
    // Many elements share the groups above them.
    std::vector<const wxXmlNode*> unknown;
    const wxXmlNode* at = &node;
    for (; at != m_document->GetRoot() && !m_transforms.contains(at); at = at->GetParent())
        unknown.push_back(at);
    Affine2DMatrix matrix;
    if (const auto known = m_transforms.find(at); known != m_transforms.end())
        matrix = known->second;
    std::for_each(unknown.rbegin(), unknown.rend(), [&](const wxXmlNode* each) {
        if (const wxString function = each->GetAttribute(names::kTransform); !function.empty())
            matrix.Concat(svg::ParseTransform(function));
        m_transforms[each] = matrix;
    });
    return matrix;
}

void SvgParser::SetFontStylesOnTextElement(TextElement& element)
{
    // The toolkit refuses fonts without a size, and rounds sizes to whole numbers of its own unit.
    constexpr double kSmallest = 0.1;
    constexpr double kLargest = 2000.0;
    Trace("SvgParser::SetFontStylesOnTextElement called\n");
    FontStyle wanted;
    const auto& style = element.style;
    if (style.contains(names::kFontSize))
        wanted.points = std::clamp(FontSizeStringToPt(ValueOf(style, names::kFontSize)), kSmallest, kLargest);
    if (style.contains(names::kFontFamily)) {
        Trace("SvgParser::SetFontStylesOnTextElement setting family\n");
        const auto family = m_fontFamilies.find(ValueOf(style, names::kFontFamily));
        wanted.family = family != m_fontFamilies.end() ? family->second : wxFONTFAMILY_DEFAULT;
    }
    wanted.isBold = ValueOf(style, names::kFontWeight) == names::kBold;
    if (wanted.isBold)
        Trace("SvgParser::SetFontStylesOnTextElement making bold\n");
    wanted.isItalic = ValueOf(style, names::kFontStyle) == names::kItalic;
    if (wanted.isItalic)
        Trace("SvgParser::SetFontStylesOnTextElement making italic\n");
    const wxString decoration = ValueOf(style, names::kTextDecoration);
    wanted.isUnderlined = decoration == names::kUnderlined;
    wanted.isStruck = decoration == names::kLineThrough;
    element.font = FontOf(wanted);
}

const wxFont& SvgParser::FontOf(const FontStyle& style)
{
    // A drawing has many texts in few fonts, and fonts are dear.
    const auto [place, isNew] = m_fonts.try_emplace(style);
    if (isNew) {
        const double points = style.points > 0.0 ? style.points : wxNORMAL_FONT->GetFractionalPointSize();
        place->second = wxFont(wxFontInfo(points)
                                   .Family(style.family)
                                   .Bold(style.isBold)
                                   .Italic(style.isItalic)
                                   .Underlined(style.isUnderlined)
                                   .Strikethrough(style.isStruck));
    }
    return place->second;
}

double SvgParser::FontSizeStringToPt(const wxString& fontSize) const
{
    Trace("SvgParser::FontSizeStringToPt called with fontSize: ", fontSize);
    const svg::Length length = svg::ToLength(fontSize);
    Trace("SvgParser::FontSizeStringToPt converting with unit: ", length.unit);
    return length.value * svg::LookUp(m_pointsOfUnit, length.unit);
}

wxSize SvgParser::DocumentSize(const wxXmlNode& root) const
{
    const ViewBox box = m_result->viewBox.value_or(ViewBox{});
    return {DocumentLength(root.GetAttribute(names::kWidth), box.width),
            DocumentLength(root.GetAttribute(names::kHeight), box.height)};
}

int SvgParser::DocumentLength(const wxString& stated, double fallback) const
{
    // The conversion leaves what it could read of "100mm" behind, although it fails.
    int whole = 0;
    if (stated.ToInt(&whole) && whole > 0)
        return whole;
    const svg::Length length = svg::ToLength(stated);
    const auto factor = m_pixelsOfUnit.find(length.unit);
    const double pixels =
        length.value > 0.0 && factor != m_pixelsOfUnit.end() ? length.value * factor->second : fallback;
    return pixels > 0.0 && pixels < svg::kMostPixels ? static_cast<int>(std::ceil(pixels)) : 0;
}
