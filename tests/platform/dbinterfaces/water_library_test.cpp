// SPDX-License-Identifier: MIT
// The library of waters: what is stored is looked at past the facade, in both kinds of databases.
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "tests/support/user_database_fixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <map>
#include <set>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using support::ErrorOf;
using testing::ElementsAre;

class UserWaters : public support::UserDatabaseTest
{
protected:
    void SetUp() override { ProjectDatabase::Open(Text()); }

    static int AddCountry(const std::string& name)
    {
        const int id = ProjectDatabase::GetNextWaterLibCountryId();
        EXPECT_TRUE(ProjectDatabase::WaterLib_SaveUserCountry(id, name));
        return id;
    }
    static int AddWater(int country, const std::string& place, const std::string& source)
    {
        const int id = ProjectDatabase::GetNextWaterLibWatersId();
        EXPECT_TRUE(ProjectDatabase::WaterLib_SaveUserWater(id, country, place, source));
        return id;
    }
    static bool AddValue(int water, const std::string& key, const std::string& value)
    {
        return ProjectDatabase::WaterLib_SaveUserLiquidDetail(water, key, value, "mg/l", "Label", "liquid");
    }
    static std::vector<int> Ids(const std::vector<DBObjects::WaterLibWater>& waters)
    {
        std::vector<int> ids;
        for (const auto& water : waters)
            ids.push_back(water.id);
        return ids;
    }
};

INSTANTIATE_TEST_SUITE_P(Backends, UserWaters, testing::Values("sqlite", "postgresql"),
                         [](const auto& backend) { return std::string(backend.param); });

TEST_P(UserWaters, AreFoundByMixedNodesEachOnce)
{
    const int category = ProjectDatabase::WaterLib_GetUserCategories().front().id;
    const int france = AddCountry("France");
    const int spain = AddCountry("Spain");
    EXPECT_EQ(std::set({category, france, spain}).size(), 3U) << "one row of numbers for all nodes";
    const int lyon = AddWater(france, "Lyon", "Rhone");
    const int caen = AddWater(france, "Caen", "Orne");
    const int madrid = AddWater(spain, "Madrid", "Well \"4\"; DROP TABLE tarnvik_water --");

    const auto found = [](const std::vector<int>& nodes) {
        return Ids(ProjectDatabase::WaterLib_GetUserWatersByCriteria(nodes));
    };
    EXPECT_THAT(found({france}), ElementsAre(caen, lyon));
    EXPECT_THAT(found({category}), ElementsAre(caen, lyon, madrid));
    EXPECT_THAT(found({spain, category, spain, 4711}), ElementsAre(caen, lyon, madrid));
    EXPECT_TRUE(found({}).empty());

    const auto water = ProjectDatabase::WaterLib_GetUserWatersByCriteria({spain}).at(0);
    EXPECT_EQ(water.country, "Spain");
    EXPECT_EQ(water.countryId, spain);
    EXPECT_EQ(water.source, "Well \"4\"; DROP TABLE tarnvik_water --");
    EXPECT_EQ(water.user, 1);
    const auto countries = ProjectDatabase::WaterLib_GetUserCountries(category);
    ASSERT_EQ(countries.size(), 2U);
    EXPECT_EQ(countries[0].name, "France");
    EXPECT_EQ(countries[0].waterCount, 2);
    EXPECT_EQ(countries[1].categoryId, category);
}

TEST_P(UserWaters, AreFoundByTheirValues)
{
    EXPECT_EQ(ProjectDatabase::WaterLib_GetUserCountry("France").id, -1);
    const int france = AddCountry("France");
    EXPECT_EQ(ProjectDatabase::WaterLib_GetUserCountry("France").id, france);
    const std::string longPlace(999, 'x');
    const int first = AddWater(france, longPlace, "a");
    AddWater(france, longPlace + "y", "a");
    const int third = AddWater(france, longPlace, "a");
    const auto find = [&](int except) {
        return Ids(ProjectDatabase::WaterLib_GetUserWatersByValues(france, longPlace, "a", except));
    };
    EXPECT_THAT(find(-1), ElementsAre(first, third));
    EXPECT_THAT(find(first), ElementsAre(third));
    EXPECT_TRUE(ProjectDatabase::WaterLib_GetUserWatersByValues(france, longPlace, "A", -1).empty());
}

TEST_P(UserWaters, RefuseWhatHasNoPlace)
{
    const int france = AddCountry("France");
    EXPECT_FALSE(
        ProjectDatabase::WaterLib_SaveUserCountry(ProjectDatabase::GetNextWaterLibCountryId(), "France"));
    EXPECT_FALSE(ProjectDatabase::WaterLib_SaveUserCountry(1, "Category")) << "the number of a category";
    EXPECT_TRUE(ProjectDatabase::WaterLib_SaveUserCountry(france, "Francia"));
    EXPECT_EQ(ProjectDatabase::WaterLib_GetUserCountry("Francia").id, france);
    EXPECT_FALSE(ProjectDatabase::WaterLib_SaveUserWater(1, 4711, "nowhere", "at all"));
    EXPECT_FALSE(AddValue(4711, "liquid/ph", "7"));
    EXPECT_FALSE(ProjectDatabase::WaterLib_DeleteUserWater(4711));
    EXPECT_FALSE(ProjectDatabase::WaterLib_DeleteUserCountry(4711));
    EXPECT_EQ(Number("SELECT count(*) FROM tarnvik_water"), 0);
    EXPECT_EQ(Number("SELECT count(*) FROM tarnvik_water_value"), 0);
}

TEST_P(UserWaters, ReplaceAndLoseTheirValues)
{
    const int france = AddCountry("France");
    const int water = AddWater(france, "Lyon", "Rhone");
    EXPECT_TRUE(AddValue(water, "liquid/na.orig", "1"));
    EXPECT_TRUE(AddValue(water, "liquid/na.orig", "2"));
    EXPECT_TRUE(AddValue(water, "liquid/comments", "\u00e4 'quoted' \n\u6c34"));
    EXPECT_EQ(String("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/na.orig'"), "2");
    EXPECT_EQ(String("SELECT label || '|' || unit || '|' || grp FROM tarnvik_water_value "
                     "WHERE name = 'liquid/na.orig'"),
              "Label|mg/l|liquid");
    const auto values = ProjectDatabase::WaterLib_GetUserAnalysisById(water);
    ASSERT_EQ(values.size(), 2U);
    EXPECT_EQ(values[0].value, "\u00e4 'quoted' \n\u6c34");

    ProjectDatabase::WaterLib_DeleteUserLiquidDetails(water);
    EXPECT_TRUE(ProjectDatabase::WaterLib_GetUserAnalysisById(water).empty());
    AddValue(water, "liquid/ph", "7");
    AddValue(AddWater(france, "Caen", "Orne"), "liquid/ph", "7");
    EXPECT_TRUE(ProjectDatabase::WaterLib_DeleteUserWater(water));
    EXPECT_EQ(Number("SELECT count(*) FROM tarnvik_water_value"), 1);
    EXPECT_TRUE(ProjectDatabase::WaterLib_DeleteUserCountry(france));
    for (const char* table : {"water_country", "water", "water_value"})
        EXPECT_EQ(Number(fmt::format("SELECT count(*) FROM tarnvik_{}", table)), 0) << table;
    EXPECT_NE(AddCountry("Spain"), france) << "identifiers are not used again";
}

TEST_P(UserWaters, AreSavedAsAWholeOrNotAtAll)
{
    {
        ProjectDatabase::Transaction outer;
        const int france = AddCountry("France");
        ProjectDatabase::Transaction inner;
        AddWater(france, "Lyon", "Rhone");
        inner.Commit();
    }
    EXPECT_EQ(Number("SELECT count(*) FROM tarnvik_water_country"), 0);
    {
        ProjectDatabase::Transaction transaction;
        AddCountry("France");
        EXPECT_EQ(Number("SELECT count(*) FROM tarnvik_water_country"), 0) << "nobody else sees it yet";
        transaction.Commit();
    }
    EXPECT_EQ(Number("SELECT count(*) FROM tarnvik_water_country"), 1);

    // A connection that goes away in the middle leaves nothing behind, and the next call finds a new one.
    if (!IsSqlite()) {
        ProjectDatabase::Transaction transaction;
        AddCountry("Spain");
        Sql("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE pid <> pg_backend_pid() "
            "AND backend_type = 'client backend'");
        EXPECT_TRUE(ErrorOf([] { AddCountry("Italy"); }).has_value());
        EXPECT_TRUE(ErrorOf([&transaction] { transaction.Commit(); }).has_value());
    }
    EXPECT_EQ(ProjectDatabase::WaterLib_GetUserCountry("Spain").id, -1);
    EXPECT_NE(ProjectDatabase::WaterLib_GetUserCountry("France").id, -1);
}

TEST_P(UserWaters, OtherThreadsStayOutOfATransaction)
{
    std::thread other;
    {
        ProjectDatabase::Transaction transaction;
        AddCountry("France");
        other = std::thread([] { AddCountry("Spain"); });
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    other.join();
    EXPECT_EQ(ProjectDatabase::WaterLib_GetUserCountry("France").id, -1);
    EXPECT_NE(ProjectDatabase::WaterLib_GetUserCountry("Spain").id, -1);
}

TEST_P(UserWaters, ProgramsThatSaveTheSameWaterAtOnceMakeOne)
{
    constexpr int kPrograms = 4;
    constexpr int kRounds = 10;
    ProjectDatabase::Close();
    for (int program = 0; program < kPrograms; ++program) {
        if (fork() != 0)
            continue;
        try {
            ProjectDatabase::Open(Text());
            for (int round = 0; round < kRounds; ++round) {
                ProjectDatabase::Transaction transaction;
                int country = ProjectDatabase::WaterLib_GetUserCountry("France").id;
                if (country < 0)
                    country = AddCountry("France");
                const auto place = fmt::format("place {}", round);
                const auto found = ProjectDatabase::WaterLib_GetUserWatersByValues(country, place, "s", -1);
                const int water = found.empty() ? AddWater(country, place, "s") : found.front().id;
                ProjectDatabase::WaterLib_DeleteUserLiquidDetails(water);
                for (const char* key : {"a", "b", "c"})
                    AddValue(water, key, std::to_string(program));
                transaction.Commit();
            }
            _exit(testing::Test::HasFailure() ? 1 : 0);
        } catch (const std::exception& error) {
            fprintf(stderr, "program %d: %s\n", program, error.what());
            _exit(1);
        }
    }
    for (int program = 0; program < kPrograms; ++program) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(Number("SELECT count(*) FROM tarnvik_water_country"), 1);
    EXPECT_EQ(Number("SELECT count(*) FROM tarnvik_water"), kRounds);
    EXPECT_EQ(Number("SELECT count(*) FROM tarnvik_water_value"), 3 * kRounds);
    // The values of each water are those of one program.
    EXPECT_EQ(Number("SELECT count(*) FROM (SELECT DISTINCT water_id, value FROM tarnvik_water_value) v"),
              kRounds);
}

TEST_P(UserWaters, AreReachedWithManyNodes)
{
    std::vector<int> countries;
    ProjectDatabase::Transaction transaction;
    for (int i = 0; i < 1200; ++i) {
        countries.push_back(AddCountry(fmt::format("Country {:04}", i)));
        AddWater(countries.back(), "place", "source");
    }
    transaction.Commit();
    const auto waters = ProjectDatabase::WaterLib_GetUserWatersByCriteria(countries);
    ASSERT_EQ(waters.size(), 1200U);
    EXPECT_EQ(waters.front().country, "Country 0000");
    EXPECT_EQ(waters.back().country, "Country 1199");
}

class WaterTables : public support::UserDatabaseTest
{};
INSTANTIATE_TEST_SUITE_P(Backends, WaterTables, testing::Values("sqlite", "postgresql"),
                         [](const auto& backend) { return std::string(backend.param); });

TEST_P(WaterTables, ComeWithTheMigrationFromVersion2)
{
    MakeVersion2();
    ProjectDatabase::Open(Text());
    EXPECT_EQ(Number("SELECT version FROM tarnvik_schema"), 6);
    EXPECT_EQ(ProjectDatabase::GetUserParameter("language"), "de");
    const auto categories = ProjectDatabase::WaterLib_GetUserCategories();
    ASSERT_EQ(categories.size(), 1U);
    EXPECT_EQ(categories[0].name, "User waters");
    EXPECT_TRUE(ProjectDatabase::WaterLib_GetUserCountries(categories[0].id).empty());
    EXPECT_GT(ProjectDatabase::GetNextWaterLibCountryId(), categories[0].id);
}

TEST(UserWatersFile, ThatIsRemovedWhileItIsUsedIsReported)
{
    support::TempFolder folder;
    const std::string file = (folder / "user.db").string();
    ProjectDatabase::Open(file);
    const int country = ProjectDatabase::GetNextWaterLibCountryId();
    std::filesystem::remove(file);
    const auto error = ErrorOf([country] { ProjectDatabase::WaterLib_SaveUserCountry(country, "France"); });
    ASSERT_TRUE(error.has_value()) << "written where nobody will find it";
    EXPECT_NE(std::string(error->what()).find("removed"), std::string::npos) << error->what();
    // The next call begins anew in the place of the file, not in the default one.
    EXPECT_TRUE(ProjectDatabase::WaterLib_SaveUserCountry(country, "France"));
    EXPECT_TRUE(std::filesystem::is_regular_file(file));
    ProjectDatabase::Close();
}

TEST(MasterWaters, AreWholeWatersUnderTheirNodes)
{
    std::set<int> nodes;
    std::size_t waters = 0;
    for (const auto& category : MasterDatabase::WaterLib_GetCategories()) {
        EXPECT_TRUE(nodes.insert(category.id).second) << category.name;
        std::size_t inCountries = 0;
        for (const auto& country : MasterDatabase::WaterLib_GetCountries(category.id)) {
            EXPECT_TRUE(nodes.insert(country.id).second) << country.name;
            EXPECT_EQ(country.categoryId, category.id);
            EXPECT_EQ(MasterDatabase::WaterLib_GetWatersByCriteria({country.id}).size(),
                      static_cast<std::size_t>(country.waterCount));
            inCountries += static_cast<std::size_t>(country.waterCount);
        }
        EXPECT_EQ(MasterDatabase::WaterLib_GetWatersByCriteria({category.id}).size(), inCountries);
        waters += inCountries;
    }
    EXPECT_EQ(waters, 19U);
    const auto all = MasterDatabase::WaterLib_GetWatersByCriteria({nodes.begin(), nodes.end()});
    ASSERT_EQ(all.size(), 19U);
    const auto amazon =
        std::find_if(all.begin(), all.end(), [](const auto& w) { return w.place == "Amazon"; });
    ASSERT_NE(amazon, all.end());
    EXPECT_EQ(amazon->country, "Brazil");
    EXPECT_EQ(amazon->user, 0);

    std::map<std::string, std::string> values;
    for (const auto& value : MasterDatabase::WaterLib_GetAnalysisById(amazon->id))
        values[value.key] = value.value + " " + value.unit;
    EXPECT_EQ(values["liquid/na.orig"], "1.80000000000000E+000 mg/l");
    EXPECT_EQ(values["liquid/country"], "BR ");
    EXPECT_EQ(values["liquid/turbidity"], " NTU") << "not stated is not known";
    EXPECT_EQ(values.count("liquid/k.orig"), 0U) << "zeros are left out";
}

TEST(MasterWaters, HaveTypesWithDescriptions)
{
    EXPECT_EQ(MasterDatabase::GetWaterTypeDescription("well"), "Well water");
    EXPECT_EQ(MasterDatabase::GetWaterTypeDescription("' OR '1'='1"), "");
    EXPECT_GT(MasterDatabase::GetWaterTypes().size(), 10U);
}

}  // namespace
