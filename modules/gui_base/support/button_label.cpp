// SPDX-License-Identifier: MIT
#include "gui_base/support/button_label.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace button_label {

void Set(wxButton& button, const wxString& text)
{
    button.SetLabel(text);
#ifdef __WXGTK__
    auto* widget = GTK_BUTTON(button.GetHandle());
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS
    if (gtk_button_get_use_stock(widget) == FALSE)
        return;
    gtk_button_set_use_stock(widget, FALSE);
    G_GNUC_END_IGNORE_DEPRECATIONS
    wxString mnemonic = text;
    mnemonic.Replace("_", "__");
    mnemonic.Replace("&", "_");
    gtk_button_set_label(widget, mnemonic.utf8_str());
    gtk_button_set_use_underline(widget, TRUE);
    button.InvalidateBestSize();
#endif
}

wxButton* NewButton(wxWindow* parent, int id, const wxString& text)
{
    auto* button = new wxButton(parent, id);
    Set(*button, text);
    return button;
}

}  // namespace button_label
