// SPDX-License-Identifier: MIT
#pragma once

/// What the heads of a laboratory's table mean: the names of parameters and their units. What is not
/// understood is said to be so, never guessed. Texts are UTF-8; pure functions.

#include "core/core_export.h"

#include <string>
#include <string_view>

namespace laboratory {

/// What a column or row of the file is.
struct Parameter
{
    std::string title = {};   ///< as the file names it, with its unit
    std::string target = {};  ///< "na" for an ion, "ph", "temp", "turbidity", …; empty when it is not known
    std::string unit = {};    ///< in the spelling of the analysis; empty where none is stated or needed
    double factor = 1.0;      ///< by which a number of the file is multiplied to be in `unit`
    bool unitIsKnown = true;
    /// mmol/l of acid that a titration to pH 4.3 leaves, by which an acid capacity is greater than the
    /// m-value (DIN 38409-7); 0 for all else.
    double acidLeft = 0.0;
    bool isText = false;  ///< "sample", "country", "place", …: no number
    /// Whether a value below a limit of detection is an amount. A temperature and a pH are none.
    bool isAmount = false;
};

/// The parameter of a head: "Ca [mg/l]", "Ca (mg/l)", "Ca in mg/l", "Ca mg/l".
Parameter ReadHead(const std::string& title);
/// The same of a name whose unit stands in a cell of its own, if it is not empty.
Parameter ReadHead(const std::string& title, const std::string& unit);

/// The target of a head, empty where it is not known.
std::string TargetOfHead(const std::string& title);

/// The target of a parameter's name ("Ca", "Calcium", "Ca2+", "calcium, dissolved"); empty when not known.
CORE_EXPORT std::string FindTarget(std::string_view name);

/// Whether a text is a unit of concentration, of hardness or of another parameter, and hardly anything else.
bool LooksLikeUnit(std::string_view text);

}  // namespace laboratory
