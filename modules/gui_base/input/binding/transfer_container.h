// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/input/binding/transfer_detail.h"

#include <memory>
#include <vector>

/// Owns the bindings of a panel, in the order in which they were added.
class GUI_BASE_EXPORT TransferContainer
{
public:
    using Bindings = std::vector<std::unique_ptr<TransferDetailBase>>;

    TransferContainer() = default;
    TransferContainer(const TransferContainer&) = delete;
    TransferContainer& operator=(const TransferContainer&) = delete;

    void AddTransfer(std::unique_ptr<TransferDetailBase> binding)
    {
        m_bindings.push_back(std::move(binding));
    }
    void Clear() { m_bindings.clear(); }
    const Bindings& GetBindings() const { return m_bindings; }

    /// Clears `changed` and transfers every binding. Returns whether any detail changed; `changed` tells
    /// whether any did whose binding counts its changes.
    bool TransferFromWindow(const wxString& unitSystem, bool& changed, double currencyFactor);
    void TransferToWindow(const wxString& unitSystem, double currencyFactor);
    void TransferRangeFlags();

private:
    Bindings m_bindings;
};
