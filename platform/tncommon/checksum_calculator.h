// SPDX-License-Identifier: MIT
#pragma once

/// A checksum that tells damaged bytes from whole ones: CRC-64 with the reflected polynomial of ECMA-182 (the
/// one of xz). It is no protection against somebody who forges a file.

#include "tncommon/tncommon_export.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tncommon {

class TNCOMMON_EXPORT ChecksumCalculator
{
public:
    void Add(std::string_view bytes);
    std::uint64_t GetValue() const { return ~m_state; }
    /// Sixteen hexadecimal digits in lower case.
    std::string GetText() const;

private:
    std::uint64_t m_state = ~std::uint64_t{0};
};

}  // namespace tncommon
