// SPDX-License-Identifier: MIT
#pragma once

/// Operating capacity of a resin bed, and what corrects it. Not a number stands for what is not known.

#include "projectbase/design/resins.h"
#include "projectbase/design/stream.h"
#include "projectbase/projectbase_export.h"

#include <array>
#include <cstddef>
#include <span>

namespace design {

/// What a capacity is multiplied with, as the user reads it.
struct Correction
{
    const char* name = "";  ///< source text
    double factor = 1.0;
};

/// eq/l of resin, with what it was made of.
struct Capacity
{
    double value = 0.0;
    double base = 0.0;        ///< before the corrections
    const char* origin = "";  ///< where the base comes from, as source text; empty where it is not known
    std::array<Correction, 4> all{};
    std::size_t count = 0;

    std::span<const Correction> Corrections() const { return std::span(all).first(count); }
};

/// What a compartment's capacity depends on.
struct CapacityInputs
{
    const Resin* resin = nullptr;   ///< null where none is chosen
    std::string_view chemical;      ///< key of the regenerant
    bool isCounterCurrent = false;  ///< the regenerant flows against the service
    bool isHydrogenForm = false;    ///< a strong-acid cation resin that takes all cations
    double level = 0.0;             ///< kg of the pure regenerant per m³ of resin
    double typed = 0.0;             ///< what a maker states, eq/l; not corrected
    double temperature = 0.0;       ///< °C
    Ions load;                      ///< in any unit: only its shares matter
};

/// Capacity at a level (kg/m³) after the curve q (1 - exp(-k g)); see the table of resins for its sources.
PROJECTBASE_EXPORT double CapacityOfCurve(const ResinRegeneration& regeneration, double level);

/// The capacity that was typed; else that of the resin's curve, or the typical one of a resin that has no
/// curve, times: for a strong-acid resin in hydrogen form 1 + 0.2 min(0.5, share of Na, K and NH4); for
/// sulfuric acid 1 - 0.1 share of hardness; for a strong-base resin 1 - 0.1 share of chloride in the anions
/// of strong acids and 1 - 0.175 min(1, 4 share of SiO2); below 20 °C 1 - 0.0075 (20 - t), at least 0.5.
/// Orders of magnitude after Kunin 1958, Ion Exchange Resins, and makers' manuals, brought to continuous
/// forms. The curve of co-current regeneration serves where counter-current has none.
PROJECTBASE_EXPORT Capacity OperatingCapacity(const CapacityInputs& inputs);

}  // namespace design
