// SPDX-License-Identifier: MIT
#include "projectbase/water/liquid_data.h"

LiquidData::LiquidData(std::string name) : OwnerNode(OwnerKind::Water, std::move(name)) {}

std::shared_ptr<OwnerNode> LiquidData::Clone() const
{
    return std::shared_ptr<OwnerNode>(new LiquidData(*this));
}
