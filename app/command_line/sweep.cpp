// SPDX-License-Identifier: MIT
#include "app/command_line/sweep.h"

#include "app/command_line/feed_setting.h"
#include "projectbase/project/project.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

namespace app {

namespace {

constexpr const char* kForm = "KEY=FROM:TO:N";

std::optional<std::uint64_t> ParseCount(std::string_view text)
{
    std::uint64_t number = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    // What is larger than any number is larger than every bound.
    if (parsed.ec == std::errc::result_out_of_range && parsed.ptr == text.data() + text.size())
        return UINT64_MAX;
    if (text.empty() || parsed.ec != std::errc() || parsed.ptr != text.data() + text.size())
        return std::nullopt;
    return number;
}

std::string NameOf(const ProjectSetting& key)
{
    return key.owner.empty() ? key.key : key.owner + ":" + key.key;
}

Quantity ParseBound(const SweepRange& range, const std::string& text)
{
    ProjectSetting setting = range.key;
    setting.value = text;
    const Quantity quantity = ParseQuantity(setting);
    if (std::isnan(quantity.value))
        throw SettingError(fmt::format("a range of {} needs two numbers", NameOf(range.key)));
    return quantity;
}

void CheckRange(const SweepRange& range)
{
    const std::string name = NameOf(range.key);
    if (range.count < 1)
        throw SettingError(fmt::format("a range of {} needs one value at least", name));
    if (range.count > kMostPoints)
        throw SettingError(fmt::format("a range of {} may have {} values at most", name, kMostPoints));
    if (range.from > range.to)
        throw SettingError(
            fmt::format("the range of {} runs backwards, from {} to {}", name, range.from, range.to));
    if (range.from == range.to && range.count > 1)
        throw SettingError(
            fmt::format("the range of {} from {} to {} has one value only", name, range.from, range.to));
    if (!std::isfinite((range.to - range.from) * static_cast<double>(range.count)))
        throw SettingError(fmt::format("the range of {} is too wide", name));
}

}  // namespace

std::string SweepRange::ValueText(std::uint64_t index) const
{
    const bool isLast = count > 1 && index + 1 >= count;
    const double share = (to - from) * static_cast<double>(index);
    const double value = isLast ? to : count > 1 ? from + share / static_cast<double>(count - 1) : from;
    return fmt::format("{}{}", value, unit);
}

SweepRange ParseSweep(const std::string& text)
{
    const auto malformed = [&text] {
        return SettingError(fmt::format("'{}' is not of the form {}", text, kForm), true);
    };
    if (text.find('=') == std::string::npos)
        throw malformed();
    SweepRange range{.key = ParseSetting(text), .unit = {}};
    const std::string value = std::exchange(range.key.value, {});
    const auto first = value.find(':');
    const auto second = first == std::string::npos ? first : value.find(':', first + 1);
    if (second == std::string::npos)
        throw malformed();
    const auto count = ParseCount(std::string_view(value).substr(second + 1));
    if (!count)
        throw malformed();
    const Quantity from = ParseBound(range, value.substr(0, first));
    const Quantity to = ParseBound(range, value.substr(first + 1, second - first - 1));
    if (!from.unit.empty() && from.unit != to.unit)
        throw SettingError(fmt::format("the range of {} has two units, '{}' and '{}'", NameOf(range.key),
                                       from.unit, to.unit));
    range.from = from.value;
    range.to = to.value;
    range.unit = to.unit;
    range.count = *count;
    CheckRange(range);
    return range;
}

Shard ParseShard(const std::string& text)
{
    const auto slash = text.find('/');
    const auto part = slash == std::string::npos ? std::nullopt : ParseCount(text.substr(0, slash));
    const auto count = slash == std::string::npos ? std::nullopt : ParseCount(text.substr(slash + 1));
    if (!part || !count)
        throw SettingError(fmt::format("'{}' is not of the form K/N", text), true);
    if (*count > kMostPoints)
        throw SettingError(fmt::format("there may be {} parts at most", kMostPoints), true);
    if (*part < 1 || *part > *count)
        throw SettingError(fmt::format("there is no part {} of {}", *part, *count), true);
    return {*part, *count};
}

Sweep::Sweep(std::vector<SweepRange> ranges) : m_ranges(std::move(ranges))
{
    if (m_ranges.size() > kMostSweeps)
        throw SettingError(fmt::format("{} inputs may be swept at most", kMostSweeps));
    for (const SweepRange& range : m_ranges) {
        m_count *= range.count;  // both factors are far below the square root of what the type holds
        if (m_count > kMostVariants)
            throw SettingError(fmt::format("a sweep may have {} variants at most", kMostVariants));
    }
    for (auto range = m_ranges.begin(); range != m_ranges.end(); ++range) {
        const auto isSame = [&range](const SweepRange& other) {
            return NameOf(other.key) == NameOf(range->key);
        };
        if (std::find_if(m_ranges.begin(), range, isSame) != range)
            throw SettingError(fmt::format("{} has two ranges", NameOf(range->key)));
    }
}

std::uint64_t Sweep::BeginOf(const Shard& shard) const
{
    return m_count * (shard.part - 1) / shard.count;
}

std::uint64_t Sweep::EndOf(const Shard& shard) const
{
    return m_count * shard.part / shard.count;
}

std::vector<ProjectSetting> Sweep::SettingsOf(std::uint64_t variant) const
{
    std::vector<ProjectSetting> settings(m_ranges.size());
    for (std::size_t i = m_ranges.size(); i-- > 0;) {
        settings[i] = m_ranges[i].key;
        settings[i].value = m_ranges[i].ValueText(variant % m_ranges[i].count);
        variant /= m_ranges[i].count;
    }
    return settings;
}

namespace {

bool IsNumber(const DetailData& detail)
{
    return detail.GetType() == DetailType::Double || detail.GetType() == DetailType::Long;
}

void CheckWholeNumbers(const SweepRange& range)
{
    const auto steps = static_cast<double>(std::max<std::uint64_t>(range.count, 2) - 1);
    const double step = (range.to - range.from) / steps;
    if (range.from != std::round(range.from) || step != std::round(step))
        throw SettingError(fmt::format("{} takes whole numbers: {} values from {} to {} are none",
                                       NameOf(range.key), range.count, range.from, range.to));
}

}  // namespace

void Sweep::Check(const Project& project) const
{
    for (const SweepRange& range : m_ranges) {
        const auto copy = project.Clone();
        // The values of lists are numbers.
        const DetailData* detail = copy->FindDetail(FindAddress(*copy, range.key));
        if (detail != nullptr && !IsNumber(*detail))
            throw SettingError(fmt::format("{} is no number and cannot be swept", NameOf(range.key)));
        if (detail != nullptr && detail->GetType() == DetailType::Long)
            CheckWholeNumbers(range);
        ProjectSetting setting = range.key;
        for (const std::uint64_t end : {std::uint64_t{0}, range.count - 1}) {
            setting.value = range.ValueText(end);
            ApplySetting(*copy, setting);
        }
    }
}

}  // namespace app
