// SPDX-License-Identifier: MIT
// PDFs as other programs read them.
#include "report/pdf_writer.h"

#include "tests/support/pdf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cairo.h>
#include <cstdio>
#include <map>
#include <sstream>
#include <thread>

namespace {

using report::Align;
using report::Document;
using support::PdfFile;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

Document OneSection(std::vector<report::Block> blocks)
{
    Document document;
    document.title = "A report";
    document.headerLeft = "Project X";
    document.headerRight = "2026-11-21";
    document.sections.push_back({"First section", std::move(blocks)});
    return document;
}

report::Table NumberTable(int rows)
{
    report::Table table;
    table.columns = {{.title = "Ion", .stretch = 1.0},
                     {.title = "Amount", .unit = "mg/l", .align = Align::Number}};
    for (int i = 1; i <= rows; ++i)
        table.rows.push_back({.cells = {{"row " + std::to_string(i)}, {std::to_string(i) + ".5"}}});
    return table;
}

std::size_t Count(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

struct Word
{
    double left;
    double right;
    double bottom;
    std::string text;
};

std::vector<Word> Words(const PdfFile& pdf)
{
    std::istringstream places(pdf.Places());
    std::vector<Word> words;
    for (std::string line; std::getline(places, line);) {
        Word word{};
        const std::size_t text = line.find("\">");
        if (std::sscanf(line.c_str(), " <word xMin=\"%lf\" yMin=\"%*f\" xMax=\"%lf\" yMax=\"%lf\"",
                        &word.left, &word.right, &word.bottom) != 3)
            continue;
        word.text = line.substr(text + 2, line.find("</word>") - text - 2);
        words.push_back(word);
    }
    return words;
}

TEST(WritePdf, BreaksALongTableAndRepeatsItsTitles)
{
    const PdfFile pdf(report::WritePdf(OneSection({NumberTable(200)})));
    const int pages = pdf.Pages();
    EXPECT_GE(pages, 4);
    EXPECT_LE(pages, 6);
    const std::string text = pdf.Text();
    EXPECT_EQ(Count(text, "Amount"), static_cast<std::size_t>(pages));
    EXPECT_EQ(Count(text, "Project X"), static_cast<std::size_t>(pages));
    for (int i = 1; i <= 200; ++i)
        EXPECT_THAT(text, ContainsRegex("row " + std::to_string(i) + " +" + std::to_string(i) + "\\.5"));
    for (int page = 1; page <= pages; ++page) {
        EXPECT_THAT(pdf.Text(page),
                    HasSubstr("Page " + std::to_string(page) + " of " + std::to_string(pages)));
        EXPECT_THAT(pdf.Text(page), HasSubstr("2026-11-21"));
    }
}

TEST(WritePdf, NeverLeavesAHeadingAlone)
{
    // Whatever the number of lines before it.
    for (int lines = 40; lines < 60; ++lines) {
        std::string text = "line";
        for (int i = 1; i < lines; ++i)
            text += "\nline";
        const PdfFile pdf(report::WritePdf(
            OneSection({report::Paragraph{text}, report::Heading{"HEADING"}, NumberTable(2)})));
        for (int page = 1; page <= pdf.Pages(); ++page) {
            const std::string shown = pdf.Text(page);
            EXPECT_EQ(Count(shown, "HEADING"), Count(shown, "row 1")) << lines;
        }
    }
}

TEST(WritePdf, AlignsNumbersOnTheirSign)
{
    Document document = OneSection({});
    report::Table table;
    table.columns = {{.title = "n", .align = Align::Number}, {.title = "r", .align = Align::Right}};
    for (const char* number : {"1,5", "-1234,25", "7", "0,000012"})
        table.rows.push_back({.cells = {{number}, {number}}});
    document.decimalSign = ",";
    document.sections[0].blocks.push_back(table);
    const auto words = Words(PdfFile(report::WritePdf(document)));
    std::vector<double> signs;
    std::vector<double> rights;
    std::map<std::string, int> seen;
    for (const Word& word : words) {
        if (word.text != "1,5" && word.text != "-1234,25" && word.text != "7" && word.text != "0,000012")
            continue;
        // Digits have one width, of which the sign is less than one.
        if (seen[word.text]++ == 1)
            rights.push_back(word.right);
        else if (word.text == "1,5" || word.text == "7")
            signs.push_back(word.text == "7" ? word.right : word.left);
    }
    ASSERT_EQ(signs.size(), 2u);
    EXPECT_NEAR(signs[1] - signs[0], 9.0 * 0.6, 1.2) << "the 7 stands below the 1 of 1,5";
    ASSERT_EQ(rights.size(), 4u);
    for (const double right : rights)
        EXPECT_NEAR(right, rights[0], 0.05);
}

TEST(WritePdf, WhatIsNoSingleNumberStandsAtTheRightOfAColumnOfNumbers)
{
    report::Table table;
    table.columns = {{.align = Align::Number}};
    table.showTitles = false;
    for (const char* text : {"12.345678", "x1.5", "0.1-0.54", "word", "1.2e+08", "2.34567890"})
        table.rows.push_back({.cells = {{text}}});
    std::map<std::string, Word> words;
    for (const Word& word : Words(PdfFile(report::WritePdf(OneSection({table})))))
        words[word.text] = word;
    const double right = words["2.34567890"].right;
    EXPECT_NEAR(words["0.1-0.54"].right, right, 0.05);
    EXPECT_NEAR(words["word"].right, right, 0.05);
    EXPECT_NEAR(words["x1.5"].right, right, 0.05) << "a letter is no mark";
    EXPECT_LT(words["12.345678"].right, right - 5.0);
    EXPECT_LT(words["1.2e+08"].right, right - 5.0) << "its sign stands below the others";
}

TEST(WritePdf, TearsNumbersOnlyApartWhereNothingElseHelps)
{
    for (const int numbers : {4, 6}) {
        report::Table table;
        table.columns = {{.title = "Kind", .stretch = 1.0}};
        report::Row row{.cells = {{"Displacement of the regenerant and slow rinse through all of the bed"}}};
        for (int i = 0; i < numbers; ++i) {
            table.columns.push_back({.title = "Velocity of flow [m/h]", .align = Align::Number});
            row.cells.push_back({"-" + std::to_string(i) + ".23456e+12"});
        }
        table.rows = {row};
        const std::string text = PdfFile(report::WritePdf(OneSection({table}))).Text();
        for (int i = 0; i < numbers; ++i)
            EXPECT_THAT(text, HasSubstr("-" + std::to_string(i) + ".23456e+12"));
        EXPECT_EQ(Count(text, "Displacement"), numbers == 4 ? 1u : 0u) << "words are the first to go";
        EXPECT_THAT(text, HasSubstr("Velocity"));
    }
}

TEST(WritePdf, BeginsWithTheFrontSheetWhateverTheLengthOfTheContents)
{
    Document document = OneSection({NumberTable(3)});
    document.title = "The plant";
    document.sections[0].isFrontSheet = true;
    document.sections[0].title = "Sheet";
    for (int i = 0; i < 15; ++i)
        document.sections.push_back({"Section " + std::to_string(i + 1), {report::Paragraph{"text"}}});
    const PdfFile pdf(report::WritePdf(document));
    EXPECT_EQ(pdf.Pages(), 3);
    const std::string first = pdf.Text(1);
    EXPECT_LT(first.find("The plant"), first.find("Sheet"));
    EXPECT_LT(first.find("row 3"), first.find("Contents"));
    EXPECT_THAT(first, ContainsRegex("Section 1 +2\n"));
    EXPECT_THAT(first, ContainsRegex("Section 15 +3\n"));
    EXPECT_EQ(Count(first, "Sheet"), 1u) << "the contents lead away from it";
    EXPECT_EQ(Count(first, "text"), 0u);
    // What joins is below the contents.
    document.sections[1].joins = true;
    EXPECT_GE(Count(PdfFile(report::WritePdf(document)).Text(1), "text"), 2u) << "and the next is below it";
}

TEST(WritePdf, ASectionFollowsWhereItsTitleAndSomeOfItHaveRoom)
{
    int shared = 0;
    for (int before = 5; before < 50; ++before) {
        Document document = OneSection({report::Heading{"HEADING"}, NumberTable(before)});
        document.title.clear();
        document.sections.push_back({"SECOND", {report::Heading{"INNER"}, NumberTable(40)}});
        const PdfFile pdf(report::WritePdf(document));
        EXPECT_LE(pdf.Pages(), 3) << before;
        for (int page = 1; page <= pdf.Pages(); ++page) {
            const std::string text = pdf.Text(page);
            // The contents on the first page name it, too.
            if (Count(text, "SECOND") <= (page == 1 ? 1U : 0U))
                continue;
            const std::string inner = text.substr(text.rfind("SECOND"));
            EXPECT_EQ(Count(inner, "INNER"), 1U) << before;
            EXPECT_THAT(inner, ContainsRegex("row 3 ")) << before;
            shared += page == 1 ? 1 : 0;
        }
    }
    EXPECT_GT(shared, 20);
    EXPECT_LT(shared, 40);
}

TEST(WritePdf, LeavesNoSingleRowOnAPageAndTearsNoSmallTable)
{
    for (int rows = 30; rows < 50; ++rows) {
        for (const int behind : {6, 20}) {
            const PdfFile pdf(report::WritePdf(OneSection({NumberTable(rows), NumberTable(behind)})));
            ASSERT_LE(pdf.Pages(), 3);
            const std::string first = pdf.Text(1);
            const std::string second = pdf.Pages() > 1 ? pdf.Text(2) : std::string();
            EXPECT_NE(Count(second, "row "), 1U) << rows << ", " << behind;
            // The second table begins with another "row 1".
            EXPECT_TRUE(Count(first, "row 1 ") != 2U || Count(first, "row 2 ") == 2U)
                << rows << ", " << behind;
            EXPECT_TRUE(behind > 6 || Count(first, "row 1 ") != 2U || Count(first, "row 6 ") == 2U) << rows;
        }
    }
}

TEST(WritePdf, AFigureMakesRoomForTheNoteBelowIt)
{
    int lowered = 0;
    for (int rows = 20; rows < 45; rows += 2) {
        double height = 0.0;
        const report::Figure figure{.draw = [&height](cairo_t*, double, double drawn) { height = drawn; },
                                    .caption = "CHART",
                                    .height = 200.0,
                                    .leastHeight = 120.0};
        const PdfFile pdf(report::WritePdf(
            OneSection({NumberTable(rows), figure, report::Paragraph{.text = "NOTE", .small = true}})));
        for (int page = 1; page <= pdf.Pages(); ++page)
            EXPECT_EQ(Count(pdf.Text(page), "CHART"), Count(pdf.Text(page), "NOTE")) << rows;
        EXPECT_GE(height, 120.0);
        lowered += height < 200.0 ? 1 : 0;
    }
    EXPECT_GT(lowered, 0);
    EXPECT_LT(lowered, 8);
}

TEST(WritePdf, KeepsEverythingOnThePage)
{
    const std::string longWord(300, 'W');
    report::Table table = NumberTable(1);
    table.rows.push_back({.cells = {{longWord}, {longWord}}});
    table.rows.push_back({.cells = {{std::string(20000, 'x')}}});  // higher than a page
    Document document = OneSection({report::Heading{longWord}, report::Paragraph{longWord}, table});
    document.title = document.headerLeft = document.headerRight = document.footer = longWord;
    document.sections.push_back({longWord, {}});
    for (const auto paper : {report::PaperSize::A4, report::PaperSize::Letter}) {
        document.paper = paper;
        const PdfFile pdf(report::WritePdf(document));
        const double width = paper == report::PaperSize::A4 ? 595.0 : 612.0;
        const double height = paper == report::PaperSize::A4 ? 842.0 : 792.0;
        std::size_t cut = 0;
        for (const Word& word : Words(pdf)) {
            // The right header text is as long as it is; it must not push others out.
            EXPECT_LE(word.right, width - 50.0) << word.text;
            EXPECT_LE(word.bottom, height - 20.0) << word.text;
            cut += static_cast<std::size_t>(std::count(word.text.begin(), word.text.end(), 'x'));
        }
        EXPECT_EQ(cut, 20000u) << "no letter of the high row is lost";
    }
}

TEST(WritePdf, WritesEveryScriptAsText)
{
    const std::string text =
        "25 \u00b0C, cm\u00b2, \u00b5S, \u03b1\u03b2\u03a9, \u2264 \u2211, Gr\u00f6\u00dfe";
    Document document = OneSection({report::Paragraph{text}, report::Paragraph{"bad: \xff\xfe <b>&amp;"}});
    document.title = "Wasser \u6c34 & <Bericht>";
    document.author = "J\u00fcrgen";
    document.creator = "Program 1";
    document.created = 1'700'000'000;
    const PdfFile pdf(report::WritePdf(document));
    EXPECT_THAT(pdf.Text(), HasSubstr(text));
    EXPECT_THAT(pdf.Text(), HasSubstr("<b>&amp;"));
    const std::string info = pdf.Info();
    EXPECT_THAT(info, ContainsRegex("Title: +Wasser \u6c34 & <Bericht>"));
    EXPECT_THAT(info, ContainsRegex("Author: +J\u00fcrgen"));
    EXPECT_THAT(info, ContainsRegex("Creator: +Program 1"));
    EXPECT_THAT(info, ContainsRegex("CreationDate: +2023-11-14T22:13:20"));
    EXPECT_THAT(info, HasSubstr("(A4)"));
}

TEST(WritePdf, EmbedsItsFonts)
{
    const std::string fonts = PdfFile(report::WritePdf(OneSection({NumberTable(3)}))).Fonts();
    std::istringstream lines(fonts);
    std::string titles;
    std::getline(lines, titles);
    std::string line;
    std::getline(lines, line);  // a rule
    int count = 0;
    for (; std::getline(lines, line); ++count) {
        EXPECT_EQ(line.substr(titles.find("emb"), 3), "yes") << "embedded\n" << fonts;
        EXPECT_EQ(line.substr(titles.find("uni"), 3), "yes") << "readable as Unicode\n" << fonts;
    }
    EXPECT_GE(count, 2) << fonts;
}

TEST(WritePdf, LeadsToItsSections)
{
    Document document = OneSection({report::Heading{"Inner \u00e4"}, NumberTable(80)});
    EXPECT_THAT(PdfFile(report::WritePdf(document)).Text(), Not(HasSubstr("Contents")));
    document.sections.push_back({"Second (section) 'b'", {NumberTable(5)}});
    const PdfFile pdf(report::WritePdf(document));
    EXPECT_THAT(pdf.Text(1), ContainsRegex("Contents\n+ +First section +1\n+ +Second \\(section\\) 'b' +3"));
    const std::string outline = pdf.Outline();
    EXPECT_THAT(outline, ContainsRegex("page=\"1\">First section"));
    EXPECT_THAT(outline, ContainsRegex("page=\"1\">Inner \u00e4"));
    EXPECT_THAT(outline, ContainsRegex("page=\"3\">Second"));
    EXPECT_THAT(pdf.LinkTargets(), HasSubstr("section1"));
}

TEST(WritePdf, DrawsSvgWithItsTextAndFigures)
{
    const char* const svg =
        R"(<svg xmlns="http://www.w3.org/2000/svg" width="4000" height="200"><rect width="4000" height="200")"
        R"( fill="#eee"/><text x="20" y="150" font-size="120">Vessel</text></svg>)";
    double figureWidth = 0.0;
    const auto draw = [&figureWidth](cairo_t* canvas, double width, double) {
        figureWidth = width;
        cairo_rectangle(canvas, 0, 0, 10 * width, 10);
        cairo_fill(canvas);
    };
    const PdfFile pdf(report::WritePdf(OneSection({report::Drawing{.svg = svg, .caption = "Plant"},
                                                   report::Figure{.draw = draw, .caption = "Chart"}})));
    EXPECT_THAT(pdf.Text(), ContainsRegex("Vessel(.|\n)*Plant(.|\n)*Chart"));
    EXPECT_NEAR(figureWidth, 483.0, 1.0);
    EXPECT_THROW(report::WritePdf(OneSection({report::Drawing{.svg = "no drawing"}})), std::runtime_error);
    EXPECT_THROW(report::WritePdf(OneSection({report::Drawing{}})), std::runtime_error);
}

TEST(WritePdf, StopsWhenAsked)
{
    const Document document = OneSection({NumberTable(500)});
    int calls = 0;
    double last = 0.0;
    report::WritePdf(document, [&](double done) {
        EXPECT_GE(done, last);
        last = done;
        return ++calls > 0;
    });
    EXPECT_EQ(last, 1.0);
    for (int stop = 1; stop <= calls; ++stop) {
        int count = 0;
        EXPECT_THROW(report::WritePdf(document, [&](double) { return ++count < stop; }), report::Cancelled)
            << stop;
        EXPECT_EQ(count, stop);
    }
}

TEST(WritePdf, WorksInSeveralThreads)
{
    Document document = OneSection({NumberTable(50)});
    document.created = 1'700'000'000;
    const std::string expected = report::WritePdf(document);
    std::vector<std::string> written(3);
    std::vector<std::thread> threads;
    for (std::string& bytes : written)
        threads.emplace_back([&] { bytes = report::WritePdf(document); });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& bytes : written)
        EXPECT_EQ(PdfFile(bytes).Text(), PdfFile(expected).Text());
}

}  // namespace
