// SPDX-License-Identifier: MIT
#pragma once

/// Draws a plant graphic: its shapes, then its texts and images, with the values of a project in place of
/// texts. Texts have their top at their place. GUI thread only.
///
/// The shapes are rasterised once for each size in which they are drawn. Of the texts those are formatted,
/// measured and drawn again that lie in what is to be drawn.

#include "gui_base/graphics/svg/svg_parser_base.h"
#include "gui_base/gui_base_export.h"
#include "svg/svg_graphic_info.h"

#include <wx/bmpbndl.h>
#include <wx/geometry.h>
#include <wx/graphics.h>

#include <memory>
#include <vector>

/// A value as it stands in the picture.
struct SvgShownValue
{
    const TextReplaceMapping* mapping = nullptr;  ///< of the graphic's info
    wxString text;
    wxRect2DDouble box;  ///< in the scaled picture
};

template <typename LoadPolicy>
class SvgRenderer
{
public:
    /// Parses the document with the owner's parser, which outlives the renderer and may be replaced by the
    /// owner. Whatever the parser throws, passes.
    SvgRenderer(const SvgGraphicInfo<LoadPolicy>& info, const std::unique_ptr<SvgParserBase>& parser);
    virtual ~SvgRenderer();
    SvgRenderer(const SvgRenderer&) = delete;
    SvgRenderer& operator=(const SvgRenderer&) = delete;

    /// Shows another graphic. One that cannot be parsed leaves nothing to draw.
    void SetGraphic(const SvgGraphicInfo<LoadPolicy>& info);
    /// The unit system of the values from the next drawing on.
    void SetUnitsystem(const wxString& unitsystem) const;
    /// Fits the picture into a box of pixels; an empty or negative one gives its own size.
    void SetSize(double width, double height);
    /// What is white becomes that colour, for a dark theme; images stay. Without a valid colour the graphic
    /// is drawn as it was made.
    void SetSheet(const wxColour& sheet);
    double GetScaledWidth() const;
    double GetScaledHeight() const;
    /// The picture's own size; (0, 0) where there is none.
    wxSize GetDrawableMinSize() const;
    /// Draws whatever lies within the clip of the context, whose origin is the picture's corner. Returns
    /// GetDrawableMinSize.
    wxSize DrawOnContext(wxGraphicsContext* context);

    /// The values in the order of the document, as they were drawn or brought up to date last.
    std::vector<SvgShownValue> GetShownValues();
    /// Brings the values up to date; the places in the scaled picture that are to be drawn again.
    std::vector<wxRect2DDouble> UpdateValues();

private:
    /// A text or image of the result with what was last shown of it.
    struct Item
    {
        const SvgParserBase::Element* element = nullptr;
        const TextReplaceMapping* mapping = nullptr;
        bool isMeasured = false;
        wxString text{};
        double width = 0.0;   ///< of the text, in the element's space
        double height = 0.0;  ///< of the text, in the element's space
        wxGraphicsBitmap picture{};
    };

    void ParseInfo();
    /// The result; null when the owner has replaced the parser that it belonged to.
    SvgParserBase::ParserResult* Result() const;
    void CollectItems();
    wxString ChooseText(const Item& item) const;
    /// Whether the text was another one.
    bool Measure(Item& item, wxGraphicsContext& context) const;
    std::optional<wxAffineMatrix2D> FromDocument() const;
    static wxRect2DDouble BoxOf(const Item& item, const wxAffineMatrix2D& fromDocument);
    void DrawBackground(wxGraphicsContext& context);
    wxBitmap EnlargedShapes(const wxSize& pixels);
    wxBitmap OnSheet(const wxBitmap& shapes) const;
    void DrawItems(wxGraphicsContext& context);
    void DrawItem(Item& item, wxGraphicsContext& context) const;

    const std::unique_ptr<SvgParserBase>& m_parser;
    std::unique_ptr<SvgGraphicInfo<LoadPolicy>> m_info;
    double m_scale = 1.0;
    wxGraphicsContext* m_context = nullptr;  ///< while something is drawn
    SvgParserBase::ParserResult* m_result = nullptr;
    const SvgParserBase* m_parsedBy = nullptr;
    std::vector<Item> m_items;
    wxBitmapBundle m_shapes;  ///< read when the picture is first scaled
    /// The shapes as they were last drawn, in the form that the graphics library draws without a copy.
    wxGraphicsBitmap m_background;
    wxSize m_pixels;
    wxColour m_sheet;
};

extern template class GUI_BASE_EXPORT SvgRenderer<FileLoadPolicy>;
extern template class GUI_BASE_EXPORT SvgRenderer<ArchiveLoadPolicy>;
