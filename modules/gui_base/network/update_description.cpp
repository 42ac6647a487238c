// SPDX-License-Identifier: MIT
#include "gui_base/network/update_description.h"

#include "gui_base/network/xml_rows.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 20;
constexpr std::size_t kMostName = 120;
constexpr std::size_t kMostNote = 100'000;
constexpr std::size_t kHashDigits = 64;

/// Nothing for what is no whole number of at least 0.
std::optional<std::int64_t> ToNumber(std::string_view text)
{
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 0)
        return std::nullopt;
    return number;
}

/// Empty for what is no version.
std::vector<std::int64_t> ToNumbers(std::string_view version)
{
    std::vector<std::int64_t> numbers;
    while (true) {
        const auto point = std::min(version.find('.'), version.size());
        const auto number = ToNumber(version.substr(0, point));
        if (!number)
            return {};
        numbers.push_back(*number);
        if (point == version.size())
            return numbers;
        version.remove_prefix(point + 1);
    }
}

/// The name of a setup program is one that its makers gave it: plain letters alone.
bool IsFileName(std::string_view name)
{
    return !name.empty() && name.size() <= kMostName && name.front() != '.' &&
           std::ranges::all_of(name, [](char c) {
               return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                      c == '.' || c == '-' || c == '_';
           });
}

bool IsHash(std::string_view text)
{
    return text.size() == kHashDigits && text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

}  // namespace

std::optional<UpdateDescription> ReadUpdateDescription(std::string_view bytes)
{
    const xml_rows::Document document =
        xml_rows::Read(bytes, {.root = "tarnvik-update", .row = "note", .fields = {"lang", ""}},
                       {.bytes = kMostBytes, .rows = 100, .text = kMostNote});
    if (document.problem != xml_rows::Problem::None)
        return std::nullopt;
    const auto attribute = [&document](std::string_view name) {
        return xml_rows::Field(document.attributes, name);
    };
    const auto size = ToNumber(attribute("size"));
    UpdateDescription update{.version = attribute("version"),
                             .file = attribute("file"),
                             .size = size.value_or(-1),
                             .sha256 = attribute("sha256"),
                             .notes = {}};
    if (ToNumbers(update.version).empty() || !IsFileName(update.file) || !size || !IsHash(update.sha256))
        return std::nullopt;
    for (const xml_rows::Fields& note : document.rows)
        update.notes[xml_rows::Field(note, "lang")] = xml_rows::Field(note, "");
    return update;
}

bool IsNewerVersion(std::string_view version, std::string_view than)
{
    auto numbers = ToNumbers(version);
    auto others = ToNumbers(than);
    // "1.2" is "1.2.0".
    const std::size_t most = std::max(numbers.size(), others.size());
    if (!numbers.empty())
        numbers.resize(most);
    if (!others.empty())
        others.resize(most);
    return numbers > others;
}
