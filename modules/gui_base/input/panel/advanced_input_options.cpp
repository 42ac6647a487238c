// SPDX-License-Identifier: MIT
#include "gui_base/input/panel/advanced_input_options.h"

#include "gui_base/input/controls/collapsible_box.h"
#include "gui_base/input/controls/kept_boxes.h"
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
        m_options->Show(IsExpanded());
        LayOutAround();
    });
    // The toolkit takes what is folded for shown, and would let the keyboard in.
    m_options->Hide();
}

void AdvancedInputOptions::OpenAround(wxWindow& field)
{
    for (wxWindow* around = &field; around != nullptr && !around->IsTopLevel();
         around = around->GetParent()) {
        if (auto* section = dynamic_cast<AdvancedInputOptions*>(around))
            section->SetOpen(true);
        else
            CollapsibleBox::Open(*around);
    }
}

void AdvancedInputOptions::SetOpen(bool open)
{
    if (open == IsExpanded())
        return;
    Collapse(!open);
    // As the toolkit tells of a click, so that also the page around takes note.
    wxCollapsiblePaneEvent event(this, GetId(), !open);
    m_isProgram = true;
    HandleWindowEvent(event);
    m_isProgram = false;
}

void AdvancedInputOptions::KeepState()
{
    // Folded is how a section comes.
    SetOpen(kept_boxes::IsKept(m_label));
    Bind(wxEVT_COLLAPSIBLEPANE_CHANGED, [this](wxCollapsiblePaneEvent& event) {
        event.Skip();
        if (!m_isProgram)
            kept_boxes::Keep(m_label, !event.GetCollapsed());
    });
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
