// SPDX-License-Identifier: MIT
// Lists and files of the services of data sheets: what they ask for, and what stays when they fail.
#include "tests/gui/network/network_fixture.h"

#include <gmock/gmock.h>

namespace network_test {

namespace {

using NetObjects::DataSheetInfo;
using testing::ElementsAre;
using testing::HasSubstr;

using namespace std::string_literals;
const std::string kPdf = "%PDF-1.4\n\0binary\xff\n%%EOF"s;
constexpr const char* kProducts =
    "<tarnvik-pds-list><sheet prodid='a' language='English'/></tarnvik-pds-list>";
constexpr const char* kSafety =
    "<tarnvik-msds-list><sheet product='a' language='D' address='x/1'/></tarnvik-msds-list>";

class DataSheets : public NetworkTest
{
protected:
    DataSheets()
    {
        m_sheet.productId = "sac gel/1";
        m_sheet.language = "de";
        m_sheet.legalArea = "EU";
        m_sheet.address = wxString::FromUTF8("sheets/17?a=\u00e4");
    }
    /// The path that a request must have beside that of the connection test, and its answer.
    void Serve(const std::map<std::string, LoopbackServer::Handler>& answers)
    {
        m_server = std::make_unique<LoopbackServer>(
            [answers](ServerConnection& connection, const HttpRequest& request) {
                const auto answer = answers.find(request.target);
                if (answer != answers.end())
                    answer->second(connection, request);
                else
                    connection.Answer(request.target == "/connectiontest.html" ? 200 : 400);
            });
        SetTestPage(*m_server);
        for (const auto& [setting, path] : {std::pair(endpoints::kProductSheetList, "/pds/list"),
                                            std::pair(endpoints::kProductSheet, "/pds/get"),
                                            std::pair(endpoints::kSafetySheetList, "/msds/list"),
                                            std::pair(endpoints::kSafetySheet, "/msds/get")})
            SetEndpoint(setting, wxString::FromUTF8(m_server->Url(path)));
        Network::Initialize();
    }
    /// Fields of the form that was asked with last, each as "name=value".
    std::vector<std::string> Form() const
    {
        std::vector<std::string> fields;
        std::string rest = m_server->Requests().back().body;
        const std::string begin = "name=\"";
        for (std::size_t at = rest.find(begin); at != std::string::npos; at = rest.find(begin)) {
            rest.erase(0, at + begin.size());
            const std::size_t value = rest.find("\r\n\r\n");
            fields.push_back(rest.substr(0, rest.find('"')) + "=" +
                             rest.substr(value + 4, rest.find("\r\n", value + 4) - value - 4));
        }
        return fields;
    }

    DataSheetInfo m_sheet;
    std::unique_ptr<LoopbackServer> m_server;
    std::vector<DataSheetInfo> m_pds;
    std::vector<DataSheetInfo> m_msds;
    wxString m_error;
};

TEST_F(DataSheets, AreListedByBothServices)
{
    Serve({{"/pds/list", Answers(200, kProducts)}, {"/msds/list", Answers(200, kSafety)}});
    EXPECT_TRUE(Network::LoadDataSheetLists(m_pds, m_msds, &m_error)) << m_error;
    EXPECT_EQ(m_error, "");
    ASSERT_EQ(m_pds.size(), 1U);
    EXPECT_EQ(m_pds[0].language, "en") << "by the tables of the settings";
    EXPECT_EQ(m_pds[0].status, "unknown");
    ASSERT_EQ(m_msds.size(), 1U);
    EXPECT_EQ(m_msds[0].language, "de");
    EXPECT_EQ(m_server->Requests().size(), 3U) << "the connection is tested once";
}

TEST_F(DataSheets, ListsThatFailLeaveTheOtherOneAndSayWhy)
{
    const struct
    {
        const char* name;
        LoopbackServer::Handler products;
        LoopbackServer::Handler safety;
        const char* error;
    } cases[] = {
        {"no products", Answers(404), Answers(200, kSafety),
         "Product Data Sheet list currently not available. (404)"},
        {"products are no list", Answers(200, "<html/>"), Answers(200, kSafety),
         "Product Data Sheet list invalid."},
        {"no safety", Answers(200, kProducts), Answers(500, kSafety),
         "Material Safety Data Sheet list currently not available. (500)"},
        {"safety is no list", Answers(200, kProducts), Answers(200, "none"),
         "Material Safety Data Sheet list invalid."},
        {"neither", Answers(200, kSafety), Answers(200, kProducts),
         "Product Data Sheet list invalid.\nMaterial Safety Data Sheet list invalid."},
    };
    for (const auto& row : cases) {
        Serve({{"/pds/list", row.products}, {"/msds/list", row.safety}});
        m_pds = m_msds = {m_sheet};
        EXPECT_FALSE(Network::LoadDataSheetLists(m_pds, m_msds, &m_error)) << row.name;
        EXPECT_EQ(m_error, row.error);
        const wxString error = m_error;
        EXPECT_EQ(m_pds[0].productId == m_sheet.productId, error.StartsWith("Product")) << row.name;
        EXPECT_EQ(m_msds[0].productId == m_sheet.productId, error.Contains("Material")) << row.name;
    }
    Network::Initialize();
    SetEndpoint(endpoints::kConnectionTest, "127.0.0.1:" + DeadPort() + "/page");
    EXPECT_FALSE(Network::LoadDataSheetLists(m_pds, m_msds, &m_error));
    EXPECT_EQ(m_error, "No network detected.") << "said once";
}

TEST_F(DataSheets, AreFetchedByFormsIntoTheFolder)
{
    Serve({{"/pds/get", Answers(200, kPdf)}, {"/msds/get", Answers(200, kPdf)}});
    const wxString product = Network::LoadPdsFile(m_sheet, Path("new/folder"), &m_error);
    EXPECT_EQ(m_error, "");
    EXPECT_THAT(Form(), ElementsAre("prodid=sac gel/1", "language=D"));
    EXPECT_EQ(m_server->Requests().back().method, "POST");
    EXPECT_EQ(support::ReadBytes(std::filesystem::path(product.utf8_string())), kPdf);
    EXPECT_TRUE(product.StartsWith(Path("new/folder/pds-sac-gel-1-de-")));
    const wxString safety = Network::LoadMsdsFile(m_sheet, Path("new/folder"), &m_error);
    EXPECT_THAT(Form(), ElementsAre("legalarea=EU", "msdsurl=sheets/17?a=\u00e4"));
    EXPECT_EQ(support::ReadBytes(std::filesystem::path(safety.utf8_string())), kPdf);
    EXPECT_NE(product, safety);
    EXPECT_EQ(std::filesystem::status((m_folder / "new").string()).permissions(),
              std::filesystem::perms::owner_all);
}

TEST_F(DataSheets, ThatAreNoneLeaveWhatWasThere)
{
    const struct
    {
        const char* name;
        LoopbackServer::Handler answer;
        int code;
    } cases[] = {
        {"403", Answers(403, kPdf), 403},
        {"404", Answers(404), 404},
        {"500", Answers(500, "sorry"), 500},
        {"an error document", Answers(200, "<tarnvik-error/>"), 200},
        {"a web page", Answers(200, "<html>log on</html>"), 200},
        {"nothing", Answers(200, ""), 200},
        {"a PDF behind something", Answers(200, " " + kPdf), 200},
        {"reset in the body",
         [](ServerConnection& connection, const HttpRequest&) {
             connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 9000\r\n\r\n" + kPdf);
             connection.Reset();
         },
         200},
        {"endless",
         [](ServerConnection& connection, const HttpRequest&) {
             connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 999999999999\r\n\r\n" + kPdf);
             while (connection.Send(std::string(1 << 20, ' '))) {
             }
         },
         200},
        {"reset at once", [](ServerConnection& connection, const HttpRequest&) { connection.Reset(); }, 0},
    };
    const wxString target = Path("sheet.pdf");
    support::WriteBytes(m_folder / "sheet.pdf", "old");
    for (const auto& [name, answer, code] : cases) {
        Serve({{"/pds/get", answer}, {"/msds/get", answer}});
        EXPECT_FALSE(Network::GetSheetvaultFile("a", "E", target, &m_error)) << name;
        EXPECT_EQ(m_error,
                  wxString::Format(
                      "Morvane Sheetvault error: Product data sheet currently not available. (%d)", code))
            << name;
        EXPECT_FALSE(Network::GetLabhouseFile("EU", "x/1", target, &m_error)) << name;
        EXPECT_EQ(
            m_error,
            wxString::Format(
                "Morvane Labhouse error: Material safety data sheet currently not available. (%d)", code))
            << name;
        EXPECT_EQ(Network::LoadPdsFile(m_sheet, Path("cache"), nullptr), "");
        EXPECT_EQ(Read("sheet.pdf"), "old") << name;
        EXPECT_THAT(Files(), ElementsAre("sheet.pdf")) << name;
    }
}

TEST_F(DataSheets, AFolderThatTakesNoFilesIsNamed)
{
    Serve({{"/pds/get", Answers(200, kPdf)}});
    support::WriteBytes(m_folder / "file", "no folder");
    EXPECT_EQ(Network::LoadPdsFile(m_sheet, Path("file"), &m_error), "");
    EXPECT_THAT(m_error.utf8_string(), HasSubstr("cannot be written."));
    EXPECT_EQ(Network::LoadPdsFile(m_sheet, Path("file/below"), &m_error), "");
    EXPECT_NE(m_error, "");
    EXPECT_THAT(Files(), ElementsAre("file"));
}

}  // namespace

}  // namespace network_test
