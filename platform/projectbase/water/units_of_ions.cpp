// SPDX-License-Identifier: MIT
#include "projectbase/water/units_of_ions.h"

#include "core/ion_normalization.h"
#include "projectbase/water/ion_rows.h"
#include "projectbase/water/typed_units.h"

#include <cmath>

namespace water {
namespace {

bool HasNumber(const DetailList& liquid, const IonRow& row)
{
    const double typed = liquid.At(row.orig).GetDoubleValue();
    return std::isfinite(typed) && typed != 0.0;
}

bool IsReplaced(const DetailList& liquid, const IonRow& row, const std::string& unit)
{
    return TypedUnit(row.unit, unit) == unit && liquid.At(row.unit).GetStdStringValue() != unit;
}

/// meq/l of a number in that unit, as an analysis normalises it.
double Amount(const IonRow& row, double number, const std::string& unit)
{
    return ions::Normalize({row.ion, number, unit, {}, false}).meqPerLitre;
}

}  // namespace

bool HasNumbersInOtherUnit(const DetailList& liquid, const std::string& unit)
{
    for (const IonRow& row : IonRows()) {
        if (IsReplaced(liquid, row, unit) && HasNumber(liquid, row))
            return true;
    }
    return false;
}

void SetUnitOfIons(DetailList& liquid, const std::string& unit, TypedNumbers numbers)
{
    for (const IonRow& row : IonRows()) {
        if (!IsReplaced(liquid, row, unit))
            continue;
        const double one = Amount(row, 1.0, unit);
        if (numbers == TypedNumbers::Convert && HasNumber(liquid, row) && one > 0.0) {
            DetailData& typed = liquid.At(row.orig);
            typed.SetValue(Amount(row, typed.GetDoubleValue(), liquid.At(row.unit).GetStdStringValue()) /
                           one);
        }
        liquid.At(row.unit).SetValue(unit);
    }
}

}  // namespace water
