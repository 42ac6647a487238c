// SPDX-License-Identifier: MIT
#pragma once

/// What the network services know from one call to the next. Internal to them; main thread, unless said
/// otherwise.

#include "gui_base/network/proxy_parameters.h"

#include <wx/string.h>

namespace network_state {

void Reset();

/// Whether the connection was tested and no transfer has failed since.
bool IsVerified();
void SetVerified(bool isVerified);
/// The code of the last answer of the update site.
long LastCode();
void SetLastCode(long code);

/// The certificates of the settings; any thread. They are read anew by RenewCaBundle alone.
wxString CaBundle();
void RenewCaBundle();

/// The proxy settings; those of a direct connection, with a text in `error`, where they cannot be read.
ProxyParameters LoadProxyParameters(wxString* error);
bool SaveProxyParameters(const ProxyParameters& parameters, wxString* error);

/// Holds while a connection test runs, also while it asks the user.
class Running
{
public:
    Running();
    ~Running();
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    bool IsFirst() const { return m_isFirst; }

private:
    bool m_isFirst;
};

}  // namespace network_state
