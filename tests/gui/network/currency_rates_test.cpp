// SPDX-License-Identifier: MIT
#include "gui_base/network/currency_rates.h"

#include "tests/support/bounded_work.h"
#include "tests/support/locale_scope.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using currency_rates::Problem;

std::string Row(const std::string& currency, const std::string& rate)
{
    return "<UN_OPERATIONAL_RATES><f_country_name>Land &amp; See</f_country_name><f_curr_code>" + currency +
           "</f_curr_code><rate_date>2026-11-01</rate_date><rate>" + rate +
           "</rate></UN_OPERATIONAL_RATES>\n";
}

std::string Document(const std::string& rows)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<UN_OPERATIONAL_RATES_DATASET>\n" + rows +
           "</UN_OPERATIONAL_RATES_DATASET>\n";
}

const std::string kEuro = Row("EUR", "0.864");

TEST(CurrencyRates, AreConvertedFromTheDollarToTheEuro)
{
    // 1 USD = 0.864 EUR = 152.31 JPY = 0.7983 CHF: 1 EUR = 1.157407... USD = 176.284722... JPY
    const auto answer = currency_rates::Read(Document(Row("USD", "1") + kEuro + Row("JPY", " 152.31\n") +
                                                      Row("CHF", "0.7983") + Row("LBP", "8.95e4")));
    ASSERT_EQ(answer.problem, Problem::None);
    ASSERT_EQ(answer.rates.size(), 5U);
    EXPECT_EQ(answer.rates.at("EUR"), 1.0);
    EXPECT_NEAR(answer.rates.at("USD"), 1.1574074074, 1e-9);
    EXPECT_NEAR(answer.rates.at("JPY"), 176.2847222222, 1e-9);
    EXPECT_NEAR(answer.rates.at("CHF"), 0.9239583333, 1e-9);
    EXPECT_NEAR(answer.rates.at("LBP"), 103587.962963, 1e-5);
    // Fields may also be attributes, and the dollar need not be among the rows.
    const auto attributes = currency_rates::Read(
        "<UN_OPERATIONAL_RATES_DATASET><UN_OPERATIONAL_RATES f_curr_code=\"EUR\" rate=\"0.5\"/>"
        "</UN_OPERATIONAL_RATES_DATASET>");
    ASSERT_EQ(attributes.problem, Problem::None);
    EXPECT_EQ(attributes.rates.at("USD"), 2.0);
}

TEST(CurrencyRates, AreReadWithAPointWhateverTheLocale)
{
    const support::LocaleScope german("de_DE.UTF-8");
    const auto answer = currency_rates::Read(Document(kEuro + Row("JPY", "152.31") + Row("CHF", "0,7983")));
    ASSERT_EQ(answer.problem, Problem::None);
    EXPECT_NEAR(answer.rates.at("JPY"), 176.2847222222, 1e-9);
    EXPECT_FALSE(answer.rates.contains("CHF"));
}

TEST(CurrencyRates, ThatAreNoneOrContradictEachOtherAreLeftOut)
{
    const struct
    {
        const char* what;
        std::string rows;
        bool isThere;
    } cases[] = {
        {"listed for several countries", Row("XAF", "566.5") + Row("XAF", "566.50") + Row("XAF", "566.5"),
         true},
        {"two rates", Row("XAF", "566.5") + Row("XAF", "567.5"), false},
        {"a rate and none", Row("XAF", "566.5") + Row("XAF", ""), false},
        {"none and a rate", Row("XAF", "n/a") + Row("XAF", "566.5"), false},
        {"two rates, then again the first", Row("XAF", "1") + Row("XAF", "2") + Row("XAF", "1"), false},
        {"thousands separated", Row("XAF", "1,566.5"), false},
        {"thousands separated by blanks", Row("XAF", "1 566.5"), false},
        {"zero", Row("XAF", "0"), false},
        {"negative", Row("XAF", "-566.5"), false},
        {"no number", Row("XAF", "nan"), false},
        {"infinite", Row("XAF", "inf"), false},
        {"too large for a number", Row("XAF", "1e999"), false},
        {"absurdly large", Row("XAF", "1e10"), false},
        {"absurdly small", Row("XAF", "1e-9"), false},
        {"hexadecimal", Row("XAF", "0x10"), false},
        {"something behind the number", Row("XAF", "566.5 XAF"), false},
        {"small letters", Row("xaf", "566.5"), false},
        {"row of another name", "<OTHER><f_curr_code>XAF</f_curr_code><rate>566.5</rate></OTHER>", false},
        {"no rate", "<UN_OPERATIONAL_RATES><f_curr_code>XAF</f_curr_code></UN_OPERATIONAL_RATES>", false},
        {"deeper", "<more>" + Row("XAF", "566.5") + "</more>", false},
        {"in a comment", "<!--" + Row("XAF", "566.5") + "-->", false},
        {"sections and references", Row("X&#65;F", "<![CDATA[566.5]]>"), true},
    };
    for (const auto& row : cases) {
        const auto answer = currency_rates::Read(Document(row.rows + kEuro));
        EXPECT_EQ(answer.problem, Problem::None) << row.what;
        EXPECT_EQ(answer.rates.contains("XAF"), row.isThere) << row.what;
        EXPECT_EQ(answer.rates.size(), row.isThere ? 3U : 2U) << row.what;
    }
    EXPECT_EQ(currency_rates::Missing({{"EUR", 1.0}, {"USD", 1.1}}, {"USD", "XAF", "EUR", "CHF"}),
              (std::set<std::string>{"CHF", "XAF"}));
}

TEST(CurrencyRates, OfDocumentsThatAreNoneAreRefused)
{
    const std::string good = Document(kEuro);
    std::string many;
    for (int i = 0; i < 20'001; ++i)
        many += "<other/>";
    std::string fields;
    for (int i = 0; i < 101; ++i)
        fields += "<f/>";
    std::string deep;
    for (int i = 0; i < 200'000; ++i)
        deep += "<d>";
    const struct
    {
        const char* what;
        std::string bytes;
        Problem problem;
    } cases[] = {
        {"empty", "", Problem::NotWellFormed},
        {"text", "Service unavailable", Problem::NotWellFormed},
        {"cut off", good.substr(0, good.size() - 5), Problem::NotWellFormed},
        {"two roots", good + "<more/>", Problem::NotWellFormed},
        {"no UTF-8", Document(kEuro + "\xff"), Problem::NotWellFormed},
        {"a zero", Document(kEuro + std::string(1, '\0')), Problem::NotWellFormed},
        {"an unknown encoding", "<?xml version=\"1.0\" encoding=\"x-none\"?><a/>", Problem::NotWellFormed},
        {"a web page", "<html><body>Log on</body></html>", Problem::Invalid},
        {"an error", "<tarnvik-error code=\"5\"/>", Problem::Invalid},
        {"root in other letters",
         "<un_operational_rates_dataset>" + kEuro + "</un_operational_rates_dataset>", Problem::Invalid},
        {"no rows", Document(""), Problem::Invalid},
        {"no euro", Document(Row("JPY", "152.31")), Problem::Invalid},
        {"euro without a rate", Document(Row("EUR", "") + Row("JPY", "152.31")), Problem::Invalid},
        {"euro of zero", Document(Row("EUR", "0") + Row("JPY", "152.31")), Problem::Invalid},
        {"absurd euro", Document(Row("EUR", "1e-12")), Problem::Invalid},
        {"two rates of the euro", Document(kEuro + Row("EUR", "0.9")), Problem::Invalid},
        {"another base", Document(kEuro + Row("USD", "1.1")), Problem::Invalid},
        {"declarations", "<!DOCTYPE d [<!ENTITY e \"0.5\">]>" + Document(kEuro).substr(39), Problem::Invalid},
        {"a type", "<!DOCTYPE UN_OPERATIONAL_RATES_DATASET SYSTEM \"file:///etc/passwd\">" + good.substr(39),
         Problem::Invalid},
        {"a field twice",
         Document(kEuro.substr(0, kEuro.size() - 24) + "<rate>1</rate></UN_OPERATIONAL_RATES>"),
         Problem::Invalid},
        {"many rows", Document(kEuro + many), Problem::Invalid},
        {"many fields", Document("<UN_OPERATIONAL_RATES>" + fields + "</UN_OPERATIONAL_RATES>" + kEuro),
         Problem::Invalid},
        {"a long field", Document(Row("JPY", "1" + std::string(3'000, '0')) + kEuro), Problem::Invalid},
        {"a long document", Document(kEuro + std::string(std::size_t{9} << 20, ' ')), Problem::Invalid},
        {"a deep document", "<UN_OPERATIONAL_RATES_DATASET>" + deep, Problem::Invalid},
    };
    for (const auto& row : cases) {
        const auto answer = currency_rates::Read(row.bytes);
        EXPECT_EQ(answer.problem, row.problem) << row.what;
        EXPECT_TRUE(answer.rates.empty()) << row.what;
    }
}

TEST(CurrencyRates, TakeLittleWorkToReadOrRefuse)
{
    const std::size_t most = std::size_t{8} << 20;
    const auto filled = [most](const std::string& piece, const std::string& before = {}) {
        std::string bytes = "<UN_OPERATIONAL_RATES_DATASET" + before;
        while (bytes.size() + piece.size() < most)
            bytes += piece;
        return bytes;
    };
    std::string names;
    for (int i = 0; names.size() < most - 100; ++i)
        names += " a" + std::to_string(i) + "=\"\"";
    const std::vector<std::string> documents{
        filled(Row("JPY", "152.31"), ">"),
        filled("<a>", ">"),
        filled("&#65;", "><UN_OPERATIONAL_RATES><rate>"),
        filled("x", "><!--"),
        "<UN_OPERATIONAL_RATES_DATASET" + names + "/>",
    };
    const support::Work work = support::MeasureWork([&] {
        for (const std::string& bytes : documents) {
            if (currency_rates::Read(bytes).problem == Problem::None)
                return false;
        }
        return true;
    });
    EXPECT_TRUE(work.succeeded);
    EXPECT_LT(work.megabytes, 300.0 * support::kSlower);
    EXPECT_LT(work.seconds, 5.0 * support::kSlower);
}

}  // namespace
