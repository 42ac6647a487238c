// SPDX-License-Identifier: MIT
#include "chartdir/image_format.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

// It wants the standard header of files before it.
#include <jpeglib.h>

namespace chartdir {

namespace {

struct FormatName
{
    const char* extension;
    ImageFormat format;
};
constexpr std::array kFormats{FormatName{".png", ImageFormat::Png},   FormatName{".jpg", ImageFormat::Jpeg},
                              FormatName{".jpeg", ImageFormat::Jpeg}, FormatName{".bmp", ImageFormat::Bmp},
                              FormatName{".gif", ImageFormat::Gif},   FormatName{".svg", ImageFormat::Svg},
                              FormatName{".pdf", ImageFormat::Pdf}};

void Append(std::string& bytes, std::uint32_t value, int count)
{
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
}

struct JpegErrors
{
    jpeg_error_mgr manager;
    std::jmp_buf back;
};

[[noreturn]] void LeaveJpeg(j_common_ptr info)
{
    std::longjmp(reinterpret_cast<JpegErrors*>(info->err)->back, 1);
}

/// Nothing with a destructor lives between the point of return and the library's calls.
bool CompressJpeg(const Pixels& pixels, unsigned char* row, unsigned char** bytes, unsigned long* size)
{
    constexpr int kQuality = 92;
    jpeg_compress_struct info;
    JpegErrors errors;
    info.err = jpeg_std_error(&errors.manager);
    errors.manager.error_exit = LeaveJpeg;
    if (setjmp(errors.back) != 0) {
        jpeg_destroy_compress(&info);
        return false;
    }
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, bytes, size);
    info.image_width = static_cast<JDIMENSION>(pixels.width);
    info.image_height = static_cast<JDIMENSION>(pixels.height);
    info.input_components = 3;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, kQuality, TRUE);
    // Thin coloured lines keep their colour.
    info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = 1;
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        const std::uint32_t* const source =
            pixels.rgb.data() + static_cast<std::size_t>(info.next_scanline) * info.image_width;
        for (std::size_t x = 0; x < info.image_width; ++x) {
            row[3 * x] = static_cast<unsigned char>(source[x] >> 16U);
            row[3 * x + 1] = static_cast<unsigned char>(source[x] >> 8U);
            row[3 * x + 2] = static_cast<unsigned char>(source[x]);
        }
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    return true;
}

}  // namespace

std::optional<ImageFormat> FormatOfPath(const std::filesystem::path& path)
{
    std::string extension = path.extension().string();
    for (char& c : extension)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    for (const FormatName& name : kFormats) {
        if (extension == name.extension)
            return name.format;
    }
    return std::nullopt;
}

std::string EncodeBmp(const Pixels& pixels)
{
    constexpr std::uint32_t kHeader = 54;
    constexpr std::uint32_t kPixelsPerMetre = 3780;  // 96 an inch
    const auto width = static_cast<std::uint32_t>(pixels.width);
    const auto height = static_cast<std::uint32_t>(pixels.height);
    const std::uint32_t stride = (3 * width + 3) / 4 * 4;
    std::string bytes = "BM";
    bytes.reserve(kHeader + stride * height);
    Append(bytes, kHeader + stride * height, 4);
    Append(bytes, 0, 4);
    Append(bytes, kHeader, 4);
    Append(bytes, 40, 4);  // size of what follows
    Append(bytes, width, 4);
    Append(bytes, height, 4);  // rows from the bottom
    Append(bytes, 1, 2);       // planes
    Append(bytes, 24, 2);      // bits a pixel
    Append(bytes, 0, 4);       // not compressed
    Append(bytes, stride * height, 4);
    Append(bytes, kPixelsPerMetre, 4);
    Append(bytes, kPixelsPerMetre, 4);
    bytes.append(8, '\0');  // no palette
    for (std::uint32_t y = height; y-- > 0;) {
        for (std::uint32_t x = 0; x < width; ++x)
            Append(bytes, pixels.rgb[static_cast<std::size_t>(y) * width + x], 3);
        bytes.append(stride - 3 * width, '\0');
    }
    return bytes;
}

std::string EncodeJpeg(const Pixels& pixels)
{
    std::vector<unsigned char> row(static_cast<std::size_t>(pixels.width) * 3);
    unsigned char* data = nullptr;
    unsigned long size = 0;
    const bool isDone = CompressJpeg(pixels, row.data(), &data, &size);
    std::string bytes;
    if (isDone)
        bytes.assign(reinterpret_cast<const char*>(data), size);
    std::free(data);
    if (!isDone)
        throw std::runtime_error("chartdir: a picture cannot be compressed");
    return bytes;
}

}  // namespace chartdir
