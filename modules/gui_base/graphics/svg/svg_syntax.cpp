// SPDX-License-Identifier: MIT
#include "gui_base/graphics/svg/svg_syntax.h"

#include <wx/base64.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/tokenzr.h>

#include <cmath>
#include <cstring>

namespace svg {

namespace {

wxAffineMatrix2D Matrix(double m11, double m12, double m21, double m22, double x = 0.0, double y = 0.0)
{
    wxAffineMatrix2D matrix;
    matrix.Set(wxMatrix2D(m11, m12, m21, m22), wxPoint2DDouble(x, y));
    return matrix;
}

wxAffineMatrix2D Rotation(double angle, double x, double y)
{
    return Matrix(std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), x, y);
}

/// The size that a PNG states in its head; 0 for bytes that are none.
double PixelsOfPng(const wxMemoryBuffer& bytes)
{
    constexpr std::size_t kHead = 24;
    if (bytes.GetDataLen() < kHead || std::memcmp(bytes.GetData(), "\x89PNG\r\n\x1a\n", 8) != 0)
        return 0.0;
    const auto* head = static_cast<const unsigned char*>(bytes.GetData());
    const auto big = [head](std::size_t at) {
        return ((head[at] * 256.0 + head[at + 1]) * 256.0 + head[at + 2]) * 256.0 + head[at + 3];
    };
    return big(16) * big(20);
}

unsigned char HexPair(const wxString& text, std::size_t at)
{
    unsigned long value = 0;
    return text.Mid(at, 2).ToULong(&value, 16) ? static_cast<unsigned char>(value) : 0;
}

bool IsBlankText(const wxXmlNode& node)
{
    return node.GetType() == wxXML_TEXT_NODE &&
           node.GetContent().find_first_not_of(" \t\r\n") == wxString::npos;
}

}  // namespace

double ToNumber(const wxString& text)
{
    double value = 0.0;
    return text.ToCDouble(&value) && std::isfinite(value) ? value : 0.0;
}

std::vector<double> ToNumbers(const wxString& list)
{
    std::vector<double> numbers;
    wxStringTokenizer tokens(list, " ,", wxTOKEN_STRTOK);
    while (tokens.HasMoreTokens())
        numbers.push_back(ToNumber(tokens.GetNextToken()));
    return numbers;
}

Length ToLength(const wxString& text)
{
    const std::size_t end = text.find_first_not_of(".0123456789");
    const wxString digits = text.substr(0, end);
    // Of "1.2.3" the number is 1.2, as a reader of numbers takes it.
    const std::size_t second = digits.find('.', digits.find('.') + 1);
    const bool hasTwoPoints = digits.find('.') != wxString::npos && second != wxString::npos;
    return {ToNumber(hasTwoPoints ? digits.substr(0, second) : digits),
            end == wxString::npos ? wxString() : text.substr(end)};
}

Declarations ParseDeclarations(const wxString& text)
{
    Declarations declarations;
    wxStringTokenizer tokens(text, ";", wxTOKEN_STRTOK);
    while (tokens.HasMoreTokens()) {
        wxString value;
        const wxString name = tokens.GetNextToken().BeforeFirst(':', &value);
        if (!value.empty())
            declarations[name] = value;
    }
    return declarations;
}

StyleSheet ParseStyleSheet(const wxString& text)
{
    StyleSheet sheet;
    wxStringTokenizer lines(text, "\n", wxTOKEN_STRTOK);
    while (lines.HasMoreTokens()) {
        const wxString line = lines.GetNextToken();
        sheet[line.BeforeFirst(' ').AfterFirst('.')] =
            ParseDeclarations(line.AfterFirst('{').BeforeLast('}'));
    }
    return sheet;
}

wxAffineMatrix2D ParseTransform(const wxString& text)
{
    wxString rest;
    const wxString name = text.BeforeFirst('(', &rest);
    // With several functions the text up to the last bracket holds more than numbers.
    const wxString list = rest.BeforeLast(')');
    const std::vector<double> n =
        list.find_first_of("()") == wxString::npos ? ToNumbers(list) : std::vector<double>();
    const std::size_t count = n.size();
    if (name == "translate" && (count == 1 || count == 2))
        return Matrix(1.0, 0.0, 0.0, 1.0, n[0], count == 2 ? n[1] : 0.0);
    if (name == "rotate" && (count == 1 || count == 3))
        return Rotation(n[0], count == 3 ? n[1] : 0.0, count == 3 ? n[2] : 0.0);
    if (name == "scale" && (count == 1 || count == 2))
        return Matrix(n[0], 0.0, 0.0, count == 2 ? n[1] : 1.0);
    if (name == "skewX" && count == 1)
        return Matrix(1.0, 0.0, std::tan(n[0]), 1.0);
    if (name == "skewY" && count == 1)
        return Matrix(1.0, std::tan(n[0]), 0.0, 1.0);
    if (name == "matrix" && count == 6)
        return Matrix(n[0], n[1], n[2], n[3], n[4], n[5]);
    return {};
}

wxColour ParseColour(const wxString& text)
{
    constexpr std::size_t kLength = 7;
    if (!text.StartsWith("#"))
        return {};
    if (text.length() < kLength)
        throw std::out_of_range("a colour has six hexadecimal digits");
    return {HexPair(text, 1), HexPair(text, 3), HexPair(text, 5)};
}

wxImage ParsePngReference(const wxString& reference, double mostPixels)
{
    wxString rest;
    wxString data;
    if (reference.BeforeFirst(';', &rest) != "data:image/png" || rest.BeforeFirst(',', &data) != "base64")
        return {};
    const wxMemoryBuffer bytes = wxBase64Decode(data, wxBase64DecodeMode_SkipWS);
    const double pixels = PixelsOfPng(bytes);
    if (pixels <= 0.0 || pixels > mostPixels)
        return {};
    if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr)
        wxImage::AddHandler(new wxPNGHandler);
    const wxLogNull quiet;
    wxMemoryInputStream stream(bytes.GetData(), bytes.GetDataLen());
    wxImage image;
    return image.LoadFile(stream, wxBITMAP_TYPE_PNG) ? image : wxImage();
}

const wxXmlNode* FirstChild(const wxXmlNode& node)
{
    const wxXmlNode* child = node.GetChildren();
    while (child != nullptr && (child->GetType() == wxXML_COMMENT_NODE || child->GetType() == wxXML_PI_NODE ||
                                IsBlankText(*child)))
        child = child->GetNext();
    return child;
}

wxString TextOf(const wxXmlNode& node)
{
    wxString text;
    for (const wxXmlNode* child = node.GetChildren(); child != nullptr; child = child->GetNext()) {
        if (child->GetType() == wxXML_TEXT_NODE || child->GetType() == wxXML_CDATA_SECTION_NODE)
            text += child->GetContent();
    }
    return text;
}

const wxXmlNode* NextInOrder(const wxXmlNode& node, const wxXmlNode& top)
{
    if (node.GetChildren() != nullptr)
        return node.GetChildren();
    const wxXmlNode* at = &node;
    while (at != &top && at->GetNext() == nullptr)
        at = at->GetParent();
    return at == &top ? nullptr : at->GetNext();
}

}  // namespace svg
