// SPDX-License-Identifier: MIT
#include "projectbase/design/hydraulics.h"
#include "projectbase/design/plant_steps.h"
#include "projectbase/project/owner_node.h"
#include "projectbase/sequence/sequence_calculation.h"

#include <algorithm>
#include <cmath>

namespace design {

namespace {

/// Of all resin of the vessel at the velocity of the first backwash.
double ExpansionOf(const ExchangerDesign& exchanger)
{
    const double velocity = BackwashVelocity(*exchanger.node);
    // Backwashed with water at the temperature of the service.
    const Liquid water = WaterAt(exchanger.temperature);
    double expanded = 0.0;
    double settled = 0.0;
    for (const CompartmentDesign& bed : exchanger.compartments) {
        if (bed.resin == nullptr)
            return kNotKnown;
        expanded += bed.volume * Expansion(velocity, BeadsOf(*bed.resin), water);
        settled += bed.volume;
    }
    return settled > 0.0 ? expanded / settled : kNotKnown;
}

/// The first compartment of the line with an acid, or with a base; null where there is none.
CompartmentDesign* FirstWith(PlantDesign& plant, std::string_view kind)
{
    for (ExchangerDesign& exchanger : plant.exchangers) {
        for (CompartmentDesign& bed : exchanger.compartments) {
            if (bed.chemical != nullptr && bed.chemical->kind == kind)
                return &bed;
        }
    }
    return nullptr;
}

void Neutralise(PlantDesign& plant)
{
    for (ExchangerDesign& exchanger : plant.exchangers) {
        for (CompartmentDesign& bed : exchanger.compartments)
            bed.neutralizes = std::isnan(plant.neutral) ? kNotKnown : 0.0;
    }
    if (std::isnan(plant.neutral))
        return;
    plant.boughtMass = 0.0;
    if (plant.neutral == 0.0)
        return;
    const bool isAcid = plant.neutral > 0.0;
    const double rest = std::abs(plant.neutral);
    if (CompartmentDesign* bed = FirstWith(plant, isAcid ? "base" : "acid")) {
        bed->neutralizes = MassOf(*bed->chemical, rest);
        return;
    }
    plant.bought = FindRegenerant(isAcid ? "NAOH" : "HCL");
    plant.boughtMass = MassOf(*plant.bought, rest);
}

}  // namespace

double BackwashVelocity(const OwnerNode& exchanger)
{
    const auto rows = exchanger.GetChildren(OwnerKind::SequenceRow);
    const auto backwash = std::ranges::find_if(rows, [](const auto& row) {
        return row->GetDetails()->At("regseqstep/type").GetStdStringValue() == sequence::kBackwash;
    });
    return backwash == rows.end() ? kNotKnown
                                  : (*backwash)->GetDetails()->At("regseqstep/v").GetDoubleValue();
}

void DesignWastes(PlantDesign& plant)
{
    bool hasBeds = false;
    double neutral = 0.0;
    for (ExchangerDesign& exchanger : plant.exchangers) {
        if (exchanger.compartments.empty())
            continue;
        hasBeds = true;
        exchanger.expansion = ExpansionOf(exchanger);
        exchanger.wasteVolume = sequence::TotalsOf(*exchanger.node).waste;
        for (const CompartmentDesign& bed : exchanger.compartments)
            exchanger.waste += bed.waste;
        neutral += exchanger.waste.neutral;
    }
    plant.neutral = hasBeds ? neutral : kNotKnown;
    Neutralise(plant);
}

}  // namespace design
