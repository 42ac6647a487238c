// SPDX-License-Identifier: MIT
#include "projectbase/sequence/sequence_calculation.h"

#include "projectbase/design/dose_keys.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/design/regenerants.h"
#include "projectbase/project/iex_project.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace sequence {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

double Value(const DetailList& details, std::string_view key)
{
    return details.At(key).GetDoubleValue();
}

void Set(DetailList& details, std::string_view key, double value)
{
    details.At(key).SetValue(value);
}

struct Row
{
    OwnerNode* node = nullptr;
    const Type* type = nullptr;
    const Medium* medium = nullptr;
    int compartment = -1;  ///< that the chemical of the row belongs to

    DetailList& Details() const { return *node->GetDetails(); }
    bool IsChemical() const { return type != nullptr && type->rowClass == "chemical"; }
    bool Flows() const { return type != nullptr && (type->rowClass == "flow" || IsChemical()); }
    const design::DoseKeys& Keys() const
    {
        return type->key == kConditioning ? design::kConditionerKeys : design::kRegenerantKeys;
    }
};

/// A sequence with what its rows refer to.
class Exchanger
{
public:
    explicit Exchanger(const OwnerNode& node)
    {
        m_vessel.area = Value(*node.GetDetails(), "step/area");
        m_vessel.volume = 0.0;
        for (const auto& compartment : node.GetChildren(OwnerKind::Compartment)) {
            m_compartments.push_back(compartment.get());
            m_beds.push_back({m_vessel.area, design::BedVolume(*compartment)});
            m_vessel.volume += m_beds.back().volume;
        }
        for (const auto& row : node.GetChildren(OwnerKind::SequenceRow))
            m_rows.push_back(Look(*row));
    }

    const std::vector<Row>& GetRows() const { return m_rows; }
    const BedSize& BedOf(const Row& row) const
    {
        return row.compartment >= 0 ? m_beds[static_cast<std::size_t>(row.compartment)] : m_vessel;
    }

    struct Dose
    {
        double solution = kUnknown;  ///< m³ as applied
        double supply = kUnknown;    ///< m³ as supplied
    };
    /// What flows in a row of a chemical.
    Dose DoseOf(const Row& row) const
    {
        const design::Regenerant* const chemical = row.compartment < 0 || row.medium == nullptr
                                                       ? nullptr
                                                       : design::FindRegenerant(row.medium->chemical);
        if (chemical == nullptr)
            return {};
        const design::DoseKeys& keys = row.Keys();
        const DetailList& details = *m_compartments[static_cast<std::size_t>(row.compartment)]->GetDetails();
        const bool progressive = details.At(keys.progressive).GetBoolValue();
        // Rows that are alike share their dilution.
        const double amount = Value(details, keys.amount) / CountLike(row, row.type->key);
        const double firstShare = progressive ? Value(details, keys.firstPortion) / 100.0 : 1.0;
        const double first = amount * firstShare;
        const double second = progressive ? amount * Value(details, keys.secondPortion) / 100.0 : 0.0;
        const bool isFirst = row.type->key == kFirstRegenerant;
        const bool isAlone = !isFirst && CountLike(row, kFirstRegenerant) == 0;
        double mass = 0.0;
        Dose dose{0.0, 0.0};
        if (isFirst || isAlone) {
            dose.solution += Volume(*chemical, first, Value(details, keys.first));
            mass += first;
        }
        if (!isFirst) {
            dose.solution += Volume(*chemical, second, Value(details, keys.second));
            mass += second;
        }
        dose.supply = Volume(*chemical, mass, Value(details, keys.supply));
        return dose;
    }

    /// The water of the displacement that follows a row, or else of one before it.
    const Medium* DilutionOf(const Row& row) const
    {
        const Medium* water = nullptr;
        bool isBehind = false;
        for (const Row& each : m_rows) {
            isBehind = isBehind || each.node == row.node;
            if (each.type == nullptr || each.type->key != kDisplacement || each.medium == nullptr)
                continue;
            water = each.medium;
            if (isBehind)
                break;
        }
        return water != nullptr ? water : FindMedium(kTapWater);
    }

private:
    Row Look(OwnerNode& node) const
    {
        const DetailList& details = *node.GetDetails();
        Row row{.node = &node,
                .type = FindType(details.At("regseqstep/type").GetStdStringValue()),
                .medium = FindMedium(details.At("regseqstep/medium").GetStdStringValue())};
        if (!row.IsChemical() || row.medium == nullptr)
            return row;
        for (std::size_t i = 0; i < m_compartments.size(); ++i) {
            if (m_compartments[i]->GetDetails()->At(row.Keys().chemical).GetStdStringValue() ==
                row.medium->chemical) {
                row.compartment = static_cast<int>(i);
                break;
            }
        }
        return row;
    }

    /// No chemical needs no solution, whatever its concentration.
    static double Volume(const design::Regenerant& chemical, double mass, double percent)
    {
        return mass == 0.0 ? 0.0 : design::SolutionVolume(chemical, mass, percent);
    }

    /// How many rows of that type the chemical of a row has.
    int CountLike(const Row& row, std::string_view type) const
    {
        return static_cast<int>(std::ranges::count_if(m_rows, [&](const Row& each) {
            return each.type != nullptr && each.type->key == type && each.medium == row.medium;
        }));
    }

    BedSize m_vessel;
    std::vector<const OwnerNode*> m_compartments;
    std::vector<BedSize> m_beds;
    std::vector<Row> m_rows;
};

RowQuantities Read(const DetailList& details)
{
    return {.v = Value(details, "regseqstep/v"),
            .q = Value(details, "regseqstep/q"),
            .qBv = Value(details, "regseqstep/q.bv"),
            .t = Value(details, "regseqstep/t"),
            .vol = Value(details, "regseqstep/vol"),
            .volBv = Value(details, "regseqstep/vol.bv")};
}

void Write(DetailList& details, const RowQuantities& row)
{
    Set(details, "regseqstep/v", row.v);
    Set(details, "regseqstep/q", row.q);
    Set(details, "regseqstep/q.bv", row.qBv);
    Set(details, "regseqstep/t", row.t);
    Set(details, "regseqstep/vol", row.vol);
    Set(details, "regseqstep/vol.bv", row.volBv);
}

RowQuantities CalculateRow(const Exchanger& exchanger, const Row& row)
{
    const DetailList& details = row.Details();
    const RowQuantities before = Read(details);
    const std::string flow = details.At("regseqstep/flow.typed").GetStdStringValue();
    const std::string amount = details.At("regseqstep/amount.typed").GetStdStringValue();
    if (row.type != nullptr && row.type->rowClass == "still")
        return {.t = before.t};
    if (row.IsChemical())
        return FollowVolume(before, exchanger.DoseOf(row).solution, flow, amount, exchanger.BedOf(row));
    return FollowTyped(before, flow, amount, exchanger.BedOf(row));
}

}  // namespace

void Calculate(OwnerNode& node)
{
    const Exchanger exchanger(node);
    for (const Row& row : exchanger.GetRows())
        Write(row.Details(), CalculateRow(exchanger, row));
}

std::vector<RowVolumes> Volumes(const OwnerNode& node)
{
    const Exchanger exchanger(node);
    std::vector<RowVolumes> volumes;
    for (const Row& row : exchanger.GetRows()) {
        if (!row.Flows())
            continue;
        const DetailList& details = row.Details();
        RowVolumes entry{.medium = row.medium,
                         .volume = Value(details, "regseqstep/vol"),
                         .counts = details.At("regseqstep/flag.counts").GetBoolValue(),
                         .own = details.At("regseqstep/flag.own").GetBoolValue()};
        if (row.IsChemical()) {
            const Exchanger::Dose dose = exchanger.DoseOf(row);
            entry.volume = dose.supply;
            entry.dilution = exchanger.DilutionOf(row);
            // A supply weaker than what is applied cannot be diluted.
            const double water = dose.solution - dose.supply;
            entry.dilutionVolume = water < 0.0 ? kUnknown : water;
        }
        volumes.push_back(entry);
    }
    return volumes;
}

Totals TotalsOf(const OwnerNode& exchanger)
{
    Totals totals;
    const auto addWater = [&totals](const Medium* medium, double volume, bool own) {
        const bool isOwn = own && medium != nullptr && medium->kind == "product";
        (isOwn ? totals.ownUse : totals.serviceWater) += volume;
    };
    for (const RowVolumes& row : Volumes(exchanger)) {
        if (row.dilution != nullptr) {
            totals.chemicals += row.volume;
            addWater(row.dilution, row.dilutionVolume, row.own);
        } else {
            addWater(row.medium, row.volume, row.own);
        }
        totals.waste += row.counts ? row.volume + row.dilutionVolume : 0.0;
    }
    for (const auto& row : exchanger.GetChildren(OwnerKind::SequenceRow))
        totals.time += Value(*row->GetDetails(), "regseqstep/t");
    return totals;
}

MediumSumsData SumsOf(const OwnerNode& exchanger)
{
    std::vector<std::optional<double>> sums(Media().size());
    const auto add = [&sums](const Medium* medium, double volume) {
        if (medium == nullptr)
            return;
        auto& sum = sums[static_cast<std::size_t>(medium - Media().data())];
        sum = sum.value_or(0.0) + volume;
    };
    for (const RowVolumes& row : Volumes(exchanger)) {
        add(row.medium, row.volume);
        add(row.dilution, row.dilutionVolume);
    }
    MediumSumsData result;
    for (std::size_t i = 0; i < sums.size(); ++i) {
        if (sums[i])
            result.push_back({Media()[i].key, *sums[i]});
    }
    return result;
}

Totals TotalsOf(const iex::IEXProject& project)
{
    Totals all;
    bool hasSequence = false;
    for (std::size_t i = 0; i < project.NumberSteps(); ++i) {
        const OwnerNode& step = project.GetStep(i);
        if (step.GetChildren(OwnerKind::SequenceRow).empty())
            continue;
        const Totals totals = TotalsOf(step);
        all.ownUse += totals.ownUse;
        all.serviceWater += totals.serviceWater;
        all.chemicals += totals.chemicals;
        all.waste += totals.waste;
        all.time = std::max(all.time, totals.time);
        hasSequence = true;
    }
    if (!hasSequence)
        return {kUnknown, kUnknown, kUnknown, kUnknown, kUnknown};
    return all;
}

void CalculateNet(iex::IEXProject& project)
{
    DetailList& details = project.GetDetails();
    const Totals all = TotalsOf(project);
    const auto lines = static_cast<double>(details.At("project/nlines").GetLongValue());
    // Own use beyond the product leaves nothing to speak of.
    const double rest = Value(details, "project/wbrutto") - all.ownUse;
    const double net = rest > 0.0 ? rest : kUnknown;
    const double flow = net / Value(details, "project/lz");
    Set(details, "project/wnetto", net);
    Set(details, "project/qnetto", std::isfinite(flow) ? flow : kUnknown);
    Set(details, "project/vol.serv.all", lines * all.serviceWater);
    Set(details, "project/vol.waste.all", lines * all.waste);
}

}  // namespace sequence
