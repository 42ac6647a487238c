// SPDX-License-Identifier: MIT
#pragma once

/// A project with one water and the history that follows it.

#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"
#include "tests/support/project_history.h"

#include <gtest/gtest.h>

#include <string>

namespace support {

class ProjectEditTest : public testing::Test
{
protected:
    ProjectEditTest() { m_project.CalculateDesign(); }

    DetailData& Water(const std::string& key, std::size_t index = 0)
    {
        return m_project.GetLiquid(index).GetDetails()->At("liquid/" + key);
    }
    DetailData& Plant(const std::string& key) { return m_project.GetDetails().At(key); }

    iex::IEXProject m_project;
    History m_history{m_project};
};

}  // namespace support
