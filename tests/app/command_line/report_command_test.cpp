// SPDX-License-Identifier: MIT
// "tarnvik report" as a user runs it: the real program without a display.
#include "app/command_line/report_command.h"

#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_file.h"
#include "tests/support/pdf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <sys/wait.h>

namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

class Report : public testing::Test
{
protected:
    void SetUp() override
    {
        iex::IEXProject project;
        project.GetDetails().At("project/title").SetValue("Kraftwerk \u00c4");
        project.AddLiquid("Second water");
        DetailList& details = *project.GetLiquid(0).GetDetails();
        details.At("liquid/na.orig").SetValue(23.5);
        details.At("liquid/cl.orig").SetValue(35.45);
        ProjectFile::Save(project, m_project);
    }

    /// The exit status; what the program printed is in m_printed.
    int Run(const std::string& arguments)
    {
        const std::string before = support::ReadBytes(m_project);
        const std::string log = (m_folder / "log").string();
        const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY '" TARNVIK_PROGRAM "' report " +
                                    arguments + " >'" + log + "' 2>&1";
        const int status = std::system(command.c_str());
        m_printed = support::ReadBytes(log);
        EXPECT_EQ(support::ReadBytes(m_project), before);
        EXPECT_TRUE(WIFEXITED(status));
        return WEXITSTATUS(status);
    }
    int RunOn(const std::string& options) { return Run("'" + m_project + "' -o '" + m_pdf + "' " + options); }
    support::PdfFile Pdf() const { return support::PdfFile(support::ReadBytes(m_pdf)); }

    support::TempFolder m_folder;
    std::string m_project = (m_folder / "plant.tarnvik").string();
    std::string m_pdf = (m_folder / "out.pdf").string();
    std::string m_printed;
};

TEST_F(Report, WritesAllPagesInEnglish)
{
    ASSERT_EQ(RunOn(""), 0) << m_printed;
    EXPECT_EQ(m_printed, "");
    const std::string text = Pdf().Text();
    EXPECT_THAT(text, AllOf(HasSubstr("Kraftwerk \u00c4"), HasSubstr("Feed water: Water analysis"),
                            HasSubstr("Second water: Properties"), HasSubstr("Page 6 of 6")));
    EXPECT_THAT(text, ContainsRegex("Sodium +23\\.5 +mg/l"));
}

TEST_F(Report, SpeaksGermanAndUsUnits)
{
    ASSERT_EQ(RunOn("--language de --units=us --pages 0:analysis,0:properties --paper letter"), 0)
        << m_printed;
    const auto pdf = Pdf();
    const std::string text = pdf.Text();
    EXPECT_THAT(text, AllOf(ContainsRegex("Natrium +23,5 +mg/l"), ContainsRegex("Temperatur +59 +\u00b0F"),
                            HasSubstr("Seite 1 von 2"), HasSubstr("US-Einheiten"), Not(HasSubstr("Second"))));
    for (const char* english : {"Sum of", "Page", "Unit ", "Value", "hardness", "report", "the ", "Contents"})
        EXPECT_THAT(text, Not(ContainsRegex(std::string("(^|[ \n])") + english))) << text;
    EXPECT_THAT(pdf.Info(), HasSubstr("(letter)"));
}

TEST_F(Report, ChoosesPagesByName)
{
    ASSERT_EQ(RunOn("--pages properties"), 0) << m_printed;
    EXPECT_EQ(Pdf().Pages(), 2);
    EXPECT_EQ(RunOn("--pages costs"), 2);
    EXPECT_THAT(m_printed, HasSubstr("there is no page 'costs'"));
}

TEST_F(Report, RefusesWhatItCannotDo)
{
    const struct
    {
        std::string arguments;
        int status;
        const char* message;
    } cases[] = {
        {"", 2, "no file is given"},
        {"x.tarnvik", 2, "no file to write is given"},
        {"x.tarnvik -o", 2, "-o needs a value"},
        {"x.tarnvik y.tarnvik -o a.pdf", 2, "more than one file"},
        {"x.tarnvik -o a.pdf --units metric", 2, "no unit system 'metric'"},
        {"x.tarnvik -o a.pdf --language ../de", 2, "no language '../de'"},
        {"x.tarnvik -o a.pdf --paper a3", 2, "no paper 'a3'"},
        {"x.tarnvik -o a.pdf --colour red", 2, "unknown option '--colour'"},
        {"/nowhere/x.tarnvik -o a.pdf", 1, "There is no file /nowhere/x.tarnvik."},
        {"'" + m_project + "' -o '" + m_project + "'", 1, "is the project itself"},
        {"'" + m_project + "' -o /nowhere/a.pdf", 1, "/nowhere/a.pdf: the folder does not exist"},
        {"'" + m_project + "' -o '" + m_folder.Path().string() + "'", 1, "could not be written"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Run(row.arguments), row.status) << row.arguments;
        EXPECT_THAT(m_printed, AllOf(testing::StartsWith("tarnvik report: "), HasSubstr(row.message)));
    }
    EXPECT_EQ(Run("--help"), 0);
    EXPECT_THAT(m_printed, testing::StartsWith("usage: tarnvik report FILE -o OUT.pdf"));
}

TEST_F(Report, ReplacesAnOldReportCompletely)
{
    support::WriteBytes(m_pdf, std::string(1'000'000, 'x'));
    ASSERT_EQ(RunOn(""), 0);
    EXPECT_LT(std::filesystem::file_size(m_pdf), 200'000u);
    EXPECT_EQ(Pdf().Pages(), 6);
}

}  // namespace
