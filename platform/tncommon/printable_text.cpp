// SPDX-License-Identifier: MIT
#include "tncommon/printable_text.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace tncommon {

namespace {

struct Form
{
    unsigned char lead, mask;
    std::uint32_t least;  ///< a smaller code point has a shorter form
};
constexpr std::array<Form, 4> kForms{
    {{0x00, 0x80, 0}, {0xC0, 0xE0, 0x80}, {0xE0, 0xF0, 0x800}, {0xF0, 0xF8, 0x10000}}};

struct CodePoint
{
    std::uint32_t value = 0;
    std::size_t length = 0;  ///< 0 for bytes that are no UTF-8
};

CodePoint Decode(std::string_view bytes)
{
    const auto first = static_cast<unsigned char>(bytes.front());
    for (std::size_t length = 1; length <= kForms.size(); ++length) {
        const Form& form = kForms[length - 1];
        if ((first & form.mask) != form.lead)
            continue;
        if (bytes.size() < length)
            return {};
        std::uint32_t value = first & static_cast<unsigned char>(~form.mask);
        for (std::size_t i = 1; i < length; ++i) {
            const auto next = static_cast<unsigned char>(bytes[i]);
            if ((next & 0xC0) != 0x80)
                return {};
            value = (value << 6) | (next & 0x3F);
        }
        const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
        if (value < form.least || surrogate || value > 0x10FFFF)
            return {};
        return {value, length};
    }
    return {};
}

/// C0, DEL and C1: what a terminal obeys.
bool IsControl(std::uint32_t value)
{
    return value < 0x20 || (value >= 0x7F && value < 0xA0);
}

std::string Escaped(std::string_view bytes, bool keepLines)
{
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const CodePoint point = Decode(bytes);
        const bool kept = keepLines && (point.value == '\n' || point.value == '\t');
        if (point.length == 0)
            fmt::format_to(std::back_inserter(text), "\\x{:02x}", static_cast<unsigned char>(bytes.front()));
        else if (IsControl(point.value) && !kept)
            fmt::format_to(std::back_inserter(text), "\\x{:02x}", point.value);
        else
            text += bytes.substr(0, point.length);
        bytes.remove_prefix(point.length == 0 ? 1 : point.length);
    }
    return text;
}

}  // namespace

std::string PrintableText(std::string_view bytes)
{
    return Escaped(bytes, false);
}

std::string PrintableLines(std::string_view bytes)
{
    return Escaped(bytes, true);
}

}  // namespace tncommon
