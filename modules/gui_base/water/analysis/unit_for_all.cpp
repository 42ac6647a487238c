// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/unit_for_all.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/analysis/wateranalysis_panel.h"
#include "gui_base/water/rows/unit_lists.h"
#include "projectbase/water/units_of_ions.h"

#include <wx/menu.h>

#include <algorithm>

namespace wateranalysis {

void ChooseUnitForAll(WaterAnalysisPanel& panel)
{
    const IonGrid& grid = panel.GetFocusedGrid();
    const IonGrid::Row& row = grid.Rows()[static_cast<std::size_t>(std::max(grid.FocusedRow(), 0))];
    const wxString present = row.unit->GetStringSelection();
    const std::vector<wxString> units = water_units::OfIons();
    // Without a title, on which the keys would stand first.
    wxMenu menu;
    for (std::size_t i = 0; i < units.size(); ++i)
        menu.AppendRadioItem(static_cast<int>(i) + 1, units[i])->Check(units[i] == present);
    const wxPoint corner = panel.ScreenToClient(row.typed->GetScreenRect().GetBottomLeft());
    const int chosen = panel.GetPopupMenuSelectionFromUser(menu, corner);
    if (chosen != wxID_NONE)
        SetUnitForAll(panel, units[static_cast<std::size_t>(chosen - 1)]);
}

void SetUnitForAll(WaterAnalysisPanel& panel, const wxString& unit)
{
    const std::string text = unit.utf8_string();
    water::TypedNumbers numbers = water::TypedNumbers::Keep;
    if (water::HasNumbersInOtherUnit(*panel.GetLiquid().GetDetails(), text)) {
        const int answer = dialogs::AskChoice(
            wxGetTopLevelParent(&panel),
            wxString::Format(i18n::Translated("Convert the numbers that are typed already to %s?"), unit),
            i18n::Translated("Unit of all ions"), i18n::Translated("&Convert"),
            i18n::Translated("&Keep the numbers"),
            i18n::Translated("Converted numbers stay the same amounts; kept ones become other amounts."));
        if (answer == wxID_CANCEL)
            return;
        if (answer == wxID_YES)
            numbers = water::TypedNumbers::Convert;
    }
    panel.StoreUnitOfIons(text, numbers);
}

}  // namespace wateranalysis
