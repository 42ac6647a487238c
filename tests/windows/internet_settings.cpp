// SPDX-License-Identifier: MIT
// A program for Windows that sets the current user's Internet settings and says which proxies follow from
// them:
//   internet_settings FLAGS PROXIES EXCEPTIONS SCRIPT URL...
// FLAGS: 1 direct, 2 with PROXIES, 4 by the SCRIPT, 8 detected. "-" stands for nothing. Prints a list of
// proxies in brackets for each address.
#include "gui_base/network/win_http_proxy.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>
#include <windows.h>

namespace {

using Bytes = std::vector<BYTE>;

void Append(Bytes& bytes, DWORD number)
{
    for (int shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<BYTE>(number >> shift));
}

void Append(Bytes& bytes, const std::string& text)
{
    const std::string written = text == "-" ? std::string() : text;
    Append(bytes, static_cast<DWORD>(written.size()));
    bytes.insert(bytes.end(), written.begin(), written.end());
}

/// As the control panel of Windows stores them.
bool Store(DWORD flags, const std::string& proxies, const std::string& exceptions, const std::string& script)
{
    Bytes bytes;
    Append(bytes, 70);  // the version of this format
    Append(bytes, 1);   // how often it was changed
    Append(bytes, flags);
    Append(bytes, proxies);
    Append(bytes, exceptions);
    Append(bytes, script);
    bytes.resize(bytes.size() + 32);
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER,
                        L"Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Connections", 0,
                        nullptr, 0, KEY_WRITE, nullptr, &key, nullptr) != ERROR_SUCCESS)
        return false;
    const bool isStored = RegSetValueExW(key, L"DefaultConnectionSettings", 0, REG_BINARY, bytes.data(),
                                         static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS;
    RegCloseKey(key);
    return isStored;
}

}  // namespace

int main(int count, char** arguments)
{
    if (count < 6 ||
        !Store(static_cast<DWORD>(std::atoi(arguments[1])), arguments[2], arguments[3], arguments[4]))
        return 1;
    for (int i = 5; i < count; ++i) {
        const std::string url = arguments[i];
        const std::wstring list = win_http::ProxyListFor(std::wstring(url.begin(), url.end()));
        std::printf("[%s]\n", std::string(list.begin(), list.end()).c_str());
    }
    return 0;
}
