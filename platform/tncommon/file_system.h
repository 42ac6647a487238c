// SPDX-License-Identifier: MIT
#pragma once

/// The system calls by which documents are read and replaced. A test hands in its own to let any of them
/// fail.
///
/// Failures throw std::system_error with the error number of the system. Stateless, hence usable from any
/// thread.

#include "tncommon/tncommon_export.h"

#include <cstddef>
#include <filesystem>
#include <optional>

namespace tncommon {

struct FileAttributes
{
    bool isRegular = false;
    bool isFolder = false;
    unsigned mode = 0;  ///< permission bits
    unsigned owner = 0;
    unsigned group = 0;
};

class TNCOMMON_EXPORT FileSystem
{
public:
    virtual ~FileSystem() = default;

    /// The file behind all links; nothing when there is none.
    virtual std::optional<FileAttributes> GetAttributes(const std::filesystem::path& path);
    virtual bool MayWrite(const std::filesystem::path& path);
    /// Descriptor for reading; does not wait for the other end of a pipe.
    virtual int OpenForReading(const std::filesystem::path& path);
    /// Descriptor of a file that must not exist yet. `mode` is narrowed by the process's mask.
    virtual int CreateExclusively(const std::filesystem::path& path, unsigned mode);
    /// Number of bytes read, 0 at the end.
    virtual std::size_t Read(int descriptor, char* buffer, std::size_t size);
    /// Number of bytes written, at least 1.
    virtual std::size_t Write(int descriptor, const char* bytes, std::size_t size);
    /// Gives the file another one's permissions, and its owner where that is allowed.
    virtual void SetAttributes(int descriptor, const FileAttributes& attributes);
    virtual void Sync(int descriptor);
    /// The descriptor is gone afterwards, also when this throws.
    virtual void Close(int descriptor);
    virtual void Rename(const std::filesystem::path& from, const std::filesystem::path& to);
    virtual void Remove(const std::filesystem::path& path);
    /// Makes the names in a folder survive a power cut.
    virtual void SyncFolder(const std::filesystem::path& folder);

    /// The real one.
    static FileSystem& Native();
};

}  // namespace tncommon
