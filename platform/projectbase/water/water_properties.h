// SPDX-License-Identifier: MIT
#pragma once

/// Properties of liquid water at 0.1 MPa as functions of the temperature (°C), and the activity of ions in
/// it. Below 0 °C and above 100 °C there is no liquid water at this pressure: the result is then not a
/// number.

#include "projectbase/projectbase_export.h"

namespace water {

inline constexpr double kZeroCelsius = 273.15;   ///< K
inline constexpr double kGasConstant = 8.31446;  ///< J/(mol K)

/// Whether the formulas hold at that temperature (°C): 0 to 100.
inline bool IsLiquid(double celsius)
{
    return celsius >= 0.0 && celsius <= 100.0;
}

/// kg/m³. Kell 1975, J. Chem. Eng. Data 20:97; 0-150 °C, ±0.001 kg/m³ below 100 °C.
PROJECTBASE_EXPORT double Density(double celsius);

/// Pa s. IAPWS SR6-08(2011); 253-383 K, ±1 % (±0.2 % from 0 to 60 °C).
PROJECTBASE_EXPORT double Viscosity(double celsius);

/// Static relative permittivity. IAPWS SR6-08(2011); 253-383 K.
PROJECTBASE_EXPORT double Permittivity(double celsius);

/// Debye-Hückel constant A of log10 activity coefficients, (l/mol)^½.
PROJECTBASE_EXPORT double DebyeHueckelA(double celsius);

/// Negative decadic logarithm of the ionic product of water. Harned & Owen 1958 up to 60 °C (±0.003); above
/// it Marshall & Franck 1981, J. Phys. Chem. Ref. Data 10:295 (0-1000 °C), brought to meet the former at 60
/// °C, where they differ by 0.02.
PROJECTBASE_EXPORT double IonicProductExponent(double celsius);

/// log10 of the activity coefficient of a monovalent ion; that of an ion of charge z is z² times as large.
/// Davies 1962: -A (√I/(1+√I) - 0.3 I), valid to I = 0.1 mol/l, usable to 0.5. Not above 0.
PROJECTBASE_EXPORT double LogActivityOfUnitCharge(double ionicStrength, double debyeHueckelA);

}  // namespace water
