// SPDX-License-Identifier: MIT
#pragma once

#include "projectbase/projectbase_export.h"

#include <optional>
#include <string>
#include <string_view>

namespace water {

/// The unit as a water keeps it for what is typed under `key` ("liquid/na.orig", "liquid/temp.unit"): the
/// laboratory's units for ions, the named ones of alkalinity, hardness and conductivity, equivalents for H+
/// and OH-, units of temperature. Nothing for a unit in which it cannot be given.
PROJECTBASE_EXPORT std::optional<std::string> TypedUnit(std::string_view key, const std::string& unit);

}  // namespace water
