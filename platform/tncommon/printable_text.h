// SPDX-License-Identifier: MIT
#pragma once

#include "tncommon/tncommon_export.h"

#include <string>
#include <string_view>

namespace tncommon {

/// A text of unknown origin, such as the name of a file, as it can be shown: valid UTF-8 stays; bytes that
/// are none, and control characters, which a terminal would obey, become "\x1b".
TNCOMMON_EXPORT std::string PrintableText(std::string_view bytes);

/// The same for whole output, whose line breaks and tabs stay.
TNCOMMON_EXPORT std::string PrintableLines(std::string_view bytes);

}  // namespace tncommon
