// SPDX-License-Identifier: MIT
// What the water library stores, read back through SQL from both kinds of databases.
#include "gui_base/water/library/water_lib_details.h"
#include "tests/gui/water/library/water_lib_fixture.h"

#include <cmath>
#include <limits>

namespace {

using namespace gui_test;

class WaterLibSave : public WaterLibTest, public testing::WithParamInterface<const char*>
{
protected:
    WaterLibSave() : WaterLibTest(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Backends, WaterLibSave, testing::Values("sqlite", "postgresql"),
                         [](const auto& backend) { return std::string(backend.param); });

TEST_P(WaterLibSave, AsksForWhatIsMissing)
{
    ExpectBox({"Analysis could not be saved|Please enter these values before saving to water library:\n\n"
               "Place\nWater source"},
              wxID_OK);
    EXPECT_FALSE(WaterLibDialog::SaveLiquidData(&m_liquid));
    Describe("", "here", "");
    ExpectBox({"library:\n\nWater source"}, wxID_OK);
    EXPECT_FALSE(WaterLibDialog::SaveLiquidData(&m_liquid));
    EXPECT_EQ(Sql("SELECT CAST(count(*) AS TEXT) FROM tarnvik_water"), "0");
}

TEST_P(WaterLibSave, BringsBackZerosAndWhatIsNotKnown)
{
    Describe("FR", "Lyon", "Rhone");
    Detail("na.orig").SetValue(12.5);
    Detail("na.unit").SetValue("meq/l");
    Detail("temp.orig").SetValue(0.0);
    Detail("ph").SetValue(0.0);
    Detail("turbidity").SetValue(std::numeric_limits<double>::quiet_NaN());
    Detail("toc").SetValue(std::numeric_limits<double>::infinity());
    Detail("sampling.date").SetValue(wxDateTime(29, wxDateTime::Feb, 2024));
    Detail("water.type").SetValue("river");
    Detail("comments").SetValue("two\nlines");
    EXPECT_TRUE(Save());

    EXPECT_EQ(
        Sql("SELECT value || unit || label || grp FROM tarnvik_water_value WHERE name = 'liquid/na.orig'"),
        "1.25000000000000E+001meq/lSodiumliquid");
    EXPECT_EQ(Sql("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/ph'"), "(nothing)");
    EXPECT_EQ(Sql("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/turbidity'"), "");
    EXPECT_EQ(Sql("SELECT name FROM tarnvik_water_country"), "France");

    Open();
    ClickNode({"User waters", "France"});
    ClickRow(0);
    EXPECT_EQ(Shown("Water type"), "River water");
    EXPECT_EQ(Shown("Date of sampling"), "2024-02-29");
    EXPECT_EQ(Shown("Comments"), "two\nlines");
    const LiquidData* selected = Find<WaterLibDetails>(*m_dialog).GetLiquid();
    ASSERT_NE(selected, nullptr);
    const DetailList& read = *selected->GetDetails();
    EXPECT_EQ(read.At("liquid/na.orig").GetDoubleValue(), 12.5);
    EXPECT_EQ(read.At("liquid/na.unit").GetStringValue(), "meq/l");
    EXPECT_EQ(read.At("liquid/temp.orig").GetDoubleValue(), 0.0);
    EXPECT_EQ(read.At("liquid/ph").GetDoubleValue(), 0.0);
    EXPECT_TRUE(std::isnan(read.At("liquid/turbidity").GetDoubleValue()));
    EXPECT_TRUE(std::isnan(read.At("liquid/toc").GetDoubleValue()));
    EXPECT_EQ(read.At("liquid/country").GetStringValue(), "FR");
}

TEST_P(WaterLibSave, AsksBeforeItOverwrites)
{
    Describe("FR", "Lyon", "Rhone");
    Detail("na.orig").SetValue(1.0);
    Detail("ca.orig").SetValue(2.0);
    EXPECT_TRUE(Save());
    const char* const kWaters = "SELECT count(*) || ':' || min(id) FROM tarnvik_water";
    const std::string waters = Sql(kWaters);
    Detail("na.orig").SetValue(3.0);
    Detail("ca.orig").SetValue(0.0);
    const std::vector<std::string> question{
        "Duplicate|Analysis already exists. Do you want to overwrite the existing analysis?"};
    ExpectBox(question, wxID_NO);
    EXPECT_FALSE(WaterLibDialog::SaveLiquidData(&m_liquid));
    EXPECT_EQ(Sql("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/na.orig'"),
              "1.00000000000000E+000");
    ExpectBox(question, wxID_YES);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sql("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/na.orig'"),
              "3.00000000000000E+000");
    EXPECT_EQ(Sql("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/ca.orig'"), "(nothing)")
        << "what became zero is gone";
    EXPECT_EQ(Sql(kWaters), waters) << "the stored water keeps its identifier";
    // Without a country, too, and apart from the one with one.
    Describe("", "Lyon", "Rhone");
    EXPECT_TRUE(Save());
    ExpectBox(question, wxID_NO);
    EXPECT_FALSE(WaterLibDialog::SaveLiquidData(&m_liquid));
}

TEST_P(WaterLibSave, AFailedSaveLeavesTheLibraryAsItWas)
{
    Describe("FR", "Lyon", "Rhone");
    Detail("na.orig").SetValue(1.0);
    EXPECT_TRUE(Save());
    m_database.Sql(m_database.IsSqlite()
                       ? "CREATE TRIGGER refuse BEFORE INSERT ON tarnvik_water_value "
                         "WHEN new.name = 'liquid/ph' BEGIN SELECT RAISE(ABORT, 'refused'); END"
                       : "ALTER TABLE tarnvik_water_value ADD CONSTRAINT refuse "
                         "CHECK (name <> 'liquid/ph') NOT VALID");
    Detail("na.orig").SetValue(2.0);
    ExpectBox({"Duplicate"}, wxID_YES);
    std::string problem;
    EXPECT_FALSE(WaterLibDialog::SaveLiquidData(&m_liquid, &problem));
    EXPECT_NE(problem.find("Check that it can be reached"), std::string::npos) << problem;
    EXPECT_EQ(problem.find("::Water"), std::string::npos) << problem;
    EXPECT_EQ(Sql("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/na.orig'"),
              "1.00000000000000E+000");
    Describe("ES", "Madrid", "Well");
    EXPECT_FALSE(WaterLibDialog::SaveLiquidData(&m_liquid, &problem));
    EXPECT_EQ(Sql("SELECT CAST(count(*) AS TEXT) FROM tarnvik_water_country"), "1");
}

}  // namespace
