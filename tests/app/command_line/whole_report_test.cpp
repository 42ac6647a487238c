// SPDX-License-Identifier: MIT
// The report of a whole plant as a customer gets it: its pages, their text and links, and how they look.
#include "dbinterfaces/master_database.h"
#include "tests/support/pdf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

using testing::HasSubstr;

/// A page of 21 columns and 30 rows, each a level of grey from 0 (black) to 15 (white).
using Picture = std::vector<std::string>;

constexpr int kColumns = 21;
constexpr int kRows = 30;
const std::filesystem::path kGolden =
    std::filesystem::path(TARNVIK_SOURCE_DIR) / "tests/app/command_line/golden/demineralisation.txt";

int LevelOf(char digit)
{
    return digit <= '9' ? digit - '0' : digit - 'a' + 10;
}

/// Of a picture as pdftoppm writes it: "P5", width, height, 255, bytes.
Picture Shrink(const std::string& pgm)
{
    std::istringstream head(pgm);
    std::string magic;
    int width = 0;
    int height = 0;
    int most = 0;
    head >> magic >> width >> height >> most;
    const auto first = static_cast<std::size_t>(head.tellg()) + 1;
    Picture picture;
    for (int row = 0; row < kRows; ++row) {
        picture.emplace_back();
        for (int column = 0; column < kColumns; ++column) {
            long sum = 0;
            long count = 0;
            for (int y = height * row / kRows; y < height * (row + 1) / kRows; ++y) {
                for (int x = width * column / kColumns; x < width * (column + 1) / kColumns; ++x, ++count)
                    sum += static_cast<unsigned char>(pgm[first + static_cast<std::size_t>(y * width + x)]);
            }
            // Text is thin: all levels between grey and white.
            const long level = std::clamp((sum / count - 135) / 8, 0L, 15L);
            picture.back() += "0123456789abcdef"[level];
        }
    }
    return picture;
}

class WholeReport : public testing::Test
{
protected:
    void Print(const std::string& options)
    {
        const auto example =
            MasterDatabase::GetPath().parent_path() / "examples" / "demineralisation.tarnvik";
        support::OutputOf("env -u DISPLAY -u WAYLAND_DISPLAY '" TARNVIK_PROGRAM "' report '" +
                          example.string() + "' -o '" + m_pdf + "' " + options + " 2>&1");
    }
    std::vector<Picture> Pictures() const
    {
        support::OutputOf("pdftoppm -r 40 -gray '" + m_pdf + "' '" + (m_folder / "page").string() + "'");
        std::vector<std::filesystem::path> files;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.Path())) {
            if (entry.path().extension() == ".pgm")
                files.push_back(entry.path());
        }
        std::ranges::sort(files);
        std::vector<Picture> pictures;
        for (const auto& file : files)
            pictures.push_back(Shrink(support::ReadBytes(file)));
        return pictures;
    }

    support::TempFolder m_folder;
    std::string m_pdf = (m_folder / "out.pdf").string();
};

std::vector<Picture> ReadGolden()
{
    std::ifstream file(kGolden);
    std::vector<Picture> pictures;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("page"))
            pictures.emplace_back();
        else if (!line.empty() && !pictures.empty())
            pictures.back().push_back(line);
    }
    return pictures;
}

TEST_F(WholeReport, HasAPageOfEveryModuleWithContentsAndLinks)
{
    Print("");
    const support::PdfFile pdf(support::ReadBytes(m_pdf));
    const std::string text = pdf.Text();
    const std::string outline = pdf.Outline();
    for (const char* section :
         {"Water analysis", "Properties", "Design", "Plant overview", "Regeneration", "Cost"}) {
        EXPECT_THAT(outline, HasSubstr(section));
        EXPECT_THAT(text, HasSubstr(section));
    }
    for (const char* line : {"Strong-acid cation exchanger", "Hydrochloric acid", "Total system cost",
                             "Net present value", "Strong-acid cation resin, gel"})
        EXPECT_THAT(text, HasSubstr(line));
    EXPECT_THAT(text, testing::Not(HasSubstr("nan")));
    EXPECT_THAT(pdf.LinkTargets(), HasSubstr("XYZ"));
    EXPECT_THAT(pdf.Info(), HasSubstr("Demineralisation"));
    EXPECT_LE(std::filesystem::file_size(m_pdf), 2'000'000u);
    // What was not chosen is not there.
    Print("--pages cost");
    const support::PdfFile one(support::ReadBytes(m_pdf));
    EXPECT_THAT(one.Text(), HasSubstr("Total system cost"));
    EXPECT_THAT(one.Text(), testing::Not(HasSubstr("HCO3")));
}

/// After a change that is wanted: TARNVIK_WRITE_GOLDEN=1 writes the pictures anew. They are to be looked at.
TEST_F(WholeReport, PagesLookAsTheyDid)
{
    Print("");
    const std::vector<Picture> pictures = Pictures();
    if (std::getenv("TARNVIK_WRITE_GOLDEN") != nullptr) {
        std::ofstream file(kGolden);
        for (std::size_t page = 0; page < pictures.size(); ++page) {
            file << "page " << page + 1 << '\n';
            for (const std::string& row : pictures[page])
                file << row << '\n';
        }
    }
    const std::vector<Picture> golden = ReadGolden();
    ASSERT_EQ(pictures.size(), golden.size());
    for (std::size_t page = 0; page < pictures.size(); ++page) {
        SCOPED_TRACE(testing::Message() << "page " << page + 1);
        ASSERT_EQ(golden[page].size(), pictures[page].size());
        int sum = 0;
        int large = 0;
        for (int row = 0; row < kRows; ++row) {
            for (int column = 0; column < kColumns; ++column) {
                const auto at = [&](const Picture& picture) {
                    return LevelOf(
                        picture[static_cast<std::size_t>(row)].at(static_cast<std::size_t>(column)));
                };
                const int difference = std::abs(at(pictures[page]) - at(golden[page]));
                sum += difference;
                large += difference > 3 ? 1 : 0;
            }
        }
        // The date is another one each day.
        EXPECT_LE(sum, kRows * kColumns / 5);
        EXPECT_LE(large, kRows * kColumns / 50);
    }
}

}  // namespace
