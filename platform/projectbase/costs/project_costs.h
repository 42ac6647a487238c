// SPDX-License-Identifier: MIT
#pragma once

/// What a plant costs: quantities that follow from its design, prices that somebody typed, and what both come
/// to. Window, report and command line find all of it in the details "cost/…" of the project, in euro.
///
/// Quantities are those of all lines; chemicals and waters are those of a cycle, which lasts the running time
/// and the longest regeneration of the line. Chemicals are meant as 100 %.

#include "projectbase/costs/cost_calculator.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/projectbase_export.h"

#include <array>
#include <map>
#include <string>
#include <vector>

namespace iex {
class IEXProject;
}  // namespace iex

namespace costs {

/// Resins with a line of their own, and the two inert materials: above a floating bed, and under a layer.
inline constexpr int kResins = 5;
inline constexpr std::array kInertSuffixes{"KQ14", "KQ28"};
/// Chemicals with a line of their own, for regeneration and for conditioning each.
inline constexpr int kChemicals = 6;
/// Price details of the groups of equipment, "cost/cc.cost.…".
inline constexpr std::array kEquipment{"piping",    "pumps",   "valves",  "measurement",
                                       "electrics", "vessels", "nozzles", "logistics"};

/// Clears names and volumes of all resins.
PROJECTBASE_EXPORT void ClearResinDetails(iex::IEXProject& project);
/// Names and volumes of the resins as the design has them: as designed, in columns for food as installed.
/// Those beyond the fifth have no line.
PROJECTBASE_EXPORT void CopyVolumeToCostDetails(iex::IEXProject& project);
/// How many resins have no line.
PROJECTBASE_EXPORT int CountResinsWithoutLine(const iex::IEXProject& project);

/// Masses (kg) of chemicals by their English names.
using ChemicalMap = std::map<std::string, double>;
/// Regenerants of a cycle, and what the line's waste needs to be neutral.
PROJECTBASE_EXPORT void CopyRegenerantsToCostDetail(iex::IEXProject& project,
                                                    const design::PlantDesign& plant);
PROJECTBASE_EXPORT void WriteRegenerantMapToDetails(iex::IEXProject& project, const ChemicalMap& map);
PROJECTBASE_EXPORT void CopyConditionersToCostDetail(iex::IEXProject& project);
PROJECTBASE_EXPORT void WriteCondMapToDetails(iex::IEXProject& project, const ChemicalMap& map);

/// Cycles of a year; not a number without a running time.
PROJECTBASE_EXPORT double CyclesPerYear(const iex::IEXProject& project);
/// The lines of the capital cost.
PROJECTBASE_EXPORT iex::CostMap CapitalLines(const iex::IEXProject& project);
/// The lines of the operating cost of one cycle, with "servWater".
PROJECTBASE_EXPORT iex::CostMap OperatingLines(const iex::IEXProject& project);
/// What the calculator takes: both kinds of lines are in its named values.
PROJECTBASE_EXPORT iex::CostMap CalculatorMap(const iex::IEXProject& project,
                                              const iex::IRXCostCalculator& calculator);

/// Writes quantities and results into the details; results are empty as long as the plant is not designed. To
/// be called within an edit, after the design.
PROJECTBASE_EXPORT void UpdateCosts(iex::IEXProject& project, const design::PlantDesign& plant);

/// A year of the plant's life, in euro.
struct YearOfCosts
{
    int year;           ///< from 1
    double cost;        ///< with escalation
    double discounted;  ///< its present value
};
/// The operating costs of each year; none as long as they are not known. Their present values add up to about
/// the net present value, which is that of the annuity; they are the same where life is a whole number.
PROJECTBASE_EXPORT std::vector<YearOfCosts> YearsOf(const iex::IEXProject& project);

}  // namespace costs
