// SPDX-License-Identifier: MIT
// Waters stored in the user's library and applied again, in both kinds of databases.
#include "projectbase/library/water_store.h"

#include "dbinterfaces/project_database.h"
#include "tests/support/user_database_fixture.h"

#include <cmath>
#include <limits>

namespace {

using support::ErrorOf;

class WaterStore : public support::UserDatabaseTest
{
protected:
    void SetUp() override { ProjectDatabase::Open(Text()); }

    DetailData& Detail(const std::string& key) { return m_liquid.GetDetails()->At("liquid/" + key); }
    void Describe(const char* country, const char* place, const char* source)
    {
        Detail("country").SetValue(country);
        Detail("place").SetValue(place);
        Detail("water.source").SetValue(source);
    }
    bool Store()
    {
        return water_store::Store(m_liquid, [](const std::string& key) { return "<" + key + ">"; });
    }
    static std::vector<DBObjects::WaterLibWater> Waters(const std::string& country)
    {
        const auto found = ProjectDatabase::WaterLib_GetUserCountry(country);
        return found.id == -1 ? std::vector<DBObjects::WaterLibWater>()
                              : ProjectDatabase::WaterLib_GetUserWatersByCriteria({found.id});
    }

    LiquidData m_liquid;
};

INSTANTIATE_TEST_SUITE_P(Backends, WaterStore, testing::Values("sqlite", "postgresql"),
                         [](const auto& backend) { return std::string(backend.param); });

TEST_P(WaterStore, SaysWhatIsMissing)
{
    struct Case
    {
        const char* place;
        const char* source;
        bool placeMissing;
        bool sourceMissing;
    };
    for (const Case& row : {Case{"", "", true, true}, Case{"Lyon", "", false, true},
                            Case{"", "Rhone", true, false}, Case{"Lyon", "Rhone", false, false}}) {
        Describe("FR", row.place, row.source);
        const water_store::Missing missing = water_store::FindMissing(m_liquid);
        EXPECT_EQ(missing.place, row.placeMissing) << row.place << row.source;
        EXPECT_EQ(missing.source, row.sourceMissing) << row.place << row.source;
        EXPECT_EQ(static_cast<bool>(missing), row.placeMissing || row.sourceMissing);
    }
}

TEST_P(WaterStore, FilesByCountryPlaceAndSource)
{
    Describe("FR", "Lyon", "Rhone");
    EXPECT_FALSE(water_store::HasDuplicate(m_liquid));
    ASSERT_TRUE(Store());
    EXPECT_TRUE(water_store::HasDuplicate(m_liquid));
    ASSERT_EQ(Waters("France").size(), 1u);
    const int id = Waters("France")[0].id;
    for (const auto& [country, place, source] :
         {std::tuple("", "Lyon", "Rhone"), std::tuple("DE", "Lyon", "Rhone"),
          std::tuple("FR", "Caen", "Rhone"), std::tuple("FR", "Lyon", "Saone")}) {
        Describe(country, place, source);
        EXPECT_FALSE(water_store::HasDuplicate(m_liquid)) << country << place << source;
    }
    Describe("FR", "Lyon", "Rhone");
    ASSERT_TRUE(Store());
    ASSERT_EQ(Waters("France").size(), 1u);
    EXPECT_EQ(Waters("France")[0].id, id) << "an overwritten water keeps its identifier";
}

TEST_P(WaterStore, AppliesWhatWasStored)
{
    Describe("FR", "Lyon", "Rhone");
    Detail("na.orig").SetValue(46.0);
    Detail("na.unit").SetValue("mg/l");
    Detail("ca.orig").SetValue(9.0);
    Detail("temp.orig").SetValue(0.0);
    Detail("hardness.measured.orig").SetValue(0.0);
    Detail("oil").SetValue(0.0);
    Detail("ph").SetValue(std::nan(""));
    Detail("toc").SetValue(std::numeric_limits<double>::infinity());
    ASSERT_TRUE(Store());
    Detail("ca.orig").SetValue(0.0);
    ASSERT_TRUE(Store());

    const auto stored = ProjectDatabase::WaterLib_GetUserAnalysisById(Waters("France").at(0).id);
    std::size_t typed = 0;
    for (const DBObjects::WaterLibAttr& value : stored) {
        EXPECT_NE(value.key, "liquid/ca.orig") << "what became zero is gone";
        if (value.key == "liquid/na.orig") {
            EXPECT_EQ(value.value, "4.60000000000000E+001");
            EXPECT_EQ(value.unit, "mg/l");
            ++typed;
        }
    }
    EXPECT_EQ(typed, 1u);
    EXPECT_EQ(String("SELECT label FROM tarnvik_water_value WHERE name = 'liquid/na.orig'"),
              "<liquid/na.orig>");

    LiquidData target;
    target.FindDetail("liquid/ca.orig")->SetValue(77.0);
    target.FindDetail("liquid/temp.orig")->SetValue(30.0);
    water_store::Apply(stored, target);
    const auto number = [&target](const char* key) { return target.FindDetail(key)->GetDoubleValue(); };
    EXPECT_EQ(number("liquid/na.orig"), 46.0);
    EXPECT_NEAR(number("liquid/na.meql"), 2.0, 0.01) << "what follows is calculated";
    EXPECT_EQ(number("liquid/ca.orig"), 0.0);
    EXPECT_EQ(number("liquid/temp.orig"), 0.0);
    EXPECT_EQ(number("liquid/hardness.measured.orig"), 0.0) << "of a softened water";
    EXPECT_TRUE(std::isnan(number("liquid/cond25.measured.orig")));
    EXPECT_EQ(number("liquid/oil"), 0.0) << "looked for, and none was there";
    EXPECT_TRUE(std::isnan(number("liquid/ph")));
    EXPECT_TRUE(std::isnan(number("liquid/toc")));
    EXPECT_EQ(target.FindDetail("liquid/place")->GetStringValue(), "Lyon");
    water_store::Apply({{"liquid/nowhere", "1", ""}, {"liquid/ph", "seven", ""}}, target);
    EXPECT_EQ(number("liquid/ph"), 0.0) << "neither unknown keys nor texts that are no numbers count";
    for (const char* key : {"liquid/hardness.measured.orig", "liquid/oil"})
        EXPECT_TRUE(std::isnan(number(key))) << key << ": stored before there was such a value";
}

TEST_P(WaterStore, AFailedStoreChangesNothing)
{
    Describe("FR", "Lyon", "Rhone");
    Detail("na.orig").SetValue(1.0);
    ASSERT_TRUE(Store());
    Sql(IsSqlite() ? "CREATE TRIGGER refuse BEFORE INSERT ON tarnvik_water_value "
                     "WHEN new.name = 'liquid/ph' BEGIN SELECT RAISE(ABORT, 'refused'); END"
                   : "ALTER TABLE tarnvik_water_value ADD CONSTRAINT refuse "
                     "CHECK (name <> 'liquid/ph') NOT VALID");
    Detail("na.orig").SetValue(2.0);
    EXPECT_TRUE(ErrorOf([this] { Store(); }).has_value());
    Describe("DE", "Bonn", "Rhein");
    EXPECT_TRUE(ErrorOf([this] { Store(); }).has_value());
    EXPECT_TRUE(Waters("Germany").empty()) << "not even the country";
    EXPECT_EQ(String("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/na.orig'"),
              "1.00000000000000E+000");
}

}  // namespace
