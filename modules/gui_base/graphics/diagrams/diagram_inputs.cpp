// SPDX-License-Identifier: MIT
#include "gui_base/graphics/diagrams/diagram_inputs.h"

#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/events.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/events.h"
#include "gui_base/support/translation.h"
#include "projectbase/settings/settings.h"

#include <wx/dcclient.h>
#include <wx/statbox.h>
#include <wx/translation.h>

#include <algorithm>
#include <string>

namespace {

constexpr long kAll = -1;
constexpr int kListWidth = 230;
constexpr int kListHeight = 160;
/// What the box and the scroll bar of the list take beside a name.
constexpr int kBesideName = 48;

tvChoice::Items KindItems()
{
    tvChoice::Items items{{kAll, wxTRANSLATE("All diagrams")}};
    for (const water_diagram::Kind kind : water_diagram::kKinds)
        items.emplace_back(static_cast<long>(kind), water_diagram::NameOf(kind));
    return items;
}

}  // namespace

template <typename Control>
Control* DiagramInputs::AddLocalizable(Control* control)
{
    m_localizables.push_back(MakeLocalizable(control));
    return control;
}

DiagramInputs::DiagramInputs(wxWindow* parent, Callbacks callbacks)
    : wxPanel(parent), m_callbacks(std::move(callbacks))
{
    CreateControls();
    UpdateNames();
}

void DiagramInputs::CreateControls()
{
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(form::kGap)).Expand();
    auto* column = new wxBoxSizer(wxVERTICAL);

    auto* selection = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Selection")));
    m_kind = AddLocalizable(new tvChoice(KindItems(), nullptr, selection->GetStaticBox(), wxID_ANY));
    m_kind->SetSelection(0);
    // A view is no edit: it ends here.
    m_kind->Bind(tvCHANGE_EVENT, [this](wxCommandEvent&) { m_callbacks.onKinds(); });
    selection->Add(m_kind, spaced);
    column->Add(selection, spaced);

    auto* waters = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Waters")));
    m_list = new wxCheckListBox(waters->GetStaticBox(), wxID_ANY);
    m_list->SetMinSize(FromDIP(wxSize(kListWidth, kListHeight)));
    m_list->Bind(wxEVT_CHECKLISTBOX, &DiagramInputs::OnWater, this);
    m_list->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        ShowNames();
    });
    // Beside diagrams that scroll a list of their height would push the options out of sight.
    waters->Add(m_list, spaced);
    column->Add(waters, spaced);

    auto* options = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Options")));
    for (const water_diagram::OptionRow& row : water_diagram::OptionRows())
        AddOption(*options, options->GetStaticBox(), row);
    column->Add(options, spaced);
    column->Add(CreateExport(), spaced);
    SetSizer(column);
}

void DiagramInputs::AddOption(wxSizer& column, wxWindow* parent, const water_diagram::OptionRow& row)
{
    auto* box = AddLocalizable(new TvCheckBox(parent, wxID_ANY, row.label));
    box->SetValue(Settings::GetSetting(row.setting).GetBoolValue());
    box->Bind(wxEVT_CHECKBOX, [this, box, setting = row.setting](wxCommandEvent&) {
        Settings::GetSetting(setting).SetValue(box->GetValue());
        m_callbacks.onContents();
        events::SendEvent(this, tvCHANGESETTINGS_EVENT, GetId(), 0, wxString());
    });
    column.Add(box, wxSizerFlags().Border(wxALL, FromDIP(form::kGap)));
}

wxSizer* DiagramInputs::CreateExport()
{
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Export")));
    wxWindow* parent = box->GetStaticBox();
    auto* file = AddLocalizable(new TvButton(parent, wxID_ANY, wxTRANSLATE("Export Diagram")));
    file->SetTranslatableToolTip(wxTRANSLATE("Writes the diagram to a file; of several the one in focus"));
    file->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { m_callbacks.onExport(); });
    auto* copy = AddLocalizable(new TvButton(parent, wxID_ANY, wxTRANSLATE("Copy Diagram")));
    copy->SetTranslatableToolTip(
        wxTRANSLATE("Puts the diagram on the clipboard as a picture; of several the one in focus"));
    copy->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { m_callbacks.onCopy(); });
    for (TvButton* button : {file, copy})
        box->Add(button, wxSizerFlags().Expand().Border(wxALL, FromDIP(form::kGap)));
    return box;
}

std::vector<water_diagram::Kind> DiagramInputs::GetKinds() const
{
    if (m_kind->GetID() != kAll)
        return {static_cast<water_diagram::Kind>(m_kind->GetID())};
    return {water_diagram::kKinds.begin(), water_diagram::kKinds.end()};
}

void DiagramInputs::SetWaters(const std::vector<NamedWater>& waters)
{
    if (m_waters == waters)
        return;
    m_waters = waters;
    ShowNames();
}

void DiagramInputs::ShowNames()
{
    // Names that begin alike differ at their end.
    const int room = std::max(FromDIP(kListWidth), m_list->GetClientSize().x) - FromDIP(kBesideName);
    wxClientDC dc(m_list);
    wxArrayString names;
    for (const auto& [owner, name] : m_waters)
        names.push_back(wxControl::Ellipsize(wxString::FromUTF8(name), dc, wxELLIPSIZE_MIDDLE, room));
    if (names == m_list->GetStrings())
        return;
    const int selected = m_list->GetSelection();
    m_list->Set(names);
    for (unsigned i = 0; i < m_list->GetCount(); ++i)
        m_list->Check(i, IsChosen(m_waters[i].first));
    if (selected != wxNOT_FOUND && selected < static_cast<int>(m_list->GetCount()))
        m_list->SetSelection(selected);
}

void DiagramInputs::OnWater(wxCommandEvent& event)
{
    const auto place = static_cast<unsigned>(event.GetInt());
    const DetailOwner water = m_waters.at(place).first;
    if (m_list->IsChecked(place))
        m_hidden.erase(water);
    else
        m_hidden.insert(water);
    m_callbacks.onContents();
}

void DiagramInputs::UpdateNames()
{
    accessibility::SetName(*m_kind, i18n::Translated("Diagram Type"));
    accessibility::SetName(*m_list, i18n::Translated(wxTRANSLATE("Waters")));
}

void DiagramInputs::Localize(const std::string& unitSystem)
{
    for (const auto& holder : m_localizables)
        holder->Localize(unitSystem);
    UpdateNames();
    SetMinSize(GetSizer()->CalcMin());
}
