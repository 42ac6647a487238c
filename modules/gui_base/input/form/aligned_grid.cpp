// SPDX-License-Identifier: MIT
#include "gui_base/input/form/aligned_grid.h"

#include <algorithm>
#include <utility>

AlignedGrid::AlignedGrid(int columns, const wxSize& gap, Group group)
    : wxFlexGridSizer(columns, gap), m_group(std::move(group))
{
    m_group->push_back(this);
}

AlignedGrid::~AlignedGrid()
{
    std::erase(*m_group, this);
}

wxSize AlignedGrid::CalcMin()
{
    // What is hidden needs no room, and whoever lays it out does not ask for it.
    std::vector<int> widths;
    for (AlignedGrid* grid : *m_group) {
        grid->OwnMin();
        widths.resize(std::max<std::size_t>(widths.size(), grid->m_colWidths.size()), -1);
        for (std::size_t i = 0; i < grid->m_colWidths.size(); ++i)
            widths[i] = std::max(widths[i], grid->m_colWidths[i]);
    }
    wxSize size = OwnMin();
    for (AlignedGrid* grid : *m_group) {
        for (std::size_t i = 0; i < grid->m_colWidths.size(); ++i) {
            if (grid->m_colWidths[i] < 0)
                continue;
            if (grid == this)
                size.x += widths[i] - grid->m_colWidths[i];
            grid->m_colWidths[i] = widths[i];
        }
    }
    return size;
}
