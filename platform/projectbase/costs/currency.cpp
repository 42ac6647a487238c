// SPDX-License-Identifier: MIT
#include "projectbase/costs/currency.h"

#include "core/conversion_rate.h"
#include "dbinterfaces/project_database.h"
#include "projectbase/project/project.h"

#include <exception>
#include <string_view>

namespace costs {

ShownCurrency ShownAs(const std::string& code, const Project& project)
{
    const DetailList& details = project.GetDetails();
    double rate = 0.0;
    if (details.At("cost/currency").GetStdStringValue() == code) {
        rate = details.At("cost/currency.rate").GetDoubleValue();
    } else {
        try {
            rate = ProjectDatabase::GetConversionRate(code);
        } catch (const std::exception&) {
            return {};
        }
    }
    return conversion_rate::IsRateOf(code, rate) ? ShownCurrency{code, rate} : ShownCurrency{};
}

ShownCurrency ChosenCurrency(const Project& project)
{
    try {
        return ShownAs(ProjectDatabase::GetUserParameter(kCurrencyParameter, "EUR"), project);
    } catch (const std::exception&) {
        return {};
    }
}

std::string UnitIn(const std::string& unit, const ShownCurrency& currency)
{
    constexpr std::string_view kEuro = conversion_rate::kBase;
    return unit.starts_with(kEuro) ? currency.code + unit.substr(kEuro.size()) : unit;
}

}  // namespace costs
