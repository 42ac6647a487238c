// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/design/exchanger_block.h"

#include "gui_base/input/controls/flow_sizer.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/form/aligned_grid.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/form/shown_context.h"
#include "gui_base/ionexchange/exchanger_name.h"
#include "gui_base/network/data_sheet_dialog.h"
#include "gui_base/report/design_report.h"
#include "gui_base/report/range_sentence.h"
#include "gui_base/support/text_font.h"
#include "gui_base/support/translation.h"
#include "projectbase/design/regenerants.h"

#include <wx/statbox.h>
#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr int kLeastListWidth = 250;
/// Of a row of label, field and unit.
constexpr std::size_t kFieldColumn = 1;

using Items = std::vector<std::pair<wxString, wxString>>;

Items ModeItems()
{
    return {{"CO", wxTRANSLATE("Co-current")}, {"COUNTER", wxTRANSLATE("Counter-current")}};
}

Items ResinItems()
{
    Items items;
    for (const design::Resin& resin : design::Resins())
        items.emplace_back(wxString::FromUTF8(resin.key), wxString::FromUTF8(resin.name));
    return items;
}

Items ChemicalItems()
{
    Items items;
    for (const design::Regenerant& chemical : design::Regenerants())
        items.emplace_back(wxString::FromUTF8(chemical.key), wxString::FromUTF8(chemical.name));
    return items;
}

constexpr std::array kVesselInputs{
    FormRow{.key = "step/mode",
            .label = wxTRANSLATE("Regenerant flow"),
            .field = FormField::Choice,
            .items = ModeItems},
    FormRow{.key = "step/v.max", .label = wxTRANSLATE("Greatest velocity")},
    FormRow{.key = "step/bed.min", .label = wxTRANSLATE("Least bed depth")},
    FormRow{.key = "step/margin", .label = wxTRANSLATE("Share of the capacity that is used")},
    FormRow{.key = "step/diameter", .label = wxTRANSLATE("Diameter")},
};
constexpr std::array kDegasserInputs{
    FormRow{.key = "step/co2.residual", .label = wxTRANSLATE("Residual CO2")},
};
constexpr std::array kVesselResults{
    FormRow{.key = "step/area", .label = wxTRANSLATE("Area"), .field = FormField::Result},
    FormRow{.key = "step/v", .label = wxTRANSLATE("Velocity"), .field = FormField::Result},
    FormRow{.key = "step/bvh", .label = wxTRANSLATE("Specific flow rate"), .field = FormField::Result},
    FormRow{.key = "step/bed.depth", .label = wxTRANSLATE("Bed depth"), .field = FormField::Result},
    FormRow{.key = "step/dp", .label = wxTRANSLATE("Pressure drop"), .field = FormField::Result},
    FormRow{.key = "step/expansion", .label = wxTRANSLATE("Bed expansion"), .field = FormField::Result},
    FormRow{.key = "step/run.time", .label = wxTRANSLATE("Run time"), .field = FormField::Result},
    FormRow{.key = "step/throughput", .label = wxTRANSLATE("Throughput"), .field = FormField::Result},
};
constexpr std::array kResinInputs{
    FormRow{.key = "compcomp/resin",
            .label = wxTRANSLATE("Resin"),
            .field = FormField::Choice,
            .items = ResinItems},
    FormRow{.key = "compcomp/vol.actual", .label = wxTRANSLATE("Installed resin volume")},
};
constexpr std::array kBedInputs{
    FormRow{.key = "stepcomp/rm.chemical",
            .label = wxTRANSLATE("Regenerant"),
            .field = FormField::Choice,
            .items = ChemicalItems},
    FormRow{.key = "stepcomp/level", .label = wxTRANSLATE("Regenerant level")},
    FormRow{.key = "stepcomp/capacity.typed", .label = wxTRANSLATE("Capacity of the maker")},
};
constexpr std::array kBedResults{
    FormRow{.key = "stepcomp/load", .label = wxTRANSLATE("Load"), .field = FormField::Result},
    FormRow{
        .key = "stepcomp/capacity", .label = wxTRANSLATE("Operating capacity"), .field = FormField::Result},
    FormRow{.key = "stepcomp/rm", .label = wxTRANSLATE("Regenerant"), .field = FormField::Result},
    FormRow{.key = "stepcomp/rb.ratio", .label = wxTRANSLATE("Regenerant ratio"), .field = FormField::Result},
    FormRow{
        .key = "stepcomp/rb.excess", .label = wxTRANSLATE("Regenerant excess"), .field = FormField::Result},
    FormRow{.key = "stepcomp/rb.spec",
            .label = wxTRANSLATE("Regenerant per net volume"),
            .field = FormField::Result},
};
constexpr std::array kResinResults{
    FormRow{.key = "compcomp/vol", .label = wxTRANSLATE("Resin volume"), .field = FormField::Result},
    FormRow{.key = "compcomp/vol.total",
            .label = wxTRANSLATE("Resin volume of all lines"),
            .field = FormField::Result},
};

void Append(std::string& text, const std::string& line)
{
    text += (text.empty() ? "" : "\n") + line;
}

void Append(std::string& text, const std::vector<designtext::Line>& lines, const ReportContext& context)
{
    if (!lines.empty())
        Append(text, designtext::TextOf(lines, context));
}

}  // namespace

ExchangerBlock::ExchangerBlock(iex::IEXProject& project, OwnerNode& exchanger, FieldSet& fields,
                               wxStaticBoxSizer& box, const TVHelpFileProvider* help)
    : m_project(project), m_exchanger(exchanger), m_fields(fields), m_box(*box.GetStaticBox()), m_help(help)
{
    wxWindow* const parent = &m_box;
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, parent->FromDIP(form::kGap));
    // What is typed; beside it what the vessel comes to, and what its beds come to.
    const int gap = parent->FromDIP(6 * form::kGap);
    m_columns = new FlowSizer(gap);
    m_inputs = form::NewGrid(*parent);
    m_columns->Add(m_inputs);
    const auto compartments = exchanger.GetChildren(OwnerKind::Compartment);
    if (compartments.empty()) {
        AddRows(parent, *m_inputs, exchanger, kDegasserInputs);
    } else {
        AddRows(parent, *m_inputs, exchanger, kVesselInputs);
        auto* outcome = new FlowSizer(gap);
        m_columns->Add(outcome);
        const AlignedGrid::Group group = AlignedGrid::NewGroup();
        const auto newColumn = [&] {
            auto* column = new AlignedGrid(3, parent->FromDIP(wxSize(2 * form::kGap, form::kGap)), group);
            outcome->Add(column);
            return column;
        };
        AddRows(parent, *newColumn(), exchanger, kVesselResults);
        auto* results = newColumn();
        for (const auto& compartment : compartments) {
            if (compartments.size() > 1) {
                AddHeading(parent, *m_inputs, compartment->GetPosition());
                AddHeading(parent, *results, compartment->GetPosition());
            }
            AddCompartment(parent, *m_inputs, *results, *compartment);
        }
    }
    box.Add(m_columns, spaced);
    m_notes = new wxStaticText(parent, wxID_ANY, wxString());
    box.Add(m_notes, spaced);
}

bool ExchangerBlock::Shows(std::string_view key)
{
    const auto has = [key](const auto& rows) {
        return std::ranges::any_of(rows, [key](const FormRow& row) { return key == row.key; });
    };
    return has(kVesselInputs) || has(kDegasserInputs) || has(kVesselResults) || has(kResinInputs) ||
           has(kBedInputs) || has(kBedResults) || has(kResinResults);
}

void ExchangerBlock::AddRows(wxWindow* parent, wxSizer& grid, OwnerNode& owner, std::span<const FormRow> rows)
{
    for (const FormRow& row : rows) {
        DetailData& detail = owner.GetDetails()->At(row.key);
        wxWindow* const field = m_fields.AddRow(parent, grid, row, detail).field;
        if (row.field == FormField::Choice)
            m_lists.push_back(field);
        m_windows.emplace_back(&detail, field);
    }
}

void ExchangerBlock::SetLeastListWidth()
{
    // The longest name of a resin would make a row of numbers as wide, and leave the results no room.
    SetListWidth(m_box.FromDIP(kLeastListWidth));
}

int ExchangerBlock::FindListWidth()
{
    if (m_lists.empty())
        return std::numeric_limits<int>::max();
    const int spare = m_columns->GetSpareWidth();
    return m_inputs->GetColWidths()[kFieldColumn] + std::max(spare, 0);
}

void ExchangerBlock::SetListWidth(int width)
{
    int wanted = m_box.FromDIP(kLeastListWidth);
    for (const wxWindow* list : m_lists)
        wanted = std::max(wanted, list->GetBestSize().x);
    for (wxWindow* list : m_lists)
        list->SetMinSize(wxSize(std::min(width, wanted), -1));
}

void ExchangerBlock::AddHeading(wxWindow* parent, wxSizer& grid, std::size_t compartment)
{
    static constexpr std::array kNames{wxTRANSLATE("Compartment 1"), wxTRANSLATE("Compartment 2")};
    // More than two only a file can bring.
    auto* name = m_fields.AddLabel(parent, kNames[std::min(compartment, kNames.size() - 1)]);
    text_font::Set(*name, name->GetFont().Bold());
    grid.Add(name);
    grid.AddSpacer(0);
    grid.AddSpacer(0);
}

void ExchangerBlock::AddResin(wxWindow* parent, wxSizer& inputs, wxSizer& results,
                              const std::shared_ptr<OwnerNode>& resin, bool isRemovable)
{
    AddRows(parent, inputs, *resin, kResinInputs);
    std::vector<Button> buttons{{wxTRANSLATE("Data sheets..."), [this, resin] {
                                     DataSheetDialog::ShowFor(
                                         &m_box, resin->GetDetails()->At("compcomp/resin").GetStringValue(),
                                         m_help);
                                 }}};
    if (isRemovable)
        buttons.push_back({wxTRANSLATE("Remove layer"), [this, resin] {
                               const ProjectEdit edit(m_project, wxTRANSLATE("remove resin layer"));
                               m_project.RemoveOwner(*resin);
                           }});
    AddButtons(parent, inputs, buttons);
    AddRows(parent, results, *resin, kResinResults);
}

void ExchangerBlock::AddCompartment(wxWindow* parent, wxSizer& inputs, wxSizer& results,
                                    OwnerNode& compartment)
{
    const auto resins = compartment.GetChildren(OwnerKind::Resin);
    for (const auto& resin : resins)
        AddResin(parent, inputs, results, resin, resins.size() > 1);
    AddButtons(
        parent, inputs,
        {{wxTRANSLATE("Add layer below"), [this, &compartment] { m_project.AddResin(compartment, 0); }},
         {wxTRANSLATE("Add layer above"), [this, &compartment] {
              m_project.AddResin(compartment, compartment.GetChildren(OwnerKind::Resin).size());
          }}});
    AddRows(parent, inputs, compartment, kBedInputs);
    AddRows(parent, results, compartment, kBedResults);
}

void ExchangerBlock::AddButtons(wxWindow* parent, wxSizer& grid, const std::vector<Button>& buttons)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    for (const Button& each : buttons) {
        auto* button = m_fields.AddLocalizable(new TvButton(parent, wxID_ANY, each.label));
        button->Bind(wxEVT_BUTTON, [action = each.action](wxCommandEvent&) { action(); });
        row->Add(button, wxSizerFlags().Border(wxRIGHT, parent->FromDIP(form::kGap)));
    }
    grid.AddSpacer(0);
    grid.Add(row);
    grid.AddSpacer(0);
}

void ExchangerBlock::ShowNotes(const design::ExchangerDesign& exchanger)
{
    const wxString name = ExchangerName(m_exchanger);
    if (m_box.GetLabelText() != name)
        m_box.SetLabelText(name);
    const ReportContext context = ShownContext(m_project.GetUnitSystemDisplay());
    std::string text;
    for (const design::CompartmentDesign& bed : exchanger.compartments) {
        const auto lines = designtext::CapacityLines(bed.capacity, context);
        const std::string title = designtext::CompartmentTitle(*bed.node, context);
        if (!lines.empty() && !title.empty())
            Append(text, title);
        Append(text, lines, context);
    }
    Append(text, designtext::LeakageLines(exchanger.leakages, context), context);
    for (const RangeFault& fault : RangeFaults(m_project)) {
        const OwnerNode* owner = m_project.FindOwner(fault.address.owner);
        if (owner != nullptr && owner->IsWithin(*exchanger.node))
            Append(text, "\u26a0 " + RangeSentence(fault, context));
    }
    const wxString shown = wxString::FromUTF8(text);
    if (m_notes->GetLabelText() != shown)
        m_notes->SetLabelText(shown);
}

wxWindow* ExchangerBlock::FindWindow(const DetailData& detail) const
{
    const auto found = std::ranges::find(m_windows, &detail, &std::pair<const DetailData*, wxWindow*>::first);
    return found == m_windows.end() ? nullptr : found->second;
}
