// SPDX-License-Identifier: MIT
#include "projectbase/design/resins.h"

#include "dbinterfaces/master_database.h"

#include <algorithm>

namespace design {

const std::vector<Resin>& Resins()
{
    static const std::vector<Resin> resins = MasterDatabase::GetResins();
    return resins;
}

const Resin* FindResin(std::string_view key)
{
    const auto found = std::ranges::find(Resins(), key, &Resin::key);
    return found == Resins().end() ? nullptr : &*found;
}

const ResinRegeneration* FindRegeneration(const Resin& resin, std::string_view chemical,
                                          std::string_view mode)
{
    const auto found = std::ranges::find_if(resin.regenerations, [&](const ResinRegeneration& each) {
        return each.chemical == chemical && (each.mode.empty() || each.mode == mode);
    });
    return found == resin.regenerations.end() ? nullptr : &*found;
}

bool IsRegeneratedWith(const Resin& resin, std::string_view chemical)
{
    return std::ranges::find(resin.regenerations, chemical, &ResinRegeneration::chemical) !=
           resin.regenerations.end();
}

const ExchangerDefault* FindDefault(std::string_view plantType, std::string_view kind,
                                    std::size_t compartment)
{
    static const std::vector<ExchangerDefault> defaults = MasterDatabase::GetExchangerDefaults();
    const auto found = std::ranges::find_if(defaults, [&](const ExchangerDefault& each) {
        return plantType.starts_with(each.plant) && each.kind == kind &&
               static_cast<std::size_t>(each.compartment) == compartment + 1;
    });
    return found == defaults.end() ? nullptr : &*found;
}

}  // namespace design
