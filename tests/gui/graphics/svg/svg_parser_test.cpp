// SPDX-License-Identifier: MIT
// What is read of the texts and images of a graphic.
#include "gui_base/graphics/svg/svg_parser.h"

#include "tests/gui/graphics/svg/svg_fixture.h"
#include "tests/support/gui_test.h"

#include <gmock/gmock.h>

#include <cmath>

namespace {

using namespace gui_test;
using namespace svg_test;
using Align = SvgParserBase::Align;
using MeetOrSlice = SvgParserBase::MeetOrSlice;
using testing::HasSubstr;

class SvgParserTest : public GuiTest
{};

/// x and y of a text at (10, 20) through its transforms.
wxPoint2DDouble Placed(const std::string& content)
{
    const Parsed parsed(InSvg(content));
    const auto& text = parsed.Text();
    return text.transform.TransformPoint({text.x, text.y});
}

std::string Rooted(const std::string& attributes)
{
    return "<svg " + attributes + "/>";
}

TEST_F(SvgParserTest, PositionsFollowTheTransforms)
{
    struct Case
    {
        const char* transform;
        double x;
        double y;
    };
    // By hand, of (10, 20): angles in radians, turning from x to y.
    const double c = std::cos(0.5);
    const double s = std::sin(0.5);
    const std::vector<Case> cases{
        {"translate(10)", 20, 20},
        {"translate(10,-5)", 20, 15},
        {"translate( 10 , -5 )", 20, 15},
        {"rotate(0.5)", 10 * c - 20 * s, 10 * s + 20 * c},
        {"rotate(0.5, 100 200)", 100 + 10 * c - 20 * s, 200 + 10 * s + 20 * c},
        {"scale(2)", 20, 20},
        {"scale(2 3)", 20, 60},
        {"skewX(0.5)", 10 + 20 * std::tan(0.5), 20},
        {"skewY(0.5)", 10, 20 + 10 * std::tan(0.5)},
        {"matrix(1,2,3,4,5,6)", 10 + 60 + 5, 20 + 80 + 6},
        {"matrix(1,2,3,4,5)", 10, 20},
        {"translate(1,2,3)", 10, 20},
        {"Translate(1,2)", 10, 20},
        {"translate(1,2) scale(3)", 10, 20},
        {"scale(2) scale(3)", 10, 20},
        {"translate(x,2)", 10, 22},
        {"translate(nan,inf)", 10, 20},
        {"nonsense", 10, 20},
        {"", 10, 20},
    };
    for (const auto& [transform, x, y] : cases) {
        const auto point = Placed("<text x='10' y='20' transform='" + std::string(transform) + "'>a</text>");
        EXPECT_NEAR(point.m_x, x, 1e-9) << transform;
        EXPECT_NEAR(point.m_y, y, 1e-9) << transform;
    }
}

TEST_F(SvgParserTest, TransformsConcatenateFromTheOutsideWithoutTheRoot)
{
    const std::string inner =
        "<g transform='translate(100,0)'><a><text x='10' y='20' transform='scale(2,3)'>a</text></a></g>";
    const auto point = Placed(inner);
    EXPECT_NEAR(point.m_x, 120.0, 1e-9);
    EXPECT_NEAR(point.m_y, 60.0, 1e-9);
    const Parsed parsed("<svg transform='translate(7,7)'>" + inner + "</svg>");
    EXPECT_NEAR(parsed.Text().transform.TransformPoint({10.0, 20.0}).m_x, 120.0, 1e-9);
}

TEST_F(SvgParserTest, AlignmentIsLookedUp)
{
    const std::vector<std::pair<const char*, Align>> words{
        {"none", Align::None},         {"xMinYMin", Align::XMinYMin}, {"xMidYMin", Align::XMidYMin},
        {"xMaxYMin", Align::XMaxYMin}, {"xMinYMid", Align::XMinYMid}, {"xMidYMid", Align::XMidYMid},
        {"xMaxYMid", Align::XMaxYMid}, {"xMinYMax", Align::XMinYMax}, {"xMidYMax", Align::XMidYMax},
        {"xMaxYMax", Align::XMaxYMax}};
    std::uint32_t value = 0;
    for (const auto& [word, align] : words) {
        EXPECT_EQ(static_cast<std::uint32_t>(align), value++) << word;
        const Parsed parsed(Rooted("preserveAspectRatio='" + std::string(word) + " slice'"));
        EXPECT_EQ(parsed.result->align, align) << word;
        EXPECT_EQ(parsed.result->meetOrSlice, MeetOrSlice::Slice) << word;
    }
    for (const char* absent : {"", "preserveAspectRatio=''"}) {
        const Parsed parsed(Rooted(absent));
        EXPECT_EQ(parsed.result->align, Align::XMidYMid);
        EXPECT_EQ(parsed.result->meetOrSlice, MeetOrSlice::Meet);
    }
    for (const char* bad :
         {"none", "meet", "xMidYMid", "xMidYMid  meet", "XMIDYMID meet", " meet", "xMidYMid cut"}) {
        try {
            const Parsed parsed(Rooted("preserveAspectRatio='" + std::string(bad) + "'"));
            ADD_FAILURE() << bad;
        } catch (const std::out_of_range& error) {
            EXPECT_STREQ(error.what(), "invalid map<K, T> key");
        }
    }
}

TEST_F(SvgParserTest, ViewBoxesHaveFourNumbers)
{
    const auto box = [](const char* text) {
        return Parsed(Rooted("viewBox='" + std::string(text) + "'")).result->viewBox;
    };
    const auto mixed = box("0,0 400 300");
    ASSERT_TRUE(mixed);
    EXPECT_EQ(mixed->width, 400.0);
    EXPECT_EQ(mixed->height, 300.0);
    const auto odd = box("-1.5 ,, 2  10mm 4 5");
    ASSERT_TRUE(odd);
    EXPECT_EQ(odd->x, -1.5);
    EXPECT_EQ(odd->y, 2.0);
    EXPECT_EQ(odd->width, 0.0) << "no number";
    EXPECT_EQ(odd->height, 4.0);
    EXPECT_FALSE(box("0 0 400"));
    EXPECT_FALSE(box(""));
    EXPECT_FALSE(Parsed("<svg/>").result->viewBox);
}

TEST_F(SvgParserTest, StylesHaveTheirOrder)
{
    struct Case
    {
        const char* content;
        const char* fill;  ///< empty: none
    };
    const std::vector<Case> cases{
        {"<text style='fill:#ff0000'>a</text>", "#FF0000"},
        {"<style>.a {fill:#00ff00;}</style><text class='a'>a</text>", "#00FF00"},
        {"<style>\n.a {fill:#00ff00;}\n</style><text class='a' style='fill:#ff0000'>a</text>", "#FF0000"},
        {"<style>.a {fill:#00ff00;}</style><style>.b {fill:#0000ff;}</style><text class='a'>a</text>", ""},
        {"<style>.a {fill:#00ff00;}</style><g><style>.a {fill:#0000ff;}</style></g><text class='a'>a</text>",
         "#0000FF"},
        {"<style><![CDATA[.a {fill:#00ff00;}]]></style><text class='a'>a</text>", "#00FF00"},
        {"<Style>.a {fill:#00ff00;}</Style><text class='a'>a</text>", ""},
        {"<style>.a{fill:#00ff00;}</style><text class='a'>a</text>", ""},
        {"<style> .a {fill:#00ff00;}</style><text class='a'>a</text>", ""},
        {"<style>text.a {fill:#00ff00;}</style><text class='a'>a</text>", "#00FF00"},
        {"<style>.a {fill:#00ff00;}\n.a {x:1;}</style><text class='a'>a</text>", ""},
        {"<style>.a {\nfill:#00ff00;\n}</style><text class='a'>a</text>", ""},
        {"<style>.a {fill:#00ff00;}</style><text class='a b'>a</text>", ""},
        {"<text style='fill:#111111;fill:#222222;;'>a</text>", "#222222"},
        {"<text style='fill:#111111;fill:'>a</text>", "#111111"},
        {"<text style=' fill:#111111'>a</text>", ""},
        {"<text style='fill: #111111'>a</text>", ""},
        {"<text style='fill:red'>a</text>", ""},
        {"<text style='fill:#12345678'>a</text>", "#123456"},
        {"<text style='fill:#zz00ff'>a</text>", "#0000FF"},
        {"<text fill='#ff0000'>a</text>", ""},
        {"<text style='fill:#111111'><tspan style='fill:#222222'><tspan "
         "style='fill:#333333'>a</tspan></tspan></text>",
         "#333333"},
        {"<text style='fill:#111111'>b<tspan style='fill:#222222'>a</tspan></text>", "#111111"},
        {"<style>.a {fill:#00ff00;}</style><text class='a'><tspan style='fill:#222222'>a</tspan></text>",
         "#222222"},
    };
    for (const auto& [content, fill] : cases) {
        const Parsed parsed(InSvg(content));
        const wxColour& colour = parsed.Text().fill;
        EXPECT_EQ(colour.IsOk() ? colour.GetAsString(wxC2S_HTML_SYNTAX) : wxString(), fill) << content;
    }
    EXPECT_THROW(Parsed(InSvg("<text style='fill:#fff'>a</text>")), std::out_of_range);
}

TEST_F(SvgParserTest, TheFirstTextOfNestedOnesCounts)
{
    struct Case
    {
        const char* content;
        const char* text;
        double x;
        double y;
    };
    const std::vector<Case> cases{
        {"<text x='1' y='2'>a</text>", "a", 1, 2},
        {"<text x='1' y='2'/>", "", 1, 2},
        {"<text x='1' y='2'>  <tspan x='3' y='4'>a</tspan><tspan x='5' y='6'>b</tspan></text>", "a", 3, 4},
        {"<text x='1' y='2'><!-- c --><tspan x='3'>a</tspan></text>", "a", 1, 2},
        {"<text x='1' y='2'><tspan x='3' y='4'><tspan x='5' y='6'>a</tspan></tspan></text>", "a", 5, 6},
        {"<text x='1' y='2'><tspan x='3' y='4'/>b</text>", "", 3, 4},
        {"<text x='1' y='2'><a><tspan x='3' y='4'><![CDATA[a&b]]></tspan></a></text>", "a&b", 3, 4},
        {"<text x='1' y='2'>a<tspan x='3' y='4'>b</tspan></text>", "a", 1, 2},
        {"<text x='5 ' y='1e1'>m&#179;/h</text>", "m\u00b3/h", 0, 10},
    };
    for (const auto& [content, text, x, y] : cases) {
        const Parsed parsed(InSvg(content));
        EXPECT_EQ(parsed.Text().text.utf8_string(), text) << content;
        EXPECT_EQ(parsed.Text().x, x) << content;
        EXPECT_EQ(parsed.Text().y, y) << content;
    }
}

TEST_F(SvgParserTest, FontsFollowTheStyle)
{
    const std::vector<std::pair<const char*, double>> sizes{
        {"12", 9.0},      {"12pt", 12.0},   {"12px", 9.0},   {"10mm", 28.353},
        {"1cm", 28.3527}, {"1in", 72.0159}, {"10pc", 9.952}, {"1.5.5pt", 1.5}};
    for (const auto& [size, points] : sizes) {
        const Parsed parsed(InSvg("<text style='font-size:" + std::string(size) + "'>a</text>"));
        EXPECT_NEAR(parsed.Text().font.GetFractionalPointSize(), points, 2e-3) << size;
        EXPECT_THAT(parsed.trace, HasSubstr("FontSizeStringToPt called with fontSize: " + std::string(size)));
    }
    for (const char* bad : {"12em", "-3pt", "12 pt", "large"})
        EXPECT_THROW(Parsed(InSvg("<text style='font-size:" + std::string(bad) + "'>a</text>")),
                     std::out_of_range)
            << bad;

    const Parsed plain(InSvg("<text style='font-family:sans-serif'>a</text>"));
    EXPECT_EQ(plain.Text().font.GetFamily(), wxFONTFAMILY_SWISS);
    EXPECT_EQ(plain.Text().font.GetWeight(), wxFONTWEIGHT_NORMAL);
    const Parsed all(
        InSvg("<text style='font-family:monospace;font-weight:bold;font-style:italic;"
              "text-decoration:underlined'>a</text>"));
    EXPECT_EQ(all.Text().font.GetFamily(), wxFONTFAMILY_TELETYPE);
    EXPECT_EQ(all.Text().font.GetWeight(), wxFONTWEIGHT_BOLD);
    EXPECT_EQ(all.Text().font.GetStyle(), wxFONTSTYLE_ITALIC);
    EXPECT_TRUE(all.Text().font.GetUnderlined());
    const Parsed other(
        InSvg("<text style='text-decoration:line-through;font-family:Unheard;font-weight:700'>a</text>"
              "<text style='text-decoration:underline'>a</text>"));
    EXPECT_TRUE(other.Text().font.GetStrikethrough());
    EXPECT_TRUE(other.Text().font.IsOk());
    EXPECT_EQ(other.Text().font.GetWeight(), wxFONTWEIGHT_NORMAL);
    EXPECT_FALSE(other.Text(1).font.GetUnderlined());
}

TEST_F(SvgParserTest, ImagesAreInlinePictures)
{
    const std::string png = PngReference(3, 2);
    const std::string broken = png.substr(0, 40) + "\n " + png.substr(40);
    const std::vector<std::pair<std::string, bool>> cases{
        {png, true},
        {broken, true},
        {PngReference(3, 2, wxBITMAP_TYPE_JPEG), false},
        {"plant.png", false},
        {"", false},
        {"data:image/png;base64,", false},
        {"data:image/png;base64,????", false},
        {"data:image/png;utf8," + png.substr(22), false},
        {png.substr(0, 60), false},
    };
    for (const auto& [reference, isRead] : cases) {
        const Parsed parsed(InSvg(
            "<g transform='translate(1,2)'><image id='p' x='3' y='4' width='30' height='10' xlink:href='" +
            reference + "'/></g>"));
        const auto& image = parsed.Image();
        EXPECT_EQ(image.image.IsOk(), isRead) << reference;
        EXPECT_EQ(image.kind, 2);
        EXPECT_EQ(image.id, "p");
        EXPECT_EQ(image.width, 30.0);
        EXPECT_EQ(image.transform.TransformPoint({image.x, image.y}).m_x, 4.0);
        EXPECT_EQ(image.image.IsOk() ? image.image.GetWidth() : 0, isRead ? 3 : 0);
    }
    // A small file that is a large picture.
    const std::string bomb = InSvg("<image xlink:href='" + PngReference(4001, 4000) + "'/>");
    EXPECT_FALSE(Parsed(bomb).Image().image.IsOk());
}

TEST_F(SvgParserTest, ElementsComeInTheOrderOfTheDocument)
{
    const Parsed parsed(
        "<svg><defs><text id='a'/></defs><g><image id='b'/><TEXT id='x'/><g><text id='c'><text "
        "id='d'/></text></g></g>"
        "<text id='e'/></svg>");
    std::string ids;
    for (const auto& element : parsed.result->elements)
        ids += element->id.utf8_string() + std::to_string(element->kind);
    EXPECT_EQ(ids, "a1b2c1d1e1");
    EXPECT_EQ(Parsed("<text id='root'/>").result->elements.size(), 0u) << "the root is none of them";
}

TEST_F(SvgParserTest, ThePictureHasTheSizeOfTheDocument)
{
    const std::vector<std::pair<const char*, wxSize>> cases{
        {"width='40' height='20'", {40, 20}},
        {"width='100mm' height='100.5'", {378, 101}},
        {"width='1in' height='6pt'", {96, 8}},
        {"viewBox='0 0 30 15'", {30, 15}},
        {"width='100%' height='20' viewBox='0 0 30 15'", {30, 20}},
        {"width='0' height='20'", {0, 0}},
        {"width='-4' height='20'", {0, 0}},
        {"", {0, 0}},
        {"width='100000' height='100000'", {0, 0}},
        {"width='1e300' height='20'", {0, 0}},
        {"width='40' height='20' style='color:#546e7a'", {40, 20}},
        {"width='40' height='20' x='1e7'", {0, 0}},
        {"width='40' height='20' stroke-dasharray='0.01'", {0, 0}},
        {"width='40' height='20' style='fill:none; stroke-dasharray: 1e-9px'", {0, 0}},
        {"width='40' height='20' style='stroke-dasharray: none'", {40, 20}},
        {"width='40' height='20' stroke-dasharray='none' style='stroke-dasharray:2px,2px'", {40, 20}},
        {"width='40' height='20' stroke-dasharray='0'", {40, 20}},
    };
    for (const auto& [attributes, size] : cases) {
        const Parsed parsed("<svg " + std::string(attributes) +
                            "><rect width='4' height='4' fill='#00f'/></svg>");
        const wxBitmap& bitmap = parsed.result->bitmap;
        EXPECT_EQ(bitmap.IsOk() ? bitmap.GetSize() : wxSize(0, 0), size) << attributes;
    }
}

TEST_F(SvgParserTest, AResultLivesUntilTheNextDocument)
{
    SvgParser parser;
    wxXmlDocument empty;
    EXPECT_EQ(parser.ParseXml(&empty)->elements.size(), 0u);
    wxXmlDocument first =
        ParseSvgDocument(InSvg("<style>.a {fill:#00ff00;}</style><text class='a'>a</text>"), "a");
    wxXmlDocument second = ParseSvgDocument(InSvg("<text class='a'>a</text><text>b</text>"), "b");
    EXPECT_EQ(parser.ParseXml(&first)->elements.size(), 1u);
    const auto* result = parser.ParseXml(&second);
    ASSERT_EQ(result->elements.size(), 2u);
    EXPECT_FALSE(dynamic_cast<SvgParserBase::TextElement&>(*result->elements[0]).fill.IsOk())
        << "classes of the former document";
}

TEST_F(SvgParserTest, ProgressIsTraced)
{
    const Parsed parsed(
        InSvg("<image/><text style='font-size:2pt;font-family:serif;font-weight:bold;font-style:italic'/>"));
    EXPECT_EQ(parsed.trace,
              "SvgParser::DoParseXml called \n"
              "SvgParser::ParseXMLForElementsToDraw creating image element\n"
              "SvgParser::ParseXMLForElementsToDraw creating text element\n"
              "SvgParser::SetFontStylesOnTextElement called\n"
              "SvgParser::FontSizeStringToPt called with fontSize: 2pt\n"
              "SvgParser::FontSizeStringToPt converting with unit: pt\n"
              "SvgParser::SetFontStylesOnTextElement setting family\n"
              "SvgParser::SetFontStylesOnTextElement making bold\n"
              "SvgParser::SetFontStylesOnTextElement making italic\n");
}

}  // namespace
