// SPDX-License-Identifier: MIT
#include "core/autocomplete.h"

#include <algorithm>
#include <iterator>

namespace autocomplete {
namespace {

/// Upper-case letters that lie in a row: `first` to `last`, lower case `offset` further. Where lower and
/// upper case alternate, only letters of the parity of `first` are upper case.
struct CaseRange
{
    char32_t first;
    char32_t last;
    int offset;
    bool alternating;
};

// From the simple case foldings of the Unicode character database, in ascending order.
constexpr CaseRange kCaseRanges[]{
    {0x00C0, 0x00D6, 32, false},    {0x00D8, 0x00DE, 32, false}, {0x0100, 0x012E, 1, true},
    {0x0132, 0x0136, 1, true},      {0x0139, 0x0147, 1, true},   {0x014A, 0x0176, 1, true},
    {0x0178, 0x0178, -121, false},  {0x0179, 0x017D, 1, true},   {0x01CD, 0x01DB, 1, true},
    {0x01DE, 0x01EE, 1, true},      {0x01F8, 0x021E, 1, true},   {0x0222, 0x0232, 1, true},
    {0x0386, 0x0386, 38, false},    {0x0388, 0x038A, 37, false}, {0x038C, 0x038C, 64, false},
    {0x038E, 0x038F, 63, false},    {0x0391, 0x03A1, 32, false}, {0x03A3, 0x03AB, 32, false},
    {0x03C2, 0x03C2, 1, false},     {0x0400, 0x040F, 80, false}, {0x0410, 0x042F, 32, false},
    {0x0460, 0x0480, 1, true},      {0x048A, 0x04BE, 1, true},   {0x04C1, 0x04CD, 1, true},
    {0x04D0, 0x052E, 1, true},      {0x0531, 0x0556, 48, false}, {0x1E00, 0x1E94, 1, true},
    {0x1E9E, 0x1E9E, -7615, false}, {0x1EA0, 0x1EFE, 1, true},
};

constexpr char32_t kNoCharacter = 0xFFFD;

/// Takes the first character off `text`.
char32_t TakeCharacter(std::string_view& text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (lead < 0x80)
        return lead;
    const int following = lead >= 0xF0 && lead < 0xF8 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    if (following == 0 || lead >= 0xF8)
        return kNoCharacter;
    char32_t character = lead & (0x3Fu >> following);
    for (int i = 0; i < following; ++i) {
        if (text.empty() || (static_cast<unsigned char>(text.front()) & 0xC0) != 0x80)
            return kNoCharacter;
        character = character << 6 | (static_cast<unsigned char>(text.front()) & 0x3F);
        text.remove_prefix(1);
    }
    return character;
}

}  // namespace

char32_t FoldCase(char32_t character)
{
    if (character < 0x80)
        return character >= U'A' && character <= U'Z' ? character + 32 : character;
    const auto* range = std::lower_bound(std::begin(kCaseRanges), std::end(kCaseRanges), character,
                                         [](const CaseRange& r, char32_t c) { return r.last < c; });
    if (range == std::end(kCaseRanges) || character < range->first)
        return character;
    if (range->alternating && (character - range->first) % 2 != 0)
        return character;
    return static_cast<char32_t>(static_cast<int>(character) + range->offset);
}

std::u32string FoldText(std::string_view text)
{
    std::u32string folded;
    folded.reserve(text.size());
    while (!text.empty())
        folded += FoldCase(TakeCharacter(text));
    return folded;
}

bool IsPartialMatchNoCase(std::string_view text, std::string_view prefix)
{
    return !prefix.empty() && FoldText(text).starts_with(FoldText(prefix));
}

Matcher::Matcher(const std::vector<std::string>& entries)
{
    m_ends.reserve(entries.size());
    for (const std::string& entry : entries) {
        m_characters += FoldText(entry);
        m_ends.push_back(m_characters.size());
    }
}

Match Matcher::Find(std::string_view typed) const
{
    const std::u32string wanted = FoldText(typed);
    Match best;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < m_ends.size() && best.length < wanted.size(); ++i) {
        const auto entry = m_characters.begin() + static_cast<std::ptrdiff_t>(begin);
        const auto end = m_characters.begin() + static_cast<std::ptrdiff_t>(m_ends[i]);
        const auto same = std::mismatch(wanted.begin(), wanted.end(), entry, end).first - wanted.begin();
        if (static_cast<std::size_t>(same) > best.length)
            best = {static_cast<int>(i), static_cast<std::size_t>(same)};
        begin = m_ends[i];
    }
    return best;
}

}  // namespace autocomplete
