// SPDX-License-Identifier: MIT
#pragma once

/// The design of a line of exchangers from what flows to it: loads, capacities, resin volumes, vessels,
/// regenerants, wastes and their neutralisation. Whoever shows a design, the windows, the report and the
/// command line, asks here for what no detail holds, such as the corrections of a capacity.
///
/// Amounts are those of one line and one cycle; not a number stands for what is not known. All of this reads
/// nothing but the project that it is given, so that several threads may design clones of one at once.

#include "projectbase/design/capacity.h"
#include "projectbase/design/leakage.h"
#include "projectbase/design/regeneration.h"
#include "projectbase/projectbase_export.h"

#include <limits>
#include <vector>

class OwnerNode;

namespace design {

inline constexpr double kNotKnown = std::numeric_limits<double>::quiet_NaN();

/// Keys of the two dilutions of a regenerant.
inline constexpr std::string_view kFirstDilution = "stepcomp/konz.d";
inline constexpr std::string_view kSecondDilution = "stepcomp/konz.d2";

/// The first resin of a compartment that exchanges, null where none is chosen yet.
PROJECTBASE_EXPORT const OwnerNode* WorkingResin(const OwnerNode& compartment);
/// Volume (m³) of a resin or layer: as installed, else as designed.
PROJECTBASE_EXPORT double VolumeOf(const OwnerNode& resin);
/// Volume (m³) of the resins of a compartment, inert layers apart: what a bed volume means.
PROJECTBASE_EXPORT double BedVolume(const OwnerNode& compartment);
/// Whether an inert layer floats on the resin of a compartment: it protects the upper nozzles of a vessel
/// that the bed fills, without freeboard for a backwash.
PROJECTBASE_EXPORT bool IsPacked(const OwnerNode& compartment);

/// Velocity (m/h) of the first backwash in the regeneration sequence of an exchanger.
PROJECTBASE_EXPORT double BackwashVelocity(const OwnerNode& exchanger);

struct CompartmentDesign
{
    const OwnerNode* node = nullptr;
    const OwnerNode* resinNode = nullptr;  ///< the working resin
    const Resin* resin = nullptr;
    const Regenerant* chemical = nullptr;
    Ions takes;               ///< meq/l
    Ions ions;                ///< the load by ions, eq
    double load = kNotKnown;  ///< eq
    Capacity capacity{.value = kNotKnown, .base = kNotKnown};
    double designed = kNotKnown;  ///< volume of the working resin, m³
    double volume = kNotKnown;    ///< of all resins of the bed, as installed where they are, m³
    Dose dose{kNotKnown, kNotKnown, kNotKnown, kNotKnown};
    double concentration = kNotKnown;  ///< as applied, %
    double supply = kNotKnown;         ///< volume of the chemical as supplied, m³
    Waste waste;
    double neutralizes = kNotKnown;  ///< kg of its chemical that neutralise the line's rest
};

struct ExchangerDesign
{
    const OwnerNode* node = nullptr;
    ExchangerKind kind = ExchangerKind::Unknown;
    bool isCounterCurrent = false;
    double temperature = kNotKnown;  ///< °C
    std::vector<CompartmentDesign> compartments;
    double load = kNotKnown;            ///< eq
    double neededDiameter = kNotKnown;  ///< that keeps the velocity limit, m
    double diameter = kNotKnown;        ///< as typed, else as needed, m
    bool isDiameterTyped = false;
    double area = kNotKnown;          ///< m²
    double velocity = kNotKnown;      ///< m/h
    double bedVolumes = kNotKnown;    ///< BV/h
    double depth = kNotKnown;         ///< of the resin, inert layers apart, m
    double pressureDrop = kNotKnown;  ///< bar
    double throughput = kNotKnown;    ///< of the bed as installed, m³
    double runTime = kNotKnown;       ///< h
    std::vector<Leakage> leakages;
    // What follows from the rows of the regeneration sequence.
    double expansion = kNotKnown;  ///< in the first backwash row, %
    Waste waste;
    double wasteVolume = kNotKnown;  ///< m³
};

struct PlantDesign
{
    std::vector<ExchangerDesign> exchangers;
    double neutral = kNotKnown;  ///< free acid + or base - of the wastes of a line together, eq
    /// What has to be bought against it where no compartment has such a chemical, else null.
    const Regenerant* bought = nullptr;
    double boughtMass = kNotKnown;  ///< kg
    /// Inert resin of all lines, m³; not a number without exchangers.
    double inertFloat = kNotKnown;
    double inertUnder = kNotKnown;
};

/// The design of a project as its details have it now.
PROJECTBASE_EXPORT PlantDesign DesignOf(const iex::IEXProject& project);

/// Designs a project and writes what follows into its details; a value whose inputs are not known becomes
/// empty. To be called within an edit, after the waters. Returns the design.
PROJECTBASE_EXPORT PlantDesign UpdateDesign(iex::IEXProject& project);

/// Whether load, resin volume and regenerant of every compartment are known.
PROJECTBASE_EXPORT bool IsDesigned(const iex::IEXProject& project);

}  // namespace design
