// SPDX-License-Identifier: MIT
// The unit system on display reaches every page of every plant.
#include "app/document/plant_templates.h"
#include "app/frame/results_text.h"
#include "app/modules/base/module.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "gui_base/report/report_page_source.h"
#include "gui_base/water/feedwater/feed_medium_form.h"
#include "tests/support/metric_units.h"
#include "tests/support/program_fixture.h"

#include <wx/grid.h>
#include <wx/stattext.h>

#include <functional>
#include <set>
#include <variant>

namespace {

using namespace gui_test;

class UnitsTest : public ProgramTest
{
protected:
    UnitsTest() : ProgramTest("world_river_livingstone") {}

    using Visit = std::function<void(const wxString& text)>;

    /// What is typed in a unit of the user's choice keeps it in every unit system: such a field has the
    /// choice behind it.
    static bool IsTypedInChosenUnit(const wxWindow& field)
    {
        return dynamic_cast<const tvUnitChoice*>(field.GetNextSibling()) != nullptr;
    }

    /// Hands on the texts that are shown below a window, and the names of its fields, which hold their units.
    static void VisitTexts(const wxWindow& window, const Visit& visit)
    {
        for (const wxWindow* child : window.GetChildren()) {
            if (!child->IsShown() || child->IsTopLevel())
                continue;
            if (const auto* text = dynamic_cast<const wxStaticText*>(child)) {
                visit(text->GetLabelText());
            } else if (const auto* grid = dynamic_cast<const wxGrid*>(child)) {
                for (int column = 0; column < grid->GetNumberCols(); ++column)
                    visit(grid->GetColLabelValue(column));
            } else if (dynamic_cast<const wxTextCtrl*>(child) != nullptr && !IsTypedInChosenUnit(*child)) {
                visit(child->GetName());
            }
            VisitTexts(*child, visit);
        }
    }

    void Open(const app::PlantTemplate& plant)
    {
        m_frame->GetDocument().SetUnsaved(false);
        m_frame->SetDocument(std::make_unique<app::Document>(app::NewProjectFrom(plant)));
    }
    /// The next page in the order of the tree; false behind the last one.
    bool ShowPlace(std::size_t place)
    {
        const app::PageHost* before = m_frame->GetBook().GetCurrent();
        m_frame->GetBook().ShowPlace(place);
        Pump();
        const app::PageHost* page = m_frame->GetBook().GetCurrent();
        return page != nullptr && (place == 0 || page != before);
    }
};

TEST_F(UnitsTest, ReachThePagesOfEveryPlant)
{
    for (const app::PlantTemplate& plant : app::PlantTemplates()) {
        Open(plant);
        // Pages that there are follow, and those that are made later begin in it.
        ShowPlace(0);
        m_frame->View().SetUnitSystem("us");
        std::size_t pages = 0;
        while (ShowPlace(pages)) {
            ++pages;
            const std::string id = m_frame->GetBook().GetCurrent()->GetModule().id;
            VisitTexts(*m_frame->GetBook().GetCurrentPanel(), [&](const wxString& text) {
                EXPECT_EQ(support::MetricUnitIn(text.utf8_string()), "")
                    << plant.id << ", " << id << ": " << text.utf8_string();
            });
        }
        EXPECT_GT(pages, 4u) << plant.id;
        m_frame->View().SetUnitSystem("iso");
    }
}

/// All texts of a page; those of a drawing are what stands between its tags.
void VisitReport(const report::Section& section, const std::function<void(const std::string& text)>& visit)
{
    visit(section.title);
    for (const report::Block& block : section.blocks) {
        if (const auto* heading = std::get_if<report::Heading>(&block)) {
            visit(heading->text);
        } else if (const auto* paragraph = std::get_if<report::Paragraph>(&block)) {
            visit(paragraph->text);
        } else if (const auto* drawing = std::get_if<report::Drawing>(&block)) {
            std::string text;
            bool isTag = false;
            for (const char c : drawing->svg) {
                isTag = c == '<' || (isTag && c != '>');
                text += isTag || c == '>' ? ' ' : c;
            }
            visit(text);
        } else if (const auto* table = std::get_if<report::Table>(&block)) {
            for (const report::Column& column : table->columns)
                visit(column.title + " [" + column.unit + "]");
            for (const report::Row& row : table->rows) {
                for (const report::Cell& cell : row.cells)
                    visit(cell.text);
            }
        }
    }
}

TEST_F(UnitsTest, ReachEveryPageOfTheReportAndCopiedResults)
{
    ReportContext us;
    us.unitSystem = "us";
    std::set<std::string> kinds;
    for (const app::PlantTemplate& plant : app::PlantTemplates()) {
        const auto project = app::NewProjectFrom(plant);
        const auto owned = app::ReportSources(*project);
        for (const auto& source : owned) {
            for (const ReportPage& page : source->GetReportPages(us)) {
                kinds.insert(page.name.substr(page.name.find(':') + 1));
                VisitReport(source->BuildReportPage(page.id, us), [&](const std::string& text) {
                    EXPECT_EQ(support::MetricUnitIn(text), "")
                        << plant.id << ", " << page.name << ": " << text;
                });
            }
        }
        for (std::size_t i = 0; i < project->GetLiquidCount(); ++i) {
            const wxString copied = app::ResultsText(project->GetLiquid(i), "us");
            EXPECT_EQ(support::MetricUnitIn(copied.utf8_string()), "") << copied.utf8_string();
        }
    }
    for (const char* kind : {"project", "analysis", "feed", "design", "overview", "regeneration", "cost"})
        EXPECT_TRUE(kinds.contains(kind)) << kind;
}

TEST_F(UnitsTest, TheTemperatureOfAMediumFollowsUntilAnotherUnitIsChosen)
{
    FeedMediumForm& form = gui_test::Find<FeedMediumForm>(FeedPage());
    const auto& unit = gui_test::Find<tvUnitChoice>(form);
    const TvTextCtrl& field = *form.FindField(FeedMediumForm::kTemperature);
    EXPECT_EQ(field.GetValue() + unit.GetStringSelection(), wxString::FromUTF8("20\u00b0C"));
    const bool wasUnsaved = m_frame->GetDocument().IsUnsaved();
    m_frame->View().SetUnitSystem("us");
    Pump();
    EXPECT_EQ(field.GetValue() + unit.GetStringSelection(), wxString::FromUTF8("68\u00b0F"));
    EXPECT_EQ(m_frame->GetDocument().IsUnsaved(), wasUnsaved) << "the same temperature";
    m_frame->View().SetUnitSystem("iso");
    Pump();
    EXPECT_EQ(field.GetValue() + unit.GetStringSelection(), wxString::FromUTF8("20\u00b0C"));
}

TEST_F(UnitsTest, AWaterHasOneTemperatureWhereItIsTypedInTheUnitOnDisplay)
{
    FeedWaterPanel& page = WaterPage();
    const TvTextCtrl& shown = *page.FindField("liquid/temp");
    EXPECT_FALSE(shown.IsShown()) << "typed and shown in degrees Celsius";
    m_frame->View().SetUnitSystem("us");
    Pump();
    EXPECT_TRUE(shown.IsShown());
    EXPECT_EQ(shown.GetValue(), "59");
    m_frame->View().SetUnitSystem("iso");
    Pump();
    EXPECT_FALSE(shown.IsShown());
}

}  // namespace
