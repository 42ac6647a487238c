// SPDX-License-Identifier: MIT
// The conversion rates in the user database.
#include "core/conversion_rate.h"
#include "dbinterfaces/project_database.h"
#include "dbinterfaces/user_session.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <ctime>
#include <limits>

namespace {

using user_session::Run;

std::string Today()
{
    return fmt::format("{:%Y-%m-%d}", fmt::gmtime(std::time(nullptr)));
}

void RequireRate(const std::string& currency, double rate)
{
    using Kind = DatabaseError::Kind;
    if (!conversion_rate::IsCode(currency))
        throw DatabaseError(Kind::OutOfRange, fmt::format("'{}' is no code of a currency",
                                                          std::string_view(currency).substr(0, 40)));
    if (!conversion_rate::IsRateOf(currency, rate))
        throw DatabaseError(Kind::OutOfRange, fmt::format("{} is no rate of {}", rate, currency));
}

/// Stores rates, in the place of those that the currencies had.
void Upsert(soci::session& session, const std::map<std::string, double>& rates, bool isTyped)
{
    std::string currency;
    double rate = 0.0;
    const int typed = isTyped ? 1 : 0;
    const std::string day = Today();
    soci::statement statement =
        (session.prepare << "INSERT INTO tarnvik_conversion_rate (currency, rate, typed, day) "
                            "VALUES (:currency, :rate, :typed, :day) "
                            "ON CONFLICT (currency) DO UPDATE SET rate = excluded.rate, "
                            "typed = excluded.typed, day = excluded.day",
         soci::use(currency), soci::use(rate), soci::use(typed), soci::use(day));
    for (const auto& row : rates) {
        std::tie(currency, rate) = row;
        statement.execute(true);
    }
}

}  // namespace

double ProjectDatabase::GetConversionRate(const std::string& currency)
{
    return Run("GetConversionRate", [&](soci::session& session, const std::string&) {
        double rate = 0.0;
        session << "SELECT rate FROM tarnvik_conversion_rate WHERE currency = :currency", soci::use(currency),
            soci::into(rate);
        return session.got_data() ? rate : std::numeric_limits<double>::quiet_NaN();
    });
}

std::vector<DBObjects::ConversionRate> ProjectDatabase::GetConversionRates()
{
    return Run("GetConversionRates", [](soci::session& session, const std::string&) {
        std::vector<DBObjects::ConversionRate> rates;
        DBObjects::ConversionRate row;
        int typed = 0;
        soci::statement statement =
            (session.prepare << "SELECT currency, rate, typed, day FROM tarnvik_conversion_rate "
                                "ORDER BY currency",
             soci::into(row.currency), soci::into(row.rate), soci::into(typed), soci::into(row.day));
        statement.execute();
        while (statement.fetch()) {
            row.isTyped = typed != 0;
            rates.push_back(row);
        }
        return rates;
    });
}

void ProjectDatabase::SetConversionRate(const std::string& currency, double rate)
{
    Run("SetConversionRate", [&](soci::session& session, const std::string&) {
        RequireRate(currency, rate);
        Upsert(session, {{currency, rate}}, currency != conversion_rate::kBase);
    });
}

void ProjectDatabase::SetConversionRates(const std::map<std::string, double>& rates)
{
    Transaction transaction;
    Run("SetConversionRates", [&](soci::session& session, const std::string&) {
        for (const auto& [currency, rate] : rates)
            RequireRate(currency, rate);
        if (!rates.contains(std::string(conversion_rate::kBase)))
            throw DatabaseError(DatabaseError::Kind::OutOfRange,
                                fmt::format("there is no rate of {}", conversion_rate::kBase));
        session << "DELETE FROM tarnvik_conversion_rate WHERE typed = 0";
        Upsert(session, rates, false);
    });
    transaction.Commit();
}
