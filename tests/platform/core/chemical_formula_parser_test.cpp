// SPDX-License-Identifier: MIT
#include "core/chemical_formula_parser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <stdexcept>

namespace {

using Kind = FormulaFault::Kind;

const ChemicalFormulaParser& Parser()
{
    static const ChemicalFormulaParser parser = [] {
        std::vector<CompoundElement> elements;
        for (const auto& [symbol, mass] :
             std::initializer_list<std::pair<const char*, double>>{{"H", 1.008},
                                                                   {"C", 12.011},
                                                                   {"N", 14.007},
                                                                   {"O", 15.999},
                                                                   {"Na", 22.990},
                                                                   {"Al", 26.982},
                                                                   {"S", 32.06},
                                                                   {"Cl", 35.45},
                                                                   {"K", 39.098},
                                                                   {"Ca", 40.078},
                                                                   {"Fe", 55.845},
                                                                   {"Co", 58.933},
                                                                   {"Cu", 63.546}}) {
            elements.emplace_back();
            elements.back().symbol = symbol;
            elements.back().atomicMass = mass;
        }
        return ChemicalFormulaParser(elements);
    }();
    return parser;
}

std::string Counts(const std::vector<CompoundElement>& elements)
{
    std::string text;
    for (const CompoundElement& element : elements)
        text += (text.empty() ? "" : " ") + element.symbol + std::to_string(element.count);
    return text;
}

TEST(ChemicalFormulaParser, CountsEachElementOnceInTheOrderOfItsFirstAppearance)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"H2O", "H2 O1"},
        {"Co", "Co1"},
        {"CO", "C1 O1"},
        {"CH3COOH", "C2 H4 O2"},
        {"Fe2(SO4)3", "Fe2 S3 O12"},
        {"Ca(OCl)2", "Ca1 O2 Cl2"},
        {"Al2(SO4(NH4)2)3", "Al2 S3 O12 N6 H24"},
        {"((((H2)2)2)2)2O", "H32 O1"},
        {"(OH)", "O1 H1"},  // a group without a multiplier counts once
        {"CuSO4·5H2O", "Cu1 S1 O9 H10"},
        {"CuSO4*5H2O", "Cu1 S1 O9 H10"},
        {"Al2(SO4)3·18H2O", "Al2 S3 O30 H36"},
        {"Na2CO3·H2O", "Na2 C1 O4 H2"},
        {"(CuSO4·5H2O)2K", "Cu2 S2 O18 H20 K1"},  // what follows a group is no part of its water
        {"NaCl·2H2O·3H2O", "Na1 Cl1 H10 O5"},
        {"SO4^2-", ""},
        {"Na+", ""},
        {"xH2 O", "H2 O1"},
        {"2H2", "H2"},
        {"(H2", "H2"},
        {"H2)3O", "H2 O1"},
        {"XyHXyZz3", "2 H1 3"},
        {"H0O", "H0 O1"},
    };
    for (const auto& [formula, expected] : cases)
        EXPECT_EQ(Counts(Parser().Parse(formula)), expected) << formula;
    EXPECT_TRUE(std::isnan(Parser().Parse("Xy").front().atomicMass));
}

TEST(ChemicalFormulaParser, RefusesCountsThatAreTooLarge)
{
    EXPECT_EQ(Counts(Parser().Parse("H2147483647")), "H2147483647");
    for (const char* formula : {"H2147483648", "H99999999999999999999", "(H2)1073741824", "(O)2147483648",
                                "((H65536)65536)2", "H2147483647H1", "NaCl·2147483648H2O"}) {
        try {
            Parser().Parse(formula);
            ADD_FAILURE() << formula;
        } catch (const std::out_of_range& error) {
            EXPECT_STREQ(error.what(), "stoi argument out of range") << formula;
        }
        const auto faults = Parser().FindFaults(formula);
        ASSERT_EQ(faults.size(), 1U) << formula;
        EXPECT_EQ(faults[0].kind, Kind::Count) << formula;
    }
    EXPECT_EQ(Counts(Parser().Parse("(()2147483647)2147483647O")), "O1") << "nothing is counted";
}

TEST(ChemicalFormulaParser, SaysWhichPartCannotBeRead)
{
    struct Case
    {
        const char* formula;
        std::vector<std::tuple<Kind, std::size_t, std::size_t>> faults;
    };
    const Case cases[] = {
        {"Fe2(SO4)3·9H2O", {}},          {"NaXy2", {{Kind::UnknownElement, 2, 2}}},
        {"caO", {{Kind::Text, 0, 2}}},   {"Na Cl", {{Kind::Text, 2, 1}}},
        {"NaéCl", {{Kind::Text, 2, 2}}}, {"SO4^2-", {{Kind::Text, 3, 2}, {Kind::Charge, 5, 1}}},
        {"Na0", {{Kind::Count, 2, 1}}},  {"(Na", {{Kind::Group, 0, 1}}},
        {"Na)2", {{Kind::Group, 2, 1}}}, {"()2H", {{Kind::Group, 0, 1}, {Kind::Group, 1, 1}}},
        {"Cu·", {{Kind::Text, 2, 2}}},   {"(OH)0", {{Kind::Count, 4, 1}}},
    };
    for (const Case& c : cases) {
        std::vector<std::tuple<Kind, std::size_t, std::size_t>> found;
        for (const FormulaFault& fault : Parser().FindFaults(c.formula))
            found.emplace_back(fault.kind, fault.position, fault.length);
        EXPECT_EQ(found, c.faults) << c.formula;
    }
}

TEST(ChemicalFormulaParser, ReadsHostileFormulasInLinearTime)
{
    const auto repeat = [](const std::string& text, std::size_t times) {
        std::string all;
        for (std::size_t i = 0; i < times; ++i)
            all += text;
        return all;
    };
    const auto seconds = [](const std::string& formula) {
        const auto start = std::chrono::steady_clock::now();
        try {
            Parser().Parse(formula);
        } catch (const std::out_of_range&) {
        }
        Parser().FindFaults(formula);
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    // Nesting, nesting that is never closed, long counts, what defeats a backtracking expression.
    for (const std::string& formula :
         {repeat("(", 50'000) + "H" + repeat(")2", 25'000), repeat("(H", 50'000), repeat("H1", 50'000),
          "H" + repeat("9", 100'000), repeat("(()", 30'000), repeat("\xC2", 100'000), repeat("Aa", 50'000),
          repeat("·2", 30'000)})
        EXPECT_LT(seconds(formula), 2.0) << formula.substr(0, 10);
}

TEST(FormulaValues, FollowFromElementsAndPka)
{
    const auto gypsum = Parser().Parse("CaSO4·2H2O");
    EXPECT_NEAR(formula::MolarMass(gypsum), 172.164, 1e-9);
    EXPECT_NEAR(formula::WeightPercent(gypsum, "Ca"), 23.279, 5e-4);
    EXPECT_NEAR(formula::WeightPercent(gypsum, "O"), 100.0 * 6 * 15.999 / 172.164, 1e-9);
    EXPECT_TRUE(std::isnan(formula::WeightPercent(gypsum, "Na")));
    EXPECT_TRUE(std::isnan(formula::MolarMass(Parser().Parse("NaXy"))));
    EXPECT_TRUE(std::isnan(formula::MolarMass({})));

    const formula::AcidConstants ammonium = formula::ConstantsOfPka(9.25);
    EXPECT_NEAR(ammonium.ka, 5.6234e-10, 1e-14);
    EXPECT_DOUBLE_EQ(ammonium.pKb, 4.75);
    EXPECT_NEAR(ammonium.kb, 1.7783e-5, 1e-9);
    EXPECT_TRUE(std::isnan(formula::ConstantsOfPka(std::nan("")).kb));
}

}  // namespace
