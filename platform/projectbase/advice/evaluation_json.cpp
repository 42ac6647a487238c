// SPDX-License-Identifier: MIT
#include "projectbase/advice/evaluation_json.h"

#include <nlohmann/json.hpp>

namespace advice {

namespace {

// What is no number is written as null; the members stand in the order in which they are given.
using json = nlohmann::ordered_json;

json AsJson(BalanceVerdict verdict)
{
    switch (verdict) {
        case BalanceVerdict::Closed:
            return "closed";
        case BalanceVerdict::InOrder:
            return "in order";
        case BalanceVerdict::Doubtful:
            return "doubtful";
        case BalanceVerdict::OverLimit:
            return "over limit";
        case BalanceVerdict::NotJudged:
            break;
    }
    return nullptr;
}

json AsJson(LangelierState state)
{
    switch (state) {
        case LangelierState::Dissolves:
            return "dissolves";
        case LangelierState::Balanced:
            return "balanced";
        case LangelierState::MayDeposit:
            return "may deposit";
        case LangelierState::Unknown:
            break;
    }
    return nullptr;
}

json AsJson(const BalanceJudgement& balance)
{
    return {
        {"rule", CodeOf(balance.rule)}, {"verdict", AsJson(balance.verdict)},
        {"error", balance.error},       {"difference", balance.difference},
        {"limit", balance.limit},       {"limitOf", balance.isLimitOfDifference ? "difference" : "error"}};
}

json AsJson(const DailyLoads& loads, double design)
{
    return {{"cations", loads.cations}, {"hardness", loads.hardness}, {"carbonate", loads.carbonate},
            {"acidity", loads.acidity}, {"anions", loads.anions},     {"design", design}};
}

}  // namespace

std::string EvaluationAsJson(const Evaluation& evaluation)
{
    const Saturation& saturation = evaluation.saturation;
    const json whole{{"balance", AsJson(evaluation.balance)},
                     {"acidity", evaluation.numbers.acidity},
                     {"anionLoad", evaluation.numbers.anionLoad},
                     {"anionLoadBehindDegasser", evaluation.anionLoadBehindDegasser},
                     {"loadsOfDay", AsJson(evaluation.loads, evaluation.designLoad)},
                     {"langelier", saturation.langelier},
                     {"langelierReading", AsJson(LangelierStateOf(saturation.langelier))},
                     {"ryznar", saturation.ryznar},
                     {"silicaSaturation", saturation.silicaPercent}};
    return whole.dump();
}

}  // namespace advice
