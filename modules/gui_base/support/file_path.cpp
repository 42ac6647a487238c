// SPDX-License-Identifier: MIT
#include "gui_base/support/file_path.h"

std::filesystem::path PathOf(const wxString& path)
{
    return std::filesystem::path(static_cast<const char*>(path.fn_str()));
}

wxString DialogPath(const std::filesystem::path& path)
{
    return wxString(path.c_str(), *wxConvFileName);
}
