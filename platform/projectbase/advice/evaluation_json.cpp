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
    return {{"rule", CodeOf(balance.rule)},
            {"verdict", AsJson(balance.verdict)},
            {"error", balance.error},
            {"difference", balance.difference},
            {"limit", balance.limit},
            {"limitOf", balance.isLimitOfDifference ? "difference" : "error"},
            {"beyondRule", balance.isBeyondRule},
            {"closedOverLimit", balance.isClosedOverLimit},
            {"leastError", balance.leastError},
            {"greatestError", balance.greatestError}};
}

json AsJson(const DailyLoads& loads, double design)
{
    return {{"cations", loads.cations}, {"hardness", loads.hardness}, {"carbonate", loads.carbonate},
            {"acidity", loads.acidity}, {"anions", loads.anions},     {"design", design}};
}

json AsJson(const Saturation& saturation)
{
    return {{"calcite", saturation.Index(Mineral::Calcite)},
            {"aragonite", saturation.Index(Mineral::Aragonite)},
            {"gypsum", saturation.Index(Mineral::Gypsum)},
            {"anhydrite", saturation.Index(Mineral::Anhydrite)},
            {"barite", saturation.Index(Mineral::Barite)},
            {"celestite", saturation.Index(Mineral::Celestite)},
            {"fluorite", saturation.Index(Mineral::Fluorite)},
            {"silica", saturation.silica}};
}

}  // namespace

std::string EvaluationAsJson(const Evaluation& evaluation)
{
    const Saturation& saturation = evaluation.saturation;
    const WaterNumbers& numbers = evaluation.numbers;
    const json whole{{"balance", AsJson(evaluation.balance)},
                     {"hardness", numbers.hardness},
                     {"carbonateHardness", numbers.carbonate},
                     {"nonCarbonateHardness", numbers.nonCarbonate},
                     {"sodiumAlkalinity", numbers.sodiumAlkalinity},
                     {"m", numbers.m},
                     {"p", numbers.p},
                     {"acidity", numbers.acidity},
                     {"acidityByCations", numbers.acidityByCations},
                     {"carbon", numbers.carbon},
                     {"freeCo2", numbers.co2},
                     {"anionLoad", numbers.anionLoad},
                     {"anionLoadBehindDegasser", evaluation.anionLoadBehindDegasser},
                     {"loadsOfDay", AsJson(evaluation.loads, evaluation.designLoad)},
                     {"silica", numbers.silica},
                     {"ionicStrength", saturation.ionicStrength},
                     {"beyondActivityModel", saturation.isBeyondDavies},
                     {"langelier", saturation.langelier},
                     {"langelierWithoutPairs", saturation.langelierByHand},
                     {"langelierSimplified", saturation.langelierSimplified},
                     {"saturationPh", saturation.pHs},
                     {"langelierReading", AsJson(LangelierStateOf(saturation.langelier))},
                     {"ryznar", saturation.ryznar},
                     {"silicaSaturation", saturation.silicaPercent},
                     {"saturationIndices", AsJson(saturation)}};
    return whole.dump();
}

}  // namespace advice
