// SPDX-License-Identifier: MIT
#include "gui_base/report/report_file.h"

#include "tests/support/failing_file_system.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(WriteReportFile, LeavesTheOldFileWhateverFails)
{
    const support::TempFolder folder;
    const auto path = folder / "report.pdf";
    report::Document document;
    document.title = "New";
    const auto filesIn = [&folder] {
        return std::distance(std::filesystem::directory_iterator(folder.Path()), {});
    };
    for (int call = 1;; ++call) {
        support::WriteBytes(path, "old report");
        support::FailingFileSystem failing(call, ENOSPC);
        try {
            WriteReportFile(document, path, {}, failing);
        } catch (const std::system_error& error) {
            EXPECT_EQ(error.code().value(), ENOSPC);
            // Only the sync of the folder comes after the new file has taken the old one's place.
            if (support::ReadBytes(path) != "old report") {
                EXPECT_THAT(support::ReadBytes(path), testing::StartsWith("%PDF"));
            }
            EXPECT_EQ(filesIn(), 1) << call;
            continue;
        }
        EXPECT_GT(call, 4);
        break;
    }
    support::WriteBytes(path, "old report");
    EXPECT_THROW(WriteReportFile(document, path, [](double) { return false; }), report::Cancelled);
    EXPECT_EQ(support::ReadBytes(path), "old report");
    WriteReportFile(document, path);
    EXPECT_THAT(support::ReadBytes(path), testing::StartsWith("%PDF"));
    EXPECT_THROW(WriteReportFile(document, folder / "none" / "report.pdf"), std::system_error);
    EXPECT_EQ(filesIn(), 1);
}

}  // namespace
