// SPDX-License-Identifier: MIT
#pragma once

/// What the toolkit logs goes to the message area instead of into boxes.

#include <wx/string.h>

namespace app {

class MessageArea;

/// Sends the toolkit's messages to `area` from now on; it must be redirected again before the area goes.
void RedirectLog(MessageArea& area);
/// Sends them to standard error.
void RedirectLog();

}  // namespace app
