// SPDX-License-Identifier: MIT
#include "projectbase/sequence/sequence_tables.h"

#include "dbinterfaces/master_database.h"

#include <algorithm>

namespace sequence {

namespace {

template <typename Record>
const Record* Find(const std::vector<Record>& records, std::string_view key)
{
    const auto found = std::ranges::find(records, key, &Record::key);
    return found == records.end() ? nullptr : &*found;
}

const std::vector<Default>& Defaults()
{
    static const std::vector<Default> defaults = MasterDatabase::GetSequenceDefaults();
    return defaults;
}

}  // namespace

const std::vector<Medium>& Media()
{
    static const std::vector<Medium> media = MasterDatabase::GetSequenceMedia();
    return media;
}

const std::vector<Type>& Types()
{
    static const std::vector<Type> types = MasterDatabase::GetSequenceTypes();
    return types;
}

const Medium* FindMedium(std::string_view key)
{
    return Find(Media(), key);
}

const Type* FindType(std::string_view key)
{
    return Find(Types(), key);
}

const Medium* MediumOfChemical(std::string_view chemical)
{
    const auto found = std::ranges::find(Media(), chemical, &Medium::chemical);
    return chemical.empty() || found == Media().end() ? nullptr : &*found;
}

bool CanHave(const Type& type, const Medium& medium)
{
    const bool isWater = medium.kind == "water" || medium.kind == "product";
    return type.rowClass == medium.kind || (isWater && (type.rowClass == "flow" || type.rowClass == "still"));
}

bool IsRegeneration(std::string_view type)
{
    return type == kRegenerant || type == kFirstRegenerant;
}

std::vector<const Default*> DefaultsOf(std::string_view kind)
{
    std::vector<const Default*> rows;
    for (const Default& row : Defaults()) {
        if (row.kind == kind)
            rows.push_back(&row);
    }
    return rows;
}

}  // namespace sequence
