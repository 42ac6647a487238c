// SPDX-License-Identifier: MIT
#pragma once

/// The values of the diagrams of waters that are drawn in meq/l: ion bars, Stiff, Schoeller.

#include "projectbase/projectbase_export.h"
#include "projectbase/water/diagrams/water_ions.h"

#include <vector>

namespace diagrams {

/// What a segment of an ion bar stands for.
enum class BarPart
{
    Calcium,
    Magnesium,
    Sodium,
    Potassium,
    Ammonium,
    Iron,
    Manganese,
    OtherCations,
    Alkalinity,  ///< bicarbonate, carbonate and hydroxide
    Sulfate,
    Chloride,
    Nitrate,
    OtherAnions
};

struct BarSegment
{
    BarPart part = BarPart::Calcium;
    double meq = 0.0;
    bool isClosing = false;  ///< closes the balance
};

/// Cations beside anions, each from below; what a water has not got is left out, and other ions than the
/// named ones below a thousandth of the sum. In this order calcium and magnesium overlap with the alkalinity
/// by the carbonate hardness.
struct IonBars
{
    std::vector<BarSegment> cations{};
    std::vector<BarSegment> anions{};
};
PROJECTBASE_EXPORT IonBars BarsOf(const WaterIons& ions);

/// A row of the diagram of Stiff (1951, J. Petroleum Technology 3:15): a cation to the left of the centre
/// line, an anion to the right, meq/l.
struct StiffRow
{
    double cation = 0.0;
    double anion = 0.0;
};
/// From above: Na + K and Cl, Ca and HCO3 + CO3, Mg and SO4; on request Fe and NO3 below them.
PROJECTBASE_EXPORT std::vector<StiffRow> StiffOf(const WaterIons& ions, bool withFourthRow);

/// The ordinates of the diagram of Schoeller (1935), meq/l: Ca, Mg, Na + K, Cl, SO4, HCO3 + CO3, on request
/// NO3. What a water has not got has no place on a logarithmic axis and is not a number.
PROJECTBASE_EXPORT std::vector<double> SchoellerOf(const WaterIons& ions, bool withNitrate);

/// The whole decades around all values that are numbers; 0.1 to 10 without any.
struct Decades
{
    double lower = 0.1;
    double upper = 10.0;
};
PROJECTBASE_EXPORT Decades DecadesAround(const std::vector<std::vector<double>>& values);

}  // namespace diagrams
