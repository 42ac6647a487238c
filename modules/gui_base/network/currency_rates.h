// SPDX-License-Identifier: MIT
#pragma once

/// What the public service of exchange rates answers: a row for each country with the currency and how many
/// units of it one US dollar is worth. Currencies of several countries stand there several times.

#include "gui_base/gui_base_export.h"

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace currency_rates {

enum class Problem
{
    None,
    NotWellFormed,
    Invalid  ///< another document, or one without a sound rate of the euro
};

struct Answer
{
    Problem problem = Problem::None;
    /// Units for one euro. Rows that are no rate, and currencies whose rows say different things, are not
    /// among them. The US dollar, to which the service refers, always is.
    std::map<std::string, double> rates;
};

/// Numbers are written with a point and without separators of thousands, whatever the user's locale.
GUI_BASE_EXPORT Answer Read(std::string_view bytes);

/// Which of the currencies the rates lack.
GUI_BASE_EXPORT std::set<std::string> Missing(const std::map<std::string, double>& rates,
                                              const std::set<std::string>& needed);

}  // namespace currency_rates
