// SPDX-License-Identifier: MIT
#include "projectbase/advice/water_numbers.h"

#include "core/ion_table.h"
#include "projectbase/costs/project_costs.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/sequence/sequence_calculation.h"
#include "projectbase/water/alkalinity.h"
#include "projectbase/water/alkalization.h"
#include "projectbase/water/detection_limits.h"
#include "projectbase/water/laboratory_import.h"
#include "projectbase/water/normalization.h"
#include "projectbase/water/totals.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <string_view>

namespace advice {

namespace {

/// mmol/l; not a number of what was not analysed, for which a sheet has no amount or none at all.
double Millimoles(const DetailList& liquid, std::string_view ion)
{
    const double mass = liquid.At(fmt::format("liquid/{}.mgl", ion)).GetDoubleValue();
    if (mass == 0.0 && !water::IsBelowDetection(liquid, ion))
        return kNotKnown;
    return mass / ions::FindIon(ion)->molarMass;
}

/// A sum that is exactly nothing because none of its ions was analysed is not known; one of limits of
/// detection is.
double UnlessNothing(const DetailList& liquid, double sum, std::initializer_list<std::string_view> ions)
{
    const auto isLimit = [&liquid](std::string_view ion) { return water::IsBelowDetection(liquid, ion); };
    return sum == 0.0 && std::ranges::none_of(ions, isLimit) ? kNotKnown : sum;
}

double OrNothing(double amount)
{
    return std::isnan(amount) ? 0.0 : amount;
}

double CarbonOf(const DetailList& liquid, const WaterNumbers& numbers)
{
    if (std::isnan(numbers.m))
        return kNotKnown;
    if (std::isfinite(numbers.p) || std::isfinite(water::PhOf(liquid))) {
        constexpr double kRounding = 1e-6;
        const double carbon = numbers.m - numbers.p;
        // A titration that found more to pH 8.2 than to 4.3 contradicts itself.
        return carbon < -kRounding * std::max(1.0, std::abs(numbers.m)) ? kNotKnown : std::max(0.0, carbon);
    }
    return std::max(0.0, numbers.m) + water::Co2Of(liquid);
}

/// Of the pH, as the calculator has it; else what is neither bicarbonate nor carbonate; where neither pH nor
/// p-value tells it, what was typed.
double FreeCo2(const DetailList& liquid, const WaterNumbers& numbers)
{
    const water::Composition composition = water::WholeComposition(liquid);
    const double celsius = liquid.At("liquid/temp").GetDoubleValue();
    const double stated = water::Co2Of(liquid);
    // Without the alkalinity the pH tells nothing of CO2.
    if (std::isnan(numbers.m))
        return stated > 0.0 ? stated : kNotKnown;
    if (const double co2 = water::Co2OfPh(composition, water::PhOf(liquid), celsius); std::isfinite(co2))
        return co2;
    if (std::isnan(numbers.p))
        return std::isnan(numbers.carbon) || stated == 0.0 ? kNotKnown : stated;
    return std::max(0.0,
                    numbers.carbon - composition[water::Species::Hco3] - composition[water::Species::Co3]);
}

void SetCations(const DetailList& liquid, bool isClosed, WaterNumbers& numbers)
{
    const auto value = [&liquid](const char* key) { return liquid.At(key).GetDoubleValue(); };
    numbers.cations = value("liquid/sum.c.meql") + (isClosed ? value("liquid/na.plus.meql") : 0.0);
    if (liquid.At("liquid/balance.ph").GetBoolValue())
        numbers.cations -= value("liquid/h.plus.meql");
    numbers.hardness = UnlessNothing(liquid, value("liquid/hardness.total"), {"ca", "mg"});
}

void SetAnions(const DetailList& liquid, WaterNumbers& numbers)
{
    const auto value = [&liquid](const char* key) { return liquid.At(key).GetDoubleValue(); };
    if (water::IsAlkalinityKnown(liquid)) {
        numbers.m = value("liquid/alkalinity.m");
        numbers.p = value("liquid/alkalinity.p");
    }
    numbers.acidity =
        UnlessNothing(liquid, value("liquid/ema"), {"cl", "so4", "no3", "no2", "f", "br", "po4"});
    numbers.carbon = CarbonOf(liquid, numbers);
    numbers.silica = Millimoles(liquid, "sio2");
    numbers.boron = Millimoles(liquid, "b");
    numbers.co2 = FreeCo2(liquid, numbers);
}

/// By what is counted now.
WaterNumbers NumbersAsCounted(const DetailList& liquid)
{
    const auto value = [&liquid](const char* key) { return liquid.At(key).GetDoubleValue(); };
    WaterNumbers numbers;
    const bool isClosed = liquid.At("liquid/balance.auto").GetBoolValue();
    // A side of which nothing was analysed yet is not known to be nothing.
    if (value("liquid/sum.c.meql") > 0.0 || (isClosed && value("liquid/na.plus.meql") > 0.0))
        SetCations(liquid, isClosed, numbers);
    if (value("liquid/sum.a.meql") > 0.0 || (isClosed && value("liquid/cl.plus.meql") > 0.0))
        SetAnions(liquid, numbers);
    if (std::isfinite(numbers.hardness + numbers.m))
        numbers.carbonate = value("liquid/hardness.carbonate");
    numbers.nonCarbonate = numbers.hardness - numbers.carbonate;
    numbers.sodiumAlkalinity =
        std::isnan(numbers.m) ? kNotKnown : std::max(0.0, numbers.m - numbers.hardness);
    numbers.hardnessLoad = numbers.hardness;
    numbers.carbonateLoad = numbers.carbonate;
    numbers.acidityByCations = numbers.cations - numbers.m;
    numbers.anionLoad =
        numbers.acidity + numbers.carbon + OrNothing(numbers.silica) + OrNothing(numbers.boron);
    return numbers;
}

/// Of the same water as if all of every limit of detection had been found: what closes its balance and the
/// CO2 of its pH are then others, too.
WaterNumbers NumbersInFull(const DetailList& liquid)
{
    DetailList full(liquid);
    full.At("liquid/limits").SetValue(water::CodeOf(laboratory::LimitReading::Limit));
    water::NormalizeEveryIon(full);
    water::UpdateDerivedValues(full);
    water::CalculateAlkalization(full);
    return NumbersAsCounted(full);
}

}  // namespace

WaterNumbers NumbersOf(const DetailList& liquid)
{
    if (liquid.At("liquid/analysis.type").GetStdStringValue() != "FULL")
        return {};
    const WaterNumbers counted = NumbersAsCounted(liquid);
    if (water::ShareOfLimits(liquid) == 1.0 || !water::HasDetectionLimits(liquid))
        return counted;
    WaterNumbers numbers = NumbersInFull(liquid);
    // What the analysis shows as well stays as it is there.
    for (double WaterNumbers::*shown :
         {&WaterNumbers::hardness, &WaterNumbers::carbonate, &WaterNumbers::nonCarbonate,
          &WaterNumbers::sodiumAlkalinity, &WaterNumbers::m, &WaterNumbers::p, &WaterNumbers::co2})
        numbers.*shown = counted.*shown;
    return numbers;
}

double AnionLoadBehindDegasser(const WaterNumbers& numbers, double residual)
{
    const double left = residual / ions::FindIon("co2")->molarMass;
    if (std::isnan(left) || std::isnan(numbers.carbon))
        return kNotKnown;
    return numbers.anionLoad - std::max(0.0, numbers.carbon - left);
}

DailyLoads LoadsOfDay(const WaterNumbers& numbers, double volume)
{
    return {.cations = volume * numbers.cations,
            .hardness = volume * numbers.hardnessLoad,
            .carbonate = volume * numbers.carbonateLoad,
            .acidity = volume * numbers.acidity,
            .anions = volume * numbers.anionLoad};
}

double HardnessIn(double meq, std::string_view unit)
{
    struct Degree
    {
        std::string_view unit;
        double calciumCarbonate;  ///< mg/l
    };
    constexpr std::array kDegrees{Degree{"ppm CaCO3", 1.0}, Degree{"\u00b0d", 17.848},
                                  Degree{"\u00b0f", 10.0}, Degree{"\u00b0e", 14.254}};
    const auto* const degree = std::ranges::find(kDegrees, unit, &Degree::unit);
    return degree == kDegrees.end() ? kNotKnown
                                    : 1e3 * kKilogramCaCo3PerEquivalent * meq / degree->calciumCarbonate;
}

double VolumeOfDay(const Project& project)
{
    const auto* plant = dynamic_cast<const iex::IEXProject*>(&project);
    if (plant == nullptr)
        return kNotKnown;
    constexpr double kDaysOfYear = 365.0;
    const auto value = [&project](const char* key) { return project.GetDetails().At(key).GetDoubleValue(); };
    const double running = value("project/lz");
    if (!(running > 0.0))
        return kNotKnown;
    constexpr double kHoursOfDay = 24.0;
    // Where no regeneration stops it the plant runs for the hours of a day that it is to.
    const bool isStopped = sequence::TotalsOf(*plant).time > 0.0;
    const double hours =
        isStopped ? running * costs::CyclesPerYear(*plant) / kDaysOfYear : std::min(running, kHoursOfDay);
    return value("project/qbrutto") * value("project/nlines") * hours;
}

double ResidualCo2Of(const Project& project)
{
    for (const auto& exchanger : project.GetRoot().GetChildren(OwnerKind::Exchanger)) {
        if (exchanger->GetDetails()->At("step/kind").GetStdStringValue() == "DEGAS")
            return exchanger->GetDetails()->At("step/co2.residual").GetDoubleValue();
    }
    return kNotKnown;
}

double DesignLoad(const Project& project, const DailyLoads& loads)
{
    const std::string& type = project.GetModuleType();
    if (type.starts_with("SOFT"))
        return loads.hardness;
    return type.starts_with("DEALK") ? loads.carbonate : loads.anions;
}

}  // namespace advice
