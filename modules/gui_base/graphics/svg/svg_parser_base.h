// SPDX-License-Identifier: MIT
#pragma once

/// What is drawn of a plant graphic: its shapes as a picture, its texts and images one by one, so that values
/// can stand in place of texts. GUI thread only: fonts and bitmaps belong to the toolkit.

#include "gui_base/gui_base_export.h"

#include <wx/affinematrix2d.h>
#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/font.h>
#include <wx/image.h>
#include <wx/string.h>
#include <wx/xml/xml.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class GUI_BASE_EXPORT Affine2DMatrix : public wxAffineMatrix2D
{
public:
    Affine2DMatrix() = default;
    Affine2DMatrix(const Affine2DMatrix&) = default;
    Affine2DMatrix& operator=(const Affine2DMatrix&) = default;
    ~Affine2DMatrix() override;
};

class GUI_BASE_EXPORT SvgParserBase
{
public:
    enum class Align : std::uint32_t
    {
        None,
        XMinYMin,
        XMidYMin,
        XMaxYMin,
        XMinYMid,
        XMidYMid,
        XMaxYMid,
        XMinYMax,
        XMidYMax,
        XMaxYMax
    };
    enum class MeetOrSlice : std::uint32_t
    {
        Meet,
        Slice
    };
    static constexpr std::int32_t kText = 1;
    static constexpr std::int32_t kImage = 2;

    struct ViewBox
    {
        double x = 0.0;
        double y = 0.0;
        double width = 0.0;
        double height = 0.0;
    };

    /// A text or an image, at a place in user space.
    struct GUI_BASE_EXPORT Element
    {
        virtual ~Element();

        wxString id;
        double x = 0.0;
        double y = 0.0;
        wxString text;
        /// From the space of the element to that of the document.
        Affine2DMatrix transform;
        std::int32_t kind = 0;
    };

    struct GUI_BASE_EXPORT TextElement : Element
    {
        ~TextElement() override;

        wxColour fill;  ///< invalid where the document gives none
        wxFont font;
        std::map<wxString, wxString> style;  ///< the declarations that are in force
    };

    struct GUI_BASE_EXPORT ImageElement : Element
    {
        ~ImageElement() override;

        wxImage image;  ///< empty where the document has no picture of its own
        double width = 0.0;
        double height = 0.0;
    };

    struct ParserResult
    {
        Align align = Align::XMidYMid;
        MeetOrSlice meetOrSlice = MeetOrSlice::Meet;
        std::optional<ViewBox> viewBox;
        std::vector<std::unique_ptr<Element>> elements;  ///< in the order of the document
        wxBitmap bitmap;  ///< the shapes in the document's own size; none where there is nothing to draw
    };

    virtual ~SvgParserBase();

    /// Parses a document, which is needed during the call only. The result belongs to the parser, which drops
    /// the former one, also when it throws: std::out_of_range for a word or unit that there is not.
    ParserResult* ParseXml(wxXmlDocument* document) { return DoParseXml(document); }

protected:
    virtual ParserResult* DoParseXml(wxXmlDocument* document) = 0;
};
