// SPDX-License-Identifier: MIT
#include "projectbase/water/composition.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace water {

std::optional<Species> SpeciesOfKey(std::string_view key)
{
    const auto found = std::ranges::find(kSpeciesKeys, key);
    if (found == kSpeciesKeys.end())
        return std::nullopt;
    return static_cast<Species>(found - kSpeciesKeys.begin());
}

double IonicStrength(const Composition& composition)
{
    double sum = composition.boundHydrogen;
    for (std::size_t i = 0; i < kSpeciesCount; ++i)
        sum += composition.amounts[i] * kCharges[i] * kCharges[i];
    return 0.5e-3 * sum;
}

double DissolvedMass(const Composition& composition)
{
    constexpr auto kMolarMasses = ions::MembersOf(kSpecies, &ions::Ion::molarMass);
    return std::inner_product(kMolarMasses.begin(), kMolarMasses.end(), composition.amounts.begin(), 0.0);
}

double ElectroneutralityError(const ChargeSums& sums)
{
    const double total = sums.cations + sums.anions;
    return total == 0.0 ? 0.0 : 100.0 * (sums.cations - sums.anions) / total;
}

double TotalHardness(const Composition& composition)
{
    return composition[Species::Ca] + composition[Species::Mg];
}

double CarbonateHardness(const Composition& composition)
{
    // An alkalinity that is not known leaves this unknown too.
    const double bound = 0.5 * AlkalinityM(composition);
    return bound < 0.0 ? 0.0 : std::min(bound, TotalHardness(composition));
}

double AlkalinityM(const Composition& composition)
{
    return composition[Species::Hco3] + 2.0 * composition[Species::Co3] + composition[Species::Oh] -
           composition[Species::H] - composition.boundHydrogen;
}

double EquivalentMineralAcidity(const Composition& composition)
{
    return composition[Species::Cl] + 2.0 * composition[Species::So4] + composition[Species::No3] +
           composition[Species::F] + composition[Species::Br] + composition[Species::Po4];
}

double DryResidue(double sumOfConstituents, double bicarbonate)
{
    return sumOfConstituents - (1.0 - 0.4917) * bicarbonate;
}

}  // namespace water
