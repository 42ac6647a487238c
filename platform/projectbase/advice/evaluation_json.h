// SPDX-License-Identifier: MIT
#pragma once

/// What is said of a water and no detail holds, as JSON. Internal to ProjectToJson.

#include "projectbase/advice/evaluation.h"

#include <string>

namespace advice {

/// Verdict on the balance, amounts in meq/l, loads of a day in eq, indices of saturation and silica in
/// percent of its solubility, in one object; null for what is not known. The advice itself is apart.
std::string EvaluationAsJson(const Evaluation& evaluation);

}  // namespace advice
