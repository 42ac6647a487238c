// SPDX-License-Identifier: MIT
#pragma once

/// What the compounds of a feed are dissolved in.

#include "projectbase/units/temperature.h"

namespace FeedMedium {

struct Data
{
    long id = -1;             ///< of the master database; -1 where none is chosen
    Temperature temperature;  ///< of the medium, in the unit in which it is shown
    double density = 1.0;     ///< of the solution, kg/l
};

}  // namespace FeedMedium
