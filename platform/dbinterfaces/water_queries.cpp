// SPDX-License-Identifier: MIT
#include "dbinterfaces/water_queries.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

namespace water_queries {

namespace {

/// Databases bound the number of parameters of a statement.
constexpr std::size_t kMostParameters = 500;

std::string Placeholders(std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += fmt::format("{}:n{}", i == 0 ? "" : ", ", i);
    return text;
}

/// Runs `query`, in which {ids} stands for the list of `ids`, and hands each row to `take`.
template <typename Into, typename Take>
void ForEachRow(soci::session& session, const std::string& query, const std::vector<int>& ids, Into into,
                Take take)
{
    for (std::size_t start = 0; start < ids.size(); start += kMostParameters) {
        const std::size_t count = std::min(kMostParameters, ids.size() - start);
        soci::statement statement(session);
        into(statement);
        for (std::size_t i = 0; i < count; ++i)
            statement.exchange(soci::use(ids[start + i], fmt::format("n{}", i)));
        statement.alloc();
        statement.prepare(fmt::format(fmt::runtime(query), fmt::arg("ids", Placeholders(count))));
        statement.define_and_bind();
        statement.execute();
        while (statement.fetch())
            take();
    }
}

/// The countries among the nodes and those of the categories among them, each once.
std::vector<int> CountriesOfNodes(soci::session& session, const Tables& tables,
                                  const std::vector<int>& nodeIds)
{
    const std::set<int> distinct(nodeIds.begin(), nodeIds.end());
    const std::vector<int> nodes(distinct.begin(), distinct.end());
    std::set<int> countries;
    int id = -1;
    for (const char* column : {"id", "category_id"}) {
        ForEachRow(
            session,
            fmt::format("SELECT id FROM {}water_country WHERE {} IN ({{ids}})", tables.prefix, column), nodes,
            [&id](soci::statement& statement) { statement.exchange(soci::into(id)); },
            [&] { countries.insert(id); });
    }
    return {countries.begin(), countries.end()};
}

auto SortKey(const DBObjects::WaterLibWater& water)
{
    return std::tie(water.country, water.place, water.source, water.id);
}

}  // namespace

std::vector<DBObjects::WaterLibCategory> Categories(soci::session& session, const Tables& tables)
{
    std::vector<DBObjects::WaterLibCategory> categories;
    DBObjects::WaterLibCategory row;
    soci::statement statement =
        (session.prepare << fmt::format(
             "SELECT id, name, position FROM {}water_category ORDER BY position, id", tables.prefix),
         soci::into(row.id), soci::into(row.name), soci::into(row.position));
    statement.execute();
    while (statement.fetch())
        categories.push_back(row);
    return categories;
}

std::vector<DBObjects::WaterLibCountry> Countries(soci::session& session, const Tables& tables,
                                                  int categoryId)
{
    std::vector<DBObjects::WaterLibCountry> countries;
    DBObjects::WaterLibCountry row;
    soci::statement statement =
        (session.prepare << fmt::format(
             "SELECT c.id, c.category_id, c.name, "
             "CAST((SELECT count(*) FROM {0}water w WHERE w.country_id = c.id) AS INTEGER) "
             "FROM {0}water_country c WHERE c.category_id = :category ORDER BY c.name, c.id",
             tables.prefix),
         soci::use(categoryId, "category"), soci::into(row.id), soci::into(row.categoryId),
         soci::into(row.name), soci::into(row.waterCount));
    statement.execute();
    while (statement.fetch())
        countries.push_back(row);
    return countries;
}

std::vector<DBObjects::WaterLibWater> WatersOfNodes(soci::session& session, const Tables& tables,
                                                    const std::vector<int>& nodeIds)
{
    std::vector<DBObjects::WaterLibWater> waters;
    DBObjects::WaterLibWater row;
    row.user = tables.user;
    ForEachRow(
        session,
        fmt::format("SELECT w.id, w.country_id, c.name, w.place, w.source FROM {0}water_country c "
                    "JOIN {0}water w ON w.country_id = c.id WHERE c.id IN ({{ids}})",
                    tables.prefix),
        CountriesOfNodes(session, tables, nodeIds),
        [&row](soci::statement& statement) {
            statement.exchange(soci::into(row.id));
            statement.exchange(soci::into(row.countryId));
            statement.exchange(soci::into(row.country));
            statement.exchange(soci::into(row.place));
            statement.exchange(soci::into(row.source));
        },
        [&] { waters.push_back(row); });
    // Here, since databases compare texts in ways of their own.
    std::sort(waters.begin(), waters.end(),
              [](const auto& a, const auto& b) { return SortKey(a) < SortKey(b); });
    return waters;
}

std::vector<DBObjects::WaterLibAttr> Analysis(soci::session& session, const Tables& tables, int waterId)
{
    std::vector<DBObjects::WaterLibAttr> values;
    DBObjects::WaterLibAttr row;
    soci::statement statement =
        (session.prepare << fmt::format(
             "SELECT name, value, unit FROM {}water_value WHERE water_id = :water ORDER BY name",
             tables.prefix),
         soci::use(waterId), soci::into(row.key), soci::into(row.value), soci::into(row.unit));
    statement.execute();
    while (statement.fetch())
        values.push_back(row);
    return values;
}

}  // namespace water_queries
