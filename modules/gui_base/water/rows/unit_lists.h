// SPDX-License-Identifier: MIT
#pragma once

/// The units that the choices of the water panels offer, in the order in which they stand there.

#include "gui_base/gui_base_export.h"

#include <wx/string.h>

#include <vector>

namespace water_units {

/// Concentration of an ion.
GUI_BASE_EXPORT std::vector<wxString> OfIons();
/// What is known as equivalents only: H+ and OH-.
GUI_BASE_EXPORT std::vector<wxString> OfEquivalents();
/// Alkalinity: an amount of acid, also as calcium carbonate or in degrees of hardness.
GUI_BASE_EXPORT std::vector<wxString> OfAlkalinities();
/// Hardness that was measured: an amount of divalent ions, of equivalents or of calcium carbonate.
GUI_BASE_EXPORT std::vector<wxString> OfHardness();
/// Conductivity that was measured.
GUI_BASE_EXPORT std::vector<wxString> OfConductivity();
/// °C, °F and K; the indices are not those of TemperatureUnit.
GUI_BASE_EXPORT std::vector<wxString> OfTemperatures();

}  // namespace water_units
