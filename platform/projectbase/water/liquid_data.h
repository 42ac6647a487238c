// SPDX-License-Identifier: MIT
#pragma once

/// One water of a project: its details, all of which have keys that begin with "liquid/".

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <string>

class PROJECTBASE_EXPORT LiquidData
{
public:
    /// A water with every detail of the catalogue group "liquid", variant "BASE", at its default.
    explicit LiquidData(std::string name = {});

    DetailList* GetDetails() { return &m_details; }
    const DetailList* GetDetails() const { return &m_details; }
    /// The detail of that key, or null.
    DetailData* FindDetail(const std::string& key) { return m_details.GetDetail(key); }
    const DetailData* FindDetail(const std::string& key) const { return m_details.GetDetail(key); }

    const std::string& GetName() const { return m_name; }
    void SetName(std::string name) { m_name = std::move(name); }

private:
    std::string m_name;
    DetailList m_details;
};
