// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_staticboxsizer.h"

#include "gui_base/support/translation.h"

#include <wx/statbox.h>

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
