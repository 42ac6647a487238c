// SPDX-License-Identifier: MIT
#include "tncommon/checksum_calculator.h"

#include <fmt/format.h>

#include <array>

namespace tncommon {

namespace {

constexpr std::uint64_t kPolynomial = 0xC96C5795D7870F42;

/// So many bytes are taken at once, with a table for each place ("slicing by 8", Kounavis and Berry 2005).
constexpr std::size_t kSlices = 8;
using Table = std::array<std::uint64_t, 256>;

constexpr std::array<Table, kSlices> MakeTables()
{
    std::array<Table, kSlices> tables{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        std::uint64_t value = byte;
        for (int bit = 0; bit < 8; ++bit)
            value = (value >> 1) ^ ((value & 1) != 0 ? kPolynomial : 0);
        tables[0][byte] = value;
    }
    for (std::size_t slice = 1; slice < kSlices; ++slice) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint64_t before = tables[slice - 1][byte];
            tables[slice][byte] = tables[0][before & 0xff] ^ (before >> 8);
        }
    }
    return tables;
}
constexpr std::array<Table, kSlices> kTables = MakeTables();

}  // namespace

void ChecksumCalculator::Add(std::string_view bytes)
{
    while (bytes.size() >= kSlices) {
        std::uint64_t next = m_state;
        for (std::size_t i = 0; i < kSlices; ++i)
            next ^= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
        m_state = 0;
        for (std::size_t i = 0; i < kSlices; ++i)
            m_state ^= kTables[kSlices - 1 - i][(next >> (8 * i)) & 0xff];
        bytes.remove_prefix(kSlices);
    }
    for (const char byte : bytes)
        m_state = kTables[0][(m_state ^ static_cast<unsigned char>(byte)) & 0xff] ^ (m_state >> 8);
}

std::string ChecksumCalculator::GetText() const
{
    return fmt::format("{:016x}", GetValue());
}

}  // namespace tncommon
