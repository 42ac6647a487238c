// SPDX-License-Identifier: MIT
#pragma once

/// How the answers of services are read: documents of a root with rows in it, which have fields. A field is
/// an attribute of its row, an element in it, or, by the empty name, the row's own text. The document is
/// looked at as it comes; memory and time grow with its length, which is bounded, as all in it is.

#include "gui_base/gui_base_export.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace xml_rows {

/// What a document must be. Rows of another name and fields that are not named are passed over.
struct Shape
{
    const char* root;
    const char* row;
    std::vector<std::string_view> fields;
};

struct Limits
{
    std::size_t bytes = std::size_t{8} << 20;
    std::size_t rows = 20'000;
    std::size_t fields = 100;  ///< of a row or the root, passed over or not
    std::size_t text = 2'000;  ///< bytes of a field
    int depth = 16;            ///< elements inside of elements
};

using Fields = std::map<std::string, std::string, std::less<>>;

/// The text of a field without white space at its ends; empty where there is none.
GUI_BASE_EXPORT std::string Field(const Fields& fields, std::string_view name);

enum class Problem
{
    None,
    NotWellFormed,  ///< no XML, or cut off
    Unexpected      ///< XML of another root, with declarations of its own, with a field twice, or too large
};

struct Document
{
    Problem problem = Problem::None;
    Fields attributes;  ///< of the root
    std::vector<Fields> rows;
};

/// Texts are UTF-8, whatever the encoding. After a problem there are no rows.
GUI_BASE_EXPORT Document Read(std::string_view bytes, const Shape& shape, const Limits& limits = {});

}  // namespace xml_rows
