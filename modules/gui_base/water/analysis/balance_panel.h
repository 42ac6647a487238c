// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/input/form/field_set.h"

#include <wx/panel.h>

class TvCheckBox;

/// The box in which the closing of the ion balance is switched.
class GUI_BASE_EXPORT BalancePanel : public wxPanel
{
public:
    /// The check boxes are bound to "liquid/balance.auto" and "liquid/balance.ph" of the set's details.
    BalancePanel(wxWindow* parent, FieldSet& fields);

    TvCheckBox* GetAutoCheckBox() const { return m_auto; }
    TvCheckBox* GetPhCheckBox() const { return m_ph; }

private:
    TvCheckBox* m_auto;
    TvCheckBox* m_ph;
};
