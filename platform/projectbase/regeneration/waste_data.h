// SPDX-License-Identifier: MIT
#pragma once

/// What a regeneration step sends to waste, as the design computed it.

#include "projectbase/details/detail_list.h"

#include <memory>
#include <string>

/// One regenerant of a step with its amounts, the details "stepcomp/…". A regenerant that has not been
/// calculated has none.
struct WasteData
{
    std::string name;  ///< English
    std::shared_ptr<DetailList> details;
};
