// SPDX-License-Identifier: MIT
#pragma once

/// What a water means, as texts: the window shows them in tiles, the report in a table. What is not known is
/// an empty text.

#include "gui_base/report/report_page_source.h"
#include "projectbase/project/owner_node.h"

#include <optional>
#include <string>
#include <vector>

class LiquidData;

namespace advice {
struct Evaluation;
}

namespace wateranalysis {

struct ResultTile
{
    const char* id = "";  ///< the same in every language: "hardness"
    std::string title{};
    std::string value{};
    std::string unit{};
    std::string second{};       ///< the same in other units, or what belongs to it
    std::string explanation{};  ///< how it comes about
    /// Where the value is typed or shown; nothing for one that no field has.
    std::optional<DetailAddress> address{};

    bool operator==(const ResultTile&) const = default;
};

/// The degree in which the readers of the context give hardness, "°d"; empty where they give none.
GUI_BASE_REPORT_EXPORT std::string HardnessDegree(const ReportContext& context);
/// The tiles with their titles alone, in the order in which they are shown.
GUI_BASE_REPORT_EXPORT std::vector<ResultTile> EmptyTiles(const ReportContext& context);
/// The same ones of a water.
GUI_BASE_REPORT_EXPORT std::vector<ResultTile> ResultTiles(const advice::Evaluation& evaluation,
                                                           const LiquidData& water,
                                                           const ReportContext& context);

}  // namespace wateranalysis
