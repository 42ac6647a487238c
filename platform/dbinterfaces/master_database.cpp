// SPDX-License-Identifier: MIT
#include "dbinterfaces/master_database.h"

#include "dbinterfaces/compound_name_table.h"
#include "dbinterfaces/compound_queries.h"
#include "dbinterfaces/database_error.h"
#include "dbinterfaces/master_session.h"
#include "dbinterfaces/plain_language.h"
#include "dbinterfaces/sqlite_connection.h"
#include "dbinterfaces/sqlite_peek.h"
#include "dbinterfaces/water_queries.h"
#include "tncommon/data_dir.h"

#include <fmt/format.h>
#include <soci/soci.h>

#include <limits>
#include <memory>
#include <mutex>

using master::Run;

namespace {

constexpr water_queries::Tables kMasterWaters{"", 0};
constexpr int kApplicationId = 0x54564D44;  // "TVMD", as the build script writes it
constexpr int kSchemaVersion = 13;

struct State
{
    std::mutex mutex;
    std::filesystem::path path;
    std::unique_ptr<soci::session> session;
};

State& GetState()
{
    static State state;
    return state;
}

std::filesystem::path PathIn(const State& state)
{
    return state.path.empty() ? tncommon::DataDir() / "master.db" : state.path;
}

std::unique_ptr<soci::session> OpenMaster(const std::filesystem::path& path)
{
    std::int64_t applicationId = 0;
    std::int64_t version = 0;
    try {
        SqlitePeek peek(path, SqlitePeek::View::FileAlone);
        applicationId = peek.Number("PRAGMA application_id");
        version = peek.Number("PRAGMA user_version");
    } catch (const DatabaseError& error) {
        throw DatabaseError(error.GetKind(), fmt::format("'{}': {}", path.string(), error.what()));
    }
    if (applicationId != kApplicationId || version != kSchemaVersion) {
        throw DatabaseError(DatabaseError::Kind::NotOurs,
                            fmt::format("'{}' is no master database of this version (found {:#x}, schema {})",
                                        path.string(), applicationId, version));
    }
    return OpenSqlite(path, SqliteMode::ReadOnly);
}

/// Countries and currencies have the same shape: identifier, code, English name, and names by language.
template <typename Record>
std::vector<Record> ReadNamed(soci::session& session, const std::string& table, const std::string& language,
                              const std::string& code)
{
    const std::string plain = PlainLanguage(language);
    Record record;
    std::vector<Record> records;
    soci::statement statement =
        (session.prepare << fmt::format("SELECT t.id, t.code, coalesce(a.name, b.name, t.name) FROM {0} t "
                                        "LEFT JOIN {0}_name a ON a.code = t.code AND a.language = :exact "
                                        "LEFT JOIN {0}_name b ON b.code = t.code AND b.language = :plain "
                                        "WHERE :code = '%' OR t.code = :code ORDER BY t.code",
                                        table),
         soci::use(language, "exact"), soci::use(plain, "plain"), soci::use(code, "code"),
         soci::into(record.id), soci::into(record.code), soci::into(record.name));
    statement.execute();
    while (statement.fetch())
        records.push_back(record);
    return records;
}

std::optional<double> Optional(double value, soci::indicator indicator)
{
    return indicator == soci::i_ok ? std::optional(value) : std::nullopt;
}

/// What the texts and whole numbers of a group may be.
void ReadChoices(soci::session& session, const std::string& group, const std::string& variant,
                 std::vector<DBObjects::DetailDefinition>& definitions)
{
    std::string name;
    std::string choice;
    soci::statement statement =
        (session.prepare << "SELECT c.name, c.choice FROM detail_choice c JOIN detail d ON d.name = c.name "
                            "WHERE d.grp = :grp AND d.variant = :variant ORDER BY c.name, c.position",
         soci::use(group), soci::use(variant), soci::into(name), soci::into(choice));
    statement.execute();
    while (statement.fetch())
        std::ranges::find(definitions, name, &DBObjects::DetailDefinition::name)->choices.push_back(choice);
}

}  // namespace

void master::WithSession(const char* method, const std::function<void(soci::session&)>& query)
{
    State& state = GetState();
    const std::lock_guard lock(state.mutex);
    try {
        if (!state.session)
            state.session = OpenMaster(PathIn(state));
        query(*state.session);
    } catch (const std::exception& error) {
        throw DatabaseError(DatabaseError::Kind::ProgramData,
                            fmt::format("MasterDatabase::{}: {}", method, error.what()),
                            PathIn(state).parent_path().string());
    }
}

std::filesystem::path MasterDatabase::GetPath()
{
    State& state = GetState();
    const std::lock_guard lock(state.mutex);
    return PathIn(state);
}

void MasterDatabase::SetPath(const std::filesystem::path& path)
{
    State& state = GetState();
    {
        const std::lock_guard lock(state.mutex);
        state.session.reset();
        state.path = path;
    }
    CompoundNameTable::Forget();
}

std::vector<DBObjects::DetailDefinition> MasterDatabase::GetDetailDefinitions(const std::string& group,
                                                                              const std::string& variant)
{
    return Run("GetDetailDefinitions", [&](soci::session& session) {
        std::vector<DBObjects::DetailDefinition> definitions;
        DBObjects::DetailDefinition row;
        int derived = 0;
        double min = 0.0;
        double max = 0.0;
        soci::indicator minKnown = soci::i_null;
        soci::indicator maxKnown = soci::i_null;
        soci::statement statement =
            (session.prepare << "SELECT name, derived, type, unit, min_value, max_value, limit_unit, "
                                "default_value, label FROM detail "
                                "WHERE grp = :grp AND variant = :variant ORDER BY name",
             soci::use(group), soci::use(variant), soci::into(row.name), soci::into(derived),
             soci::into(row.type), soci::into(row.unit), soci::into(min, minKnown), soci::into(max, maxKnown),
             soci::into(row.limitUnit), soci::into(row.defaultValue), soci::into(row.label));
        statement.execute();
        while (statement.fetch()) {
            row.derived = derived != 0;
            row.min = Optional(min, minKnown);
            row.max = Optional(max, maxKnown);
            definitions.push_back(row);
        }
        ReadChoices(session, group, variant, definitions);
        return definitions;
    });
}

std::vector<DBObjects::Ion> MasterDatabase::GetIons(const std::string& key, const std::string& kind,
                                                    const std::string& symbol)
{
    return Run("GetIons", [&](soci::session& session) {
        std::vector<DBObjects::Ion> ions;
        DBObjects::Ion row;
        soci::statement statement =
            (session.prepare
                 << "SELECT id, name, symbol, label, charge, kind FROM ion WHERE (:key = '%' OR name = :key) "
                    "AND kind LIKE :kind AND symbol LIKE :symbol ORDER BY id",
             soci::use(key, "key"), soci::use(kind, "kind"), soci::use(symbol, "symbol"), soci::into(row.id),
             soci::into(row.key), soci::into(row.symbol), soci::into(row.name), soci::into(row.charge),
             soci::into(row.kind));
        statement.execute();
        while (statement.fetch())
            ions.push_back(row);
        return ions;
    });
}

std::vector<DBObjects::Element> MasterDatabase::GetElementsFromPeriodicSystem()
{
    return Run("GetElementsFromPeriodicSystem", [&](soci::session& session) {
        std::vector<DBObjects::Element> elements;
        DBObjects::Element row;
        soci::statement statement =
            (session.prepare
                 << "SELECT id, symbol, name, atomic_weight, coalesce(table_group, -1), table_group_old, "
                    "period, block, state, electron_configuration, oxidation_states, class FROM element "
                    "ORDER BY id",
             soci::into(row.id), soci::into(row.symbol), soci::into(row.name), soci::into(row.atomicWeight),
             soci::into(row.group), soci::into(row.groupOld), soci::into(row.period), soci::into(row.block),
             soci::into(row.state), soci::into(row.electronConfiguration), soci::into(row.oxidationStates),
             soci::into(row.elementClass));
        statement.execute();
        while (statement.fetch())
            elements.push_back(row);
        return elements;
    });
}

std::vector<DBObjects::Country> MasterDatabase::GetCountries(const std::string& language)
{
    return Run("GetCountries", [&](soci::session& session) {
        return ReadNamed<DBObjects::Country>(session, "country", language, "%");
    });
}

std::string MasterDatabase::GetCountry(const std::string& code, const std::string& language)
{
    return Run("GetCountry", [&](soci::session& session) {
        const auto found = ReadNamed<DBObjects::Country>(session, "country", language, code);
        return found.size() == 1 ? found.front().name : std::string();
    });
}

std::vector<DBObjects::Currency> MasterDatabase::GetCurrencies(const std::string& language)
{
    return Run("GetCurrencies", [&](soci::session& session) {
        return ReadNamed<DBObjects::Currency>(session, "currency", language, "%");
    });
}

std::vector<DBObjects::AlkalizingAgent> MasterDatabase::GetAlkalizingAgents()
{
    return Run("GetAlkalizingAgents", [](soci::session& session) {
        DBObjects::AlkalizingAgent agent;
        double pKa = 0.0;
        double enthalpy = 0.0;
        soci::indicator hasPka = soci::i_null;
        soci::indicator hasEnthalpy = soci::i_null;
        std::vector<DBObjects::AlkalizingAgent> agents;
        soci::statement statement =
            (session.prepare
                 << "SELECT id, code, name, formula, molar_mass, valency, carbon, ion, cation_mass, "
                    "pka, enthalpy FROM alkalizing_agent ORDER BY id",
             soci::into(agent.id), soci::into(agent.key), soci::into(agent.name), soci::into(agent.formula),
             soci::into(agent.molarMass), soci::into(agent.valency), soci::into(agent.carbon),
             soci::into(agent.ion), soci::into(agent.cationMass), soci::into(pKa, hasPka),
             soci::into(enthalpy, hasEnthalpy));
        statement.execute();
        while (statement.fetch()) {
            agent.pKa = Optional(pKa, hasPka);
            agent.enthalpy = Optional(enthalpy, hasEnthalpy);
            agents.push_back(agent);
        }
        return agents;
    });
}

std::vector<DBObjects::Compound> MasterDatabase::GetSuppliedCompounds()
{
    return Run("GetSuppliedCompounds", [](soci::session& session) {
        return compound_queries::Select(session, "compound", "ORDER BY id");
    });
}

std::vector<DBObjects::CompoundName> MasterDatabase::GetCompoundNames()
{
    return Run("GetCompoundNames", [](soci::session& session) {
        std::vector<DBObjects::CompoundName> names;
        DBObjects::CompoundName row;
        soci::statement statement =
            (session.prepare << "SELECT c.name, c.formula, n.language, n.name FROM compound_name n "
                                "JOIN compound c ON c.id = n.compound_id ORDER BY c.id, n.language",
             soci::into(row.name), soci::into(row.formula), soci::into(row.language),
             soci::into(row.translation));
        statement.execute();
        while (statement.fetch())
            names.push_back(row);
        return names;
    });
}

std::vector<DBObjects::FeedMedium> MasterDatabase::GetFeedMediums(const std::string& module,
                                                                  const std::string& usage)
{
    return Run("GetFeedMediums", [&](soci::session& session) {
        std::vector<DBObjects::FeedMedium> mediums;
        DBObjects::FeedMedium row;
        soci::statement statement =
            (session.prepare << "SELECT m.id, m.name, m.density FROM feed_medium m "
                                "JOIN feed_medium_usage u ON u.medium_id = m.id "
                                "WHERE u.module = :module AND u.usage = :usage ORDER BY m.id",
             soci::use(module), soci::use(usage), soci::into(row.id), soci::into(row.name),
             soci::into(row.density));
        statement.execute();
        while (statement.fetch())
            mediums.push_back(row);
        return mediums;
    });
}

DBObjects::FeedMedium MasterDatabase::GetFeedMedium(int id)
{
    return Run("GetFeedMedium", [id](soci::session& session) {
        DBObjects::FeedMedium medium;
        session << "SELECT id, name, density FROM feed_medium WHERE id = :id", soci::use(id),
            soci::into(medium.id), soci::into(medium.name), soci::into(medium.density);
        return session.got_data() ? medium : DBObjects::FeedMedium();
    });
}

std::vector<DBObjects::Organic> MasterDatabase::GetOrganics(const std::string& pattern)
{
    return Run("GetOrganics", [&](soci::session& session) {
        DBObjects::Organic organic;
        std::vector<DBObjects::Organic> organics;
        soci::statement statement =
            (session.prepare << "SELECT id, code, label, acidity, carbon FROM organic WHERE code LIKE "
                                ":pattern ORDER BY id",
             soci::use(pattern, "pattern"), soci::into(organic.id), soci::into(organic.key),
             soci::into(organic.label), soci::into(organic.acidity), soci::into(organic.carbon));
        statement.execute();
        while (statement.fetch())
            organics.push_back(organic);
        return organics;
    });
}

std::vector<DBObjects::WaterType> MasterDatabase::GetWaterTypes()
{
    return Run("GetWaterTypes", [](soci::session& session) {
        std::vector<DBObjects::WaterType> types;
        DBObjects::WaterType row;
        soci::statement statement =
            (session.prepare << "SELECT id, code, description FROM water_type ORDER BY id",
             soci::into(row.id), soci::into(row.code), soci::into(row.description));
        statement.execute();
        while (statement.fetch())
            types.push_back(row);
        return types;
    });
}

std::string MasterDatabase::GetWaterTypeDescription(const std::string& code)
{
    return Run("GetWaterTypeDescription", [&code](soci::session& session) {
        std::string description;
        session << "SELECT description FROM water_type WHERE code = :code", soci::use(code),
            soci::into(description);
        return session.got_data() ? description : std::string();
    });
}

std::vector<DBObjects::WaterLibCategory> MasterDatabase::WaterLib_GetCategories()
{
    return Run("WaterLib_GetCategories",
               [](soci::session& session) { return water_queries::Categories(session, kMasterWaters); });
}

std::vector<DBObjects::WaterLibCountry> MasterDatabase::WaterLib_GetCountries(int categoryId)
{
    return Run("WaterLib_GetCountries", [categoryId](soci::session& session) {
        return water_queries::Countries(session, kMasterWaters, categoryId);
    });
}

std::vector<DBObjects::WaterLibWater> MasterDatabase::WaterLib_GetWatersByCriteria(
    const std::vector<int>& nodeIds)
{
    return Run("WaterLib_GetWatersByCriteria", [&nodeIds](soci::session& session) {
        return water_queries::WatersOfNodes(session, kMasterWaters, nodeIds);
    });
}

std::vector<DBObjects::WaterLibAttr> MasterDatabase::WaterLib_GetAnalysisById(int waterId)
{
    return Run("WaterLib_GetAnalysisById", [waterId](soci::session& session) {
        return water_queries::Analysis(session, kMasterWaters, waterId);
    });
}
