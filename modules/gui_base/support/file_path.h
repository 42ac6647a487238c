// SPDX-License-Identifier: MIT
#pragma once

/// Names of files between the toolkit's texts and the file system.

#include "gui_base/gui_base_export.h"

#include <wx/string.h>

#include <filesystem>

/// What a file dialog gave as the file system has it, also where a name is no text.
GUI_BASE_EXPORT std::filesystem::path PathOf(const wxString& path);
/// The same back, for what a file dialog begins with; to be shown there is `ShownPath`.
GUI_BASE_EXPORT wxString DialogPath(const std::filesystem::path& path);
