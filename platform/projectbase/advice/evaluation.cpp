// SPDX-License-Identifier: MIT
#include "projectbase/advice/evaluation.h"

#include "projectbase/water/liquid_data.h"

namespace advice {

Evaluation Evaluate(const Project& project, const LiquidData& water)
{
    const DetailList& details = *water.GetDetails();
    Evaluation evaluation{.balance = JudgeBalance(details, ChosenBalanceRule()),
                          .numbers = NumbersOf(details),
                          .loads = {},
                          .residualCo2 = ResidualCo2Of(project),
                          .saturation = SaturationOf(details),
                          .advice = {}};
    evaluation.loads = LoadsOfDay(evaluation.numbers, VolumeOfDay(project));
    evaluation.advice = AdviceOn(project, water, evaluation.numbers, evaluation.saturation);
    return evaluation;
}

}  // namespace advice
