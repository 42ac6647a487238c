// SPDX-License-Identifier: MIT
#include "dbinterfaces/lower_case.h"

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

std::wint_t Decode(std::string_view utf8, std::size_t at, std::size_t length)
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

}  // namespace

std::string LowerCase(std::string_view utf8)
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
