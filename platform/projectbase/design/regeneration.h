// SPDX-License-Identifier: MIT
#pragma once

/// What a regeneration takes and what it leaves. Amounts of one line and one cycle; not a number stands for
/// what is not known.

#include "projectbase/design/regenerants.h"
#include "projectbase/design/stream.h"
#include "projectbase/projectbase_export.h"

namespace design {

/// A solution in one dilution, or in two that are applied one after the other.
struct Dilution
{
    double first = 0.0;  ///< %
    bool isProgressive = false;
    double portion = 100.0;  ///< of the chemical in the first dilution, %; the rest is in the second
    double second = 0.0;     ///< %
};

/// Concentration as applied (%): that of the one dilution, or the chemical over the mass of both solutions.
PROJECTBASE_EXPORT double AppliedConcentration(const Dilution& dilution);

/// What a regenerant comes to, beside the ions that it displaces.
struct Dose
{
    double mass = 0.0;         ///< kg of the pure chemical
    double equivalents = 0.0;  ///< eq
    double ratio = 0.0;        ///< % of the need; not a number where nothing is needed
    double excess = 0.0;       ///< eq; negative where it does not suffice
};
/// The dose of a bed (m³) at a level (kg/m³): G = V g; the need is L E/1000 with the load L (eq) and the
/// equivalent mass E (g/eq). Helfferich 1962, Ion Exchange.
PROJECTBASE_EXPORT Dose DoseOf(const Regenerant& regenerant, double volume, double level, double load);

/// The waste of a regeneration by the groups of its ions (eq), and what is left to be neutralised.
struct Waste
{
    Ions ions;
    double neutral = 0.0;  ///< free acid +, free base -

    Waste& operator+=(const Waste& other);
};
/// The ions that a bed gives off and the regenerant that is not used up; those of the water that it is
/// dissolved in and rinsed with are not counted. The charges balance: Σ cations + neutral = Σ anions.
PROJECTBASE_EXPORT Waste WasteOf(const Regenerant& regenerant, const Dose& dose, const Ions& load);

/// Mass (kg) of a pure chemical that has so many equivalents.
PROJECTBASE_EXPORT double MassOf(const Regenerant& regenerant, double equivalents);

}  // namespace design
