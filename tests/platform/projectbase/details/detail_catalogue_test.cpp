// SPDX-License-Identifier: MIT
#include "projectbase/details/detail_catalogue.h"

#include "dbinterfaces/master_database.h"
#include "projectbase/project/iex_project.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

namespace {

TEST(DetailCatalogue, HoldsEveryDetailOfAWater)
{
    const LiquidData water;
    const DetailList& details = *water.GetDetails();
    for (const auto& ion : MasterDatabase::GetIons("%", "%", "%")) {
        const std::string key = "liquid/" + ion.key;
        const bool named = ion.kind.starts_with("named");
        EXPECT_EQ(details.At(key + ".orig").GetTypeName(), "double");
        EXPECT_TRUE(details.At(key + ".orig").HasMinValue());
        EXPECT_EQ(details.At(key + ".meql").GetMaxValue(), 10000.0) << "the limit of an ion is an amount";
        EXPECT_EQ(details.At(key + ".unit").GetTypeName(), "string");
        EXPECT_EQ(details.At(key + ".meql").GetUnit(), "meq/l");
        EXPECT_EQ(details.At(key + ".mgl").GetUnit(), "mg/l");
        EXPECT_EQ(details.GetDetail(key + ".name") != nullptr, named) << key;
    }
    EXPECT_EQ(details.At("liquid/temp").GetUnit(), "°C");
    EXPECT_EQ(details.At("liquid/temp").GetDoubleValue(), 15.0);
    EXPECT_EQ(details.At("liquid/temp.unit").GetStdStringValue(), "°C");
    EXPECT_EQ(details.At("liquid/analysis.type").GetStdStringValue(), "FULL");
    EXPECT_EQ(details.At("liquid/calculate.co2").GetTypeName(), "bool");
    // What nobody has measured or computed yet is not known; it is not zero.
    EXPECT_TRUE(std::isnan(details.At("liquid/ph").GetDoubleValue()));
    EXPECT_TRUE(std::isnan(details.At("liquid/cond").GetDoubleValue()));
    EXPECT_TRUE(details.At("liquid/ph").HasMinValue());
    EXPECT_FALSE(details.At("liquid/tds").HasMaxValue());
}

TEST(DetailCatalogue, EveryGroupIsConsistent)
{
    for (const char* group : {"liquid", "arrangement", "project", "settings"}) {
        for (const DetailData& detail : *CatalogueGroup(group, "BASE")) {
            SCOPED_TRACE(detail.GetName());
            if (detail.HasMinValue() || detail.HasMaxValue()) {
                EXPECT_EQ(detail.GetLimitUnit(), detail.GetUnit());
            }
            if (!detail.HasMinValue() || !detail.HasMaxValue() || std::isnan(detail.GetDoubleValue()))
                continue;
            EXPECT_LE(detail.GetMinValue(), detail.GetDoubleValue());
            EXPECT_LE(detail.GetDoubleValue(), detail.GetMaxValue());
        }
    }
    EXPECT_THROW(CatalogueGroup("liquid", "OTHER"), std::runtime_error);
    EXPECT_THROW(CatalogueGroup("'; DROP TABLE detail; --", "BASE"), std::runtime_error);
    EXPECT_NO_THROW(CatalogueGroup("liquid", "BASE"));
}

TEST(DetailCatalogue, LoadingAgainKeepsWhatIsThere)
{
    DetailList details;
    details.Add(DetailData("liquid/ph")).SetValue(7.4);
    details.LoadGroup("liquid", "BASE");
    const DetailData* address = details.GetDetail("liquid/na.orig");
    details.At("liquid/na.orig").SetValue(12.0);
    details.LoadGroup("liquid", "BASE");
    EXPECT_EQ(details.At("liquid/ph").GetDoubleValue(), 7.4);
    EXPECT_EQ(details.At("liquid/na.orig").GetDoubleValue(), 12.0);
    EXPECT_EQ(details.GetDetail("liquid/na.orig"), address);
}

TEST(DetailCatalogue, AFurtherProjectIsBuiltWithoutTheDatabase)
{
    const iex::IEXProject first;
    MasterDatabase::SetPath(MasterDatabase::GetPath());  // closes the file
    const auto start = std::chrono::steady_clock::now();
    constexpr int kProjects = 50;
    for (int i = 0; i < kProjects; ++i) {
        const iex::IEXProject project;
        ASSERT_EQ(project.GetLiquidCount(), 1U);
    }
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
    RecordProperty("microseconds_each", std::to_string(elapsed.count() * 1000.0 / kProjects));
    // Far above what it takes, far below what a query costs: this catches a cache that does not hold.
    EXPECT_LT(elapsed.count() / kProjects, 5.0);
    MasterDatabase::SetPath({});
}

}  // namespace
