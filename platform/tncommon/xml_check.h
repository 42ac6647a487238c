// SPDX-License-Identifier: MIT
#pragma once

/// A look at XML of unknown origin before it is parsed. The parser builds a tree that it walks recursively,
/// so what is nested deeply must not come to it; and it must not meet entities of the document's own.

#include "tncommon/tncommon_export.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tncommon {

/// Whether the bytes are UTF-8 without zero bytes, as documents are here.
TNCOMMON_EXPORT bool IsUtf8Text(std::string_view bytes);

struct XmlLimits
{
    int depth;  ///< elements inside of elements, the root counted
    /// Whether the document may name its type. One that declares anything itself is refused in any case.
    bool acceptsDoctype = false;
    /// Elements, comments, instructions and sections, and attributes of an element: the tree is copied in a
    /// time that grows with the square of what stands side by side.
    std::size_t nodes = static_cast<std::size_t>(-1);
    std::size_t attributes = static_cast<std::size_t>(-1);
    /// Bytes of a text between two tags, and of all of them: a text is put together line by line. White space
    /// alone is none.
    std::size_t text = static_cast<std::size_t>(-1);
    std::size_t texts = static_cast<std::size_t>(-1);
};

/// What speaks against parsing the document: bytes that are no UTF-8, a DTD, too deep nesting, too many
/// nodes, markup that does not end; empty when nothing does.
TNCOMMON_EXPORT std::string FindXmlProblem(std::string_view xml, const XmlLimits& limits);

}  // namespace tncommon
