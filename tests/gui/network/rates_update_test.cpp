// SPDX-License-Identifier: MIT
// The rates of the user database are renewed by the service as a whole, or stay.
#include "tests/gui/network/network_fixture.h"

#include <gmock/gmock.h>

#include <chrono>
#include <map>

namespace network_test {

namespace {

using Rates = std::map<std::string, double>;
using testing::HasSubstr;

const Rates kOld{{"EUR", 1.0}, {"JPY", 150.0}, {"USD", 1.25}};

Rates Stored()
{
    Rates rates;
    for (const auto& row : ProjectDatabase::GetConversionRates())
        rates[row.currency] = row.rate;
    return rates;
}

std::string Document(const Rates& perDollar)
{
    std::string rows;
    for (const auto& [currency, rate] : perDollar)
        rows += "<UN_OPERATIONAL_RATES><f_curr_code>" + currency + "</f_curr_code><rate>" +
                std::to_string(rate) + "</rate></UN_OPERATIONAL_RATES>";
    return "<UN_OPERATIONAL_RATES_DATASET>" + rows + "</UN_OPERATIONAL_RATES_DATASET>";
}

class RatesUpdate : public NetworkTest
{
protected:
    RatesUpdate() { ProjectDatabase::SetConversionRates(kOld); }

    /// Renews the rates from a service that answers so; whether it said that they were renewed.
    bool Update(const LoopbackServer::Handler& answer)
    {
        const LoopbackServer server([answer](ServerConnection& connection, const HttpRequest& request) {
            if (request.target == "/connectiontest.html")
                connection.Answer(200);
            else
                answer(connection, request);
        });
        SetTestPage(server);
        SetEndpoint(endpoints::kCurrencyRates, wxString::FromUTF8(server.Url("/rates.xml")));
        Network::Initialize();
        const bool isRenewed = Network::UpdateCurrencyConversionRates(&m_error);
        m_requests = server.Requests();
        return isRenewed;
    }

    wxString m_error;
    std::vector<HttpRequest> m_requests;
};

TEST_F(RatesUpdate, StoresAllThatTheServiceHas)
{
    m_error = "old";
    EXPECT_TRUE(Update(Answers(200, Document({{"EUR", 0.8}, {"JPY", 160.0}, {"XAF", 566.5}}))));
    EXPECT_EQ(m_error, "");
    EXPECT_EQ(Stored(), (Rates{{"EUR", 1.0}, {"JPY", 200.0}, {"USD", 1.25}, {"XAF", 708.125}}));
    ASSERT_EQ(m_requests.size(), 2U);
    EXPECT_EQ(m_requests[1].method + " " + m_requests[1].target, "GET /rates.xml");
    EXPECT_EQ(m_requests[1].headers.at("user-agent"), "libcurl-agent/7.50.3");
    EXPECT_TRUE(Update(Answers(200, Document({{"EUR", 0.8}, {"JPY", 160.0}, {"XAF", 566.5}}))));
}

TEST_F(RatesUpdate, NeedsEveryCurrencyThatTheServiceHadBefore)
{
    ProjectDatabase::SetConversionRate("ISK", 140.0);
    EXPECT_FALSE(Update(Answers(200, Document({{"EUR", 0.8}, {"CHF", 0.9}}))));
    EXPECT_EQ(m_error, "Invalid data received from currency server.\nRates are missing: JPY.");
    Rates typed = kOld;
    typed["ISK"] = 140.0;
    EXPECT_EQ(Stored(), typed);
    // A typed rate stays where the service has none, and one that was typed lately is not asked for.
    ProjectDatabase::SetConversionRate("JPY", 155.0);
    EXPECT_TRUE(Update(Answers(200, Document({{"EUR", 0.8}, {"CHF", 0.9}}))));
    EXPECT_EQ(Stored(), (Rates{{"CHF", 1.125}, {"EUR", 1.0}, {"ISK", 140.0}, {"JPY", 155.0}, {"USD", 1.25}}));
    // What is no currency any more goes.
    ProjectDatabase::SetConversionRates({{"EUR", 1.0}, {"DEM", 1.95583}});
    EXPECT_TRUE(Update(Answers(200, Document({{"EUR", 0.8}}))));
    EXPECT_EQ(Stored(), (Rates{{"EUR", 1.0}, {"ISK", 140.0}, {"JPY", 155.0}, {"USD", 1.25}}));
}

TEST_F(RatesUpdate, ThatFailsLeavesTheOldRatesAndSaysWhy)
{
    const char* const failed = "Failed to connect to the currency server.";
    const char* const malformed = "Not well formed response from currency server.";
    const char* const invalid = "Invalid data received from currency server.";
    const std::string good = Document({{"EUR", 0.8}, {"JPY", 160.0}});
    const struct
    {
        const char* name;
        LoopbackServer::Handler answer;
        const char* error;
    } cases[] = {
        {"empty", Answers(200, ""), malformed},
        {"no XML", Answers(200, "{\"EUR\": 0.8}"), malformed},
        {"half a document", Answers(200, good.substr(0, good.size() / 2)), malformed},
        {"an error document", Answers(200, "<tarnvik-error><text>no</text></tarnvik-error>"), invalid},
        {"no euro", Answers(200, Document({{"JPY", 160.0}, {"USD", 1.0}})), invalid},
        {"403", Answers(403, good), failed},
        {"404", Answers(404, good), failed},
        {"500", Answers(500, good), failed},
        {"reset in the body",
         [good](ServerConnection& connection, const HttpRequest&) {
             connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 9000\r\n\r\n" + good);
             connection.Reset();
         },
         failed},
        {"endless",
         [](ServerConnection& connection, const HttpRequest&) {
             connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 999999999999\r\n\r\n");
             while (connection.Send(std::string(1 << 20, ' '))) {
             }
         },
         failed},
    };
    for (const auto& [name, answer, error] : cases) {
        EXPECT_FALSE(Update(answer)) << name;
        EXPECT_EQ(m_error, error) << name;
        EXPECT_EQ(Stored(), kOld) << name;
        EXPECT_FALSE(Network::UpdateCurrencyConversionRates(nullptr)) << "nobody wants to know why";
    }
}

TEST_F(RatesUpdate, ThatStallsEndsByItself)
{
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_FALSE(Update([](ServerConnection& connection, const HttpRequest&) {
        connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 9000\r\n\r\n<UN_OPERATIONAL");
        connection.Wait(60'000);
    }));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(10));
    EXPECT_EQ(m_error, "Failed to connect to the currency server.");
    EXPECT_EQ(Stored(), kOld);
}

TEST_F(RatesUpdate, WithoutAConnectionOrADatabaseSaysSo)
{
    SetEndpoint(endpoints::kConnectionTest, "127.0.0.1:" + DeadPort() + "/connectiontest.html");
    EXPECT_FALSE(Network::UpdateCurrencyConversionRates(&m_error));
    EXPECT_EQ(m_error, "No network detected.");

    std::filesystem::remove(m_folder / "user.db");
    EXPECT_FALSE(Update(Answers(200, Document({{"EUR", 0.8}}))));
    EXPECT_THAT(m_error.utf8_string(), HasSubstr("cannot be used"));
}

}  // namespace

}  // namespace network_test
