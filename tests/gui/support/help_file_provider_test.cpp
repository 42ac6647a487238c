// SPDX-License-Identifier: MIT
#include "gui_base/support/help_file_provider.h"

#include "tests/support/gui_test.h"
#include "tests/support/temp_folder.h"
#include "tncommon/data_dir.h"

#include <fstream>

namespace {

using namespace gui_test;

using HelpFileProviderTest = GuiTest;

TEST_F(HelpFileProviderTest, TheHelpBookIsFound)
{
    const std::string folder = (tncommon::DataDir() / "help").string();
    EXPECT_NO_THROW(TVHelpFileProvider{folder});
    const auto failure = [](const std::string& path, const std::string& file) -> std::string {
        try {
            const TVHelpFileProvider provider(path, file);
        } catch (const std::exception& error) {
            return error.what();
        }
        return {};
    };
    EXPECT_EQ(failure("", "tarnvik6.htb"), "TVHelpFileProvider: localePath must not be empty");
    EXPECT_EQ(failure(folder, "nosuch.htb"), "TVHelpFileProvider: Failed to load default help file");
    const support::TempFolder empty;
    std::ofstream(empty / "tarnvik6.htb", std::ios::binary) << "no book";
    EXPECT_EQ(failure((empty / "").string(), "tarnvik6.htb"),
              "TVHelpFileProvider: Failed to load default help file");
    const TVHelpFileProvider provider(folder);
    EXPECT_FALSE(provider.ChangeHelpFile("nosuch.htb"));
}

}  // namespace
