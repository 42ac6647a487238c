// SPDX-License-Identifier: MIT
#pragma once

#include "chartdir/base_chart.h"
#include "chartdir/scale.h"

#include <string>
#include <vector>

namespace chartdir {

/// Polygons around a centre line as Stiff (1951) draws waters: on each row one value to the left and one to
/// the right, for each set a figure of its own. All figures have one scale, the same to both sides. Those
/// that would become too small to be read are left out, and their number is told.
class CHARTDIR_EXPORT StiffChart : public BaseChart
{
public:
    StiffChart(int width, int height) : BaseChart(width, height) {}

    struct RowNames
    {
        std::string left;
        std::string right;
    };
    /// Not below 0.
    struct RowValues
    {
        double left = 0.0;
        double right = 0.0;
        std::string leftTip{};  ///< what it tells when pointed at
        std::string rightTip{};
    };
    struct Figure
    {
        std::string name{};
        std::vector<RowValues> rows{};
        SeriesStyle style{};
    };

    /// From above.
    void setRows(std::vector<RowNames> rows) { m_rows = std::move(rows); }
    void addFigure(Figure figure) { m_figures.push_back(std::move(figure)); }
    void setAxisTitle(std::string markup) { m_axisTitle = std::move(markup); }
    /// Stands in the middle while no value is above 0.
    void setNoDataText(std::string markup) { m_noDataText = std::move(markup); }

    const std::vector<RowNames>& getRows() const { return m_rows; }
    const std::vector<Figure>& getFigures() const { return m_figures; }
    const std::string& getAxisTitle() const { return m_axisTitle; }
    const std::string& getNoDataText() const { return m_noDataText; }
    bool hasData() const;
    /// From 0 to where the axis ends on both sides.
    Scale getScale() const;
    /// How many figures have room.
    std::size_t getShownCount() const;

    /// Where the values of a figure are drawn; for one that has no room std::out_of_range.
    std::vector<Point> getPolygon(std::size_t figure) const;
    ImageMap getImageMap() const override;

protected:
    void DoDraw(cairo_t* canvas) const override;

private:
    std::vector<RowNames> m_rows;
    std::vector<Figure> m_figures;
    std::string m_axisTitle;
    std::string m_noDataText;
};

}  // namespace chartdir
