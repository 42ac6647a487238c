// SPDX-License-Identifier: MIT
#include "projectbase/water/laboratory_import.h"

#include "core/ion_units.h"
#include "projectbase/water/ion_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace water {
namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
/// Properties that a laboratory reports beside the ions.
constexpr std::array<const char*, 8> kProperties{"ph",  "turbidity", "sdi",     "tss",
                                                 "toc", "fe.total",  "cl.free", "h2s"};

struct Place
{
    std::string key;
    std::string unitKey;
};

bool IsAlkalinity(std::string_view target)
{
    return target.starts_with("alkalinity.");
}

Place PlaceOf(const std::string& target)
{
    const std::string prefix = "liquid/" + target;
    const bool hasUnit =
        target == "temp" || target == "co2" || IsAlkalinity(target) || FindIonRow(target) != nullptr;
    return hasUnit ? Place{prefix + ".orig", prefix + ".unit"} : Place{prefix, {}};
}

/// A unit that the choices of the analysis offer; temperatures have their own.
bool IsOffered(const std::string& unit, const std::string& target)
{
    if (IsAlkalinity(target))
        return std::ranges::find(ions::kAlkalinityUnits, unit) != ions::kAlkalinityUnits.end();
    return target == "temp" ||
           std::find(ions::kIonUnits.begin(), ions::kIonUnits.end(), unit) != ions::kIonUnits.end();
}

void Append(std::vector<std::pair<std::string, std::string>>& values, const DetailList& liquid,
            const std::string& title, const Place& place)
{
    const double value = liquid.At(place.key).GetDoubleValue();
    if (!std::isfinite(value) || (value == 0.0 && title != "Temperature" && title != "pH"))
        return;
    const std::string unit =
        place.unitKey.empty() ? liquid.At(place.key).GetUnit() : liquid.At(place.unitKey).GetStdStringValue();
    values.emplace_back(unit.empty() ? title : title + " [" + unit + "]", fmt::format("{}", value));
}

}  // namespace

std::vector<TakenValue> TakeSample(const laboratory::File& file, std::size_t sample, const DetailList& liquid)
{
    std::vector<TakenValue> values;
    for (std::size_t i = 0; i < file.parameters.size(); ++i) {
        const laboratory::Parameter& parameter = file.parameters[i];
        if (parameter.target.empty() || !parameter.unitIsKnown)
            continue;
        const auto number = file.GetNumber(sample, i);
        const Place place = PlaceOf(parameter.target);
        const bool isTaken = std::any_of(values.begin(), values.end(),
                                         [&](const TakenValue& value) { return value.key == place.key; });
        if (!number || isTaken || liquid.GetDetail(place.key) == nullptr ||
            (*number < 0.0 && parameter.target != "temp" && !IsAlkalinity(parameter.target)) ||
            (!place.unitKey.empty() && !IsOffered(parameter.unit, parameter.target)))
            continue;
        values.push_back({i, place.key, place.unitKey, *number, parameter.unit});
    }
    return values;
}

void StoreSample(const std::vector<TakenValue>& values, DetailList& liquid, bool clearOthers)
{
    if (clearOthers) {
        for (const IonRow& row : IonRows())
            liquid.At(row.orig).SetValue(0.0);
        for (const char* value : {"liquid/co2.orig", "liquid/alkalinity.m.orig", "liquid/alkalinity.p.orig"})
            liquid.At(value).SetValue(0.0);
        for (const char* property : kProperties)
            liquid.At(std::string("liquid/") + property).SetValue(kUnknown);
    }
    liquid.At("liquid/analysis.type").SetValue("FULL");
    for (const TakenValue& value : values) {
        liquid.At(value.key).SetValue(value.value);
        if (!value.unitKey.empty())
            liquid.At(value.unitKey).SetValue(value.unit);
    }
}

std::string WriteLaboratoryFile(const DetailList& liquid)
{
    std::vector<std::pair<std::string, std::string>> values;
    for (const auto& [title, key] :
         {std::pair("Country", "country"), {"Place", "place"}, {"Water source", "water.source"}}) {
        const DetailData* detail = liquid.GetDetail(std::string("liquid/") + key);
        if (detail != nullptr && !detail->GetStdStringValue().empty())
            values.emplace_back(title, detail->GetStdStringValue());
    }
    Append(values, liquid, "Temperature", PlaceOf("temp"));
    Append(values, liquid, "pH", PlaceOf("ph"));
    Append(values, liquid, "m-value", PlaceOf("alkalinity.m"));
    Append(values, liquid, "p-value", PlaceOf("alkalinity.p"));
    for (const IonRow& row : IonRows())
        if (!row.isNamed && row.ion != "h.plus" && row.ion != "oh.minus")
            Append(values, liquid, row.ion, {row.orig, row.unit});
    Append(values, liquid, "CO2", PlaceOf("co2"));
    for (const char* property : kProperties)
        if (std::string_view(property) != "ph")
            Append(values, liquid, property, PlaceOf(property));
    return laboratory::Write(values);
}

}  // namespace water
