// SPDX-License-Identifier: MIT
#pragma once

/// The variants of a project that `calc --sweep` calculates: inputs that go through a range each, in every
/// combination.

#include "app/command_line/project_setting.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class Project;

namespace app {

/// Bounds on what a sweep may ask for.
inline constexpr std::size_t kMostSweeps = 16;
inline constexpr std::uint64_t kMostPoints = 1'000'000;
inline constexpr std::uint64_t kMostVariants = 100'000'000;

/// An input and its values, evenly spaced from the one to the other.
struct SweepRange
{
    ProjectSetting key;  ///< without a value
    double from = 0.0;
    double to = 0.0;
    std::uint64_t count = 1;
    std::string unit;  ///< as it was given; empty for the unit of the input

    /// The value as `--set` takes it: the shortest text of that number, and the unit.
    std::string ValueText(std::uint64_t index) const;
};

/// Reads "[OWNER:]KEY=FROM:TO:N", the unit behind TO. Throws SettingError.
SweepRange ParseSweep(const std::string& text);

/// A part of all variants: the K-th of N, whose parts make the whole.
struct Shard
{
    std::uint64_t part = 1;
    std::uint64_t count = 1;
};

/// Reads "K/N". Throws SettingError.
Shard ParseShard(const std::string& text);

class Sweep
{
public:
    Sweep() = default;
    /// Throws SettingError when there are too many ranges or variants, or an input has two of them.
    explicit Sweep(std::vector<SweepRange> ranges);

    const std::vector<SweepRange>& GetRanges() const { return m_ranges; }
    /// How many combinations there are; the last range goes through its values first.
    std::uint64_t GetCount() const { return m_count; }
    /// The first variant of a part; that of the part behind it is its end.
    std::uint64_t BeginOf(const Shard& shard) const;
    std::uint64_t EndOf(const Shard& shard) const;
    /// What is set for a variant, in the order of the ranges.
    std::vector<ProjectSetting> SettingsOf(std::uint64_t variant) const;

    /// Throws SettingError when one of the inputs does not take the values of its range. The project is not
    /// changed.
    void Check(const Project& project) const;

private:
    std::vector<SweepRange> m_ranges;
    std::uint64_t m_count = 1;
};

}  // namespace app
