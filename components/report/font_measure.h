// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_export.h"

#include <string>

namespace report {

/// How far the top of a line of that font family ("sans-serif") lies above its baseline, in sizes of the
/// font.
REPORT_EXPORT double AscentOf(const std::string& family);

}  // namespace report
