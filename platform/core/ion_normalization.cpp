// SPDX-License-Identifier: MIT
#include "core/ion_normalization.h"

#include "core/ion_table.h"
#include "core/ion_units.h"

namespace ions {

NormalizedIon Normalize(const TypedIon& ion)
{
    if (ion.checkName && TrimTrailingBlanks(ion.name).empty())
        return {};

    const Ion* own = FindIon(ion.key);
    const double meqPerLitre = ToMeqPerLitre(ion.value, ion.unit, own ? own->equivalentWeight : 1.0);
    const Ion* reference = FindIon(ReferenceKey(ion.key, ion.name));
    return {ion.value, meqPerLitre, reference ? meqPerLitre * reference->equivalentWeight : meqPerLitre};
}

}  // namespace ions
