// SPDX-License-Identifier: MIT
#pragma once

/// What the ion rows of a water add up to. Internal to the water chemistry.

#include "projectbase/details/detail_list.h"
#include "projectbase/water/carbonic_acid.h"
#include "projectbase/water/composition.h"

namespace water {

struct Totals
{
    Composition composition;
    ChargeSums charges;
    double mass = 0.0;  // mg/l
};

/// Adds the normalised ions, and the cation of an amine that the water was alkalised with; `withWaterIons`
/// also the rows of H+ and OH-.
Totals AddIons(const DetailList& liquid, bool withWaterIons);

/// The pH of the water as treated: the one that an alkalization gave it, else the typed one.
double PhOf(const DetailList& liquid);

/// mmol/l; unknown counts as none.
double Co2Of(const DetailList& liquid);

/// mmol/l of CO2 that goes with the bicarbonate that is stated, by the pH; not a number where the pH is one
/// at which water holds none, or is unknown.
double Co2OfPh(const Composition& composition, double pH, double celsius);

/// Whether the pH is one at which water holds none of the bicarbonate or carbonate that is stated.
bool ContradictsPh(const Composition& composition, double pH);

/// What a pH says about the ions of water in a water that holds the others, mmol/l; they add to the ionic
/// strength themselves.
struct PhIons
{
    double hydrogen = 0.0;  ///< free
    double hydroxide = 0.0;
    double bisulfate = 0.0;  ///< H+ that sulfate binds
};
PhIons PhIonsIn(const Composition& others, double pH, double celsius);

/// What closes a balance, meq/l.
struct Closing
{
    double sodium = 0.0;
    double chloride = 0.0;
};
Closing ClosingOf(double cationsLessAnions);

/// Whether H+ and OH- are those of the pH, as their rows do not state them.
bool HasIonsOfPh(const DetailList& liquid);

/// °C; the ions of a pH are looked up at 25 °C where the temperature is unknown.
double TemperatureOf(const DetailList& liquid);

/// Sets the normalised amount of an ion.
void SetIon(DetailList& liquid, std::string_view ion, double meq);

}  // namespace water
