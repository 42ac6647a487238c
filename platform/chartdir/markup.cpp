// SPDX-License-Identifier: MIT
#include "chartdir/markup.h"

#include <charconv>

namespace chartdir {

namespace {

constexpr std::string_view kOpen = "<*";
constexpr std::string_view kClose = "*>";
constexpr double kLargestSize = 200.0;

std::optional<Colour> ColourOf(std::string_view text)
{
    if (!text.starts_with("0x") || text.size() != 8)
        return std::nullopt;
    std::uint32_t rgb = 0;
    const auto [end, error] = std::from_chars(text.data() + 2, text.data() + text.size(), rgb, 16);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return Colour::FromRgb(rgb);
}

std::optional<double> SizeOf(std::string_view text)
{
    double size = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), size);
    if (error != std::errc() || end != text.data() + text.size() || !(size >= 1.0) || size > kLargestSize)
        return std::nullopt;
    return size;
}

/// Takes one mark's entries into the look of what follows.
void Apply(std::string_view entries, MarkedText& look)
{
    while (!entries.empty()) {
        const auto comma = entries.find(',');
        const std::string_view entry = entries.substr(0, comma);
        entries = comma == std::string_view::npos ? std::string_view() : entries.substr(comma + 1);
        const auto equals = entry.find('=');
        const std::string_view key = entry.substr(0, equals);
        const std::string_view value = equals == std::string_view::npos ? "" : entry.substr(equals + 1);
        if (key == "/")
            look = {};
        else if (key == "br")
            look.text += '\n';
        else if (key == "font" && !value.empty())
            look.font = value;
        else if (key == "size" && SizeOf(value))
            look.size = SizeOf(value);
        else if (key == "color" && ColourOf(value))
            look.colour = ColourOf(value);
    }
}

}  // namespace

std::vector<MarkedText> ParseMarkup(std::string_view text)
{
    std::vector<MarkedText> parts;
    MarkedText look;
    const auto finish = [&] {
        if (!look.text.empty())
            parts.push_back(look);
        look.text.clear();
    };
    while (!text.empty()) {
        const auto open = text.find(kOpen);
        const auto close = open == std::string_view::npos ? open : text.find(kClose, open + kOpen.size());
        if (close == std::string_view::npos) {
            look.text += text;
            break;
        }
        look.text += text.substr(0, open);
        finish();
        Apply(text.substr(open + kOpen.size(), close - open - kOpen.size()), look);
        text.remove_prefix(close + kClose.size());
    }
    finish();
    return parts;
}

std::string PlainText(std::string_view text)
{
    std::string plain;
    for (const MarkedText& part : ParseMarkup(text))
        plain += part.text;
    return plain;
}

}  // namespace chartdir
