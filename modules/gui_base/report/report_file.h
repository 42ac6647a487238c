// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base_report/gui_base_report_export.h"
#include "report/pdf_writer.h"
#include "tncommon/file_system.h"

#include <filesystem>

/// Writes the document as a PDF file, which replaces an older one at once and completely. Throws
/// report::Cancelled when `progress` stops it and std::system_error when the file cannot be written; what was
/// there before is then unchanged.
GUI_BASE_REPORT_EXPORT void WriteReportFile(
    const report::Document& document, const std::filesystem::path& path,
    const report::Progress& progress = {}, tncommon::FileSystem& fileSystem = tncommon::FileSystem::Native());
