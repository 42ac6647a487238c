// SPDX-License-Identifier: MIT
#pragma once

/// The program with a river water, and what stands around its pages.

#include "app/frame/page_item.h"
#include "tests/support/program_fixture.h"

#include <wx/treectrl.h>

#include <string>
#include <vector>

namespace gui_test {

class WorkAreaFixture : public ProgramTest
{
protected:
    WorkAreaFixture() : ProgramTest("world_river_livingstone") {}

    app::WorkArea& Area() { return m_frame->GetWorkArea(); }
    wxTreeCtrl& Tree() { return Area().GetTree(); }

    /// The item of a page, by its text; invalid where there is none.
    wxTreeItemId Item(const wxString& text)
    {
        wxTreeItemId found;
        app::VisitItems(Tree(), Tree().GetRootItem(), [&](const wxTreeItemId& item) {
            if (app::WholeName(Tree(), item) != text)
                return false;
            found = item;
            return true;
        });
        return found;
    }

    std::vector<std::string> WaterNames()
    {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < OpenProject().GetLiquidCount(); ++i)
            names.push_back(OpenProject().GetLiquid(i).GetName());
        return names;
    }
};

}  // namespace gui_test
