// SPDX-License-Identifier: MIT
#pragma once

/// A water whose values are typed by detail key, as a panel would.

#include "projectbase/water/liquid_data.h"
#include "projectbase/water/normalization.h"

#include <initializer_list>
#include <memory>
#include <string>

namespace testing_support {

class WaterUnderTest
{
public:
    DetailList& Details() { return *m_liquid->GetDetails(); }
    double operator[](const std::string& key) { return Details().At("liquid/" + key).GetDoubleValue(); }

    template <typename Value>
    WaterUnderTest& Set(const std::string& key, Value value)
    {
        Details().At("liquid/" + key).SetValue(value);
        return *this;
    }
    WaterUnderTest& Type(const std::string& ion, double value, const char* unit)
    {
        return Set(ion + ".orig", value).Set(ion + ".unit", unit);
    }
    WaterUnderTest& Update()
    {
        water::NormalizeEveryIon(Details());
        water::UpdateDerivedValues(Details());
        return *this;
    }

private:
    std::unique_ptr<LiquidData> m_liquid = std::make_unique<LiquidData>();
};

}  // namespace testing_support
