// SPDX-License-Identifier: MIT
#include "dbinterfaces/master_database.h"

#include "dbinterfaces/database_error.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <thread>

namespace {

template <typename Record>
std::string NameOf(const std::vector<Record>& records, const std::string& code)
{
    const auto found =
        std::find_if(records.begin(), records.end(), [&](const auto& r) { return r.code == code; });
    return found == records.end() ? "(none)" : found->name;
}

TEST(MasterDatabase, ListsIonsByPattern)
{
    const auto ions = MasterDatabase::GetIons("%", "%", "%");
    ASSERT_GE(ions.size(), 28U);
    EXPECT_EQ(ions.front().key, "na");
    EXPECT_EQ(ions.back().key, "oh.minus");
    EXPECT_EQ(MasterDatabase::GetIons("%", "named %", "%").size(), 4U);

    const auto iron = MasterDatabase::GetIons("fe2", "%", "%");
    ASSERT_EQ(iron.size(), 1U);
    EXPECT_EQ(iron[0].charge, 2);
    EXPECT_EQ(iron[0].symbol, "Fe(II)");
    EXPECT_TRUE(MasterDatabase::GetIons("na' OR '1'='1", "%", "%").empty());
}

TEST(MasterDatabase, ListsElementsByAtomicNumber)
{
    const auto elements = MasterDatabase::GetElementsFromPeriodicSystem();
    ASSERT_EQ(elements.size(), 118U);
    for (std::size_t i = 0; i < elements.size(); ++i)
        EXPECT_EQ(elements[i].id, static_cast<int>(i) + 1);
    EXPECT_EQ(elements[16].symbol, "Cl");
    EXPECT_NEAR(elements[16].atomicWeight, 35.45, 0.01);
    EXPECT_EQ(elements[42].atomicWeight, 97.0);  // technetium
    EXPECT_EQ(elements[57].group, -1);           // cerium
}

TEST(MasterDatabase, NamesCountriesAndCurrenciesInALanguage)
{
    EXPECT_EQ(MasterDatabase::GetCountry("DE"), "Germany");
    EXPECT_EQ(MasterDatabase::GetCountry("DE", "de_AT"), "Deutschland");
    EXPECT_EQ(MasterDatabase::GetCountry("DE", "xx"), "Germany");
    EXPECT_EQ(MasterDatabase::GetCountry("ZZ", "de"), "");
    EXPECT_EQ(MasterDatabase::GetCountry("%", "de"), "");
    EXPECT_EQ(MasterDatabase::GetCountry("BO"), "Bolivia");
    const auto countries = MasterDatabase::GetCountries("de");
    EXPECT_GT(countries.size(), 240U);
    EXPECT_EQ(NameOf(countries, "AT"), "Österreich");
    EXPECT_EQ(
        std::find_if(countries.begin(), countries.end(), [](const auto& c) { return c.code == "DE"; })->id,
        276);
    EXPECT_EQ(NameOf(MasterDatabase::GetCurrencies("de"), "CHF"), "Schweizer Franken");
    EXPECT_EQ(NameOf(MasterDatabase::GetCurrencies(), "EUR"), "Euro");
}

TEST(MasterDatabase, SaysWhatIsWrongWithTheFile)
{
    const auto folder = std::filesystem::path(testing::TempDir()) / "tarnvik master \u00e4";
    std::filesystem::create_directories(folder);
    const auto text = folder / "text.db";
    std::ofstream(text) << "this is no database, however long the text may become";
    std::ofstream(folder / "empty.db");
    for (const auto& path : {folder / "missing.db", folder, text, folder / "empty.db"}) {
        MasterDatabase::SetPath(path);
        try {
            MasterDatabase::GetIons("%", "%", "%");
            ADD_FAILURE() << path;
        } catch (const DatabaseError& error) {
            const std::string what = error.what();
            EXPECT_TRUE(what.starts_with("MasterDatabase::GetIons: ")) << what;
            EXPECT_NE(what.find(path.string()), std::string::npos) << what;
        }
    }
    MasterDatabase::SetPath({});
    EXPECT_EQ(MasterDatabase::GetIons("na", "%", "%").size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(folder / "missing.db"));
    std::filesystem::remove_all(folder);
}

TEST(MasterDatabase, ServesSeveralThreads)
{
    std::vector<std::thread> threads;
    std::atomic<int> right = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&right] {
            for (int n = 0; n < 20; ++n)
                right += MasterDatabase::GetCountry("FR", "de") == "Frankreich" ? 1 : 0;
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(right, 80);
}

}  // namespace
