// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

class wxZipInputStream;

namespace tncommon {

inline constexpr const char* kZipSignature = "PK\x03\x04";

/// The contents of the open entry. Throws ZipError: TooLarge beyond `limit` bytes, ChecksumWrong for a
/// spoiled one. Internal to this library.
std::string ReadOpenEntry(wxZipInputStream& zip, std::size_t limit);

}  // namespace tncommon
