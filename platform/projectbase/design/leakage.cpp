// SPDX-License-Identifier: MIT
#include "projectbase/design/leakage.h"

#include <wx/translation.h>

#include <algorithm>
#include <cmath>

namespace design {

namespace {

constexpr double kEquivalentMassOfSodium = 22.99;  // as in the table of ions
constexpr double kConductivityPerSodium = 10.8;    // µS/cm for a mg/l as NaOH, 25 °C
constexpr const char* kMass = "mg/l";
constexpr const char* kConductivity = "uS/cm";

}  // namespace

std::vector<Leakage> LeakageOfLine::Pass(ExchangerKind kind, bool isCounterCurrent, const Stream& inlet)
{
    const char* const silica = wxTRANSLATE("Silica");
    const char* const conductivity = wxTRANSLATE("Conductivity");
    if (inlet.isFood)
        return {};
    if (kind == ExchangerKind::SacH) {
        const double sodium = inlet.sodium * kEquivalentMassOfSodium;
        m_isKnown = std::isfinite(sodium);
        if (!m_isKnown)
            return {};
        m_sodiumLow = isCounterCurrent ? std::min(sodium, 0.010) : 0.005 * sodium;
        m_sodiumHigh = isCounterCurrent ? std::min(sodium, 0.050) : 0.05 * sodium;
        return {{wxTRANSLATE("Sodium"), m_sodiumLow, m_sodiumHigh, kMass}};
    }
    if (kind == ExchangerKind::MixedBed) {
        m_isKnown = false;
        return {{conductivity, 0.06, 0.1, kConductivity}, {silica, 0.0, 0.02, kMass}};
    }
    std::vector<Leakage> leakages;
    if (kind != ExchangerKind::Sba)
        return leakages;
    if (!isCounterCurrent)
        leakages.push_back({silica, 0.02, 0.1, kMass});
    if (m_isKnown)
        leakages.push_back({conductivity, m_sodiumLow * kConductivityPerSodium,
                            m_sodiumHigh * kConductivityPerSodium, kConductivity});
    return leakages;
}

}  // namespace design
