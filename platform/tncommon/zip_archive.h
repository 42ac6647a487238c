// SPDX-License-Identifier: MIT
#pragma once

/// Entries of any zip archive by their names, read into memory and bounded, whatever the archive says about
/// their sizes. Nothing is ever unpacked into files. Its directory is read once, when an entry is first asked
/// for; several threads may ask.

#include "tncommon/zip_container.h"

#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

class wxZipEntry;

namespace tncommon {

class TNCOMMON_EXPORT ZipArchive
{
public:
    /// Reads the archive. Throws std::system_error as ReadWholeFile does, with EFBIG beyond 64 MiB.
    explicit ZipArchive(const std::filesystem::path& path);
    ~ZipArchive();
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    /// The contents of an entry, the first of that name; nothing when there is none. Throws ZipError:
    /// TooLarge beyond `limit` bytes or 65,535 entries, ChecksumWrong for a spoiled entry, StructureWrong for
    /// an archive that is none.
    std::optional<std::string> Read(const std::string& entry, std::size_t limit) const;

private:
    void ReadDirectory() const;

    std::string m_bytes;
    mutable std::once_flag m_isDirectoryRead;
    mutable std::map<std::string, std::unique_ptr<wxZipEntry>> m_entries;
};

}  // namespace tncommon
