// SPDX-License-Identifier: MIT
#include "gui_base/report/report_file.h"

#include "tncommon/atomic_file.h"

void WriteReportFile(const report::Document& document, const std::filesystem::path& path,
                     const report::Progress& progress, tncommon::FileSystem& fileSystem)
{
    tncommon::ReplaceFile(path, report::WritePdf(document, progress), fileSystem);
}
