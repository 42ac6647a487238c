// SPDX-License-Identifier: MIT
#include "projectbase/water/conductivity.h"

#include "projectbase/water/short_analysis.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using water::Composition;
using water::Species;

namespace {

/// A salt of `cations` and `anions` per formula unit.
struct Salt
{
    const char* name;
    Species cation;
    double cations;
    Species anion;
    double anions;
};

constexpr Salt kKCl{"KCl", Species::K, 1, Species::Cl, 1};
constexpr Salt kNaCl{"NaCl", Species::Na, 1, Species::Cl, 1};
constexpr Salt kCaCl2{"CaCl2", Species::Ca, 1, Species::Cl, 2};
constexpr Salt kMgCl2{"MgCl2", Species::Mg, 1, Species::Cl, 2};
constexpr Salt kNa2So4{"Na2SO4", Species::Na, 2, Species::So4, 1};
constexpr Salt kMgSo4{"MgSO4", Species::Mg, 1, Species::So4, 1};
constexpr Salt kHCl{"HCl", Species::H, 1, Species::Cl, 1};
constexpr Salt kH2So4{"H2SO4", Species::H, 2, Species::So4, 1};
constexpr Salt kNaOH{"NaOH", Species::Na, 1, Species::Oh, 1};

Composition Solution(const Salt& salt, double mmolPerLitre)
{
    Composition solution;
    solution[salt.cation] = salt.cations * mmolPerLitre;
    solution[salt.anion] = salt.anions * mmolPerLitre;
    return solution;
}

/// Prints the deviation and checks that it lies in the range that is claimed for the case.
void ExpectDeviation(const std::string& what, double computed, double measured, double from, double to)
{
    const double percent = 100.0 * (computed / measured - 1.0);
    fmt::print("{:<34} measured {:>10.5g}  computed {:>10.5g}  {:+.2f} %\n", what, measured, computed,
               percent);
    EXPECT_GE(percent, from) << what;
    EXPECT_LE(percent, to) << what;
}

}  // namespace

TEST(Conductivity, OfSaltSolutionsAt25Degrees)
{
    // Equivalent conductances, S cm²/eq, of solutions of so many meq/l (Robinson & Stokes 1959,
    // appendix 6.3; sulfuric acid: CRC Handbook of Chemistry and Physics).
    struct Case
    {
        Salt salt;
        double meqPerLitre, equivalentConductance, from, to;
    };
    constexpr Case kCases[]{
        {kKCl, 1, 146.95, -0.5, 0.5},     {kKCl, 10, 141.27, -0.5, 0.5},    {kKCl, 100, 128.96, -1.0, 1.0},
        {kNaCl, 1, 123.74, -0.5, 0.5},    {kNaCl, 10, 118.51, -0.5, 0.5},   {kNaCl, 100, 106.74, 0.0, 2.0},
        {kCaCl2, 1, 130.36, -2.0, 0.5},   {kCaCl2, 10, 120.36, -2.0, 0.5},  {kCaCl2, 100, 102.46, -2.5, 0.5},
        {kMgCl2, 1, 124.11, -2.0, 0.5},   {kMgCl2, 100, 97.10, -2.0, 1.0},  {kNa2So4, 1, 124.15, -2.0, 1.0},
        {kNa2So4, 20, 106.78, -5.0, 0.0}, {kNa2So4, 100, 89.98, -7.5, 0.0}, {kHCl, 1, 421.36, -1.5, 0.0},
        {kHCl, 10, 412.00, -3.5, 0.0},    {kHCl, 50, 399.09, -6.5, 0.0},    {kHCl, 100, 391.32, -8.0, 0.0},
        {kNaOH, 1, 244.7, -1.5, 0.0},     {kNaOH, 10, 238.0, -2.5, 0.0},    {kH2So4, 1, 399.5, -1.0, 1.0},
        {kH2So4, 10, 336.4, -5.0, 0.0},   {kH2So4, 50, 272.6, -8.5, 0.0},   {kH2So4, 100, 250.8, -11.0, 0.0},
    };
    for (const auto& c : kCases) {
        const double equivalents = c.salt.cations * water::Charge(c.salt.cation);
        const auto solution = Solution(c.salt, c.meqPerLitre / equivalents);
        ExpectDeviation(fmt::format("{} {} meq/l, 25 \u00b0C", c.salt.name, c.meqPerLitre),
                        water::Conductivity(solution, 25.0), c.meqPerLitre * c.equivalentConductance, c.from,
                        c.to);
    }
}

TEST(Conductivity, OfRegenerantsAt20Degrees)
{
    // CRC Handbook of Chemistry and Physics, electrical conductivity of aqueous solutions of 0.5 % by mass:
    // H2SO4 24.3 mS/cm (51.06 mmol/l), NaOH 24.8 (125.5 mmol/l).
    ExpectDeviation("H2SO4 102.1 meq/l, 20 \u00b0C", water::Conductivity(Solution(kH2So4, 51.06), 20.0),
                    24300.0, -12.0, 0.0);
    ExpectDeviation("NaOH 125.5 meq/l, 20 \u00b0C", water::Conductivity(Solution(kNaOH, 125.5), 20.0),
                    24800.0, -4.0, 0.0);
}

TEST(Conductivity, IsLimitedByWhatIsDissolvedAndNotByWhatIsFree)
{
    EXPECT_TRUE(std::isfinite(water::Conductivity(Solution(kMgSo4, 249.0), 25.0)));
    const Composition beyond = Solution(kMgSo4, 251.0);
    EXPECT_LT(water::Speciate(beyond, 25.0).ionicStrength, 0.9) << "much of it is paired";
    EXPECT_TRUE(std::isnan(water::Conductivity(beyond, 25.0)));
}

TEST(Conductivity, OfPotassiumChlorideStandardsAtOtherTemperatures)
{
    // Jones & Bradshaw 1933, J. Am. Chem. Soc. 55:1780: 0.1 and 0.01 demal, that is mol/dm³ at 0 °C. µS/cm.
    struct Case
    {
        double celsius, mmolPerLitre, measured;
    };
    constexpr Case kCases[]{
        {0.0, 100.0, 7134.0},  {0.0, 10.0, 773.6},     {18.0, 99.88, 11163.0},
        {18.0, 9.988, 1220.5}, {25.0, 99.72, 12852.0}, {25.0, 9.972, 1408.5},
    };
    for (const auto& c : kCases) {
        ExpectDeviation(fmt::format("KCl {} mmol/l, {} \u00b0C", c.mmolPerLitre, c.celsius),
                        water::Conductivity(Solution(kKCl, c.mmolPerLitre), c.celsius), c.measured, -2.5,
                        0.5);
    }
}

TEST(Conductivity, OfPureWater)
{
    // 0.0550 µS/cm at 25 °C, 0.0116 at 0 °C and 0.785 at 100 °C (Light, Licht, Bevilacqua & Morash 2005).
    Composition pure;
    pure[Species::H] = pure[Species::Oh] = 1.0059e-4;
    EXPECT_NEAR(water::Conductivity(pure, 25.0), 0.0550, 0.0003);
    pure[Species::H] = pure[Species::Oh] = 3.385e-5;
    EXPECT_NEAR(water::Conductivity(pure, 0.0), 0.0116, 0.0003);
    EXPECT_EQ(water::Conductivity(Composition{}, 25.0), 0.0);
}

TEST(Conductivity, ConversionTo25DegreesOfAHardWater)
{
    // Factors κ25/κt of natural waters: ISO 7888:1985, table.
    Composition water;
    water[Species::Ca] = 2.0;
    water[Species::Mg] = 0.5;
    water[Species::Na] = 0.5;
    water[Species::Hco3] = 4.5;
    water[Species::Cl] = 0.5;
    water[Species::So4] = 0.25;
    const double at25 = water::Conductivity(water, 25.0);
    struct Case
    {
        double celsius, factor;
    };
    for (const auto& c : {Case{0, 1.918}, Case{10, 1.428}, Case{15, 1.254}, Case{20, 1.116}})
        EXPECT_NEAR(at25 / water::Conductivity(water, c.celsius), c.factor, 0.013 * c.factor) << c.celsius;
}

TEST(Conductivity, EverySpeciesConductsMoreWhenWarmer)
{
    for (std::size_t i = 0; i < water::kSpeciesCount; ++i) {
        Composition single;
        single.amounts[i] = 1.0;
        const double cold = water::Conductivity(single, 5.0);
        const double warm = water::Conductivity(single, 35.0);
        if (water::kCharges[i] == 0) {
            EXPECT_EQ(warm, 0.0) << water::kSpeciesKeys[i];
            continue;
        }
        // About 2 % a degree for all ions, less for H+ and OH-.
        EXPECT_GT(warm / cold, 1.4) << water::kSpeciesKeys[i];
        EXPECT_LT(warm / cold, 2.4) << water::kSpeciesKeys[i];
    }
}

TEST(Conductivity, IsUnknownBeyondItsRange)
{
    const auto solution = Solution(kNaCl, 10.0);
    for (const double celsius : {-1.0, 101.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_TRUE(std::isnan(water::Conductivity(solution, celsius))) << celsius;
        EXPECT_TRUE(std::isnan(water::OsmoticPressure(solution, celsius))) << celsius;
    }
    EXPECT_TRUE(std::isfinite(water::Conductivity(Solution(kNaCl, 999.0), 25.0)));
    EXPECT_TRUE(std::isnan(water::Conductivity(Solution(kNaCl, 1001.0), 25.0)));
    EXPECT_TRUE(std::isnan(water::OsmoticPressure(Solution(kNaCl, 2001.0), 25.0)));
}

double Free(const water::Speciation& state, Species species)
{
    return state.free[static_cast<std::size_t>(species)];
}

double Paired(const water::Speciation& state, water::IonPair pair)
{
    return state.pairs[static_cast<std::size_t>(pair)];
}

TEST(Speciation, KeepsTheMassBalance)
{
    // From rain to brine, with everything that pairs; at extremes the fixed point converges slowest.
    for (const double scale : {1e-3, 1.0, 10.0, 50.0}) {
        for (const double celsius : {0.0, 25.0, 95.0}) {
            Composition water;
            for (const auto species : {Species::Ca, Species::Mg, Species::Na, Species::K, Species::H,
                                       Species::So4, Species::Hco3, Species::Co3})
                water[species] = scale;
            const auto state = water::Speciate(water, celsius);
            ASSERT_TRUE(state.converged) << scale << " mmol/l, " << celsius;
            using water::IonPair;
            const double calcium = Free(state, Species::Ca) + Paired(state, IonPair::CaSo4) +
                                   Paired(state, IonPair::CaHco3) + Paired(state, IonPair::CaCo3);
            const double sulfate = Free(state, Species::So4) + Paired(state, IonPair::CaSo4) +
                                   Paired(state, IonPair::MgSo4) + Paired(state, IonPair::NaSo4) +
                                   Paired(state, IonPair::KSo4) + Paired(state, IonPair::HSo4);
            EXPECT_NEAR(1e3 * calcium / scale, 1.0, 1e-6);
            EXPECT_NEAR(1e3 * sulfate / scale, 1.0, 1e-6);
            EXPECT_LT(state.ionicStrength, water::IonicStrength(water));
        }
    }
}

TEST(Speciation, PairsAsTheConstantsSay)
{
    // Saturated gypsum, 15.2 mmol/l: about a third of the calcium is paired with sulfate (Nordstrom et al.
    // 1990).
    const auto gypsum = water::Speciate(Solution({"", Species::Ca, 1, Species::So4, 1}, 15.2), 25.0);
    EXPECT_NEAR(1e3 * Paired(gypsum, water::IonPair::CaSo4) / 15.2, 0.32, 0.04);

    // H+ from the pH is the free ion and stays; as an analysed total it is shared with sulfate.
    Composition acid = Solution({"", Species::H, 2, Species::So4, 1}, 5.0);
    EXPECT_LT(Free(water::Speciate(acid, 25.0), Species::H), 0.0095);
    acid.hydrogenIsFree = true;
    const auto state = water::Speciate(acid, 25.0);
    EXPECT_DOUBLE_EQ(Free(state, Species::H), 0.010);
    EXPECT_GT(Paired(state, water::IonPair::HSo4), 0.001);
}

TEST(Conductivity, OfSulfatesIsLoweredByIonPairs)
{
    // Equal amounts once shared with pairs and once as if all ions were free, at the same ionic strength.
    const auto shared = water::Speciate(Solution(kMgSo4, 5.0), 25.0);
    water::Speciation apart;
    apart.converged = true;
    apart.ionicStrength = shared.ionicStrength;
    apart.free[static_cast<std::size_t>(Species::Mg)] = 5e-3;
    apart.free[static_cast<std::size_t>(Species::So4)] = 5e-3;
    EXPECT_GT(water::Conductivity(apart, 25.0) / water::Conductivity(shared, 25.0), 1.2);
}

TEST(OsmoticPressure, AgreesWithMeasuredOsmoticCoefficients)
{
    // Robinson & Stokes 1959, 25 °C, with the molarities that belong to the molalities.
    struct Case
    {
        Salt salt;
        double molPerKilogram, molPerLitre, coefficient, tolerance;
    };
    constexpr Case kCases[]{
        {kNaCl, 0.01, 0.00997, 0.9675, 1.0}, {kNaCl, 0.05, 0.0498, 0.9435, 1.0},
        {kNaCl, 0.1, 0.0995, 0.9324, 1.0},   {kNaCl, 0.2, 0.1987, 0.9245, 1.0},
        {kNaCl, 0.5, 0.4941, 0.9209, 1.0},   {kNaCl, 1.0, 0.9789, 0.9355, 1.0},
        {kKCl, 0.1, 0.0994, 0.9266, 2.0},    {kKCl, 0.5, 0.4917, 0.8993, 2.0},
        {kCaCl2, 0.1, 0.0995, 0.854, 4.0},   {kMgCl2, 0.1, 0.0996, 0.861, 4.5},
        {kNa2So4, 0.1, 0.0996, 0.793, 4.0},  {kMgSo4, 0.1, 0.0997, 0.606, 8.0},
    };
    for (const auto& c : kCases) {
        const double ions = c.molPerKilogram * (c.salt.cations + c.salt.anions);
        const double ideal = ions * 8.31446 * 298.15 * 997.045 * 1e-5;
        ExpectDeviation(fmt::format("osmotic {} {} mol/kg", c.salt.name, c.molPerKilogram),
                        water::OsmoticPressure(Solution(c.salt, 1e3 * c.molPerLitre), 25.0),
                        c.coefficient * ideal, -c.tolerance, c.tolerance);
    }
    Composition silica;
    silica[Species::Sio2] = 1.0;
    EXPECT_NEAR(water::OsmoticPressure(silica, 25.0), 0.02479, 1e-5)
        << "a neutral species follows van 't Hoff";
}

TEST(ShortAnalysis, FindsTheSaltOfATypedConductivity)
{
    for (const double celsius : {0.0, 10.0, 25.0, 60.0}) {
        for (const double conductivity : {1e-6, 0.06, 5.0, 1413.0, 20000.0, 45000.0}) {
            const double meq = water::SodiumChlorideFromConductivity(conductivity, celsius);
            EXPECT_NEAR(water::Conductivity(Solution(kNaCl, meq), celsius) / conductivity, 1.0, 1e-9)
                << conductivity << " µS/cm, " << celsius;
        }
    }
    // 10 mmol/l of NaCl conduct 1185 µS/cm.
    EXPECT_NEAR(water::SodiumChlorideFromConductivity(1185.0, 25.0), 10.0, 0.05);
    EXPECT_EQ(water::SodiumChlorideFromConductivity(0.0, 25.0), 0.0);
    for (const double none : {-1.0, 1e5, 1e300, std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_TRUE(std::isnan(water::SodiumChlorideFromConductivity(none, 25.0))) << none;
    EXPECT_TRUE(std::isnan(water::SodiumChlorideFromConductivity(0.0, std::nan(""))));
    EXPECT_TRUE(std::isnan(water::SodiumChlorideFromConductivity(100.0, 120.0)));

    EXPECT_DOUBLE_EQ(water::SodiumChlorideFromTds(584.4), 10.0);
    EXPECT_TRUE(std::isnan(water::SodiumChlorideFromTds(-1.0)));
    EXPECT_TRUE(std::isnan(water::SodiumChlorideFromTds(std::nan(""))));
}
