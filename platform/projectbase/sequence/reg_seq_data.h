// SPDX-License-Identifier: MIT
#pragma once

/// A regeneration sequence as a value: what is edited as a whole and stored with IEXProject::SaveRegSeqData.

#include "projectbase/project/owner_node.h"
#include "projectbase/sequence/row_quantities.h"
#include "projectbase/sequence/sequence_tables.h"

#include <string>
#include <vector>

/// One row. A new one is a backwash with tap water, upwards, of which nothing is known yet.
struct PROJECTBASE_EXPORT RegSeqStep
{
    DetailOwner row = {};  ///< of the project; the default for a row that it does not have yet
    std::string type = sequence::kBackwash;
    std::string medium = sequence::kTapWater;
    std::string direction = "UP";  ///< or "DOWN"
    sequence::RowQuantities values = {};
    std::string flowTyped = "v";    ///< which of the flows was typed: "v", "q" or "q.bv"
    std::string amountTyped = "t";  ///< which of the amounts was typed: "t", "vol" or "vol.bv"
    bool removable = true;          ///< not required by the exchanger
    bool counts = true;             ///< counts as waste
    bool own = true;                ///< product water is taken from the product of the line

    /// A value was typed: "v", "q", "q.bv", "t", "vol" or "vol.bv".
    void Type(std::string_view quantity, double value);
    double Get(std::string_view quantity) const;
};

struct RegSeqData
{
    std::vector<RegSeqStep> steps;
    std::string remarks;  ///< at most text_limits::kRemarks letters are stored
};

/// What a sequence needs of one medium in a regeneration.
struct MediumSum
{
    std::string medium;
    double volume = 0.0;  ///< m³; of a chemical as supplied; not a number where it is not known
};
/// In the order in which media are offered, those that occur.
using MediumSumsData = std::vector<MediumSum>;
