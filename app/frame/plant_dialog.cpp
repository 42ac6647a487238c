// SPDX-License-Identifier: MIT
#include "app/frame/plant_dialog.h"

#include "app/document/plant_templates.h"
#include "dbinterfaces/master_database.h"
#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/ionexchange/exchanger_name.h"
#include "gui_base/support/list_column.h"
#include "gui_base/support/translation.h"
#include "projectbase/design/exchanger_label.h"
#include "projectbase/project/iex_project.h"

#include <wx/sizer.h>
#include <wx/statbox.h>

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

bool HasExchanger(const iex::IEXProject& project, const std::string& kind)
{
    return std::ranges::any_of(project.GetRoot().GetChildren(OwnerKind::Exchanger), [&](const auto& step) {
        return step->GetDetails()->At("step/kind").GetStdStringValue() == kind;
    });
}

}  // namespace

PlantDialog::PlantDialog(wxWindow* parent)
    : wxDialog(parent, wxID_ANY, i18n::Translated("New plant"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_types(MasterDatabase::GetPlantTypes())
{
    MakeControls(wxTRANSLATE("Create"), true);
}

PlantDialog::PlantDialog(wxWindow* parent, const iex::IEXProject& project)
    : wxDialog(parent, wxID_ANY, i18n::Translated("Change plant"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_types(MasterDatabase::GetPlantTypes()),
      m_project(&project)
{
    MakeControls(wxTRANSLATE("Change"), false);
}

void PlantDialog::MakeControls(const wxString& action, bool withExample)
{
    m_list = new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(420, 240)),
                            wxLC_REPORT | wxLC_SINGLE_SEL);
    list_column::Append(*m_list, i18n::Translated("Plant"), 400);
    long present = 0;
    for (const DBObjects::PlantType& type : m_types) {
        const long item =
            m_list->InsertItem(m_list->GetItemCount(), i18n::Translated(wxString::FromUTF8(type.name)));
        if (m_project != nullptr && type.type == m_project->GetModuleType())
            present = item;
    }
    m_list->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { ShowExchangers(); });
    m_list->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { EndModal(wxID_OK); });

    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(8)).Expand();
    auto* columns = new wxBoxSizer(wxHORIZONTAL);
    columns->Add(m_list, wxSizerFlags(spaced).Proportion(1));
    columns->Add(MakeExchangers(), spaced);
    outer->Add(columns, wxSizerFlags().Expand().Proportion(1));
    if (withExample) {
        m_example = new wxCheckBox(this, wxID_ANY, i18n::Translated("With the figures of an &example"));
        m_example->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { ShowExchangers(); });
        outer->Add(m_example, spaced);
    }
    outer->Add(dialogs::CreateButtons(*this, true, action), spaced);
    SetSizerAndFit(outer);
    if (!m_types.empty()) {
        m_list->Select(present);
        m_list->Focus(present);
    }
    ShowExchangers();
    m_list->SetFocus();
    CentreOnParent();
}

wxSizer* PlantDialog::MakeExchangers()
{
    std::size_t longest = 0;
    int widest = 0;
    for (const DBObjects::PlantType& type : m_types) {
        longest = std::max(longest, type.exchangers.size());
        for (const DBObjects::PlantExchanger& exchanger : type.exchangers)
            widest =
                std::max(widest, GetTextExtent(i18n::Translated(design::ExchangerLabel(exchanger.kind))).x);
    }
    auto* box = new wxStaticBoxSizer(wxVERTICAL, this, i18n::Translated("Exchangers"));
    for (std::size_t i = 0; i < longest; ++i) {
        auto* check = new wxCheckBox(box->GetStaticBox(), wxID_ANY, wxString());
        check->SetMinSize(wxSize(widest + FromDIP(40), -1));
        box->Add(check, wxSizerFlags().Border(wxALL, FromDIP(4)).ReserveSpaceEvenIfHidden());
        m_exchangers.push_back(check);
    }
    return box;
}

void PlantDialog::ShowExchangers()
{
    const DBObjects::PlantType* chosen = GetChosen();
    if (m_example != nullptr)
        m_example->Enable(chosen != nullptr && ExampleOf(chosen->type) != nullptr);
    for (std::size_t i = 0; i < m_exchangers.size(); ++i) {
        wxCheckBox& check = *m_exchangers[i];
        const bool has = chosen != nullptr && i < chosen->exchangers.size();
        check.Show(has);
        if (!has)
            continue;
        const DBObjects::PlantExchanger& exchanger = chosen->exchangers[i];
        check.SetLabel(i18n::Translated(design::ExchangerLabel(exchanger.kind)));
        check.SetValue(!exchanger.optional ||
                       (m_project != nullptr && HasExchanger(*m_project, exchanger.kind)));
        // An example has exchangers of its own.
        check.Enable(exchanger.optional && !IsExample());
    }
    Layout();
}

const DBObjects::PlantType* PlantDialog::GetChosen() const
{
    const long selected = m_list->GetFirstSelected();
    return selected < 0 ? nullptr : &m_types[static_cast<std::size_t>(selected)];
}

std::string PlantDialog::GetType() const
{
    const DBObjects::PlantType* chosen = GetChosen();
    return chosen == nullptr ? std::string() : chosen->type;
}

std::vector<std::string> PlantDialog::GetKinds() const
{
    std::vector<std::string> kinds;
    if (const DBObjects::PlantType* chosen = GetChosen()) {
        for (std::size_t i = 0; i < chosen->exchangers.size(); ++i) {
            if (!chosen->exchangers[i].optional || m_exchangers[i]->GetValue())
                kinds.push_back(chosen->exchangers[i].kind);
        }
    }
    return kinds;
}

std::unique_ptr<Project> PlantDialog::MakeProject() const
{
    const DBObjects::PlantType* chosen = GetChosen();
    if (chosen == nullptr)
        return nullptr;
    if (IsExample())
        return NewProjectFrom(*ExampleOf(chosen->type));
    auto project = std::make_unique<iex::IEXProject>(chosen->type);
    project->SetPlant(chosen->type, GetKinds());
    project->SetChanged(false);
    return project;
}

void ChangePlant(wxWindow* parent, iex::IEXProject& project)
{
    PlantDialog dialog(parent, project);
    if (dialog.ShowModal() != wxID_OK || dialog.GetType().empty())
        return;
    wxString lost;
    for (const OwnerNode* exchanger : project.LostBy(dialog.GetKinds()))
        lost += "\n" + ExchangerName(*exchanger);
    const wxString question = i18n::Translated(
        wxTRANSLATE("These exchangers are removed with their resins and regeneration sequences:"));
    if (!lost.empty() &&
        dialogs::AskYesNo(parent, question + lost, i18n::Translated("Change plant"), wxICON_WARNING,
                          i18n::Translated(wxTRANSLATE("Undo brings them back."))) != wxID_YES)
        return;
    project.SetPlant(dialog.GetType(), dialog.GetKinds());
}

}  // namespace app
