// SPDX-License-Identifier: MIT
#pragma once

/// The texts within a graphic: style declarations, transforms, numbers, colours, pictures. No windows.

#include "gui_base/gui_base_export.h"

#include <wx/affinematrix2d.h>
#include <wx/colour.h>
#include <wx/image.h>
#include <wx/string.h>
#include <wx/xml/xml.h>

#include <map>
#include <stdexcept>
#include <vector>

namespace svg {

/// Values by the names of properties, both as written.
using Declarations = std::map<wxString, wxString>;
/// Declarations by the names of classes.
using StyleSheet = std::map<wxString, Declarations>;

/// The value of a key; throws std::out_of_range where the table has none.
template <typename Value>
const Value& LookUp(const std::map<wxString, Value>& table, const wxString& key)
{
    const auto found = table.find(key);
    if (found == table.end())
        throw std::out_of_range("invalid map<K, T> key");
    return found->second;
}

/// A whole text as a number; 0 for one that is none, or none that is finite.
GUI_BASE_EXPORT double ToNumber(const wxString& text);
/// The numbers of a list with blanks and commas between them.
GUI_BASE_EXPORT std::vector<double> ToNumbers(const wxString& list);

/// A number with a unit behind it.
struct Length
{
    double value = 0.0;
    wxString unit;
};
/// The unit begins with the first character that is no digit and no point; 0 where no number stands before
/// it.
GUI_BASE_EXPORT Length ToLength(const wxString& text);

/// "name:value;name:value". Blanks count; what has no value is left out; the last one of a name counts.
GUI_BASE_EXPORT Declarations ParseDeclarations(const wxString& text);
/// Lines such as ".name {fill:#ff0000;}", one rule a line.
GUI_BASE_EXPORT StyleSheet ParseStyleSheet(const wxString& text);

/// One function: "translate", "rotate", "scale", "skewX", "skewY" or "matrix", angles in radians; the
/// identity for anything else, also for a list of functions.
GUI_BASE_EXPORT wxAffineMatrix2D ParseTransform(const wxString& text);

/// "#rrggbb"; an invalid colour for another notation. Throws std::out_of_range for a short one.
GUI_BASE_EXPORT wxColour ParseColour(const wxString& text);

/// The picture in "data:image/png;base64,..."; an empty one for any other reference, for a damaged picture,
/// and for one beyond `mostPixels`.
GUI_BASE_EXPORT wxImage ParsePngReference(const wxString& reference, double mostPixels);

/// The first child that says something: comments and white space between the tags do not.
GUI_BASE_EXPORT const wxXmlNode* FirstChild(const wxXmlNode& node);
/// All text that stands directly below a node, CDATA or not.
GUI_BASE_EXPORT wxString TextOf(const wxXmlNode& node);
/// The node that comes after `node` in the order of the document, within `top`; null at the end. Walks
/// without recursion, however deeply the document is nested.
GUI_BASE_EXPORT const wxXmlNode* NextInOrder(const wxXmlNode& node, const wxXmlNode& top);

}  // namespace svg
