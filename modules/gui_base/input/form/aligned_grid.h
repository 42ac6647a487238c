// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/sizer.h>

#include <memory>
#include <vector>

/// A grid whose columns are as wide as those of the other grids of its group, so that tables in one column of
/// a page line up. Columns that a grid does not show take no room in it.
class GUI_BASE_EXPORT AlignedGrid : public wxFlexGridSizer
{
public:
    /// The grids that line up; a grid leaves its group when it goes.
    using Group = std::shared_ptr<std::vector<AlignedGrid*>>;
    static Group NewGroup() { return std::make_shared<std::vector<AlignedGrid*>>(); }

    /// `gap` in pixels.
    AlignedGrid(int columns, const wxSize& gap, Group group);
    ~AlignedGrid() override;
    AlignedGrid(const AlignedGrid&) = delete;
    AlignedGrid& operator=(const AlignedGrid&) = delete;

    wxSize CalcMin() override;

private:
    wxSize OwnMin() { return wxFlexGridSizer::CalcMin(); }

    Group m_group;
};
