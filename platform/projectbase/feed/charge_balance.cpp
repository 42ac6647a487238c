// SPDX-License-Identifier: MIT
#include "projectbase/feed/charge_balance.h"

#include "projectbase/water/water_properties.h"

#include <boost/math/tools/toms748_solve.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace feed {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr double kLowestPh = -1.0;
constexpr double kHighestPh = 15.0;
/// Passes between the pH and the activity coefficients.
constexpr int kMostPasses = 30;
constexpr double kEnough = 1e-10;  // of the pH
constexpr std::uintmax_t kMostSteps = 80;

double Square(int charge)
{
    return static_cast<double>(charge) * charge;
}

/// Root of a balance that falls with the pH; NaN where it has none.
template <typename Function>
double Root(Function balance)
{
    const double atLow = balance(kLowestPh);
    const double atHigh = balance(kHighestPh);
    if (!(atLow > 0.0 && atHigh < 0.0))
        return kUnknown;
    namespace tools = boost::math::tools;
    std::uintmax_t steps = kMostSteps;
    const auto bracket = tools::toms748_solve(balance, kLowestPh, kHighestPh, atLow, atHigh,
                                              tools::eps_tolerance<double>(46), steps);
    return 0.5 * (bracket.first + bracket.second);
}

}  // namespace

ChargeBalance::ChargeBalance(const std::vector<Solute>& solutes, double celsius)
    : m_debyeHueckelA(water::DebyeHueckelA(celsius)), m_pKw(water::IonicProductExponent(celsius))
{
    for (const Solute& solute : solutes) {
        if (solute.amount == 0.0)
            continue;
        const double amount = solute.amount * 1e-3;
        // What a strong acid or base leaves in the water carries all its equivalents.
        int charge = solute.charge;
        switch (solute.kind) {
            case AcidBase::WeakAcid:
                AddWeak(solute.pKa, charge, amount);
                continue;
            case AcidBase::WeakBase:
                AddWeak(solute.pKa, charge + 1, amount);
                continue;
            case AcidBase::StrongAcid:
                charge -= solute.valency;
                break;
            case AcidBase::StrongBase:
                charge += solute.valency;
                break;
            default:
                break;
        }
        m_fixedCharge += charge * amount;
        m_fixedStrength += 0.5 * Square(charge) * amount;
    }
}

void ChargeBalance::AddWeak(double pKa, int acidCharge, double amount)
{
    const auto same = std::find_if(m_weak.begin(), m_weak.end(), [&](const WeakAcid& acid) {
        return acid.pKa == pKa && acid.acidCharge == acidCharge;
    });
    if (same != m_weak.end())
        same->amount += amount;
    else
        m_weak.push_back({pKa, acidCharge, amount});
}

ChargeBalance::State ChargeBalance::At(double pH, double strength) const
{
    const double logGamma = water::LogActivityOfUnitCharge(strength, m_debyeHueckelA);
    const double hydrogen = std::pow(10.0, -pH - logGamma);
    const double hydroxide = std::pow(10.0, pH - m_pKw - logGamma);
    State state{m_fixedCharge + hydrogen - hydroxide, m_fixedStrength + 0.5 * (hydrogen + hydroxide)};
    for (const WeakAcid& acid : m_weak) {
        const int z = acid.acidCharge;
        // [base]/[acid] = 10^(pH - pKa) γ(acid)/γ(base), with log γ proportional to the square of the charge.
        const double ratio = std::pow(10.0, pH - acid.pKa + (Square(z) - Square(z - 1)) * logGamma);
        const double base = std::isinf(ratio) ? acid.amount : acid.amount * ratio / (1.0 + ratio);
        state.excess += acid.amount * z - base;
        state.strength += 0.5 * (Square(z) * (acid.amount - base) + Square(z - 1) * base);
    }
    return state;
}

double ChargeBalance::FindPh() const
{
    double strength = m_fixedStrength;
    double pH = kUnknown;
    for (int pass = 0; pass < kMostPasses; ++pass) {
        const double former = pH;
        pH = Root([&](double at) { return At(at, strength).excess; });
        if (std::isnan(pH) || std::abs(pH - former) < kEnough)
            break;
        strength = At(pH, strength).strength;
    }
    return pH;
}

double ChargeBalance::StrongBaseTo(double pH) const
{
    if (!(pH >= kLowestPh && pH <= kHighestPh))
        return kUnknown;
    // The counter ions that are dosed carry one charge each.
    double strength = m_fixedStrength;
    double dose = kUnknown;
    for (int pass = 0; pass < kMostPasses; ++pass) {
        const double former = dose;
        const State state = At(pH, strength);
        dose = -state.excess;
        if (std::isnan(dose) || std::abs(dose - former) <= kEnough * std::abs(dose))
            break;
        strength = state.strength + 0.5 * std::abs(dose);
    }
    return dose * 1e3;
}

}  // namespace feed
