// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/design/exchanger_block.h"

#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/report/design_report.h"
#include "gui_base/report/range_sentence.h"
#include "gui_base/support/translation.h"
#include "projectbase/design/regenerants.h"

#include <wx/statbox.h>
#include <wx/translation.h>

#include <algorithm>
#include <array>

namespace {

constexpr int kChoiceWidth = 240;

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
    FormRow{
        .key = "stepcomp/rb.spec", .label = wxTRANSLATE("Specific consumption"), .field = FormField::Result},
};
constexpr std::array kResinResults{
    FormRow{.key = "compcomp/vol", .label = wxTRANSLATE("Resin volume"), .field = FormField::Result},
    FormRow{.key = "compcomp/vol.total",
            .label = wxTRANSLATE("Resin volume of all lines"),
            .field = FormField::Result},
};

ReportContext WindowContext(const Project& project)
{
    ReportContext context;
    context.unitSystem = project.GetUnitSystemDisplay();
    context.separators = NumericValidator::LocaleSeparators();
    context.translate = [](const char* source) { return i18n::Translated(source).utf8_string(); };
    return context;
}

void Append(std::string& text, const std::string& line)
{
    text += (text.empty() ? "" : "\n") + line;
}

void Append(std::string& text, const std::vector<designtext::Line>& lines)
{
    for (const designtext::Line& line : lines)
        Append(text, line.name + ": " + line.value + (line.unit.empty() ? "" : " " + line.unit));
}

/// Whether an owner is the exchanger or a part of it.
bool IsPartOf(const OwnerNode* owner, const OwnerNode& exchanger)
{
    while (owner != nullptr && owner != &exchanger)
        owner = owner->GetParent();
    return owner != nullptr;
}

}  // namespace

ExchangerBlock::ExchangerBlock(OwnerNode& exchanger, FieldSet& fields, TvStaticBoxSizer& box)
    : m_fields(fields)
{
    wxWindow* const parent = box.GetStaticBox();
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, parent->FromDIP(form::kGap));
    // What is typed, what the vessel comes to, what the bed comes to; a second bed stands below the first.
    auto* columns = form::NewGrid(*parent);
    columns->SetHGap(parent->FromDIP(6 * form::kGap));
    auto* inputs = form::NewGrid(*parent);
    columns->Add(inputs);
    const auto compartments = exchanger.GetChildren(OwnerKind::Compartment);
    if (compartments.empty()) {
        AddRows(parent, *inputs, exchanger, kDegasserInputs);
    } else {
        AddRows(parent, *inputs, exchanger, kVesselInputs);
        auto* results = form::NewGrid(*parent);
        AddRows(parent, *results, exchanger, kVesselResults);
        columns->Add(results);
    }
    for (const auto& compartment : compartments) {
        if (compartment != compartments.front()) {
            inputs = form::NewGrid(*parent);
            columns->Add(inputs);
            columns->AddSpacer(0);
        }
        auto* results = form::NewGrid(*parent);
        AddCompartment(parent, *inputs, *results, *compartment);
        columns->Add(results);
    }
    box.Add(columns, spaced);
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
        // The longest name of a resin would make a row of numbers as wide.
        if (row.field == FormField::Choice)
            field->SetMinSize(parent->FromDIP(wxSize(kChoiceWidth, -1)));
        m_windows.emplace_back(&detail, field);
    }
}

void ExchangerBlock::AddCompartment(wxWindow* parent, wxSizer& inputs, wxSizer& results,
                                    OwnerNode& compartment)
{
    for (const auto& resin : compartment.GetChildren(OwnerKind::Resin)) {
        AddRows(parent, inputs, *resin, kResinInputs);
        AddRows(parent, results, *resin, kResinResults);
    }
    AddRows(parent, inputs, compartment, kBedInputs);
    AddRows(parent, results, compartment, kBedResults);
}

void ExchangerBlock::ShowNotes(const iex::IEXProject& project, const design::ExchangerDesign& exchanger)
{
    const ReportContext context = WindowContext(project);
    std::string text;
    for (const design::CompartmentDesign& bed : exchanger.compartments)
        Append(text, designtext::CapacityLines(bed.capacity, context));
    Append(text, designtext::LeakageLines(exchanger.leakages, context));
    for (const RangeFault& fault : RangeFaults(project)) {
        if (IsPartOf(project.FindOwner(fault.address.owner), *exchanger.node))
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
