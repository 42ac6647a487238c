// SPDX-License-Identifier: MIT
#pragma once

/// What is to be minded with a water: what may precipitate from it, what its resins and their regenerants do
/// not stand. A rule whose inputs are missing says nothing.

#include "projectbase/project/owner_node.h"
#include "projectbase/projectbase_export.h"

#include <optional>
#include <string>
#include <vector>

class LiquidData;
class Project;

namespace advice {

struct Saturation;
struct WaterNumbers;

enum class Severity
{
    Note,
    Warn
};

/// What spent sulfuric acid holds at most, as if it took the calcium off in the share that the feed has.
struct AcidFigures
{
    double calciumShare = 0.0;  ///< percent of the cations
    double supersaturation =
        0.0;  ///< calcium over what dissolves of gypsum, about 35 meq/l in weak acid at 25 °C
};
/// Of acid of so many percent by mass and density in kg/l.
PROJECTBASE_EXPORT AcidFigures AcidFiguresOf(double calciumShare, double percent, double density);

struct Advice
{
    std::string id;  ///< the same in every language: "limit.fe.soft", "baso4"
    Severity severity = Severity::Note;
    /// Source text; its first "%s" is the value with its label, a second one the limit.
    const char* sentence = "";
    const char* label = "";  ///< source text, may be empty
    double value = 0.0;
    double limit = 0.0;
    const char* unit = "";    ///< of all limits, ISO
    const char* reason = "";  ///< source text
    const char* source = "";  ///< source text
    const char* anchor = "";  ///< in the page of the user guide
    DetailAddress address;    ///< where the value is typed
    /// The limit that the program comes with where the user set another one; not a number where it has none.
    std::optional<double> usual = std::nullopt;
    /// An index of a water beyond the ionic strength that its activities hold for.
    bool isBeyondActivities = false;
    /// Of sulfuric acid on a strong-acid resin, to explain the rule.
    std::optional<AcidFigures> acid = std::nullopt;
};

/// The page of the user guide that explains all of it.
inline constexpr const char* kAdviceHelpPage = "wateradvice.html";

inline bool IsWarning(const Advice& advice)
{
    return advice.severity == Severity::Warn;
}

/// All that is to be said of a water, whose derived values are up to date, warnings before notes: of each
/// first what precipitates, then what concerns the regeneration of the plant that it feeds, then limits ahead
/// of resins.
PROJECTBASE_EXPORT std::vector<Advice> AdviceOn(const Project& project, const LiquidData& water);
/// The same where numbers and saturation are at hand already.
PROJECTBASE_EXPORT std::vector<Advice> AdviceOn(const Project& project, const LiquidData& water,
                                                const WaterNumbers& numbers, const Saturation& saturation);

/// What concentrations of sulfuric acid do not let gypsum precipitate at a share of calcium (0 to 1) among
/// the cations, %, and which part of the acid the first step takes at least, %. Beyond 70 % there is one
/// step.
struct AcidSteps
{
    double first;
    double firstPortion;
    double second;
};
PROJECTBASE_EXPORT AcidSteps AcidStepsFor(double calciumShare);

}  // namespace advice
