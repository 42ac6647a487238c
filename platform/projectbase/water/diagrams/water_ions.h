// SPDX-License-Identifier: MIT
#pragma once

/// What a water holds in the groups of ions that the diagrams of hydrochemistry show.

#include "projectbase/projectbase_export.h"

#include <limits>

class DetailList;

namespace diagrams {

/// meq/l, none below zero; what is not known counts as none.
struct PROJECTBASE_EXPORT WaterIons
{
    double calcium = 0.0;
    double magnesium = 0.0;
    double sodium = 0.0;
    double potassium = 0.0;
    double ammonium = 0.0;
    double iron = 0.0;  ///< iron(II)
    double manganese = 0.0;
    double otherCations = 0.0;  ///< also H+, named cations, and the cation of an alkalizing amine

    double bicarbonate = 0.0;  ///< with carbonate
    double hydroxide = 0.0;
    double sulfate = 0.0;
    double chloride = 0.0;
    double nitrate = 0.0;
    double fluoride = 0.0;
    double bromide = 0.0;
    double otherAnions = 0.0;  ///< also named anions

    /// What closes the balance where that is done automatically; not part of the others.
    double closingSodium = 0.0;
    double closingChloride = 0.0;

    /// mg/l of all that is dissolved; not a number where it is not known.
    double dissolved = std::numeric_limits<double>::quiet_NaN();

    double CationSum() const;
    double AnionSum() const;
};

/// Equal also where the same is not known.
PROJECTBASE_EXPORT bool operator==(const WaterIons& a, const WaterIons& b);

/// The ions of a water as treated and calculated. H+ and OH- are those of its pH unless the rows state them.
PROJECTBASE_EXPORT WaterIons IonsOf(const DetailList& liquid);

/// The six groups that Stiff, Piper and Schoeller draw, meq/l, with the closing ion.
struct MainGroups
{
    double calcium = 0.0;
    double magnesium = 0.0;
    double alkalis = 0.0;      ///< sodium and potassium
    double bicarbonate = 0.0;  ///< with carbonate
    double sulfate = 0.0;
    double chloride = 0.0;
};
PROJECTBASE_EXPORT MainGroups GroupsOf(const WaterIons& ions);

}  // namespace diagrams
