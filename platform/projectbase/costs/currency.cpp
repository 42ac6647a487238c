// SPDX-License-Identifier: MIT
#include "projectbase/costs/currency.h"

#include "core/conversion_rate.h"
#include "dbinterfaces/project_database.h"
#include "projectbase/project/project.h"

#include <exception>

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

bool IsMoney(const std::string& unit)
{
    return unit.starts_with(conversion_rate::kBase);
}

std::string UnitIn(const std::string& unit, const ShownCurrency& currency)
{
    return IsMoney(unit) ? currency.code + unit.substr(conversion_rate::kBase.size()) : unit;
}

}  // namespace costs
