// SPDX-License-Identifier: MIT
#include "dbinterfaces/compound_cache.h"

#include <algorithm>
#include <clocale>
#include <cwctype>

namespace {

/// How many bytes the character that begins with `first` has; 1 for a byte that begins none.
std::size_t LengthOf(unsigned char first)
{
    if (first < 0xC0)
        return 1;
    if (first < 0xE0)
        return 2;
    return first < 0xF0 ? 3 : 4;
}

std::wint_t Decode(const std::string& utf8, std::size_t at, std::size_t length)
{
    auto c = static_cast<std::wint_t>(static_cast<unsigned char>(utf8[at]) & (0xFFU >> (length + 1)));
    for (std::size_t i = 1; i < length; ++i)
        c = (c << 6) | (static_cast<unsigned char>(utf8[at + i]) & 0x3FU);
    return c;
}

/// A character outside ASCII.
void Append(std::string& utf8, std::wint_t c)
{
    const auto add = [&utf8](std::wint_t byte) { utf8 += static_cast<char>(byte); };
    if (c < 0x800) {
        add(0xC0U | (c >> 6));
    } else if (c < 0x10000) {
        add(0xE0U | (c >> 12));
        add(0x80U | ((c >> 6) & 0x3FU));
    } else {
        add(0xF0U | (c >> 18));
        add(0x80U | ((c >> 12) & 0x3FU));
        add(0x80U | ((c >> 6) & 0x3FU));
    }
    add(0x80U | (c & 0x3FU));
}

/// The same letters in lower case, whatever the user's locale.
std::string Lower(const std::string& utf8)
{
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    std::string lower;
    lower.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char byte = utf8[at];
        const std::size_t length = LengthOf(static_cast<unsigned char>(byte));
        if (length == 1 || at + length > utf8.size()) {
            lower += byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
            ++at;
            continue;
        }
        const std::wint_t c = Decode(utf8, at, length);
        const std::wint_t small = unicode != nullptr ? towlower_l(c, unicode) : c;
        // A letter whose small form is an ASCII one (the sign of kelvin) stays what it is.
        Append(lower, small < 0x80 ? c : small);
        at += length;
    }
    return lower;
}

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
    m_texts.reserve(m_compounds.size());
    for (const DBObjects::Compound& compound : m_compounds)
        m_texts.push_back(Lower(compound.name) + '\n' + Lower(compound.formula));
}

std::vector<DBObjects::Compound> CompoundCache::Filter(const std::string& element,
                                                       const std::string& category,
                                                       const std::string& search) const
{
    const std::string text = Lower(search);
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
