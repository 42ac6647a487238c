// SPDX-License-Identifier: MIT
#include "gui_base/network/network_state.h"

#include "gui_base/messages/user_message.h"
#include "gui_base/network/endpoints.h"
#include "gui_base/network/network_call.h"
#include "gui_base/support/translation.h"

#include <exception>
#include <mutex>
#include <utility>

namespace network_state {

namespace {

struct State
{
    bool connectionVerified = false;
    bool isRunning = false;
    long lastCode = 0;
    std::mutex mutex;
    wxString caBundle;  ///< under the mutex
};

State& TheState()
{
    static State state;
    return state;
}

}  // namespace

void Reset()
{
    TheState().connectionVerified = false;
    TheState().lastCode = 0;
}

bool IsVerified()
{
    return TheState().connectionVerified;
}

void SetVerified(bool isVerified)
{
    TheState().connectionVerified = isVerified;
}

long LastCode()
{
    return TheState().lastCode;
}

void SetLastCode(long code)
{
    TheState().lastCode = code;
}

wxString CaBundle()
{
    const std::lock_guard lock(TheState().mutex);
    return TheState().caBundle;
}

void RenewCaBundle()
{
    const wxString file = endpoints::Get(endpoints::kCaBundle);
    const std::lock_guard lock(TheState().mutex);
    TheState().caBundle = file;
}

ProxyParameters LoadProxyParameters(wxString* error)
{
    try {
        return ProxyParameters::Load();
    } catch (const std::exception& failure) {
        network_call::SetError(
            error, i18n::Translated("The proxy settings cannot be read.") + " " + MessageOf(failure).text);
        return {};
    }
}

bool SaveProxyParameters(const ProxyParameters& parameters, wxString* error)
{
    try {
        parameters.Save();
        return true;
    } catch (const std::exception& failure) {
        network_call::SetError(
            error, i18n::Translated("The proxy settings cannot be stored.") + " " + MessageOf(failure).text);
        return false;
    }
}

Running::Running() : m_isFirst(!std::exchange(TheState().isRunning, true)) {}

Running::~Running()
{
    if (m_isFirst)
        TheState().isRunning = false;
}

}  // namespace network_state
