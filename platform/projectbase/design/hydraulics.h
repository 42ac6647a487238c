// SPDX-License-Identifier: MIT
#pragma once

/// Vessels and resin beds: velocities in m/h as the field uses them, bead diameters in mm. Not a number
/// stands for what is not known or has no solution.

#include "projectbase/projectbase_export.h"

namespace design {

/// The liquid that flows through a bed.
struct Liquid
{
    double density = 0.0;    ///< kg/m³
    double viscosity = 0.0;  ///< Pa s
};
/// Water at that temperature (°C).
PROJECTBASE_EXPORT Liquid WaterAt(double celsius);

struct Beads
{
    double diameter = 0.0;      ///< harmonic mean, mm
    double density = 0.0;       ///< of the wet beads, kg/m³
    double voidFraction = 0.0;  ///< of the settled bed
};

/// Cross-section (m²) of a vessel of that diameter (m).
PROJECTBASE_EXPORT double AreaOf(double diameter);

/// The smallest diameter (m), a multiple of 0.1 m, in which a flow (m³/h) does not exceed a velocity (m/h).
/// Not a number without a flow or a velocity.
PROJECTBASE_EXPORT double SmallestDiameter(double flow, double velocity);

/// Pressure drop (bar) of a metre of bed. Ergun 1952, Chem. Eng. Prog. 48:89:
/// 150 µ(1-ε)² v/(ε³d²) + 1.75 ρ(1-ε) v²/(ε³d).
PROJECTBASE_EXPORT double PressureGradient(double velocity, const Beads& beads, const Liquid& liquid);

/// Velocity (m/h) at which a single bead sinks. Schiller & Naumann 1935: Cd = 24/Re (1 + 0.15 Re^0.687), up
/// to Re 1000.
PROJECTBASE_EXPORT double TerminalVelocity(const Beads& beads, const Liquid& liquid);

/// Velocity (m/h) from which on a bed is fluidised. Wen & Yu 1966:
/// Re = √(33.7² + 0.0408 Ar) - 33.7.
PROJECTBASE_EXPORT double FluidisingVelocity(const Beads& beads, const Liquid& liquid);

/// Expansion (%) of a bed that is backwashed. Richardson & Zaki 1954: v = v_t ε^n with n of the Reynolds
/// number of the single bead. 0 below the fluidising velocity, not a number from the terminal velocity on,
/// which carries the beads out. ±25 %.
PROJECTBASE_EXPORT double Expansion(double velocity, const Beads& beads, const Liquid& liquid);

}  // namespace design
