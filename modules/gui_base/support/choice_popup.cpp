// SPDX-License-Identifier: MIT
#include "gui_base/support/choice_popup.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace choice_popup {

bool Open(wxChoice& choice)
{
    if (!choice.IsEnabled() || choice.IsEmpty())
        return false;
#ifdef __WXGTK__
    gtk_combo_box_popup(GTK_COMBO_BOX(choice.GetHandle()));
#else
    choice.SetFocus();
#endif
    return true;
}

}  // namespace choice_popup
