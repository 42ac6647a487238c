// SPDX-License-Identifier: MIT
#pragma once

/// The pH of a solution of acids, bases and ions.
///
/// The root of the charge balance with one step of dissociation a compound: strong acids and bases give all
/// their equivalents, weak ones C·Ka/([H+]+Ka), neutral ones what charge they carry. Activity coefficients by
/// Davies (1962), the ionic product of water by Harned & Owen (1958); pKa values are taken as those of the
/// temperature asked. Amounts in mmol/l.

#include "projectbase/feed/acid_base.h"
#include "projectbase/projectbase_export.h"

#include <vector>

namespace feed {

/// One compound of a solution.
struct Solute
{
    AcidBase kind = AcidBase::Neutral;
    int charge = 0;       ///< of the form in which it is added
    int valency = 0;      ///< eq/mol of a strong acid or base
    double pKa = 0.0;     ///< of a weak acid, or of the acid of a weak base
    double amount = 0.0;  ///< mmol/l
};

class PROJECTBASE_EXPORT ChargeBalance
{
public:
    ChargeBalance(const std::vector<Solute>& solutes, double celsius);

    /// NaN where the balance has no root between pH -1 and 15 or something it needs is not known.
    double FindPh() const;
    /// meq/l of strong base (acid where negative) that brings the solution to that pH; NaN as above.
    double StrongBaseTo(double pH) const;

private:
    /// Acids of one strength and charge together.
    struct WeakAcid
    {
        double pKa = 0.0;
        int acidCharge = 0;   ///< of the undissociated form
        double amount = 0.0;  ///< mol/l
    };
    struct State
    {
        double excess = 0.0;    ///< of positive charge, eq/l
        double strength = 0.0;  ///< ionic strength, mol/l
    };
    void AddWeak(double pKa, int acidCharge, double amount);
    State At(double pH, double strength) const;

    double m_fixedCharge = 0.0;    ///< eq/l
    double m_fixedStrength = 0.0;  ///< mol/l
    std::vector<WeakAcid> m_weak;
    double m_debyeHueckelA;
    double m_pKw;
};

}  // namespace feed
