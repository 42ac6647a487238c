// SPDX-License-Identifier: MIT
#pragma once

/// Where a compartment keeps a chemical, its supply and its dilutions: those of regeneration and of
/// conditioning are alike.

#include <string_view>

namespace design {

struct DoseKeys
{
    std::string_view chemical, amount, supply, progressive, first, firstPortion, second, secondPortion;
};

inline constexpr DoseKeys kRegenerantKeys{
    "stepcomp/rm.chemical", "stepcomp/rm",         "stepcomp/rm.konz", "stepcomp/rm.progressive",
    "stepcomp/konz.d",      "stepcomp/rm.portion", "stepcomp/konz.d2", "stepcomp/rm.portion2"};
inline constexpr DoseKeys kConditionerKeys{
    "stepcomp/cond.chemical", "stepcomp/cond.amount",  "stepcomp/cond.konz",    "stepcomp/cond.progressive",
    "stepcomp/cond.konz.d",   "stepcomp/cond.portion", "stepcomp/cond.konz.d2", "stepcomp/cond.portion2"};

}  // namespace design
