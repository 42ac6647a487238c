// SPDX-License-Identifier: MIT
#include "tncommon/data_dir.h"

#include <wx/filename.h>
#include <wx/stdpaths.h>

#include <cstdlib>

namespace tncommon {

std::filesystem::path DataDir()
{
    if (const char* overridden = std::getenv("TARNVIK_DATA"); overridden != nullptr && *overridden != '\0')
        return overridden;
    const std::filesystem::path executable = wxStandardPaths::Get().GetExecutablePath().utf8_string();
    return executable.parent_path().parent_path() / "share" / "tarnvik";
}

}  // namespace tncommon
