// SPDX-License-Identifier: MIT
#include "tncommon/data_dir.h"

#include <wx/stdpaths.h>

#include <cstdlib>

namespace tncommon {

namespace {

std::filesystem::path ExecutablePath()
{
    std::error_code error;
    const auto path = std::filesystem::read_symlink("/proc/self/exe", error);
    // The toolkit's answer needs an application object, which command-line tools and tests do not have.
    return error ? std::filesystem::path(wxStandardPaths::Get().GetExecutablePath().utf8_string()) : path;
}

}  // namespace

std::filesystem::path DataDir()
{
    if (const char* overridden = std::getenv("TARNVIK_DATA"); overridden != nullptr && *overridden != '\0')
        return overridden;
    static const std::filesystem::path installed =
        ExecutablePath().parent_path().parent_path() / "share" / "tarnvik";
    return installed;
}

}  // namespace tncommon
