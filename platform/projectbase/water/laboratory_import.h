// SPDX-License-Identifier: MIT
#pragma once

/// Takes a sample of a laboratory's file into a water, and writes a water as such a file.

#include "core/laboratory_file.h"
#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <string>
#include <vector>

namespace water {

/// A number of the file and where it belongs.
struct TakenValue
{
    std::size_t parameter = 0;  ///< index in the file
    std::string key;            ///< detail of the typed value
    std::string unitKey;        ///< detail of its unit; empty where it has none
    double value = 0.0;
    std::string unit;
};

/// The numbers of a sample that the water can hold. A parameter that the file has twice counts once, the
/// first time that it has a number; negative numbers, as of values below a detection limit, are left out
/// except of temperatures and alkalinities.
PROJECTBASE_EXPORT std::vector<TakenValue> TakeSample(const laboratory::File& file, std::size_t sample,
                                                      const DetailList& liquid);

/// Stores the values as a full analysis. With `clearOthers` the concentrations that the file does not state
/// become 0 and the other properties unknown; units that were chosen stay. The water is not recalculated.
PROJECTBASE_EXPORT void StoreSample(const std::vector<TakenValue>& values, DetailList& liquid,
                                    bool clearOthers);

/// The typed values of a water that are known and not 0, in their units, as a file that can be read again.
PROJECTBASE_EXPORT std::string WriteLaboratoryFile(const DetailList& liquid);

}  // namespace water
