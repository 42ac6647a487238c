// SPDX-License-Identifier: MIT
#include "tncommon/checksum_calculator.h"

#include <fmt/format.h>

#include <array>

namespace tncommon {

namespace {

constexpr std::uint64_t kPolynomial = 0xC96C5795D7870F42;

constexpr std::array<std::uint64_t, 256> MakeTable()
{
    std::array<std::uint64_t, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        std::uint64_t value = byte;
        for (int bit = 0; bit < 8; ++bit)
            value = (value >> 1) ^ ((value & 1) != 0 ? kPolynomial : 0);
        table[byte] = value;
    }
    return table;
}
constexpr std::array<std::uint64_t, 256> kTable = MakeTable();

}  // namespace

void ChecksumCalculator::Add(std::string_view bytes)
{
    for (const char byte : bytes)
        m_state = kTable[(m_state ^ static_cast<unsigned char>(byte)) & 0xff] ^ (m_state >> 8);
}

std::string ChecksumCalculator::GetText() const
{
    return fmt::format("{:016x}", GetValue());
}

}  // namespace tncommon
