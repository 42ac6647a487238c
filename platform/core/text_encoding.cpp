// SPDX-License-Identifier: MIT
#include "core/laboratory_file.h"

#include <cstdint>

namespace laboratory {
namespace {

void AppendUtf8(std::string& text, std::uint32_t code)
{
    const auto tail = [&](int shift) { text += static_cast<char>(0x80U | ((code >> shift) & 0x3fU)); };
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xc0U | (code >> 6));
        tail(0);
    } else if (code < 0x10000) {
        text += static_cast<char>(0xe0U | (code >> 12));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xf0U | (code >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

/// Length of the valid UTF-8 sequence at `at`, or 0.
std::size_t SequenceLength(std::string_view text, std::size_t at)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(at);
    std::size_t length = 0;
    if (first < 0x80)
        return 1;
    if (first >= 0xc2 && first <= 0xdf)
        length = 2;
    else if (first >= 0xe0 && first <= 0xef)
        length = 3;
    else if (first >= 0xf0 && first <= 0xf4)
        length = 4;
    if (length == 0 || at + length > text.size())
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(at + i) & 0xc0U) != 0x80U)
            return 0;
    return length;
}

bool IsUtf8(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = SequenceLength(text, at);
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

std::string FromUtf16(std::string_view bytes, bool bigEndian)
{
    constexpr std::uint32_t kReplacement = 0xfffd;
    std::string text;
    std::uint32_t high = 0;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        const std::uint32_t unit = bigEndian ? first * 256U + second : second * 256U + first;
        if (unit >= 0xd800 && unit < 0xdc00) {
            high = unit;
            continue;
        }
        const bool isLow = unit >= 0xdc00 && unit < 0xe000;
        if (isLow && high != 0)
            AppendUtf8(text, 0x10000U + ((high - 0xd800U) << 10) + (unit - 0xdc00U));
        else
            AppendUtf8(text, isLow ? kReplacement : unit);
        high = 0;
    }
    return text;
}

}  // namespace

std::string DecodeText(std::string_view bytes)
{
    if (bytes.starts_with("\xef\xbb\xbf"))
        return std::string(bytes.substr(3));
    if (bytes.starts_with("\xff\xfe"))
        return FromUtf16(bytes.substr(2), false);
    if (bytes.starts_with("\xfe\xff"))
        return FromUtf16(bytes.substr(2), true);
    if (IsUtf8(bytes))
        return std::string(bytes);
    std::string text;
    for (const char c : bytes)
        AppendUtf8(text, static_cast<unsigned char>(c));
    return text;
}

}  // namespace laboratory
