// SPDX-License-Identifier: MIT
#pragma once

/// Dosing of a base into a water that exchanges no gas: the pH that a dose gives, and the dose that a pH
/// asks.
///
/// The carbon dissolved stays what it was (plus what the agent brings), the alkalinity grows by what the
/// agent adds; the pH is the root of the balance [HCO3] + 2[CO3] + [OH] - [H] - [HSO4] - [BH+] = m with
/// activity coefficients by Davies and constants at the temperature of the water. The acid of a weak base
/// gets its constant by van 't Hoff from 25 °C: ammonia 9.25, ethanolamine 9.498 (Bates & Pinching 1951),
/// morpholine 8.492 (Hetzer, Bates & Robinson 1966). Ion pairs, silica and boron are left out: soft and
/// medium waters agree with full speciation within 0.01 pH, hard ones at pH 8 within 0.05. What would
/// precipitate stays dissolved.

#include "dbinterfaces/db_objects.h"
#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <optional>
#include <span>
#include <string>

namespace water {

/// A water as far as its pH is concerned. Amounts in mmol/l.
struct CarbonateWater
{
    double celsius = 25.0;
    double totalCarbon = 0.0;
    /// The m-value in meq/l without what weak bases take up; negative in acid water.
    double alkalinity = 0.0;
    /// mol/l of ionic strength of all ions but those of carbonic acid, water and weak bases; sulfate as if it
    /// were divalent.
    double backgroundStrength = 0.0;
    double sulfate = 0.0;  ///< both forms
};

/// A base that is dissolved in a water.
struct WeakBase
{
    double amount = 0.0;  ///< mmol/l, both forms
    double pKa = 0.0;     ///< of its acid at the temperature of the water
};

/// What a water contains at its pH. Amounts in mmol/l.
struct CarbonateState
{
    double pH = 0.0;
    double co2 = 0.0;
    double bicarbonate = 0.0;
    double carbonate = 0.0;
    double hydrogen = 0.0;
    double hydroxide = 0.0;
    double bisulfate = 0.0;
    double baseCations = 0.0;    ///< charged forms of the weak bases
    double ionicStrength = 0.0;  ///< mol/l
};

/// pKa at `celsius` from that at 25 °C; `enthalpy` of dissociation in kJ/mol.
PROJECTBASE_EXPORT double PkaAt(double pKa25, double enthalpy, double celsius);

/// mmol/l of a base that carry a charge in that state.
PROJECTBASE_EXPORT double ChargedPart(const WeakBase& base, const CarbonateState& state, double celsius);

/// What is known of a water whose pH was measured.
struct PhWater
{
    double pH = 0.0;
    double celsius = 25.0;
    double carbonateAlkalinity = 0.0;  ///< [HCO3] + 2[CO3], meq/l, however its forms were reported
    /// The m-value in mmol/l, where it was measured and tells the former.
    std::optional<double> alkalinityM = std::nullopt;
    double co2 = 0.0;                 ///< mmol/l; tells the carbon of a water without that alkalinity
    double backgroundStrength = 0.0;  ///< see CarbonateWater
    double sulfate = 0.0;
    std::span<const WeakBase> bases = {};
};

/// The state of that water, as its pH has it. Not a number where it is not liquid or has no pH.
PROJECTBASE_EXPORT CarbonateState StateFromPh(const PhWater& known);
/// The carbon and the alkalinity of that water in that state.
PROJECTBASE_EXPORT CarbonateWater WaterFromPh(const PhWater& known, const CarbonateState& state);
PROJECTBASE_EXPORT CarbonateWater WaterFromPh(const PhWater& known);

/// The state of equilibrium; nothing where there is none between pH 0 and 14.
PROJECTBASE_EXPORT std::optional<CarbonateState> Equilibrate(const CarbonateWater& water,
                                                             std::span<const WeakBase> bases = {});

/// Bicarbonate and carbonate of a state, mmol/l, as an analysis would state it that has `excess` mmol/l more
/// carbonate than its pH says, at the cost of bicarbonate: what reports and pH measurements disagree about
/// stays as it was reported, and never changes the sum of the charges.
struct CarbonateForms
{
    double bicarbonate = 0.0;
    double carbonate = 0.0;
};
PROJECTBASE_EXPORT CarbonateForms FormsAsStated(const CarbonateState& state, double excess);

struct Dosing
{
    double dose = 0.0;  ///< mmol/l of the agent
    CarbonateState state;
};

/// The water, with the weak bases `dissolved` in it already, after a dose of `millimoles` mmol/l; nothing
/// where there is no solution.
PROJECTBASE_EXPORT std::optional<Dosing> Dose(const CarbonateWater& water,
                                              const DBObjects::AlkalizingAgent& agent, double millimoles,
                                              std::span<const WeakBase> dissolved = {});
/// The dose that brings the water to `pH`, at most kMostDose; nothing where none does: the water is there
/// already, or the agent cannot reach it.
PROJECTBASE_EXPORT std::optional<Dosing> DoseToPh(const CarbonateWater& water,
                                                  const DBObjects::AlkalizingAgent& agent, double pH,
                                                  std::span<const WeakBase> dissolved = {});

/// `millimoles` mmol/l of the agent as a base dissolved in a water; no base where the agent is none that is
/// weak.
PROJECTBASE_EXPORT WeakBase BaseOf(const DBObjects::AlkalizingAgent& agent, double millimoles,
                                   double celsius);

/// mmol/l. Beyond this the activity coefficients mean nothing.
inline constexpr double kMostDose = 500.0;

enum class AlkalizationResult
{
    None,           ///< the water is not alkalised
    Done,           ///<
    UnknownWater,   ///< pH or temperature are not known, or the analysis is a short one
    Contradictory,  ///< the pH is one at which water holds no bicarbonate, yet the analysis states some
    UnknownAgent,   ///< "liquid/alk.type" names no agent of the database
    UnknownGoal,    ///< neither a dose nor a pH is given
    Unreachable     ///< no dose of this agent gives that pH
};

/// Alkalises a normalised water as its details "liquid/alk.type" (agent), "liquid/alk.mode" ("DOSE" or "PH"),
/// "liquid/alk.dose" (mg/l of the pure agent) and "liquid/alk.target" (pH) say: changes the normalised values
/// of bicarbonate, carbonate, CO2 and the agent's cation and all that is derived; sets "liquid/alk.ph" and
/// "liquid/alk.dosed" (mg/l). What was typed stays, so that normalising the water again takes it all back.
/// Without success both results are unknown and the water is left as it was.
PROJECTBASE_EXPORT AlkalizationResult CalculateAlkalization(DetailList& liquid);

/// Why a water could not be alkalised, as a source text; empty for a success and where nothing is to be done.
PROJECTBASE_EXPORT const char* Explain(AlkalizationResult result);

/// English name of the agent with that key; the key itself where the database has none.
PROJECTBASE_EXPORT std::string AlkalizingAgentName(const std::string& key);

}  // namespace water
