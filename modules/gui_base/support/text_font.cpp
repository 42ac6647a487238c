// SPDX-License-Identifier: MIT
#include "gui_base/support/text_font.h"

#include <wx/stattext.h>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace text_font {

void Set(wxStaticText& text, const wxFont& font)
{
    text.SetFont(font);
#ifdef __WXGTK__
    // The toolkit would go on measuring by the former font until its next frame, and nobody asks again then.
    g_signal_emit_by_name(text.GetHandle(), "style-updated");
    text.InvalidateBestSize();
#endif
}

}  // namespace text_font
