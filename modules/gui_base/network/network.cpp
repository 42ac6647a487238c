// SPDX-License-Identifier: MIT
#include "gui_base/network/network.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/network/authentication_entry_dialog.h"
#include "gui_base/network/connection_test.h"
#include "gui_base/network/endpoints.h"
#include "gui_base/network/network_call.h"
#include "gui_base/network/network_state.h"
#include "gui_base/network/proxy_parameters.h"
#include "gui_base/support/translation.h"
#include "wxcurl/curl_http.h"

#include <wx/filefn.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/utils.h>

namespace {

constexpr const char* kUserAgent = "libcurl-agent/7.50.3";
constexpr int kRedirects = 5;

std::string TextOf(const wxMemoryOutputStream& stream)
{
    std::string text(stream.GetSize(), '\0');
    stream.CopyTo(text.data(), text.size());
    return text;
}

}  // namespace

// Initialization and what is known of the connection

void Network::Initialize()
{
    network_state::Reset();
    network_state::RenewCaBundle();
}

void Network::Terminate()
{
    network_state::Reset();
    wxCurlBase::CloseIdleConnections();
}

void Network::CheckConnectionReset(int code)
{
    if (code == 0 || code == 407)
        network_state::SetVerified(false);
}

// Settings of a transfer

void Network::SetUserAgent(wxCurlHTTP& session)
{
    session.SetUserAgent(kUserAgent);
    session.SetCaBundle(network_state::CaBundle());
}

bool Network::SetProxyInfo(wxCurlHTTP& session)
{
    const ProxyParameters settings = network_state::LoadProxyParameters(nullptr);
    const ProxySettingEntry proxy = settings.For(session.GetBaseURL().Lower().StartsWith("https"));
    if (!proxy.IsFound())
        return true;
    session.UseProxy(true);
    session.SetProxyHost(proxy.GetHost());
    session.SetProxyPort(ToPort(proxy.GetPort()));
    if (settings.useAuthentication) {
        session.SetProxyUsername(settings.user);
        session.SetProxyPassword(settings.password);
    }
    return true;
}

// Connection test

int Network::TestURL(const wxString& url, bool useProxy, const wxString& host, const wxString& port,
                     bool useAuth, const wxString& user, const wxString& password, bool verbose,
                     wxString* protocolText)
{
    wxCurlHTTP session(url);
    if (useProxy) {
        session.UseProxy(true);
        session.SetProxyHost(host);
        session.SetProxyPort(ToPort(port));
        if (useAuth) {
            session.SetProxyUsername(user);
            session.SetProxyPassword(password);
        }
    }
    SetUserAgent(session);
    if (verbose)
        session.SetVerbose(true);
    wxMemoryOutputStream page;
    session.Get(page, kRedirects);
    const long code = session.GetResponseCode();
    if (verbose && protocolText != nullptr) {
        *protocolText += session.GetVerboseString();
        *protocolText += "\n - cURL Msg detail: " + session.GetDetailedErrorString();
        *protocolText += " - cURL Msg short: " + session.GetErrorString();
    }
    return static_cast<int>(code);
}

bool Network::TestConnection(bool silent, bool force, wxString* error, bool protocol, wxString* protocolText,
                             const wxString* url)
{
    if (!force && network_state::IsVerified())
        return true;
    const network_state::Running running;
    if (!running.IsFirst()) {
        network_call::SetError(error, i18n::Translated("The connection is being tested already."));
        return false;
    }
    const wxBusyCursor busy;
    wxString unread;
    network_state::RenewCaBundle();
    const ProxyParameters settings = network_state::LoadProxyParameters(&unread);
    ConnectionTest test(url != nullptr ? *url : endpoints::Get(endpoints::kConnectionTest), settings,
                        protocol ? protocolText : nullptr);
    const bool isReached = test.Run(silent);
    network_call::SetError(error, isReached ? unread : test.GetError());
    if (!isReached)
        return false;
    if (!force)
        network_state::SetVerified(true);
    // What could not be read is not replaced by what was taken in its place.
    if (test.HasChanged() && unread.empty())
        network_state::SaveProxyParameters(test.GetSettings(), error);
    return true;
}

bool Network::ShowAuthenticationDialog()
{
    wxString unread;
    ProxyParameters settings = network_state::LoadProxyParameters(&unread);
    AuthenticationEntryDialog dialog(dialogs::DefaultParent(), settings.user);
    if (dialog.ShowModal() != wxID_OK)
        return false;
    settings.useAuthentication = true;
    settings.user = dialog.GetUser();
    settings.password = dialog.GetPassword();
    network_state::SetVerified(false);
    return unread.empty() && network_state::SaveProxyParameters(settings, nullptr);
}

// Requests

Network::Answer Network::Ask(const wxString& url, const Form& form, wxString* error)
{
    Answer answer;
    if (!TestConnection(true, false, error, false, nullptr, nullptr))
        return answer;
    const wxBusyCursor busy;
    wxCurlHTTP session(url);
    for (const auto& [name, value] : form)
        session.AddFormField(name, value);
    SetUserAgent(session);
    SetProxyInfo(session);
    wxMemoryOutputStream stream;
    answer.isWhole = form.empty() ? session.Get(stream) : session.Post(stream);
    answer.code = session.GetResponseCode();
    answer.body = TextOf(stream);
    CheckConnectionReset(static_cast<int>(answer.code));
    return answer;
}

bool Network::RemoveFileIfExists(const wxString& path)
{
    const wxLogNull quiet;
    return !wxFileExists(path) || wxRemoveFile(path);
}
