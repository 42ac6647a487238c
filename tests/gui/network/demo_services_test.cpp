// SPDX-License-Identifier: MIT
// The demo services answer everything that the program asks, by its own functions, directly and by their
// proxy.
#include "gui_base/network/update_description.h"
#include "projectbase/security/sha256.h"
#include "tests/gui/network/network_fixture.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <map>
#include <thread>

namespace {

using testing::HasSubstr;

/// The script while this lives; it ends with its input, whatever happens here.
class DemoServices
{
public:
    explicit DemoServices(const std::filesystem::path& folder)
    {
        const std::string output = (folder / "demo.out").string();
        const std::string command =
            "exec python3 -B '" TARNVIK_SOURCE_DIR
            "/scripts/demo_services.py' --port 0 --proxy-port 0 "
            "--proxy-user user --proxy-password sesame --size 300000 --quiet --while-stdin --folder '" +
            (folder / "demo").string() + "' >'" + output + "'";
        m_input = popen(command.c_str(), "w");
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (m_input != nullptr && !ReadOutput(output) && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ~DemoServices()
    {
        if (m_input != nullptr)
            pclose(m_input);
    }
    DemoServices(const DemoServices&) = delete;
    DemoServices& operator=(const DemoServices&) = delete;

    /// Those that the program takes, by name; empty where the script did not start.
    const std::map<std::string, std::string>& Settings() const { return m_settings; }
    wxString ProxyPort() const { return m_proxyPort; }

private:
    bool ReadOutput(const std::string& path)
    {
        std::map<std::string, std::string> settings;
        std::ifstream file(path);
        for (std::string line; std::getline(file, line);) {
            if (line == "# ready") {
                m_settings = settings;
                return true;
            }
            if (line.starts_with("# proxy at "))
                m_proxyPort = wxString(line).AfterLast(':');
            else if (!line.starts_with('#'))
                settings[line.substr(0, line.find('='))] = line.substr(line.find('=') + 1);
        }
        return false;
    }

    FILE* m_input = nullptr;
    std::map<std::string, std::string> m_settings;
    wxString m_proxyPort;
};

class DemoServicesTest : public network_test::NetworkTest
{
protected:
    DemoServicesTest() : m_services(m_folder.Path())
    {
        for (const auto& [name, value] : m_services.Settings())
            EXPECT_TRUE(Settings::SetFromText(name, value)) << name;
    }
    void UseProxy(const wxString& password) const
    {
        ProxyParameters settings;
        settings.useProxy = true;
        settings.sameProxyForAll = true;
        settings.useAuthentication = true;
        settings.httpHost = "127.0.0.1";
        settings.httpPort = m_services.ProxyPort();
        settings.user = "user";
        settings.password = password;
        settings.Save();
    }

    DemoServices m_services;
};

TEST_F(DemoServicesTest, AnswerAllThatTheProgramAsks)
{
    ASSERT_EQ(m_services.Settings().size(), 9U) << "the script did not start";
    for (const bool byProxy : {false, true}) {
        SCOPED_TRACE(byProxy ? "by the proxy" : "directly");
        if (byProxy)
            UseProxy("sesame");
        wxString error;
        EXPECT_TRUE(Network::TestConnection(true, true, &error, false, nullptr, nullptr)) << error;
        const wxString secure = "https://" + endpoints::Get(endpoints::kConnectionTest);
        EXPECT_TRUE(Network::TestConnection(true, true, &error, false, nullptr, &secure)) << error;

        EXPECT_TRUE(Network::UpdateCurrencyConversionRates(&error)) << error;
        EXPECT_GT(ProjectDatabase::GetConversionRates().size(), 30U);

        std::vector<NetObjects::DataSheetInfo> products;
        std::vector<NetObjects::DataSheetInfo> safety;
        EXPECT_TRUE(Network::LoadDataSheetLists(products, safety, &error)) << error;
        ASSERT_GT(products.size(), 10U);
        ASSERT_GT(safety.size(), 10U);
        const wxString sheet = Network::LoadPdsFile(products.front(), Path(""), &error);
        EXPECT_THAT(support::ReadBytes(sheet.utf8_string()), HasSubstr("Product data sheet")) << error;
        const wxString safetySheet = Network::LoadMsdsFile(safety.back(), Path(""), &error);
        EXPECT_THAT(support::ReadBytes(safetySheet.utf8_string()), HasSubstr("Safety data sheet")) << error;

        ASSERT_TRUE(Network::LoadUpdateFile("tarnvik-update.xml", Path("update.xml"), false, nullptr, &error))
            << error;
        const auto update = ReadUpdateDescription(Read("update.xml"));
        ASSERT_TRUE(update);
        EXPECT_TRUE(IsNewerVersion(update->version, "1.0"));
        EXPECT_EQ(update->notes.size(), 2U);
        const wxString setup = Path(update->file);
        ASSERT_EQ(Network::LoadSetupFile(wxString::FromUTF8(update->file), setup, nullptr, &error),
                  wxCTE_NO_ERROR)
            << error;
        EXPECT_EQ(Read(update->file).size(), 300'000U);
        EXPECT_EQ(Sha256OfFile(setup.utf8_string()), update->sha256);
        std::filesystem::remove(setup.utf8_string());
    }
}

TEST_F(DemoServicesTest, RefuseWhatTheyAreToRefuse)
{
    const std::pair<const char*, const char*> refusals[] = {
        {"forbidden.zip", "Access to Tarnvik update site denied."},
        {"nothing.zip", "File not found on Tarnvik update site."},
        {"explained.zip", "File not found on Tarnvik update site."},
        {"excuse.zip", "HTTP error code: 200"},
        {"broken.zip", "Failed to connect to Tarnvik update site."},
    };
    for (const auto& [name, expected] : refusals) {
        wxString error;
        EXPECT_FALSE(Network::LoadUpdateFile(name, Path(name), false, nullptr, &error)) << name;
        EXPECT_EQ(error, expected) << name;
        EXPECT_FALSE(std::filesystem::exists(m_folder / name)) << name;
    }
    NetObjects::DataSheetInfo unknown;
    unknown.productId = "unknown";
    wxString error;
    EXPECT_EQ(Network::LoadPdsFile(unknown, Path(""), &error), "");
    EXPECT_THAT(error.utf8_string(), HasSubstr("(404)"));

    // The proxy takes its own user alone and leads to this machine alone.
    UseProxy("wrong");
    EXPECT_FALSE(Network::TestConnection(true, true, &error, false, nullptr, nullptr));
    UseProxy("sesame");
    const wxString elsewhere = "http://services.tarnvik.invalid/";
    EXPECT_FALSE(Network::TestConnection(true, true, &error, false, nullptr, &elsewhere));
    EXPECT_EQ(error, "Unexpected HTTP error code: 403.");
}

}  // namespace
