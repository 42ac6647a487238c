// SPDX-License-Identifier: MIT
#pragma once

#include "chartdir/base_chart.h"
#include "report/document.h"

#include <memory>

/// A chart as it is printed: as vectors, as wide as the text.
report::Figure ChartFigure(std::shared_ptr<chartdir::BaseChart> chart);
