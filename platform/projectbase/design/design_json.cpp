// SPDX-License-Identifier: MIT
#include "projectbase/design/design_json.h"

#include <nlohmann/json.hpp>

namespace design {

namespace {

using nlohmann::json;

json AsJson(const Capacity& capacity)
{
    json corrections = json::array();
    for (const Correction& correction : capacity.Corrections())
        corrections.push_back({{"name", correction.name}, {"factor", correction.factor}});
    // What is no number is written as null.
    return {{"origin", capacity.origin}, {"value", capacity.base}, {"corrections", std::move(corrections)}};
}

}  // namespace

std::string LeakagesAsJson(const PlantDesign& plant, const OwnerNode& exchanger)
{
    json leakages = json::array();
    for (const ExchangerDesign& each : plant.exchangers) {
        if (each.node != &exchanger)
            continue;
        for (const Leakage& leakage : each.leakages)
            leakages.push_back({{"name", leakage.name},
                                {"low", leakage.low},
                                {"high", leakage.high},
                                {"unit", leakage.unit}});
    }
    return leakages.dump();
}

std::string CapacityAsJson(const PlantDesign& plant, const OwnerNode& compartment)
{
    for (const ExchangerDesign& exchanger : plant.exchangers) {
        for (const CompartmentDesign& bed : exchanger.compartments) {
            if (bed.node == &compartment)
                return AsJson(bed.capacity).dump();
        }
    }
    return "null";
}

}  // namespace design
