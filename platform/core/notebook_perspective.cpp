// SPDX-License-Identifier: MIT
#include "core/notebook_perspective.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <set>

namespace perspective {
namespace {

template <typename Number>
std::optional<Number> ReadNumber(std::string_view text)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

/// Takes the part before the first `separator` off `rest`, or all of it. A separator after a backslash is
/// text where `escapes` holds.
std::string_view TakePart(std::string_view& rest, char separator, bool escapes = false)
{
    std::size_t end = rest.find(separator);
    while (escapes && end != std::string_view::npos && end > 0 && rest[end - 1] == '\\')
        end = rest.find(separator, end + 1);
    const std::string_view part = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return part;
}

std::vector<Page> ParsePages(std::string_view list)
{
    std::vector<Page> pages;
    while (!list.empty()) {
        std::string_view item = TakePart(list, ',');
        Page page;
        if (item.starts_with('*'))
            page.mark = Mark::Selected;
        else if (item.starts_with('+'))
            page.mark = Mark::Active;
        if (page.mark != Mark::None)
            item.remove_prefix(1);
        if (const auto index = ReadNumber<std::size_t>(item)) {
            page.index = *index;
            pages.push_back(page);
        }
    }
    return pages;
}

/// Leaves one marked page in a group of at least one page.
void MarkOnePage(std::vector<Page>& pages, bool selectionTaken)
{
    const auto has = [&pages](Mark mark) {
        return std::find_if(pages.begin(), pages.end(),
                            [mark](const Page& page) { return page.mark == mark; });
    };
    auto active = has(Mark::Selected);
    if (active == pages.end())
        active = has(Mark::Active);
    if (active == pages.end())
        active = pages.begin();
    const bool selected = active->mark == Mark::Selected && !selectionTaken;
    for (Page& page : pages)
        page.mark = Mark::None;
    active->mark = selected ? Mark::Selected : Mark::Active;
}

struct NumberField
{
    std::string_view key;
    int min;
    int max;
};

// The manager walks over every layer and row up to the largest, and multiplies proportions with pixels.
constexpr int kMostLayers = 100;
constexpr int kMostPixels = 32767;
constexpr NumberField kNumberFields[]{
    {"dir", 1, 5},
    {"layer", 0, kMostLayers},
    {"row", 0, kMostLayers},
    {"pos", 0, kMostPixels},
    {"prop", 1, 500000},
    {"bestw", -1, kMostPixels},
    {"besth", -1, kMostPixels},
    {"minw", -1, kMostPixels},
    {"minh", -1, kMostPixels},
    {"maxw", -1, kMostPixels},
    {"maxh", -1, kMostPixels},
    {"floatx", -kMostPixels, kMostPixels},
    {"floaty", -kMostPixels, kMostPixels},
    {"floatw", -1, kMostPixels},
    {"floath", -1, kMostPixels},
};

bool IsSoundField(std::string_view key, std::string_view value)
{
    if (key == "name")
        return !value.empty();
    if (key == "caption")
        return true;
    if (key == "state")
        return ReadNumber<unsigned>(value).has_value();
    const auto* field = std::find_if(std::begin(kNumberFields), std::end(kNumberFields),
                                     [key](const NumberField& f) { return f.key == key; });
    if (field == std::end(kNumberFields))
        return false;
    const auto number = ReadNumber<int>(value);
    return number && *number >= field->min && *number <= field->max;
}

/// An entry "dock_size(direction,layer,row)=pixels".
bool IsSoundDockSize(std::string_view entry)
{
    std::string_view size = entry.substr(entry.find('(') + 1);
    std::string_view dock = TakePart(size, ')');
    if (!size.starts_with('='))
        return false;
    size.remove_prefix(1);
    const std::string_view direction = TakePart(dock, ',');
    const std::string_view layer = TakePart(dock, ',');
    return IsSoundField("dir", direction) && IsSoundField("layer", layer) && IsSoundField("row", dock) &&
           IsSoundField("bestw", size);
}

/// What the manager would not otherwise keep from the pane as it is.
constexpr std::array<std::string_view, 7> kNeededFields{"name", "state", "dir", "layer",
                                                        "row",  "pos",   "prop"};

/// The entry of a pane with its state cleaned; nothing when the entry is not sound.
std::optional<std::string> SoundPane(std::string_view entry, unsigned allowedState)
{
    std::string sound;
    std::size_t needed = 0;
    while (!entry.empty()) {
        const std::string_view field = TakePart(entry, ';', true);
        const std::size_t equals = field.find('=');
        if (equals == std::string_view::npos)
            return std::nullopt;
        const std::string_view key = field.substr(0, equals);
        const std::string_view value = field.substr(equals + 1);
        if (!IsSoundField(key, value))
            return std::nullopt;
        if (std::find(kNeededFields.begin(), kNeededFields.end(), key) != kNeededFields.end())
            ++needed;
        if (!sound.empty())
            sound += ';';
        if (key == "state")
            sound += "state=" + std::to_string(*ReadNumber<unsigned>(value) & allowedState);
        else
            sound += field;
    }
    return needed == kNeededFields.size() ? std::optional(sound) : std::nullopt;
}

}  // namespace

std::string Print(const Arrangement& arrangement)
{
    std::string text;
    for (const Group& group : arrangement.groups) {
        if (!text.empty())
            text += '|';
        text += group.name + '=';
        for (std::size_t i = 0; i < group.pages.size(); ++i) {
            if (i > 0)
                text += ',';
            if (group.pages[i].mark != Mark::None)
                text += group.pages[i].mark == Mark::Selected ? '*' : '+';
            text += std::to_string(group.pages[i].index);
        }
    }
    return text + '@' + arrangement.layout;
}

Arrangement Parse(std::string_view text)
{
    Arrangement arrangement;
    std::string_view groups = TakePart(text, '@');
    arrangement.layout = text;
    while (!groups.empty()) {
        std::string_view list = TakePart(groups, '|');
        if (list.find('=') == std::string_view::npos)
            continue;
        const std::string_view name = TakePart(list, '=');
        arrangement.groups.push_back({std::string(name), ParsePages(list)});
    }
    return arrangement;
}

void FitToPages(Arrangement& arrangement, std::size_t pageCount)
{
    std::set<std::size_t> placed;
    std::set<std::string> names{std::string(kPlaceholder)};
    for (Group& group : arrangement.groups) {
        std::erase_if(group.pages, [&](const Page& page) {
            return page.index >= pageCount || !placed.insert(page.index).second;
        });
        if (!names.insert(group.name).second)
            group.name.clear();
    }
    std::erase_if(arrangement.groups, [](const Group& group) { return group.pages.empty(); });
    if (arrangement.groups.empty())
        return;
    bool selectionTaken = false;
    for (Group& group : arrangement.groups) {
        MarkOnePage(group.pages, selectionTaken);
        selectionTaken =
            selectionTaken || std::any_of(group.pages.begin(), group.pages.end(),
                                          [](const Page& page) { return page.mark == Mark::Selected; });
    }
    for (std::size_t index = 0; index < pageCount; ++index)
        if (!placed.contains(index))
            arrangement.groups.front().pages.push_back({index, Mark::None});
}

std::string SoundLayout(std::string_view layout, unsigned allowedState)
{
    if (!layout.starts_with("layout"))
        return {};
    std::string sound(TakePart(layout, '|'));
    sound += '|';
    while (!layout.empty()) {
        const std::string_view entry = TakePart(layout, '|', true);
        if (entry.starts_with("dock_size(")) {
            if (IsSoundDockSize(entry))
                sound += std::string(entry) + '|';
        } else if (const auto pane = SoundPane(entry, allowedState)) {
            sound += *pane + '|';
        }
    }
    return sound;
}

}  // namespace perspective
