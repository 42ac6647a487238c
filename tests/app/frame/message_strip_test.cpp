// SPDX-License-Identifier: MIT
// What the foot of the window makes of what it is told.
#include "app/frame/message_strip.h"

#include "app/document/plant_templates.h"
#include "app/frame/work_area.h"
#include "gui_base/support/image_loader.h"
#include "tests/support/program_fixture.h"

#include <wx/statbmp.h>

#include <algorithm>
#include <cstring>

namespace {

class MessageStripTest : public gui_test::ProgramTest
{
protected:
    MessageStripTest() : ProgramTest("world_river_livingstone") {}

    app::MessageStrip& Strip() { return m_frame->GetWorkArea().GetMessages(); }

    static bool IsSame(const wxImage& a, const wxImage& b)
    {
        const auto pixels = static_cast<std::size_t>(a.GetWidth()) * static_cast<std::size_t>(a.GetHeight());
        return a.GetSize() == b.GetSize() && std::memcmp(a.GetData(), b.GetData(), 3 * pixels) == 0;
    }

    /// Which symbol stands in the strip; empty where there is none.
    std::string Symbol()
    {
        const auto& symbol = gui_test::Find<wxStaticBitmap>(Strip());
        if (!symbol.IsShown())
            return {};
        const wxImage shown = symbol.GetBitmap().ConvertToImage();
        for (const char* name : {"info", "range", "warning", "error"}) {
            const wxBitmapBundle picture =
                ImageLoader::LoadBundle("icons/" + wxString(name) + ".svg", wxSize(16, 16));
            if (IsSame(shown, picture.GetBitmapFor(&symbol).ConvertToImage()))
                return name;
        }
        return "unknown";
    }
};

TEST_F(MessageStripTest, AnotherRuleIsNewAnotherFigureIsNot)
{
    const auto plants = app::PlantTemplates();
    m_frame->SetDocument(std::make_unique<app::Document>(app::NewProjectFrom(
        *std::ranges::find(plants, std::string_view("demineralisation"), &app::PlantTemplate::id))));
    Water("mn.orig").SetValue(0.05);
    const auto about = [this](const char* text) {
        return std::ranges::count_if(Messages(), [text](const std::string& message) {
            return message.find(text) != std::string::npos;
        });
    };
    struct Step
    {
        double iron;  ///< mg/l
        const char* told;
        bool opens;
    };
    // From 0.3 mg/l on iron alone is warned of, from 0.5 mg/l with manganese on the sum, at the same value.
    for (const auto& [iron, told, opens] :
         {Step{0.2, "", false}, Step{0.4, "Iron 0.4\u00a0mg/l", true},
          Step{0.42, "Iron 0.42\u00a0mg/l", false}, Step{0.47, "Iron and manganese 0.52\u00a0mg/l", true},
          Step{0.48, "Iron and manganese 0.53\u00a0mg/l", false}, Step{0.4, "Iron 0.4\u00a0mg/l", false},
          Step{0.2, "", false}, Step{0.4, "Iron 0.4\u00a0mg/l", true}}) {
        if (Strip().IsExpanded())
            Strip().Toggle();
        Water("fe2.orig").SetValue(iron);
        gui_test::Pump();
        EXPECT_EQ(Strip().IsExpanded(), opens) << iron;
        EXPECT_TRUE(*told == '\0' || about(told) == 1) << told << " " << testing::PrintToString(Messages());
    }
}

TEST_F(MessageStripTest, ItsSymbolIsTheWorstOfItsLines)
{
    EXPECT_EQ(Symbol(), "");
    const auto tell = [](const char* text) { return [text] { return UserMessage{text, {}}; }; };
    m_frame->ReportNote(tell("first"));
    EXPECT_EQ(Symbol(), "info");
    Water("na.orig").SetValue(1e9);
    EXPECT_EQ(Symbol(), "range");
    Water("turbidity").SetValue(6.0);
    EXPECT_EQ(Symbol(), "warning");
    m_frame->ReportError(tell("second"));
    EXPECT_EQ(Symbol(), "error");
    m_frame->ReportNote(tell("third"));
    EXPECT_EQ(Symbol(), "error") << "not the newest";
    m_frame->ClearMessages();
    EXPECT_EQ(Symbol(), "warning") << "what is wrong still is told again";
    Water("turbidity").SetValue(0.0);
    EXPECT_EQ(Symbol(), "range");
    Water("na.orig").SetValue(6.3);
    EXPECT_EQ(Symbol(), "");
}

}  // namespace
