// SPDX-License-Identifier: MIT
#pragma once

/// What a design comes to that is unusual or cannot work: velocities, depths, pressure drops, regenerant
/// levels and temperatures beyond what beds and resins stand. The values stay; the user is told.

#include "projectbase/project/range_faults.h"

namespace iex {
class IEXProject;
}

namespace design {

/// In flow order, each with the address of the value that it speaks of. Internal to RangeFaults, which
/// everyone asks who tells of them.
std::vector<RangeFault> DesignFaults(const iex::IEXProject& project);

}  // namespace design
