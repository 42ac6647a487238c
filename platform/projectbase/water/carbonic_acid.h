// SPDX-License-Identifier: MIT
#pragma once

/// Carbonic acid, bicarbonate and carbonate in water, and H+ and OH- from the pH. Concentrations in mmol/l,
/// ionic strength in mol/l, temperature in °C. The pH is the negative logarithm of the activity of H+. A
/// result that does not follow from its arguments (no pH, a temperature outside 0-100 °C) is not a number.

#include "projectbase/projectbase_export.h"

namespace water {

/// Negative decadic logarithms of the constants. Plummer & Busenberg 1982, Geochim. Cosmochim. Acta 46:1011;
/// 0-90 °C (extrapolated to 100 °C).
struct CarbonicConstants
{
    double pK1 = 0.0;  ///< CO2 + H2O = H+ + HCO3-
    double pK2 = 0.0;  ///< HCO3- = H+ + CO3 2-
    double pKH = 0.0;  ///< solubility of CO2, mol/(kg atm)
};
PROJECTBASE_EXPORT CarbonicConstants CarbonicConstantsAt(double celsius);

/// The constants of everything in a water that takes up or gives off H+, at one temperature: looked up once
/// for many questions.
struct AcidConstants
{
    CarbonicConstants carbonic;
    double pKw = 0.0;
    double pKBisulfate = 0.0;  ///< HSO4- = H+ + SO4 2-; Nordstrom et al. 1990
    double debyeHueckelA = 0.0;
};
PROJECTBASE_EXPORT AcidConstants AcidConstantsAt(double celsius);

/// Below this pH a water holds no bicarbonate: it is where the titration of the m-value ends.
inline constexpr double kLowestBicarbonatePh = 4.3;

struct Dissociation
{
    double hydrogen = 0.0;   ///< H+, mmol/l
    double hydroxide = 0.0;  ///< OH-, mmol/l
};
/// [H+] = 10^-pH/γ and [OH-] = Kw/(10^-pH γ).
PROJECTBASE_EXPORT Dissociation DissociationFromPh(double pH, double celsius, double ionicStrength);
PROJECTBASE_EXPORT Dissociation DissociationFromPh(double pH, const AcidConstants& constants,
                                                   double ionicStrength);

/// Which part of sulfate is HSO4- at that pH: below 1 % above pH 4.
PROJECTBASE_EXPORT double BisulfateShare(double pH, const AcidConstants& constants, double ionicStrength);

/// The acid's forms at one pH, temperature and ionic strength, relative to bicarbonate.
class PROJECTBASE_EXPORT CarbonicEquilibrium
{
public:
    CarbonicEquilibrium(double pH, double celsius, double ionicStrength);
    CarbonicEquilibrium(double pH, const AcidConstants& constants, double ionicStrength);

    double Co2FromBicarbonate(double bicarbonate) const { return bicarbonate * m_co2; }
    double CarbonateFromBicarbonate(double bicarbonate) const { return bicarbonate * m_carbonate; }
    double BicarbonateFromCo2(double co2) const { return co2 / m_co2; }
    /// From [HCO3] + 2[CO3] in meq/l.
    double BicarbonateFromForms(double carbonateAlkalinity) const
    {
        return carbonateAlkalinity / (1.0 + 2.0 * m_carbonate);
    }
    /// From the sum of CO2, HCO3 and CO3.
    double BicarbonateFromTotal(double totalInorganicCarbon) const;

private:
    double m_co2;        // [CO2]/[HCO3]
    double m_carbonate;  // [CO3]/[HCO3]
};

}  // namespace water
