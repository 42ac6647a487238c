// SPDX-License-Identifier: MIT
#pragma once

/// A look at XML of unknown origin before it is parsed. The parser builds a tree that it walks recursively,
/// so what is nested deeply must not come to it; and it must not meet a DTD. Internal to this library.

#include <string>
#include <string_view>

namespace flat_xml {

/// Elements inside of elements, the root counted.
inline constexpr int kMostDepth = 8;

/// What speaks against parsing the document: bytes that are no UTF-8, a DTD, too deep nesting, markup that
/// does not end; empty when nothing does.
std::string FindProblem(std::string_view xml);

}  // namespace flat_xml
