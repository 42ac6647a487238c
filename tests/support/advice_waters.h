// SPDX-License-Identifier: MIT
#pragma once

/// Waters of the examples as they were published, at the temperature and pH that a test takes.

#include "tests/support/water_fixture.h"

namespace testing_support {

/// Mean river water of the world (Livingstone 1963), as if its pH had been 7.5.
inline WaterUnderTest RiverWater()
{
    WaterUnderTest water;
    for (const auto& [ion, amount] : {std::pair("ca", 15.0),
                                      {"mg", 4.1},
                                      {"na", 6.3},
                                      {"k", 2.3},
                                      {"fe2", 0.67},
                                      {"hco3", 58.4},
                                      {"so4", 11.2},
                                      {"cl", 7.8},
                                      {"no3", 1.0},
                                      {"sio2", 13.1}})
        water.Type(ion, amount, "mg/l");
    water.Set("ph", 7.5).Set("temp.orig", 25.0).Update();
    return water;
}

/// Station 1401030 of British Columbia in 2016.
inline WaterUnderTest GroundWater(double celsius = 25.0)
{
    WaterUnderTest water;
    for (const auto& [ion, amount] : {std::pair("ca", 134.0),
                                      {"mg", 26.3},
                                      {"na", 15.6},
                                      {"k", 4.17},
                                      {"so4", 190.0},
                                      {"cl", 7.8},
                                      {"f", 0.1},
                                      {"sio2", 21.82}})
        water.Type(ion, amount, "mg/l");
    water.Type("alkalinity.m", 5.555, "mmol/l");
    water.Set("ph", 7.84).Set("temp.orig", celsius).Update();
    return water;
}

/// A groundwater of Brandenburg, with barium and strontium that it may hold.
inline WaterUnderTest BariumWater()
{
    WaterUnderTest water;
    for (const auto& [ion, amount] : {std::pair("ca", 101.0),
                                      {"mg", 7.26},
                                      {"na", 16.3},
                                      {"k", 1.32},
                                      {"nh4", 0.1},
                                      {"fe2", 0.98},
                                      {"mn", 0.37},
                                      {"hco3", 177.0},
                                      {"so4", 120.0},
                                      {"cl", 35.0},
                                      {"ba", 0.08},
                                      {"sr", 0.5}})
        water.Type(ion, amount, "mg/l");
    water.Set("ph", 7.79).Set("temp.orig", 12.5).Update();
    return water;
}

}  // namespace testing_support
