// SPDX-License-Identifier: MIT
#include "gui_base/support/drawing_sheet.h"

#include <wx/settings.h>

#include <algorithm>
#include <array>
#include <span>

namespace drawing_sheet {
namespace {

constexpr int kWhite = 255;
using Rgb = std::array<unsigned char, 3>;

/// Lightness turned around with hue and chroma kept: red, green and blue all move by as much, so that the
/// greatest becomes what the least was below white. Then black is raised to the sheet.
void Turn(const Rgb& sheet, std::span<unsigned char, 3> pixel)
{
    const auto [least, greatest] = std::ranges::minmax(pixel);
    const int move = kWhite - least - greatest;
    for (std::size_t i = 0; i < sheet.size(); ++i)
        pixel[i] = static_cast<unsigned char>(sheet[i] + (pixel[i] + move) * (kWhite - sheet[i]) / kWhite);
}

Rgb RgbOf(const wxColour& colour)
{
    return {colour.Red(), colour.Green(), colour.Blue()};
}

}  // namespace

wxColour ColourInDarkTheme()
{
    return wxSystemSettings::GetAppearance().IsUsingDarkBackground()
               ? wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW)
               : wxColour();
}

wxColour InkOn(const wxColour& sheet, const wxColour& ink)
{
    if (!sheet.IsOk() || !ink.IsOk())
        return ink;
    Rgb pixel = RgbOf(ink);
    Turn(RgbOf(sheet), pixel);
    return {pixel[0], pixel[1], pixel[2], ink.Alpha()};
}

void TurnTo(const wxColour& sheet, wxImage& picture)
{
    if (!sheet.IsOk() || !picture.IsOk())
        return;
    const Rgb rgb = RgbOf(sheet);
    const std::span all(picture.GetData(), std::size_t{3} * picture.GetWidth() * picture.GetHeight());
    for (std::size_t at = 0; at < all.size(); at += rgb.size())
        Turn(rgb, std::span<unsigned char, 3>(all.subspan(at, rgb.size())));
}

}  // namespace drawing_sheet
