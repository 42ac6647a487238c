// SPDX-License-Identifier: MIT
#include "projectbase/units/unit_system_manager.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

struct Case
{
    std::string iso;
    std::string system;
    std::string shown;
    double isoValue;
    double shownValue;
};

// Reference figures from the defining relations, to the digits in which handbooks print them.
const Case kCases[] = {
    {"m3/h", "us", "gpm", 1.0, 4.402867539},
    {"m3/h", "imperial", "igpm", 1.0, 3.666154148},
    {"m3", "us", "gal", 1.0, 264.1720524},
    {"m3", "imperial", "igal", 1.0, 219.9692483},
    {"l", "us", "gal", 3.785411784, 1.0},
    {"l", "imperial", "igal", 4.54609, 1.0},
    {"bar", "us", "psi", 1.0, 14.50377377},
    {"bar", "imperial", "psi", 1.0, 14.50377377},
    {"kPa", "us", "psi", 101.325, 14.69594878},
    {"m", "us", "ft", 1.0, 3.280839895},
    {"mm", "us", "in", 25.4, 1.0},
    {"m2", "imperial", "ft2", 1.0, 10.76391042},
    {"kg", "us", "lb", 1.0, 2.204622622},
    {"g/l", "us", "lb/ft3", 16.01846337, 1.0},
    {"kg/l", "us", "lb/gal", 1.0, 8.345404452},
    {"kg/l", "imperial", "lb/igal", 1.0, 10.02241279},
    {"m/h", "us", "gpm/ft2", 1.0, 0.4090397},
    {"m3/d", "us", "gpd", 1.0, 264.1720524},
    {"eq/d", "us", "kgr/d", 1.0, 0.7722885},
    {"eq/l", "us", "kgr/ft3", 1.0, 21.8687737},
    {"kW", "us", "hp", 0.745699872, 1.0},
    {"°C", "us", "°F", 100.0, 212.0},
    {"°C", "us", "°F", -40.0, -40.0},
    {"°C", "us", "°F", 0.0, 32.0},
    {"°C", "imperial", "°C", 20.0, 20.0},
    // What no system converts, what no table knows, and systems that do not exist.
    {"mg/l", "us", "mg/l", 7.5, 7.5},
    {"meq/l", "imperial", "meq/l", 7.5, 7.5},
    {"uS/cm", "us", "uS/cm", 7.5, 7.5},
    {"mol/l", "us", "mol/l", 7.5, 7.5},
    {"kWh", "us", "kWh", 7.5, 7.5},
    {"EUR/m3", "us", "EUR/kgal", 7.5, 28.39058838},
    {"EUR/l", "us", "EUR/ft3", 3.0, 84.950539776},
    {"EUR/kg", "imperial", "EUR/lb", 2.0, 0.90718474},
    {"EUR", "us", "EUR", 7.5, 7.5},
    {"", "us", "", 7.5, 7.5},
    {"bar", "iso", "bar", 7.5, 7.5},
    {"bar", "martian", "bar", 7.5, 7.5},
};

TEST(UnitSystemManager, ConvertsEveryListedUnit)
{
    for (const Case& row : kCases) {
        SCOPED_TRACE(row.iso + " in " + row.system);
        EXPECT_EQ(UnitSystemManager::GetUnit(row.iso, row.system, false), row.shown);
        const double tolerance = 1e-6 * std::max(1.0, std::abs(row.shownValue));
        EXPECT_NEAR(UnitSystemManager::FromISO(row.iso, row.system, row.isoValue), row.shownValue, tolerance);
        EXPECT_NEAR(UnitSystemManager::ToISO(row.iso, row.system, row.shownValue), row.isoValue, tolerance);
    }
}

TEST(UnitSystemManager, KeepsTheLastDigitOverARoundTrip)
{
    for (const Case& row : kCases) {
        for (const double value : {1.0, 0.1, 3.1415926535897931, 12345.678, 1e-7, 4e12}) {
            const double shown = UnitSystemManager::FromISO(row.iso, row.system, value);
            const double back = UnitSystemManager::ToISO(row.iso, row.system, shown);
            // An offset costs the digits that the smaller of both numbers has behind those of the larger one.
            const double scale = row.iso == "°C" ? std::max(value, 32.0) : value;
            EXPECT_LE(std::abs(back - value), 2.0 * std::numeric_limits<double>::epsilon() * scale)
                << row.iso << " in " << row.system << ", " << value;
        }
    }
    EXPECT_TRUE(std::isnan(UnitSystemManager::ToISO("°C", "us", std::nan(""))));
}

TEST(UnitSystemManager, WritesTypographicUnits)
{
    const struct
    {
        const char* iso;
        const char* system;
        const char* expected;
    } cases[] = {
        {"m3/h", "iso", "m³/h"}, {"m2", "us", "ft²"},        {"m/h", "us", "gpm/ft²"},
        {"g/m3", "iso", "g/m³"}, {"uS/cm", "us", "µS/cm"},   {"ppm CaCO3", "us", "ppm CaCO3"},
        {"kg.m", "iso", "kg·m"}, {"EUR/l", "us", "EUR/ft³"}, {"mgCaCO3/l", "us", "mgCaCO3/l"},
        {"°C", "us", "°F"},      {"NTU", "us", "NTU"},       {"EUR", "us", "EUR"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(UnitSystemManager::GetUnit(row.iso, row.system, true), row.expected) << row.iso;
}

}  // namespace
