// SPDX-License-Identifier: MIT
#pragma once

/// The m- and the p-value of a water: as a laboratory reports them in place of bicarbonate and carbonate, and
/// as they follow from the analysis.

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <optional>

namespace water {

struct Composition;

/// Amounts in meq/l. 1 mmol/l of acid is 1 meq/l.
struct AlkalinityForms
{
    double bicarbonate = 0.0;
    double carbonate = 0.0;
    double hydroxide = 0.0;
};

/// By titration alone, where the pH is not known: the table of Standard Methods 2320 B. All is bicarbonate
/// without a positive p-value; none of them in acid water (m below 0). A p-value above the m-value cannot be:
/// all is then hydroxide, and RangeFaults tells of it.
PROJECTBASE_EXPORT AlkalinityForms FormsByTitration(double m, double p);

/// meq/l of "liquid/alkalinity.m.orig" or ".p.orig" in its unit; nothing where it is 0, which counts as not
/// reported, or not known.
PROJECTBASE_EXPORT std::optional<double> ReportedAlkalinity(const DetailList& liquid, char value);

/// Whether an m-value stands for bicarbonate and carbonate. A short analysis has none.
PROJECTBASE_EXPORT bool IsAlkalinityReported(const DetailList& liquid);

/// Whether the alkalinity of a water is known: bicarbonate, carbonate or the m-value was found or looked for,
/// or the pH leaves no bicarbonate. What the pH alone makes of H+ and OH- is no analysis of it.
PROJECTBASE_EXPORT bool IsAlkalinityKnown(const DetailList& liquid);

/// Sets the normalised bicarbonate and carbonate of a water whose m-value was reported: with its pH by the
/// equilibrium of carbonic acid, at its temperature and with what closes its balance in it, so that the
/// m-value of the whole is the one reported; without a pH by titration. Nothing happens to other waters.
void SplitReportedAlkalinity(DetailList& liquid);

/// mmol/l, [CO3] + [OH] - [CO2] - [H] - [HSO4] as the pH has them; what was reported where the pH is not
/// known, else not a number. `composition` is all that the water holds.
double AlkalinityPOf(const DetailList& liquid, const Composition& composition);

}  // namespace water
