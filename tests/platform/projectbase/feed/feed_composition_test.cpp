// SPDX-License-Identifier: MIT
#include "projectbase/feed/feed_composition.h"

#include "projectbase/feed/compound.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using Unit = FeedComposition::Unit;
using Entry = FeedComposition::CompoundEntry;
using Values = std::array<double, FeedComposition::kUnitCount>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A divalent compound of 40 g/mol in a solution of 1.25 kg/l unless stated otherwise.
FeedComposition Make(double molweight = 40.0, int valency = 2, double density = 1.25)
{
    FeedComposition composition;
    composition.SetDensity(density);
    Entry entry;
    entry.name = "compound";
    entry.molweight = molweight;
    entry.valency = valency;
    composition.Add(entry);
    return composition;
}

void ExpectValues(const FeedComposition::Concentration& block, const Values& expected, const char* what)
{
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (std::isnan(expected[i]))
            EXPECT_TRUE(std::isnan(block.values[i])) << what << " " << FeedComposition::kUnitTexts[i];
        else
            EXPECT_NEAR(block.values[i], expected[i], 1e-12 * std::abs(expected[i]))
                << what << " " << FeedComposition::kUnitTexts[i];
    }
}

//                             mg/l  mmol  meq  mg/kg µeq    ppb   ppt
constexpr Values kTwenty = {20.0, 0.5, 1.0, 16.0, 1000.0, 2e4, 2e7};
const std::pair<Unit, double> kTwentyTyped[] = {{Unit::MgPerLitre, 20.0}, {Unit::MmolPerLitre, 0.5},
                                                {Unit::MeqPerLitre, 1.0}, {Unit::MgPerKg, 16.0},
                                                {Unit::Ppb, 2e4},         {Unit::MicroEqPerLitre, 1000.0},
                                                {Unit::Ppt, 2e7}};

TEST(FeedComposition, DerivesSixUnitsFromAnySeventh)
{
    for (const auto& [unit, typed] : kTwentyTyped) {
        FeedComposition composition = Make();
        composition.SetFeed(0, unit, typed);
        const char* text = FeedComposition::kUnitTexts.at(static_cast<std::size_t>(unit));
        ExpectValues(composition.GetEntries()[0].feed, kTwenty, text);
        composition.SetEffluent(0, unit, typed);
        ExpectValues(composition.GetEntries()[0].effluent, kTwenty, text);
        EXPECT_NEAR(composition.GetFeedTotals()[Unit::Ppb], 2e4, 1e-8) << text;
    }
}

TEST(FeedComposition, KeepsWhatCannotBeDerived)
{
    struct Case
    {
        const char* what;
        double molweight;
        int valency;
        double density;
        std::vector<std::pair<Unit, double>> typed;
        Values expected;
    };
    const Case cases[] = {
        {"mass without molar mass", 0, 2, 1.25, {{Unit::MgPerLitre, 20}}, {20, 0, 0, 16, 0, 2e4, 2e7}},
        {"amounts stay, mass follows them",
         0,
         2,
         1.25,
         {{Unit::MeqPerLitre, 3}, {Unit::Ppb, 2e4}},
         {20, 1.5, 3, 16, 3e3, 2e4, 2e7}},
        {"amount without molar mass", 0, 2, 1.25, {{Unit::MmolPerLitre, 0.5}}, {0, 0.5, 1, 0, 1e3, 0, 0}},
        {"equivalents without valency", 40, 0, 1.25, {{Unit::MeqPerLitre, 1}}, {0, 0, 1, 0, 1e3, 0, 0}},
        {"the amount before stays",
         40,
         0,
         1.25,
         {{Unit::MgPerLitre, 20}, {Unit::MicroEqPerLitre, 1e3}},
         {20, 0.5, 1, 16, 1e3, 2e4, 2e7}},
        {"mass without valency", 40, 0, 1.25, {{Unit::MgPerLitre, 20}}, {20, 0.5, 0, 16, 0, 2e4, 2e7}},
        {"no density", 40, 2, 0, {{Unit::MgPerLitre, 20}}, {20, 0.5, 1, 0, 1e3, 2e4, 2e7}},
        {"per mass without density", 40, 2, 0, {{Unit::MgPerKg, 16}}, {0, 0, 0, 16, 0, 0, 0}},
        {"unknown molar mass",
         kNaN,
         2,
         1.25,
         {{Unit::MeqPerLitre, 1}},
         {kNaN, 0.5, 1, kNaN, 1e3, kNaN, kNaN}},
        {"negative", 40, 2, 1.25, {{Unit::MgPerLitre, -20}}, {-20, -0.5, -1, -16, -1e3, -2e4, -2e7}},
    };
    for (const Case& c : cases) {
        FeedComposition composition = Make(c.molweight, c.valency, c.density);
        for (const auto& [unit, value] : c.typed)
            composition.SetFeed(0, unit, value);
        ExpectValues(composition.GetEntries()[0].feed, c.expected, c.what);
    }
    // To the last bit, where rounding could show.
    FeedComposition composition = Make(0.0, 3);
    composition.SetFeed(0, Unit::MeqPerLitre, 0.7);
    const FeedComposition::Concentration before = composition.GetEntries()[0].feed;
    composition.SetFeed(0, Unit::MgPerLitre, 5.0);
    EXPECT_EQ(composition.GetEntries()[0].feed[Unit::MmolPerLitre], before[Unit::MmolPerLitre]);
    EXPECT_EQ(composition.GetEntries()[0].feed[Unit::MeqPerLitre], 0.7);
}

TEST(FeedComposition, BringsAnEffluentBetweenZeroAndItsFeed)
{
    for (const auto& [unit, typed] : kTwentyTyped) {
        const char* text = FeedComposition::kUnitTexts.at(static_cast<std::size_t>(unit));
        FeedComposition composition = Make();
        composition.SetFeed(0, Unit::MgPerLitre, 20.0);
        composition.SetEffluent(0, unit, typed * 1.5);
        ExpectValues(composition.GetEntries()[0].effluent, kTwenty, text);
        composition.SetEffluent(0, unit, -typed);
        ExpectValues(composition.GetEntries()[0].effluent, {}, text);
        composition.SetEffluent(0, unit, typed / 2);
        EXPECT_NEAR(composition.GetEntries()[0].effluent[Unit::Ppb], 1e4, 1e-8) << text;
        composition.SetEffluent(0, unit, kNaN);
        EXPECT_TRUE(std::isnan(composition.GetEntries()[0].effluent[unit])) << text;

        composition.SetEffluent(0, unit, typed);
        composition.SetFeed(0, unit, typed / 4);
        EXPECT_EQ(composition.GetEntries()[0].effluent[unit], composition.GetEntries()[0].feed[unit]) << text;
    }
    FeedComposition weightless = Make(40.0, 2, 0.0);
    weightless.SetFeed(0, Unit::MgPerKg, 5.0);
    weightless.SetEffluent(0, Unit::MgPerKg, 7.0);
    EXPECT_EQ(weightless.GetEntries()[0].effluent[Unit::MgPerKg], 5.0);
}

TEST(FeedComposition, SumsWhatIsKnownAndFollowsTheDensity)
{
    FeedComposition composition = Make();
    composition.Add(Entry{.name = "second",
                          .formula = {},
                          .ionicCharge = -1,
                          .valency = 1,
                          .molweight = 10.0,
                          .category = {},
                          .feed = {},
                          .effluent = {}});
    composition.SetFeed(0, Unit::MgPerLitre, 20.0);
    composition.SetFeed(1, Unit::MgPerLitre, 5.0);
    EXPECT_DOUBLE_EQ(composition.GetFeedTotals()[Unit::MgPerKg], 20.0);
    EXPECT_DOUBLE_EQ(composition.GetFeedTotals()[Unit::MeqPerLitre], 1.5);
    EXPECT_DOUBLE_EQ(composition.GetFeedTotals().anions, 0.5);
    EXPECT_DOUBLE_EQ(composition.GetFeedTotals().cations, 0.0);
    composition.SetDensity(2.5);
    EXPECT_DOUBLE_EQ(composition.GetFeedTotals()[Unit::MgPerKg], 10.0);
    composition.SetFeed(1, Unit::Ppt, kNaN);
    EXPECT_TRUE(std::isnan(composition.GetFeedTotals()[Unit::MgPerLitre]));
    composition.Remove(1);
    EXPECT_DOUBLE_EQ(composition.GetFeedTotals()[Unit::MgPerLitre], 20.0);
    EXPECT_THROW(composition.Remove(1), std::out_of_range);
    EXPECT_THROW(composition.SetFeed(1, Unit::Ppt, 1.0), std::out_of_range);
    composition.Clear();
    EXPECT_EQ(composition.GetFeedTotals()[Unit::MgPerLitre], 0.0);
}

struct Dissolved
{
    AcidBase kind;
    int charge;
    int valency;
    double pKa;
    double millimoles;
};

FeedComposition Solution(const std::vector<Dissolved>& solutes, double celsius = 25.0)
{
    FeedComposition composition;
    composition.SetMedium({1, {celsius, TemperatureUnit::Celsius}, 1.0});
    for (const Dissolved& solute : solutes) {
        Entry entry;
        entry.acidBase = static_cast<int>(solute.kind);
        entry.ionicCharge = solute.charge;
        entry.valency = solute.valency;
        entry.pKa = solute.pKa;
        entry.molweight = 50.0;
        composition.Add(entry);
        composition.SetFeed(composition.GetEntries().size() - 1, Unit::MmolPerLitre, solute.millimoles);
    }
    return composition;
}

// Closed forms of textbooks with activity coefficients by Davies.
TEST(FeedComposition, FindsThePhOfItsChargeBalance)
{
    using enum AcidBase;
    const Dissolved hcl{StrongAcid, 0, 1, -6.3, 1.0};
    const Dissolved naoh{StrongBase, 0, 1, kNaN, 1.0};
    const std::tuple<const char*, std::vector<Dissolved>, double, double, double> cases[] = {
        {"pure water at 25 °C", {}, 25.0, 6.998, 0.002},
        {"pure water at 60 °C", {}, 60.0, 6.508, 0.003},
        {"hydrochloric acid", {hcl}, 25.0, 3.015, 0.003},
        {"sulfuric acid", {{StrongAcid, 0, 2, -3.0, 0.5}}, 25.0, 3.018, 0.005},
        {"caustic soda", {naoh}, 25.0, 10.979, 0.003},
        {"neutralised", {hcl, naoh}, 25.0, 6.998, 0.002},
        {"acetic acid 0.1 mol/l", {{WeakAcid, 0, 1, 4.756, 100.0}}, 25.0, 2.885, 0.01},
        {"ammonia 0.1 mol/l", {{WeakBase, 0, 1, 9.25, 100.0}}, 25.0, 11.12, 0.01},
        {"half neutralised acetic acid", {{WeakAcid, 0, 1, 4.756, 2.0}, naoh}, 25.0, 4.756, 0.004},
        {"the same from its ions",
         {{WeakAcid, 0, 1, 4.756, 1.0}, {WeakBase, -1, 1, 4.756, 1.0}, {Neutral, 1, 1, kNaN, 1.0}},
         25.0,
         4.756,
         0.004},
        {"ammonium chloride", {{WeakAcid, 1, 1, 9.25, 1.0}, {Neutral, -1, 1, kNaN, 1.0}}, 25.0, 6.13, 0.02},
        {"salt", {{Neutral, 1, 1, kNaN, 10.0}, {Neutral, -1, 1, kNaN, 10.0}}, 25.0, 6.998, 0.003},
        {"sodium and hydroxide ions",
         {{Neutral, 1, 1, kNaN, 1.0}, {StrongBase, -1, 1, kNaN, 1.0}},
         25.0,
         10.979,
         0.003},
        {"hydrogen and chloride ions",
         {{StrongAcid, 1, 1, kNaN, 1.0}, {Neutral, -1, 1, kNaN, 1.0}},
         25.0,
         3.015,
         0.003},
        {"a neutral compound", {{Neutral, 0, 1, kNaN, 5.0}}, 25.0, 6.998, 0.002},
        {"strong acid without its pKa", {{StrongAcid, 0, 1, kNaN, 1.0}}, 25.0, 3.015, 0.003},
        {"weak acid that is not there", {{WeakAcid, 0, 1, kNaN, 0.0}}, 25.0, 6.998, 0.002},
    };
    for (const auto& [what, solutes, celsius, pH, tolerance] : cases)
        EXPECT_NEAR(Solution(solutes, celsius).GetFeedTotals().pH, pH, tolerance) << what;

    const std::pair<const char*, FeedComposition> unsolvable[] = {
        {"a pKa is missing", Solution({{WeakAcid, 0, 1, kNaN, 1.0}})},
        {"an amount is missing", Solution({{StrongAcid, 0, 1, 0.0, kNaN}})},
        {"stronger than any water", Solution({{StrongAcid, 0, 1, 0.0, 1e6}})},
        {"ice", Solution({hcl}, -5.0)},
        {"no temperature", Solution({hcl}, kNaN)},
        {"infinite", Solution({{StrongAcid, 0, 1, 0.0, std::numeric_limits<double>::infinity()}})},
    };
    for (const auto& [what, composition] : unsolvable)
        EXPECT_TRUE(std::isnan(composition.GetFeedTotals().pH)) << what;
}

TEST(FeedComposition, TellsThePhOfEachCompoundAlone)
{
    using enum AcidBase;
    const FeedComposition composition =
        Solution({{StrongAcid, 0, 1, -6.3, 1.0}, {WeakBase, 0, 1, 9.25, 100.0}, {Neutral, 1, 1, kNaN, 1.0}});
    EXPECT_NEAR(composition.GetEntries()[0].feed.pH, 3.015, 0.003);
    EXPECT_NEAR(composition.GetEntries()[1].feed.pH, 11.12, 0.01);
    EXPECT_TRUE(std::isnan(composition.GetEntries()[2].feed.pH));
    EXPECT_NEAR(composition.GetEntries()[0].effluent.pH, 6.998, 0.002);
}

TEST(FeedComposition, StatesWhatAnAdjustedPhCosts)
{
    FeedComposition composition = Solution({{AcidBase::StrongAcid, 0, 1, -6.3, 1.0}});
    EXPECT_NEAR(composition.GetTotalPh(), 3.015, 0.003);
    EXPECT_TRUE(std::isnan(composition.GetFeedTotals().adjustment));
    composition.SetPhAdjusted(true);
    EXPECT_TRUE(std::isnan(composition.GetTotalPh())) << "not stated yet";
    composition.SetStatedPh(6.998);
    EXPECT_EQ(composition.GetTotalPh(), 6.998);
    EXPECT_NEAR(composition.GetFeedTotals().adjustment, 1.0, 1e-3);
    composition.SetStatedPh(2.0);
    EXPECT_LT(composition.GetFeedTotals().adjustment, -9.0);
    composition.SetPhAdjusted(false);
    EXPECT_EQ(composition.GetStatedPh(), 2.0);
    EXPECT_NEAR(composition.GetTotalPh(), 3.015, 0.003);
}

TEST(CompoundModel, DerivesWhatFollowsFromTheFormula)
{
    Compound compound;
    EXPECT_FALSE(compound.IsValid());
    EXPECT_TRUE(std::isnan(compound.GetMolweight()));
    compound.name = "gypsum";
    compound.SetFormula("CaSO4·2H2O");
    EXPECT_TRUE(compound.IsValid());
    EXPECT_EQ(compound.GetBaseElement(), "Ca");
    EXPECT_NEAR(compound.GetMolweight(), 172.164, 2e-3);
    EXPECT_NEAR(compound.GetBaseElementPercent(), 23.28, 0.01);
    EXPECT_EQ(compound.GetBaseOxidationNumbers(), "+2");
    compound.SetBaseElement("S");
    EXPECT_NEAR(compound.GetBaseElementPercent(), 18.62, 0.01);
    compound.SetBaseElement("Na");
    EXPECT_EQ(compound.GetBaseElement(), "S");
    compound.SetFormula("H2O");
    EXPECT_EQ(compound.GetBaseElement(), "H");
    for (const char* bad : {"NaXy", "SO4-", "H99999999999", ""}) {
        compound.SetFormula(bad);
        EXPECT_EQ(compound.IsValid(), *bad != '\0') << bad;
        EXPECT_TRUE(std::isnan(compound.GetMolweight())) << bad;
    }
    compound.SetIonicCharge(-2);
    EXPECT_EQ(compound.GetIonKind(), Compound::IonKind::Anion);
    compound.SetIonKind(Compound::IonKind::Cation);
    EXPECT_EQ(compound.GetIonicCharge(), 2);

    const DBObjects::Compound record{.id = 12,
                                     .baseElement = "P",
                                     .name = "phosphate",
                                     .formula = "PO4",
                                     .pKa = 12.35,
                                     .valency = 3,
                                     .oxidationNrCommon = 5,
                                     .conjugate = 77,
                                     .ionicCharge = -3,
                                     .category = "Anion"};
    const DBObjects::Compound back = Compound(record).ToRecord();
    EXPECT_EQ(back.id, 12);
    EXPECT_EQ(back.conjugate, 77) << "an unknown kind is kept";
    EXPECT_EQ(back.ionicCharge, -3);
    EXPECT_EQ(back.pKa, 12.35);
    EXPECT_TRUE(Compound(record) == Compound(back));
}

}  // namespace
