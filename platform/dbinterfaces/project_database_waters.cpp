// SPDX-License-Identifier: MIT
// The library of waters in the user database.
#include "dbinterfaces/project_database.h"
#include "dbinterfaces/user_limits.h"
#include "dbinterfaces/user_session.h"
#include "dbinterfaces/water_queries.h"

namespace {

using user_session::Run;

constexpr water_queries::Tables kUserWaters{"tarnvik_", 1};
/// Countries of the user all stand in the one category that the tables begin with.
constexpr int kUserCategory = 1;

int NextId(const char* method, const char* counter)
{
    return Run(method, [counter](soci::session& session, const std::string&) {
        const std::string name = counter;
        int id = -1;
        session << "UPDATE tarnvik_counter SET last_id = last_id + 1 WHERE name = :name RETURNING last_id",
            soci::use(name), soci::into(id);
        return session.got_data() ? id : -1;
    });
}

/// Runs a statement that changes rows; whether it changed any.
template <typename... Uses>
bool Changes(soci::session& session, const char* text, const Uses&... uses)
{
    soci::statement statement(session);
    (statement.exchange(soci::use(uses)), ...);
    statement.alloc();
    statement.prepare(text);
    statement.define_and_bind();
    statement.execute(true);
    return statement.get_affected_rows() > 0;
}

}  // namespace

user_session::ValueStatement::ValueStatement(soci::session& session) : statement(session)
{
    for (std::string* text : {&key, &value, &unit, &label, &group})
        statement.exchange(soci::use(*text));
    statement.exchange(soci::use(water));
    statement.alloc();
    statement.prepare(
        "INSERT INTO tarnvik_water_value (water_id, name, value, unit, label, grp) "
        "SELECT w.id, CAST(:name AS TEXT), CAST(:value AS TEXT), CAST(:unit AS TEXT), "
        "CAST(:label AS TEXT), CAST(:grp AS TEXT) FROM tarnvik_water w WHERE w.id = :water "
        "ON CONFLICT (water_id, name) DO UPDATE SET value = excluded.value, "
        "unit = excluded.unit, label = excluded.label, grp = excluded.grp");
    statement.define_and_bind();
}

std::vector<DBObjects::WaterLibCategory> ProjectDatabase::WaterLib_GetUserCategories()
{
    return Run("WaterLib_GetUserCategories", [](soci::session& session, const std::string&) {
        return water_queries::Categories(session, kUserWaters);
    });
}

std::vector<DBObjects::WaterLibCountry> ProjectDatabase::WaterLib_GetUserCountries(int categoryId)
{
    return Run("WaterLib_GetUserCountries", [categoryId](soci::session& session, const std::string&) {
        return water_queries::Countries(session, kUserWaters, categoryId);
    });
}

std::vector<DBObjects::WaterLibWater> ProjectDatabase::WaterLib_GetUserWatersByCriteria(
    const std::vector<int>& nodeIds)
{
    return Run("WaterLib_GetUserWatersByCriteria", [&nodeIds](soci::session& session, const std::string&) {
        return water_queries::WatersOfNodes(session, kUserWaters, nodeIds);
    });
}

std::vector<DBObjects::WaterLibAttr> ProjectDatabase::WaterLib_GetUserAnalysisById(int waterId)
{
    return Run("WaterLib_GetUserAnalysisById", [waterId](soci::session& session, const std::string&) {
        return water_queries::Analysis(session, kUserWaters, waterId);
    });
}

DBObjects::WaterLibCountry ProjectDatabase::WaterLib_GetUserCountry(const std::string& name)
{
    return Run("WaterLib_GetUserCountry", [&name](soci::session& session, const std::string&) {
        DBObjects::WaterLibCountry country;
        session << "SELECT c.id, c.category_id, c.name, "
                   "CAST((SELECT count(*) FROM tarnvik_water w WHERE w.country_id = c.id) AS INTEGER) "
                   "FROM tarnvik_water_country c WHERE c.name = :name ORDER BY c.id LIMIT 1",
            soci::use(name), soci::into(country.id), soci::into(country.categoryId), soci::into(country.name),
            soci::into(country.waterCount);
        return session.got_data() ? country : DBObjects::WaterLibCountry();
    });
}

std::vector<DBObjects::WaterLibWater> ProjectDatabase::WaterLib_GetUserWatersByValues(
    int countryId, const std::string& place, const std::string& source, int exceptId)
{
    return Run("WaterLib_GetUserWatersByValues", [&](soci::session& session, const std::string&) {
        std::vector<DBObjects::WaterLibWater> waters;
        DBObjects::WaterLibWater row;
        row.user = kUserWaters.user;
        soci::statement statement =
            (session.prepare << "SELECT w.id, w.country_id, c.name, w.place, w.source FROM tarnvik_water w "
                                "JOIN tarnvik_water_country c ON c.id = w.country_id "
                                "WHERE w.country_id = :country "
                                "AND substr(w.place, 1, 64) = substr(:place, 1, 64) AND w.place = :place "
                                "AND w.source = :source AND w.id <> :except ORDER BY w.id",
             soci::use(countryId, "country"), soci::use(place, "place"), soci::use(source, "source"),
             soci::use(exceptId, "except"), soci::into(row.id), soci::into(row.countryId),
             soci::into(row.country), soci::into(row.place), soci::into(row.source));
        statement.execute();
        while (statement.fetch())
            waters.push_back(row);
        return waters;
    });
}

int ProjectDatabase::GetNextWaterLibCountryId()
{
    return NextId("GetNextWaterLibCountryId", "water.node");
}

int ProjectDatabase::GetNextWaterLibWatersId()
{
    return NextId("GetNextWaterLibWatersId", "water");
}

bool ProjectDatabase::WaterLib_SaveUserCountry(int id, const std::string& name)
{
    return Run("WaterLib_SaveUserCountry", [&](soci::session& session, const std::string&) {
        user_limits::Require("the country", name);
        return Changes(
            session,
            "INSERT INTO tarnvik_water_country (id, category_id, name) "
            "SELECT CAST(:id AS INTEGER), CAST(:category AS INTEGER), CAST(:name AS TEXT) "
            "WHERE NOT EXISTS (SELECT 1 FROM tarnvik_water_country WHERE name = :other AND id <> :self) "
            "AND NOT EXISTS (SELECT 1 FROM tarnvik_water_category WHERE id = :node) "
            "ON CONFLICT (id) DO UPDATE SET name = excluded.name",
            id, kUserCategory, name, name, id, id);
    });
}

bool ProjectDatabase::WaterLib_SaveUserWater(int id, int countryId, const std::string& place,
                                             const std::string& source)
{
    return Run("WaterLib_SaveUserWater", [&](soci::session& session, const std::string&) {
        user_limits::Require("the place", place);
        user_limits::Require("the source", source);
        return Changes(session,
                       "INSERT INTO tarnvik_water (id, country_id, place, source) "
                       "SELECT CAST(:id AS INTEGER), c.id, CAST(:place AS TEXT), CAST(:source AS TEXT) "
                       "FROM tarnvik_water_country c WHERE c.id = :country "
                       "ON CONFLICT (id) DO UPDATE SET country_id = excluded.country_id, "
                       "place = excluded.place, source = excluded.source",
                       id, place, source, countryId);
    });
}

bool ProjectDatabase::WaterLib_SaveUserLiquidDetail(int waterId, const std::string& key,
                                                    const std::string& value, const std::string& unit,
                                                    const std::string& label, const std::string& group)
{
    return Run("WaterLib_SaveUserLiquidDetail", [&](soci::session& session, const std::string&) {
        user_limits::Require("the value of " + label, value, text_limits::kText);
        for (const std::string_view text : {std::string_view(key), std::string_view(unit),
                                            std::string_view(label), std::string_view(group)})
            user_limits::Require("the text", text);
        auto& kept = user_session::Get().saveValue;
        // Out of its place while it runs: one that failed is not used again.
        auto save = kept ? std::move(kept) : std::make_unique<user_session::ValueStatement>(session);
        save->water = waterId;
        save->key = key;
        save->value = value;
        save->unit = unit;
        save->label = label;
        save->group = group;
        save->statement.execute(true);
        const bool saved = save->statement.get_affected_rows() > 0;
        kept = std::move(save);
        return saved;
    });
}

void ProjectDatabase::WaterLib_DeleteUserLiquidDetails(int waterId)
{
    Run("WaterLib_DeleteUserLiquidDetails", [waterId](soci::session& session, const std::string&) {
        Changes(session, "DELETE FROM tarnvik_water_value WHERE water_id = :water", waterId);
    });
}

bool ProjectDatabase::WaterLib_DeleteUserWater(int id)
{
    Transaction transaction;
    const bool removed = Run("WaterLib_DeleteUserWater", [id](soci::session& session, const std::string&) {
        Changes(session, "DELETE FROM tarnvik_water_value WHERE water_id = :water", id);
        return Changes(session, "DELETE FROM tarnvik_water WHERE id = :water", id);
    });
    transaction.Commit();
    return removed;
}

bool ProjectDatabase::WaterLib_DeleteUserCountry(int id)
{
    Transaction transaction;
    const bool removed = Run("WaterLib_DeleteUserCountry", [id](soci::session& session, const std::string&) {
        Changes(session,
                "DELETE FROM tarnvik_water_value WHERE water_id IN "
                "(SELECT id FROM tarnvik_water WHERE country_id = :country)",
                id);
        Changes(session, "DELETE FROM tarnvik_water WHERE country_id = :country", id);
        return Changes(session, "DELETE FROM tarnvik_water_country WHERE id = :country", id);
    });
    transaction.Commit();
    return removed;
}
