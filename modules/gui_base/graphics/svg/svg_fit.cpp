// SPDX-License-Identifier: MIT
#include "gui_base/graphics/svg/svg_fit.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace svg {

namespace {

using Align = SvgParserBase::Align;

/// The share of the room left over that lies before the document: 0, a half or all, in turn along x, then y.
double ShareBefore(Align align, bool isVertical)
{
    const auto place = static_cast<unsigned>(align) - 1;
    return 0.5 * (isVertical ? place / 3 : place % 3);
}

}  // namespace

bool IsUsable(const wxAffineMatrix2D& matrix)
{
    constexpr double kSmallest = 1.0e-9;
    constexpr double kLargest = 1.0e6;
    wxMatrix2D m;
    wxPoint2DDouble t;
    matrix.Get(&m, &t);
    const std::array numbers{m.m_11, m.m_12, m.m_21, m.m_22, t.m_x, t.m_y};
    const auto isModerate = [](double number) { return std::abs(number) < kLargest; };
    return std::ranges::all_of(numbers, isModerate) &&
           std::abs(m.m_11 * m.m_22 - m.m_12 * m.m_21) > kSmallest;
}

std::optional<wxAffineMatrix2D> FitDocument(const SvgParserBase::ParserResult& result, const wxSize& own,
                                            double scale)
{
    wxAffineMatrix2D matrix;
    matrix.Scale(scale, scale);
    if (result.viewBox) {
        const SvgParserBase::ViewBox& box = *result.viewBox;
        const double sx = box.width > 0.0 ? own.x / box.width : 0.0;
        const double sy = box.height > 0.0 ? own.y / box.height : 0.0;
        if (result.align == Align::None) {
            matrix.Scale(sx, sy);
            matrix.Translate(-box.x, -box.y);
        } else {
            const bool meets = result.meetOrSlice == SvgParserBase::MeetOrSlice::Meet;
            const double s = meets ? std::min(sx, sy) : std::max(sx, sy);
            if (s <= 0.0)
                return std::nullopt;
            matrix.Scale(s, s);
            matrix.Translate((own.x / s - box.width) * ShareBefore(result.align, false),
                             (own.y / s - box.height) * ShareBefore(result.align, true));
        }
    }
    return IsUsable(matrix) ? std::optional(matrix) : std::nullopt;
}

wxRect2DDouble TransformedBox(const wxRect2DDouble& box, const wxAffineMatrix2D& matrix)
{
    const wxPoint2DDouble first = matrix.TransformPoint(box.GetLeftTop());
    wxRect2DDouble around(first.m_x, first.m_y, 0.0, 0.0);
    for (const wxPoint2DDouble& corner : {box.GetRightTop(), box.GetLeftBottom(), box.GetRightBottom()}) {
        const wxPoint2DDouble point = matrix.TransformPoint(corner);
        const double left = std::min(around.m_x, point.m_x);
        const double top = std::min(around.m_y, point.m_y);
        around = {left, top, std::max(around.GetRight(), point.m_x) - left,
                  std::max(around.GetBottom(), point.m_y) - top};
    }
    return around;
}

}  // namespace svg
