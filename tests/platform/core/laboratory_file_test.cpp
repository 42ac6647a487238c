// SPDX-License-Identifier: MIT
#include "core/laboratory_file.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <ctime>
#include <random>

namespace {

/// "target=number unit;" of every known parameter of a sample.
std::string Describe(const laboratory::File& file, std::size_t sample = 0)
{
    std::string text;
    for (std::size_t i = 0; i < file.parameters.size() && sample < file.samples.size(); ++i) {
        const auto& parameter = file.parameters[i];
        if (parameter.target.empty() || parameter.isText)
            continue;
        const auto number = file.GetNumber(sample, i);
        text += parameter.target + '=' +
                (!number           ? "?"
                 : number->isLimit ? "<" + std::to_string(number->value).substr(0, 4)
                                   : std::to_string(number->value).substr(0, 5)) +
                ' ' + (parameter.unitIsKnown ? parameter.unit : "!" + parameter.unit) + ';';
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
                  "alkalinity.m=100.0 ppm CaCO3;alkalinity.p=5.000 ppm CaCO3;alkalinity.m=1.000 ppm CaCO3;"},
             Case{"what is expressed as something else",
                  "Ca as CaCO3 [mg/l];Alkalinity (as CaCO3) [mg/l];Nitrate as N [mg/l];Nitrat als NO3 "
                  "[mg/l];Alkalinity as HCO3 [mg/l];TOC as C\n1;2;3;4;5;6\n",
                  "ca=1.000 ppm CaCO3;alkalinity.m=2.000 ppm CaCO3;no3=3.000 !mg/l;no3=4.000 "
                  "mg/l;alkalinity.m=5.000 !mg/l;toc=6.000 mg/l;"},
             Case{"hardness",
                  "Gesamth\u00e4rte [\u00b0dH];Total hardness as CaCO3 [mg/l];Hardness, total mmol/l;Total "
                  "Hardness (TH) [gpg];Carbonate hardness [\u00b0dH];Calcium hardness [mg/l];Hardness "
                  "[furlong];TH\n1;2;3;4;0;0;6;7\n",
                  "hardness.measured=1.000 \u00b0d;hardness.measured=2.000 ppm CaCO3;hardness.measured=3.000 "
                  "mmol/l;hardness.measured=4.000 \u00b0a;hardness.measured=6.000 "
                  "!furlong;hardness.measured=7.000 !;"},
             Case{
                 "conductivity at 25 and at 20 degrees",
                 "Conductivity [\u00b5S/cm];Leitf\u00e4higkeit bei 25 \u00b0C in mS/m;EC (25\u00b0C) [mS/cm];"
                 "el. Leitf\u00e4higkeit (20 \u00b0C) [\u00b5S/cm];Conductivity [uS/cm at 20 \u00b0C];"
                 "Conductivity [\u00b5S/cm] (18 \u00b0C);Acid conductivity [\u00b5S/cm]\n1;2;3;4;5;6;7\n",
                 "cond25.measured=1.000 \u00b5S/cm;cond25.measured=2.000 mS/m;cond25.measured=3.000 "
                 "mS/cm;cond25.measured=4.464 \u00b5S/cm;cond25.measured=5.580 "
                 "\u00b5S/cm;cond25.measured=6.000 !\u00b5S/cm;"},
             Case{"the reference beside the unit",
                  "Parameter;Wert;Einheit\nLeitf\u00e4higkeit;500;\u00b5S/cm (25 \u00b0C)\nCa;1;mg/l\n",
                  "cond25.measured=500.0 \u00b5S/cm;ca=1.000 mg/l;"},
             Case{"limits of detection",
                  "Ca [mmol/l];Na [mg/l];K;pH;Temp;Cl\n<0,5;< 1,5;\u2264 2;<4;<5;<-1\n",
                  "ca=<1.00 meq/l;na=<1.50 mg/l;k=<2.00 mg/l;ph=? ;temp=? \u00b0C;cl=? mg/l;"},
             Case{"oil, also in thousandths",
                  "Oil and grease;Mineral\u00f6l [mg/l];Kohlenwasserstoffe [\u00b5g/l];Oil "
                  "[%]\n<0,1;0,2;50;1\n",
                  "oil=<0.10 mg/l;oil=0.200 mg/l;oil=0.050 mg/l;oil=1.000 !%;"},
             Case{"unknown unit", "Ca [furlong],pH\n1,7\n", "ca=1.000 !furlong;ph=7.000 ;"},
             Case{"text in numbers", "Ca [mg/l],Na [mg/l],K [mg/l]\n>0.1,n.d.,\n",
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
                                       {"Oil and grease", "oil"},
                                       {"Oil (mineral)", "oil"},
                                       {"Mineral\u00f6l", "oil"},
                                       {"KOHLENWASSERSTOFFE", "oil"},
                                       {"Hydrocarbures", "oil"},
                                       {"Huile", "oil"},
                                       {"Hydrocarbons", "oil"},
                                       {"Oil temperature", ""},
                                       {"Hydrocarbons, aromatic", ""},
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

TEST(LaboratoryFile, TextsOnlyAreNoAnalysis)
{
    EXPECT_TRUE(laboratory::Read("Name,Place\nA,Rome\n").samples.empty());
    const auto file = laboratory::Read("Well;Probe;Ort;Ca\n1;A; Rome ;2\n");
    EXPECT_EQ(file.GetSampleName(0), "A");
    EXPECT_EQ(file.parameters.at(2).target, "place");
    EXPECT_FALSE(file.hasLimits);
    EXPECT_TRUE(laboratory::Read("Ca\n1\n<2\n").hasLimits);
    EXPECT_FALSE(laboratory::Read("pH;Uranium\n<4;<1\n").hasLimits) << "of no amount that is taken";
}

/// Names as people give them, and as nobody should: what parts cells, what spreadsheets run, what
/// laboratories call their parameters.
std::string AnyText(std::mt19937& random)
{
    static const std::vector<std::string> kParts{
        ";",    ",",    "\"", "\n",          "\r\n", "\t",      "|",      "=1+1", "+",      "-",     "@",
        "'",    " ",    "''", "\r",          "Ca",   "Calcium", "Sodium", "pH",   "ä",      "ß",     "水",
        "<",    "<0.1", "a",  "Well 7",      "",     "1",       "-3.5",   "1,5",  "[mg/l]", "Place", "Na",
        "mg/l", "{",    "\\", "\xef\xbb\xbf"};
    std::string text;
    for (std::size_t parts = random() % 5; parts > 0; --parts)
        text += kParts[random() % kParts.size()];
    return text;
}

TEST(LaboratoryFile, WhatIsWrittenIsReadBackWhateverTheTexts)
{
    for (std::uint32_t seed = 0; seed < 1000; ++seed) {
        std::mt19937 random(seed);
        std::vector<std::vector<laboratory::TitledText>> written(1 + random() % 12);
        for (auto& sample : written)
            sample = {{"Sample", AnyText(random)},
                      {"Place", AnyText(random)},
                      {"Comments", AnyText(random)},
                      {"pH", "7.25"},
                      {"Ca [mg/l]", fmt::format("{}", static_cast<int>(random() % 2000) - 1000.5)}};
        const auto file = laboratory::Read(laboratory::Write(written));
        ASSERT_EQ(file.samples.size(), written.size()) << seed;
        ASSERT_EQ(file.parameters.size(), 5u) << seed;
        for (std::size_t sample = 0; sample < written.size(); ++sample) {
            for (std::size_t text = 0; text < 3; ++text)
                ASSERT_EQ(file.samples[sample][text], written[sample][text].second) << seed;
            ASSERT_EQ(fmt::format("{}", file.GetNumber(sample, 4)->value), written[sample][4].second) << seed;
        }
    }
}

TEST(LaboratoryFile, AHeadIsFoundAboveSamplesThatAreCalledLikeParameters)
{
    std::vector<std::vector<laboratory::TitledText>> written;
    for (const char* name : {"Calcium", "Sodium", "Magnesium", "Chloride", "pH", "Sulfate"})
        written.push_back({{"Sample", name}, {"pH", "7"}, {"Ca [mg/l]", "12.5"}});
    const auto file = laboratory::Read(laboratory::Write(written));
    ASSERT_EQ(file.samples.size(), written.size());
    EXPECT_EQ(Describe(file, 5), "ph=7.000 ;ca=12.50 mg/l;");
    EXPECT_EQ(Describe(laboratory::Read("Calcium;Ca;\nSodium;Na;1,5\nChloride;Cl;2,5\n"), 1),
              "ca=? mg/l;na=1.500 mg/l;cl=2.500 mg/l;")
        << "below each other, though a row may lack its value";
}

TEST(LaboratoryFile, NoSpreadsheetRunsWhatIsWritten)
{
    for (const auto& [text, cell] : {std::pair<std::string, std::string>("=1+1", "'=1+1"),
                                     {"+cmd", "'+cmd"},
                                     {"-cmd", "'-cmd"},
                                     {"@sum", "'@sum"},
                                     {"\tx", "'\tx"},
                                     {"\rx", "'\rx"},
                                     {"'=1", "''=1"},
                                     {"-3.5", "-3.5"},
                                     {"+1e-7", "+1e-7"},
                                     {"'s-Hertogenbosch", "'s-Hertogenbosch"},
                                     {"1=1", "1=1"},
                                     {"", ""}}) {
        EXPECT_EQ(laboratory::GuardFormula(text), cell);
        EXPECT_EQ(laboratory::UnguardFormula(cell), text);
    }
}

TEST(LaboratoryFile, TablesTooLargeAreRefusedWhereTheyAre)
{
    using Kind = delimited::TooLarge::Kind;
    const auto repeat = [](const std::string& text, std::size_t times) {
        std::string all;
        for (std::size_t i = 0; i < times; ++i)
            all += text;
        return all;
    };
    constexpr std::size_t k8MB = 8'000'000;
    const std::string row = repeat("1,", 999) + "1\n";
    struct Case
    {
        const char* what;
        std::string bytes;
        Kind kind;
        std::size_t limit, row, column;
    };
    for (const auto& [what, bytes, kind, limit, inRow, inColumn] :
         {Case{"separators", std::string(k8MB, ','), Kind::Columns, 1'000, 1, 1'001},
          Case{"semicolons behind a head", "Ca;Na\n1;2\n" + std::string(k8MB, ';'), Kind::Columns, 1'000, 3,
               1'001},
          Case{"line breaks", std::string(k8MB, '\n'), Kind::Rows, 100'000, 100'001, 1},
          Case{"lines", repeat("1,2\n", k8MB / 4), Kind::Rows, 100'000, 100'001, 1},
          Case{"cells", repeat(row, 1'001), Kind::Cells, 1'000'000, 1'001, 1}}) {
        const std::clock_t start = std::clock();
        try {
            laboratory::Read(bytes);
            ADD_FAILURE() << what;
        } catch (const delimited::TooLarge& error) {
            EXPECT_EQ(error.GetKind(), kind) << what;
            EXPECT_EQ(error.GetLimit(), limit) << what;
            EXPECT_EQ(error.GetRow(), inRow) << what;
            EXPECT_EQ(error.GetColumn(), inColumn) << what;
        }
        // A tenth of a second in the program itself.
        EXPECT_LT(std::clock() - start, 3 * CLOCKS_PER_SEC) << what;
    }
    // One cell of the whole file's size is neither a number nor a name.
    const std::clock_t start = std::clock();
    for (const char* grown : {"x,", "1,", "1", " ", "\"\"", "(", "as "}) {
        const std::string cell = repeat(grown, 500'000);
        EXPECT_FALSE(laboratory::Read("Ca;pH\n\"" + cell + "\";7").GetNumber(0, 0)) << grown;
        laboratory::Read("Ca;\"" + cell + "\"\npH;7\n");
        laboratory::Read("\"" + cell + "\"");
    }
    EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC);
    EXPECT_EQ(laboratory::Read("Ca\n" + repeat("1\n", 99'999)).samples.size(), 99'999u) << "the most rows";
    const auto wide = laboratory::Read("Ca" + repeat(",x", 999) + "\n" + repeat(row, 998));
    EXPECT_EQ(wide.samples.size(), 998u) << "the most columns, almost the most cells";
}

TEST(LaboratoryFile, ReadingTellsHowFarItIsAndEnds)
{
    std::string bytes = "Ca [mg/l]\n";
    while (bytes.size() < 100'000)
        bytes += "12.5\n";
    std::atomic<double> done = 0.0;
    laboratory::Read(bytes, {.done = &done});
    EXPECT_EQ(done, 1.0);
    std::stop_source stop;
    stop.request_stop();
    done = 0.0;
    EXPECT_THROW(laboratory::Read(bytes, {.stop = stop.get_token(), .done = &done}), WorkCancelled);
    EXPECT_EQ(done, 0.0) << "at once";
}

TEST(DelimitedText, WriterAndReaderAgreeOnTheSeparator)
{
    for (std::uint32_t seed = 0; seed < 1000; ++seed) {
        std::mt19937 random(seed);
        std::vector<delimited::Row> rows(1 + random() % 5, delimited::Row(2 + random() % 4));
        for (auto& row : rows)
            for (std::string& cell : row)
                cell = AnyText(random);
        for (const char separator : delimited::kSeparators) {
            const std::string text = delimited::Write(rows, separator);
            ASSERT_EQ(delimited::FindSeparator(text), separator) << seed << text;
            ASSERT_EQ(delimited::Parse(text, separator), rows) << seed << text;
        }
    }
}

}  // namespace
