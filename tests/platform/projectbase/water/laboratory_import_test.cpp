// SPDX-License-Identifier: MIT
#include "projectbase/water/laboratory_import.h"

#include "core/ion_table.h"
#include "core/ion_units.h"
#include "tests/support/water_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <random>

using testing_support::WaterUnderTest;

namespace {

using laboratory::LimitReading;

std::vector<water::TakenValue> Take(const laboratory::File& file, WaterUnderTest& water,
                                    std::size_t sample = 0, LimitReading limits = LimitReading::Half)
{
    return water::TakeSample(file, sample, water.Details(), limits);
}

TEST(LaboratoryImport, StoresWhatTheFileStatesAndClearsTheRest)
{
    WaterUnderTest water;
    water.Type("k", 5.0, "meq/l").Set("ph", 6.0).Set("turbidity", 3.0);
    const auto file = laboratory::Read(
        "Ca [mmol/l];Na [mg/l];pH;Temp [\u00b0F];Mg [furlong];Na [mg/l];Cl [mg/l]\n"
        "1,5;2;7,5;50;3;9;-1\n");
    const auto values = Take(file, water);
    ASSERT_EQ(values.size(), 4u) << "not the unknown unit, the second sodium and the negative chloride";
    water::StoreSample(values, water.Details(), LimitReading::Half, false);
    EXPECT_EQ(water["k.orig"], 5.0);
    EXPECT_EQ(water["turbidity"], 3.0);
    water::StoreSample(values, water.Details(), LimitReading::Half, true);
    EXPECT_EQ(water["ca.orig"], 3.0);
    EXPECT_EQ(water.Details().At("liquid/ca.unit").GetStdStringValue(), "meq/l");
    EXPECT_EQ(water["na.orig"], 2.0);
    EXPECT_EQ(water["ph"], 7.5);
    EXPECT_EQ(water["temp.orig"], 50.0);
    EXPECT_EQ(water.Details().At("liquid/temp.unit").GetStdStringValue(), "\u00b0F");
    EXPECT_EQ(water["k.orig"], 0.0);
    EXPECT_TRUE(std::isnan(water["turbidity"]));
}

TEST(LaboratoryImport, AcidCapacityIsGreaterThanTheMValue)
{
    const struct
    {
        const char* head;
        const char* cell;
        double m;  ///< in the unit of the file
    } cases[]{
        {"KS4.3 [mmol/l]", "2.50", 2.45},
        {"KS 4,3 [mmol/l]", "0.03", 0.0},
        {"S\u00e4urekapazit\u00e4t bis pH 4,3 [mmol/l]", "1.00", 0.95},
        {"Acid capacity to pH 4.3 [mg/l CaCO3]", "100", 97.50},
        {"Alkalinity (KS4.3) [mmol/l]", "2.00", 1.95},
        {"KS4.3 [mmol/l]", "-0.5", -0.5},
        {"m-value [mmol/l]", "2.50", 2.50},
        {"Alkalinity [mmol/l]", "2.50", 2.50},
    };
    for (const auto& c : cases) {
        WaterUnderTest water;
        const auto file = laboratory::Read(std::string("pH;") + c.head + ";Temp\n7.5;" + c.cell + ";15\n");
        const auto values = Take(file, water);
        const auto m = std::ranges::find(values, "liquid/alkalinity.m.orig", &water::TakenValue::key);
        ASSERT_NE(m, values.end()) << c.head;
        EXPECT_NEAR(m->value, c.m, 5e-3) << c.head << " " << c.cell;
    }
    WaterUnderTest water;
    const auto base = Take(laboratory::Read("pH;KS8.2 [mmol/l];Temp\n8.5;0.3;15\n"), water);
    EXPECT_EQ(std::ranges::find(base, "liquid/alkalinity.p.orig", &water::TakenValue::key)->value, 0.3);
}

TEST(LaboratoryImport, AlkalinityStandsForBicarbonate)
{
    WaterUnderTest water;
    water.Type("hco3", 5.0, "meq/l").Set("ph", 9.2);
    const auto file = laboratory::Read("pH,Alkalinity [mg/l CaCO3],p-value [mmol/l],Temp\n8.9,103,-0.2,15\n");
    const auto values = Take(file, water);
    ASSERT_EQ(values.size(), 4u);
    water::StoreSample(values, water.Details(), LimitReading::Half, true);
    water.Update();
    EXPECT_EQ(water["hco3.orig"], 0.0);
    EXPECT_EQ(water["alkalinity.p.orig"], -0.2) << "a demand of base";
    EXPECT_NEAR(water["alkalinity.m"], 2.06, 1e-6);
    EXPECT_GT(water["co3.meql"], 0.1);
    WaterUnderTest copy;
    const auto again = laboratory::Read(water::WriteLaboratoryFile({{"Well", water.Details()}}));
    water::StoreSample(Take(again, copy), copy.Details(), LimitReading::Half, true);
    EXPECT_EQ(copy["alkalinity.m.orig"], 103.0);
    EXPECT_EQ(copy.Details().At("liquid/alkalinity.m.unit").GetStdStringValue(), "ppm CaCO3");
    const auto without = laboratory::Read("pH\n7\n");
    water::StoreSample(Take(without, copy), copy.Details(), LimitReading::Half, true);
    EXPECT_EQ(copy["alkalinity.m.orig"], 0.0) << "cleared with the others";
}

TEST(LaboratoryImport, WrittenWatersComeBack)
{
    WaterUnderTest water;
    water.Type("ca", 12.25, "mg/l")
        .Type("hco3", 3.1, "meq/l")
        .Type("so4", 7.0, "\u00b0d")
        .Type("fe2", 0.5, "ppb");
    water.Set("ph", 0.0).Set("temp.orig", 0.0).Set("toc", 2.5).Set("place", "Well, north");
    WaterUnderTest copy;
    const auto file = laboratory::Read(water::WriteLaboratoryFile({{"Well", water.Details()}}));
    water::StoreSample(Take(file, copy), copy.Details(), LimitReading::Half, true);
    for (const char* key : {"ca.orig", "hco3.orig", "so4.orig", "fe2.orig", "ph", "temp.orig", "toc"})
        EXPECT_EQ(copy[key], water[key]) << key;
    EXPECT_EQ(copy.Details().At("liquid/so4.unit").GetStdStringValue(), "\u00b0d");
}

TEST(LaboratoryImport, LimitsOfDetectionCountAsIsChosen)
{
    const auto file = laboratory::Read("Ca [mmol/l];Na;m-value [mmol/l];TOC;pH;Cl\n<0,5;<3;<1;<2;<4;7,5\n");
    for (const auto& [code, share] : {std::pair("ZERO", 0.0), {"HALF", 0.5}, {"LIMIT", 1.0}, {"?", 0.5}}) {
        WaterUnderTest water;
        water.Set("ph", 7.0);
        const auto values = Take(file, water, 0, water::LimitReadingOf(code));
        ASSERT_EQ(values.size(), 5u) << "a pH is no amount";
        for (const auto& value : values)
            EXPECT_EQ(value.isLimit, value.key != "liquid/cl.orig") << value.key;
        water::StoreSample(values, water.Details(), water::LimitReadingOf(code), false);
        water.Update();
        EXPECT_EQ(water["ca.orig"], -1.0) << "1 meq/l, kept as a limit";
        EXPECT_EQ(water["ca.meql"], share);
        EXPECT_EQ(water["na.mgl"], 3.0 * share);
        EXPECT_EQ(water["alkalinity.m.orig"], share) << "may be negative";
        EXPECT_EQ(water["toc"], -2.0);
        EXPECT_EQ(water["ph"], 7.0);
        EXPECT_EQ(water["cl.orig"], 7.5);
    }
    WaterUnderTest water;
    water.Set("limits", "LIMIT");
    water::StoreSample(Take(laboratory::Read("Ca [mg/l];Cl\n40;8\n"), water), water.Details(),
                       LimitReading::Zero, false);
    EXPECT_EQ(water.Details().At("liquid/limits").GetStdStringValue(), "LIMIT")
        << "a sample without limits says nothing of those that were typed";
    for (const LimitReading reading : {LimitReading::Zero, LimitReading::Half, LimitReading::Limit})
        EXPECT_EQ(water::LimitReadingOf(water::CodeOf(reading)), reading);
}

TEST(LaboratoryImport, MeasuredHardnessAndConductivityAreKept)
{
    struct Case
    {
        const char* head;
        double hardness, conductivity;  // meq/l, µS/cm at 25 °C; of 10 each
    };
    for (const auto& [head, hardness, conductivity] :
         {Case{"Total hardness [mmol/l];Conductivity [\u00b5S/cm]", 20.0, 10.0},
          Case{"Gesamth\u00e4rte [\u00b0dH];Leitf\u00e4higkeit [mS/m]", 3.57143, 100.0},
          Case{"Hardness as CaCO3 [mg/l];EC (25 \u00b0C) [mS/cm]", 0.2, 10000.0},
          Case{"GH [meq/l];LF 20 \u00b0C [\u00b5S/cm]", 10.0, 11.16}}) {
        WaterUnderTest water;
        EXPECT_TRUE(std::isnan(water["hardness.measured.orig"]));
        const auto file = laboratory::Read(std::string(head) + "\n10;10\n");
        water::StoreSample(Take(file, water), water.Details(), LimitReading::Half, true);
        water.Update();
        EXPECT_NEAR(water["hardness.measured"], hardness, 1e-9) << head;
        EXPECT_NEAR(water["cond25.measured"], conductivity, 1e-9) << head;
        EXPECT_EQ(water["hardness.total"], 0.0) << "what is calculated stays that";
        const auto again = laboratory::Read(water::WriteLaboratoryFile({{"", water.Details()}}));
        WaterUnderTest copy;
        water::StoreSample(Take(again, copy), copy.Details(), LimitReading::Half, true);
        copy.Update();
        EXPECT_EQ(copy["hardness.measured"], water["hardness.measured"]) << head;
        EXPECT_EQ(copy["cond25.measured"], water["cond25.measured"]) << head;
        const auto without = laboratory::Read("pH\n7\n");
        water::StoreSample(Take(without, water), water.Details(), LimitReading::Half, true);
        EXPECT_TRUE(std::isnan(water["hardness.measured.orig"])) << "cleared with the others";
        EXPECT_TRUE(std::isnan(water["cond25.measured.orig"]));
    }
}

TEST(LaboratoryImport, TextsAreTakenWithTheirCountry)
{
    WaterUnderTest water;
    water.Set("country", "FR").Set("place", "Paris").Set("water.source", "Seine");
    const auto file = laboratory::Read("Probe;Land;Ort;Ca\nA;Germany;;1\nB;Atlantis;Ulm;1\n");
    water::StoreSample(Take(file, water), water.Details(), LimitReading::Half, true);
    const auto text = [&](const char* key) {
        return water.Details().At(std::string("liquid/") + key).GetStdStringValue();
    };
    EXPECT_EQ(text("country") + text("place") + text("water.source"), "DEParisSeine");
    water::StoreSample(Take(file, water, 1), water.Details(), LimitReading::Half, true);
    EXPECT_EQ(text("country") + text("place"), "DEUlm");
    const auto letter = laboratory::Read("Ort;Ca\n" + std::string(10'001, 'x') + ";1\n");
    EXPECT_EQ(Take(letter, water).size(), 1u) << "a text of that length is no place";
}

std::string AnyName(std::mt19937& random)
{
    static const std::vector<std::string> kParts{"Well", ";",  ",",   "\"", "\n", "\t", "|",        "=1+1",
                                                 "+",    "-2", "@",   "'",  " ",  "Ca", "Calcium",  "pH",
                                                 "ü",    "Ö",  "1,5", "<1", "\r", "7",  "Na [mg/l]"};
    std::string name;
    for (std::size_t parts = random() % 4; parts > 0; --parts)
        name += kParts[random() % kParts.size()];
    return name;
}

template <typename Units>
std::string AnyUnit(std::mt19937& random, const Units& units)
{
    return std::string(units[random() % units.size()]);
}

/// A water with whatever an analysis can state.
void TypeAnything(std::mt19937& random, WaterUnderTest& water)
{
    const auto number = [&random] {
        return std::ldexp(static_cast<double>(1 + random() % 1'000'000),
                          static_cast<int>(random() % 80) - 60);
    };
    const auto sometimes = [&random] { return random() % 3 != 0; };
    for (const char* text : {"place", "water.source", "comments", "x1.name", "y2.name"})
        water.Set(text, AnyName(random));
    water.Set("country", sometimes() ? "DE" : "");
    for (const ions::Ion& ion : ions::kIonTable) {
        // H+ and OH- follow from the pH.
        const std::string key = "liquid/" + std::string(ion.key);
        if (ion.spellings.empty() || ion.kind == ions::IonKind::Neutral || !sometimes())
            continue;
        water.Details().At(key + ".orig").SetValue(number());
        water.Details().At(key + ".unit").SetValue(AnyUnit(random, ions::kIonUnits));
    }
    const std::array<std::string, 3> temperatures{"\u00b0C", "\u00b0F", "K"};
    const auto type = [&](const char* key, const std::string& unit, double sign = 1.0) {
        if (sometimes())
            water.Type(key, sign * number(), unit.c_str());
    };
    type("temp", AnyUnit(random, temperatures), random() % 2 == 0 ? 1.0 : -1.0);
    type("alkalinity.m", AnyUnit(random, ions::kAlkalinityUnits), -1.0);
    type("alkalinity.p", AnyUnit(random, ions::kAlkalinityUnits));
    type("hardness.measured", AnyUnit(random, ions::kHardnessUnits));
    type("cond25.measured", AnyUnit(random, ions::kConductivityUnits));
    type("co2", AnyUnit(random, ions::kIonUnits));
    for (const char* key : {"ph", "turbidity", "sdi", "tss", "oil", "toc", "fe.total", "cl.free", "h2s"})
        if (sometimes())
            water.Set(key, random() % 4 == 0 ? 0.0 : number());
}

TEST(LaboratoryImport, WhateverIsExportedComesBack)
{
    for (std::uint32_t seed = 0; seed < 150; ++seed) {
        std::mt19937 random(seed);
        std::deque<WaterUnderTest> waters(1 + random() % 5);
        std::vector<water::NamedWater> named;
        for (WaterUnderTest& water : waters) {
            TypeAnything(random, water);
            named.push_back({AnyName(random), water.Details()});
        }
        const auto file = laboratory::Read(water::WriteLaboratoryFile(named));
        ASSERT_EQ(file.samples.size(), waters.size()) << seed;
        for (std::size_t i = 0; i < waters.size(); ++i) {
            WaterUnderTest copy;
            EXPECT_EQ(file.GetSampleName(i), named[i].name) << seed;
            copy.Set("k.orig", 1.0).Set("toc", 1.0).Set("temp.orig", waters[i]["temp.orig"]);
            water::StoreSample(Take(file, copy, i), copy.Details(), LimitReading::Half, true);
            for (const auto& [key, detail] : waters[i].Details()) {
                // The unit of what is not stated says nothing.
                if (detail.IsDerived() || key.ends_with(".unit"))
                    continue;
                EXPECT_TRUE(detail.HasSameValue(copy.Details().At(key)))
                    << seed << ' ' << key << ' ' << detail.GetValueAsString() << " / "
                    << copy.Details().At(key).GetValueAsString();
                const std::string unit = key.substr(0, key.size() - 5) + ".unit";
                const double number = detail.GetDoubleValue();
                if (!key.ends_with(".orig") || !std::isfinite(number) || number == 0.0)
                    continue;
                EXPECT_EQ(copy.Details().At(unit).GetStdStringValue(),
                          waters[i].Details().At(unit).GetStdStringValue())
                    << seed << ' ' << key;
            }
        }
    }
}

}  // namespace
