// SPDX-License-Identifier: MIT
#include "gui_base/input/validation/number_room.h"

#include <wx/dcclient.h>
#include <wx/grid.h>
#include <wx/listctrl.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

#include <algorithm>

namespace number_room {
namespace {

/// Every field has room for that many characters; measuring costs more than counting.
constexpr std::size_t kAlwaysRoom = 6;
constexpr int kCellMargin = 10;
/// Beside a text for the caret, in DIP.
constexpr int kCaret = 2;

/// Frame and padding of a field on both sides together.
int MarginsOf(const wxTextCtrl& field)
{
#ifdef __WXGTK3__
    GtkStyleContext* style = gtk_widget_get_style_context(field.GetHandle());
    GtkBorder padding;
    GtkBorder border;
    gtk_style_context_get_padding(style, gtk_style_context_get_state(style), &padding);
    gtk_style_context_get_border(style, gtk_style_context_get_state(style), &border);
    return padding.left + padding.right + border.left + border.right + field.FromDIP(kCaret);
#else
    return field.FromDIP(10 + kCaret);
#endif
}

/// Lays out everything from the field's parent to the page that scrolls, which may hold panels that scroll
/// themselves elsewhere.
void LayOutAround(const wxWindow& field)
{
    const wxWindow* page = nullptr;
    for (const wxWindow* around = field.GetParent(); around != nullptr && !around->IsTopLevel();
         around = around->GetParent()) {
        if (dynamic_cast<const wxScrollHelper*>(around) != nullptr)
            page = around;
    }
    for (wxWindow* around = field.GetParent(); around != nullptr; around = around->GetParent()) {
        around->InvalidateBestSize();
        // A panel on a page was once made as large as what it holds.
        if (around != page && around->GetSizer() != nullptr && around->GetMinSize().IsFullySpecified()) {
            wxSize least = around->ClientToWindowSize(around->GetSizer()->CalcMin());
            least.IncTo(around->GetMinSize());
            around->SetMinSize(least);
        }
        if (dynamic_cast<wxScrollHelper*>(around) != nullptr)
            around->FitInside();
        around->Layout();
        if (around == page || around->IsTopLevel())
            return;
    }
}

}  // namespace

void Fit(wxTextCtrl& field, int usual)
{
    const wxString text = field.GetValue();
    int wanted = usual;
    if (!text.empty())
        // The toolkit's own answer counts the present width in, and so would grow with every question.
        wanted = std::max(wanted, field.GetTextExtent(text).x + MarginsOf(field));
    if (wanted == field.GetMinSize().x)
        return;
    // So would its height, were it asked for anew. What is folded away has none yet.
    const bool hasHeight = field.GetMinSize().y <= 0 && field.IsShownOnScreen();
    field.SetMinSize(wxSize(wanted, hasHeight ? field.GetSize().y : field.GetMinSize().y));
    LayOutAround(field);
}

void GrowColumn(wxGrid& grid, int column, int first, int last)
{
    wxString longest;
    for (int row = first; row <= last; ++row) {
        const wxString text = grid.GetCellValue(row, column);
        if (text.length() > longest.length())
            longest = text;
    }
    if (longest.length() <= kAlwaysRoom)
        return;
    wxClientDC dc(grid.GetGridWindow());
    dc.SetFont(grid.GetDefaultCellFont());
    const int wanted = dc.GetTextExtent(longest).x + grid.FromDIP(kCellMargin);
    if (wanted > grid.GetColSize(column))
        grid.SetColSize(column, wanted);
}

void GrowColumn(wxListView& list, int column)
{
    const int before = list.GetColumnWidth(column);
    list.SetColumnWidth(column, wxLIST_AUTOSIZE);
    if (list.GetColumnWidth(column) < before)
        list.SetColumnWidth(column, before);
}

}  // namespace number_room
