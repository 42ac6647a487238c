// SPDX-License-Identifier: MIT
#pragma once

/// What ties a number to the unit that the user chose for it, in every row that has both: limits that are the
/// same amount in each unit, and names that say which number and which unit it is.
///
/// The controls belong to their parent window and may go before; nothing is stored here.

#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_textctrl.h"

#include <wx/weakref.h>

#include <limits>
#include <string>

/// Smallest and greatest amount, in a unit of its own.
struct AmountLimits
{
    double min = 0.0;
    double max = 0.0;
    std::string unit = {};  ///< UTF-8; empty: the numbers hold in whatever unit is chosen
    double equivalentWeight = std::numeric_limits<double>::quiet_NaN();  ///< g/eq, of an ion
};

class GUI_BASE_EXPORT ChosenUnit
{
public:
    /// The field's validator checks the limits when it is a DoubleValidator.
    ChosenUnit(TvTextCtrl* field, tvUnitChoice* choice) : m_field(field), m_choice(choice) {}

    /// The chosen unit as UTF-8; empty while there is none.
    std::string GetUnit() const;
    void SetLimits(const AmountLimits& limits);
    /// Takes the limits into the validator, in the chosen unit. Into a unit to which they do not convert, no
    /// limit is checked.
    void ApplyLimits();
    /// Names field and choice for screen readers by a label in the user's language.
    void UpdateNames(const wxString& label);

private:
    wxWeakRef<TvTextCtrl> m_field;
    wxWeakRef<tvUnitChoice> m_choice;
    AmountLimits m_limits;
};
