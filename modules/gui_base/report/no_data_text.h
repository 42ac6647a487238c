// SPDX-License-Identifier: MIT
#pragma once

#include <wx/translation.h>

/// What stands in a diagram of waters or costs that has nothing to show: a source text without marks, so that
/// the diagram draws it in the colour in which its theme has texts that stand back.
inline const char* NoDataText()
{
    return wxTRANSLATE("No data available");
}
