// SPDX-License-Identifier: MIT
// How graphics are drawn: where texts and images lie, what they show, how a panel scales.
#include "gui_base/graphics/svg/svg_panel.h"

#include "gui_base/graphics/svg/svg_fit.h"
#include "gui_base/support/drawing_sheet.h"
#include "tests/gui/graphics/svg/svg_fixture.h"
#include "tests/support/gui_test.h"

#include <wx/dcmemory.h>

#include <algorithm>
#include <cmath>
#include <span>

namespace {

using namespace svg_test;
using namespace gui_test;
using Renderer = SvgRenderer<ArchiveLoadPolicy>;

constexpr const char* kBlue = "<rect width='40' height='20' fill='#0000ff'/>";

class SvgDrawingTest : public GuiTest
{
protected:
    /// On a screen with `factor` pixels where the toolkit counts one.
    static wxImage Draw(Renderer& renderer, wxSize size, wxSize* answer = nullptr, double factor = 1.0)
    {
        wxBitmap bitmap(size);
        {
            wxMemoryDC dc(bitmap);
            dc.SetBackground(*wxWHITE_BRUSH);
            dc.Clear();
            const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
            context->SetContentScaleFactor(factor);
            context->Scale(factor, factor);
            const wxSize drawn = renderer.DrawOnContext(context.get());
            if (answer != nullptr)
                *answer = drawn;
        }
        return bitmap.ConvertToImage();
    }
    static wxColour At(const wxImage& image, int x, int y)
    {
        return {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)};
    }
    /// The first value's corner in the picture of a 200 by 100 graphic at a scale.
    static wxPoint2DDouble CornerOf(const std::string& root, const std::string& transform, double scale)
    {
        const std::unique_ptr<SvgParserBase> parser = std::make_unique<SvgParser>();
        Renderer renderer(
            Info("<svg width='200' height='100' " + root + "><rect width='1' height='1'/><g transform='" +
                     transform + "'><text id='v' x='10' y='20'>a</text></g></svg>",
                 {std::make_shared<Value>("v", "5")}),
            parser);
        renderer.SetSize(200 * scale, 100 * scale);
        const auto values = renderer.GetShownValues();
        return values.empty() ? wxPoint2DDouble(-1, -1) : values.front().box.GetLeftTop();
    }

    std::unique_ptr<SvgParserBase> m_parser = std::make_unique<SvgParser>();
};

TEST_F(SvgDrawingTest, ValuesLieWhereTheViewBoxPutsThem)
{
    struct Case
    {
        const char* root;
        const char* transform;
        double scale;
        double x;
        double y;
    };
    // By hand: 200 by 100 pixels. A box of 100 by 100 meets at 1 and leaves 100 across; it is sliced at 2,
    // which leaves 50 of its own too many along y.
    const std::vector<Case> cases{
        {"", "", 1, 10, 20},
        {"", "", 2, 20, 40},
        {"", "translate(5,6)", 2, 30, 52},
        {"viewBox='0 0 400 200'", "", 1, 5, 10},
        {"viewBox='50 50 400 200'", "", 1, 5, 10},
        {"viewBox='0 0 100 100'", "", 1, 60, 20},
        {"viewBox='0 0 100 100' preserveAspectRatio='xMinYMid meet'", "", 1, 10, 20},
        {"viewBox='0 0 100 100' preserveAspectRatio='xMaxYMid meet'", "", 1, 110, 20},
        {"viewBox='0 0 100 100' preserveAspectRatio='xMidYMin slice'", "", 1, 20, 40},
        {"viewBox='0 0 100 100' preserveAspectRatio='xMidYMid slice'", "", 1, 20, -10},
        {"viewBox='0 0 100 100' preserveAspectRatio='xMidYMax slice'", "", 1, 20, -60},
        {"viewBox='0 0 100 100' preserveAspectRatio='none meet'", "", 1, 20, 20},
        {"viewBox='5 10 100 100' preserveAspectRatio='none meet'", "", 1.5, 15, 15},
        {"viewBox='0 0 0 100'", "", 1, -1, -1},
        {"viewBox='0 0 -5 0' preserveAspectRatio='none meet'", "", 1, -1, -1},
        {"viewBox='0 0 nan inf'", "", 1, -1, -1},
        {"", "scale(0)", 1, -1, -1},
        {"", "translate(1e300)", 1, -1, -1},
    };
    for (const auto& [root, transform, scale, x, y] : cases) {
        const auto corner = CornerOf(root, transform, scale);
        EXPECT_NEAR(corner.m_x, x, 1e-9) << root << transform;
        EXPECT_NEAR(corner.m_y, y, 1e-9) << root << transform;
    }
    wxAffineMatrix2D quarter;
    quarter.Set(wxMatrix2D(0, 1, -1, 0), {100, 0});
    const wxRect2DDouble turned = svg::TransformedBox({1, 2, 10, 4}, quarter);
    EXPECT_EQ(turned, wxRect2DDouble(94, 1, 4, 10));
}

TEST_F(SvgDrawingTest, TextsAreDrawnFromTheirTopInTheirColour)
{
    Renderer renderer(Info("<svg width='60' height='60'><text style='font-size:30px;fill:#ff0000' x='10' "
                           "y='20'>\u2588</text></svg>"),
                      m_parser);
    const wxImage image = Draw(renderer, {60, 60});
    int top = 0;
    while (top < 59 && At(image, 18, top) == *wxWHITE)
        ++top;
    EXPECT_GE(top, 19);
    EXPECT_LE(top, 26) << "the block begins near the top of the line, not above it";
    EXPECT_EQ(At(image, 18, 35), *wxRED);
    EXPECT_EQ(At(image, 5, 35), *wxWHITE);
}

TEST_F(SvgDrawingTest, BackgroundsAndImagesAreScaled)
{
    wxSize answer;
    Renderer renderer(Info("<svg width='40' height='20'>" + std::string(kBlue) +
                           "<image x='4' y='4' width='8' height='8' xlink:href='" + PngReference(2, 2) +
                           "'/><image x='1' y='1' width='9' height='9' xlink:href='none'/></svg>"),
                      m_parser);
    EXPECT_EQ(renderer.GetDrawableMinSize(), wxSize(40, 20));
    for (const double scale : {1.0, 3.0, 0.5}) {
        renderer.SetSize(40 * scale, 20 * scale);
        EXPECT_EQ(renderer.GetScaledWidth(), 40 * scale);
        const wxImage image = Draw(renderer, {130, 70}, &answer);
        EXPECT_EQ(answer, wxSize(40, 20));
        const auto at = [&](double x, double y) {
            return At(image, static_cast<int>(x * scale), static_cast<int>(y * scale));
        };
        EXPECT_EQ(at(8, 8), *wxRED) << scale;
        EXPECT_EQ(at(2, 2), *wxBLUE) << scale;
        EXPECT_EQ(at(38, 18), *wxBLUE) << scale;
        EXPECT_EQ(at(42, 18), *wxWHITE) << scale;
    }
    // Twice the same, the second time from what was kept.
    renderer.SetSize(80, 40);
    EXPECT_TRUE(memcmp(Draw(renderer, {80, 40}).GetData(), Draw(renderer, {80, 40}).GetData(), 80 * 40 * 3) ==
                0);
}

TEST_F(SvgDrawingTest, ADarkSheetTurnsLightnessAndKeepsHues)
{
    const wxColour sheet(45, 45, 45);
    // By hand: white becomes the sheet and black white. Blue (21, 101, 192) moves up by 255 - 21 - 192 = 42,
    // and by 210 / 255 into what is left above the sheet.
    const std::vector<std::pair<wxColour, wxColour>> inks{{*wxWHITE, sheet},
                                                          {*wxBLACK, *wxWHITE},
                                                          {wxColour(21, 101, 192), wxColour(96, 162, 237)},
                                                          {wxColour(255, 0, 0), wxColour(255, 45, 45)}};
    for (const auto& [ink, expected] : inks) {
        EXPECT_EQ(drawing_sheet::InkOn(sheet, ink), expected) << ink.GetAsString();
        EXPECT_EQ(drawing_sheet::InkOn({}, ink), ink) << "a light theme";
    }
    Renderer renderer(
        Info("<svg width='80' height='40'><rect width='80' height='40' fill='#ffffff'/>"
             "<rect width='20' height='20' fill='#1565c0'/>"
             "<text x='30' y='0' style='font-size:40px;font-weight:bold' fill='#000000'>H</text>"
             "</svg>"),
        m_parser);
    renderer.SetSheet(sheet);
    const wxImage dark = Draw(renderer, {80, 40});
    EXPECT_EQ(At(dark, 79, 39), sheet);
    EXPECT_EQ(At(dark, 10, 10), wxColour(96, 162, 237));
    EXPECT_GT(std::ranges::count(std::span(dark.GetData(), std::size_t{3} * 80 * 40), 255), 60)
        << "the letter is white";
    renderer.SetSheet({});
    EXPECT_EQ(At(Draw(renderer, {80, 40}), 79, 39), *wxWHITE);
}

TEST_F(SvgDrawingTest, EdgesHaveNoDarkSeam)
{
    Renderer renderer(
        Info("<svg width='40' height='20'><rect width='40' height='10' fill='#ffffff' fill-opacity='0.25'/>"
             "<rect y='10' width='40' height='10' fill='#ff8000' fill-opacity='0.5'/></svg>"),
        m_parser);
    const wxImage drawn = Draw(renderer, {40, 20});
    EXPECT_EQ(At(drawn, 20, 5), *wxWHITE) << "white on white";
    // Half of the colour and half of the white below it, to the nearest step but one.
    EXPECT_NEAR(drawn.GetRed(20, 15), 255, 2);
    EXPECT_NEAR(drawn.GetGreen(20, 15), 191, 2);
    EXPECT_NEAR(drawn.GetBlue(20, 15), 128, 2);
}

TEST_F(SvgDrawingTest, ShapesAreAsFineAsTheScreen)
{
    Renderer renderer(Info(InSvg("<circle cx='20' cy='10' r='7' stroke='#000000' fill='none'/>")), m_parser);
    const wxSize size(80, 40);
    const wxImage fine = Draw(renderer, size, nullptr, 2.0);
    renderer.SetSize(size.x, size.y);
    const wxImage large = Draw(renderer, size);
    EXPECT_EQ(memcmp(fine.GetData(), large.GetData(), 3UL * 80 * 40), 0);
}

TEST_F(SvgDrawingTest, ScalesFitOrAreOne)
{
    Renderer renderer(Info("<svg width='40' height='20'/>"), m_parser);
    const std::vector<std::array<double, 3>> cases{{80, 80, 2},  {80, 20, 1}, {20, 20, 0.5}, {-1, 100, 1},
                                                   {100, -1, 1}, {0, 50, 1},  {0, 0, 1},     {4, 2, 0.1}};
    for (const auto& [width, height, scale] : cases) {
        renderer.SetSize(width, height);
        EXPECT_NEAR(renderer.GetScaledWidth(), 40 * scale, 1e-9) << width << " " << height;
    }
    Renderer empty(Info("<svg/>"), m_parser);
    empty.SetSize(100, 100);
    EXPECT_EQ(empty.GetScaledHeight(), 0.0);
    EXPECT_EQ(empty.GetDrawableMinSize(), wxSize(0, 0));
}

TEST_F(SvgDrawingTest, ValuesStandInPlaceOfTheirTexts)
{
    const auto first = std::make_shared<Value>("q", "10 m3/h", "44 gpm");
    const auto second = std::make_shared<Value>("q", "other");
    Renderer renderer(Info("<svg width='40' height='20'><rect width='1' height='1'/><text "
                           "id='Q'>x</text><text id='q'>y</text>"
                           "<text>z</text><text id='w'>v</text></svg>",
                           {nullptr, first, second, std::make_shared<Value>("none", "")}),
                      m_parser);
    ASSERT_EQ(renderer.GetShownValues().size(), 1u);
    EXPECT_EQ(renderer.GetShownValues().front().text, "10 m3/h");
    EXPECT_EQ(renderer.GetShownValues().front().mapping, first.get());
    testing::internal::CaptureStdout();
    renderer.SetUnitsystem("us");
    EXPECT_EQ(renderer.UpdateValues().size(), 1u);
    EXPECT_EQ(renderer.GetShownValues().front().text, "44 gpm");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "parsed again";
    // Only what is another text now is to be drawn again.
    EXPECT_TRUE(renderer.UpdateValues().empty());
    renderer.SetUnitsystem("iso");
    first->Set("11 m3/h");
    EXPECT_EQ(renderer.UpdateValues().size(), 1u);
    EXPECT_EQ(second->asked, 0);
}

TEST_F(SvgDrawingTest, WhatChangedIsDrawnAsIfAllWere)
{
    const auto value = std::make_shared<Value>("v", "10");
    Renderer renderer(
        Info("<svg width='120' height='60'><rect width='120' height='60' fill='#ffeecc'/>"
             "<text id='v' x='8' y='6' style='font-size:20px'>-</text><text x='60' y='30'>abc</text></svg>",
             {value}),
        m_parser);
    wxBitmap bitmap(120, 60);
    const auto draw = [&](const wxRect2DDouble* part) {
        wxMemoryDC dc(bitmap);
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
        if (part != nullptr)
            context->Clip(std::floor(part->m_x), std::floor(part->m_y), std::ceil(part->m_width) + 2,
                          std::ceil(part->m_height) + 2);
        renderer.DrawOnContext(context.get());
    };
    renderer.UpdateValues();
    draw(nullptr);
    const wxImage before = bitmap.ConvertToImage();
    value->Set("1");
    const auto parts = renderer.UpdateValues();
    ASSERT_EQ(parts.size(), 1u);
    draw(&parts.front());
    const wxImage partly = bitmap.ConvertToImage();
    draw(nullptr);
    const wxImage wholly = bitmap.ConvertToImage();
    const std::size_t bytes = 3UL * 120 * 60;
    EXPECT_EQ(memcmp(partly.GetData(), wholly.GetData(), bytes), 0);
    EXPECT_NE(memcmp(before.GetData(), wholly.GetData(), bytes), 0);
    const wxImage texts = Draw(renderer, {120, 60});
    EXPECT_LT(std::ranges::min(std::span(texts.GetData(), bytes)), 60) << "texts are black";
}

/// Gives a picture once, and keeps it where its user must not look for it any more.
class Unreliable : public SvgParserBase
{
    ParserResult* DoParseXml(wxXmlDocument*) override
    {
        if (m_result.bitmap.IsOk())
            throw std::out_of_range("second time");
        m_result.bitmap.Create(40, 20);
        return &m_result;
    }
    ParserResult m_result;
};

TEST_F(SvgDrawingTest, AParserThatThrowsHasNoResult)
{
    m_parser = std::make_unique<Unreliable>();
    Renderer renderer(Info("<svg/>"), m_parser);
    EXPECT_EQ(renderer.GetScaledWidth(), 40.0);
    EXPECT_THROW(renderer.SetGraphic(Info("<svg/>")), std::out_of_range);
    EXPECT_EQ(renderer.GetScaledWidth(), 0.0);
    // What a parser gave goes with it.
    m_parser = std::make_unique<SvgParser>();
    renderer.SetGraphic(Info(InSvg("<text>a</text>")));
    EXPECT_EQ(renderer.GetScaledWidth(), 40.0);
    m_parser = std::make_unique<Unreliable>();
    EXPECT_EQ(renderer.GetScaledWidth(), 0.0);
    wxSize answer(1, 1);
    Draw(renderer, {40, 20}, &answer);
    EXPECT_EQ(answer, wxSize(0, 0));
}

TEST_F(SvgDrawingTest, AGraphicThatCannotBeParsedLeavesNothing)
{
    Renderer renderer(Info(InSvg(kBlue)), m_parser);
    EXPECT_EQ(renderer.GetScaledWidth(), 40.0);
    EXPECT_THROW(renderer.SetGraphic(Info("<svg preserveAspectRatio='none'/>")), std::out_of_range);
    wxSize answer;
    EXPECT_EQ(At(Draw(renderer, {40, 20}, &answer), 5, 5), *wxWHITE);
    EXPECT_EQ(answer, wxSize(0, 0));
    EXPECT_EQ(renderer.GetScaledWidth(), 0.0);
    EXPECT_TRUE(renderer.GetShownValues().empty());
    renderer.SetGraphic(Info(InSvg(kBlue)));
    EXPECT_EQ(At(Draw(renderer, {40, 20}), 5, 5), *wxBLUE);
    const std::unique_ptr<SvgParserBase> none;
    Renderer idle(Info(InSvg(kBlue)), none);
    EXPECT_EQ(At(Draw(idle, {40, 20}), 5, 5), *wxWHITE);
}

class SvgPanelTest : public SvgDrawingTest
{
protected:
    void TearDown() override
    {
        if (m_panel != nullptr)
            m_panel->Destroy();
        Pump();
        SvgDrawingTest::TearDown();
    }
    /// A panel that shows which scale it has chosen.
    class Watched : public SvgPanel
    {
    public:
        using SvgPanel::SvgPanel;
        double ScaledWidth() const { return GetRenderer()->GetScaledWidth(); }
        int painted = 0;

    protected:
        void DrawOver(wxGraphicsContext&) override { ++painted; }
    };
    Watched& Make(const std::string& svg, Mappings mappings = {})
    {
        m_panel = new Watched(Info(svg, std::move(mappings)), m_frame);
        return *m_panel;
    }
    Watched* m_panel = nullptr;
};

TEST_F(SvgPanelTest, SizesFollowTheRoom)
{
    Watched& panel = Make("<svg width='200' height='100'>" + std::string(kBlue) + "</svg>");
    EXPECT_EQ(panel.GetMinSize(), wxSize(200, 100));
    m_frame->Show();
    struct Case
    {
        wxSize size;
        double width;
        wxSize virtualSize;
    };
    // Larger both ways, in one direction only, in none. Each begins at the picture's own size.
    const std::vector<Case> cases{{{400, 300}, 400, {400, 300}}, {{300, 300}, 300, {300, 300}},
                                  {{150, 300}, 200, {200, 300}}, {{300, 60}, 200, {300, 100}},
                                  {{150, 60}, 200, {200, 100}},  {{200, 100}, 200, {200, 100}}};
    for (const auto& [size, width, virtualSize] : cases) {
        panel.SetSize(wxSize(180, 90));
        panel.SetSize(size);
        EXPECT_EQ(panel.ScaledWidth(), width) << size.x;
        // The toolkit counts at least the window itself.
        EXPECT_EQ(panel.GetVirtualSize(), virtualSize) << size.x << " " << size.y;
    }
}

TEST_F(SvgPanelTest, OnlyChangedValuesAreDrawnAgain)
{
    const auto value = std::make_shared<Value>("a", "10", "44");
    const auto other = std::make_shared<Value>("b", "20", "88");
    Watched& panel = Make("<svg width='200' height='100'>" + std::string(kBlue) +
                              "<text id='a' x='10' y='10' style='fill:#ffffff'>-</text><text id='b' x='150' "
                              "y='70'>-</text></svg>",
                          {value, other});
    panel.SetSize(200, 100);
    m_frame->Show();
    ASSERT_TRUE(PumpUntil([&] { return panel.painted > 0; }));
    Pump();
    panel.painted = 0;
    panel.UpdateValues();
    EXPECT_FALSE(PumpUntil([&] { return panel.painted > 0; })) << "nothing has changed";
    value->Set("11");
    other->asked = 0;
    panel.UpdateValues();
    EXPECT_TRUE(PumpUntil([&] { return panel.painted > 0; }));
    EXPECT_EQ(other->asked, 1) << "asked once for its value, not drawn";
    panel.UpdateUnits("us");
    Pump();
    EXPECT_EQ(panel.GetShownValues()[1].text, "88");
}

}  // namespace
