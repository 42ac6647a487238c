// SPDX-License-Identifier: MIT
#include "gui_base/network/data_sheet_lists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

using data_sheet_lists::Rewriting;
using data_sheet_lists::Tables;
using NetObjects::DataSheetInfo;

const Tables kTables{.productLanguage = Rewriting(" English = E ;German=D;;=X;Y="),
                     .productIso = Rewriting("en=E;de=D;de-AT=D"),
                     .productStatus = Rewriting("F=final;P=preliminary"),
                     .safetyLanguage = Rewriting("E=en;D=de")};

DataSheetInfo Info(const char* id, const char* language, const char* area = "", const char* address = "")
{
    DataSheetInfo info;
    info.productId = wxString::FromUTF8(id);
    info.language = language;
    info.legalArea = area;
    info.address = wxString::FromUTF8(address);
    return info;
}

TEST(DataSheetLists, OfProductsAreReadAndRewritten)
{
    const auto sheets = data_sheet_lists::ReadProductSheets(
        "<tarnvik-pds-list version=\"1\">"
        "<sheet prodid=\" sac_gel \" status=\"F\" language=\"English\" size=\"12\"/>"
        "<sheet><prodid>a &lt; b</prodid><language>german</language></sheet>"
        "<sheet prodid=\"c\" status=\"draft\" language=\"Norsk\"/>"
        "<sheet prodid=\"\u6c34\" status=\" \" language=\"E\"/>"
        "<sheet status=\"F\" language=\"E\"/>"
        "<other prodid=\"d\"/>"
        "</tarnvik-pds-list>",
        kTables);
    ASSERT_TRUE(sheets.has_value());
    const struct
    {
        const char* id;
        const char* status;
        const char* language;
    } expected[] = {{"sac_gel", "final", "en"},
                    {"a < b", "unknown", "de"},
                    {"c", "draft", "Norsk"},
                    {"\u6c34", "unknown", "en"}};
    ASSERT_EQ(sheets->size(), std::size(expected));
    for (std::size_t i = 0; i < sheets->size(); ++i) {
        EXPECT_EQ(sheets->at(i).productId, wxString::FromUTF8(expected[i].id));
        EXPECT_EQ(sheets->at(i).status, expected[i].status) << expected[i].id;
        EXPECT_EQ(sheets->at(i).language, expected[i].language) << expected[i].id;
    }
}

TEST(DataSheetLists, OfSafetyAreReadAndRewritten)
{
    const auto sheets = data_sheet_lists::ReadSafetySheets(
        "<tarnvik-msds-list>"
        "<sheet product=\"sac_gel\" legalarea=\"EU\" company=\"Morvane\" language=\"D\" "
        "address=\"https://host/s?a=1&amp;b=2\"/>"
        "<sheet product=\"without an address\" legalarea=\"EU\" language=\"D\"/>"
        "<sheet legalarea=\"EU\" language=\"D\" address=\"without a product\"/>"
        "</tarnvik-msds-list>",
        kTables);
    ASSERT_TRUE(sheets.has_value());
    ASSERT_EQ(sheets->size(), 1U);
    EXPECT_EQ(sheets->at(0).productId, "sac_gel");
    EXPECT_EQ(sheets->at(0).legalArea, "EU");
    EXPECT_EQ(sheets->at(0).company, "Morvane");
    EXPECT_EQ(sheets->at(0).language, "de");
    EXPECT_EQ(sheets->at(0).address, "https://host/s?a=1&b=2");
}

TEST(DataSheetLists, ThatAreNoneAreRefusedAndEmptyOnesAreNot)
{
    const std::string pds = "<tarnvik-pds-list><sheet prodid=\"a\"/></tarnvik-pds-list>";
    const std::string msds = "<tarnvik-msds-list/>";
    for (const std::string& bytes : {std::string(), std::string("no list"), std::string("<tarnvik-error/>"),
                                     msds, pds.substr(0, 40), "<!DOCTYPE tarnvik-pds-list>" + pds})
        EXPECT_FALSE(data_sheet_lists::ReadProductSheets(bytes, kTables).has_value()) << bytes;
    EXPECT_FALSE(data_sheet_lists::ReadSafetySheets(pds, kTables).has_value());
    EXPECT_TRUE(data_sheet_lists::ReadSafetySheets(msds, kTables).value().empty());
    EXPECT_EQ(data_sheet_lists::ReadProductSheets(pds, Tables())->size(), 1U);
}

TEST(DataSheetLists, TablesAreReadBothWays)
{
    EXPECT_EQ(kTables.productLanguage.Of("ENGLISH"), "E");
    EXPECT_EQ(kTables.productLanguage.Of("Y"), "Y");
    EXPECT_EQ(kTables.productLanguage.Of(""), "");
    EXPECT_EQ(kTables.productIso.Back("D"), "de");
    EXPECT_EQ(kTables.productIso.Of("fr"), "fr");
    EXPECT_EQ(Rewriting("a=b=c").Of("a"), "b=c");
}

TEST(DataSheetLists, FileNamesStayInTheirFolderAndDiffer)
{
    const DataSheetInfo sheets[] = {
        Info("sac_gel", "en"),
        Info("sac_gel", "de"),
        Info("sac_gel-e", "n"),
        Info("sac", "gel-en"),
        Info("sac-", "x"),
        Info("sac", "-x"),
        Info("../../etc/passwd", "en"),
        Info("..\\..\\windows", "en"),
        Info("/absolute", "en"),
        Info("C:drive", "en"),
        Info("...hidden", "."),
        Info("CON", ""),
        Info("", "en"),
        Info("line\nend\x1b[0m\u202e", "en"),
        Info("\u6c34", "en"),
        Info("\u6c33", "en"),
        Info("a", "en", "EU", "1"),
        Info("a", "en", "US", "1"),
        Info("a", "en", "EU", "2"),
        Info(std::string(100'000, 'x').c_str(), "en"),
        Info((std::string(100'000, 'x') + "y").c_str(), "en"),
    };
    std::set<wxString> products;
    std::set<wxString> safety;
    for (const DataSheetInfo& sheet : sheets) {
        const std::string name = data_sheet_lists::ProductFileName(sheet).utf8_string();
        EXPECT_THAT(name, testing::MatchesRegex("pds-[-a-zA-Z0-9_]*\\.pdf"));
        EXPECT_LE(name.size(), 120U);
        products.insert(name);
        safety.insert(data_sheet_lists::SafetyFileName(sheet));
        EXPECT_THAT(safety.begin()->utf8_string(), testing::MatchesRegex("msds-[-a-zA-Z0-9_]*\\.pdf"));
    }
    EXPECT_EQ(products.size(), std::size(sheets) - 2) << "legal areas are none of products";
    EXPECT_EQ(safety.size(), std::size(sheets));
    EXPECT_TRUE(data_sheet_lists::ProductFileName(sheets[0]).StartsWith("pds-sac_gel-en-"));
}

}  // namespace
