// SPDX-License-Identifier: MIT
// What the pages of a water say.
#include "gui_base/report/water_report.h"

#include "gui_base/report/feed_report.h"
#include "gui_base/report/report_builder.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/settings/settings.h"
#include "report/pdf_writer.h"
#include "tests/support/pdf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

ReportContext German()
{
    ReportContext context;
    context.separators.decimal.assign(1, ',');
    context.language = "de";
    context.translate = [](const char* source) { return "<" + std::string(source) + ">"; };
    return context;
}

class WaterReportTest : public testing::Test
{
protected:
    WaterReportTest()
    {
        Type("na", 45.98, "mg/l");
        Type("ca", 4.0, "\u00b0d");
        Type("hco3", 122.0, "ppm");
        Type("cl", 1.5, "meq/l");
    }

    DetailList& Details() { return *m_project.GetLiquid(0).GetDetails(); }
    void Type(const std::string& ion, double value, const char* unit)
    {
        Details().At("liquid/" + ion + ".orig").SetValue(value);
        Details().At("liquid/" + ion + ".unit").SetValue(unit);
    }
    /// All rows of all tables of a page, cells separated by bars; marked cells in brackets; other texts as
    /// they are.
    std::string Page(int id, const ReportContext& context = {})
    {
        m_project.CalculateDesign();
        std::string text;
        const report::Section section = WaterReport(m_project).BuildReportPage(id, context);
        for (const report::Block& block : section.blocks) {
            if (const auto* heading = std::get_if<report::Heading>(&block))
                text += "# " + heading->text + "\n";
            else if (const auto* paragraph = std::get_if<report::Paragraph>(&block))
                text += paragraph->text + "\n";
            else if (const auto* table = std::get_if<report::Table>(&block)) {
                for (const report::Row& row : table->rows) {
                    for (const report::Cell& cell : row.cells)
                        text += (cell.alarm ? "[" + cell.text + "]" : cell.text) + "|";
                    text += "\n";
                }
            }
        }
        return text;
    }

    iex::IEXProject m_project;
};

TEST_F(WaterReportTest, ShowsIonsAsTypedAndCalculated)
{
    const std::string page = Page(0);
    EXPECT_THAT(page, HasSubstr("# Cations\nSodium|45.98|mg/l|45.98|2|\nCalcium|4|\u00b0d|"));
    EXPECT_THAT(page, ContainsRegex("Calcium\\|4\\|.*\\|28\\.6[0-9]*\\|1\\.42[0-9]*\\|"));
    EXPECT_THAT(page, ContainsRegex("HCO3\\|122\\|ppm\\|122\\|1\\.99[0-9]*\\|"));
    EXPECT_THAT(page, ContainsRegex("Sum of anions\\|\\|\\|\\|3\\.49"));
    EXPECT_THAT(page, Not(HasSubstr("Magnesium"))) << "what was not analysed has no row";
    EXPECT_THAT(page,
                AllOf(HasSubstr("Sodium that closes the balance||||0.070"), Not(HasSubstr("Chloride that"))));
    EXPECT_THAT(page, HasSubstr("Analysis|Full analysis|"));
}

TEST_F(WaterReportTest, JudgesTheIonBalance)
{
    EXPECT_THAT(Page(0), AllOf(HasSubstr("|-1.02|%|"), HasSubstr("\n-1.0\u00a0%, in order")));
    Type("cl", 0.0, "meq/l");
    EXPECT_THAT(Page(0), AllOf(HasSubstr("[26.3"), HasSubstr("over the limit of Standard Methods 1030E")));
    Details().At("liquid/balance.auto").SetValue(true);
    EXPECT_THAT(Page(0), AllOf(HasSubstr("|26.3"), HasSubstr("closed by automatic balancing")));
}

TEST_F(WaterReportTest, EvaluatesTheWater)
{
    Details().At("liquid/ph").SetValue(8.5);
    Details().At("liquid/fe.total").SetValue(2.0);
    const std::string page = Page(2);
    EXPECT_THAT(page, ContainsRegex("Total hardness\\|1\\.42[0-9]*\\|meq/l\\|71\\.[0-9]*"));
    EXPECT_THAT(page, HasSubstr("Ion balance|||-1.0\u00a0%, in order|"));
    EXPECT_THAT(page, ContainsRegex("# Saturation indices\nLangelier index\\|0\\.[0-9]+\\|\n"));
    EXPECT_THAT(page, Not(HasSubstr("Barite")));
    EXPECT_THAT(page, HasSubstr("[Warning]|Iron 2\u00a0mg/l is not below 1\u00a0mg/l"));
    EXPECT_THAT(Page(2, German()), HasSubstr("<Langelier index>|0,"));
    Details().At("liquid/analysis.type").SetValue("SHORT_TDS");
    EXPECT_THAT(Page(2), Not(HasSubstr("Langelier")));
}

TEST_F(WaterReportTest, TellsWhatAShortAnalysisRestsOn)
{
    Details().At("liquid/analysis.type").SetValue("SHORT_TDS");
    Details().At("liquid/tds.short").SetValue(584.4);
    const std::string page = Page(0);
    EXPECT_THAT(page, HasSubstr("Short analysis based on TDS: 584.4\u00a0mg/l|"));
    EXPECT_THAT(page, ContainsRegex("Sodium\\|\\|\\|229\\.9"));
    EXPECT_THAT(page, Not(HasSubstr("Calcium")));
    EXPECT_THAT(Page(1), Not(HasSubstr("hardness"))) << "nothing is known of it";
}

TEST_F(WaterReportTest, StatesWhereTheWaterComesFrom)
{
    const auto set = [this](const char* key, const char* value) {
        Details().Add(DetailData(key, DetailType::String)).SetValue(value);
    };
    set("liquid/country", "DE");
    set("liquid/place", "K\u00f6ln");
    set("liquid/comments", "two\nlines");
    EXPECT_THAT(Page(0, German()), AllOf(HasSubstr("<Country>|Deutschland|"), HasSubstr("<Place>|K\u00f6ln|"),
                                         HasSubstr("<Comments>|two\nlines|")));
    set("liquid/country", "Atlantis");
    EXPECT_THAT(Page(0), AllOf(HasSubstr("Country|Atlantis|"), Not(HasSubstr("Water source"))));
}

TEST_F(WaterReportTest, ConvertsPropertiesToTheUnitSystem)
{
    Details().At("liquid/temp.orig").SetValue(25.0);
    ReportContext us;
    us.unitSystem = "us";
    EXPECT_THAT(Page(1, us), AllOf(HasSubstr("Temperature|77|\u00b0F|"), HasSubstr("psi")));
    EXPECT_THAT(Page(1, German()), HasSubstr("<Temperature>|25|\u00b0C|"));
    EXPECT_THAT(Page(1, German()), ContainsRegex("<Ionic strength>\\|0,00[0-9]+\\|mol/l\\|"));
    EXPECT_THAT(Page(1), HasSubstr("pH|||")) << "not known, hence empty";
    EXPECT_THAT(Page(1), Not(HasSubstr("Turbidity")));
    EXPECT_THAT(Page(1), ContainsRegex(
                             "Total hardness\\|1\\.42[0-9]*\\|0\\.71[0-9]*\\|4\\.00[0-9]*\\|71\\.[0-9]+\\|"));
    EXPECT_THAT(Page(1), ContainsRegex("Equivalent mineral acidity\\|1\\.5\\|\\|4\\.2[0-9]*\\|75"));
}

TEST_F(WaterReportTest, GivesHardnessInTheDegreeOfItsReader)
{
    ReportContext context;
    EXPECT_THAT(Page(1, context),
                ContainsRegex("Total hardness\\|1\\.4[0-9]*\\|0\\.7[0-9]*\\|4\\.0[0-9]*\\|71"));
    context.unitSystem = "imperial";
    EXPECT_THAT(Page(1, context),
                ContainsRegex("Total hardness\\|1\\.4[0-9]*\\|0\\.7[0-9]*\\|5\\.0[0-9]*\\|71"));
    context.unitSystem = "us";
    EXPECT_THAT(Page(1, context), ContainsRegex("Total hardness\\|1\\.4[0-9]*\\|0\\.7[0-9]*\\|71"));
}

TEST_F(WaterReportTest, LeavesOutAnAlkalinityThatNobodyAnalysed)
{
    Details().At("liquid/ph").SetValue(7.0);
    EXPECT_THAT(Page(1), AllOf(HasSubstr("Carbonate hardness|"), HasSubstr("Alkalinity (m-value)|")));
    Details().At("liquid/hco3.orig").SetValue(std::nan(""));
    EXPECT_THAT(Page(1), AllOf(HasSubstr("Total hardness|"), Not(HasSubstr("Carbonate hardness|")),
                               Not(HasSubstr("Alkalinity (m-value)|"))));
}

TEST_F(WaterReportTest, ShowsAReportedAlkalinityInPlaceOfBicarbonate)
{
    Type("hco3", 5.0, "mg/l");
    Type("alkalinity.m", 7.0, "\u00b0d");
    EXPECT_THAT(Page(1), AllOf(HasSubstr("m-value|7|\u00b0d|"), Not(HasSubstr("p-value|"))));
    EXPECT_THAT(Page(0), ContainsRegex("HCO3\\|\\|\\|152\\.[0-9]*\\|2\\.5")) << "not what was typed for it";
    EXPECT_THAT(Page(1), ContainsRegex("m-value\\)\\|2\\.5\\|\\|7\\.0[0-9]*\\|125"));
}

TEST_F(WaterReportTest, ShowsWhatWasMeasuredAndContradictsTheAnalysis)
{
    EXPECT_THAT(Page(1), Not(HasSubstr("Measured hardness")));
    Type("hardness.measured", 8.0, "\u00b0d");
    Type("cond25.measured", 0.0, "mS/m");
    EXPECT_THAT(Page(1),
                AllOf(HasSubstr("Measured hardness|8|\u00b0d|"), HasSubstr("Measured conductivity|0|mS/m|")));
    EXPECT_THAT(Page(1),
                HasSubstr("Measured hardness 8\u00a0\u00b0d differs by more than a tenth from what the "
                          "analysis gives, 4\u00a0\u00b0d"));
}

TEST_F(WaterReportTest, CountsTheAcidOfThePhAgainstTheAlkalinity)
{
    Type("hco3", 0.0, "mg/l");
    Details().At("liquid/ph").SetValue(3.0);
    EXPECT_THAT(Page(1), ContainsRegex("m-value\\)\\|-1\\.0[0-9]*\\|\\|"));
    EXPECT_THAT(Page(1), HasSubstr("Carbonate hardness|0|0|"));
}

TEST_F(WaterReportTest, MarksWhatIsOutOfRange)
{
    Details().At("liquid/ph").SetValue(15.0);
    Details().At("liquid/temp.orig").SetValue(-5.0);
    Details().At("liquid/turbidity").SetValue(20000.0);
    ReportContext us;
    us.unitSystem = "us";
    EXPECT_THAT(Page(1, us), AllOf(HasSubstr("pH|[\u25b2 15]|"), HasSubstr("Temperature|[\u25bc 23]|"),
                                   HasSubstr("# Values out of range\npH 15 is above the maximum of 14\n"
                                             "Temperature -5\u00a0\u00b0C is below the minimum of "
                                             "0\u00a0\u00b0C\nTurbidity 20000\u00a0NTU is above")))
        << "what is typed in a unit of its own keeps it";
    EXPECT_THAT(Page(1), HasSubstr("Alkalinity (m-value)|||||\n")) << "pH 15 tells nothing";
    EXPECT_THAT(Page(1), HasSubstr("Carbonate hardness|||||\n"));
    Type("na", 1e6, "meq/l");
    EXPECT_THAT(Page(0), HasSubstr("[\u25b2 1000000]"));
}

TEST_F(WaterReportTest, TellsOfAlkalizationAndBlend)
{
    EXPECT_EQ(Page(0).find("Alkalization"), std::string::npos);
    Details().At("liquid/ph").SetValue(7.0);
    Details().At("liquid/alk.type").SetValue("naoh");
    Details().At("liquid/alk.target").SetValue(8.5);
    const std::string page = Page(0);
    EXPECT_NE(page.find("Alkalization: Sodium hydroxide "), std::string::npos) << page;
    EXPECT_NE(page.find(", pH\u00a08.5\n"), std::string::npos) << page;
    m_project.AddLiquid("Well");
    LiquidData& blend = m_project.AddLiquid("Blend");
    blend.FindDetail("liquid/blend.first")->SetValue("Feed water");
    blend.FindDetail("liquid/blend.second")->SetValue("Well");
    blend.FindDetail("liquid/blend.share")->SetValue(30.0);
    EXPECT_NE(Page(6).find("Blend: 30\u00a0% Feed water, 70\u00a0% Well\n"), std::string::npos);
}

TEST_F(WaterReportTest, TheFeedHasAPageOnceItHasCompounds)
{
    const FeedReport report(m_project);
    const ReportContext context;
    EXPECT_TRUE(report.GetReportPages(context).empty());
    EXPECT_THROW(report.BuildReportPage(0, context), std::out_of_range);
    FeedComposition composition;
    DBObjects::Compound salt;
    salt.name = "Sodium chloride";
    salt.formula = "NaCl";
    salt.valency = 1;
    composition.Add(salt);
    composition.SetFeed(0, FeedComposition::Unit::MgPerLitre, 58.44);
    composition.SetUsesEffluent(true);
    m_project.SaveFeedCompositionToDetails(composition);
    ASSERT_EQ(report.GetReportPages(context).size(), 1u);
    const report::Section section = report.BuildReportPage(0, context);
    std::vector<const report::Table*> tables;
    for (const report::Block& block : section.blocks)
        if (const auto* table = std::get_if<report::Table>(&block))
            tables.push_back(table);
    ASSERT_EQ(tables.size(), 3u) << "medium, feed, effluent";
    ASSERT_EQ(tables[1]->rows.size(), 2u);
    EXPECT_EQ(tables[1]->rows[0].cells[0].text, "Sodium chloride");
    EXPECT_EQ(tables[1]->rows[0].cells[2].text, "58.44");
    EXPECT_EQ(tables[1]->rows[1].cells[2].text, "58.44");
    EXPECT_TRUE(tables[1]->rows[1].total);
    EXPECT_EQ(tables[2]->rows[0].cells[2].text, "0");
}

TEST_F(WaterReportTest, HasThePagesOfEveryWater)
{
    m_project.AddLiquid("Second");
    const WaterReport waters(m_project);
    const ReportPageSource* const sources[] = {&waters, &waters};
    const ReportBuilder builder(sources, German());
    std::vector<std::string> names;
    for (const ReportPage& page : builder.GetPages())
        names.push_back(page.name + " " + page.title.utf8_string());
    names.resize(6);
    EXPECT_THAT(names, ElementsAre("0:analysis <Feed water><:> <Water analysis>",
                                   "0:properties <Feed water><:> <Properties of the water>",
                                   "0:evaluation <Feed water><:> <Evaluation of the water>",
                                   "1:analysis <Second><:> <Water analysis>",
                                   "1:properties <Second><:> <Properties of the water>",
                                   "1:evaluation <Second><:> <Evaluation of the water>"));
    EXPECT_THAT(builder.FindPages("1:analysis"), ElementsAre(3, 9));
    EXPECT_THAT(builder.FindPages("analysis"), ElementsAre(0, 3, 6, 9));
    EXPECT_TRUE(builder.FindPages("lysis").empty());
    const report::Document document = builder.Build({4, 0, 4}, {.title = "T"});
    ASSERT_EQ(document.sections.size(), 2u);
    EXPECT_EQ(document.sections[1].title, "<Second><:> <Properties of the water>");
    EXPECT_THROW(builder.Build({12}, {}), std::out_of_range);
    EXPECT_THROW(waters.BuildReportPage(6, {}), std::out_of_range);
    EXPECT_THROW(waters.BuildReportPage(-1, {}), std::out_of_range);
}

TEST_F(WaterReportTest, TakesItsHeadFromTheProject)
{
    m_project.GetDetails().At("project/customer").SetValue("Works");
    m_project.GetDetails().At("project/author").SetValue("Somebody");
    ReportHead head = MakeReportHead(m_project, "plant", "Program 1");
    EXPECT_EQ(head.title, "plant");
    m_project.GetDetails().At("project/title").SetValue("Boiler house");
    head = MakeReportHead(m_project, "plant", "Program 1");
    const WaterReport waters(m_project);
    const ReportPageSource* const sources[] = {&waters};
    const support::PdfFile pdf(report::WritePdf(ReportBuilder(sources, {}).Build({0, 1}, head)));
    for (const int page : {1, 2}) {
        EXPECT_THAT(pdf.Text(page), ContainsRegex("Boiler house +" + head.date));
        EXPECT_THAT(pdf.Text(page), HasSubstr("Program 1 \u00b7 ISO units"));
    }
    EXPECT_THAT(pdf.Text(1), HasSubstr("Customer: Works \u00b7 Author: Somebody"));
    EXPECT_THAT(pdf.Text(2), HasSubstr("checked by a qualified"));
    EXPECT_THAT(pdf.Info(), ContainsRegex("Author: +Somebody"));
}

TEST_F(WaterReportTest, LimitsOfTheUserAreNotCalledUsual)
{
    struct Case
    {
        const char* setting;
        const char* limit;
        const char* row;
    };
    Type("fe2", 0.9, "mg/l");
    Type("mn", 0.3, "mg/l");
    for (const Case& c : {Case{"fe.soft.note", "0.3",
                               "Note|Iron 0.9\u00a0mg/l is above the usual limit of 0.3\u00a0mg/l ahead of "
                               "ion exchangers|Practice; "},
                          {"fe.soft.note", "0.4",
                           "Note|Iron 0.9\u00a0mg/l is above the limit of 0.4\u00a0mg/l that the user set "
                           "for water ahead of ion "
                           "exchangers|Set by the user; usual is 0.3\u00a0mg/l|"},
                          {"fe.soft.warn", "0.5",
                           "[Warning]|Iron 0.9\u00a0mg/l is above the limit of 0.5\u00a0mg/l that the user "
                           "set for water ahead of ion "
                           "exchangers|Set by the user; usually there is no limit|"},
                          {"femn.soft.warn", "1.2",
                           "[Warning]|Iron and manganese 1.2\u00a0mg/l is not below the limit of "
                           "1.2\u00a0mg/l that the user set for "
                           "water ahead of ion exchangers|Set by the user; usual is 1\u00a0mg/l|"}}) {
        ASSERT_TRUE(Settings::SetFromText(std::string("limit.") + c.setting, c.limit));
        EXPECT_THAT(Page(2), HasSubstr(c.row));
        Settings::Reset();
    }
}

}  // namespace
