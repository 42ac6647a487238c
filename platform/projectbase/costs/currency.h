// SPDX-License-Identifier: MIT
#pragma once

/// In which currency money is shown. All amounts of a project are in euro; windows and reports multiply them
/// by the factor when they show them. Results for other programs stay in euro.

#include "projectbase/projectbase_export.h"

#include <string>

class Project;

namespace costs {

/// The user parameter that holds the code of the currency on display.
inline constexpr const char* kCurrencyParameter = "/Settings/Currency";

struct ShownCurrency
{
    std::string code = "EUR";
    double factor = 1.0;  ///< units for one euro

    bool operator==(const ShownCurrency&) const = default;
};

/// How a currency is shown: by the project's own rate where it is the project's currency, else by that of the
/// user database; in euro where neither has a sound rate or the database cannot be read.
PROJECTBASE_EXPORT ShownCurrency ShownAs(const std::string& code, const Project& project);
/// The one that the user chose.
PROJECTBASE_EXPORT ShownCurrency ChosenCurrency(const Project& project);

/// Whether amounts in that unit are money: "EUR" and what begins with it.
PROJECTBASE_EXPORT bool IsMoney(const std::string& unit);
/// The unit of an amount in that currency: "USD/m3" of "EUR/m3". Another unit stays.
PROJECTBASE_EXPORT std::string UnitIn(const std::string& unit, const ShownCurrency& currency);

}  // namespace costs
