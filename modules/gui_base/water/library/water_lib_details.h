// SPDX-License-Identifier: MIT
#pragma once

/// What the water library shows of the selected water: where it comes from, and its analysis. Texts that are
/// only shown can be read and copied as a whole however long they are.

#include "dbinterfaces/db_objects.h"
#include "gui_base/gui_base_export.h"
#include "gui_base/water/library/water_lib_items.h"
#include "projectbase/water/liquid_data.h"

#include <wx/listctrl.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

#include <array>
#include <memory>
#include <vector>

class GUI_BASE_EXPORT WaterLibDetails : public wxPanel
{
public:
    static constexpr std::size_t kTexts = 6;
    /// Country, place, water source, water type, date of sampling, comments.
    using Texts = std::array<wxString, kTexts>;

    explicit WaterLibDetails(wxWindow* parent);

    /// Applies stored values to a new liquid and lists them.
    void SetValues(const std::vector<DBObjects::WaterLibAttr>& values);
    /// The general information of a water whose values were set. Throws DatabaseError.
    void ShowOrigin(const WaterLibListViewItem& water);
    void SetTexts(const Texts& texts);
    void Clear();
    /// The water that is shown, or null.
    const LiquidData* GetLiquid() const { return m_liquid.get(); }

private:
    void CreateControls();

    std::unique_ptr<LiquidData> m_liquid;
    std::array<wxTextCtrl*, kTexts> m_texts{};
    wxListView* m_values = nullptr;
};
