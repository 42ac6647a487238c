// SPDX-License-Identifier: MIT
// What a design writes into the details of its project.
#include "projectbase/design/plant_steps.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/sequence/sequence_calculation.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace design {

namespace {

/// Stores what can be shown: a number, or nothing. What stays is not written.
void Set(DetailList& details, std::string_view key, double value)
{
    // Adding 0 makes a zero of a negative one.
    details.At(key).SetValue(std::isfinite(value) ? value + 0.0 : kNotKnown);
}

void Set(DetailList& details, std::string_view key, const std::string& text)
{
    details.At(key).SetValue(text);
}

/// The tree is that of the project which the design was made of.
DetailList& DetailsOf(const OwnerNode* node)
{
    return *const_cast<OwnerNode*>(node)->GetDetails();
}

void StoreResins(const CompartmentDesign& bed, double lines)
{
    for (const auto& resin : bed.node->GetChildren(OwnerKind::Resin)) {
        DetailList& details = *resin->GetDetails();
        const double installed = details.At("compcomp/vol.actual").GetDoubleValue();
        Set(details, "compcomp/vol", resin.get() == bed.resinNode ? bed.designed : installed);
        Set(details, "compcomp/vol.total", lines * VolumeOf(*resin));
    }
}

void StoreBed(const CompartmentDesign& bed, double lines)
{
    DetailList& details = DetailsOf(bed.node);
    Set(details, "stepcomp/load", bed.load);
    Set(details, "stepcomp/capacity", bed.capacity.value);
    Set(details, "stepcomp/rm", bed.dose.mass);
    Set(details, "stepcomp/rb.ratio", bed.dose.ratio);
    Set(details, "stepcomp/rb.excess", bed.dose.excess);
    Set(details, "stepcomp/cond.amount", details.At("stepcomp/cond.spec").GetDoubleValue() * bed.volume);
    StoreResins(bed, lines);
}

void StoreVessel(const ExchangerDesign& exchanger)
{
    DetailList& details = DetailsOf(exchanger.node);
    Set(details, "step/diameter", exchanger.diameter);
    // One that was typed stays typed, also when the design would come to choose the same.
    Set(details, "step/diameter.designed", exchanger.isDiameterTyped ? kNotKnown : exchanger.diameter);
    Set(details, "step/area", exchanger.area);
    Set(details, "step/v", exchanger.velocity);
    Set(details, "step/bvh", exchanger.bedVolumes);
    Set(details, "step/bed.depth", exchanger.depth);
    Set(details, "step/dp", exchanger.pressureDrop);
    Set(details, "step/run.time", exchanger.runTime);
    Set(details, "step/throughput", exchanger.throughput);
}

/// What an exchanger with one compartment has in common with it; with two of them each has its own.
void StoreRegenerant(const ExchangerDesign& exchanger)
{
    static const CompartmentDesign kNone;
    const bool isOne = exchanger.compartments.size() == 1;
    const CompartmentDesign& bed = isOne ? exchanger.compartments.front() : kNone;
    DetailList& details = DetailsOf(exchanger.node);
    Set(details, "step/load", exchanger.load);
    Set(details, "step/capacity", bed.capacity.value);
    Set(details, "step/rm", bed.chemical == nullptr ? std::string() : bed.chemical->name);
    Set(details, "step/rb.ges", bed.dose.mass);
    Set(details, "step/rb.ratio", bed.dose.ratio);
    Set(details, "step/rb.excess", bed.dose.excess);
    Set(details, "step/konz.d", bed.concentration);
}

void StoreBeds(const PlantDesign& plant, iex::IEXProject& project)
{
    const auto lines = static_cast<double>(project.GetDetails().At("project/nlines").GetLongValue());
    for (const ExchangerDesign& exchanger : plant.exchangers) {
        for (const CompartmentDesign& bed : exchanger.compartments)
            StoreBed(bed, lines);
        StoreVessel(exchanger);
        StoreRegenerant(exchanger);
    }
    Set(project.GetDetails(), "project/vol.inert.total", plant.inertFloat);
    Set(project.GetDetails(), "project/vol.inert.total.uc", plant.inertUnder);
}

struct WasteKeys
{
    const char* amount;
    const char* concentration;
    double (*of)(const Ions& ions);
};
constexpr std::array kWasteKeys{
    WasteKeys{"step/m.th", "step/c.th", [](const Ions& ions) { return ions.hardness; }},
    WasteKeys{"step/m.na_k_nh4", "step/c.na_k_nh4", [](const Ions& ions) { return ions.monovalent; }},
    WasteKeys{"step/m.other.c", "step/c.other.c", [](const Ions& ions) { return ions.otherCations; }},
    WasteKeys{"step/m.cl", "step/c.cl", [](const Ions& ions) { return ions.chloride; }},
    WasteKeys{"step/m.so4", "step/c.so4", [](const Ions& ions) { return ions.sulfate; }},
    WasteKeys{"step/m.hco3", "step/c.hco3", [](const Ions& ions) { return ions.carbon; }},
    WasteKeys{"step/m.sio2", "step/c.sio2", [](const Ions& ions) { return ions.silica; }},
    WasteKeys{"step/m.other.a", "step/c.other.a",
              [](const Ions& ions) { return ions.otherAnions + ions.organics; }},
};

void StoreWaste(const ExchangerDesign& exchanger)
{
    DetailList& details = DetailsOf(exchanger.node);
    const bool isKnown = !exchanger.compartments.empty();
    for (const WasteKeys& keys : kWasteKeys) {
        const double amount = isKnown ? keys.of(exchanger.waste.ions) : kNotKnown;
        Set(details, keys.amount, amount);
        // eq/m³ are meq/l.
        Set(details, keys.concentration, amount / exchanger.wasteVolume);
    }
    Set(details, "step/neutral", isKnown ? exchanger.waste.neutral : kNotKnown);
    Set(details, "step/expansion", exchanger.expansion);
}

/// Free base of all wastes of a line, eq.
double FreeBase(const PlantDesign& plant)
{
    double base = 0.0;
    for (const ExchangerDesign& exchanger : plant.exchangers) {
        for (const CompartmentDesign& bed : exchanger.compartments) {
            const double neutral = bed.waste.neutral;
            base += neutral > 0.0 ? 0.0 : -neutral;
        }
    }
    return base;
}

void StoreNeutralisation(const CompartmentDesign& bed, double freeBase, double netVolume)
{
    static const Regenerant& sodiumHydroxide = *FindRegenerant("NAOH");
    DetailList& details = DetailsOf(bed.node);
    const bool isAcid = bed.chemical != nullptr && bed.chemical->kind == "acid";
    const double acid = bed.waste.neutral;
    const double needed = isAcid ? MassOf(sodiumHydroxide, acid < 0.0 ? 0.0 : acid)
                                 : (bed.chemical == nullptr ? kNotKnown : 0.0);
    Set(details, "stepcomp/rb.neutral", needed);
    Set(details, "stepcomp/rb.delta", isAcid ? needed - MassOf(sodiumHydroxide, freeBase) : needed);
    Set(details, "stepcomp/m.neutral", bed.neutralizes);
    Set(details, "stepcomp/rb.spec", netVolume > 0.0 ? bed.dose.mass / netVolume : kNotKnown);
}

void StoreWastes(const PlantDesign& plant, const iex::IEXProject& project)
{
    const double netVolume = project.GetDetails().At("project/wnetto").GetDoubleValue();
    const double freeBase = FreeBase(plant);
    for (const ExchangerDesign& exchanger : plant.exchangers) {
        StoreWaste(exchanger);
        for (const CompartmentDesign& bed : exchanger.compartments)
            StoreNeutralisation(bed, freeBase, netVolume);
    }
}

}  // namespace

PlantDesign UpdateDesign(iex::IEXProject& project)
{
    PlantDesign plant = DesignBeds(project);
    StoreBeds(plant, project);
    // The rows of the regeneration sequences follow from area, volumes and regenerants; the wastes from them.
    for (const ExchangerDesign& exchanger : plant.exchangers)
        sequence::Calculate(*const_cast<OwnerNode*>(exchanger.node));
    sequence::CalculateNet(project);
    DesignWastes(plant);
    StoreWastes(plant, project);
    return plant;
}

bool IsDesigned(const iex::IEXProject& project)
{
    const auto isKnown = [](const OwnerNode& node, const char* key) {
        return !std::isnan(node.GetDetails()->At(key).GetDoubleValue());
    };
    const auto isDesigned = [&isKnown](const auto& compartment) {
        const OwnerNode* resin = WorkingResin(*compartment);
        return resin != nullptr && isKnown(*compartment, "stepcomp/load") &&
               isKnown(*resin, "compcomp/vol") && isKnown(*compartment, "stepcomp/rm");
    };
    const auto steps = project.GetRoot().GetChildren(OwnerKind::Exchanger);
    return !steps.empty() && std::ranges::all_of(steps, [&isDesigned](const auto& step) {
        return std::ranges::all_of(step->GetChildren(OwnerKind::Compartment), isDesigned);
    });
}

}  // namespace design
