// SPDX-License-Identifier: MIT
#pragma once

#include "chartdir/chartdir_export.h"
#include "chartdir/scale.h"

#include <string>
#include <utility>
#include <vector>

namespace chartdir {

/// An axis: its title, its whole scale, and the part of it that is in view.
class CHARTDIR_EXPORT Axis
{
public:
    void setTitle(std::string markup) { m_title = std::move(markup); }
    const std::string& getTitle() const { return m_title; }

    /// From `lower` to `upper`, also backwards. Ends that cannot be drawn are replaced by ones that are near.
    void setLinearScale(double lower, double upper) { SetScale({lower, upper, false}); }
    void setLogScale(double lower, double upper) { SetScale({lower, upper, true}); }
    /// As the data say, with ticks at the ends; the usual one.
    void setAutoScale(bool isLog = false);
    bool isAutoScale() const { return m_isAuto; }
    bool isLog() const { return m_scale.isLog; }

    /// Names at 0, 1, 2, … instead of numbers: the places of bars.
    void setLabels(std::vector<std::string> labels) { m_labels = std::move(labels); }
    const std::vector<std::string>& getLabels() const { return m_labels; }
    /// Below each other in up to that many rows where they have no room side by side; of an abscissa.
    void setLabelRows(int rows) { m_labelRows = rows; }
    int getLabelRows() const { return m_labelRows; }

    /// The part in view, as fractions of the whole scale.
    void setViewPort(double from, double to);
    void clearViewPort() { setViewPort(0.0, 1.0); }

    /// The whole scale with data of that range.
    Scale getFullScale(const DataRange& data) const;
    /// The part of it that is in view.
    Scale getScale(const DataRange& data) const;

private:
    void SetScale(const Scale& scale);

    std::string m_title;
    std::vector<std::string> m_labels;
    int m_labelRows = 1;
    Scale m_scale;
    bool m_isAuto = true;
    double m_from = 0.0;
    double m_to = 1.0;
};

}  // namespace chartdir
