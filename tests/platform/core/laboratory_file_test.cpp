// SPDX-License-Identifier: MIT
#include "core/laboratory_file.h"

#include <gtest/gtest.h>

namespace {

/// "target=number unit;" of every known parameter of a sample.
std::string Describe(const laboratory::File& file, std::size_t sample = 0)
{
    std::string text;
    for (std::size_t i = 0; i < file.parameters.size() && sample < file.samples.size(); ++i) {
        const auto& parameter = file.parameters[i];
        if (parameter.target.empty())
            continue;
        const auto number = file.GetNumber(sample, i);
        text += parameter.target + '=' + (number ? std::to_string(*number).substr(0, 5) : "?") + ' ' +
                (parameter.unitIsKnown ? parameter.unit : "!" + parameter.unit) + ';';
    }
    return text;
}

TEST(LaboratoryFile, ReadsWhateverFormTheTableHas)
{
    struct Case
    {
        const char* what;
        std::string bytes;
        const char* expected;
    };
    const std::string plain = "ca=12.50 mg/l;ph=7.200 ;";
    for (const auto& [what, bytes, expected] : {
             Case{"across", "Ca [mg/l],pH\n12.5,7.2\n", plain.c_str()},
             Case{"semicolon, decimal comma", "Calcium (mg/l);pH-Wert\r\n12,5;7,2\r\n", plain.c_str()},
             Case{"tab, quotes", "\"Ca2+ [mg/l]\"\t\"pH\"\n\"12.5\"\t7.2", plain.c_str()},
             Case{"down with units", "Parameter;Unit;Value\nCalcium;mg/l;12.5\npH;-;7.2\n", plain.c_str()},
             Case{"down, value before unit", "Ca;12,5;mg/l\npH;7,2;\nNa;3,25;mg/l\n",
                  "ca=12.50 mg/l;ph=7.200 ;na=3.250 mg/l;"},
             Case{"lines about the laboratory",
                  "Analytica Ltd,,\nReport 4711,,\n,,\nSample,Ca [mg/l],pH\nA,12.5,7.2\n", plain.c_str()},
             Case{"UTF-8 mark",
                  "\xef\xbb\xbf"
                  "Ca [\xc2\xb5g/l];Temp [\xc2\xb0"
                  "C]\n5;20\n",
                  "ca=5.000 ppb;temp=20.00 \u00b0C;"},
             Case{"Latin-1",
                  "Ca [\xb5g/l];Tr\xfc"
                  "bung\n5;2\n",
                  "ca=5.000 ppb;turbidity=2.000 NTU;"},
             Case{"no unit", "Na,Cl\n1,2\n", "na=1.000 mg/l;cl=2.000 mg/l;"},
             Case{"mmol", "Ca mmol/l,SO4 in mmol/l,Na [g/l]\n1.5,2,0.1\n",
                  "ca=3.000 meq/l;so4=4.000 meq/l;na=100.0 mg/l;"},
             Case{"mmol of arsenic, and of what carries no charge",
                  "As(V) [mmol/l],Boron [mmol/l],CO2 in \u00b5mol/l\n2,3,500\n",
                  "as5=6.000 meq/l;b=32.43 mg/l;co2=22.00 mg/l;"},
             Case{
                 "alkalinities",
                 "m-Wert [mmol/l];KS8,2 (mval/l);S\u00e4urekapazit\u00e4t bis pH 4,3 [\u00b0d]\n2,5;-0,3;7\n",
                 "alkalinity.m=2.500 mmol/l;alkalinity.p=-0.30 mmol/l;alkalinity.m=7.000 \u00b0d;"},
             Case{"alkalinity as what it is stated",
                  "Total alkalinity [mg/l CaCO3],p-value [ppm as CaCO3],Alkalinity [mg/l]\n100,5,1\n",
                  "alkalinity.m=100.0 ppm CaCO3;alkalinity.p=5.000 ppm CaCO3;alkalinity.m=1.000 !mg/l;"},
             Case{"unknown unit", "Ca [furlong],pH\n1,7\n", "ca=1.000 !furlong;ph=7.000 ;"},
             Case{"text in numbers", "Ca [mg/l],Na [mg/l],K [mg/l]\n<0.1,n.d.,\n",
                  "ca=? mg/l;na=? mg/l;k=? mg/l;"},
             Case{"grouped thousands", "Na [mg/l];Cl [mg/l]\n1.234,5;12.345,75\n",
                  "na=1234. mg/l;cl=12345 mg/l;"},
         })
        EXPECT_EQ(Describe(laboratory::Read(bytes)), expected) << what;
    std::string wide = "\xff\xfe";
    for (const char c : std::string("Ca [mg/l];pH\n12.5;7.2\n")) {
        wide += c;
        wide += '\0';
    }
    EXPECT_EQ(Describe(laboratory::Read(wide)), plain) << "UTF-16";
}

TEST(LaboratoryFile, NamesOfParameters)
{
    for (const auto& [name, target] : {std::pair("Ca", "ca"),
                                       {"CALCIUM", "ca"},
                                       {"Ca++", "ca"},
                                       {"Ca2+", "ca"},
                                       {"SO42-", "so4"},
                                       {"SO4--", "so4"},
                                       {"HCO3-", "hco3"},
                                       {"Natrium", "na"},
                                       {"Calcium, dissolved", "ca"},
                                       {"Calcium (Ca)", "ca"},
                                       {"Hauption (Na+)", "na"},
                                       {"Fe(II)", "fe2"},
                                       {"Iron", "fe.total"},
                                       {"Kiesels\u00c4ure", "sio2"},
                                       {"pH", "ph"},
                                       {"Uranium", ""},
                                       {"", ""},
                                       {"+", ""}})
        EXPECT_EQ(laboratory::FindTarget(name), target) << name;
}

TEST(LaboratoryFile, UnknownParametersAndSamplesAreKept)
{
    const auto file = laboratory::Read("Sample;Uranium [\u00b5g/l];Ca [mg/l]\nA;1;2\n\n;;\nB;3;4;5\n");
    ASSERT_EQ(file.parameters.size(), 3u);
    EXPECT_EQ(file.parameters[1].title, "Uranium [\u00b5g/l]");
    EXPECT_EQ(file.parameters[1].target, "");
    ASSERT_EQ(file.samples.size(), 2u) << "blank rows are no samples";
    EXPECT_EQ(file.samples[1][0], "B");
    EXPECT_EQ(Describe(file, 1), "ca=4.000 mg/l;");

    for (const char* nothing : {"", "\n", "hello", "x,y\n1,2\n", "\"Ca"})
        EXPECT_TRUE(laboratory::Read(nothing).samples.empty()) << nothing;
    EXPECT_EQ(laboratory::Read("Ca [mg/l]").parameters.size(), 1u) << "one line: heads without a sample";
}

TEST(LaboratoryFile, WhatIsWrittenIsReadBack)
{
    const auto file = laboratory::Read(
        laboratory::Write({{"Ca [mg/l]", "12.5"}, {"Place", "Well \"3\", north"}, {"pH", "7.2"}}));
    EXPECT_EQ(Describe(file), "ca=12.50 mg/l;ph=7.200 ;");
    EXPECT_EQ(file.samples.at(0).at(1), "Well \"3\", north");
}

}  // namespace
