// SPDX-License-Identifier: MIT
// Where pages end: heights alone, no text.
#include "report/pages.h"

#include "report/table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

namespace {

using report::Box;
using testing::ElementsAre;

/// Pages as lists of indices of boxes; -1 is a repeated one.
std::vector<std::vector<int>> Break(const std::vector<Box>& boxes)
{
    std::vector<std::vector<int>> result;
    for (const report::Page& page : report::BreakIntoPages(boxes, 10.0, 110.0)) {
        std::vector<int> indices;
        double y = 10.0;
        for (const report::PlacedBox& placed : page) {
            EXPECT_GE(placed.top, y);
            y = placed.top + placed.height;
            const bool isOwn = placed.box >= boxes.data() && placed.box < boxes.data() + boxes.size();
            indices.push_back(isOwn ? static_cast<int>(placed.box - boxes.data()) : -1);
        }
        // Only what fits on no page may reach over the edge.
        if (page.size() > (page.front().box == boxes.back().repeated.get() ? 2u : 1u)) {
            EXPECT_LE(y, 110.0 + 1e-6);
        }
        result.push_back(indices);
    }
    return result;
}

Box MakeBox(double height, bool keepWithNext = false, double spaceBefore = 0.0)
{
    Box box;
    box.height = height;
    box.keepWithNext = keepWithNext;
    box.spaceBefore = spaceBefore;
    return box;
}

TEST(BreakIntoPages, FillsAPageToItsEdge)
{
    EXPECT_THAT(Break(std::vector<Box>(4, MakeBox(50))), ElementsAre(ElementsAre(0, 1), ElementsAre(2, 3)));
    EXPECT_THAT(Break(std::vector<Box>(30, MakeBox(100.0 / 30))), ElementsAre(testing::SizeIs(30)));
    EXPECT_EQ(report::BreakIntoPages({}, 0, 100).size(), 1u) << "an empty document has a page";
}

TEST(BreakIntoPages, DropsSpaceAtTheTopOfAPage)
{
    EXPECT_THAT(Break({MakeBox(60, false, 30), MakeBox(40), MakeBox(100, false, 30)}),
                ElementsAre(ElementsAre(0, 1), ElementsAre(2)));
}

TEST(BreakIntoPages, KeepsAHeadingWithWhatItHeads)
{
    EXPECT_THAT(Break({MakeBox(70), MakeBox(20, true), MakeBox(20, true), MakeBox(20)}),
                ElementsAre(ElementsAre(0), ElementsAre(1, 2, 3)));
}

TEST(BreakIntoPages, GivesUpKeepingWhatIsLongerThanAPage)
{
    std::vector<Box> boxes(5, MakeBox(40, true));
    EXPECT_THAT(Break(boxes), ElementsAre(ElementsAre(0, 1), ElementsAre(2, 3), ElementsAre(4)));
    EXPECT_THAT(Break({MakeBox(10), MakeBox(500), MakeBox(10)}),
                ElementsAre(ElementsAre(0), ElementsAre(1), ElementsAre(2)));
}

TEST(BreakIntoPages, RepeatsTitlesAfterABreakOnly)
{
    std::vector<Box> boxes{MakeBox(10, true)};
    const auto titles = std::make_shared<const Box>(MakeBox(10));
    for (int i = 0; i < 5; ++i) {
        boxes.push_back(MakeBox(40));
        boxes.back().repeated = titles;
    }
    EXPECT_THAT(Break(boxes), ElementsAre(ElementsAre(0, 1, 2), ElementsAre(-1, 3, 4), ElementsAre(-1, 5)));
    // A row that fits on no page beside its titles ends up below them all the same.
    boxes = {MakeBox(95), MakeBox(95)};
    boxes[1].repeated = titles;
    EXPECT_THAT(Break(boxes), ElementsAre(ElementsAre(0), ElementsAre(-1, 1)));
}

TEST(BreakIntoPages, LowersABoxWhereThatKeepsItOnThePage)
{
    Box figure = MakeBox(50, true, 10);
    figure.leastHeight = 30;
    const Box caption = MakeBox(10);
    const std::pair<double, double> cases[] = {{30, 50}, {40, 40}, {50, 30}, {51, 50}};
    for (const auto& [before, expected] : cases) {
        const std::vector<Box> boxes{MakeBox(before), figure, caption};
        const auto pages = report::BreakIntoPages(boxes, 0.0, 100.0);
        ASSERT_EQ(pages.size(), before > 50 ? 2u : 1u) << before;
        const auto& last = pages.back();
        EXPECT_NEAR(last[last.size() - 2].height, expected, 1e-9) << before;
        EXPECT_NEAR(last.back().top, last[last.size() - 2].top + expected, 1e-9) << before;
        EXPECT_EQ(last.back().height, 10.0);
    }
}

TEST(BreakIntoPages, JoinsASectionThatHasRoomBelowTheOneBefore)
{
    std::vector<Box> boxes{MakeBox(50), MakeBox(10, true, 10), MakeBox(30), MakeBox(20)};
    boxes[1].startsPage = true;
    EXPECT_EQ(Break(boxes).size(), 2u);
    boxes[1].roomToJoin = 40;
    EXPECT_THAT(Break(boxes), ElementsAre(ElementsAre(0, 1, 2), ElementsAre(3)));
    boxes[1].roomToJoin = 60;
    EXPECT_THAT(Break(boxes), ElementsAre(ElementsAre(0), ElementsAre(1, 2, 3)));
}

TEST(ColumnWidths, SharesRoomAndWant)
{
    const struct
    {
        std::vector<double> natural;
        std::vector<double> stretch;
        std::vector<double> expected;
        std::vector<double> least = {};
    } cases[] = {
        {{10, 20, 30}, {0, 0, 0}, {10, 20, 30}},  {{10, 20, 30}, {1, 0, 3}, {20, 20, 60}},
        {{10, 200, 30}, {1, 1, 1}, {10, 60, 30}}, {{10, 200, 100}, {0, 0, 0}, {10, 45, 45}},
        {{500, 500}, {0, 1}, {50, 50}},           {{0, 500}, {0, 0}, {0, 100}},
        {{90, 90}, {0, 0}, {80, 20}, {80, 20}},   {{90, 90}, {0, 0}, {70, 30}, {60, 20}},
        {{90, 90}, {0, 0}, {50, 50}, {90, 20}},   {{10, 20}, {0, 1}, {10, 90}, {10, 20}},
    };
    for (const auto& row : cases) {
        EXPECT_THAT(report::ColumnWidths(row.natural, row.stretch, 100.0, row.least),
                    testing::Pointwise(testing::DoubleNear(1e-9), row.expected));
    }
}

}  // namespace
