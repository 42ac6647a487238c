// SPDX-License-Identifier: MIT
#pragma once

/// By which the contents of a file are known again: to see whether somebody else wrote it meanwhile. Times
/// take no part, because shares round them and copies keep them.

#include "projectbase/projectbase_export.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

struct PROJECTBASE_EXPORT FileStamp
{
    std::uintmax_t size = 0;
    std::string checksum;  ///< of the contents; empty for a file that is too large to be a project

    bool operator==(const FileStamp&) const = default;

    static FileStamp OfBytes(std::string_view bytes);
    /// Nothing when there is no file, or none that can be read.
    static std::optional<FileStamp> OfFile(const std::filesystem::path& path);

    /// "1234:89abcdef01234567", and back; nothing for another text.
    std::string ToText() const;
    static std::optional<FileStamp> FromText(const std::string& text);
};
