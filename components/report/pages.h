// SPDX-License-Identifier: MIT
#pragma once

/// Boxes of known height, and their distribution over pages. Knows nothing of what the boxes show. Internal
/// to the writer.

#include "report/document.h"
#include "report/report_export.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace report {

/// Part of a page that is not torn apart.
struct Box
{
    double height = 0.0;
    double leastHeight = 0.0;   ///< where that keeps its group on the page; 0: not lower
    double spaceBefore = 0.0;   ///< none at the top of a page
    bool keepWithNext = false;  ///< on the page of the box after it
    bool startsPage = false;
    /// It does not start one where there is as much room left; 0: it always does.
    double roomToJoin = 0.0;
    /// Stands again above the boxes that a page break cuts off from it.
    std::shared_ptr<const Box> repeated;
    /// Draws the box with its upper edge at `top`, as high as it was placed.
    std::function<void(ReportCanvas* canvas, double top, double height)> draw;
    int outlineLevel = 0;  ///< 1 for a section, 2 for a heading, 0 for neither
    std::string title;     ///< in the outline
};

struct PlacedBox
{
    const Box* box;
    double top;
    double height;
};

using Page = std::vector<PlacedBox>;

/// Fills pages whose boxes reach from `top` to `bottom`. Boxes that keep together do so unless they need more
/// than a page; a box that is higher than a page has one of its own. At least one page.
REPORT_EXPORT std::vector<Page> BreakIntoPages(const std::vector<Box>& boxes, double top, double bottom);

}  // namespace report
