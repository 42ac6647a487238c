// SPDX-License-Identifier: MIT
#pragma once

/// Numbers beside their units, within texts that are broken into lines at blanks.

#include "core/core_export.h"

#include <string>
#include <string_view>

namespace numbertext {

/// "8.85 meq/l" with a no-break space, so that no line begins with a unit; the number alone where there is no
/// unit, nothing where there is no number.
CORE_EXPORT std::string WithUnit(std::string_view number, std::string_view unit);

/// The text with usual blanks in place of no-break spaces: for terminals and for what other programs read,
/// which break no lines.
CORE_EXPORT std::string WithUsualBlanks(std::string text);

}  // namespace numbertext
