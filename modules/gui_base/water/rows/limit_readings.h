// SPDX-License-Identifier: MIT
#pragma once

/// What the user calls the ways in which limits of detection count.

#include "core/laboratory_values.h"

#include <wx/translation.h>

#include <array>

namespace wateranalysis {

struct ReadingChoice
{
    laboratory::LimitReading reading;
    const char* label;  ///< source text
};
inline constexpr std::array kLimitReadings{
    ReadingChoice{laboratory::LimitReading::Zero, wxTRANSLATE("zero")},
    ReadingChoice{laboratory::LimitReading::Half, wxTRANSLATE("half of the limit")},
    ReadingChoice{laboratory::LimitReading::Limit, wxTRANSLATE("the limit")},
};

}  // namespace wateranalysis
