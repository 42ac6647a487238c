// SPDX-License-Identifier: MIT
#include "report/pages.h"

#include <algorithm>

namespace report {
namespace {

class Filler
{
public:
    Filler(double top, double bottom) : m_top(top), m_bottom(bottom), m_y(top) {}

    /// Places boxes [first, last), which should stay together.
    void PlaceGroup(const std::vector<Box>& boxes, std::size_t first, std::size_t last)
    {
        double height = 0.0;
        double spare = 0.0;
        for (std::size_t i = first; i < last; ++i) {
            height += boxes[i].height + boxes[i].spaceBefore;
            spare += SpareOf(boxes[i]);
        }
        if (StartsPage(boxes[first]) || m_y + height - spare > m_bottom + kTolerance)
            BreakBefore(boxes[first]);
        const double surplus = std::clamp(m_y + height - m_bottom, 0.0, spare);
        for (std::size_t i = first; i < last; ++i) {
            const Box& box = boxes[i];
            const double share = spare > 0.0 ? SpareOf(box) / spare : 0.0;
            const double placed = box.height - share * surplus;
            if (m_y + SpaceBefore(box) + placed > m_bottom + kTolerance)
                BreakBefore(box);
            Place(box, placed);
        }
    }
    std::vector<Page> Take() { return std::move(m_pages); }

private:
    /// Sums of heights that fill a page exactly must not overflow it by rounding.
    static constexpr double kTolerance = 1e-6;

    /// How much lower it may become.
    static double SpareOf(const Box& box)
    {
        return box.leastHeight > 0.0 ? std::max(0.0, box.height - box.leastHeight) : 0.0;
    }
    bool StartsPage(const Box& box) const
    {
        return box.startsPage &&
               (box.roomToJoin <= 0.0 || m_y + box.spaceBefore + box.roomToJoin > m_bottom + kTolerance);
    }
    double SpaceBefore(const Box& box) const { return m_pages.back().empty() ? 0.0 : box.spaceBefore; }

    void BreakBefore(const Box& box)
    {
        if (m_pages.back().empty())
            return;
        // A page that holds nothing but the repeated titles would break for ever.
        if (m_pages.back().size() == 1 && m_pages.back().front().box == box.repeated.get())
            return;
        m_pages.emplace_back();
        m_y = m_top;
        if (box.repeated)
            Place(*box.repeated, box.repeated->height);
    }
    void Place(const Box& box, double height)
    {
        m_y += SpaceBefore(box);
        m_pages.back().push_back({&box, m_y, height});
        m_y += height;
    }

    double m_top;
    double m_bottom;
    double m_y;
    std::vector<Page> m_pages{1};
};

}  // namespace

std::vector<Page> BreakIntoPages(const std::vector<Box>& boxes, double top, double bottom)
{
    Filler filler(top, bottom);
    for (std::size_t first = 0; first < boxes.size();) {
        std::size_t last = first + 1;
        while (last < boxes.size() && boxes[last - 1].keepWithNext)
            ++last;
        filler.PlaceGroup(boxes, first, last);
        first = last;
    }
    return filler.Take();
}

}  // namespace report
