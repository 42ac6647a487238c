// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <string>

/// Mixed into controls that know their own detail and can refresh themselves from it.
class GUI_BASE_EXPORT DetailContainerWindow
{
public:
    DetailContainerWindow() = default;
    DetailContainerWindow(const DetailContainerWindow&) = default;
    DetailContainerWindow& operator=(const DetailContainerWindow&) = default;
    virtual ~DetailContainerWindow() = default;

    /// Shows the detail's present value.
    virtual void TransferDetailToWindow() = 0;
    /// Shows unit and value in another unit system.
    virtual void UpdateUnit(const std::string& unitSystem) = 0;
};
