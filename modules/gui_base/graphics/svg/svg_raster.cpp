// SPDX-License-Identifier: MIT
#include "gui_base/graphics/svg/svg_raster.h"

#include "gui_base/graphics/svg/svg_syntax.h"
#include "gui_base/support/svg_bundle.h"
#include "svg/text_output_stream.h"

#include <wx/log.h>
#include <wx/tokenzr.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

namespace svg {

namespace {

/// Attributes whose digits are no numbers of a shape.
bool HoldsShape(const wxString& name)
{
    static const std::array kOthers{wxString("id"), wxString("class"), wxString("href"),
                                    wxString("xlink:href")};
    return std::ranges::find(kOthers, name) == kOthers.end() && !name.StartsWith("xmlns");
}

/// Whether a list of dashes is so short that a line would fall into millions of them. One without a length
/// makes a solid line.
bool IsEndless(const wxString& dashes)
{
    constexpr double kShortest = 0.1;
    double sum = 0.0;
    wxStringTokenizer tokens(dashes, " ,\t\r\n", wxTOKEN_STRTOK);
    while (tokens.HasMoreTokens()) {
        // The number before a unit.
        const std::string token = tokens.GetNextToken().utf8_string();
        double value = 0.0;
        std::from_chars(token.data(), token.data() + token.size(), value);
        sum += std::abs(value);
    }
    return sum > 0.0 && sum < kShortest;
}

bool HasEndlessDashes(const wxXmlNode& node)
{
    if (IsEndless(node.GetAttribute("stroke-dasharray")))
        return true;
    const Declarations style = ParseDeclarations(node.GetAttribute("style"));
    return std::ranges::any_of(style, [](const auto& declaration) {
        return wxString(declaration.first).Trim().Trim(false) == "stroke-dasharray" &&
               IsEndless(declaration.second);
    });
}

bool StartsNumber(char c)
{
    return (c >= '0' && c <= '9') || c == '.';
}

/// Counts the numbers in a text; false when one of them is too large.
bool CountNumbers(const std::string& text, std::size_t& count)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        if (*at == '#') {
            // A colour, of which "1e9" may be a part.
            at = std::find_if_not(at + 1, end, [](unsigned char c) { return std::isalnum(c) != 0; });
            continue;
        }
        if (!StartsNumber(*at)) {
            ++at;
            continue;
        }
        double value = 0.0;
        const auto [behind, error] = std::from_chars(at, end, value);
        if (error == std::errc::result_out_of_range || value > kLargestNumber)
            return false;
        ++count;
        at = behind == at ? at + 1 : behind;
    }
    return true;
}

}  // namespace

bool IsDrawable(const wxXmlDocument& document)
{
    std::size_t count = 0;
    const wxXmlNode* const root = document.GetRoot();
    for (const wxXmlNode* node = root; node != nullptr; node = NextInOrder(*node, *root)) {
        if (node->GetType() != wxXML_ELEMENT_NODE)
            continue;
        if (HasEndlessDashes(*node))
            return false;
        for (const wxXmlAttribute* each = node->GetAttributes(); each != nullptr; each = each->GetNext()) {
            if (HoldsShape(each->GetName()) && !CountNumbers(each->GetValue().utf8_string(), count))
                return false;
        }
        if (count > kMostNumbers)
            return false;
    }
    return root != nullptr;
}

wxBitmapBundle ShapesOf(const wxXmlDocument& document)
{
    if (!IsDrawable(document))
        return {};
    constexpr int kIndentation = 2;
    const wxLogNull quiet;
    TextOutputStream stream;
    if (!document.Save(stream, kIndentation))
        return {};
    // The rasteriser changes the text that it reads, but takes a copy of a constant one. Every size that is
    // asked for is made of the shapes; this one means nothing.
    return svg_bundle::Make(stream.GetText().c_str(), wxSize(1, 1));
}

wxBitmap RasteriseIn(const wxBitmapBundle& shapes, const wxSize& size)
{
    const double pixels = static_cast<double>(size.x) * size.y;
    if (!shapes.IsOk() || size.x <= 0 || size.y <= 0 || pixels > kMostPixels)
        return {};
    return shapes.GetBitmap(size);
}

}  // namespace svg
