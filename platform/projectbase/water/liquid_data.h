// SPDX-License-Identifier: MIT
#pragma once

/// One water of a project: its details, all of which have keys that begin with "liquid/".

#include "projectbase/project/owner_node.h"
#include "projectbase/projectbase_export.h"
#include "projectbase/water/alkalization.h"

#include <string>

class PROJECTBASE_EXPORT LiquidData : public OwnerNode
{
public:
    /// A water with every detail of the catalogue group "liquid", variant "BASE", at its default.
    explicit LiquidData(std::string name = {});

    /// How the alkalization of the water went when it was calculated last.
    water::AlkalizationResult GetAlkalization() const { return m_alkalization; }
    void SetAlkalization(water::AlkalizationResult result) { m_alkalization = result; }

protected:
    LiquidData(const LiquidData&) = default;
    std::shared_ptr<OwnerNode> Clone() const override;

private:
    water::AlkalizationResult m_alkalization = water::AlkalizationResult::None;
};
