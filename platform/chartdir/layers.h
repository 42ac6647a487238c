// SPDX-License-Identifier: MIT
#pragma once

/// What a chart shows: layers, drawn in the order in which they were added, each with series of values.
/// Values that are not finite, and those that a logarithmic axis has no place for, are gaps.

#include "chartdir/chartdir_export.h"
#include "chartdir/hot_spots.h"
#include "chartdir/palette.h"
#include "chartdir/reduction.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

struct _cairo;
using cairo_t = _cairo;

namespace chartdir {

struct DataSet
{
    std::string name{};  ///< in the legend and in texts of hot spots; without one it has no place in a legend
    std::vector<double> values{};
    std::size_t place = 0;  ///< among the series of the chart: markers of neighbours stand beside each other
    SeriesStyle style{};
    double lineWidth = 1.8;        ///< pixels; 0: markers alone
    bool isMarkedSparsely = true;  ///< a marker every now and then instead of one at each point
    double markerSize = 7.0;
    /// What its points tell, one for each value; without them every place of the curve tells its value.
    std::vector<std::string> tips{};
};

class CHARTDIR_EXPORT Layer
{
public:
    virtual ~Layer();

    /// `place` settles how the series looks; see StyleOfSeries. The reference lasts until the next call.
    DataSet& addDataSet(std::vector<double> values, std::string name, std::size_t place);
    const std::vector<DataSet>& getDataSets() const { return m_sets; }
    /// Abscissas of all its series; without them 0, 1, 2, ….
    void setXData(std::vector<double> values) { m_xs = std::move(values); }

    /// Adds what it spans.
    virtual void Extend(DataRange& x, DataRange& y) const;
    virtual void Draw(cairo_t* canvas, const Mapping& mapping, const Theme& theme) const = 0;
    /// Adds its hot spots to a map that has the series before it.
    virtual void AddHotSpots(ImageMap& map) const;
    /// A sample of a series for the legend, in a box of that size with its upper left corner at 0.
    virtual void DrawSample(cairo_t* canvas, const DataSet& set, double width, double height) const;

protected:
    Layer() = default;
    std::vector<CurveRun> RunsOfSet(const DataSet& set, const Mapping& mapping) const;
    /// The first n of 0, 1, 2, … where no abscissas were given.
    const std::vector<double>& Abscissas(std::size_t count, std::vector<double>& room) const;

    std::vector<DataSet> m_sets;
    std::optional<std::vector<double>> m_xs;
};

class CHARTDIR_EXPORT LineLayer : public Layer
{
public:
    void Draw(cairo_t* canvas, const Mapping& mapping, const Theme& theme) const override;
};

/// Curves with the area between them and zero, also below it.
class CHARTDIR_EXPORT AreaLayer : public Layer
{
public:
    void Extend(DataRange& x, DataRange& y) const override;
    void Draw(cairo_t* canvas, const Mapping& mapping, const Theme& theme) const override;
    void DrawSample(cairo_t* canvas, const DataSet& set, double width, double height) const override;
};

enum class BarMode
{
    Side,    ///< the series of one place stand beside each other
    Stacked  ///< on each other: values above 0 upwards, those below 0 downwards
};

/// Bars from zero on.
class CHARTDIR_EXPORT BarLayer : public Layer
{
public:
    explicit BarLayer(BarMode mode) : m_mode(mode) {}

    void Extend(DataRange& x, DataRange& y) const override;
    void Draw(cairo_t* canvas, const Mapping& mapping, const Theme& theme) const override;
    void AddHotSpots(ImageMap& map) const override;
    void DrawSample(cairo_t* canvas, const DataSet& set, double width, double height) const override;

private:
    struct Bar
    {
        std::size_t set = 0;
        std::size_t place = 0;
        Rect box;
    };
    std::vector<Bar> BarsOf(const Mapping& mapping) const;
    /// From where to where a bar reaches, as values.
    std::pair<double, double> Span(std::size_t set, std::size_t place) const;

    BarMode m_mode;
};

}  // namespace chartdir
