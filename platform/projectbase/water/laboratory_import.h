// SPDX-License-Identifier: MIT
#pragma once

/// Takes a sample of a laboratory's file into a water, and writes waters as such a file.

#include "core/laboratory_file.h"
#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <string>
#include <string_view>
#include <vector>

namespace water {

/// A number or a text of the file and where it belongs.
struct TakenValue
{
    std::size_t parameter = 0;  ///< index in the file
    std::string key;            ///< detail of the typed value
    std::string unitKey;        ///< detail of its unit; empty where it has none
    double value = 0.0;         ///< a limit of detection as core/detection_limit.h has it
    std::string unit;
    std::string text = {};  ///< of what is no number; never empty there
    bool isLimit = false;   ///< the file states a limit of detection
    /// mmol/l that were taken off an acid capacity to pH 4.3, which is by them greater than the m-value.
    double acidLeft = 0.0;
};

/// What the setting "laboratory.limits" holds: "ZERO", "HALF" or "LIMIT"; half for any other text.
PROJECTBASE_EXPORT laboratory::LimitReading LimitReadingOf(std::string_view code);
PROJECTBASE_EXPORT std::string CodeOf(laboratory::LimitReading reading);
/// The share of a limit that counts: 0, 0.5 or 1.
PROJECTBASE_EXPORT double ShareOf(laboratory::LimitReading reading);

/// The values of a sample that the water can hold. A limit of detection of what has no place for one (an
/// alkalinity) is taken as `limits` says. A parameter that the file has twice counts once, the
/// first time that it has a value; negative numbers are left out except of temperatures and alkalinities, and
/// so are countries that nobody knows and texts longer than 10,000 bytes.
PROJECTBASE_EXPORT std::vector<TakenValue> TakeSample(const laboratory::File& file, std::size_t sample,
                                                      const DetailList& liquid,
                                                      laboratory::LimitReading limits);

/// Stores the values as a full analysis. With `clearOthers` the concentrations that the file does not state
/// become 0 and the other properties unknown; units that were chosen and texts stay. Where the
/// sample has limits of detection, those of the water count by `limits` from then on. The water is not
/// recalculated.
PROJECTBASE_EXPORT void StoreSample(const std::vector<TakenValue>& values, DetailList& liquid,
                                    laboratory::LimitReading limits, bool clearOthers);

struct NamedWater
{
    std::string name;
    const DetailList& details;
};

/// The typed values of waters that are known and not 0, in their units, as a file that can be read again:
/// one sample for each water.
PROJECTBASE_EXPORT std::string WriteLaboratoryFile(const std::vector<NamedWater>& waters);

}  // namespace water
