// SPDX-License-Identifier: MIT
// The compounds in the user database.
#include "dbinterfaces/compound_queries.h"
#include "dbinterfaces/project_database.h"
#include "dbinterfaces/user_limits.h"
#include "dbinterfaces/user_session.h"

#include <algorithm>

namespace {

using user_session::Run;

int Last(soci::session& session, const char* counter)
{
    const std::string name = counter;
    int last = 0;
    session << "SELECT last_id FROM tarnvik_counter WHERE name = :name", soci::use(name), soci::into(last);
    return last;
}

/// The first of `count` new identifiers.
int TakeIdentifiers(soci::session& session, int count)
{
    int last = 0;
    session << "UPDATE tarnvik_counter SET last_id = last_id + :count WHERE name = 'compound' "
               "RETURNING last_id",
        soci::use(count), soci::into(last);
    return last - count + 1;
}

/// Identifiers up to that one are handed out no more.
void SkipIdentifiers(soci::session& session, int taken)
{
    session << "UPDATE tarnvik_counter SET last_id = :taken WHERE name = 'compound' AND last_id < :limit",
        soci::use(taken), soci::use(taken);
}

void CountChange(soci::session& session)
{
    session << "UPDATE tarnvik_counter SET last_id = last_id + 1 WHERE name = 'compound.change'";
}

/// Gives the compounds without identifiers new ones.
void NumberCompounds(soci::session& session, std::vector<DBObjects::Compound>& compounds)
{
    int missing = 0;
    int highest = -1;
    for (const DBObjects::Compound& compound : compounds) {
        missing += compound.id < 0 ? 1 : 0;
        highest = std::max(highest, static_cast<int>(compound.id));
    }
    if (highest >= 0)
        SkipIdentifiers(session, highest);
    int next = missing > 0 ? TakeIdentifiers(session, missing) : 0;
    for (DBObjects::Compound& compound : compounds) {
        if (compound.id < 0)
            compound.id = next++;
    }
}

void RequireShortTexts(const DBObjects::Compound& compound)
{
    user_limits::Require("the compound", compound.name);
    user_limits::Require("the formula", compound.formula, text_limits::kFormula);
    user_limits::Require("the element", compound.baseElement);
    user_limits::Require("the category", compound.category);
}

/// The compounds by filters. Showing a long list takes all of them from memory; what an index finds quickly
/// is not worth fetching all for.
std::vector<DBObjects::Compound> Filtered(soci::session& session, const std::string& element,
                                          const std::string& category, const std::string& search)
{
    // No name or formula holds it, and the work of a search grows with its text.
    if (text_limits::CountLetters(search) > text_limits::kFormula)
        return {};
    user_session::Session& state = user_session::Get();
    const Backend backend = state.target.backend;
    // What is not committed yet may be undone: it must not be remembered.
    if (state.inTransaction)
        return compound_queries::SelectFiltered(session, backend, element, category, search);
    const int change = Last(session, "compound.change");
    if (!state.compounds || state.compounds->GetChange() != change) {
        state.compounds.reset();
        if (compound_queries::IsIndexed(session, backend, search))
            return compound_queries::SelectFiltered(session, backend, element, category, search);
        state.compounds = std::make_unique<const CompoundCache>(
            change, compound_queries::SelectFiltered(session, backend, {}, {}, {}));
    }
    return state.compounds->Filter(element, category, search);
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
        return Filtered(session, element, category, search);
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
    return InsertOrReplaceCompounds({compound}).front();
}

std::vector<int> ProjectDatabase::InsertOrReplaceCompounds(const std::vector<DBObjects::Compound>& compounds)
{
    std::vector<DBObjects::Compound> stored = compounds;
    Transaction transaction;
    Run("InsertOrReplaceCompound", [&](soci::session& session, const std::string&) {
        for (const DBObjects::Compound& compound : compounds)
            RequireShortTexts(compound);
        NumberCompounds(session, stored);
        compound_queries::Upsert(session, stored);
        CountChange(session);
    });
    transaction.Commit();
    std::vector<int> identifiers;
    for (const DBObjects::Compound& compound : stored)
        identifiers.push_back(compound.id);
    return identifiers;
}

bool ProjectDatabase::DeleteCompound(int id)
{
    Transaction transaction;
    const bool removed = Run("DeleteCompound", [id](soci::session& session, const std::string&) {
        soci::statement statement =
            (session.prepare << "DELETE FROM tarnvik_compound WHERE id = :id", soci::use(id));
        statement.execute(true);
        const bool changed = statement.get_affected_rows() > 0;
        CountChange(session);
        return changed;
    });
    transaction.Commit();
    return removed;
}
