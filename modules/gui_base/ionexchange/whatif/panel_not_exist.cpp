// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/whatif/panel_not_exist.h"

#include "gui_base/input/controls/tv_statictext.h"

#include <wx/sizer.h>

PanelNotExist::PanelNotExist(Project* project, wxWindow* parent, int id, const wxString& title,
                             const wxPoint& pos, const wxSize& size, long style)
    : ModulePanelBase(project, parent, id, pos, size, style, title.empty() ? wxString("panel") : title)
{
    Create();
}

void PanelNotExist::DoCreateControls()
{
    auto* text = AddLocalizable(
        new TvStaticText(this, wxID_ANY, wxTRANSLATE("This panel doesn't exist for this configuration")));
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->AddStretchSpacer();
    sizer->Add(text, wxSizerFlags().Centre().Border(wxALL, FromDIP(16)));
    sizer->AddStretchSpacer();
    SetSizer(sizer);
}
