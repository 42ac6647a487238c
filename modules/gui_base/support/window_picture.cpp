// SPDX-License-Identifier: MIT
#include "gui_base/support/window_picture.h"

#include <wx/bitmap.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace window_picture {

wxImage Take(wxWindow& window)
{
#ifdef __WXGTK__
    // A device context of the toolkit would leave out child windows with a surface of their own.
    GdkWindow* surface = gtk_widget_get_window(static_cast<GtkWidget*>(window.GetHandle()));
    if (surface == nullptr)
        return wxImage();
    GdkPixbuf* pixels = gdk_pixbuf_get_from_window(surface, 0, 0, gdk_window_get_width(surface),
                                                   gdk_window_get_height(surface));
    return pixels == nullptr ? wxImage() : wxBitmap(pixels).ConvertToImage();
#else
    const wxSize size = window.GetClientSize();
    wxBitmap bitmap(size);
    wxMemoryDC memory(bitmap);
    wxClientDC screen(&window);
    memory.Blit(wxPoint(), size, &screen, wxPoint());
    memory.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage();
#endif
}

}  // namespace window_picture
