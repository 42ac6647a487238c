// SPDX-License-Identifier: MIT
#include "tncommon/xml_check.h"

#include <wx/strconv.h>

namespace tncommon {

namespace {

constexpr std::size_t kEnd = std::string_view::npos;

/// The place behind `end` at or after `from`.
std::size_t Behind(std::string_view xml, std::size_t from, std::string_view end)
{
    const std::size_t found = xml.find(end, from);
    return found == kEnd ? kEnd : found + end.size();
}

/// The place behind the tag that begins at `from`; a ">" in quotes does not end it. Counts what is quoted.
std::size_t BehindTag(std::string_view xml, std::size_t from, std::size_t& quoted)
{
    quoted = 0;
    for (std::size_t i = from; i < xml.size(); ++i) {
        if (xml[i] == '>')
            return i + 1;
        if (xml[i] == '"' || xml[i] == '\'') {
            i = xml.find(xml[i], i + 1);
            if (i == kEnd)
                return kEnd;
            ++quoted;
        }
    }
    return kEnd;
}

}  // namespace

bool IsUtf8Text(std::string_view bytes)
{
    return bytes.find('\0') == kEnd &&
           wxConvUTF8.ToWChar(nullptr, 0, bytes.data(), bytes.size()) != wxCONV_FAILED;
}

std::string FindXmlProblem(std::string_view xml, const XmlLimits& limits)
{
    if (!IsUtf8Text(xml))
        return "the document is not encoded in UTF-8";
    int depth = 0;
    std::size_t nodes = 0;
    std::size_t quoted = 0;
    std::size_t texts = 0;
    std::size_t last = 0;
    const auto isTooLong = [&](std::string_view text) {
        if (text.find_first_not_of(" \t\r\n") == kEnd)
            return false;
        texts += text.size();
        return text.size() > limits.text || texts > limits.texts;
    };
    for (std::size_t at = xml.find('<'); at != kEnd; at = xml.find('<', at)) {
        if (isTooLong(xml.substr(last, at - last)))
            return "a text of the document is too long";
        const std::string_view rest = xml.substr(at);
        std::size_t behind = kEnd;
        if (rest.starts_with("<!--")) {
            behind = Behind(xml, at + 4, "-->");
        } else if (rest.starts_with("<![CDATA[")) {
            behind = Behind(xml, at, "]]>");
            if (isTooLong(xml.substr(at, behind - at)))
                return "a text of the document is too long";
        } else if (rest.starts_with("<!")) {
            behind = BehindTag(xml, at, quoted);
            const bool declares = xml.substr(at, behind - at).find('[') != kEnd;
            if (!limits.acceptsDoctype || !rest.starts_with("<!DOCTYPE") || declares)
                return "the document has a DTD";
        } else if (rest.starts_with("<?")) {
            behind = Behind(xml, at, "?>");
        } else {
            behind = BehindTag(xml, at, quoted);
            const bool closes = rest.starts_with("</");
            const bool empty = behind != kEnd && xml[behind - 2] == '/';
            depth += closes ? -1 : (empty ? 0 : 1);
            if (depth > limits.depth)
                return "the elements of the document are nested too deeply";
        }
        if (behind == kEnd)
            return "the document ends too early";
        nodes += rest.starts_with("</") ? 0 : 1;
        if (nodes > limits.nodes || quoted > limits.attributes)
            return "the document has too many parts";
        last = at = behind;
    }
    return {};
}

}  // namespace tncommon
