// SPDX-License-Identifier: MIT
#include "gui_base/input/panel/advanced_input_options.h"

#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/intl.h>
#include <wx/sizer.h>
#include <wx/toplevel.h>

namespace {

wxString SourceLabel(const wxString& label)
{
    return label.empty() ? wxString(wxTRANSLATE("Advanced options")) : label;
}

}  // namespace

AdvancedInputOptions::AdvancedInputOptions(wxWindow* parent, int id, const wxString& label)
    : wxCollapsiblePane(parent, id, i18n::Translated(SourceLabel(label)), wxDefaultPosition, wxDefaultSize,
                        wxCP_DEFAULT_STYLE | wxCP_NO_TLW_RESIZE),
      m_label(SourceLabel(label)),
      m_options(new TvPanel(GetPane()))
{
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_options, wxSizerFlags(1).Expand());
    GetPane()->SetSizer(sizer);
    Bind(wxEVT_COLLAPSIBLEPANE_CHANGED, [this](wxCollapsiblePaneEvent& event) {
        event.Skip();
        LayOutAround();
    });
}

void AdvancedInputOptions::SetOpen(bool open)
{
    if (open == IsExpanded())
        return;
    Collapse(!open);
    LayOutAround();
}

void AdvancedInputOptions::Localize(const std::string& unitSystem)
{
    SetLabel(i18n::Translated(m_label));
    accessibility::SetName(*this, i18n::Translated(m_label));
    m_options->Localize(unitSystem);
    GetPane()->Layout();
}

void AdvancedInputOptions::LayOutAround()
{
    InvalidateBestSize();
    wxWindow* top = wxGetTopLevelParent(this);
    if (top == nullptr)
        return;
    // A dialog grows with the section, but never shrinks below what the user made it.
    if (wxSizer* sizer = top->GetSizer(); sizer != nullptr && IsExpanded()) {
        const wxSize needed = sizer->ComputeFittingClientSize(top);
        wxSize size = top->GetClientSize();
        size.IncTo(needed);
        top->SetClientSize(size);
    }
    for (wxWindow* window = GetParent(); window != nullptr; window = window->GetParent()) {
        window->Layout();
        if (window->IsTopLevel())
            break;
    }
}
