// SPDX-License-Identifier: MIT
#include "gui_base/network/currency_table.h"

#include "core/conversion_rate.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/dialogs/gui_utils.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "projectbase/details/date_text.h"

#include <wx/datetime.h>

#include <cmath>
#include <map>

namespace currency_table {

namespace {

constexpr int kDecimals = 4;
/// Of rates of which four decimals would show a digit at most.
constexpr int kMoreDecimals = 9;
constexpr double kSmall = 1e-3;

wxString DayText(const std::string& iso)
{
    wxDateTime day;
    return day.ParseISODate(iso) ? DateText(day) : wxString();
}

}  // namespace

std::vector<Currency> Load()
{
    std::map<wxString, Currency> currencies;
    for (const auto& [code, name] : gui_utils::GetCurrencies())
        currencies[code] = {code, name, std::nan(""), false, {}};
    for (const DBObjects::ConversionRate& rate : ProjectDatabase::GetConversionRates()) {
        const wxString code = wxString::FromUTF8(rate.currency);
        currencies[code] = {code, currencies[code].name, rate.rate, rate.isTyped, DayText(rate.day)};
    }
    std::vector<Currency> rows;
    for (auto& [code, currency] : currencies)
        rows.push_back(std::move(currency));
    return rows;
}

wxString RateText(double rate)
{
    const bool isSmall = rate < kSmall;
    const numbertext::Style style{.format = TvTextCtrlFormat::Fixed,
                                  .precision = isSmall ? kMoreDecimals : kDecimals,
                                  .trimZeros = isSmall};
    return wxString::FromUTF8(numbertext::Format(rate, style, NumericValidator::LocaleSeparators()));
}

std::optional<double> ParseRate(const wxString& text)
{
    const auto rate = NumericValidator::ParseNumber(text);
    return rate && conversion_rate::IsRate(*rate) ? rate : std::nullopt;
}

}  // namespace currency_table
