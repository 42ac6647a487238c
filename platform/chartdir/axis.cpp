// SPDX-License-Identifier: MIT
#include "chartdir/axis.h"

namespace chartdir {

void Axis::SetScale(const Scale& scale)
{
    m_scale = MakeUsable(scale);
    m_isAuto = false;
}

void Axis::setAutoScale(bool isLog)
{
    m_scale.isLog = isLog;
    m_isAuto = true;
}

void Axis::setViewPort(double from, double to)
{
    if (!(to > from))
        return;
    m_from = from;
    m_to = to;
}

Scale Axis::getFullScale(const DataRange& data) const
{
    if (!m_isAuto)
        return m_scale;
    if (!m_labels.empty())
        return {-0.5, static_cast<double>(m_labels.size()) - 0.5, false};
    return ScaleAround(data, m_scale.isLog);
}

Scale Axis::getScale(const DataRange& data) const
{
    const Scale full = getFullScale(data);
    return m_from == 0.0 && m_to == 1.0 ? full : MakeUsable(full.Part(m_from, m_to));
}

}  // namespace chartdir
