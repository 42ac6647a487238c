// SPDX-License-Identifier: MIT
// Keeps every test of this program away from the data of whoever runs it.
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace {

class UserFolder : public testing::Environment
{
public:
    void SetUp() override
    {
        m_folder.emplace();
        setenv("TARNVIK_USER_DATA", (*m_folder / "user").c_str(), 1);
    }
    void TearDown() override { m_folder.reset(); }

private:
    std::optional<support::TempFolder> m_folder;
};

[[maybe_unused]] const testing::Environment* const kUserFolder =
    testing::AddGlobalTestEnvironment(new UserFolder);

}  // namespace
