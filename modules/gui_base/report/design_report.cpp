// SPDX-License-Identifier: MIT
#include "gui_base/report/design_report.h"

#include "gui_base/report/range_sentence.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/translation.h>

#include <array>
#include <cmath>
#include <stdexcept>

namespace {

using designtext::Line;

/// Name, value and unit; what is not known is left out.
class LineTable
{
public:
    LineTable()
        : m_table{.columns = {{.stretch = 1.0}, {.align = report::Align::Number}, {}}, .showTitles = false}
    {}
    void Add(const Line& line)
    {
        if (!line.value.empty())
            m_table.rows.push_back(
                {.cells = {{.text = line.name}, {.text = line.value}, {.text = line.unit}}});
    }
    void Add(const std::vector<Line>& lines)
    {
        for (const Line& line : lines)
            Add(line);
    }
    void Add(const OwnerNode& node, std::span<const char* const> keys, const ReportContext& context)
    {
        for (const char* key : keys)
            Add(designtext::DetailLine(node.GetDetails()->At(key), context));
    }
    void MoveTo(report::Section& section)
    {
        if (!m_table.rows.empty())
            section.blocks.push_back(std::move(m_table));
    }

private:
    report::Table m_table;
};

struct WasteRow
{
    const char* label;
    const char* amount;
    const char* concentration;
};
constexpr std::array kWasteRows{
    WasteRow{wxTRANSLATE("TH"), "step/m.th", "step/c.th"},
    WasteRow{wxTRANSLATE("Na, K, NH4"), "step/m.na_k_nh4", "step/c.na_k_nh4"},
    WasteRow{wxTRANSLATE("Other cations"), "step/m.other.c", "step/c.other.c"},
    WasteRow{wxTRANSLATE("Cl"), "step/m.cl", "step/c.cl"},
    WasteRow{wxTRANSLATE("SO4"), "step/m.so4", "step/c.so4"},
    WasteRow{wxTRANSLATE("HCO3"), "step/m.hco3", "step/c.hco3"},
    WasteRow{wxTRANSLATE("SiO2"), "step/m.sio2", "step/c.sio2"},
    WasteRow{wxTRANSLATE("Other anions"), "step/m.other.a", "step/c.other.a"},
};

void AddWaste(const OwnerNode& exchanger, const ReportContext& context, report::Section& section)
{
    constexpr int kDigits = 5;
    const DetailList& details = *exchanger.GetDetails();
    if (std::isnan(details.At("step/neutral").GetDoubleValue()))
        return;
    report::Table table{.columns = {{.title = context.Translated(wxTRANSLATE("Waste water")), .stretch = 1.0},
                                    {.title = UnitSystemManager::GetUnit("eq", context.unitSystem, true),
                                     .align = report::Align::Number},
                                    {.title = "meq/l", .align = report::Align::Number}}};
    const auto number = [&](const char* key) {
        const DetailData& detail = details.At(key);
        return context.Number(
            UnitSystemManager::FromISO(detail.GetUnit(), context.unitSystem, detail.GetDoubleValue()),
            kDigits);
    };
    for (const WasteRow& row : kWasteRows)
        table.rows.push_back({.cells = {{.text = context.Translated(row.label)},
                                        {.text = number(row.amount)},
                                        {.text = number(row.concentration)}}});
    table.rows.push_back({.cells = {{.text = context.Translated(wxTRANSLATE("Neutralisation"))},
                                    {.text = number("step/neutral")},
                                    {}}});
    section.blocks.push_back(std::move(table));
}

void AddCompartment(const design::ExchangerDesign& exchanger, std::size_t place, const ReportContext& context,
                    report::Section& section)
{
    const design::CompartmentDesign& bed = exchanger.compartments[place];
    const std::string title = designtext::CompartmentTitle(*bed.node, context);
    if (!title.empty())
        section.blocks.push_back(report::Heading{title});
    LineTable lines;
    if (bed.resin != nullptr)
        lines.Add(
            {context.Translated(wxTRANSLATE("Resin")), context.Translated(bed.resin->name.c_str()), {}});
    if (bed.chemical != nullptr)
        lines.Add({context.Translated(wxTRANSLATE("Regenerant")),
                   context.Translated(bed.chemical->name.c_str()),
                   {}});
    lines.Add(designtext::CapacityLines(bed.capacity, context));
    lines.Add(*bed.node, designtext::CompartmentResults(exchanger.compartments.size() == 1), context);
    for (const auto& resin : bed.node->GetChildren(OwnerKind::Resin))
        lines.Add(*resin, designtext::ResinResults(), context);
    lines.MoveTo(section);
}

}  // namespace

std::vector<ReportPage> DesignReport::GetReportPages(const ReportContext& context) const
{
    if (iex::PlantOf(m_project) == nullptr)
        return {};
    return {
        {.title = wxString::FromUTF8(context.Translated(wxTRANSLATE("Design"))), .id = 0, .name = "design"}};
}

report::Section DesignReport::BuildReportPage(int id, const ReportContext& context) const
{
    const iex::IEXProject* project = iex::PlantOf(m_project);
    if (id != 0 || project == nullptr)
        throw std::out_of_range("DesignReport::BuildReportPage: there is no such page");
    const design::PlantDesign plant = design::DesignOf(*project);
    report::Section section{.title = context.Translated(wxTRANSLATE("Design"))};
    for (const design::ExchangerDesign& exchanger : plant.exchangers) {
        section.blocks.push_back(report::Heading{designtext::ExchangerTitle(*exchanger.node, context)});
        LineTable lines;
        lines.Add(*exchanger.node, designtext::ExchangerResults(), context);
        lines.Add(designtext::LeakageLines(exchanger.leakages, context));
        lines.MoveTo(section);
        for (std::size_t i = 0; i < exchanger.compartments.size(); ++i)
            AddCompartment(exchanger, i, context, section);
        AddWaste(*exchanger.node, context, section);
    }
    LineTable rest;
    rest.Add(designtext::NeutralisationLines(plant, context));
    rest.MoveTo(section);
    for (const RangeFault& fault : RangeFaults(m_project)) {
        const OwnerNode* owner = m_project.FindOwner(fault.address.owner);
        const bool isOfPlant = owner != nullptr && owner->GetKind() != OwnerKind::Water &&
                               owner->GetKind() != OwnerKind::Project;
        if (isOfPlant)
            section.blocks.push_back(report::Paragraph{RangeSentence(fault, m_project, context)});
    }
    return section;
}
