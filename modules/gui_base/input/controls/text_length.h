// SPDX-License-Identifier: MIT
#pragma once

/// How much can be typed or pasted into a text field.

class wxTextCtrl;

namespace text_length {

/// A text that becomes longer is cut after `most` letters, in a field of several lines, too, where the
/// toolkit sets no bound.
void Limit(wxTextCtrl& field, unsigned long most);

}  // namespace text_length
