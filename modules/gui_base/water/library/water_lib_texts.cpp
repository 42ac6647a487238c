// SPDX-License-Identifier: MIT
#include "gui_base/water/library/water_lib_texts.h"

#include "core/number_text.h"
#include "dbinterfaces/master_database.h"
#include "gui_base/dialogs/gui_utils.h"
#include "gui_base/input/form/shown_context.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/report/water_tables.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/rows/ion_rows.h"
#include "gui_base/water/rows/property_rows.h"
#include "projectbase/details/date_text.h"
#include "projectbase/units/unit_system_manager.h"
#include "projectbase/water/detection_limits.h"

#include <array>
#include <cmath>
#include <map>

namespace water_library {

namespace {

/// Names that the databases give to nodes of their own.
[[maybe_unused]] const char* const kNodeNames[]{wxTRANSLATE("User waters"), wxTRANSLATE("International")};

constexpr const char* kPrefix = "liquid/";

template <typename Rows>
void AddLabels(std::map<std::string, wxString>& labels, const Rows& rows)
{
    for (const auto& row : rows)
        labels.emplace(row.key, row.label);
}

/// Labels of the properties that have a row in the analysis, by key.
const std::map<std::string, wxString>& PropertyLabels()
{
    static const std::map<std::string, wxString> labels = [] {
        std::map<std::string, wxString> result;
        AddLabels(result, wateranalysis::kMainProperties);
        AddLabels(result, wateranalysis::kFurtherProperties);
        AddLabels(result, wateranalysis::kAlkalinityRows);
        AddLabels(result, wateranalysis::kEquivalentRows);
        AddLabels(result, std::array{wateranalysis::kBalanceError});
        AddLabels(result, wateranalysis::kSummaryRows);
        return result;
    }();
    return labels;
}

/// Symbols and names of the ions by key; the table never changes while the program runs.
const std::map<std::string, wxString>& IonNames()
{
    static const std::map<std::string, wxString> names = [] {
        std::map<std::string, wxString> result;
        for (const DBObjects::Ion& ion : MasterDatabase::GetIons("%", "%", "%"))
            result[ion.key] = wxString::FromUTF8(ion.name.empty() ? ion.symbol : ion.name);
        return result;
    }();
    return names;
}

wxString NumberText(const std::string& key, double value, int precision)
{
    return wxString::FromUTF8(
        water::TypedText(key, value, {.precision = precision}, NumericValidator::LocaleSeparators()));
}

/// The user's name of an ion that has one, else its label.
wxString IonName(const LiquidData& liquid, const std::string& key)
{
    const DetailData* name = liquid.FindDetail("liquid/" + key + ".name");
    if (name != nullptr && !name->GetStringValue().empty())
        return name->GetStringValue();
    return i18n::Translated(DetailLabel(wxString::FromUTF8(kPrefix + key + ".orig")));
}

/// A number typed in a unit of its own.
void AddTyped(std::vector<DetailLine>& lines, const LiquidData& liquid, const wxString& name,
              const std::string& key, bool zeroCounts = false)
{
    const double value = liquid.GetDetails()->At("liquid/" + key + ".orig").GetDoubleValue();
    if (std::isnan(value) || (value == 0.0 && !zeroCounts))
        return;
    lines.push_back({name, NumberText("liquid/" + key + ".orig", value, 8),
                     liquid.GetDetails()->At("liquid/" + key + ".unit").GetStringValue()});
}

template <typename Rows>
void AddIons(std::vector<DetailLine>& lines, const LiquidData& liquid, const Rows& rows)
{
    for (const wateranalysis::IonRow& row : rows)
        AddTyped(lines, liquid, IonName(liquid, row.key), row.key);
}

void AddNumber(std::vector<DetailLine>& lines, const LiquidData& liquid, const std::string& key,
               const wxString& name, const char* unit, int precision)
{
    const double value = liquid.GetDetails()->At(key).GetDoubleValue();
    if (!std::isnan(value))
        lines.push_back({name, NumberText(key, value, precision),
                         wxString::FromUTF8(UnitSystemManager::GetUnit(unit, "iso", true))});
}

}  // namespace

wxString DetailLabel(const wxString& key)
{
    if (key.Contains("temp"))
        return wxTRANSLATE("Temperature");
    wxString name = key;
    name.StartsWith(kPrefix, &name);
    if (name.EndsWith("orig")) {
        name = name.BeforeLast('.');
        const auto ion = IonNames().find(name.utf8_string());
        return ion != IonNames().end() ? ion->second : name.Upper();
    }
    const auto label = PropertyLabels().find((kPrefix + name).utf8_string());
    return label != PropertyLabels().end() ? label->second : name;
}

CountryNames::CountryNames()
{
    std::unordered_map<std::string, wxString> byCode;
    for (const auto& [code, name] : gui_utils::GetCountries())
        byCode.emplace(code.utf8_string(), name);
    for (const auto& country : MasterDatabase::GetCountries())
        m_names.emplace(country.name, byCode[country.code]);
}

wxString CountryNames::operator()(const std::string& english) const
{
    if (english.empty())
        return i18n::Translated("Not stated");
    const auto found = m_names.find(english);
    return found != m_names.end() ? found->second : i18n::Translated(wxString::FromUTF8(english));
}

std::vector<DetailLine> DetailLines(const LiquidData& liquid)
{
    std::vector<DetailLine> lines;
    const std::string type = liquid.GetDetails()->At("liquid/analysis.type").GetStdStringValue();
    if (type == "SHORT_TDS")
        AddNumber(lines, liquid, "liquid/tds.short", i18n::Translated("TDS"), "mg/l", 8);
    else if (type == "SHORT_COND")
        AddNumber(lines, liquid, "liquid/cond.short", i18n::Translated("Conductivity"), "uS/cm", 8);
    AddIons(lines, liquid, wateranalysis::kCationRows);
    AddIons(lines, liquid, wateranalysis::kAnionRows);
    AddTyped(lines, liquid, i18n::Translated("Temperature"), "temp", true);
    for (const auto& row : wateranalysis::kMainProperties)
        AddNumber(lines, liquid, row.key, i18n::Translated(row.label), row.unit, 8);
    AddTyped(lines, liquid, "CO2", "co2");
    AddTyped(lines, liquid, i18n::Translated("m-value"), "alkalinity.m");
    AddTyped(lines, liquid, i18n::Translated("p-value"), "alkalinity.p");
    for (const auto& row : wateranalysis::kMeasuredRows)
        AddTyped(lines, liquid, i18n::Translated(row.label), row.name, true);
    for (const auto& row : wateranalysis::kFurtherProperties)
        AddNumber(lines, liquid, row.key, i18n::Translated(row.label), row.unit, 8);
    for (const auto& row : wateranalysis::kSummaryRows) {
        const wxString name =
            i18n::WithoutColon(i18n::Translated(row.label) + wxString::FromUTF8(row.labelSuffix));
        AddNumber(lines, liquid, row.key, name, row.unit, row.precision);
    }
    return lines;
}

wxString WaterTypeText(const std::string& code)
{
    return wxString::FromUTF8(wateranalysis::WaterTypeText(code, ShownContext("iso")));
}

wxString SamplingDateText(const LiquidData& liquid)
{
    return DateText(liquid.GetDetails()->At("liquid/sampling.date").GetDateValue());
}

}  // namespace water_library
