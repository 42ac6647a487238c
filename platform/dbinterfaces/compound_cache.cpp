// SPDX-License-Identifier: MIT
#include "dbinterfaces/compound_cache.h"

#include "dbinterfaces/compound_name_table.h"
#include "dbinterfaces/lower_case.h"

#include <algorithm>

namespace {

/// Whether a formula holds the element of that symbol; in one pass, for it runs over whole databases at every
/// key.
bool HoldsElement(const std::string& formula, const std::string& symbol)
{
    for (auto at = formula.find(symbol); at != std::string::npos; at = formula.find(symbol, at + 1)) {
        // "C" is no part of "Ca".
        const std::size_t end = at + symbol.size();
        if (end >= formula.size() || formula[end] < 'a' || formula[end] > 'z')
            return true;
    }
    return false;
}

}  // namespace

CompoundCache::CompoundCache(int change, std::vector<DBObjects::Compound> compounds)
    : m_change(change), m_compounds(std::move(compounds))
{
    const auto names = CompoundNameTable::Get();
    m_texts.reserve(m_compounds.size());
    for (const DBObjects::Compound& compound : m_compounds) {
        std::string& text =
            m_texts.emplace_back(LowerCase(compound.name) + '\n' + LowerCase(compound.formula));
        const auto* others = names->Find(compound.name, compound.formula);
        for (std::size_t i = 0; others != nullptr && i < others->size(); ++i)
            text += '\n' + LowerCase((*others)[i].second);
    }
}

std::vector<DBObjects::Compound> CompoundCache::Filter(const std::string& element,
                                                       const std::string& category,
                                                       const std::string& search) const
{
    const std::string text = LowerCase(search);
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < m_compounds.size(); ++i) {
        if ((element.empty() || HoldsElement(m_compounds[i].formula, element)) &&
            (category.empty() || m_compounds[i].category == category) &&
            (text.empty() || m_texts[i].find(text) != std::string::npos))
            found.push_back(i);
    }
    std::vector<DBObjects::Compound> compounds;
    compounds.reserve(found.size());
    for (const std::size_t i : found)
        compounds.push_back(m_compounds[i]);
    return compounds;
}
