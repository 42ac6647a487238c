// SPDX-License-Identifier: MIT
#include "gui_base/support/accessibility.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace accessibility {

void SetName(wxWindow& window, const wxString& name)
{
    window.SetName(name);
#ifdef __WXGTK__
    // The toolkit hands names to screen readers on other systems only.
    if (auto* widget = static_cast<GtkWidget*>(window.GetHandle()))
        atk_object_set_name(gtk_widget_get_accessible(widget), name.utf8_str());
#endif
}

wxString NameWithUnit(const wxString& label, const wxString& unit)
{
    return unit.empty() ? label : label + " [" + unit + "]";
}

}  // namespace accessibility
