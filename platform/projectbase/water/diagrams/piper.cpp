// SPDX-License-Identifier: MIT
#include "projectbase/water/diagrams/piper.h"

namespace diagrams::piper {

std::optional<Shares> SharesOf(const WaterIons& ions, bool withMinorAnions)
{
    const MainGroups groups = GroupsOf(ions);
    const double chloride =
        groups.chloride + (withMinorAnions ? ions.nitrate + ions.fluoride + ions.bromide : 0.0);
    const double cations = groups.calcium + groups.magnesium + groups.alkalis;
    const double anions = groups.bicarbonate + groups.sulfate + chloride;
    if (!(cations > 0.0) || !(anions > 0.0))
        return std::nullopt;
    return Shares{.calcium = groups.calcium / cations,
                  .magnesium = groups.magnesium / cations,
                  .alkalis = groups.alkalis / cations,
                  .bicarbonate = groups.bicarbonate / anions,
                  .sulfate = groups.sulfate / anions,
                  .chloride = chloride / anions};
}

Points PlacesOf(const Shares& shares)
{
    const double strong = shares.sulfate + shares.chloride;
    return {.cations = {shares.alkalis + 0.5 * shares.magnesium, kHeight * shares.magnesium},
            .anions = {1.0 + kGap + shares.chloride + 0.5 * shares.sulfate, kHeight * shares.sulfate},
            // The diamond knows the alkalis and the anions of strong acids only.
            .diamond = {0.5 * (1.0 + kGap + shares.alkalis + strong),
                        kHeight * (1.0 + kGap + strong - shares.alkalis)}};
}

}  // namespace diagrams::piper
