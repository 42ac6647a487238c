// SPDX-License-Identifier: MIT
#pragma once

/// What a transfer tells of itself, as events that may come from another thread.

#include "wxcurl/wxcurl_export.h"

#include <wx/event.h>

#include <cstdint>

/// How far a download is.
class WXCURL_EXPORT wxCurlDownloadEvent : public wxEvent
{
public:
    wxCurlDownloadEvent(int id, std::int64_t done, std::int64_t total, double speed);

    std::int64_t GetDownloadedBytes() const { return m_done; }
    /// 0 where the server does not say.
    std::int64_t GetTotalBytes() const { return m_total; }
    double GetSpeed() const { return m_speed; }  ///< bytes a second

    wxEvent* Clone() const override { return new wxCurlDownloadEvent(*this); }

private:
    std::int64_t m_done;
    std::int64_t m_total;
    double m_speed;
};

/// A transfer has ended.
class WXCURL_EXPORT wxCurlEndPerformEvent : public wxEvent
{
public:
    wxCurlEndPerformEvent(int id, bool success, long responseCode);

    bool IsSuccessful() const { return m_success; }
    long GetResponseCode() const { return m_responseCode; }

    wxEvent* Clone() const override { return new wxCurlEndPerformEvent(*this); }

private:
    bool m_success;
    long m_responseCode;
};

wxDECLARE_EXPORTED_EVENT(WXCURL_EXPORT, wxCURL_DOWNLOAD_EVENT, wxCurlDownloadEvent);
wxDECLARE_EXPORTED_EVENT(WXCURL_EXPORT, wxCURL_END_PERFORM_EVENT, wxCurlEndPerformEvent);
