// SPDX-License-Identifier: MIT
#pragma once

/// All that is said of a water, evaluated once: what window, report and command line show alike.

#include "projectbase/advice/balance_judgement.h"
#include "projectbase/advice/saturation.h"
#include "projectbase/advice/water_advice.h"
#include "projectbase/advice/water_numbers.h"
#include "projectbase/projectbase_export.h"

#include <vector>

namespace advice {

struct Evaluation
{
    BalanceJudgement balance;
    WaterNumbers numbers;
    DailyLoads loads;
    double residualCo2 = kNotKnown;  ///< mg/l behind the degasser of the plant
    Saturation saturation;
    std::vector<Advice> advice;
};

/// Of a water of the project whose derived values are up to date, by the rules and limits of the user.
PROJECTBASE_EXPORT Evaluation Evaluate(const Project& project, const LiquidData& water);

}  // namespace advice
