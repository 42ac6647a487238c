// SPDX-License-Identifier: MIT
#include "projectbase/advice/evaluation.h"

#include "projectbase/water/liquid_data.h"

#include <cmath>

namespace advice {

Evaluation Evaluate(const Project& project, const LiquidData& water)
{
    const DetailList& details = *water.GetDetails();
    Evaluation evaluation;
    evaluation.balance = JudgeBalance(details, ChosenBalanceRule());
    evaluation.numbers = NumbersOf(details);
    evaluation.loads = LoadsOfDay(evaluation.numbers, VolumeOfDay(project));
    evaluation.designLoad = DesignLoad(project, evaluation.loads);
    evaluation.residualCo2 = ResidualCo2Of(project);
    evaluation.anionLoadBehindDegasser = AnionLoadBehindDegasser(
        evaluation.numbers, std::isnan(evaluation.residualCo2) ? kUsualResidualCo2 : evaluation.residualCo2);
    evaluation.saturation = SaturationOf(details);
    evaluation.advice = AdviceOn(project, water, evaluation.numbers, evaluation.saturation);
    return evaluation;
}

}  // namespace advice
