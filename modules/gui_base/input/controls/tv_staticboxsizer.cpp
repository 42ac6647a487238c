// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_staticboxsizer.h"

#include "gui_base/support/translation.h"

#include <wx/statbox.h>

#ifdef __WXGTK3__
#include <gtk/gtk.h>
#endif

namespace {

/// In DIP: what stands left and right of a title.
constexpr int kTitleMargin = 6;

}  // namespace

TvStaticBoxSizer::TvStaticBoxSizer(int orient, wxWindow* parent, const wxString& label)
    : wxStaticBoxSizer(orient, parent, i18n::Translated(label)), m_label(label)
{}

void TvStaticBoxSizer::Localize(const std::string&)
{
    GetStaticBox()->SetLabel(i18n::Translated(m_label));
}

int TvStaticBoxSizer::GetTitleWidth() const
{
#ifdef __WXGTK3__
    // The toolkit knows it, and measures a text anew only when it has changed.
    GtkWidget* const title = gtk_frame_get_label_widget(GTK_FRAME(GetStaticBox()->GetHandle()));
    if (title != nullptr) {
        int width = 0;
        gtk_widget_get_preferred_width(title, nullptr, &width);
        return width;
    }
#endif
    return GetStaticBox()->GetTextExtent(GetStaticBox()->GetLabelText()).x;
}

wxSize TvStaticBoxSizer::CalcMin()
{
    // The toolkit takes what stands in a box for its least size once the title has changed, so that it would
    // never become smaller.
    int top = 0;
    int other = 0;
    GetStaticBox()->GetBordersForSizer(&top, &other);
    wxSize size = wxBoxSizer::CalcMin();
    size.IncTo(wxSize(GetTitleWidth() + 2 * GetStaticBox()->FromDIP(kTitleMargin), 0));
    return size + wxSize(2 * other, top + other);
}
