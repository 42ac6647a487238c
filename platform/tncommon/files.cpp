// SPDX-License-Identifier: MIT
#include "tncommon/files.h"

#include <wx/filename.h>
#include <wx/log.h>

#include <cerrno>
#include <system_error>

namespace tncommon {

std::filesystem::path Files::CreateTempFile(const std::string& prefix)
{
    const wxLogNull quiet;
    errno = 0;
    const wxString path = wxFileName::CreateTempFileName(wxString::FromUTF8(prefix));
    if (path.empty())
        throw std::system_error(errno != 0 ? errno : EIO, std::generic_category(), "Files::CreateTempFile");
    return path.utf8_string();
}

}  // namespace tncommon
