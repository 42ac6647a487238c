// SPDX-License-Identifier: MIT
// How long the texts in the user database may be: for the program, for others, and for what was there before.
#include "core/text_limits.h"

#include "projectbase/library/compound_import.h"
#include "tests/support/bounded_work.h"
#include "tests/support/user_database_fixture.h"

#include <gmock/gmock.h>

namespace {

using DBObjects::Compound;
using support::ErrorOf;
using testing::HasSubstr;

/// A text of that many letters, each of three bytes.
std::string Letters(std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += "\u6c34";
    return text;
}

Compound Make(const std::string& name, const std::string& formula = "X", const std::string& category = {},
              const std::string& element = {})
{
    Compound compound;
    compound.name = name;
    compound.formula = formula;
    compound.category = category;
    compound.baseElement = element;
    return compound;
}

class StoredTexts : public support::UserDatabaseTest
{
protected:
    void SetUp() override
    {
        UserDatabaseTest::SetUp();
        ProjectDatabase::Open(Text());
    }
};

INSTANTIATE_TEST_SUITE_P(Backends, StoredTexts, testing::Values("sqlite", "postgresql"),
                         [](const auto& backend) { return std::string(backend.param); });

TEST_P(StoredTexts, AreRefusedWithTheLimitWhereTheyAreTooLong)
{
    using Save = std::function<void(const std::string&)>;
    const int country = ProjectDatabase::GetNextWaterLibCountryId();
    const int water = ProjectDatabase::GetNextWaterLibWatersId();
    ASSERT_TRUE(ProjectDatabase::WaterLib_SaveUserCountry(country, "Norway"));
    ASSERT_TRUE(ProjectDatabase::WaterLib_SaveUserWater(water, country, "Oslo", "well"));
    const auto value = [water](const std::string& text, const std::string& unit) {
        ProjectDatabase::WaterLib_SaveUserLiquidDetail(water, "liquid/comments", text, unit, "Comments",
                                                       "liquid");
    };
    const struct
    {
        const char* what;
        std::size_t most;
        Save save;
    } cases[] = {
        {"the compound", 1'000, [](const auto& t) { ProjectDatabase::InsertOrReplaceCompound(Make(t)); }},
        {"the formula", 10'000,
         [](const auto& t) { ProjectDatabase::InsertOrReplaceCompound(Make("a", t)); }},
        {"the category", 1'000,
         [](const auto& t) { ProjectDatabase::InsertOrReplaceCompound(Make("a", "X", t)); }},
        {"the element", 1'000,
         [](const auto& t) { ProjectDatabase::InsertOrReplaceCompound(Make("a", "X", {}, t)); }},
        {"the country", 1'000, [&](const auto& t) { ProjectDatabase::WaterLib_SaveUserCountry(country, t); }},
        {"the place", 1'000,
         [&](const auto& t) { ProjectDatabase::WaterLib_SaveUserWater(water, country, t, "a"); }},
        {"the source", 1'000,
         [&](const auto& t) { ProjectDatabase::WaterLib_SaveUserWater(water, country, "a", t); }},
        {"the value of Comments", 100'000, [&](const auto& t) { value(t, ""); }},
        {"the text", 1'000, [&](const auto& t) { value("", t); }},
    };
    for (const auto& row : cases) {
        EXPECT_FALSE(ErrorOf([&] { row.save(Letters(row.most)); }).has_value()) << row.what;
        const auto error = ErrorOf([&] { row.save(Letters(row.most + 1)); });
        ASSERT_TRUE(error.has_value()) << row.what;
        EXPECT_EQ(error->GetKind(), DatabaseError::Kind::TooLong);
        EXPECT_THAT(error->what(), HasSubstr(row.what));
        EXPECT_THAT(error->what(),
                    HasSubstr(std::to_string(row.most + 1) + " letters, " + std::to_string(row.most)));
        EXPECT_LT(std::string_view(error->what()).size(), 400U);
    }
    // An imported compound that is kept beside one of the same name gets another name, which fits, too.
    const Compound longest = Make(Letters(1'000));
    compound_import::Plan plan;
    plan.duplicates.push_back({longest, longest, 0});
    EXPECT_EQ(compound_import::CarryOut(plan, {compound_import::Decision::KeepBoth}), 1U);
}

TEST_P(StoredTexts, AreRefusedFromOtherProgramsToo)
{
    const int id = ProjectDatabase::InsertOrReplaceCompound(Make("a"));
    const auto quoted = [](std::size_t letters) { return "'" + Letters(letters) + "'"; };
    for (const std::string& text : {quoted(1'001), quoted(1'000'000)}) {
        EXPECT_ANY_THROW(
            Sql("INSERT INTO tarnvik_water_country (id, category_id, name) VALUES (7, 1, " + text + ")"));
        EXPECT_ANY_THROW(
            Sql("UPDATE tarnvik_compound SET name = " + text + " WHERE id = " + std::to_string(id)));
        EXPECT_ANY_THROW(Sql("INSERT INTO tarnvik_water (id, country_id, place, source) VALUES (7, 1, 'a', " +
                             text + ")"));
    }
    if (IsSqlite()) {  // which counts letters up to a zero only
        EXPECT_ANY_THROW(
            Sql("INSERT INTO tarnvik_water_country (id, category_id, name) VALUES (7, 1, "
                "CAST(zeroblob(5000) AS TEXT))"));
    }
    EXPECT_NO_THROW(Sql("INSERT INTO tarnvik_water_country (id, category_id, name) VALUES (7, 1, " +
                        quoted(1'000) + ")"));
    EXPECT_EQ(ProjectDatabase::GetCompound(id).name, "a");
}

TEST_P(StoredTexts, OfAnOlderVersionAreCut)
{
    ReturnToVersion(4);
    const std::string megabyte = "Long" + std::string(1 << 20, 'n');
    const std::string country = megabyte.substr(0, 20'000);  // more is in no index of a server
    for (const char* id : {"7001", "7002"})
        Sql("INSERT INTO tarnvik_water_country (id, category_id, name) VALUES (" + std::string(id) +
            ", 1, '" + country + id + "')");
    Sql("INSERT INTO tarnvik_water (id, country_id, place, source) VALUES (7003, 7001, '" + megabyte +
        "', 'well')");
    Sql("INSERT INTO tarnvik_compound (id, base_element, name, formula, valency, oxidation_number, "
        "conjugate, "
        "ionic_charge, category) VALUES (7004, 'X', '" +
        megabyte + "', 'LongX', 1, 1, 0, 0, 'c')");
    ProjectDatabase::Open(Text());
    EXPECT_EQ(Number("SELECT version FROM tarnvik_schema"), 6);
    EXPECT_EQ(Number("SELECT length(name) FROM tarnvik_compound WHERE id = 7004"), 1'000);
    EXPECT_EQ(Number("SELECT length(place) FROM tarnvik_water WHERE id = 7003"), 1'000);
    EXPECT_EQ(String("SELECT substr(name, 975) FROM tarnvik_water_country WHERE id = 7002"), "nnnnnn #7002");
    EXPECT_EQ(Number("SELECT count(DISTINCT name) FROM tarnvik_water_country WHERE id > 7000"), 2);
    const auto found = ProjectDatabase::GetCompounds({}, {}, "longnnn");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].name, megabyte.substr(0, 1'000));
    EXPECT_ANY_THROW(Sql("UPDATE tarnvik_compound SET name = '" + megabyte + "'"));
}

TEST_P(StoredTexts, AreSearchedInLittleMemory)
{
    std::string formula;
    for (std::size_t i = 0; formula.size() < text_limits::kFormula; ++i)
        formula += static_cast<char>('A' + i * i % 23);
    const int id = ProjectDatabase::InsertOrReplaceCompound(Make("longest", formula));
    ProjectDatabase::Close();
    const support::Work work = support::MeasureWork([&] {
        ProjectDatabase::Open(Text());
        const auto found = ProjectDatabase::GetCompounds({}, {}, formula);
        std::string other = formula.substr(0, formula.size() - 1) + "_";
        return found.size() == 1 && found[0].id == id &&
               ProjectDatabase::GetCompounds({}, {}, other).empty() &&
               ProjectDatabase::GetCompounds({}, {}, std::string(1 << 20, 'A')).empty();
    });
    EXPECT_TRUE(work.succeeded);
    EXPECT_LT(work.megabytes, 200.0 * support::kSlower);
    EXPECT_LT(work.seconds, 1.0 * support::kSlower);
}

TEST(TextLimits, CountLettersOfEveryLength)
{
    const std::string text = "a\u00e4\u6c34\U0001F4A7z";
    EXPECT_EQ(text_limits::CountLetters(text), 5U);
    EXPECT_EQ(text_limits::Cut(text, 4), "a\u00e4\u6c34\U0001F4A7");
    EXPECT_EQ(text_limits::Cut(text, 2), "a\u00e4");
    EXPECT_EQ(text_limits::Cut(text, 5), text);
    EXPECT_EQ(text_limits::Cut("", 0), "");
}

}  // namespace
