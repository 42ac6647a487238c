// SPDX-License-Identifier: MIT
#include "wxcurl/curl_events.h"

wxDEFINE_EVENT(wxCURL_DOWNLOAD_EVENT, wxCurlDownloadEvent);
wxDEFINE_EVENT(wxCURL_END_PERFORM_EVENT, wxCurlEndPerformEvent);

wxCurlDownloadEvent::wxCurlDownloadEvent(int id, std::int64_t done, std::int64_t total, double speed)
    : wxEvent(id, wxCURL_DOWNLOAD_EVENT), m_done(done), m_total(total), m_speed(speed)
{}

wxCurlEndPerformEvent::wxCurlEndPerformEvent(int id, bool success, long responseCode)
    : wxEvent(id, wxCURL_END_PERFORM_EVENT), m_success(success), m_responseCode(responseCode)
{}
