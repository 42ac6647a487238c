// SPDX-License-Identifier: MIT
#include "projectbase/project/iex_project.h"

#include <wx/translation.h>

namespace iex {

IEXProject::IEXProject() : Project("iex")
{
    AddLiquid(wxTRANSLATE("Feed water"));
    m_stepDetails.LoadGroup("step", "BASE");
}

}  // namespace iex
