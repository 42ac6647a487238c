// SPDX-License-Identifier: MIT
#pragma once

/// What a design is made of and no detail holds, as JSON. Internal to ProjectToJson.

#include "projectbase/design/plant_design.h"

#include <string>

namespace design {

/// The ranges of an exchanger's leakages: a list of name, low, high and unit.
std::string LeakagesAsJson(const PlantDesign& plant, const OwnerNode& exchanger);
/// Where the capacity of a compartment comes from: origin, value and a list of corrections with their
/// factors.
std::string CapacityAsJson(const PlantDesign& plant, const OwnerNode& compartment);

}  // namespace design
