// SPDX-License-Identifier: MIT
#include "projectbase/water/laboratory_import.h"

#include "core/detection_limit.h"
#include "core/ion_table.h"
#include "core/ion_units.h"
#include "dbinterfaces/master_database.h"
#include "projectbase/water/detection_limits.h"
#include "projectbase/water/ion_rows.h"
#include "projectbase/water/measured_values.h"
#include "projectbase/water/typed_units.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace water {
namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t kLongestText = 10'000;

struct Property
{
    const char* target;
    const char* title;  ///< in files that are written
};
/// Numbers that a laboratory reports beside the ions.
constexpr std::array kProperties{Property{"ph", "pH"},
                                 Property{"turbidity", "Turbidity"},
                                 Property{"sdi", "SDI"},
                                 Property{"tss", "TSS"},
                                 Property{"oil", "Oil"},
                                 Property{"toc", "TOC"},
                                 Property{"fe.total", "Total iron"},
                                 Property{"cl.free", "Free chlorine"},
                                 Property{"h2s", "H2S"}};
constexpr std::array kTexts{Property{"x1.name", "Name of cation 1"},  Property{"x2.name", "Name of cation 2"},
                            Property{"y1.name", "Name of anion 1"},   Property{"y2.name", "Name of anion 2"},
                            Property{"country", "Country"},           Property{"place", "Place"},
                            Property{"water.source", "Water source"}, Property{"comments", "Comments"}};

struct ReadingCode
{
    laboratory::LimitReading reading;
    std::string_view code;
    double share;
};
constexpr std::array kReadings{ReadingCode{laboratory::LimitReading::Zero, "ZERO", 0.0},
                               ReadingCode{laboratory::LimitReading::Half, "HALF", 0.5},
                               ReadingCode{laboratory::LimitReading::Limit, "LIMIT", 1.0}};

const ReadingCode& Find(laboratory::LimitReading reading)
{
    return *std::ranges::find(kReadings, reading, &ReadingCode::reading);
}

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
    const bool isMeasured =
        std::ranges::any_of(kMeasuredValues, [&](const MeasuredValue& value) { return prefix == value.iso; });
    const bool hasUnit = target == "temp" || target == "co2" || isMeasured || IsAlkalinity(target) ||
                         FindIonRow(target) != nullptr;
    return hasUnit ? Place{prefix + ".orig", prefix + ".unit"} : Place{prefix, {}};
}

/// The code of a country that is given by it, or by its English name; empty where there is none.
std::string CountryCode(const std::string& text)
{
    if (!MasterDatabase::GetCountry(text).empty())
        return text;
    const auto countries = MasterDatabase::GetCountries();
    const auto found = std::ranges::find(countries, text, &DBObjects::Country::name);
    return found == countries.end() ? std::string() : found->code;
}

std::optional<TakenValue> TakeText(const std::string& cell, const std::string& target)
{
    TakenValue taken{.key = "liquid/" + target, .unitKey = {}, .unit = {}, .text = cell};
    if (target == "country" && !cell.empty())
        taken.text = CountryCode(cell);
    return taken.text.empty() || cell.size() > kLongestText ? std::nullopt : std::optional(taken);
}

std::optional<TakenValue> TakeNumber(const std::optional<laboratory::Number>& number,
                                     const laboratory::Parameter& parameter, laboratory::LimitReading limits)
{
    const bool mayBeNegative = parameter.target == "temp" || IsAlkalinity(parameter.target);
    const Place place = PlaceOf(parameter.target);
    if (!number || (number->value < 0.0 && !mayBeNegative) ||
        (!place.unitKey.empty() && TypedUnit(place.key, parameter.unit) != parameter.unit))
        return std::nullopt;
    double value = number->value;
    if (parameter.acidLeft > 0.0 && value > 0.0)
        value = std::max(0.0, value - ions::FromMeqPerLitre(parameter.acidLeft, parameter.unit, 1.0));
    if (number->isLimit)
        value = TakesDetectionLimit(place.key) ? detection_limit::Make(value) : value * ShareOf(limits);
    return TakenValue{.key = place.key,
                      .unitKey = place.unitKey,
                      .value = value,
                      .unit = parameter.unit,
                      .isLimit = number->isLimit,
                      .acidLeft = parameter.acidLeft};
}

/// The titles with their texts of one water.
class SampleWriter
{
public:
    explicit SampleWriter(const DetailList& liquid) : m_liquid(liquid) {}

    void AddText(const char* title, const std::string& text)
    {
        if (!text.empty())
            m_values.emplace_back(title, text);
    }
    /// A value that is not known, or 0 where that means the same, is blank.
    void AddNumber(const std::string& title, const Place& place, bool zeroCounts = false)
    {
        const double value = m_liquid.At(place.key).GetDoubleValue();
        const bool isStated = std::isfinite(value) && (value != 0.0 || zeroCounts);
        const bool isLimit = TakesDetectionLimit(place.key) && detection_limit::Is(value);
        if (isStated)
            m_values.emplace_back(WithUnit(title, place),
                                  isLimit ? fmt::format("<{}", -value) : fmt::format("{}", value));
    }
    /// Titles without which a head could be taken for a sample.
    void AddTitle(const std::string& title, const Place& place)
    {
        m_values.emplace_back(WithUnit(title, place), "");
    }
    std::vector<laboratory::TitledText> Take() { return std::move(m_values); }

private:
    std::string WithUnit(const std::string& title, const Place& place) const
    {
        const std::string unit = place.unitKey.empty() ? m_liquid.At(place.key).GetUnit()
                                                       : m_liquid.At(place.unitKey).GetStdStringValue();
        return unit.empty() ? title : title + " [" + unit + "]";
    }

    const DetailList& m_liquid;
    std::vector<laboratory::TitledText> m_values;
};

std::vector<laboratory::TitledText> SampleOf(const NamedWater& water)
{
    SampleWriter writer(water.details);
    writer.AddText("Sample", water.name);
    for (const auto& [target, title] : kTexts)
        writer.AddText(title, water.details.At(std::string("liquid/") + target).GetStdStringValue());
    for (const auto& [target, title] : {Property{"temp", "Temperature"}, kProperties.front()}) {
        writer.AddTitle(title, PlaceOf(target));
        writer.AddNumber(title, PlaceOf(target), true);
    }
    writer.AddNumber("m-value", PlaceOf("alkalinity.m"));
    writer.AddNumber("p-value", PlaceOf("alkalinity.p"));
    writer.AddNumber("Total hardness", PlaceOf("hardness.measured"), true);
    writer.AddNumber("Conductivity 25 \u00b0C", PlaceOf("cond25.measured"), true);
    for (const IonRow& row : IonRows()) {
        const auto ion = std::ranges::find(ions::kIonTable, row.ion, &ions::Ion::key);
        // H+ and OH- have no names in analyses: they follow from the pH.
        if (!ion->spellings.empty())
            writer.AddNumber(row.isNamed ? ion->label : row.ion, {row.orig, row.unit});
    }
    writer.AddNumber("CO2", PlaceOf("co2"));
    for (const auto& [target, title] : kProperties)
        if (title != kProperties.front().title)
            writer.AddNumber(title, PlaceOf(target), true);
    return writer.Take();
}

}  // namespace

laboratory::LimitReading LimitReadingOf(std::string_view code)
{
    const auto found = std::ranges::find(kReadings, code, &ReadingCode::code);
    return found == kReadings.end() ? laboratory::LimitReading::Half : found->reading;
}

std::string CodeOf(laboratory::LimitReading reading)
{
    return std::string(Find(reading).code);
}

double ShareOf(laboratory::LimitReading reading)
{
    return Find(reading).share;
}

std::vector<TakenValue> TakeSample(const laboratory::File& file, std::size_t sample, const DetailList& liquid,
                                   laboratory::LimitReading limits)
{
    std::vector<TakenValue> values;
    for (std::size_t i = 0; i < file.parameters.size(); ++i) {
        const laboratory::Parameter& parameter = file.parameters[i];
        // What the file calls its sample is no property of the water.
        if (parameter.target.empty() || !parameter.unitIsKnown || parameter.target == "sample")
            continue;
        auto taken = parameter.isText ? TakeText(file.samples.at(sample).at(i), parameter.target)
                                      : TakeNumber(file.GetNumber(sample, i), parameter, limits);
        if (!taken || liquid.GetDetail(taken->key) == nullptr ||
            std::ranges::find(values, taken->key, &TakenValue::key) != values.end())
            continue;
        taken->parameter = i;
        values.push_back(std::move(*taken));
    }
    return values;
}

void StoreSample(const std::vector<TakenValue>& values, DetailList& liquid, laboratory::LimitReading limits,
                 bool clearOthers)
{
    if (clearOthers) {
        for (const IonRow& row : IonRows())
            liquid.At(row.orig).SetValue(0.0);
        for (const char* value : {"liquid/co2.orig", "liquid/alkalinity.m.orig", "liquid/alkalinity.p.orig"})
            liquid.At(value).SetValue(0.0);
        for (const Property& property : kProperties)
            liquid.At(std::string("liquid/") + property.target).SetValue(kUnknown);
        ClearMeasuredValues(liquid);
    }
    liquid.At("liquid/analysis.type").SetValue("FULL");
    if (std::ranges::any_of(values, &TakenValue::isLimit))
        liquid.At("liquid/limits").SetValue(CodeOf(limits));
    for (const TakenValue& value : values) {
        if (value.text.empty())
            liquid.At(value.key).SetValue(value.value);
        else
            liquid.At(value.key).SetValue(value.text);
        if (!value.unitKey.empty())
            liquid.At(value.unitKey).SetValue(value.unit);
    }
}

std::string WriteLaboratoryFile(const std::vector<NamedWater>& waters)
{
    std::vector<std::vector<laboratory::TitledText>> samples;
    for (const NamedWater& water : waters)
        samples.push_back(SampleOf(water));
    return laboratory::Write(samples);
}

}  // namespace water
