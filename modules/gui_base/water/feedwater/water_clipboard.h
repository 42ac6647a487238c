// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "projectbase/water/liquid_data.h"

/// One water that is copied from one liquid and pasted into others, within this process: not the system's
/// clipboard. The water is kept by value. GUI thread only.
class GUI_BASE_EXPORT WaterClipboard
{
public:
    WaterClipboard() = delete;

    /// Keeps the values of a liquid; null clears them, and no liquid is available then.
    static void PutLiquid(const LiquidData* liquid);
    /// Copies the kept values into `target`. Returns whether a liquid was available; otherwise the target is
    /// left as it is.
    static bool GetLiquid(LiquidData* target);
    static bool LiquidAvailable();
    /// Clears the kept values. A liquid that was available stays available: what is pasted then is a cleared
    /// water.
    static void RemoveLiquid();
};
