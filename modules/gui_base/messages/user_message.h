// SPDX-License-Identifier: MIT
#pragma once

/// Errors as the user reads them.

#include "core/delimited_text.h"
#include "gui_base/gui_base_export.h"

#include <wx/string.h>

#include <cstddef>
#include <exception>
#include <filesystem>
#include <string>
#include <system_error>

/// What is wrong with what, and what to do, in the user's language; beside it the technical text, which
/// support asks for. The details are empty where they would say the same.
struct UserMessage
{
    wxString text;
    wxString details;
};

/// Knows the errors of project files and of databases; any other error has its own text.
GUI_BASE_EXPORT UserMessage MessageOf(const std::exception& error);

/// Why a file could not be written, as the end of a sentence.
GUI_BASE_EXPORT wxString CauseText(const std::error_code& cause);

/// The same for a file that could not be read, of which at most `limit` bytes are.
GUI_BASE_EXPORT wxString ReadingCauseText(const std::error_code& cause, std::size_t limit);

/// The same for a table: "it has more than 1000 columns (row 3, column 1001)".
GUI_BASE_EXPORT wxString ReadingCauseText(const delimited::TooLarge& cause);

/// A path or a text of unknown origin as it can be shown: what is no character, or is a control character, is
/// escaped.
GUI_BASE_EXPORT wxString ShownPath(const std::filesystem::path& path);
GUI_BASE_EXPORT wxString ShownText(const std::string& bytes);
