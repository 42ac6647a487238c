// SPDX-License-Identifier: MIT
#include "projectbase/water/liquid_data.h"

LiquidData::LiquidData(std::string name) : m_name(std::move(name))
{
    m_details.LoadGroup("liquid", "BASE");
}
