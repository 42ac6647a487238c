// SPDX-License-Identifier: MIT
#pragma once

/// Where the texts of charts stand, as another program finds them in a PDF.

#include "chartdir/base_chart.h"
#include "tests/support/pdf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <string>
#include <vector>

namespace support {

struct Word
{
    chartdir::Rect box;
    std::string text;
};

inline std::vector<Word> WordsOf(const chartdir::BaseChart& chart)
{
    const std::string places = PdfFile(chart.makeChart2(chartdir::ImageFormat::Pdf)).Places();
    static const std::regex pattern(
        R"re(<word xMin="([0-9.-]+)" yMin="([0-9.-]+)" xMax="([0-9.-]+)" yMax="([0-9.-]+)">([^<]*)<)re");
    std::vector<Word> words;
    for (std::sregex_iterator found(places.begin(), places.end(), pattern), end; found != end; ++found) {
        const auto number = [&](std::size_t group) { return std::stod((*found)[group].str()) / 0.75; };
        words.push_back(
            {{number(1), number(2), number(3) - number(1), number(4) - number(2)}, (*found)[5].str()});
    }
    return words;
}

inline bool Overlap(const chartdir::Rect& a, const chartdir::Rect& b, double slack)
{
    return std::min(a.Right(), b.Right()) - std::max(a.x, b.x) > 1.0 &&
           std::min(a.Bottom(), b.Bottom()) - std::max(a.y, b.y) > slack;
}

/// No text is cut by the edges of the chart or stands on another one.
inline void ExpectTextsApart(const chartdir::BaseChart& chart, const std::vector<Word>& words,
                             const std::string& name)
{
    for (std::size_t i = 0; i < words.size(); ++i) {
        const chartdir::Rect& box = words[i].box;
        EXPECT_TRUE(box.x >= -1 && box.y >= -1 && box.Right() <= chart.getWidth() + 1 &&
                    box.Bottom() <= chart.getHeight() + 1)
            << name << ": " << words[i].text;
        // The boxes of a PDF are as high as its fonts may be.
        constexpr double kSlack = 5.0;
        for (std::size_t j = i + 1; j < words.size(); ++j)
            EXPECT_FALSE(Overlap(box, words[j].box, kSlack))
                << name << ": " << words[i].text << " and " << words[j].text;
    }
}

}  // namespace support
