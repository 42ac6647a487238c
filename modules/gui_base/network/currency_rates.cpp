// SPDX-License-Identifier: MIT
#include "gui_base/network/currency_rates.h"

#include "core/conversion_rate.h"
#include "gui_base/network/xml_rows.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <optional>

namespace currency_rates {

namespace {

using conversion_rate::kBase;

constexpr const char* kDollar = "USD";
/// By how much the rows of one currency may differ, which are the same number with more or fewer digits.
constexpr double kSame = 1e-6;

std::optional<double> ToNumber(const std::string& text)
{
    double number = 0.0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || last != end || !std::isfinite(number) || number <= 0.0)
        return std::nullopt;
    return number;
}

/// Units for one dollar; nothing for currencies of which the rows say different things, or none.
using Quotes = std::map<std::string, std::optional<double>>;

void Take(Quotes& quotes, const std::string& currency, std::optional<double> quote)
{
    const auto [found, isNew] = quotes.emplace(currency, quote);
    if (isNew)
        return;
    std::optional<double>& known = found->second;
    if (!quote || (known && std::abs(*known - *quote) > kSame * *known))
        known.reset();
}

std::optional<double> QuoteOf(const Quotes& quotes, std::string_view currency)
{
    const auto found = quotes.find(std::string(currency));
    return found == quotes.end() ? std::nullopt : found->second;
}

}  // namespace

Answer Read(std::string_view bytes)
{
    const xml_rows::Shape shape{
        "UN_OPERATIONAL_RATES_DATASET", "UN_OPERATIONAL_RATES", {"f_curr_code", "rate"}};
    const xml_rows::Document document = xml_rows::Read(bytes, shape);
    if (document.problem == xml_rows::Problem::NotWellFormed)
        return {Problem::NotWellFormed, {}};
    Quotes quotes;
    for (const xml_rows::Fields& row : document.rows) {
        const std::string currency = xml_rows::Field(row, "f_curr_code");
        if (conversion_rate::IsCode(currency))
            Take(quotes, currency, ToNumber(xml_rows::Field(row, "rate")));
    }
    const auto euro = QuoteOf(quotes, kBase);
    // Rates that refer to something else than the dollar are none that are understood here.
    Take(quotes, kDollar, 1.0);
    if (!euro || !QuoteOf(quotes, kDollar) || !conversion_rate::IsRate(1.0 / *euro))
        return {Problem::Invalid, {}};
    Answer answer;
    for (const auto& [currency, quote] : quotes) {
        const double rate = currency == kBase ? 1.0 : quote.value_or(0.0) / *euro;
        if (conversion_rate::IsRate(rate))
            answer.rates.emplace(currency, rate);
    }
    return answer;
}

std::set<std::string> Missing(const std::map<std::string, double>& rates, const std::set<std::string>& needed)
{
    std::set<std::string> missing;
    std::ranges::copy_if(needed, std::inserter(missing, missing.end()),
                         [&rates](const std::string& currency) { return !rates.contains(currency); });
    return missing;
}

}  // namespace currency_rates
