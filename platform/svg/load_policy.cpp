// SPDX-License-Identifier: MIT
#include "svg/load_policy.h"

#include "tncommon/atomic_file.h"
#include "tncommon/zip_archive.h"

#include <system_error>

namespace {

using Problem = SvgLoadError::Problem;

SvgLoadError Unreadable(const std::filesystem::path& path, const std::system_error& error)
{
    const bool isTooLarge = error.code() == std::errc::file_too_large;
    return {isTooLarge ? Problem::TooLarge : Problem::Missing, path.string(), error.code().message()};
}

}  // namespace

wxXmlDocument FileLoadPolicy::Load(const Source& source)
{
    std::string bytes;
    try {
        bytes = tncommon::ReadWholeFile(source.path, kMostSvgBytes);
    } catch (const std::system_error& error) {
        throw Unreadable(source.path, error);
    }
    return ParseSvgDocument(bytes, source.path.string());
}

std::shared_ptr<const tncommon::ZipArchive> ArchiveLoadPolicy::Open(const std::filesystem::path& archive)
{
    try {
        return std::make_shared<const tncommon::ZipArchive>(archive);
    } catch (const std::system_error& error) {
        throw Unreadable(archive, error);
    }
}

wxXmlDocument ArchiveLoadPolicy::Load(const Source& source)
{
    std::optional<std::string> bytes;
    try {
        if (source.archive != nullptr)
            bytes = source.archive->Read(source.entry, kMostSvgBytes);
    } catch (const tncommon::ZipError& error) {
        const bool isTooLarge = error.GetProblem() == tncommon::ZipError::Problem::TooLarge;
        throw SvgLoadError(isTooLarge ? Problem::TooLarge : Problem::Damaged, source.entry, error.what());
    }
    if (!bytes)
        throw SvgLoadError(Problem::Missing, source.entry, "the archive has no such graphic");
    return ParseSvgDocument(*bytes, source.entry);
}
