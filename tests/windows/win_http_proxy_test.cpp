// SPDX-License-Identifier: MIT
// What Windows says of proxies, by the program's own source for Windows: compiled for it and run by wine, in
// a Windows folder of its own that is removed with the test.
#include "tests/support/loopback_server.h"
#include "tests/support/temp_folder.h"

#include <array>
#include <cstdio>

namespace {

using support::HttpRequest;
using support::LoopbackServer;
using support::ServerConnection;

constexpr const char* kScript = R"(
function FindProxyForURL(url, host) {
  if (host == "direct.example") return "DIRECT";
  if (url.substring(0, 6) == "https:") return "PROXY secure.example:8443; DIRECT";
  return "PROXY plain.example:3128";
})";

/// Bits of the Internet settings of Windows.
enum Flags
{
    kDirect = 1,
    kProxies = 2,
    kScripted = 4,
    kDetected = 8
};

class Windows : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_folder = std::make_unique<support::TempFolder>();
        Run("\"" TARNVIK_WINE "\" wineboot -i");
    }
    static void TearDownTestSuite()
    {
        Run("\"" TARNVIK_WINESERVER "\" -k");
        Run("\"" TARNVIK_WINESERVER "\" -w");
        s_folder.reset();
    }

    /// What the program prints, a list in brackets for each address.
    static std::string Lists(int flags, const std::string& proxies, const std::string& script,
                             const std::string& urls)
    {
        return Run("\"" TARNVIK_WINE "\" \"" TARNVIK_WINDOWS_PROGRAM "\" " + std::to_string(flags) + " '" +
                   proxies + "' '<local>' '" + script + "' " + urls);
    }

private:
    static std::string Run(const std::string& command)
    {
        // Neither a display nor what it would ask to be installed.
        const std::string environment =
            "DISPLAY= WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=' WINEPREFIX='" +
            s_folder->Path().string() + "/windows' ";
        FILE* pipe = popen((environment + "timeout 120 " + command + " 2>/dev/null </dev/null").c_str(), "r");
        std::string text;
        std::array<char, 256> bytes{};
        while (std::fgets(bytes.data(), static_cast<int>(bytes.size()), pipe) != nullptr)
            text += bytes.data();
        std::erase(text, '\r');
        const int status = pclose(pipe);
        return status == 0 ? text : "failed with " + std::to_string(status) + "\n" + text;
    }

    static inline std::unique_ptr<support::TempFolder> s_folder;
};

TEST_F(Windows, TheUsersSettingsSayWhichProxyLeadsToAnAddress)
{
    const LoopbackServer network([](ServerConnection& connection, const HttpRequest& request) {
        if (request.target == "/proxy.pac")
            connection.Answer(200, kScript, "Content-Type: application/x-ns-proxy-autoconfig\r\n");
        else
            connection.Answer(404);
    });
    const std::string script = network.Url("/proxy.pac");
    constexpr const char* kBoth = "http://host.example/ https://host.example/";
    constexpr const char* kListed = "http=a.example:1;https=b.example:2";
    struct Case
    {
        const char* what;
        int flags;
        const char* proxies;
        std::string script;
        std::string urls;
        std::string expected;
    };
    const Case cases[] = {
        {"direct", kDirect, "-", "-", kBoth, "[]\n[]\n"},
        {"one proxy", kDirect | kProxies, "c.example:3", "-", kBoth, "[c.example:3]\n[c.example:3]\n"},
        {"a list", kDirect | kProxies, kListed, "-", "http://host.example/",
         std::string("[") + kListed + "]\n"},
        {"a script", kDirect | kScripted, "-", script, std::string(kBoth) + " http://direct.example/",
         "[plain.example:3128]\n[secure.example:8443]\n[]\n"},
        {"a script goes before a list", kProxies | kScripted, kListed, script, "http://host.example/",
         "[plain.example:3128]\n"},
        {"direct by script in spite of a list", kProxies | kScripted, kListed, script,
         "http://direct.example/", "[]\n"},
        {"no script there", kProxies | kScripted, "c.example:3", network.Url("/none.pac"),
         "http://host.example/", "[c.example:3]\n"},
        {"nobody there", kScripted, "-", "http://127.0.0.1:1/proxy.pac", "http://host.example/", "[]\n"},
        {"nothing detected", kProxies | kDetected, "c.example:3", "-", "http://host.example/",
         "[c.example:3]\n"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Lists(c.flags, c.proxies, c.script, c.urls), c.expected) << c.what;
    std::vector<std::string> asked;
    for (const HttpRequest& request : network.Requests())
        asked.push_back(request.target);
    EXPECT_THAT(asked, testing::Contains("/proxy.pac"));
    EXPECT_THAT(asked, testing::Contains("/none.pac"));
}

}  // namespace
