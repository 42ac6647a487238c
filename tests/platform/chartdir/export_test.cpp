// SPDX-License-Identifier: MIT
// Pictures are read back by the readers of others.
#include "chartdir/xy_chart.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/image.h>
#include <wx/mstream.h>

#include <cmath>
#include <random>
#include <set>

namespace {

using namespace chartdir;
using testing::HasSubstr;
using testing::StartsWith;

class Export : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        wxImage::InitStandardHandlers();
        wxInitAllImageHandlers();
    }
    static void TearDownTestSuite() { wxImage::CleanUpHandlers(); }

    Export() : m_chart(301, 200)
    {
        m_chart.addTitle("Expansion");
        m_chart.xAxis().setTitle("Velocity");
        auto& layer = m_chart.addLineLayer();
        for (std::size_t i = 0; i < 5; ++i)
            layer.addDataSet({1.0 + static_cast<double>(i), 3, 2, 5}, "curve", i);
    }
    static Pixels Read(const std::string& bytes)
    {
        wxMemoryInputStream stream(bytes.data(), bytes.size());
        wxImage image;
        EXPECT_TRUE(image.LoadFile(stream));
        Pixels pixels{image.GetWidth(), image.GetHeight(), {}};
        const unsigned char* data = image.GetData();
        for (int i = 0; i < pixels.width * pixels.height; ++i, data += 3)
            pixels.rgb.push_back(static_cast<std::uint32_t>(data[0]) << 16U |
                                 static_cast<std::uint32_t>(data[1]) << 8U | data[2]);
        return pixels;
    }
    /// Root of the mean square difference of the channels.
    static double Difference(const Pixels& a, const Pixels& b)
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < a.rgb.size(); ++i) {
            for (const unsigned shift : {0U, 8U, 16U}) {
                const double difference = static_cast<double>(a.rgb[i] >> shift & 0xFFU) -
                                          static_cast<double>(b.rgb[i] >> shift & 0xFFU);
                sum += difference * difference;
            }
        }
        return std::sqrt(sum / (3.0 * static_cast<double>(a.rgb.size())));
    }

    XYChart m_chart;
    support::TempFolder m_folder;
};

TEST_F(Export, PicturesHoldWhatIsDrawn)
{
    struct Case
    {
        const char* name;
        const char* magic;
        double tolerance;
    };
    const Pixels drawn = m_chart.makePixels();
    for (const auto& [name, magic, tolerance] :
         {Case{"chart.png", "\x89PNG", 0.0}, Case{"chart.bmp", "BM", 0.0}, Case{"chart.gif", "GIF8", 3.0},
          Case{"chart.JPG", "\xff\xd8\xff", 4.0}, Case{"chart.jpeg", "\xff\xd8\xff", 4.0}}) {
        ASSERT_TRUE(m_chart.makeChart(m_folder / name)) << name;
        const std::string bytes = support::ReadBytes(m_folder / name);
        EXPECT_THAT(bytes, StartsWith(magic)) << name;
        const Pixels read = Read(bytes);
        ASSERT_EQ(read.width, 301) << name;
        ASSERT_EQ(read.height, 200) << name;
        EXPECT_LE(Difference(read, drawn), tolerance) << name;
    }
    EXPECT_EQ(Read(m_chart.makeChart2(ImageFormat::Png)).rgb, drawn.rgb);
}

TEST_F(Export, VectorsHoldTheirTextsAndSize)
{
    ASSERT_TRUE(m_chart.makeChart(m_folder / "chart.svg"));
    EXPECT_THAT(support::ReadBytes(m_folder / "chart.svg"), HasSubstr("width=\"225.75pt\" height=\"150pt\""));
    ASSERT_TRUE(m_chart.makeChart(m_folder / "chart.pdf"));
    const std::string command =
        "pdftotext '" + (m_folder / "chart.pdf").string() + "' '" + (m_folder / "text").string() + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    const std::string text = support::ReadBytes(m_folder / "text");
    EXPECT_THAT(text, HasSubstr("Expansion"));
    EXPECT_THAT(text, HasSubstr("Velocity"));
}

TEST_F(Export, AGifIsExactUpTo256ColoursAndNearBeyond)
{
    std::mt19937 random(7);
    for (const unsigned colours : {1U, 2U, 256U, 257U, 5000U}) {
        // Long enough for the table of codes to run full several times.
        Pixels pixels{173, 211, {}};
        for (int i = 0; i < pixels.width * pixels.height; ++i) {
            const auto colour = static_cast<std::uint32_t>(random() % colours);
            pixels.rgb.push_back(colour * 2654435761U & 0xFFFFFFU);
        }
        const Pixels read = Read(EncodeGif(pixels));
        ASSERT_EQ(read.rgb.size(), pixels.rgb.size()) << colours;
        if (colours <= 256)
            EXPECT_EQ(read.rgb, pixels.rgb) << colours;
        else
            EXPECT_LT(Difference(read, pixels), 30.0) << colours;
        const std::set<std::uint32_t> used(read.rgb.begin(), read.rgb.end());
        EXPECT_LE(used.size(), 256U);
    }
    const Pixels one{1, 1, {0x123456}};
    EXPECT_EQ(Read(EncodeGif(one)).rgb, one.rgb);
}

TEST_F(Export, WhatFailsLeavesWhatWasThere)
{
    for (const char* name : {"chart", "chart.tiff", "chart.png.exe", "no such folder/chart.png"})
        EXPECT_FALSE(m_chart.makeChart(m_folder / name)) << name;
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path()));
    support::WriteBytes(m_folder / "chart.png", "kept");
    std::filesystem::create_directory(m_folder / "folder.png");
    EXPECT_FALSE(m_chart.makeChart(m_folder / "folder.png"));
    EXPECT_TRUE(m_chart.makeChart(m_folder / "chart.png"));
    EXPECT_THAT(support::ReadBytes(m_folder / "chart.png"), StartsWith("\x89PNG"));
    const auto count = std::distance(std::filesystem::directory_iterator(m_folder.Path()), {});
    EXPECT_EQ(count, 2);
}

TEST_F(Export, CarriesPicturesInItsCorner)
{
    DrawArea empty;
    EXPECT_FALSE(empty.loadPNG(m_folder / "missing.png"));
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_THROW(empty.setSize(0, 10), std::invalid_argument);
    auto logo = std::make_shared<DrawArea>();
    logo->setSize(28, 14);
    logo->rect({0, 0, 28, 14}, Colour::FromRgb(0xff0000));
    EXPECT_EQ(logo->getPixel(5, 5), Colour::FromRgb(0xff0000));
    m_chart.addDrawArea(logo);
    m_chart.addDrawArea(nullptr);
    const Pixels pixels = m_chart.makePixels();
    const std::uint32_t inside = pixels.rgb.at(static_cast<std::size_t>(185 * 301 + 280));
    EXPECT_GT(inside >> 16U, 0xE0U);
    EXPECT_LT(inside & 0xFFU, 0x60U);
    // A broken file keeps what was loaded before.
    support::WriteBytes(m_folder / "broken.png", "\x89PNG\r\n");
    EXPECT_FALSE(logo->loadPNG(m_folder / "broken.png"));
    EXPECT_EQ(logo->getWidth(), 28);
    ASSERT_TRUE(m_chart.makeChart(m_folder / "chart.png"));
    EXPECT_TRUE(logo->loadPNG(m_folder / "chart.png"));
    EXPECT_EQ(logo->getWidth(), 301);
}

}  // namespace
