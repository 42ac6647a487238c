// SPDX-License-Identifier: MIT
#pragma once

/// Entries of any zip archive by their names, read into memory and bounded, whatever the archive says about
/// their sizes. Nothing is ever unpacked into files.

#include "tncommon/zip_container.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tncommon {

class TNCOMMON_EXPORT ZipArchive
{
public:
    /// Reads the archive. Throws std::system_error as ReadWholeFile does, with EFBIG beyond 64 MiB.
    explicit ZipArchive(const std::filesystem::path& path);

    /// The contents of an entry, nothing when there is no such entry. Throws ZipError: TooLarge beyond
    /// `limit` bytes, ChecksumWrong for a spoiled entry, StructureWrong for an archive that is none.
    std::optional<std::string> Read(const std::string& entry, std::size_t limit) const;

private:
    std::string m_bytes;
};

}  // namespace tncommon
