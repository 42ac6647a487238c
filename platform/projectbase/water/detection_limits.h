// SPDX-License-Identifier: MIT
#pragma once

/// The limits of detection (core/detection_limit.h) among the typed values of a water: which values they are,
/// what they count as, and how much of the water hangs on them.

#include "core/ion_normalization.h"
#include "core/number_text.h"
#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"
#include "projectbase/water/composition.h"
#include "projectbase/water/ion_rows.h"

#include <string>
#include <string_view>

namespace water {

/// Whether a limit of detection may be typed under that key: amounts of ions and CO2, and what laboratories
/// report beside them in mg/l or NTU.
PROJECTBASE_EXPORT bool TakesDetectionLimit(std::string_view key);

/// What a limit counts as, by "liquid/limits": nothing ("ZERO"), half of it ("HALF", also for any other text)
/// or all of it ("LIMIT").
PROJECTBASE_EXPORT double ShareOfLimits(const DetailList& liquid);

/// What the value that is typed under a key counts as.
PROJECTBASE_EXPORT double CountedValue(const DetailList& liquid, std::string_view key);

/// A typed value as text, "<0.05" of a limit.
PROJECTBASE_EXPORT std::string TypedText(const std::string& key, double value, const numbertext::Style& style,
                                         const numbertext::Separators& separators);

/// Whether nothing of an ion ("ba") was found; a limit is stated instead.
PROJECTBASE_EXPORT bool IsBelowDetection(const DetailList& liquid, std::string_view ion);

/// The limit of detection that is stated of an ion; nothing of an amount that was found.
PROJECTBASE_EXPORT ions::NormalizedIon LimitOf(const DetailList& liquid, const IonRow& row);

/// Whether any ion, or CO2, is stated by a limit.
PROJECTBASE_EXPORT bool HasDetectionLimits(const DetailList& liquid);

/// The limits of all ions that count as charges, meq/l.
PROJECTBASE_EXPORT ChargeSums LimitSums(const DetailList& liquid);

}  // namespace water
