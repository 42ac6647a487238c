// SPDX-License-Identifier: MIT
#include "gui_base/report/chart_figure.h"

#include <cairo.h>
#include <cmath>
#include <utility>

namespace {

constexpr double kFigureHeight = 250.0;
// Rather lower than on a page of its own, but as high as it can be read.
constexpr double kLeastFigureHeight = 190.0;
constexpr double kPointsPerPixel = 0.75;

}  // namespace

report::Figure ChartFigure(std::shared_ptr<chartdir::BaseChart> chart)
{
    report::Figure figure;
    figure.height = kFigureHeight;
    figure.leastHeight = kLeastFigureHeight;
    figure.draw = [chart = std::move(chart)](ReportCanvas* canvas, double width, double height) {
        cairo_save(canvas);
        cairo_scale(canvas, kPointsPerPixel, kPointsPerPixel);
        chart->setSize(static_cast<int>(std::lround(width / kPointsPerPixel)),
                       static_cast<int>(std::lround(height / kPointsPerPixel)));
        chart->draw(canvas);
        cairo_restore(canvas);
    };
    return figure;
}
