// SPDX-License-Identifier: MIT
#include "app/modules/base/module.h"

#include <array>

namespace app {

Module WaterModule();
Module FeedModule();

std::span<const Module> Modules()
{
    static const std::array modules{WaterModule(), FeedModule()};
    return modules;
}

}  // namespace app
