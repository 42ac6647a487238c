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
    double designLoad = kNotKnown;   ///< of the loads the one that the plant is designed for, eq a day
    double residualCo2 = kNotKnown;  ///< mg/l behind the degasser of the plant
    /// Exchangeable anions behind that degasser, where there is none behind a usual one, meq/l.
    double anionLoadBehindDegasser = kNotKnown;
    Saturation saturation;
    std::vector<Advice> advice;
};

/// Of a water of the project whose derived values are up to date, by the rules and limits of the user.
PROJECTBASE_EXPORT Evaluation Evaluate(const Project& project, const LiquidData& water);

}  // namespace advice
