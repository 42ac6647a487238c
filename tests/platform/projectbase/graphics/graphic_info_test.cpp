// SPDX-License-Identifier: MIT
// The supplied graphics: one for every arrangement of exchangers, each with its values.
#include "projectbase/graphics/graphic_info.h"

#include "dbinterfaces/master_database.h"
#include "svg/printed_svg.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

using Kinds = std::vector<std::string>;

wxString NumberWithUnit(const DetailData& detail, const DBObjects::GraphicPlaceholder& placeholder,
                        const std::string& unitSystem)
{
    return wxString::Format("%g %s %s", detail.GetDoubleValue(), placeholder.withUnit ? detail.GetUnit() : "",
                            unitSystem);
}

/// All lists of kinds that a type of plant allows.
std::vector<Kinds> Arrangements(const DBObjects::PlantType& plant)
{
    std::vector<Kinds> lists{{}};
    for (const DBObjects::PlantExchanger& exchanger : plant.exchangers) {
        std::vector<Kinds> longer;
        for (Kinds kinds : lists) {
            if (exchanger.optional)
                longer.push_back(kinds);
            kinds.push_back(exchanger.kind);
            longer.push_back(kinds);
        }
        lists = longer;
    }
    return lists;
}

struct SeenText
{
    wxString id;
    wxString text;
    wxString style;
    double right = 0.0;
    double y = 0.0;
};

void CollectTexts(const wxXmlNode& node, std::vector<SeenText>& texts)
{
    // What the program reads otherwise than other viewers do.
    EXPECT_FALSE(node.HasAttribute("transform"));
    EXPECT_NE(node.GetName(), "tspan");
    EXPECT_NE(node.GetName(), "image");
    if (node.GetType() == wxXML_ELEMENT_NODE && node.GetName() == "text") {
        SeenText seen{node.GetAttribute("id"), node.GetNodeContent(), node.GetAttribute("class")};
        EXPECT_TRUE(node.GetAttribute("x").ToCDouble(&seen.right) &&
                    node.GetAttribute("y").ToCDouble(&seen.y));
        EXPECT_FALSE(node.HasAttribute("style") || node.HasAttribute("text-anchor") ||
                     node.HasAttribute("fill"));
        texts.push_back(seen);
    }
    for (const wxXmlNode* child = node.GetChildren(); child != nullptr; child = child->GetNext())
        CollectTexts(*child, texts);
}

TEST(GraphicInfo, EveryArrangementHasAGraphicWhoseValuesAreThere)
{
    const std::string captions =
        support::ReadBytes(std::string(TARNVIK_SOURCE_DIR) + "/resources/i18n/tarnvik.pot");
    int graphics = 0;
    for (const DBObjects::PlantType& plant : MasterDatabase::GetPlantTypes()) {
        for (const Kinds& kinds : Arrangements(plant)) {
            iex::IEXProject project(plant.type);
            if (kinds.empty()) {
                EXPECT_TRUE(project.GetGraphicConfigTypes().empty());
                continue;
            }
            project.SetPlant(plant.type, kinds);
            const auto configs = project.GetGraphicConfigTypes();
            ASSERT_EQ(configs.size(), 1u);
            EXPECT_EQ(configs.front().second, kinds);
            const auto graphic =
                MasterDatabase::GetGraphicInfo(project.GetModuleType(), configs.front().first, kinds);
            ASSERT_GE(graphic.id, 0) << plant.type << kinds.size();
            const auto info = FromDbGraphicInfo(graphic, project, "iso", NumberWithUnit);
            std::vector<SeenText> texts;
            CollectTexts(*info.document.GetRoot(), texts);
            std::multiset<wxString> drawn;
            for (const SeenText& text : texts) {
                if (!text.id.empty())
                    drawn.insert(text.id);
                const bool isCaption =
                    captions.find("msgid \"" + text.text.utf8_string() + "\"") != std::string::npos;
                EXPECT_EQ(isCaption, text.id.empty()) << graphic.entry << " " << text.id << " " << text.text;
            }
            std::multiset<wxString> known;
            for (const auto& mapping : info.mappings) {
                known.insert(mapping->GetId());
                const auto& value = dynamic_cast<const DetailReplaceMapping&>(*mapping);
                EXPECT_NE(value.FindDetail(), nullptr) << graphic.entry << " " << mapping->GetId();
                ASSERT_TRUE(value.GetAddress());
                EXPECT_NE(value.FindDetail()->GetLabel(), "") << mapping->GetId();
                EXPECT_EQ(project.FindDetail(*value.GetAddress()), value.FindDetail());
            }
            EXPECT_EQ(drawn, known) << graphic.entry;
            ++graphics;
        }
    }
    EXPECT_EQ(graphics, 14);
    EXPECT_EQ(MasterDatabase::GetGraphicInfo("DEMI", "LINE", {"SBA"}).id, -1);
    EXPECT_EQ(MasterDatabase::GetGraphicInfo("DEMI", "OTHER", {"SAC_H", "SBA"}).id, -1);
}

TEST(GraphicInfo, ValuesAreThoseOfTheProjectNow)
{
    iex::IEXProject project("SOFT");
    const auto graphic = MasterDatabase::GetGraphicInfo("SOFT", "LINE", {"SAC_NA"});
    const auto info = FromDbGraphicInfo(graphic, project, "iso", NumberWithUnit);
    const auto text = [&](const char* id) {
        for (const auto& mapping : info.mappings) {
            if (mapping->GetId() == id)
                return mapping->GetText("us").utf8_string();
        }
        return std::string("none");
    };
    support::SetFlow(project, 20.0);
    EXPECT_EQ(text("feed.q"), "20 m3/h us");
    support::Put(project, "water.1", "liquid/ph", 7.5);
    EXPECT_EQ(text("feed.ph"), "7.5  us");
    // The water of the plant is another one, then one that is not there.
    project.AddLiquid("second").GetDetails()->At("liquid/ph").SetValue(6.5);
    project.GetDetails().At("project/water").SetValue(2L);
    EXPECT_EQ(text("feed.ph"), "6.5  us");
    project.GetDetails().At("project/water").SetValue(9L);
    EXPECT_EQ(text("feed.ph"), "");
    support::Put(project, "ex.1", "step/diameter", 1.5);
    EXPECT_EQ(text("ex1.d"), "1.5 m us");
    project.RemoveOwner(project.GetStep(0));
    EXPECT_EQ(text("ex1.d"), "");
}

TEST(GraphicInfo, PrintedGraphicsHaveTheirValuesOnTheBaseline)
{
    const auto resolve = [](const wxString& id, const wxString& text) {
        return id.empty() ? text.Upper() : id + "=5 <";
    };
    const auto print = [&](const char* size) {
        const std::string svg =
            std::string("<svg ") + size + "><g><text id='a' x='1'>-</text><text>b</text></g><rect/></svg>";
        const std::string printed = PrintedSvg(ParseSvgDocument(svg, "g"), resolve, 0.93).svg;
        return printed.substr(printed.find("<svg"));
    };
    EXPECT_EQ(print("width=\"20\" height=\"20\""),
              "<svg width=\"20\" height=\"20\"><g><text id=\"a\" x=\"1\" dy=\"0.9300em\">a=5 &lt;</text>"
              "<text dy=\"0.9300em\">B</text></g><rect/></svg>\n");
    EXPECT_EQ(
        print("width=\"40\" height=\"20\""),
        "<svg width=\"20\" height=\"40\" viewBox=\"0 0 20 40\"><g transform=\"translate(0 40) rotate(-90)\">"
        "<g><text id=\"a\" x=\"1\" dy=\"0.9300em\">a=5 &lt;</text><text "
        "dy=\"0.9300em\">B</text></g><rect/></g></svg>\n");
    EXPECT_EQ(PrintedSvg(wxXmlDocument(), resolve, 0.93).svg, "");
}

}  // namespace
