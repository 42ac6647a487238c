// SPDX-License-Identifier: MIT
#pragma once

/// The two halves of a design: between them the rows of the regeneration sequences are calculated. Internal
/// to the design.

#include "projectbase/design/plant_design.h"

namespace design {

/// From the load to the regenerant.
PlantDesign DesignBeds(const iex::IEXProject& project);
/// What needs the rows of the sequences: backwash, wastes and how they are neutralised.
void DesignWastes(PlantDesign& plant);

}  // namespace design
