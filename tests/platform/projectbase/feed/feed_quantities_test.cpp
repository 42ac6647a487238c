// SPDX-License-Identifier: MIT
#include "projectbase/feed/feed_quantities.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
using Q = FeedQuantities;

struct Case
{
    const char* name;
    Q::Values start;
    std::vector<std::pair<Q::Quantity, double>> edits;
    Q::Values expected;
};

const Case kCases[]{
    {"one alone tells nothing of the others",
     {kUnknown, kUnknown, kUnknown},
     {{Q::Flow, 10}},
     {10, kUnknown, kUnknown}},
    {"flow and time give the volume",
     {kUnknown, kUnknown, kUnknown},
     {{Q::Flow, 10}, {Q::Time, 20}},
     {10, 20, 200}},
    {"flow and volume give the time",
     {kUnknown, kUnknown, kUnknown},
     {{Q::Flow, 10}, {Q::Volume, 200}},
     {10, 20, 200}},
    {"volume and time give the flow",
     {kUnknown, kUnknown, kUnknown},
     {{Q::Volume, 200}, {Q::Time, 20}},
     {10, 20, 200}},
    {"the older of the other two follows",
     {kUnknown, kUnknown, kUnknown},
     {{Q::Flow, 10}, {Q::Time, 20}, {Q::Volume, 300}},
     {15, 20, 300}},
    {"also when the same one is edited again",
     {10, 20, 200},
     {{Q::Volume, 300}, {Q::Volume, 400}},
     {10, 40, 400}},
    {"a loaded project: the volume follows first", {10, 20, 200}, {{Q::Time, 30}}, {10, 30, 300}},
    {"no flow, no volume", {10, 20, 200}, {{Q::Flow, 0}}, {0, 20, 0}},
    {"no flow ever gives a volume", {0, kUnknown, 0}, {{Q::Flow, 0}, {Q::Volume, 5}}, {0, kUnknown, 5}},
    {"what is cleared leaves the others", {10, 20, 200}, {{Q::Flow, kUnknown}}, {kUnknown, 20, 200}},
    {"and follows next", {10, 20, 200}, {{Q::Flow, kUnknown}, {Q::Time, 40}}, {5, 40, 200}},
    {"beyond the largest number nothing is known",
     {1e300, 1, 1e300},
     {{Q::Time, 1e300}},
     {1e300, 1e300, kUnknown}},
};

TEST(FeedQuantities, StayConsistent)
{
    for (const Case& row : kCases) {
        FeedQuantities quantities;
        quantities.SetValues(row.start);
        for (const auto& [quantity, value] : row.edits)
            quantities.Edit(quantity, value);
        for (std::size_t i = 0; i < Q::kCount; ++i) {
            if (std::isnan(row.expected[i]))
                EXPECT_TRUE(std::isnan(quantities.GetValues()[i])) << row.name << ": " << i;
            else
                EXPECT_DOUBLE_EQ(quantities.GetValues()[i], row.expected[i]) << row.name << ": " << i;
        }
    }
}

}  // namespace
