// SPDX-License-Identifier: MIT
#pragma once

/// Where a graphic comes from. A policy has a `Source`, which graphics share, and reads its document from it;
/// everything that goes wrong is an SvgLoadError.

#include "svg/svg_document.h"

#include <filesystem>
#include <memory>
#include <string>

namespace tncommon {
class ZipArchive;
}

/// The document is a file.
struct SVG_EXPORT FileLoadPolicy
{
    struct Source
    {
        std::filesystem::path path;
    };

    static wxXmlDocument Load(const Source& source);
};

/// The document is an entry of a zip archive.
struct SVG_EXPORT ArchiveLoadPolicy
{
    struct Source
    {
        /// Shared by the graphics of an archive, which is then read once.
        std::shared_ptr<const tncommon::ZipArchive> archive;
        std::string entry;
    };

    static std::shared_ptr<const tncommon::ZipArchive> Open(const std::filesystem::path& archive);
    static wxXmlDocument Load(const Source& source);
};
