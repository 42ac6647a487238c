// SPDX-License-Identifier: MIT
#include "gui_base/input/binding/transfer_container.h"

#include "gui_base/input/binding/transfer_sequence.h"

bool TransferContainer::TransferFromWindow(const wxString& unitSystem, bool& changed, double currencyFactor)
{
    return transfer::FromWindow(m_bindings, unitSystem, changed, currencyFactor);
}

void TransferContainer::TransferToWindow(const wxString& unitSystem, double currencyFactor)
{
    transfer::ToWindow(m_bindings, unitSystem, currencyFactor);
}

void TransferContainer::TransferRangeFlags()
{
    transfer::RangeFlags(m_bindings);
}
