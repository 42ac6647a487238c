// SPDX-License-Identifier: MIT
#pragma once

/// Flow and amount of one row of a regeneration sequence. One of velocity, flow rate and specific flow rate
/// is typed and the two others follow from it; so do time, volume and specific volume. Not a number stands
/// for what is not known.

#include "projectbase/projectbase_export.h"

#include <limits>
#include <string_view>

namespace sequence {

/// What the flow of a row refers to.
struct BedSize
{
    double area = std::numeric_limits<double>::quiet_NaN();    ///< of the vessel, m²
    double volume = std::numeric_limits<double>::quiet_NaN();  ///< of the resin, m³
};

struct RowQuantities
{
    double v = std::numeric_limits<double>::quiet_NaN();      ///< m/h
    double q = std::numeric_limits<double>::quiet_NaN();      ///< m³/h
    double qBv = std::numeric_limits<double>::quiet_NaN();    ///< BV/h
    double t = std::numeric_limits<double>::quiet_NaN();      ///< h
    double vol = std::numeric_limits<double>::quiet_NaN();    ///< m³
    double volBv = std::numeric_limits<double>::quiet_NaN();  ///< BV
};

/// The row with what follows: `flow` ("v", "q", "q.bv") and `amount` ("t", "vol", "vol.bv") say what was
/// typed, other texts mean the first of them. The typed values come back as they were; a follower that would
/// have to be infinite is not known.
PROJECTBASE_EXPORT RowQuantities FollowTyped(const RowQuantities& row, std::string_view flow,
                                             std::string_view amount, const BedSize& bed);

/// A row whose volume (m³) is settled by its dose of a chemical: with the amount "t" the time is typed and
/// the flow follows, else the flow is typed and the time follows.
PROJECTBASE_EXPORT RowQuantities FollowVolume(const RowQuantities& row, double volume, std::string_view flow,
                                              std::string_view amount, const BedSize& bed);

}  // namespace sequence
