// SPDX-License-Identifier: MIT
#include "dbinterfaces/compound_queries.h"

#include "core/text_limits.h"
#include "dbinterfaces/compound_cache.h"
#include "dbinterfaces/compound_name_table.h"
#include "dbinterfaces/lower_case.h"
#include "dbinterfaces/master_database.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <cmath>

namespace compound_queries {

namespace {

/// Since then its full-text index has a tokenizer that finds any part of a word.
constexpr int kSqliteWithTrigrams = 3034000;
/// Shorter texts are in no such index.
constexpr std::size_t kTrigram = 3;
/// How many letters of a text the index is asked for: each of them costs it memory. The rest is compared
/// here.
constexpr std::size_t kAskedOfIndex = 64;

/// A text in which every character stands for itself, before and after which anything may stand.
std::string ContainsPattern(const std::string& text)
{
    std::string pattern = "%";
    for (const char c : text) {
        if (c == '%' || c == '_' || c == '\\')
            pattern += '\\';
        pattern += c;
    }
    return pattern + "%";
}

/// A text as one phrase of SQLite's full-text query language.
std::string Phrase(const std::string& text)
{
    std::string phrase = "\"";
    for (const char c : text)
        phrase += c == '"' ? std::string("\"\"") : std::string(1, c);
    return phrase + "\"";
}

bool HasTextIndex(soci::session& session)
{
    int count = 0;
    session << "SELECT count(*) FROM sqlite_master WHERE name = 'tarnvik_compound_text'", soci::into(count);
    return count > 0;
}

/// Adds the condition for `search` with its parameters. It lets through whatever is called by one of the
/// names `alike`, too, and, where the index is asked, what contains one.
void AddSearch(soci::session& session, Backend backend, const std::string& search,
               const std::vector<std::string>& alike, std::vector<std::string>& conditions,
               std::vector<Parameter>& parameters)
{
    if (backend == Backend::Sqlite && text_limits::CountLetters(search) >= kTrigram &&
        HasTextIndex(session)) {
        conditions.emplace_back(
            "id IN (SELECT rowid FROM tarnvik_compound_text "
            "WHERE tarnvik_compound_text MATCH :phrase)");
        std::string phrases = Phrase(search);
        for (const std::string& name : alike)
            phrases += " OR " + Phrase(name);
        parameters.emplace_back("phrase", phrases);
        return;
    }
    const char* like = backend == Backend::Sqlite ? "LIKE" : "ILIKE";
    std::string condition =
        fmt::format("name {0} :inname ESCAPE '\\' OR formula {0} :informula ESCAPE '\\'", like);
    parameters.emplace_back("inname", ContainsPattern(search));
    parameters.emplace_back("informula", ContainsPattern(search));
    std::string names;
    for (std::size_t i = 0; i < alike.size(); ++i) {
        names += fmt::format("{}:alike{}", i == 0 ? "" : ", ", i);
        parameters.emplace_back(fmt::format("alike{}", i), LowerCase(alike[i]));
    }
    if (!names.empty())
        condition += " OR lower(name) IN (" + names + ")";
    conditions.push_back("(" + condition + ")");
}

void CreateSqliteTextIndex(soci::session& session)
{
    if (sqlite3_libversion_number() < kSqliteWithTrigrams)
        return;
    constexpr const char* kTake =
        "INSERT INTO tarnvik_compound_text (rowid, name, formula) "
        "VALUES (new.id, new.name, new.formula);";
    constexpr const char* kDrop =
        "INSERT INTO tarnvik_compound_text (tarnvik_compound_text, rowid, name, "
        "formula) VALUES ('delete', old.id, old.name, old.formula);";
    session << "CREATE VIRTUAL TABLE tarnvik_compound_text USING fts5 (name, formula, "
               "content='tarnvik_compound', content_rowid='id', tokenize='trigram')";
    const auto trigger = [&session](const char* name, const char* event, const std::string& body) {
        session << fmt::format("CREATE TRIGGER tarnvik_compound_{} AFTER {} ON tarnvik_compound BEGIN {} END",
                               name, event, body);
    };
    trigger("inserted", "INSERT", kTake);
    trigger("deleted", "DELETE", kDrop);
    trigger("updated", "UPDATE", std::string(kDrop) + kTake);
}

/// Not every server offers trigrams, nor to everybody; without them a search reads the whole table.
void CreatePostgresTextIndex(soci::session& session)
{
    session << "SAVEPOINT text_index";
    try {
        session << "CREATE EXTENSION IF NOT EXISTS pg_trgm";
        for (const char* column : {"name", "formula"})
            session << fmt::format(
                "CREATE INDEX tarnvik_compound_{0}_text ON tarnvik_compound USING gin ({0} gin_trgm_ops)",
                column);
        session << "RELEASE SAVEPOINT text_index";
    } catch (const std::exception&) {
        session << "ROLLBACK TO SAVEPOINT text_index";
    }
}

}  // namespace

std::vector<DBObjects::Compound> Select(soci::session& session, const std::string& table,
                                        const std::string& clauses, const std::vector<Parameter>& parameters)
{
    std::vector<DBObjects::Compound> compounds;
    DBObjects::Compound row;
    soci::indicator pKaKnown = soci::i_null;
    soci::statement statement(session);
    statement.exchange(soci::into(row.id));
    statement.exchange(soci::into(row.baseElement));
    statement.exchange(soci::into(row.name));
    statement.exchange(soci::into(row.formula));
    statement.exchange(soci::into(row.pKa, pKaKnown));
    statement.exchange(soci::into(row.valency));
    statement.exchange(soci::into(row.oxidationNrCommon));
    statement.exchange(soci::into(row.conjugate));
    statement.exchange(soci::into(row.ionicCharge));
    statement.exchange(soci::into(row.category));
    for (const auto& [name, value] : parameters)
        statement.exchange(soci::use(value, name));
    statement.alloc();
    statement.prepare(
        fmt::format("SELECT id, base_element, name, formula, pka, valency, oxidation_number, "
                    "conjugate, ionic_charge, category FROM {} {}",
                    table, clauses));
    statement.define_and_bind();
    statement.execute();
    while (statement.fetch()) {
        if (pKaKnown != soci::i_ok)
            row.pKa = std::nan("");
        compounds.push_back(row);
    }
    return compounds;
}

std::vector<DBObjects::Compound> SelectFiltered(soci::session& session, Backend backend,
                                                const std::string& element, const std::string& category,
                                                const std::string& search)
{
    std::vector<std::string> conditions;
    std::vector<Parameter> parameters;
    if (!category.empty()) {
        conditions.emplace_back("category = :category");
        parameters.emplace_back("category", category);
    }
    const std::string beginning(text_limits::Cut(search, kAskedOfIndex));
    std::vector<std::string> alike;
    if (!search.empty()) {
        alike = CompoundNameTable::Get()->FiledUnder(beginning);
        AddSearch(session, backend, beginning, alike, conditions, parameters);
    }
    std::string clauses;
    for (const std::string& condition : conditions)
        clauses += (clauses.empty() ? "WHERE " : " AND ") + condition;
    clauses += backend == Backend::Sqlite ? " ORDER BY name COLLATE NOCASE, id"
                                          : " ORDER BY lower(name) COLLATE \"C\", id";
    std::vector<DBObjects::Compound> found = Select(session, "tarnvik_compound", clauses, parameters);
    // The databases cannot tell the C of CaCl2 from that of CO2, nor a supplied compound from another of its
    // name.
    return beginning == search && element.empty() && alike.empty()
               ? found
               : CompoundCache(0, std::move(found)).Filter(element, {}, search);
}

bool IsIndexed(soci::session& session, Backend backend, const std::string& search)
{
    if (text_limits::CountLetters(search) < kTrigram)
        return false;
    if (backend == Backend::Sqlite)
        return HasTextIndex(session);
    // In which other letters a server ignores the case depends on its locale.
    return text_limits::CountLetters(search) == search.size();
}

void Upsert(soci::session& session, const std::vector<DBObjects::Compound>& compounds)
{
    DBObjects::Compound row;
    soci::indicator pKaKnown = soci::i_null;
    soci::statement statement =
        (session.prepare
             << "INSERT INTO tarnvik_compound (id, base_element, name, formula, pka, valency, "
                "oxidation_number, conjugate, ionic_charge, category) VALUES (:id, :element, :name, "
                ":formula, "
                ":pka, :valency, :oxidation, :conjugate, :charge, :category) "
                "ON CONFLICT (id) DO UPDATE SET base_element = excluded.base_element, name = excluded.name, "
                "formula = excluded.formula, pka = excluded.pka, valency = excluded.valency, "
                "oxidation_number = excluded.oxidation_number, conjugate = excluded.conjugate, "
                "ionic_charge = excluded.ionic_charge, category = excluded.category",
         soci::use(row.id), soci::use(row.baseElement), soci::use(row.name), soci::use(row.formula),
         soci::use(row.pKa, pKaKnown), soci::use(row.valency), soci::use(row.oxidationNrCommon),
         soci::use(row.conjugate), soci::use(row.ionicCharge), soci::use(row.category));
    for (const DBObjects::Compound& compound : compounds) {
        row = compound;
        pKaKnown = std::isnan(row.pKa) ? soci::i_null : soci::i_ok;
        statement.execute(true);
    }
}

void CreateIndexes(soci::session& session, Backend backend)
{
    session << "CREATE INDEX tarnvik_compound_of_element ON tarnvik_compound (base_element)";
    session << "CREATE INDEX tarnvik_compound_of_category ON tarnvik_compound (category)";
    if (backend == Backend::Sqlite)
        CreateSqliteTextIndex(session);
    else
        CreatePostgresTextIndex(session);
}

void FillWithSupplied(soci::session& session)
{
    const std::vector<DBObjects::Compound> supplied = MasterDatabase::GetSuppliedCompounds();
    Upsert(session, supplied);
    const int last = supplied.empty() ? 0 : supplied.back().id;
    session << "UPDATE tarnvik_counter SET last_id = :last WHERE name = 'compound'", soci::use(last);
}

}  // namespace compound_queries
