// SPDX-License-Identifier: MIT
#include "projectbase/library/compound_import.h"

#include "core/text_limits.h"
#include "dbinterfaces/project_database.h"

#include <stdexcept>
#include <string_view>
#include <unordered_map>

namespace compound_import {

namespace {

constexpr std::string_view kImportedSuffix = " (imported)";

}  // namespace

std::string Key(const DBObjects::Compound& compound)
{
    return compound.name + "|" + compound.formula;
}

Plan MakePlan(const std::vector<DBObjects::Compound>& incoming,
              const std::vector<DBObjects::Compound>& existing)
{
    std::unordered_map<std::string, const DBObjects::Compound*> known;
    for (const DBObjects::Compound& compound : existing)
        known.emplace(Key(compound), &compound);
    Plan plan;
    for (std::size_t i = 0; i < incoming.size(); ++i) {
        const auto found = known.find(Key(incoming[i]));
        if (found != known.end())
            plan.duplicates.push_back({incoming[i], *found->second, i});
        else
            plan.added.push_back(incoming[i]);
    }
    return plan;
}

std::size_t CarryOut(const Plan& plan, const std::vector<Decision>& decisions)
{
    if (decisions.size() != plan.duplicates.size())
        throw std::invalid_argument("compound_import::CarryOut: each duplicate needs one decision");
    std::vector<DBObjects::Compound> written = plan.added;
    for (DBObjects::Compound& compound : written)
        compound.id = -1;
    for (std::size_t i = 0; i < decisions.size(); ++i) {
        const Duplicate& duplicate = plan.duplicates[i];
        if (decisions[i] == Decision::Skip)
            continue;
        written.push_back(duplicate.incoming);
        if (decisions[i] == Decision::Replace) {
            written.back().id = duplicate.existing.id;
        } else {
            written.back().id = -1;
            written.back().name = std::string(
                text_limits::Cut(written.back().name, text_limits::kName - kImportedSuffix.size()));
            written.back().name += kImportedSuffix;
        }
    }
    if (!written.empty())
        ProjectDatabase::InsertOrReplaceCompounds(written);
    return written.size();
}

}  // namespace compound_import
