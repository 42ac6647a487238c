// SPDX-License-Identifier: MIT
#pragma once

/// What programs that use the input framework rely on: constructors with all their arguments, operations and
/// hooks as they are called and overridden outside. A changed signature does not compile in the files that
/// include this.

#include "projectbase/project/iex_project.h"
#include "tests/support/gui_test.h"

class InputFramework : public gui_test::GuiTest
{
protected:
    void SetUp() override
    {
        gui_test::GuiTest::SetUp();
        m_panel = MakePanel();
    }
    iex::IEXProject m_project;
    wxPanel* m_panel = nullptr;
    DetailData m_number{"number", DetailType::Double, "bar"};
    DetailData m_text{"text", DetailType::String};
    DetailData m_switch{"switch", DetailType::Bool};
};
