// SPDX-License-Identifier: MIT
#include "app/frame/plant_dialog.h"

#include "app/document/plant_templates.h"
#include "dbinterfaces/master_database.h"
#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/report/design_report.h"
#include "gui_base/support/translation.h"

#include <wx/sizer.h>

#include <algorithm>

namespace app {

namespace {

const PlantTemplate* ExampleOf(const std::string& type)
{
    const auto plants = PlantTemplates();
    const auto found =
        std::ranges::find_if(plants, [&type](const PlantTemplate& plant) { return type == plant.type; });
    return found == plants.end() ? nullptr : &*found;
}

/// "Strong acid cation, Degasser, Strong base anion"; what may be left out stands in brackets.
wxString ExchangersOf(const DBObjects::PlantType& type)
{
    wxString text;
    for (const DBObjects::PlantExchanger& exchanger : type.exchangers) {
        const wxString name = i18n::Translated(designtext::KindName(exchanger.kind));
        text += (text.empty() ? "" : ", ") + (exchanger.optional ? "(" + name + ")" : name);
    }
    return text;
}

}  // namespace

PlantDialog::PlantDialog(wxWindow* parent)
    : wxDialog(parent, wxID_ANY, i18n::Translated("New plant"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_types(MasterDatabase::GetPlantTypes()),
      m_list(new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(760, 240)),
                            wxLC_REPORT | wxLC_SINGLE_SEL)),
      m_example(new wxCheckBox(this, wxID_ANY, i18n::Translated("With the figures of an &example")))
{
    m_list->AppendColumn(i18n::Translated("Plant"), wxLIST_FORMAT_LEFT, FromDIP(220));
    m_list->AppendColumn(i18n::Translated("Exchangers"), wxLIST_FORMAT_LEFT, FromDIP(520));
    for (const DBObjects::PlantType& type : m_types) {
        const long item =
            m_list->InsertItem(m_list->GetItemCount(), i18n::Translated(wxString::FromUTF8(type.name)));
        m_list->SetItem(item, 1, ExchangersOf(type));
    }
    m_list->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { OnSelected(); });
    m_list->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { EndModal(wxID_OK); });

    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(8)).Expand();
    outer->Add(m_list, wxSizerFlags(spaced).Proportion(1));
    outer->Add(m_example, spaced);
    outer->Add(dialogs::CreateButtons(*this, true, "Create"), spaced);
    SetSizerAndFit(outer);
    if (!m_types.empty()) {
        m_list->Select(0);
        m_list->Focus(0);
    }
    OnSelected();
    m_list->SetFocus();
    CentreOnParent();
}

const DBObjects::PlantType* PlantDialog::GetChosen() const
{
    const long selected = m_list->GetFirstSelected();
    return selected < 0 ? nullptr : &m_types[static_cast<std::size_t>(selected)];
}

void PlantDialog::OnSelected()
{
    const DBObjects::PlantType* chosen = GetChosen();
    m_example->Enable(chosen != nullptr && ExampleOf(chosen->type) != nullptr);
}

std::unique_ptr<Project> PlantDialog::MakeProject() const
{
    const DBObjects::PlantType* chosen = GetChosen();
    if (chosen == nullptr)
        return nullptr;
    const PlantTemplate* example = m_example->GetValue() ? ExampleOf(chosen->type) : nullptr;
    if (example != nullptr)
        return NewProjectFrom(*example);
    return std::make_unique<iex::IEXProject>(chosen->type);
}

}  // namespace app
