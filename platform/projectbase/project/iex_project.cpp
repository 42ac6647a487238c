// SPDX-License-Identifier: MIT
#include "projectbase/project/iex_project.h"

namespace iex {

IEXProject::IEXProject() : Project("iex")
{
    AddLiquid("Feed water");
}

}  // namespace iex
