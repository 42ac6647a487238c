// SPDX-License-Identifier: MIT
#include "chartdir/reduction.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace chartdir {

namespace {

/// Fraction of an axis as a linear function, so that a million of points does without calls.
class FastScale
{
public:
    FastScale(const Scale& scale, double start, double length)
        : m_isLog(scale.isLog), m_lower(scale.isLog ? std::log10(scale.lower) : scale.lower)
    {
        const double upper = scale.isLog ? std::log10(scale.upper) : scale.upper;
        m_factor = length / (upper - m_lower);
        m_start = start;
    }
    /// Not finite where the value has no place.
    double operator()(double value) const
    {
        if (m_isLog)
            value = value > 0.0 ? std::log10(value) : NAN;
        return m_start + (value - m_lower) * m_factor;
    }

private:
    bool m_isLog;
    double m_lower;
    double m_factor;
    double m_start;
};

/// Collects points of one column after the other.
class ColumnReducer
{
public:
    explicit ColumnReducer(std::vector<CurveRun>& runs) : m_runs(runs) {}

    void Add(const CurvePoint& point, int column)
    {
        if (m_count == 0 || column != m_column) {
            Flush();
            m_column = column;
            m_first = m_last = m_lowest = m_highest = point;
        } else {
            m_last = point;
            if (point.place.y < m_highest.place.y)
                m_highest = point;
            if (point.place.y > m_lowest.place.y)
                m_lowest = point;
        }
        ++m_count;
    }
    void Gap()
    {
        Flush();
        if (!m_run.empty())
            m_runs.push_back(std::move(m_run));
        m_run.clear();
    }

private:
    void Flush()
    {
        if (m_count == 0)
            return;
        std::array kept{m_first, m_lowest, m_highest, m_last};
        std::ranges::sort(kept, {}, &CurvePoint::index);
        for (std::size_t i = 0; i < kept.size(); ++i) {
            if (i == 0 || kept[i].index != kept[i - 1].index)
                m_run.push_back(kept[i]);
        }
        m_count = 0;
    }

    std::vector<CurveRun>& m_runs;
    CurveRun m_run;
    std::size_t m_count = 0;
    int m_column = 0;
    CurvePoint m_first;
    CurvePoint m_last;
    CurvePoint m_lowest;
    CurvePoint m_highest;
};

}  // namespace

std::vector<CurveRun> RunsOf(std::span<const double> xs, std::span<const double> ys, const Mapping& mapping)
{
    const FastScale toX(mapping.x, mapping.plot.x, mapping.plot.width);
    const FastScale toY(mapping.y, mapping.plot.Bottom(), -mapping.plot.height);
    const double left = std::floor(mapping.plot.x) - 1.0;
    const double right = std::ceil(mapping.plot.Right()) + 1.0;
    std::vector<CurveRun> runs;
    ColumnReducer reducer(runs);
    const std::size_t count = std::min(xs.size(), ys.size());
    for (std::size_t i = 0; i < count; ++i) {
        const Point place{toX(xs[i]), toY(ys[i])};
        if (!std::isfinite(place.x) || !std::isfinite(place.y)) {
            reducer.Gap();
            continue;
        }
        // All that lies beside the plot area counts as one column, which keeps how the curve enters.
        reducer.Add({place, i}, static_cast<int>(std::clamp(place.x, left, right) - left));
    }
    reducer.Gap();
    return runs;
}

}  // namespace chartdir
