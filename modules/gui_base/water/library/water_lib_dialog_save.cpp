// SPDX-License-Identifier: MIT
// How the water library stores the current analysis.
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/rows/property_rows.h"

#include <wx/utils.h>

#include <cmath>

namespace {

constexpr const char* kZero = "0.00000000000000E+000";
constexpr const char* kPrefix = "liquid/";

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

/// English name of the liquid's country, under which the library files it in every language.
std::string CountryName(const LiquidData& liquid)
{
    return MasterDatabase::GetCountry(liquid.GetDetails()->At("liquid/country").GetStdStringValue());
}

std::string Text(const LiquidData& liquid, const char* key)
{
    return liquid.GetDetails()->At(key).GetStdStringValue();
}

/// Of an unknown value empty; so is that of one which no number stands for.
std::string ValueText(const DetailData& detail)
{
    if (detail.GetType() == DetailType::Double && !std::isfinite(detail.GetDoubleValue()))
        return {};
    return detail.GetValueAsString().utf8_string();
}

std::string UnitText(const DetailList& details, const DetailData& detail)
{
    const std::string& key = detail.GetName();
    constexpr std::string_view kTyped = ".orig";
    if (!key.ends_with(kTyped))
        return detail.GetUnit();
    const DetailData* unit = details.GetDetail(key.substr(0, key.size() - kTyped.size()) + ".unit");
    return unit != nullptr ? unit->GetStdStringValue() : std::string();
}

bool SaveDetails(int water, const DetailList& details)
{
    for (const auto& [key, detail] : details) {
        const std::string value = ValueText(detail);
        if (value == kZero)
            continue;
        const std::string label = WaterLibDialog::BuildDetailLabel(wxString::FromUTF8(key)).utf8_string();
        if (!ProjectDatabase::WaterLib_SaveUserLiquidDetail(water, key, value, UnitText(details, detail),
                                                            label, "liquid"))
            return false;
    }
    return true;
}

void Report(std::string* problem, const std::exception& error)
{
    if (problem != nullptr)
        *problem = error.what();
}

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

}  // namespace

wxString WaterLibDialog::BuildDetailLabel(wxString key)
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

bool WaterLibDialog::SaveLiquidData(LiquidData* liquid, std::string* problem)
{
    if (liquid == nullptr || !LiquidIsSaveable(liquid))
        return false;
    wxWindow* const parent = dialogs::DefaultParent();
    try {
        if (CheckDuplicate(liquid) &&
            dialogs::AskYesNo(parent,
                              Tr("Analysis already exists. Do you want to overwrite the existing analysis?"),
                              Tr("Duplicate"), wxICON_WARNING) != wxID_YES)
            return false;
    } catch (const std::exception& error) {
        Report(problem, error);
        return false;
    }
    if (!SaveLiquid(liquid, problem))
        return false;
    dialogs::ShowMessage(parent, Tr("Analysis saved to water library"), Tr("Success"), wxICON_INFORMATION);
    return true;
}

bool WaterLibDialog::LiquidIsSaveable(LiquidData* liquid)
{
    const bool placeMissing = Text(*liquid, "liquid/place").empty();
    const bool sourceMissing = Text(*liquid, "liquid/water.source").empty();
    if (placeMissing || sourceMissing)
        DisplaySaveErrors(placeMissing, sourceMissing);
    return !placeMissing && !sourceMissing;
}

void WaterLibDialog::DisplaySaveErrors(bool placeMissing, bool sourceMissing)
{
    wxString text = Tr("Please enter these values before saving to water library:") + "\n";
    if (placeMissing)
        text += "\n" + Tr("Place");
    if (sourceMissing)
        text += "\n" + Tr("Water source");
    dialogs::ShowMessage(dialogs::DefaultParent(), text, Tr("Analysis could not be saved"), wxICON_WARNING);
}

bool WaterLibDialog::CheckDuplicate(LiquidData* liquid)
{
    const auto country = ProjectDatabase::WaterLib_GetUserCountry(CountryName(*liquid));
    return country.id != -1 &&
           !ProjectDatabase::WaterLib_GetUserWatersByValues(country.id, Text(*liquid, "liquid/place"),
                                                            Text(*liquid, "liquid/water.source"), -1)
                .empty();
}

bool WaterLibDialog::SaveLiquid(LiquidData* liquid, std::string* problem)
{
    const wxBusyCursor busy;
    try {
        ProjectDatabase::Transaction transaction;
        const int country = SaveCountry(wxString::FromUTF8(CountryName(*liquid)));
        const int water = country == -1
                              ? -1
                              : SaveWater(country, liquid->GetDetails()->At("liquid/place").GetStringValue(),
                                          liquid->GetDetails()->At("liquid/water.source").GetStringValue());
        if (water == -1)
            return false;
        // Zeros are not stored, so what an overwritten analysis held must go first.
        ProjectDatabase::WaterLib_DeleteUserLiquidDetails(water);
        if (!SaveDetails(water, *liquid->GetDetails()))
            return false;
        transaction.Commit();
        return true;
    } catch (const std::exception& error) {
        Report(problem, error);
        return false;
    }
}

int WaterLibDialog::SaveCountry(const wxString& name)
{
    const auto country = ProjectDatabase::WaterLib_GetUserCountry(name.utf8_string());
    if (country.id != -1)
        return country.id;
    const int id = ProjectDatabase::GetNextWaterLibCountryId();
    return id != -1 && ProjectDatabase::WaterLib_SaveUserCountry(id, name.utf8_string()) ? id : -1;
}

int WaterLibDialog::SaveWater(long countryId, const wxString& place, const wxString& source)
{
    const int country = static_cast<int>(countryId);
    const auto waters = ProjectDatabase::WaterLib_GetUserWatersByValues(country, place.utf8_string(),
                                                                        source.utf8_string(), -1);
    if (!waters.empty())
        return waters.front().id;
    const int id = ProjectDatabase::GetNextWaterLibWatersId();
    return id != -1 && ProjectDatabase::WaterLib_SaveUserWater(id, country, place.utf8_string(),
                                                               source.utf8_string())
               ? id
               : -1;
}
