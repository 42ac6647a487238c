// SPDX-License-Identifier: MIT
#include "gui_base/graphics/diagrams/diagram_inputs.h"

#include "dbinterfaces/project_database.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/events.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/statbox.h>
#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <exception>
#include <string>

namespace {

constexpr long kAll = -1;
constexpr int kListWidth = 200;
constexpr int kListHeight = 120;

/// Names of the chosen options, each ended by a semicolon.
constexpr const char* kKeptOptions = "/Window/diagram.options";

using water_diagram::Options;

struct OptionRow
{
    const char* name;  ///< as it is kept
    const char* label;
    bool Options::*option;
};
constexpr std::array kOptions{
    OptionRow{"piper.minor", wxTRANSLATE("Piper: NO3, F and Br with Cl"), &Options::minorAnionsInPiper},
    OptionRow{"piper.size", wxTRANSLATE("Piper: size by dissolved solids"), &Options::sizeByDissolved},
    OptionRow{"stiff.fourth", wxTRANSLATE("Stiff: Fe and NO3"), &Options::fourthRowInStiff},
    OptionRow{"schoeller.no3", wxTRANSLATE("Schoeller: NO3"), &Options::nitrateInSchoeller},
};

Options KeptOptions()
{
    std::string kept;
    try {
        kept = ";" + ProjectDatabase::GetLocalParameter(kKeptOptions);
    } catch (const std::exception&) {
        // Diagrams can be drawn without what is remembered of them.
        return {};
    }
    Options options;
    for (const OptionRow& row : kOptions)
        options.*row.option = kept.find(";" + std::string(row.name) + ";") != std::string::npos;
    return options;
}

void Keep(const Options& options)
{
    std::string kept;
    for (const OptionRow& row : kOptions)
        kept += options.*row.option ? std::string(row.name) + ";" : std::string();
    try {
        ProjectDatabase::SetLocalParameter(kKeptOptions, kept);
    } catch (const std::exception&) {
        // As above.
        return;
    }
}

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
    waters->Add(m_list, wxSizerFlags(spaced).Proportion(1));
    column->Add(waters, wxSizerFlags(spaced).Proportion(1));

    auto* options = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Options")));
    wxWindow* box = options->GetStaticBox();
    const Options kept = KeptOptions();
    for (const OptionRow& row : kOptions)
        AddOption(*options, box, row.label, row.option)->SetValue(kept.*row.option);
    column->Add(options, spaced);
    column->Add(CreateExport(), spaced);
    SetSizer(column);
}

TvCheckBox* DiagramInputs::AddOption(wxSizer& column, wxWindow* parent, const char* label,
                                     bool water_diagram::Options::*option)
{
    auto* box = AddLocalizable(new TvCheckBox(parent, wxID_ANY, label));
    box->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) {
        Keep(GetOptions());
        m_callbacks.onContents();
    });
    m_options.emplace_back(box, option);
    column.Add(box, wxSizerFlags().Border(wxALL, FromDIP(form::kGap)));
    return box;
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

water_diagram::Options DiagramInputs::GetOptions() const
{
    water_diagram::Options options;
    for (const auto& [box, option] : m_options)
        options.*option = box->GetValue();
    return options;
}

void DiagramInputs::SetWaters(const std::vector<NamedWater>& waters)
{
    if (m_waters == waters)
        return;
    m_waters = waters;
    wxArrayString names;
    for (const auto& [owner, name] : m_waters)
        names.push_back(wxString::FromUTF8(name));
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
