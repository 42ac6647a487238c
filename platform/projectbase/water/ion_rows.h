// SPDX-License-Identifier: MIT
#pragma once

/// The ion rows of a water with their detail keys spelled out once, so that an edit builds no strings.
/// Internal to the water chemistry.

#include "projectbase/water/composition.h"

#include <span>
#include <string>

namespace water {

struct IonRow
{
    std::string ion;
    std::string orig, unit, meql, mgl, name;
    std::optional<Species> species;  ///< nothing for a named ion
    bool isCation = false;
    bool isNamed = false;         ///< ".name" exists
    bool countsAsCharge = false;  ///< takes part in the charge sums
};

/// A row with the keys of that ion, which need not be one of the rows of an analysis.
IonRow MakeIonRow(std::string_view ion);

/// All rows of an analysis: cations, then anions.
std::span<const IonRow> IonRows();

/// The row of that ion, or null.
const IonRow* FindIonRow(std::string_view ion);

}  // namespace water
