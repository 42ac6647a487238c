// SPDX-License-Identifier: MIT
#include "projectbase/advice/saturation.h"

#include "core/ion_table.h"
#include "projectbase/water/alkalinity.h"
#include "projectbase/water/carbonic_acid.h"
#include "projectbase/water/normalization.h"
#include "projectbase/water/speciation.h"
#include "projectbase/water/totals.h"
#include "projectbase/water/water_properties.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace advice {

namespace {

using water::Charge;
using water::IonPair;
using water::Species;

constexpr double kUnknown = Saturation::kNotKnown;

/// log K = a + b T + c/T + d log T + e/T², T in K.
struct Solubility
{
    double a, b, c, d, e;
};
// In the order of Mineral. Calcite and aragonite: Plummer & Busenberg 1982, 0-90 °C; gypsum: Langmuir &
// Melchior 1985; anhydrite, barite: WATEQ4F (Ball & Nordstrom 1991); celestite: Reardon & Armstrong 1987;
// fluorite: WATEQ4F.
constexpr std::array<Solubility, kMinerals> kSolubilities{{
    {-171.9065, -0.077993, 2839.319, 71.595, 0.0},
    {-171.9773, -0.077993, 2903.293, 71.595, 0.0},
    {68.2401, 0.0, -3221.51, -25.0627, 0.0},
    {197.52, 0.0, -8669.8, -69.835, 0.0},
    {136.035, 0.0, -7680.41, -48.595, 0.0},
    {-14805.9622, -2.4660924, 756968.533, 5436.3588, -40553604.0},
    {66.348, 0.0, -4298.2, -25.271, 0.0},
}};

/// pK of H4SiO4 = H+ + H3SiO4-, in the same form.
constexpr Solubility kSilicicAcid{302.3724, 0.050698, -15669.69, -108.18466, 1119669.0};

double LogConstant(const Solubility& row, double celsius)
{
    const double kelvin = celsius + water::kZeroCelsius;
    return row.a + row.b * kelvin + row.c / kelvin + row.d * std::log10(kelvin) + row.e / (kelvin * kelvin);
}

/// The species that pairs are made of.
enum Ion : std::uint8_t
{
    Ca,
    Mg,
    Na,
    K,
    Sr,
    So4,
    F,
    Hco3,
    Co3,
    kIons
};
constexpr std::array<Species, kIons> kSpeciesOf{Species::Ca, Species::Mg,   Species::Na,
                                                Species::K,  Species::Sr,   Species::So4,
                                                Species::F,  Species::Hco3, Species::Co3};
constexpr std::size_t kTotals = Hco3;  // those before it are given as totals

struct PairRow
{
    Ion cation;
    Ion anion;
};
// H+ and its sulfate stand apart. The last three are not in water::IonPair, as they carry no current to speak
// of: log K at 25 °C and enthalpy of association, kcal/mol, WATEQ4F.
constexpr std::array kPairs{PairRow{Ca, So4},  PairRow{Mg, So4}, PairRow{Na, So4},  PairRow{K, So4},
                            PairRow{Ca, Hco3}, PairRow{Ca, Co3}, PairRow{Mg, Hco3}, PairRow{Mg, Co3},
                            PairRow{Na, Co3},  PairRow{Sr, So4}, PairRow{Ca, F},    PairRow{Mg, F}};
constexpr std::array kPairNames{IonPair::CaSo4,  IonPair::MgSo4,  IonPair::NaSo4,
                                IonPair::KSo4,   IonPair::CaHco3, IonPair::CaCo3,
                                IonPair::MgHco3, IonPair::MgCo3,  IonPair::NaCo3};
struct VantHoff
{
    double logK25;
    double enthalpy;
};
constexpr std::array kOtherPairs{VantHoff{2.29, 2.08}, VantHoff{0.94, 4.12}, VantHoff{1.82, 3.2}};

double PairConstant(std::size_t pair, double celsius)
{
    if (pair < kPairNames.size())
        return std::pow(10.0, water::AssociationExponent(kPairNames[pair], celsius));
    const VantHoff& row = kOtherPairs[pair - kPairNames.size()];
    return std::pow(10.0, water::VantHoffExponent(row.logK25, row.enthalpy, celsius));
}

constexpr int ChargeOf(Ion ion)
{
    return Charge(kSpeciesOf[ion]);
}

constexpr int PairCharge(const PairRow& pair)
{
    return ChargeOf(pair.cation) + ChargeOf(pair.anion);
}

/// The passes towards the free ions.
class Solver
{
public:
    Solver(const SaturationSample& sample, bool withPairs)
        : m_sample(sample), m_acids(water::AcidConstantsAt(sample.celsius))
    {
        for (std::size_t p = 0; p < kPairs.size(); ++p)
            m_constants[p] = withPairs ? PairConstant(p, sample.celsius) : 0.0;
        m_bisulfate = withPairs ? std::pow(10.0, m_acids.pKBisulfate) : 0.0;
        for (std::size_t i = 0; i < kTotals; ++i)
            m_totals[i] = m_free[i] = 1e-3 * std::max(0.0, sample.composition[kSpeciesOf[i]]);
        m_free[Hco3] = 1e-3 * std::max(0.0, sample.alkalinity);
        FindOthers();
        m_strength = StrengthOfAll();
    }

    bool Solve()
    {
        constexpr int kMostPasses = 200;
        constexpr double kTolerance = 1e-13;
        for (int pass = 0; pass < kMostPasses; ++pass) {
            const auto before = m_free;
            const double strengthBefore = m_strength;
            Pass();
            double change = std::abs(m_strength - strengthBefore) / std::max(m_strength, 1e-9);
            for (std::size_t i = 0; i < kIons; ++i)
                change = std::max(change, std::abs(m_free[i] - before[i]) / std::max(m_free[i], 1e-12));
            if (!std::isfinite(change))
                return false;
            if (change <= kTolerance)
                return true;
        }
        return false;
    }

    FreeIons Result(bool converged) const
    {
        const double logGamma = water::LogActivityOfUnitCharge(m_strength, m_acids.debyeHueckelA);
        FreeIons free{.calcium = m_free[Ca],
                      .strontium = m_free[Sr],
                      .barium = 1e-3 * m_sample.composition[Species::Ba],
                      .sulfate = m_free[So4],
                      .fluoride = m_free[F],
                      .bicarbonate = m_free[Hco3],
                      .carbonate = m_free[Co3],
                      .ionicStrength = m_strength,
                      .logGamma = logGamma,
                      .logWater = std::log10(std::max(0.1, 1.0 - 0.017 * Dissolved())),
                      .converged = converged};
        return free;
    }

private:
    /// Ions that form no pairs count in the ionic strength alone.
    void FindOthers()
    {
        for (std::size_t i = 0; i < water::kSpeciesCount; ++i) {
            const auto species = static_cast<Species>(i);
            if (species == Species::H || species == Species::Oh ||
                std::ranges::find(kSpeciesOf, species) != kSpeciesOf.end())
                continue;
            const double amount = 1e-3 * m_sample.composition.amounts[i];
            m_otherStrength += 0.5 * amount * water::kCharges[i] * water::kCharges[i];
            m_otherAmount += amount;
        }
    }

    double StrengthOfAll() const
    {
        double sum = m_otherStrength + 0.5 * (m_hydrogen + m_hydroxide + m_bound);
        for (std::size_t i = 0; i < kIons; ++i)
            sum += 0.5 * m_free[i] * ChargeOf(static_cast<Ion>(i)) * ChargeOf(static_cast<Ion>(i));
        for (std::size_t p = 0; p < kPairs.size(); ++p)
            sum += 0.5 * m_pairs[p] * PairCharge(kPairs[p]) * PairCharge(kPairs[p]);
        return sum;
    }

    double Dissolved() const
    {
        return m_otherAmount + m_hydrogen + m_hydroxide + m_bound +
               std::accumulate(m_free.begin(), m_free.end(), 0.0) +
               std::accumulate(m_pairs.begin(), m_pairs.end(), 0.0);
    }

    void Pass()
    {
        const double logGamma = water::LogActivityOfUnitCharge(m_strength, m_acids.debyeHueckelA);
        const double gamma = std::pow(10.0, logGamma);
        const double gamma4 = gamma * gamma * gamma * gamma;
        const water::Dissociation ions = water::DissociationFromPh(m_sample.pH, m_acids, m_strength);
        m_hydrogen = 1e-3 * ions.hydrogen;
        m_hydroxide = 1e-3 * ions.hydroxide;

        // γ of what goes into a pair over that of the pair.
        std::array<double, kPairs.size()> conditional;
        for (std::size_t p = 0; p < kPairs.size(); ++p) {
            const int cation = ChargeOf(kPairs[p].cation);
            const int anion = ChargeOf(kPairs[p].anion);
            const int power = cation * cation + anion * anion - PairCharge(kPairs[p]) * PairCharge(kPairs[p]);
            conditional[p] = m_constants[p] * (power == 8   ? gamma4 * gamma4
                                               : power == 4 ? gamma4
                                                            : gamma * gamma);
        }
        const double acid = m_bisulfate * gamma4 * m_hydrogen;

        std::array<double, kIons> divisors;
        divisors.fill(1.0);
        for (std::size_t p = 0; p < kPairs.size(); ++p) {
            divisors[kPairs[p].cation] += conditional[p] * m_free[kPairs[p].anion];
            divisors[kPairs[p].anion] += conditional[p] * m_free[kPairs[p].cation];
        }
        divisors[So4] += acid;
        const double carbonateShare =
            water::CarbonicEquilibrium(m_sample.pH, m_acids, m_strength).CarbonateFromBicarbonate(1.0);
        m_bound = acid * m_free[So4];
        const double forms = 1e-3 * m_sample.alkalinity - m_hydroxide + m_hydrogen + m_bound;
        const double bicarbonate =
            std::max(0.0, forms) / (divisors[Hco3] + 2.0 * carbonateShare * divisors[Co3]);

        constexpr double kDamping = 0.5;
        const auto take = [this](Ion ion, double found) {
            m_free[ion] = kDamping * m_free[ion] + (1.0 - kDamping) * found;
        };
        for (std::size_t i = 0; i < kTotals; ++i)
            take(static_cast<Ion>(i), m_totals[i] / divisors[i]);
        take(Hco3, bicarbonate);
        take(Co3, bicarbonate * carbonateShare);
        for (std::size_t p = 0; p < kPairs.size(); ++p)
            m_pairs[p] = conditional[p] * m_free[kPairs[p].cation] * m_free[kPairs[p].anion];
        m_strength = kDamping * m_strength + (1.0 - kDamping) * StrengthOfAll();
    }

    const SaturationSample& m_sample;
    const water::AcidConstants m_acids;
    std::array<double, kPairs.size()> m_constants{};
    double m_bisulfate = 0.0;
    std::array<double, kIons> m_totals{};
    std::array<double, kIons> m_free{};
    std::array<double, kPairs.size()> m_pairs{};
    double m_hydrogen = 0.0;
    double m_hydroxide = 0.0;
    double m_bound = 0.0;
    double m_otherStrength = 0.0;
    double m_otherAmount = 0.0;
    double m_strength = 0.0;
};

/// Of nothing, no logarithm is known.
double Log(double amount)
{
    return amount > 0.0 ? std::log10(amount) : kUnknown;
}

bool IsInRangeOfLangelier(const SaturationSample& sample, const FreeIons& free)
{
    return sample.celsius >= 0.0 && sample.celsius <= 90.0 && sample.pH >= 5.0 && sample.pH <= 10.0 &&
           free.ionicStrength < 0.5;
}

}  // namespace

double LogSolubility(Mineral mineral, double celsius)
{
    return water::IsLiquid(celsius) ? LogConstant(kSolubilities[static_cast<std::size_t>(mineral)], celsius)
                                    : kUnknown;
}

double SilicaSolubility(double celsius, double pH, double logGamma)
{
    if (!water::IsLiquid(celsius))
        return kUnknown;
    const double neutral = std::pow(10.0, 4.52 - 731.0 / (celsius + water::kZeroCelsius));
    const double pK = LogConstant(kSilicicAcid, celsius);
    return neutral * (1.0 + std::pow(10.0, pH - pK - logGamma));
}

FreeIons FreeIonsOf(const SaturationSample& sample, bool withPairs)
{
    if (!water::IsLiquid(sample.celsius) || !(sample.pH >= 0.0 && sample.pH <= 14.0) ||
        !std::isfinite(sample.alkalinity))
        return {};
    Solver solver(sample, withPairs);
    const bool converged = solver.Solve();
    return solver.Result(converged);
}

double SaturationIndex(Mineral mineral, const FreeIons& free, double celsius)
{
    constexpr double kDivalent = 4.0;  // z², the power of γ
    const auto divalent = [&](double amount) { return Log(amount) + kDivalent * free.logGamma; };
    double product = kUnknown;
    switch (mineral) {
        case Mineral::Calcite:
        case Mineral::Aragonite:
            product = divalent(free.calcium) + divalent(free.carbonate);
            break;
        case Mineral::Gypsum:
            product = divalent(free.calcium) + divalent(free.sulfate) + 2.0 * free.logWater;
            break;
        case Mineral::Anhydrite:
            product = divalent(free.calcium) + divalent(free.sulfate);
            break;
        case Mineral::Barite:
            product = divalent(free.barium) + divalent(free.sulfate);
            break;
        case Mineral::Celestite:
            product = divalent(free.strontium) + divalent(free.sulfate);
            break;
        case Mineral::Fluorite:
            product = divalent(free.calcium) + 2.0 * (Log(free.fluoride) + free.logGamma);
            break;
    }
    return product - LogSolubility(mineral, celsius);
}

double SaturationPh(const FreeIons& free, double celsius)
{
    constexpr double kPowers = 5.0;
    const double pK2 = water::CarbonicConstantsAt(celsius).pK2;
    return pK2 + LogSolubility(Mineral::Calcite, celsius) - Log(free.calcium) - Log(free.bicarbonate) -
           kPowers * free.logGamma;
}

double SimplifiedSaturationPh(double tds, double celsius, double calcium, double alkalinity)
{
    const double a = (Log(tds) - 1.0) / 10.0;
    const double b = -13.12 * Log(celsius + 273.0) + 34.55;
    return 9.3 + a + b - (Log(calcium) - 0.4) - Log(alkalinity);
}

LangelierState LangelierStateOf(double index)
{
    if (std::isnan(index))
        return LangelierState::Unknown;
    if (std::abs(index) <= kLangelierBalanced)
        return LangelierState::Balanced;
    return index > 0.0 ? LangelierState::MayDeposit : LangelierState::Dissolves;
}

Saturation SaturationOf(const DetailList& liquid)
{
    Saturation result;
    if (liquid.At("liquid/analysis.type").GetStdStringValue() != "FULL")
        return result;
    const SaturationSample sample{.pH = water::PhOf(liquid),
                                  .celsius = liquid.At("liquid/temp").GetDoubleValue(),
                                  .alkalinity = liquid.At("liquid/alkalinity.m").GetDoubleValue(),
                                  .composition = water::WholeComposition(liquid)};
    const FreeIons free = FreeIonsOf(sample, true);
    if (!free.converged)
        return result;
    result.ionicStrength = free.ionicStrength;
    constexpr double kLimitOfDavies = 0.2;
    result.isBeyondDavies = free.ionicStrength > kLimitOfDavies;
    const bool isAlkalinityKnown = water::IsAlkalinityKnown(liquid);
    for (std::size_t i = 0; i < kMinerals; ++i) {
        const auto mineral = static_cast<Mineral>(i);
        // What the pH alone leaves of alkalinity is the rounding of H+ and OH-.
        const bool isCarbonate = mineral == Mineral::Calcite || mineral == Mineral::Aragonite;
        if (isAlkalinityKnown || !isCarbonate)
            result.indices[i] = SaturationIndex(mineral, free, sample.celsius);
    }
    const double silica = liquid.At("liquid/sio2.mgl").GetDoubleValue() /
                          SilicaSolubility(sample.celsius, sample.pH, free.logGamma);
    result.silica = Log(silica);
    result.silicaPercent = silica > 0.0 ? 100.0 * silica : kUnknown;
    if (!isAlkalinityKnown || !IsInRangeOfLangelier(sample, free))
        return result;
    result.langelier = result.Index(Mineral::Calcite);
    result.pHs = sample.pH - result.langelier;
    result.ryznar = sample.pH - 2.0 * result.langelier;
    const FreeIons unpaired = FreeIonsOf(sample, false);
    if (unpaired.converged)
        result.langelierByHand = sample.pH - SaturationPh(unpaired, sample.celsius);
    constexpr double kCaCO3 = 50.043;  // mg/meq
    result.langelierSimplified =
        sample.pH - SimplifiedSaturationPh(liquid.At("liquid/tds").GetDoubleValue(), sample.celsius,
                                           2.0 * kCaCO3 * sample.composition[Species::Ca],
                                           kCaCO3 * sample.alkalinity);
    return result;
}

}  // namespace advice
