// SPDX-License-Identifier: MIT
#pragma once

/// How the numbers at an axis are written. Internal to the library.

#include "chartdir/scale.h"
#include "core/number_text.h"

#include <string>

namespace chartdir {

/// A value of an axis with as many decimals as its ticks need.
std::string TickText(double value, const Ticks& ticks, const numbertext::Separators& separators);

}  // namespace chartdir
