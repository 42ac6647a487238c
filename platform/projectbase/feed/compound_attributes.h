// SPDX-License-Identifier: MIT
#pragma once

/// The form of a compound in an exchange file: one element, whose attributes are its data. Internal to the
/// exchange files.

#include "dbinterfaces/db_objects.h"

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace compound_attributes {

inline constexpr const char* kElement = "compound";
/// How many attributes a compound has.
extern const std::size_t kCount;

/// Name and text.
using Attribute = std::pair<std::string_view, std::string_view>;

/// The attributes of a compound, in the order in which they are written. Throws std::invalid_argument for a
/// text with a control character, which XML cannot hold.
std::vector<std::pair<std::string, std::string>> Write(const DBObjects::Compound& compound);

/// The compound of an element with such attributes; `number` says in messages which one it is. Throws
/// CompoundFileError.
DBObjects::Compound Read(std::string_view element, std::span<const Attribute> attributes, std::size_t number);

}  // namespace compound_attributes
