// SPDX-License-Identifier: MIT
#include "projectbase/water/normalization.h"

#include "core/detection_limit.h"
#include "core/ion_normalization.h"
#include "core/ion_table.h"
#include "core/ion_units.h"
#include "projectbase/units/temperature.h"
#include "projectbase/water/detection_limits.h"
#include "projectbase/water/ion_rows.h"
#include "projectbase/water/measured_values.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace water {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

void NormalizeRow(DetailList& liquid, const IonRow& row, bool checkName)
{
    DetailData& orig = liquid.At(row.orig);
    const std::string unit = liquid.At(row.unit).GetStdStringValue();
    const std::string name =
        checkName || row.isNamed ? liquid.At(row.name).GetStdStringValue() : std::string();
    DetailData& meql = liquid.At(row.meql);
    DetailData& mgl = liquid.At(row.mgl);

    const double typed = orig.GetDoubleValue();
    const auto result = ions::Normalize({row.ion, typed, unit, name, checkName});
    orig.SetValue(result.typed);
    // A limit of detection has a minus sign, and counts with its share.
    const double share = detection_limit::Is(typed) ? -ShareOfLimits(liquid) : 1.0;
    meql.SetValue(share * result.meqPerLitre + 0.0);
    mgl.SetValue(share * result.mgPerLitre + 0.0);
}

void NormalizeTemperature(DetailList& liquid)
{
    const double typed = liquid.At("liquid/temp.orig").GetDoubleValue();
    const std::string text = liquid.At("liquid/temp.unit").GetStdStringValue();
    const auto unit = text.empty() ? TemperatureUnit::Celsius : Temperature::UnitFromText(text);
    liquid.At("liquid/temp")
        .SetValue(unit ? Temperature(typed, *unit).In(TemperatureUnit::Celsius) : kUnknown);
}

void NormalizeTypedCo2(DetailList& liquid)
{
    const double typed = CountedValue(liquid, "liquid/co2.orig");
    const std::string unit = liquid.At("liquid/co2.unit").GetStdStringValue();
    const double weight = ions::FindIon("co2")->equivalentWeight;
    liquid.At("liquid/co2.mgl").SetValue(ions::ToMgPerLitre(typed, unit, weight));
}

}  // namespace

void NormalizeIon(DetailList& liquid, std::string_view ion, bool checkName)
{
    if (const IonRow* row = FindIonRow(ion))
        NormalizeRow(liquid, *row, checkName);
    else
        NormalizeRow(liquid, MakeIonRow(ion), checkName);
}

void NormalizeEveryIon(DetailList& liquid)
{
    for (const char* key : {"liquid/alk.ph", "liquid/alk.dosed"})
        liquid.At(key).SetValue(kUnknown);
    for (const auto& [cation, brought] : {std::pair("liquid/alk.cation.meql", "liquid/amine.meql"),
                                          std::pair("liquid/alk.cation.mgl", "liquid/amine.mgl")}) {
        const double amount = liquid.At(brought).GetDoubleValue();
        liquid.At(cation).SetValue(std::isfinite(amount) ? std::max(0.0, amount) : 0.0);
    }
    if (!liquid.At("liquid/balance.ph").GetBoolValue())
        ResetHydrogenAndHydroxide(liquid);
    for (const IonRow& row : IonRows())
        NormalizeRow(liquid, row, row.isNamed);
    NormalizeTemperature(liquid);
    if (!liquid.At("liquid/calculate.co2").GetBoolValue())
        NormalizeTypedCo2(liquid);
    NormalizeMeasuredValues(liquid);
}

}  // namespace water
