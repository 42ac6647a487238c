// SPDX-License-Identifier: MIT
#include "app/modules/base/module.h"

#include <array>

namespace app {

Module ProjectModule();
Module WaterModule();
Module FeedModule();
Module DesignModule();
Module OverviewModule();
Module RegenerationModule();
Module WasteWaterModule();
Module ChartModule();

std::span<const Module> Modules()
{
    static const std::array modules{ProjectModule(),    WaterModule(),    FeedModule(),
                                    DesignModule(),     OverviewModule(), RegenerationModule(),
                                    WasteWaterModule(), ChartModule()};
    return modules;
}

}  // namespace app
