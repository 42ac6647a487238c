// SPDX-License-Identifier: MIT
#include "projectbase/library/water_store.h"

#include "core/text_limits.h"
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "projectbase/water/blend_recipe.h"
#include "projectbase/water/measured_values.h"
#include "projectbase/water/normalization.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace water_store {
namespace {

constexpr const char* kZero = "0.00000000000000E+000";
constexpr const char* kGroup = "liquid";
/// A value that waters did not have when the first ones were filed, and one that came before it and is never
/// zero: a water without both was filed when nobody could know the later one.
constexpr std::string_view kAddedLater = "liquid/oil";
constexpr std::string_view kAddedBefore = "liquid/limits";

std::string Text(const LiquidData& liquid, const char* key)
{
    return liquid.GetDetails()->At(key).GetStdStringValue();
}

/// Where a water is filed.
struct Address
{
    std::string country;  ///< in English, whatever language the program speaks
    std::string place;
    std::string source;
};

Address AddressOf(const LiquidData& liquid)
{
    return {MasterDatabase::GetCountry(Text(liquid, "liquid/country")), Text(liquid, "liquid/place"),
            Text(liquid, "liquid/water.source")};
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

bool StoreDetails(int water, const DetailList& details, const LabelOf& labelOf)
{
    for (const auto& [key, detail] : details) {
        if (water::IsOfRecipe(key))
            continue;
        const std::string value = ValueText(detail);
        if (value != kZero && !ProjectDatabase::WaterLib_SaveUserLiquidDetail(
                                  water, key, value, UnitText(details, detail), labelOf(key), kGroup))
            return false;
    }
    return true;
}

}  // namespace

Missing FindMissing(const LiquidData& liquid)
{
    return {.place = Text(liquid, "liquid/place").empty(),
            .source = Text(liquid, "liquid/water.source").empty()};
}

bool HasDuplicate(const LiquidData& liquid)
{
    const Address address = AddressOf(liquid);
    const auto country = ProjectDatabase::WaterLib_GetUserCountry(address.country);
    return country.id != -1 &&
           !ProjectDatabase::WaterLib_GetUserWatersByValues(country.id, address.place, address.source, -1)
                .empty();
}

int SaveCountry(const std::string& name)
{
    const auto country = ProjectDatabase::WaterLib_GetUserCountry(name);
    if (country.id != -1)
        return country.id;
    const int id = ProjectDatabase::GetNextWaterLibCountryId();
    return id != -1 && ProjectDatabase::WaterLib_SaveUserCountry(id, name) ? id : -1;
}

int SaveWater(int country, const std::string& place, const std::string& source)
{
    const auto waters = ProjectDatabase::WaterLib_GetUserWatersByValues(country, place, source, -1);
    if (!waters.empty())
        return waters.front().id;
    const int id = ProjectDatabase::GetNextWaterLibWatersId();
    return id != -1 && ProjectDatabase::WaterLib_SaveUserWater(id, country, place, source) ? id : -1;
}

bool Store(const LiquidData& liquid, const LabelOf& labelOf)
{
    ProjectDatabase::Transaction transaction;
    const Address address = AddressOf(liquid);
    const int country = SaveCountry(address.country);
    const int water = country == -1 ? -1 : SaveWater(country, address.place, address.source);
    if (water == -1)
        return false;
    // Zeros are not stored, so what an overwritten water held must go first.
    ProjectDatabase::WaterLib_DeleteUserLiquidDetails(water);
    if (!StoreDetails(water, *liquid.GetDetails(), labelOf))
        return false;
    transaction.Commit();
    return true;
}

void Apply(const std::vector<DBObjects::WaterLibAttr>& stored, LiquidData& liquid)
{
    DetailList& details = *liquid.GetDetails();
    details.LoadGroup(kGroup, "BASE");
    for (auto& [key, detail] : details) {
        if (detail.GetType() == DetailType::Double)
            detail.ClearValue();
    }
    water::ClearRecipe(details);
    for (const DBObjects::WaterLibAttr& value : stored) {
        DetailData* const detail = water::IsOfRecipe(value.key) ? nullptr : details.GetDetail(value.key);
        if (detail != nullptr)
            detail->SetValueFromString(wxString::FromUTF8(
                std::string(text_limits::Cut(value.value, text_limits::MostOf(value.key)))));
    }
    // Zeros are not stored; but a water without the unit was stored before such values were known.
    const auto isStored = [&stored](std::string_view key) {
        return std::ranges::find(stored, key, &DBObjects::WaterLibAttr::key) != stored.end();
    };
    for (const water::MeasuredValue& value : water::kMeasuredValues) {
        if (!isStored(value.unit))
            details.At(value.orig).SetValue(std::numeric_limits<double>::quiet_NaN());
    }
    if (!isStored(kAddedLater) && !isStored(kAddedBefore))
        details.At(kAddedLater).SetValue(std::numeric_limits<double>::quiet_NaN());
    water::NormalizeEveryIon(details);
    water::UpdateDerivedValues(details);
}

}  // namespace water_store
