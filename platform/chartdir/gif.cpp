// SPDX-License-Identifier: MIT
// GIF 87a: a palette by median cut, indices compressed as by Welch 1984.
#include "chartdir/image_format.h"

#include <algorithm>
#include <unordered_map>

namespace chartdir {

namespace {

constexpr std::size_t kMostColours = 256;

struct CountedColour
{
    std::uint32_t rgb;
    std::size_t count;
};
using Colours = std::vector<CountedColour>;

std::uint32_t Channel(std::uint32_t rgb, int channel)
{
    return rgb >> (8 * channel) & 0xFFU;
}

/// Colours that are replaced by one of them.
struct Box
{
    Colours colours;
    std::size_t pixels = 0;
    int widest = 0;          ///< the channel in which they differ most
    std::uint32_t span = 0;  ///< by that much

    explicit Box(Colours contents) : colours(std::move(contents))
    {
        for (int channel = 0; channel < 3; ++channel) {
            const auto [least, greatest] =
                std::ranges::minmax(colours, {}, [=](const auto& c) { return Channel(c.rgb, channel); });
            const std::uint32_t width = Channel(greatest.rgb, channel) - Channel(least.rgb, channel);
            if (width > span) {
                span = width;
                widest = channel;
            }
        }
        for (const CountedColour& colour : colours)
            pixels += colour.count;
    }
    /// How much is gained by cutting it.
    std::size_t Weight() const { return pixels * span; }
    /// Takes the upper half of its pixels away.
    Box Cut()
    {
        std::ranges::sort(colours, {}, [this](const auto& c) { return Channel(c.rgb, widest); });
        std::size_t seen = 0;
        std::size_t split = 0;
        while (split + 1 < colours.size() && seen + colours[split].count <= pixels / 2)
            seen += colours[split++].count;
        split = std::clamp<std::size_t>(split, 1, colours.size() - 1);
        Box upper(Colours(colours.begin() + static_cast<std::ptrdiff_t>(split), colours.end()));
        colours.resize(split);
        *this = Box(std::move(colours));
        return upper;
    }
};

struct Palette
{
    std::vector<std::uint32_t> colours;
    std::unordered_map<std::uint32_t, std::uint8_t> indices;  ///< of each colour of the picture
};

Palette PaletteOf(const Pixels& pixels)
{
    std::unordered_map<std::uint32_t, std::size_t> counts;
    for (const std::uint32_t rgb : pixels.rgb)
        ++counts[rgb & 0xFFFFFFU];
    Colours all;
    for (const auto& [rgb, count] : counts)
        all.push_back({rgb, count});
    // The same picture gives the same bytes.
    std::ranges::sort(all, {}, &CountedColour::rgb);
    std::vector<Box> boxes;
    if (!all.empty())
        boxes.emplace_back(std::move(all));
    while (boxes.size() < kMostColours && !boxes.empty()) {
        const auto heaviest = std::ranges::max_element(boxes, {}, &Box::Weight);
        if (heaviest->Weight() == 0)
            break;
        Box upper = heaviest->Cut();
        boxes.push_back(std::move(upper));
    }
    Palette palette;
    for (const Box& box : boxes) {
        for (const CountedColour& colour : box.colours)
            palette.indices[colour.rgb] = static_cast<std::uint8_t>(palette.colours.size());
        palette.colours.push_back(std::ranges::max_element(box.colours, {}, &CountedColour::count)->rgb);
    }
    return palette;
}

void AppendWord(std::string& bytes, std::uint32_t value)
{
    bytes += static_cast<char>(value & 0xFFU);
    bytes += static_cast<char>(value >> 8U & 0xFFU);
}

/// Codes of growing width, in blocks of at most 255 bytes.
class CodeWriter
{
public:
    explicit CodeWriter(std::string& bytes) : m_bytes(bytes) {}

    void Write(std::uint32_t code, int width)
    {
        m_bits |= code << m_count;
        m_count += width;
        for (; m_count >= 8; m_count -= 8) {
            PutByte(static_cast<char>(m_bits & 0xFFU));
            m_bits >>= 8U;
        }
    }
    void Finish()
    {
        if (m_count > 0)
            PutByte(static_cast<char>(m_bits & 0xFFU));
        FlushBlock();
        m_bytes += '\0';
    }

private:
    void PutByte(char byte)
    {
        m_block += byte;
        if (m_block.size() == 255)
            FlushBlock();
    }
    void FlushBlock()
    {
        if (m_block.empty())
            return;
        m_bytes += static_cast<char>(m_block.size());
        m_bytes += m_block;
        m_block.clear();
    }

    std::string& m_bytes;
    std::string m_block;
    std::uint32_t m_bits = 0;
    int m_count = 0;
};

void Compress(const Pixels& pixels, const Palette& palette, std::string& bytes)
{
    constexpr int kBits = 8;
    constexpr std::uint32_t kClear = 1U << kBits;
    constexpr std::uint32_t kEnd = kClear + 1;
    constexpr std::uint32_t kMostCodes = 4096;
    bytes += static_cast<char>(kBits);
    CodeWriter writer(bytes);
    // The code of each sequence that is a known one and a further pixel.
    std::unordered_map<std::uint32_t, std::uint32_t> known;
    std::uint32_t next = kEnd + 1;
    int width = kBits + 1;
    writer.Write(kClear, width);
    std::uint32_t prefix = kEnd;  // none
    for (const std::uint32_t rgb : pixels.rgb) {
        const std::uint32_t pixel = palette.indices.at(rgb & 0xFFFFFFU);
        if (prefix == kEnd) {
            prefix = pixel;
            continue;
        }
        const std::uint32_t sequence = prefix << kBits | pixel;
        if (const auto found = known.find(sequence); found != known.end()) {
            prefix = found->second;
            continue;
        }
        writer.Write(prefix, width);
        if (next < kMostCodes) {
            known.emplace(sequence, next);
            if (next == 1U << width)
                ++width;
            ++next;
        } else {
            writer.Write(kClear, width);
            known.clear();
            next = kEnd + 1;
            width = kBits + 1;
        }
        prefix = pixel;
    }
    if (prefix != kEnd)
        writer.Write(prefix, width);
    writer.Write(kEnd, width);
    writer.Finish();
}

}  // namespace

std::string EncodeGif(const Pixels& pixels)
{
    const Palette palette = PaletteOf(pixels);
    std::string bytes = "GIF87a";
    const auto width = static_cast<std::uint32_t>(pixels.width);
    const auto height = static_cast<std::uint32_t>(pixels.height);
    AppendWord(bytes, width);
    AppendWord(bytes, height);
    bytes += static_cast<char>(0xF7);  // 256 colours of 8 bits a channel follow
    bytes += std::string(2, '\0');     // background, shape of pixels
    for (std::size_t i = 0; i < kMostColours; ++i) {
        const std::uint32_t rgb = i < palette.colours.size() ? palette.colours[i] : 0U;
        for (int channel = 2; channel >= 0; --channel)
            bytes += static_cast<char>(Channel(rgb, channel));
    }
    bytes += ',';
    AppendWord(bytes, 0);
    AppendWord(bytes, 0);
    AppendWord(bytes, width);
    AppendWord(bytes, height);
    bytes += '\0';
    Compress(pixels, palette, bytes);
    bytes += ';';
    return bytes;
}

}  // namespace chartdir
