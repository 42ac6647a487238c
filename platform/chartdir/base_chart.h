// SPDX-License-Identifier: MIT
#pragma once

#include "chartdir/chartdir_export.h"
#include "chartdir/draw_area.h"
#include "chartdir/hot_spots.h"
#include "chartdir/image_format.h"
#include "chartdir/palette.h"
#include "core/number_text.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

struct _cairo;
using cairo_t = _cairo;

namespace chartdir {

/// A chart of a size in pixels that draws itself: on a screen, into pictures and as vectors, by one `draw`.
///
/// Values that own their contents. Charts may be drawn and written on several threads at once, also the same
/// one, as long as nobody changes it. Titles and texts take the marks of markup.h.
class CHARTDIR_EXPORT BaseChart
{
public:
    virtual ~BaseChart();
    BaseChart(const BaseChart&) = delete;
    BaseChart& operator=(const BaseChart&) = delete;

    /// Sides are put between 1 and 10,000 pixels.
    void setSize(int width, int height);
    int getWidth() const { return m_width; }
    int getHeight() const { return m_height; }

    void setTheme(const Theme& theme) { m_theme = theme; }
    const Theme& getTheme() const { return m_theme; }
    /// How numbers are written.
    void setSeparators(const numbertext::Separators& separators) { m_separators = separators; }
    const numbertext::Separators& getSeparators() const { return m_separators; }

    void addTitle(std::string markup) { m_title = std::move(markup); }
    const std::string& getTitle() const { return m_title; }
    /// A text with its upper left corner there.
    void addText(Point place, std::string markup) { m_texts.push_back({place, std::move(markup)}); }
    /// Small pictures in the lower right corner, from the right, as high as a line of text.
    void addDrawArea(std::shared_ptr<const DrawArea> area) { m_areas.push_back(std::move(area)); }

    /// Draws the chart into the rectangle from (0, 0) to its size.
    void draw(cairo_t* canvas) const;
    /// Writes it to a file in the format of the extension: beside it and renamed, so that a failure leaves
    /// what was there. False when the extension names no format or the file cannot be written.
    bool makeChart(const std::filesystem::path& path) const;
    /// The bytes of such a file. Throws std::runtime_error when there is no memory for it.
    std::string makeChart2(ImageFormat format) const;
    /// The chart as pixels, `scale` of them for each of its own. Throws as before.
    Pixels makePixels(double scale = 1.0) const;

    virtual ImageMap getImageMap() const = 0;
    /// Its hot spots as areas of an HTML image map.
    std::string getHTMLImageMap(const std::string& link = {}) const { return ToHtml(getImageMap(), link); }

protected:
    BaseChart(int width, int height);
    virtual void DoDraw(cairo_t* canvas) const = 0;

private:
    struct PlacedText
    {
        Point place;
        std::string markup;
    };

    void DrawAreas(cairo_t* canvas) const;
    std::string MakeVectors(ImageFormat format) const;

    int m_width = 1;
    int m_height = 1;
    Theme m_theme = LightTheme();
    numbertext::Separators m_separators;
    std::string m_title;
    std::vector<PlacedText> m_texts;
    std::vector<std::shared_ptr<const DrawArea>> m_areas;
};

}  // namespace chartdir
