// SPDX-License-Identifier: MIT
#pragma once

/// Plants with a water whose ions are told in meq/l, and short words for their values.

#include "projectbase/project/iex_project.h"

#include <map>
#include <stdexcept>
#include <string>

namespace support {

using IonsInMeq = std::map<std::string, double>;

/// Replaces the ions of the first water, SiO2 in mmol/l among them, and CO2 ("co2", mg/l).
inline void SetWater(iex::IEXProject& project, const IonsInMeq& meq, double celsius = 20.0)
{
    const ProjectEdit edit(project);
    DetailList& water = *project.GetLiquid(0).GetDetails();
    for (const auto& [ion, value] : meq) {
        if (ion == "co2") {
            water.At("liquid/co2.orig").SetValue(value);
            continue;
        }
        water.At("liquid/" + ion + ".orig").SetValue(value);
        water.At("liquid/" + ion + ".unit").SetValue("meq/l");
    }
    water.At("liquid/temp.orig").SetValue(celsius);
}

/// 20 m³/h for 12 h.
inline void SetFlow(iex::IEXProject& project, double flow = 20.0, double hours = 12.0)
{
    const ProjectEdit edit(project);
    project.GetDetails().At("project/qbrutto").SetValue(flow);
    project.GetDetails().At("project/lz").SetValue(hours);
}

inline DetailData& Detail(Project& project, const std::string& owner, const std::string& key)
{
    OwnerNode* node = project.FindOwner(owner);
    if (node == nullptr)
        throw std::runtime_error("there is no " + owner);
    return node->GetDetails()->At(key);
}

inline double Get(Project& project, const std::string& owner, const std::string& key)
{
    return Detail(project, owner, key).GetDoubleValue();
}

template <typename Value>
void Put(Project& project, const std::string& owner, const std::string& key, Value value)
{
    Detail(project, owner, key).SetValue(value);
}

/// Takes the rows of an exchanger's sequence away.
inline void RemoveRows(iex::IEXProject& project, std::size_t exchanger)
{
    const ProjectEdit edit(project);
    const auto rows = project.GetStep(exchanger).GetChildren(OwnerKind::SequenceRow);
    for (const OwnerNode::Nodes nodes(rows.begin(), rows.end()); const auto& row : nodes)
        project.RemoveOwner(*row);
}

/// A row of a sequence with its volume (m³).
inline OwnerNode& AddRow(iex::IEXProject& project, std::size_t exchanger, const std::string& type,
                         const std::string& medium, double volume)
{
    const ProjectEdit edit(project);
    OwnerNode& row = project.AddOwner(project.GetStep(exchanger), OwnerKind::SequenceRow);
    row.GetDetails()->At("regseqstep/type").SetValue(type);
    row.GetDetails()->At("regseqstep/medium").SetValue(medium);
    row.GetDetails()->At("regseqstep/amount.typed").SetValue("vol");
    row.GetDetails()->At("regseqstep/vol").SetValue(volume);
    return row;
}

}  // namespace support
