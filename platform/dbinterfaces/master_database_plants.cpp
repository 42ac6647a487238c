// SPDX-License-Identifier: MIT
// What the master database knows of plants: their types, resins, regenerants and sequences.
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/master_session.h"

#include <algorithm>
#include <limits>

using master::Run;

namespace {

/// NaN for what is null.
double NumberAt(const soci::row& row, std::size_t column)
{
    return row.get_indicator(column) == soci::i_ok ? row.get<double>(column)
                                                   : std::numeric_limits<double>::quiet_NaN();
}

/// The first five columns of what sequences are made of.
DBObjects::SequenceFigures FiguresOf(const soci::row& row)
{
    return {row.get<std::string>(0), row.get<std::string>(1), NumberAt(row, 2), row.get<std::string>(3),
            NumberAt(row, 4)};
}

}  // namespace

std::vector<DBObjects::PlantType> MasterDatabase::GetPlantTypes()
{
    return Run("GetPlantTypes", [](soci::session& session) {
        std::vector<DBObjects::PlantType> types;
        const soci::rowset<soci::row> rows =
            (session.prepare << "SELECT t.type, t.name, e.kind, e.optional FROM plant_type t "
                                "LEFT JOIN plant_exchanger e ON e.type = t.type ORDER BY t.id, e.position");
        for (const soci::row& row : rows) {
            const auto type = row.get<std::string>(0);
            if (types.empty() || types.back().type != type)
                types.push_back({type, row.get<std::string>(1), {}});
            if (row.get_indicator(2) == soci::i_ok)
                types.back().exchangers.push_back({row.get<std::string>(2), row.get<int>(3) != 0});
        }
        return types;
    });
}

std::vector<DBObjects::Regenerant> MasterDatabase::GetRegenerants()
{
    return Run("GetRegenerants",
               [](soci::session& session) {
                   std::vector<DBObjects::Regenerant> regenerants;
                   const soci::rowset<soci::row> rows =
                       (session.prepare
                        << "SELECT r.id, r.code, r.name, r.formula, r.kind, r.equivalent_mass, d.percent, "
                           "d.density FROM regenerant r JOIN regenerant_density d ON d.code = r.code "
                           "ORDER BY r.id, d.percent");
                   for (const soci::row& row : rows) {
                       const int id = row.get<int>(0);
                       if (regenerants.empty() || regenerants.back().id != id)
                           regenerants.push_back({id,
                                                  row.get<std::string>(1),
                                                  row.get<std::string>(2),
                                                  row.get<std::string>(3),
                                                  row.get<std::string>(4),
                                                  row.get<double>(5),
                                                  {}});
                       regenerants.back().densities.push_back({row.get<double>(6), row.get<double>(7)});
                   }
                   return regenerants;
               });
}

std::vector<DBObjects::SequenceMedium> MasterDatabase::GetSequenceMedia()
{
    return Run("GetSequenceMedia", [](soci::session& session) {
        std::vector<DBObjects::SequenceMedium> media;
        const soci::rowset<soci::row> rows =
            (session.prepare << "SELECT code, label, kind, chemical FROM sequence_medium ORDER BY id");
        for (const soci::row& row : rows)
            media.push_back({row.get<std::string>(0), row.get<std::string>(1), row.get<std::string>(2),
                             row.get<std::string>(3)});
        return media;
    });
}

std::vector<DBObjects::SequenceType> MasterDatabase::GetSequenceTypes()
{
    return Run("GetSequenceTypes",
               [](soci::session& session) {
                   std::vector<DBObjects::SequenceType> types;
                   const soci::rowset<soci::row> rows =
                       (session.prepare
                        << "SELECT direction, flow, flow_value, amount, amount_value, code, label, class "
                           "FROM sequence_type ORDER BY id");
                   for (const soci::row& row : rows)
                       types.push_back({row.get<std::string>(5), row.get<std::string>(6),
                                        row.get<std::string>(7), FiguresOf(row)});
                   return types;
               });
}

std::vector<DBObjects::SequenceDefault> MasterDatabase::GetSequenceDefaults()
{
    return Run("GetSequenceDefaults",
               [](soci::session& session) {
                   std::vector<DBObjects::SequenceDefault> defaults;
                   const soci::rowset<soci::row> rows =
                       (session.prepare
                        << "SELECT direction, flow, flow_value, amount, amount_value, kind, type, medium "
                           "FROM sequence_default ORDER BY id");
                   for (const soci::row& row : rows)
                       defaults.push_back({row.get<std::string>(5), row.get<std::string>(6),
                                           row.get<std::string>(7), FiguresOf(row)});
                   return defaults;
               });
}

std::vector<DBObjects::Resin> MasterDatabase::GetResins()
{
    return Run("GetResins", [](soci::session& session) {
        std::vector<DBObjects::Resin> resins;
        const soci::rowset<soci::row> rows =
            (session.prepare << "SELECT id, code, name, kind, total_capacity, capacity, bead, density, "
                                "bulk_density, void, swelling, v_max, t_max FROM resin ORDER BY id");
        for (const soci::row& row : rows) {
            const auto at = [&row](std::size_t column) { return NumberAt(row, column); };
            resins.push_back({row.get<int>(0),
                              row.get<std::string>(1),
                              row.get<std::string>(2),
                              row.get<std::string>(3),
                              at(4),
                              at(5),
                              at(6),
                              at(7),
                              at(8),
                              at(9),
                              at(10),
                              at(11),
                              at(12),
                              {}});
        }
        const soci::rowset<soci::row> regenerations =
            (session.prepare << "SELECT resin, chemical, mode, q_max, k, level_min, level_max, ratio_min, "
                                "ratio_max FROM resin_regeneration ORDER BY id");
        for (const soci::row& row : regenerations) {
            const auto at = [&row](std::size_t column) { return NumberAt(row, column); };
            const auto resin = std::ranges::find(resins, row.get<std::string>(0), &DBObjects::Resin::key);
            if (resin != resins.end())
                resin->regenerations.push_back({row.get<std::string>(1), row.get<std::string>(2), at(3),
                                                at(4), at(5), at(6), at(7), at(8)});
        }
        return resins;
    });
}

std::vector<DBObjects::ExchangerDefault> MasterDatabase::GetExchangerDefaults()
{
    return Run("GetExchangerDefaults",
               [](soci::session& session) {
                   std::vector<DBObjects::ExchangerDefault> defaults;
                   const soci::rowset<soci::row> rows =
                       (session.prepare
                        << "SELECT plant, kind, compartment, mode, v_max, resin, chemical, level, supply, "
                           "dilution, temperature FROM exchanger_default ORDER BY plant DESC, kind, "
                           "compartment");
                   for (const soci::row& row : rows) {
                       const auto at = [&row](std::size_t column) { return NumberAt(row, column); };
                       defaults.push_back({row.get<std::string>(0), row.get<std::string>(1), row.get<int>(2),
                                           row.get<std::string>(3), at(4), row.get<std::string>(5),
                                           row.get<std::string>(6), at(7), at(8), at(9), at(10)});
                   }
                   return defaults;
               });
}

std::vector<DBObjects::WhatIfPair> MasterDatabase::GetWhatIfTable(const std::string& type)
{
    return Run("GetWhatIfTable", [&](soci::session& session) {
        DBObjects::WhatIfPair pair;
        std::vector<DBObjects::WhatIfPair> pairs;
        soci::statement statement =
            (session.prepare << "SELECT step, first, first_label, second, second_label FROM what_if "
                                "WHERE type = :type ORDER BY position",
             soci::use(type, "type"), soci::into(pair.step), soci::into(pair.first),
             soci::into(pair.firstLabel), soci::into(pair.second), soci::into(pair.secondLabel));
        statement.execute();
        while (statement.fetch())
            pairs.push_back(pair);
        return pairs;
    });
}

DBObjects::GraphicInfo MasterDatabase::GetGraphicInfo(const std::string& moduleType,
                                                      const std::string& graphicType,
                                                      const std::vector<std::string>& keys)
{
    std::string joined;
    for (const std::string& key : keys)
        joined += (joined.empty() ? "" : " ") + key;
    return Run("GetGraphicInfo", [&](soci::session& session) {
        DBObjects::GraphicInfo info;
        session << "SELECT id, entry FROM graphic WHERE type = :type AND graphic = :graphic AND keys = :keys",
            soci::use(moduleType, "type"), soci::use(graphicType, "graphic"), soci::use(joined, "keys"),
            soci::into(info.id), soci::into(info.entry);
        if (!session.got_data())
            return DBObjects::GraphicInfo{};
        const soci::rowset<soci::row> rows =
            (session.prepare << "SELECT code, owner, key, with_unit, digits FROM placeholder "
                                "WHERE entry = :entry ORDER BY id",
             soci::use(info.entry, "entry"));
        for (const soci::row& row : rows)
            info.placeholders.push_back({row.get<std::string>(0), row.get<std::string>(1),
                                         row.get<std::string>(2), row.get<int>(3) != 0, row.get<int>(4)});
        return info;
    });
}
