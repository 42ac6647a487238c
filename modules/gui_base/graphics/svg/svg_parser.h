// SPDX-License-Identifier: MIT
#pragma once

/// The parser of plant graphics. It reads the part of SVG that their texts use, each in one notation only:
/// classes of the last style sheet, one transform a node with angles in radians, colours as "#rrggbb", the
/// first text of nested ones. Progress is traced on standard output.

#include "gui_base/graphics/svg/svg_parser_base.h"
#include "gui_base/graphics/svg/svg_syntax.h"
#include "gui_base/gui_base_export.h"

#include <compare>
#include <map>
#include <unordered_map>
#include <utility>

class GUI_BASE_EXPORT SvgParser : public SvgParserBase
{
public:
    SvgParser();
    ~SvgParser() override;

protected:
    ParserResult* DoParseXml(wxXmlDocument* document) override;

private:
    struct FontStyle
    {
        double points = 0.0;  ///< 0: as large as other texts of the desktop
        wxFontFamily family = wxFONTFAMILY_DEFAULT;
        bool isBold = false;
        bool isItalic = false;
        bool isUnderlined = false;
        bool isStruck = false;

        auto operator<=>(const FontStyle&) const = default;
    };

    void ReadStyleSheets(const wxXmlNode& root);
    void ReadViewport(const wxXmlNode& root);
    void ParseXMLForElementsToDraw(const wxXmlNode& root);
    std::unique_ptr<TextElement> MakeText(const wxXmlNode& node);
    std::unique_ptr<ImageElement> MakeImage(const wxXmlNode& node, double& pixelsLeft);
    Affine2DMatrix CumulativeTransform(const wxXmlNode& node);
    void SetFontStylesOnTextElement(TextElement& element);
    const wxFont& FontOf(const FontStyle& style);
    double FontSizeStringToPt(const wxString& fontSize) const;
    /// What the root states, in whole pixels; a length with a unit or a fraction, or the view box where it
    /// states none.
    wxSize DocumentSize(const wxXmlNode& root) const;
    int DocumentLength(const wxString& stated, double fallback) const;

    wxXmlDocument* m_document = nullptr;
    std::unique_ptr<ParserResult> m_result;
    svg::StyleSheet m_styleSheet;
    const std::map<wxString, double> m_pixelsOfUnit;
    const std::map<wxString, double> m_pointsOfUnit;
    const std::map<wxString, wxFontFamily> m_fontFamilies;
    const std::pair<std::map<wxString, Align>, std::map<wxString, MeetOrSlice>> m_alignments;
    std::unordered_map<const wxXmlNode*, Affine2DMatrix> m_transforms;  ///< of the nodes of the document
    std::map<FontStyle, wxFont> m_fonts;                                ///< of the texts of the document
};
