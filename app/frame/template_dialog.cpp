// SPDX-License-Identifier: MIT
#include "app/frame/template_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/support/list_column.h"
#include "gui_base/support/translation.h"

#include <wx/button.h>
#include <wx/sizer.h>

namespace app {

TemplateDialog::TemplateDialog(wxWindow* parent, const std::vector<WaterTemplate>& waters)
    : wxDialog(parent, wxID_ANY, i18n::Translated("New project from an example water"), wxDefaultPosition,
               wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_waters(waters),
      m_list(new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(680, 420)),
                            wxLC_REPORT | wxLC_SINGLE_SEL)),
      m_source(new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(680, 48)),
                                wxST_NO_AUTORESIZE))
{
    list_column::Append(*m_list, i18n::Translated("Water"), 440);
    list_column::Append(*m_list, i18n::Translated("Kind"), 200);
    for (const WaterTemplate& water : m_waters) {
        const long item = m_list->InsertItem(m_list->GetItemCount(), wxString::FromUTF8(water.name));
        m_list->SetItem(item, 1, i18n::Translated(wxString::FromUTF8(water.kind)));
    }
    m_list->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) {
        m_source->SetLabelText(
            wxString::FromUTF8(m_waters[static_cast<std::size_t>(event.GetIndex())].source));
        m_source->Wrap(FromDIP(680));
    });
    m_list->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { EndModal(wxID_OK); });

    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(8)).Expand();
    outer->Add(m_list, wxSizerFlags(spaced).Proportion(1));
    outer->Add(m_source, spaced);
    outer->Add(dialogs::CreateButtons(*this, true, "Create"), spaced);
    SetSizerAndFit(outer);
    if (!m_waters.empty()) {
        m_list->Select(0);
        m_list->Focus(0);
    }
    m_list->SetFocus();
    CentreOnParent();
}

const WaterTemplate* TemplateDialog::GetChosen() const
{
    const long selected = m_list->GetFirstSelected();
    return selected < 0 ? nullptr : &m_waters[static_cast<std::size_t>(selected)];
}

}  // namespace app
