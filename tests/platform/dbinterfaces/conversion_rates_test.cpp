// SPDX-License-Identifier: MIT
// The conversion rates in the user database: what is stored, what is refused, and who shares them.
#include "tests/support/user_database_fixture.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using support::ErrorOf;
using Rates = std::map<std::string, double>;

/// What is stored, without days and origins.
Rates Stored()
{
    Rates rates;
    for (const auto& row : ProjectDatabase::GetConversionRates())
        rates[row.currency] = row.rate;
    return rates;
}

class ConversionRates : public support::UserDatabaseTest
{};
INSTANTIATE_TEST_SUITE_P(Backends, ConversionRates, testing::Values("sqlite", "postgresql"),
                         [](const auto& backend) { return std::string(backend.param); });

TEST_P(ConversionRates, ComeWithTheMigrationFromEveryOlderVersion)
{
    for (const int version : {1, 2, 3, 4, 5}) {
        const support::DatabaseUnderTest database(GetParam());
        if (version == 1) {
            database.MakeVersion1();
        } else if (version == 2) {
            database.MakeVersion2();
        } else {
            ProjectDatabase::Open(database.Text());
            ProjectDatabase::SetUserParameter("language", "de");
            ProjectDatabase::Close();
            database.ReturnToVersion(version);
        }
        ProjectDatabase::Open(database.Text());
        EXPECT_EQ(database.Number("SELECT version FROM tarnvik_schema"), 6) << version;
        EXPECT_EQ(Stored(), (Rates{{"EUR", 1.0}})) << version;
        EXPECT_EQ(ProjectDatabase::GetUserParameter("language"), "de") << version;
        EXPECT_GT(ProjectDatabase::GetCompounds().size(), 100U) << version;
    }
}

TEST_P(ConversionRates, AreReplacedAsAWholeButForTypedOnesThatTheServiceLacks)
{
    ProjectDatabase::Open(Text());
    EXPECT_TRUE(std::isnan(ProjectDatabase::GetConversionRate("USD")));
    const double sevenDigits = 1.0 / 0.9174311926605505;
    ProjectDatabase::SetConversionRates(
        {{"EUR", 1.0}, {"USD", sevenDigits}, {"BGN", 1.95583}, {"ISK", 144.5}, {"JPY", 171.25}});
    ProjectDatabase::SetConversionRate("XAF", 655.957);
    ProjectDatabase::SetConversionRate("JPY", 200.0);
    ProjectDatabase::SetConversionRate("ISK", 140.0);
    EXPECT_EQ(ProjectDatabase::GetConversionRate("USD"), sevenDigits) << "every digit comes back";
    EXPECT_EQ(ProjectDatabase::GetConversionRate("JPY"), 200.0);

    ProjectDatabase::Close();
    ProjectDatabase::Open(Text());
    ProjectDatabase::SetConversionRates({{"EUR", 1.0}, {"USD", 1.1}, {"JPY", 170.0}});
    EXPECT_EQ(Stored(),
              (Rates{{"EUR", 1.0}, {"ISK", 140.0}, {"JPY", 170.0}, {"USD", 1.1}, {"XAF", 655.957}}));
    for (const auto& row : ProjectDatabase::GetConversionRates()) {
        EXPECT_EQ(row.isTyped, row.currency == "XAF" || row.currency == "ISK") << row.currency;
        EXPECT_THAT(row.day, testing::MatchesRegex("20..-..-..")) << row.currency;
    }
}

TEST_P(ConversionRates, ThatAreNoneAreRefusedAndChangeNothing)
{
    ProjectDatabase::Open(Text());
    const Rates before{{"CHF", 0.9375}, {"EUR", 1.0}, {"USD", 1.09}};
    ProjectDatabase::SetConversionRates(before);
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const struct
    {
        const char* currency;
        double rate;
    } cases[] = {
        {"USD", 0.0},  {"USD", -1.0},  {"USD", std::nan("")}, {"USD", kInfinity}, {"USD", -kInfinity},
        {"USD", 9e-7}, {"USD", 1.1e9}, {"EUR", 1.1},          {"usd", 1.1},       {"", 1.1},
        {"USDX", 1.1}, {"US", 1.1},    {"U\u00e4", 1.1},      {"A'B", 1.1},
    };
    for (const auto& [currency, rate] : cases) {
        const auto one = ErrorOf([&] { ProjectDatabase::SetConversionRate(currency, rate); });
        ASSERT_TRUE(one.has_value()) << currency << rate;
        EXPECT_EQ(one->GetKind(), DatabaseError::Kind::OutOfRange);
        Rates all{{"EUR", 1.0}, {"CHF", 5.0}, {"ZAR", 20.0}};
        all[currency] = rate;
        EXPECT_TRUE(ErrorOf([&] { ProjectDatabase::SetConversionRates(all); }).has_value())
            << currency << rate;
    }
    EXPECT_TRUE(ErrorOf([] {
                    ProjectDatabase::SetConversionRates({{"CHF", 5.0}});
                }).has_value())
        << "the euro is missing";
    EXPECT_TRUE(ErrorOf([] { ProjectDatabase::SetConversionRates({}); }).has_value());
    EXPECT_EQ(Stored(), before);
    ProjectDatabase::SetConversionRate("EUR", 1.0);
    EXPECT_FALSE(ProjectDatabase::GetConversionRates()[1].isTyped);

    // Other programs are held to them, too.
    for (const char* values : {"'USD', 0, 0, ''", "'EUR', 2, 0, ''", "'XXXX', 1, 0, ''", "'XAF', 2e9, 0, ''"})
        EXPECT_ANY_THROW(Sql("INSERT INTO tarnvik_conversion_rate (currency, rate, typed, day) VALUES (" +
                             std::string(values) + ")"))
            << values;
}

TEST_P(ConversionRates, AreTakenBackWithATransactionAndReadAsTheyWereMeanwhile)
{
    ProjectDatabase::Open(Text());
    const Rates before{{"EUR", 1.0}, {"USD", 1.09}};
    ProjectDatabase::SetConversionRates(before);
    {
        const ProjectDatabase::Transaction transaction;
        ProjectDatabase::SetConversionRates({{"EUR", 1.0}, {"JPY", 170.0}});
        EXPECT_EQ(Number("SELECT count(*) FROM tarnvik_conversion_rate WHERE currency = 'JPY'"), 0);
    }
    EXPECT_EQ(Stored(), before);
}

TEST_P(ConversionRates, OfSeveralWritersAreAlwaysASetOfOneOfThem)
{
    constexpr int kWriters = 4;
    constexpr int kRounds = 15;
    ProjectDatabase::Open(Text());
    ProjectDatabase::SetConversionRates({{"EUR", 1.0}, {"AAA", 9.0}, {"BBB", 9.0}, {"ZZZ", 9.0}});
    ProjectDatabase::Close();
    support::RunWriters(kWriters, [&](int writer) {
        int failures = 0;
        for (int round = 0; round < kRounds; ++round) {
            try {
                const double rate = writer + 1.0;
                // They come in another order, and one of them has a row more.
                ProjectDatabase::Open(Text());
                Rates rates{{"EUR", 1.0}, {"AAA", rate}, {"BBB", rate}, {"ZZZ", rate}};
                if (writer % 2 == 0)
                    rates["MMM"] = rate;
                ProjectDatabase::SetConversionRates(rates);
                ProjectDatabase::SetConversionRate("W" + std::string(2, static_cast<char>('A' + writer)),
                                                   2.0);
                const Rates seen = Stored();
                failures += seen.at("AAA") == seen.at("BBB") && seen.at("BBB") == seen.at("ZZZ") ? 0 : 1;
            } catch (const std::exception& error) {
                fprintf(stderr, "writer %d: %s\n", writer, error.what());
                ++failures;
            }
        }
        return failures;
    });
    ProjectDatabase::Open(Text());
    for (const char* own : {"WAA", "WBB", "WCC", "WDD"})
        EXPECT_EQ(ProjectDatabase::GetConversionRate(own), 2.0) << own;
}

}  // namespace
