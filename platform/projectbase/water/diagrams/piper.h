// SPDX-License-Identifier: MIT
#pragma once

/// The diagram of Piper (1944): the shares of cations and of anions in a triangle each, and both together in
/// a diamond above them. Places are in a plane in which a triangle has sides of 1; the ordinate points
/// upwards.

#include "projectbase/projectbase_export.h"
#include "projectbase/water/diagrams/water_ions.h"

#include <array>
#include <optional>

namespace diagrams::piper {

/// Between the two triangles, and between each of them and the diamond along their sides.
inline constexpr double kGap = 0.1;
/// Of a triangle: √3/2.
inline constexpr double kHeight = 0.86602540378443864676;

struct Place
{
    double x = 0.0;
    double y = 0.0;
};

/// Of their sums, 0 to 1. Ions that are none of these six are left out.
struct Shares
{
    double calcium = 0.0;
    double magnesium = 0.0;
    double alkalis = 0.0;
    double bicarbonate = 0.0;
    double sulfate = 0.0;
    double chloride = 0.0;
};

/// Nothing for a water without any of the three cations, or of the three anions. Nitrate, fluoride and
/// bromide count as chloride on request.
PROJECTBASE_EXPORT std::optional<Shares> SharesOf(const WaterIons& ions, bool withMinorAnions);

struct Points
{
    Place cations;
    Place anions;
    Place diamond;
};

/// In the triangles calcium and bicarbonate are 100 % at the lower left, alkalis and chloride at the lower
/// right, magnesium and sulfate at the top. In the diamond the lines through both points meet that run along
/// the outer sides of the triangles (layout of Peeters 2014, Groundwater 52:2).
PROJECTBASE_EXPORT Points PlacesOf(const Shares& shares);

using Triangle = std::array<Place, 3>;  ///< lower left, lower right, top
using Diamond = std::array<Place, 4>;   ///< left, top, right, bottom
inline constexpr Triangle kCations{{{0.0, 0.0}, {1.0, 0.0}, {0.5, kHeight}}};
inline constexpr Triangle kAnions{{{1.0 + kGap, 0.0}, {2.0 + kGap, 0.0}, {1.5 + kGap, kHeight}}};
inline constexpr Diamond kDiamond{{{0.5 * (1.0 + kGap), kHeight*(1.0 + kGap)},
                                   {1.0 + 0.5 * kGap, kHeight*(2.0 + kGap)},
                                   {0.5 * (3.0 + kGap), kHeight*(1.0 + kGap)},
                                   {1.0 + 0.5 * kGap, kHeight* kGap}}};

}  // namespace diagrams::piper
