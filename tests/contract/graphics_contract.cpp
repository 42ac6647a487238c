// SPDX-License-Identifier: MIT
// What programs that draw plant graphics of their own rely on.
#include "gui_base/graphics/svg/svg_panel.h"
#include "gui_base/graphics/svg/svg_parser.h"
#include "gui_base/ionexchange/overview/iex_wplantoverview.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/gui_test.h"

#include <fstream>

namespace {

using namespace gui_test;

/// A parser of another kind: one text, whatever the document says.
class OneText : public SvgParserBase
{
public:
    int parsed = 0;

protected:
    ParserResult* DoParseXml(wxXmlDocument* document) override
    {
        ++parsed;
        m_result = std::make_unique<ParserResult>();
        auto text = std::make_unique<TextElement>();
        text->id = document->GetRoot()->GetName();
        text->kind = 1;
        text->font = *wxNORMAL_FONT;
        m_result->elements.push_back(std::move(text));
        m_result->bitmap.Create(30, 20);
        return m_result.get();
    }

private:
    std::unique_ptr<ParserResult> m_result;
};

class Fixed : public TextReplaceMapping
{
public:
    wxString GetId() const override { return "svg"; }
    wxString GetText(const wxString& unitsystem) const override { return "in " + unitsystem; }
};

class Graphics : public GuiTest
{};

TEST_F(Graphics, ParsersCanBePluggedIn)
{
    const std::string path = (std::filesystem::temp_directory_path() / "contract.svg").string();
    std::ofstream(path) << "<svg/>";
    const auto info = SvgGraphicInfo<FileLoadPolicy>::Load({path}, "us", {std::make_shared<Fixed>()});
    std::filesystem::remove(path);
    auto own = std::make_unique<OneText>();
    const OneText& seen = *own;
    const std::unique_ptr<SvgParserBase> parser = std::move(own);
    SvgRenderer<FileLoadPolicy> renderer(info, parser);
    EXPECT_EQ(renderer.GetDrawableMinSize(), wxSize(30, 20));
    ASSERT_EQ(renderer.GetShownValues().size(), 1u);
    EXPECT_EQ(renderer.GetShownValues()[0].text, "in us");
    renderer.SetUnitsystem("iso");
    renderer.UpdateValues();
    EXPECT_EQ(renderer.GetShownValues()[0].text, "in iso");
    EXPECT_EQ(seen.parsed, 1);
    renderer.SetGraphic(info);
    EXPECT_EQ(seen.parsed, 2);
    EXPECT_EQ(renderer.DrawOnContext(nullptr), wxSize(0, 0));
}

TEST_F(Graphics, ThePlantOverviewIsAPanelOfItsProject)
{
    iex::IEXProject project("MB");
    iex::IEXPlantOverviewPanelImpl panel(&project, m_frame, "overview", 7, wxPoint(1, 2), wxSize(300, 200),
                                         wxHSCROLL | wxVSCROLL);
    EXPECT_EQ(panel.GetId(), 7);
    EXPECT_EQ(panel.GetGraphics().size(), 1u);
    EXPECT_TRUE(panel.GetActiveMessages().empty());
    panel.UpdateUnits(true);
    panel.Localize("us");
    EXPECT_FALSE(panel.HasWhatIf());
    EXPECT_NE(panel.GetZoom(), 1.0) << "as large as the room that its parent gives";
}

}  // namespace
