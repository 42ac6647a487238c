// SPDX-License-Identifier: MIT
// The compounds in the user database.
#include "dbinterfaces/compound_queries.h"
#include "dbinterfaces/project_database.h"
#include "dbinterfaces/user_session.h"

namespace {

using user_session::Run;

/// A new identifier, or a hint to hand out that one no more.
int TakeIdentifier(soci::session& session, int wanted)
{
    int id = wanted;
    if (wanted < 0) {
        session << "UPDATE tarnvik_counter SET last_id = last_id + 1 WHERE name = 'compound' "
                   "RETURNING last_id",
            soci::into(id);
    } else {
        session
            << "UPDATE tarnvik_counter SET last_id = :wanted WHERE name = 'compound' AND last_id < :taken",
            soci::use(wanted), soci::use(wanted);
    }
    return id;
}

}  // namespace

std::vector<DBObjects::Compound> ProjectDatabase::GetCompounds()
{
    return GetCompounds({}, {}, {});
}

std::vector<DBObjects::Compound> ProjectDatabase::GetCompounds(const std::string& element,
                                                               const std::string& category,
                                                               const std::string& search)
{
    return Run("GetCompounds", [&](soci::session& session, const std::string&) {
        return compound_queries::SelectFiltered(session, user_session::Get().target.backend, element,
                                                category, search);
    });
}

DBObjects::Compound ProjectDatabase::GetCompound(int id)
{
    return Run("GetCompound", [id](soci::session& session, const std::string&) {
        const auto found =
            compound_queries::Select(session, "tarnvik_compound", fmt::format("WHERE id = {}", id));
        return found.empty() ? DBObjects::Compound() : found.front();
    });
}

std::vector<std::string> ProjectDatabase::GetCompoundCategories()
{
    return Run("GetCompoundCategories", [](soci::session& session, const std::string&) {
        std::vector<std::string> categories;
        std::string category;
        soci::statement statement =
            (session.prepare << "SELECT DISTINCT category FROM tarnvik_compound WHERE category <> '' "
                                "ORDER BY category",
             soci::into(category));
        statement.execute();
        while (statement.fetch())
            categories.push_back(category);
        return categories;
    });
}

int ProjectDatabase::InsertOrReplaceCompound(const DBObjects::Compound& compound)
{
    DBObjects::Compound stored = compound;
    stored.id = Run("InsertOrReplaceCompound", [&](soci::session& session, const std::string&) {
        return TakeIdentifier(session, compound.id);
    });
    Run("InsertOrReplaceCompound",
        [&](soci::session& session, const std::string&) { compound_queries::Upsert(session, stored); });
    return stored.id;
}

bool ProjectDatabase::DeleteCompound(int id)
{
    return Run("DeleteCompound", [id](soci::session& session, const std::string&) {
        soci::statement statement =
            (session.prepare << "DELETE FROM tarnvik_compound WHERE id = :id", soci::use(id));
        statement.execute(true);
        return statement.get_affected_rows() > 0;
    });
}
