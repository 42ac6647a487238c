// SPDX-License-Identifier: MIT
#pragma once

/// The text in which a tabbed notebook keeps its arrangement: `name=0,*2|name2=+1@layout`.
///
/// Before the "@" stand the tab groups, each with the notebook indices of its pages in tab order ("*" marks
/// the selected page of the notebook, "+" the active one of another group); after it the layout text of the
/// window manager that places the groups. The text may come from a damaged or foreign settings file: reading
/// never fails, it takes what it understands.

#include "core/core_export.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace perspective {

/// Name of the notebook's placeholder pane, which is never a group.
inline constexpr std::string_view kPlaceholder = "dummy";

enum class Mark
{
    None,
    Active,
    Selected
};

struct Page
{
    std::size_t index = 0;
    Mark mark = Mark::None;

    bool operator==(const Page&) const = default;
};

struct Group
{
    std::string name;
    std::vector<Page> pages;

    bool operator==(const Group&) const = default;
};

struct Arrangement
{
    std::vector<Group> groups;
    std::string layout;

    bool operator==(const Arrangement&) const = default;
};

CORE_EXPORT std::string Print(const Arrangement& arrangement);

/// Reads a text. Items that are no page index and entries without a "=" are left out; without a "@" the
/// layout is empty.
CORE_EXPORT Arrangement Parse(std::string_view text);

/// Fits an arrangement to a notebook of `pageCount` pages: every page stands in exactly one group, at its
/// first mention; pages that no group names follow in the first group; groups without a page are dropped;
/// each group has one active page (the selected one, else the first that is marked, else the first) and at
/// most one page is selected. A group whose name is the placeholder's or was used before loses its name.
/// Without any page of the notebook all groups are dropped.
CORE_EXPORT void FitToPages(Arrangement& arrangement, std::size_t pageCount);

/// The layout text without what would confuse or stop the window manager: entries that are cut off, have
/// unknown fields, or numbers out of all reason. State bits outside `allowedState` are cleared. A sound text
/// stays as it is; one without the manager's heading becomes empty.
CORE_EXPORT std::string SoundLayout(std::string_view layout, unsigned allowedState);

}  // namespace perspective
