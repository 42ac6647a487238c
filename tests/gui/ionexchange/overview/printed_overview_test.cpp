// SPDX-License-Identifier: MIT
// The report prints what the window shows.
#include "dbinterfaces/master_database.h"
#include "gui_base/graphics/svg/svg_panel.h"
#include "gui_base/report/overview_report.h"
#include "report/pdf_writer.h"
#include "tests/support/gui_test.h"
#include "tests/support/pdf.h"
#include "tests/support/plant_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace gui_test;
using testing::HasSubstr;

/// How much two pictures of a size differ to an eye that sees patches of some pixels: the share of the
/// patches whose brightness differs by more than a seventh.
double DifferenceOf(const wxImage& first, const wxImage& second)
{
    constexpr int kPatch = 6;
    constexpr double kNoticed = 36.0;
    const auto brightness = [](const wxImage& image, int left, int top) {
        double sum = 0.0;
        for (int y = top; y < top + kPatch; ++y) {
            for (int x = left; x < left + kPatch; ++x)
                sum += (image.GetRed(x, y) + image.GetGreen(x, y) + image.GetBlue(x, y)) / 3.0;
        }
        return sum / (kPatch * kPatch);
    };
    int different = 0;
    int all = 0;
    for (int y = 0; y + kPatch <= first.GetHeight(); y += kPatch) {
        for (int x = 0; x + kPatch <= first.GetWidth(); x += kPatch, ++all)
            different += std::abs(brightness(first, x, y) - brightness(second, x, y)) > kNoticed ? 1 : 0;
    }
    return static_cast<double>(different) / all;
}

class PrintedOverviewTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        support::SetWater(m_project, {{"ca", 2.5}, {"na", 1.0}, {"hco3", 2.5}, {"cl", 1.0}});
        support::SetFlow(m_project);
    }
    /// As other programs draw it.
    wxImage Draw(const std::string& svg)
    {
        const auto path = m_folder / "graphic.svg";
        support::WriteBytes(path, svg);
        support::OutputOf("rsvg-convert '" + path.string() + "' -o '" + path.string() + ".png'");
        return wxImage(wxString::FromUTF8(path.string() + ".png"));
    }

    iex::IEXProject m_project{"SOFT"};
    support::TempFolder m_folder;
};

TEST_F(PrintedOverviewTest, LooksLikeTheWindow)
{
    const ReportContext context;
    const report::Section section = OverviewReport(m_project).BuildReportPage(0, context);
    const std::string svg = std::get<report::Drawing>(section.blocks.at(0)).svg;
    EXPECT_THAT(svg, HasSubstr(">20 m\u00b3/h<"));
    const auto info = FromDbGraphicInfo(MasterDatabase::GetGraphicInfo("SOFT", "LINE", {"SAC_NA"}), m_project,
                                        "iso", overviewtext::Formatter(context));
    auto* panel = new SvgPanel(info, m_frame);
    const wxImage shown = panel->TakePicture(1.0).ConvertToImage();
    const wxImage printed = Draw(svg);
    ASSERT_EQ(shown.GetSize(), printed.GetSize());
    EXPECT_LT(DifferenceOf(shown, printed), 0.005);
    // The measure sees texts that stand a line too high.
    std::string unshifted = svg;
    for (std::size_t at = 0; (at = unshifted.find(" dy=\"", at)) != std::string::npos;)
        unshifted.replace(at, 5, " no=\"");
    EXPECT_GT(DifferenceOf(shown, Draw(unshifted)), 0.03);
    panel->Destroy();
}

TEST_F(PrintedOverviewTest, IsAPageWithRealText)
{
    ReportContext context;
    context.translate = [](const char* text) {
        return text == std::string("Feed water") ? "Rohwasser" : text;
    };
    context.unitSystem = "us";
    const OverviewReport source(m_project);
    ASSERT_EQ(source.GetReportPages(context).size(), 1u);
    report::Document document;
    document.sections.push_back(source.BuildReportPage(0, context));
    const auto path = m_folder / "overview.pdf";
    support::WriteBytes(path, report::WritePdf(document));
    const std::string text = support::OutputOf("pdftotext -layout '" + path.string() + "' -");
    EXPECT_THAT(text, HasSubstr("Rohwasser"));
    EXPECT_THAT(text, HasSubstr("gpm"));
    EXPECT_THROW(source.BuildReportPage(1, context), std::out_of_range);
    m_project.RemoveOwner(m_project.GetStep(0));
    EXPECT_TRUE(source.GetReportPages(context).empty());
}

}  // namespace
