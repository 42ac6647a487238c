// SPDX-License-Identifier: MIT
#include "tncommon/files.h"

#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <system_error>

namespace {

namespace fs = std::filesystem;

TEST(Files, TemporaryOnesAreNewEmptyAndTheUsersOwn)
{
    const support::TempFolder folder;
    const std::string prefix = (folder / "tarnvik-").string();
    const fs::path one = tncommon::Files::CreateTempFile(prefix);
    const fs::path other = tncommon::Files::CreateTempFile(prefix);
    EXPECT_NE(one, other);
    for (const fs::path& path : {one, other}) {
        EXPECT_EQ(path.parent_path(), folder.Path());
        EXPECT_TRUE(path.filename().string().starts_with("tarnvik-"));
        EXPECT_EQ(fs::file_size(path), 0u);
        EXPECT_EQ(fs::status(path).permissions() & (fs::perms::group_all | fs::perms::others_all),
                  fs::perms::none);
    }
    EXPECT_THROW(tncommon::Files::CreateTempFile((folder / "missing" / "x").string()), std::system_error);
}

}  // namespace
