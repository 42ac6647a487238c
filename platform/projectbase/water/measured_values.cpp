// SPDX-License-Identifier: MIT
#include "projectbase/water/measured_values.h"

#include "core/ion_units.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace water {
namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

struct Factor
{
    std::string_view unit;
    double toIso;
};

/// Units of which neither the ions' table knows nor their meaning there is that of a hardness.
constexpr std::array kFactors{
    Factor{"mmol/l", 2.0},  // of divalent ions
    Factor{"\u00b5S/cm", 1.0},
    Factor{"mS/cm", 1000.0},
    Factor{"mS/m", 10.0},
};

}  // namespace

double MeasuredFactor(std::string_view unit)
{
    const auto found = std::ranges::find(kFactors, unit, &Factor::unit);
    if (found != kFactors.end())
        return found->toIso;
    return ions::KindOf(unit) == ions::UnitKind::Equivalents ? ions::ToMeqPerLitre(1.0, unit, 1.0) : kUnknown;
}

void NormalizeMeasuredValues(DetailList& liquid)
{
    for (const MeasuredValue& value : kMeasuredValues)
        liquid.At(value.iso).SetValue(liquid.At(value.orig).GetDoubleValue() *
                                      MeasuredFactor(liquid.At(value.unit).GetStdStringValue()));
}

bool IsContradicted(const DetailList& liquid, const MeasuredValue& value)
{
    constexpr double kTenth = 0.1;
    if (liquid.At("liquid/analysis.type").GetStdStringValue() != "FULL" ||
        std::isfinite(liquid.At("liquid/alk.ph").GetDoubleValue()))
        return false;
    const double calculated = liquid.At(value.calculated).GetDoubleValue();
    const double difference = std::abs(liquid.At(value.iso).GetDoubleValue() - calculated);
    // Without any ions nothing was analysed that could contradict.
    const bool isAnalysed = liquid.At("liquid/sum.c.meql").GetDoubleValue() > 0.0;
    return isAnalysed && difference > std::max(kTenth * calculated, value.agreement);
}

void ClearMeasuredValues(DetailList& liquid)
{
    for (const MeasuredValue& value : kMeasuredValues)
        liquid.At(value.orig).SetValue(kUnknown);
}

}  // namespace water
