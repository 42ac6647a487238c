// SPDX-License-Identifier: MIT
#pragma once

#include "app/command_line/sweep.h"
#include "app/command_line/variant_row.h"

#include <iosfwd>

namespace app {

/// Calculates the variants of a part on all cores and writes their rows in order, as they are ready; the head
/// stands before the first part alone. Each variant begins with the project as it is, so that its row is that
/// of a run by itself; what waits to be written is bounded. Returns how many variants could not be set, the
/// first of which is told to `err`.
std::uint64_t WriteVariants(const Project& project, const Sweep& sweep, const Shard& shard,
                            const VariantRow& row, std::ostream& out, std::ostream& err);

}  // namespace app
