// SPDX-License-Identifier: MIT
#pragma once

/// What exchangers are called.

#include "projectbase/projectbase_export.h"

#include <string_view>

namespace design {

/// The name of a kind of exchanger ("SAC_H") as source text; "Exchanger" for one that there is not.
PROJECTBASE_EXPORT const char* ExchangerLabel(std::string_view kind);

}  // namespace design
