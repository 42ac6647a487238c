// SPDX-License-Identifier: MIT
#pragma once

/// The three operations over a sequence of bindings, in insertion order.

#include <wx/string.h>

namespace transfer {

template <typename Sequence>
bool FromWindow(const Sequence& bindings, const wxString& unitSystem, bool& changed, double currencyFactor)
{
    changed = false;
    bool result = false;
    for (const auto& binding : bindings) {
        if (binding->TransferFromWindow(unitSystem, changed, currencyFactor))
            result = true;
    }
    return result;
}

template <typename Sequence>
void ToWindow(const Sequence& bindings, const wxString& unitSystem, double currencyFactor)
{
    for (const auto& binding : bindings)
        binding->TransferToWindow(unitSystem, currencyFactor);
}

template <typename Sequence>
void RangeFlags(const Sequence& bindings)
{
    for (const auto& binding : bindings)
        binding->TransferRangeFlags();
}

}  // namespace transfer
