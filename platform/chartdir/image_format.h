// SPDX-License-Identifier: MIT
#pragma once

/// Pictures as bytes of a file format.

#include "chartdir/chartdir_export.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace chartdir {

enum class ImageFormat
{
    Png,
    Jpeg,
    Bmp,
    Gif,
    Svg,
    Pdf
};

/// By the extension (".png", ".jpg", ".jpeg", ".bmp", ".gif", ".svg", ".pdf", in any case); nothing for
/// another one.
CHARTDIR_EXPORT std::optional<ImageFormat> FormatOfPath(const std::filesystem::path& path);

/// Opaque pixels, 0xRRGGBB, row by row from the top.
struct Pixels
{
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> rgb;
};

CHARTDIR_EXPORT std::string EncodeBmp(const Pixels& pixels);
/// With at most 256 colours: those of the picture where it has no more, else the most frequent ones of parts
/// of the colour space that hold as many pixels each (median cut, Heckbert 1982).
CHARTDIR_EXPORT std::string EncodeGif(const Pixels& pixels);
/// Throws std::runtime_error.
CHARTDIR_EXPORT std::string EncodeJpeg(const Pixels& pixels);

}  // namespace chartdir
