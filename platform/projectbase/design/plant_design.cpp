// SPDX-License-Identifier: MIT
#include "projectbase/design/plant_design.h"

#include "projectbase/design/hydraulics.h"
#include "projectbase/design/plant_steps.h"
#include "projectbase/project/iex_project.h"

#include <cmath>
#include <functional>

namespace design {

namespace {

constexpr double kLitresPerCubicMetre = 1000.0;

double Value(const OwnerNode& node, std::string_view key)
{
    return node.GetDetails()->At(key).GetDoubleValue();
}

std::string Text(const OwnerNode& node, std::string_view key)
{
    return node.GetDetails()->At(key).GetStdStringValue();
}

const Resin* ResinOf(const OwnerNode& resin)
{
    return FindResin(Text(resin, "compcomp/resin"));
}

bool IsWorking(const OwnerNode& resin)
{
    const Resin* kind = ResinOf(resin);
    return kind != nullptr && !IsInert(*kind);
}

/// Volume of the bed, whose working resin has the designed volume unless another one is installed.
double VolumeOfBed(const OwnerNode& compartment, const OwnerNode* working, double designed)
{
    double volume = working == nullptr ? kNotKnown : 0.0;
    for (const auto& resin : compartment.GetChildren(OwnerKind::Resin)) {
        if (!IsWorking(*resin))
            continue;
        const double installed = Value(*resin, "compcomp/vol.actual");
        volume += std::isnan(installed) && resin.get() == working ? designed : installed;
    }
    return volume;
}

Dilution DilutionOf(const OwnerNode& compartment)
{
    return {.first = Value(compartment, kFirstDilution),
            .isProgressive = compartment.GetDetails()->At("stepcomp/rm.progressive").GetBoolValue(),
            .portion = Value(compartment, "stepcomp/rm.portion"),
            .second = Value(compartment, kSecondDilution)};
}

/// What all exchangers of a line have in common.
struct Line
{
    double flow;    ///< m³/h
    double volume;  ///< of a cycle, m³
};

CompartmentDesign DesignBed(const OwnerNode& node, const ExchangerDesign& exchanger, const Ions& takes,
                            const Line& line)
{
    CompartmentDesign bed;
    bed.node = &node;
    bed.resinNode = WorkingResin(node);
    bed.resin = bed.resinNode == nullptr ? nullptr : ResinOf(*bed.resinNode);
    bed.chemical = FindRegenerant(Text(node, "stepcomp/rm.chemical"));
    bed.takes = takes;
    bed.ions = takes.Times(line.volume);
    bed.load = bed.ions.Sum();
    const bool takesAll = exchanger.kind == ExchangerKind::SacH || exchanger.kind == ExchangerKind::MixedBed;
    const double level = Value(node, "stepcomp/level");
    bed.capacity = OperatingCapacity(
        {.resin = bed.resin,
         .chemical = bed.chemical == nullptr ? std::string_view() : std::string_view(bed.chemical->key),
         .isCounterCurrent = exchanger.isCounterCurrent,
         .isHydrogenForm = takesAll,
         .level = level,
         .typed = Value(node, "stepcomp/capacity.typed"),
         .temperature = exchanger.temperature,
         .load = takes});
    const double usable = bed.capacity.value * Value(*exchanger.node, "step/margin");
    bed.designed =
        usable > 0.0 && bed.resinNode != nullptr ? bed.load / usable / kLitresPerCubicMetre : kNotKnown;
    bed.volume = VolumeOfBed(node, bed.resinNode, bed.designed);
    if (bed.chemical == nullptr)
        return bed;
    bed.dose = DoseOf(*bed.chemical, bed.volume, level, bed.load);
    bed.concentration = AppliedConcentration(DilutionOf(node));
    bed.supply = SolutionVolume(*bed.chemical, bed.dose.mass, Value(node, "stepcomp/rm.konz"));
    bed.waste = WasteOf(*bed.chemical, bed.dose, bed.ions);
    return bed;
}

/// A diameter is typed unless it is what the design itself wrote there.
void DesignVessel(ExchangerDesign& exchanger, const Line& line)
{
    const OwnerNode& node = *exchanger.node;
    const double stored = Value(node, "step/diameter");
    exchanger.isDiameterTyped = !std::isnan(stored) && stored != Value(node, "step/diameter.designed");
    // A degasser is sized by its packing, not by a velocity in a bed.
    if (exchanger.kind != ExchangerKind::Degasser)
        exchanger.neededDiameter = SmallestDiameter(line.flow, Value(node, "step/v.max"));
    exchanger.diameter = exchanger.isDiameterTyped ? stored : exchanger.neededDiameter;
    exchanger.area = exchanger.diameter > 0.0 ? AreaOf(exchanger.diameter) : kNotKnown;
    exchanger.velocity = line.flow / exchanger.area;
}

void DesignHydraulics(ExchangerDesign& exchanger, const Line& line, bool isWater)
{
    if (exchanger.compartments.empty())
        return;
    // The viscosity of other liquids is not known.
    const Liquid liquid = WaterAt(isWater ? exchanger.temperature : kNotKnown);
    double volume = 0.0;
    exchanger.depth = exchanger.pressureDrop = 0.0;
    for (const CompartmentDesign& bed : exchanger.compartments) {
        const double depth = bed.volume / exchanger.area;
        volume += bed.volume;
        exchanger.depth += depth;
        exchanger.pressureDrop +=
            bed.resin == nullptr ? kNotKnown
                                 : depth * PressureGradient(exchanger.velocity, BeadsOf(*bed.resin), liquid);
    }
    exchanger.bedVolumes = volume > 0.0 ? line.flow / volume : kNotKnown;
}

/// Until the first of the compartments is exhausted.
void DesignRun(ExchangerDesign& exchanger, const Line& line)
{
    const double margin = Value(*exchanger.node, "step/margin");
    bool isKnown = !exchanger.compartments.empty();
    double throughput = std::numeric_limits<double>::infinity();
    for (const CompartmentDesign& bed : exchanger.compartments) {
        const double takes = bed.takes.Sum();
        // What takes nothing is never exhausted.
        if (takes == 0.0)
            continue;
        const double volume = bed.volume * kLitresPerCubicMetre * bed.capacity.value * margin / takes;
        isKnown = isKnown && std::isfinite(volume);
        throughput = volume < throughput ? volume : throughput;
    }
    if (!isKnown || std::isinf(throughput))
        return;
    exchanger.throughput = throughput;
    exchanger.runTime = line.flow > 0.0 ? throughput / line.flow : kNotKnown;
}

ExchangerDesign DesignExchanger(const OwnerNode& node, const Line& line, Stream& stream)
{
    ExchangerDesign exchanger;
    exchanger.node = &node;
    exchanger.kind = KindOf(Text(node, "step/kind"));
    exchanger.isCounterCurrent = Text(node, "step/mode") == "COUNTER";
    exchanger.temperature = stream.temperature;
    const auto takes = Take(exchanger.kind, Value(node, "step/co2.residual"), stream);
    exchanger.load = 0.0 * line.volume;
    const auto compartments = node.GetChildren(OwnerKind::Compartment);
    for (std::size_t i = 0; i < compartments.size(); ++i) {
        exchanger.compartments.push_back(
            DesignBed(*compartments[i], exchanger, i < takes.size() ? takes[i] : Ions(), line));
        exchanger.load += exchanger.compartments.back().load;
    }
    DesignVessel(exchanger, line);
    DesignHydraulics(exchanger, line, stream.isWater);
    DesignRun(exchanger, line);
    return exchanger;
}

/// Calls `take` with each inert layer of a compartment and whether it lies above a resin, where it floats.
void ForEachInert(const OwnerNode& compartment, const std::function<void(const OwnerNode&, bool)>& take)
{
    bool isAboveResin = false;
    for (const auto& resin : compartment.GetChildren(OwnerKind::Resin)) {
        const Resin* kind = ResinOf(*resin);
        if (kind == nullptr)
            continue;
        if (!IsInert(*kind))
            isAboveResin = true;
        else
            take(*resin, isAboveResin);
    }
}

void AddInert(const OwnerNode& compartment, PlantDesign& plant)
{
    ForEachInert(compartment, [&plant](const OwnerNode& layer, bool isFloat) {
        (isFloat ? plant.inertFloat : plant.inertUnder) += Value(layer, "compcomp/vol.actual");
    });
}

}  // namespace

const OwnerNode* WorkingResin(const OwnerNode& compartment)
{
    for (const auto& resin : compartment.GetChildren(OwnerKind::Resin)) {
        if (IsWorking(*resin))
            return resin.get();
    }
    return nullptr;
}

double VolumeOf(const OwnerNode& resin)
{
    const double installed = Value(resin, "compcomp/vol.actual");
    return std::isnan(installed) ? Value(resin, "compcomp/vol") : installed;
}

double BedVolume(const OwnerNode& compartment)
{
    const OwnerNode* working = WorkingResin(compartment);
    return VolumeOfBed(compartment, working,
                       working == nullptr ? kNotKnown : Value(*working, "compcomp/vol"));
}

bool IsPacked(const OwnerNode& compartment)
{
    bool hasFloat = false;
    ForEachInert(compartment, [&hasFloat](const OwnerNode&, bool isFloat) { hasFloat |= isFloat; });
    return hasFloat;
}

PlantDesign DesignBeds(const iex::IEXProject& project)
{
    const DetailList& details = project.GetDetails();
    const Line line{details.At("project/qbrutto").GetDoubleValue(),
                    details.At("project/wbrutto").GetDoubleValue()};
    PlantDesign plant;
    if (project.NumberSteps() == 0)
        return plant;
    Stream stream = StreamOf(project);
    LeakageOfLine leakage;
    plant.inertFloat = plant.inertUnder = 0.0;
    for (const auto& node : project.GetRoot().GetChildren(OwnerKind::Exchanger)) {
        const Stream inlet = stream;
        ExchangerDesign& exchanger = plant.exchangers.emplace_back(DesignExchanger(*node, line, stream));
        exchanger.leakages = leakage.Pass(exchanger.kind, exchanger.isCounterCurrent, inlet);
        for (const auto& compartment : node->GetChildren(OwnerKind::Compartment))
            AddInert(*compartment, plant);
    }
    const auto lines = static_cast<double>(details.At("project/nlines").GetLongValue());
    plant.inertFloat *= lines;
    plant.inertUnder *= lines;
    return plant;
}

PlantDesign DesignOf(const iex::IEXProject& project)
{
    PlantDesign plant = DesignBeds(project);
    DesignWastes(plant);
    return plant;
}

}  // namespace design
