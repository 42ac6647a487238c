// SPDX-License-Identifier: MIT
#pragma once

/// What the rows of a regeneration sequence come to, and the waters that a line needs for it. Volumes in m³
/// of one line and one regeneration; not a number stands for what is not known.

#include "projectbase/project/owner_node.h"
#include "projectbase/sequence/reg_seq_data.h"

namespace iex {
class IEXProject;
}

namespace sequence {

/// Calculates what follows in every row of an exchanger from what was typed there, from its area and resin
/// volumes, and for the rows of a chemical from its dose and dilutions. Its own writes are not typed.
PROJECTBASE_EXPORT void Calculate(OwnerNode& exchanger);

/// What one row needs.
struct RowVolumes
{
    const Medium* medium = nullptr;  ///< null where the row has none
    double volume = 0.0;             ///< of the water, or of the chemical as supplied
    const Medium* dilution =
        nullptr;  ///< the water that a chemical is diluted with: of the next displacement
    double dilutionVolume = 0.0;
    bool counts = false;  ///< goes to waste
    bool own = false;     ///< its product water comes from the product
};
/// One entry for each row in which water or a chemical flows; air, settling and draining have none.
PROJECTBASE_EXPORT std::vector<RowVolumes> Volumes(const OwnerNode& exchanger);

/// Sums of one regeneration.
struct Totals
{
    double ownUse = 0.0;        ///< water taken from the product
    double serviceWater = 0.0;  ///< all other water
    double chemicals = 0.0;     ///< as supplied
    double waste = 0.0;         ///< of the rows that count as waste
    double time = 0.0;          ///< h
};
PROJECTBASE_EXPORT Totals TotalsOf(const OwnerNode& exchanger);
/// Of all exchangers of a line, the time that of the longest; not numbers where none has a sequence.
PROJECTBASE_EXPORT Totals TotalsOf(const iex::IEXProject& project);

/// Per medium; air is no water and is not counted. The sums add up to the volumes of the rows.
PROJECTBASE_EXPORT MediumSumsData SumsOf(const OwnerNode& exchanger);

/// Net volume and flow of one line, service water and waste water of all of them, from the rows of all
/// exchangers as they were calculated: net = gross − own use.
PROJECTBASE_EXPORT void CalculateNet(iex::IEXProject& project);

}  // namespace sequence
