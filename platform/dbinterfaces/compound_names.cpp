// SPDX-License-Identifier: MIT
#include "dbinterfaces/compound_names.h"

#include "dbinterfaces/compound_name_table.h"
#include "dbinterfaces/database_error.h"
#include "dbinterfaces/lower_case.h"
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/plain_language.h"

#include <algorithm>
#include <array>
#include <mutex>

namespace {

std::mutex g_mutex;
std::shared_ptr<const CompoundNameTable> g_table;

char Small(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// FNV-1a of Fowler, Noll and Vo. It is asked for every compound of a large database: it makes no texts.
std::uint64_t HashOf(std::string_view name, std::string_view formula)
{
    std::uint64_t hash = 0xcbf29ce484222325U;
    const auto add = [&hash](char c) { hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U; };
    for (const char c : name)
        add(Small(c));
    add('\n');
    for (const char c : formula)
        add(c);
    return hash;
}

bool IsSame(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, Small, Small);
}

/// The name of a compound with those names, nothing where the language has none.
const std::string* NameIn(const CompoundNameTable::Translations& names, const std::string& language)
{
    for (const std::string& wanted : {language, PlainLanguage(language)}) {
        const auto found = std::ranges::find(names, wanted, &std::pair<std::string, std::string>::first);
        if (found != names.end())
            return &found->second;
    }
    return nullptr;
}

/// A name with the plain letters that German and French list its own with: "é" stands with "e".
std::string WithPlainLetters(std::string_view name)
{
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 22> kPlain{{
        {"\u00e0", "a"},  {"\u00e2", "a"},  {"\u00e4", "a"}, {"\u00e7", "c"},  {"\u00e8", "e"},
        {"\u00e9", "e"},  {"\u00ea", "e"},  {"\u00eb", "e"}, {"\u00ee", "i"},  {"\u00ef", "i"},
        {"\u00f4", "o"},  {"\u00f6", "o"},  {"\u00f9", "u"}, {"\u00fb", "u"},  {"\u00fc", "u"},
        {"\u0153", "oe"}, {"\u00df", "ss"}, {"\u2019", "'"}, {"\u00e6", "ae"}, {"\u00f1", "n"},
        {"\u00f3", "o"},  {"\u00e1", "a"},
    }};
    std::string plain = LowerCase(name);
    for (const auto& [letter, base] : kPlain) {
        for (auto at = plain.find(letter); at != std::string::npos; at = plain.find(letter, at + base.size()))
            plain.replace(at, letter.size(), base);
    }
    return plain;
}

}  // namespace

std::shared_ptr<const CompoundNameTable> CompoundNameTable::Get()
{
    const std::lock_guard lock(g_mutex);
    if (g_table)
        return g_table;
    auto table = std::make_shared<CompoundNameTable>();
    try {
        for (const DBObjects::CompoundName& row : MasterDatabase::GetCompoundNames()) {
            const auto [place, added] =
                table->m_places.emplace(HashOf(row.name, row.formula), table->m_compounds.size());
            if (added)
                table->m_compounds.push_back({row.name, row.formula, {}});
            table->m_compounds[place->second].others.emplace_back(row.language, row.translation);
        }
    } catch (const DatabaseError&) {
        *table = {};
    }
    g_table = table;
    return g_table;
}

bool CompoundNameTable::IsBefore(std::string_view a, std::string_view b)
{
    return std::ranges::lexicographical_compare(
        a, b, [](char x, char y) { return static_cast<unsigned char>(x) < static_cast<unsigned char>(y); },
        Small, Small);
}

void CompoundNameTable::Forget()
{
    const std::lock_guard lock(g_mutex);
    g_table.reset();
}

const CompoundNameTable::Translations* CompoundNameTable::Find(std::string_view name,
                                                               std::string_view formula) const
{
    const auto found = m_places.find(HashOf(name, formula));
    if (found == m_places.end())
        return nullptr;
    const Names& names = m_compounds[found->second];
    return names.formula == formula && IsSame(names.filed, name) ? &names.others : nullptr;
}

const std::string* CompoundNameTable::FindFiled(std::string_view shown, std::string_view formula,
                                                std::string_view language) const
{
    for (const Names& compound : m_compounds) {
        if (compound.formula == formula && std::ranges::any_of(compound.others, [&](const auto& other) {
                return other.first == language && other.second == shown;
            }))
            return &compound.filed;
    }
    return nullptr;
}

std::vector<std::string> CompoundNameTable::FiledUnder(const std::string& part) const
{
    // Also as it is typed without accents, or with the apostrophe of the keyboard.
    const std::string wanted = WithPlainLetters(part);
    std::vector<std::string> filed;
    for (const Names& compound : m_compounds) {
        if (std::ranges::any_of(compound.others, [&](const auto& other) {
                return WithPlainLetters(other.second).find(wanted) != std::string::npos;
            }))
            filed.push_back(compound.filed);
    }
    return filed;
}

namespace compound_names {

std::string Shown(const std::string& name, const std::string& formula, const std::string& language)
{
    if (language.empty())
        return name;
    const auto table = CompoundNameTable::Get();
    const auto* names = table->Find(name, formula);
    const std::string* shown = names == nullptr ? nullptr : NameIn(*names, language);
    return shown == nullptr ? name : *shown;
}

std::string Filed(const std::string& shown, const std::string& formula, const std::string& language)
{
    const auto table = CompoundNameTable::Get();
    for (const std::string& wanted : {language, PlainLanguage(language)}) {
        if (const std::string* filed = table->FindFiled(shown, formula, wanted))
            return *filed;
    }
    return shown;
}

void SortAsShown(std::vector<DBObjects::Compound>& compounds, const std::string& language)
{
    const auto table = CompoundNameTable::Get();
    struct Supplied
    {
        std::string place;
        DBObjects::Compound compound;
    };
    std::vector<Supplied> supplied;
    std::vector<DBObjects::Compound> others;
    others.reserve(compounds.size());
    for (DBObjects::Compound& compound : compounds) {
        const auto* names = table->Find(compound.name, compound.formula);
        if (names == nullptr) {
            others.push_back(std::move(compound));
            continue;
        }
        const std::string* shown = NameIn(*names, language);
        supplied.push_back(
            {WithPlainLetters(shown == nullptr ? compound.name : *shown), std::move(compound)});
    }
    std::ranges::stable_sort(supplied, &CompoundNameTable::IsBefore, &Supplied::place);
    // The others are in their order, and there may be very many of them.
    compounds.clear();
    auto next = others.begin();
    for (Supplied& one : supplied) {
        const auto place = std::ranges::upper_bound(next, others.end(), one.place,
                                                    &CompoundNameTable::IsBefore, &DBObjects::Compound::name);
        std::move(next, place, std::back_inserter(compounds));
        next = place;
        compounds.push_back(std::move(one.compound));
    }
    std::move(next, others.end(), std::back_inserter(compounds));
}

}  // namespace compound_names
