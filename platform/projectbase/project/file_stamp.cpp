// SPDX-License-Identifier: MIT
#include "projectbase/project/file_stamp.h"

#include "projectbase/project/project_file.h"
#include "tncommon/atomic_file.h"
#include "tncommon/checksum_calculator.h"

#include <fmt/format.h>

#include <cerrno>
#include <charconv>
#include <system_error>

FileStamp FileStamp::OfBytes(std::string_view bytes)
{
    tncommon::ChecksumCalculator checksum;
    checksum.Add(bytes);
    return {bytes.size(), checksum.GetText()};
}

std::optional<FileStamp> FileStamp::OfFile(const std::filesystem::path& path)
{
    try {
        return OfBytes(tncommon::ReadWholeFile(path, ProjectFile::kMaxSize));
    } catch (const std::system_error& error) {
        std::error_code unknown;
        if (error.code().value() == EFBIG)
            return FileStamp{std::filesystem::file_size(path, unknown), {}};
        return std::nullopt;
    }
}

std::string FileStamp::ToText() const
{
    return fmt::format("{}:{}", size, checksum);
}

std::optional<FileStamp> FileStamp::FromText(const std::string& text)
{
    FileStamp stamp;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, stamp.size);
    if (read.ec != std::errc() || read.ptr == end || *read.ptr != ':')
        return std::nullopt;
    stamp.checksum.assign(read.ptr + 1, end);
    return stamp;
}
