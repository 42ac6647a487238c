// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_staticboxsizer.h"

#include "gui_base/support/translation.h"

#include <wx/statbox.h>

TvStaticBoxSizer::TvStaticBoxSizer(int orient, wxWindow* parent, const wxString& label)
    : wxStaticBoxSizer(orient, parent, i18n::Translated(label)), m_label(label)
{}

void TvStaticBoxSizer::Localize(const std::string&)
{
    GetStaticBox()->SetLabel(i18n::Translated(m_label));
}
