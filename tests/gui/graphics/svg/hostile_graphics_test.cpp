// SPDX-License-Identifier: MIT
// Graphics that are made to do harm are answered, within a second.
#include "tests/gui/graphics/svg/svg_fixture.h"
#include "tests/support/bounded_work.h"
#include "tests/support/gui_test.h"

#include <wx/dcmemory.h>

namespace {

using namespace svg_test;
using namespace gui_test;

std::string Repeated(const std::string& text, std::size_t count)
{
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

std::string Sized(const std::string& content)
{
    return "<svg width='400' height='300'>" + content + "</svg>";
}

enum class Answer
{
    Refused,  ///< not loaded
    Thrown,   ///< loaded, but not parsed
    Empty,    ///< without a picture
    Drawn
};

Answer AnswerTo(const std::string& svg)
{
    try {
        const auto info = Info(svg, {std::make_shared<Value>("v", "5")});
        const std::unique_ptr<SvgParserBase> parser = std::make_unique<SvgParser>();
        SvgRenderer<ArchiveLoadPolicy> renderer(info, parser);
        wxBitmap bitmap(400, 300);
        wxMemoryDC dc(bitmap);
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
        const wxSize drawn = renderer.DrawOnContext(context.get());
        renderer.SetSize(400, 300);
        renderer.DrawOnContext(context.get());
        return drawn.x > 0 ? Answer::Drawn : Answer::Empty;
    } catch (const SvgLoadError&) {
        return Answer::Refused;
    } catch (const std::out_of_range&) {
        return Answer::Thrown;
    }
}

class HostileGraphics : public GuiTest
{};

TEST_F(HostileGraphics, AreAnsweredWithinASecond)
{
    struct Case
    {
        const char* name;
        std::string svg;
        Answer answer;
    };
    const std::string groups = Repeated("<g transform='rotate(0.1)'>", 250);
    const std::string ends = Repeated("</g>", 250);
    const std::vector<Case> cases{
        {"empty", "", Answer::Refused},
        {"100 MB", std::string(100'000'000, 'a'), Answer::Refused},
        {"a million elements", "<svg>" + Repeated("<a/>", 1'000'000) + "</svg>", Answer::Refused},
        {"as many as may be", Sized(Repeated("<a/>", kMostSvgNodes - 1)), Answer::Drawn},
        {"deep", Repeated("<g>", 10'000) + Repeated("</g>", 10'000), Answer::Refused},
        {"attributes", "<svg " + Repeated("a='' ", 100'000) + "/>", Answer::Refused},
        {"huge size", "<svg width='2000000000' height='2000000000'/>", Answer::Empty},
        {"huge numbers", Sized("<rect width='1e300' height='1e300'/>"), Answer::Empty},
        {"huge circle", Sized("<circle r='1e9' stroke='#000000' stroke-width='1e9'/>"), Answer::Empty},
        {"many curves", Sized("<path d='M0,0 " + Repeated("c9 9 9 9 9 0 ", 50'000) + "'/>"), Answer::Empty},
        {"curves as many as may be",
         Sized("<path d='M0,0 " + Repeated("c400 300-400-300 9 0", 16'000) + "'/>"), Answer::Drawn},
        {"endless dashes", Sized("<path stroke='#000000' stroke-dasharray='1e-9' d='M0,0 L400,300'/>"),
         Answer::Empty},
        {"itself within itself", Sized("<g id='a'><use xlink:href='#a'/></g>"), Answer::Drawn},
        {"outside entity",
         "<!DOCTYPE svg [<!ENTITY a SYSTEM 'file:///etc/passwd'>]>" + Sized("<text>&a;</text>"),
         Answer::Refused},
        {"outside image", Sized("<image width='9' height='9' xlink:href='file:///etc/passwd'/>"),
         Answer::Drawn},
        {"broken Base64", Sized("<image width='9' height='9' xlink:href='data:image/png;base64,#\n!'/>"),
         Answer::Drawn},
        {"large image", Sized("<image width='9' height='9' xlink:href='" + PngReference(3900, 4000) + "'/>"),
         Answer::Drawn},
        {"huge text", Sized("<text>" + std::string(3'000'000, 'M') + "</text>"), Answer::Refused},
        {"text in many lines", Sized("<text>" + Repeated("a\n", 50'000) + "</text>"), Answer::Refused},
        {"as long as may be", Sized(Repeated("<text>" + Repeated("a\n", 8'000) + "</text>", 7)),
         Answer::Drawn},
        {"text without a font", Sized("<text style='font-family:;font-size:0'>a</text>"), Answer::Drawn},
        {"large font", Sized("<text y='-50000' style='font-size:1e9in'>a</text>"), Answer::Thrown},
        {"largest font", Sized("<text style='font-size:99999in'>a</text>"), Answer::Drawn},
        {"many texts in many groups", Sized(groups + Repeated("<text>a</text>", 9'000) + ends),
         Answer::Drawn},
        {"flat texts", Sized(Repeated("<g transform='scale(0)'><text>a</text></g>", 4'000)), Answer::Drawn},
        {"many styles", Sized(Repeated("<style>.a {x:1;}</style>", 5'000)), Answer::Drawn},
        {"long style", Sized("<style>" + Repeated(".a {x:1;}\n", 1'600) + "</style>"), Answer::Drawn},
    };
    for (const auto& [name, svg, answer] : cases) {
        testing::internal::CaptureStdout();
        const auto start = std::clock();
        const Answer given = AnswerTo(svg);
        const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        testing::internal::GetCapturedStdout();
        EXPECT_EQ(given, answer) << name;
        EXPECT_LT(seconds, support::kSlower) << name;
    }
}

}  // namespace
