// SPDX-License-Identifier: MIT
// Where work begins: plants, examples, and the pages behind them.
#include "app/frame/start_page.h"

#include "app/document/plant_templates.h"
#include "app/frame/ion_strip.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/report/water_diagram.h"
#include "gui_base/water/results/water_results_panel.h"
#include "projectbase/project/iex_project.h"
#include "tests/app/frame/work_area_fixture.h"
#include "tncommon/data_dir.h"
#include "tncommon/zip_archive.h"

#include <wx/button.h>

namespace {

using StartPageTest = gui_test::WorkAreaFixture;

}  // namespace

TEST_F(StartPageTest, TheStartPageBeginsProjects)
{
    m_frame->ShowStart();
    gui_test::Pump();
    ASSERT_TRUE(Area().IsCoverShown());
    const std::size_t waters = OpenProject().GetLiquidCount();
    gui_test::Press('D', wxMOD_CONTROL);
    EXPECT_EQ(OpenProject().GetLiquidCount(), waters) << "nobody changes a water behind the page";
    const TvButton& balance = gui_test::Find<wateranalysis::WaterResultsPanel>(Area()).GetBalanceButton();
    EXPECT_FALSE(balance.IsEnabled());
    auto& softener = gui_test::Find<wxButton>(*m_frame, "Softener");
    softener.SetFocus();
    gui_test::Press(WXK_SPACE);
    gui_test::Pump();
    EXPECT_FALSE(Area().IsCoverShown());
    EXPECT_TRUE(balance.IsEnabled());
    EXPECT_EQ(OpenProject().GetModuleType(), "SOFT");
    // From any page of the tree back to the pages.
    m_frame->ShowStart();
    m_frame->GetMessageArea().AddMessage(app::MessageArea::Severity::Info, wxString("x"));
    Tree().SelectItem(Item("Project"));
    EXPECT_FALSE(Area().IsCoverShown());
}

TEST_F(StartPageTest, ExamplesHaveAPictureOfTheirIons)
{
    const DetailList& water = *OpenProject().GetLiquid(0).GetDetails();
    const auto pieces = water_diagram::PiecesOf(diagrams::IonsOf(water));
    const diagrams::WaterIons ions = diagrams::IonsOf(water);
    const wxImage strip = app::IonStrip(water, wxSize(200, 40)).ConvertToImage();
    const auto count = [&strip](int y, const chartdir::Colour& colour) {
        int pixels = 0;
        for (int x = 0; x < strip.GetWidth(); ++x)
            pixels += strip.GetRed(x, y) == colour.red && strip.GetGreen(x, y) == colour.green &&
                      strip.GetBlue(x, y) == colour.blue && strip.GetAlpha(x, y) == wxIMAGE_ALPHA_OPAQUE;
        return pixels;
    };
    const double longest = std::max(ions.CationSum(), ions.AnionSum());
    EXPECT_NEAR(count(10, pieces.cations.front().colour), 200.0 * ions.calcium / longest, 1.0);
    EXPECT_NEAR(count(30, pieces.anions.front().colour), 200.0 * ions.bicarbonate / longest, 1.0);
    const auto empty = app::NewEmptyProject();
    EXPECT_EQ(
        app::IonStrip(*empty->GetLiquid(0).GetDetails(), wxSize(20, 8)).ConvertToImage().GetAlpha(10, 2),
        wxIMAGE_ALPHA_TRANSPARENT);
}

TEST_F(StartPageTest, APageBehindTheStartPageShowsWhatWasChangedMeanwhile)
{
    TvTextCtrl& sodium = *WaterPage().FindField("liquid/na.orig");
    const wxString before = sodium.GetValue();
    gui_test::Enter(sodium, "4321");
    gui_test::Pump();
    EXPECT_TRUE(MenuItem(wxID_UNDO).IsEnabled());
    m_frame->ShowStart();
    EXPECT_FALSE(MenuItem(wxID_UNDO).IsEnabled()) << "nobody would see what is undone";
    m_frame->Undo();
    gui_test::Pump();
    m_frame->ShowPages();
    gui_test::Pump();
    EXPECT_EQ(sodium.GetValue(), before);
}

TEST_F(StartPageTest, TheProgramOpensWithItsStartPage)
{
    // As the program does without a file: the page stands there before the window.
    auto* second = new app::MainFrame(std::make_unique<app::Document>(app::NewEmptyProject()));
    second->ShowStart();
    second->Show();
    gui_test::Pump();
    EXPECT_TRUE(second->IsStartShown());
    second->Files().New();
    gui_test::Pump();
    EXPECT_FALSE(second->IsStartShown());
    const auto& page = dynamic_cast<FeedWaterPanel&>(*second->GetBook().GetCurrentPanel());
    EXPECT_EQ(wxWindow::FindFocus(), page.FindField("liquid/na.orig")) << "typing begins at once";
    second->GetDocument().SetUnsaved(false);
    second->Close();
    gui_test::Pump();
}

TEST_F(StartPageTest, EveryPlantOfTheStartPageHasItsDrawing)
{
    const tncommon::ZipArchive drawings(tncommon::DataDir() / "graphics.zrc");
    for (const app::PlantTemplate& plant : app::PlantTemplates()) {
        EXPECT_TRUE(drawings.Read(plant.drawing, std::size_t{1} << 20).has_value()) << plant.drawing;
        // Of the exchangers that the project begins with.
        const auto project = app::NewProjectFrom(plant);
        std::string exchangers;
        for (std::size_t i = 0; i < project->NumberSteps(); ++i)
            exchangers +=
                "_" +
                project->GetStep(i).GetDetails()->At("step/kind").GetStringValue().Lower().utf8_string();
        EXPECT_NE(std::string(plant.drawing).find(exchangers + ".svg"), std::string::npos)
            << plant.drawing << " " << exchangers;
    }
}
