// SPDX-License-Identifier: MIT
#include "gui_base/network/test_connection_thread.h"

#include "gui_base/network/endpoints.h"
#include "gui_base/network/network.h"
#include "gui_base/network/network_state.h"

#include <wx/button.h>
#include <wx/event.h>

namespace {

constexpr int kOk = 200;
constexpr int kProxyWantsUser = 407;

}  // namespace

TestConnectionThread::TestConnectionThread(wxWindow* parent, int id)
    : wxThread(wxTHREAD_JOINABLE), m_parent(parent), m_id(id)
{
    Initialize();
}

TestConnectionThread::~TestConnectionThread()
{
    Forget();
    const bool isAlive = IsAlive();
    if (isAlive)
        Delete();
    // One that never ran is not to be waited for.
    if (isAlive || m_hasRun)
        Wait();
}

void TestConnectionThread::Forget()
{
    const std::lock_guard lock(m_parentMutex);
    m_parent = nullptr;
}

void TestConnectionThread::Initialize()
{
    m_success = false;
    m_settingsChanged = false;
    m_settings = {};
    m_code = 0;
    m_url = endpoints::Get(endpoints::kConnectionTest);
    network_state::RenewCaBundle();
}

int TestConnectionThread::Request(bool useAuth, const wxString& user, const wxString& password)
{
    if (TestDestroy())
        return 0;
    const ProxySettingEntry proxy = m_settings.For(m_url.Lower().StartsWith("https"));
    return Network::TestURL(m_url, proxy.IsFound(), proxy.GetHost(), proxy.GetPort(), useAuth, user, password,
                            false, nullptr);
}

int TestConnectionThread::RequestBySystem()
{
    m_settingsChanged = true;
    m_settings.Adopt(ProxyInfo(SystemProxySettings(), m_url).GetProxySettings());
    // The system's own log-on, if the proxy wants one at all.
    const int code = Request(true, {}, {});
    if (code == kOk && m_settings.useProxy) {
        m_settings.useAuthentication = true;
        m_settings.user.clear();
        m_settings.password.clear();
    }
    return code;
}

void* TestConnectionThread::Entry()
{
    m_hasRun = true;
    m_code = Request(m_settings.useAuthentication, m_settings.user, m_settings.password);
    if (m_code == 0 && !TestDestroy())
        m_code = RequestBySystem();
    if (m_code == kProxyWantsUser && !TestDestroy()) {
        m_settings.useAuthentication = true;
        m_code = Request(true, m_settings.user, m_settings.password);
        m_settingsChanged |= m_code == kOk;
    }
    m_success = m_code == kOk;
    return nullptr;
}

void TestConnectionThread::OnExit()
{
    const std::lock_guard lock(m_parentMutex);
    if (m_parent == nullptr)
        return;
    const wxCommandEvent ended(wxEVT_BUTTON, m_id);
    wxPostEvent(m_parent->GetEventHandler(), ended);
}
