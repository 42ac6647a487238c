// SPDX-License-Identifier: MIT
#pragma once

/// A download that goes on beside the window and can be cancelled.

#include "gui_base/gui_base_export.h"
#include "gui_base/network/part_file.h"
#include "wxcurl/curl_http.h"

#include <wx/event.h>
#include <wx/stream.h>
#include <wx/string.h>
#include <wx/thread.h>

#include <atomic>
#include <memory>

class DownloadThread;

/// Stands between a session and the file: when its thread was asked to stop it takes nothing more, which ends
/// the transfer.
class GUI_BASE_EXPORT DownloadThreadOutputFilter : public wxOutputStream
{
public:
    DownloadThreadOutputFilter(DownloadThread* owner, wxOutputStream* stream)
        : m_owner(owner), m_stream(stream)
    {}

    wxFileOffset GetLength() const override;
    bool IsOk() const override;
    bool Close() override;

    void SetStream(wxOutputStream* stream) { m_stream = stream; }
    wxOutputStream* GetRealStream() const { return m_stream; }

protected:
    std::size_t OnSysWrite(const void* buffer, std::size_t size) override;

private:
    DownloadThread* m_owner;
    wxOutputStream* m_stream;  ///< not owned
};

/// Makes one transfer; joinable. Its session tells the handler how far it is by wxCurl's events, the last of
/// which is the end's. An object that goes while it runs cancels the transfer and waits for that.
class GUI_BASE_EXPORT DownloadThread : public wxThread
{
public:
    /// The stream is not taken over; neither is the handler, which may be null and calls Forget before it
    /// goes.
    DownloadThread(wxEvtHandler* handler, int id, const wxString& url = {}, wxOutputStream* out = nullptr);
    ~DownloadThread() override;

    /// Takes the session over, whatever is returned. A session without an address gets that of the thread.
    wxCurlThreadError SetCurlSession(wxCurlBase* session, wxCurlProtocol protocol);
    const wxCurlBase* GetCurlSession() const { return m_session.get(); }
    wxCurlThreadError SetOutputStream(wxOutputStream* stream);
    wxOutputStream* GetOutputStream() const { return m_filter.GetRealStream(); }
    /// Writes into this file, which is the thread's until somebody takes it.
    wxCurlThreadError SetPartFile(std::unique_ptr<PartFile> file);
    std::unique_ptr<PartFile> TakePartFile();

    wxEvtHandler* GetHandler() const { return m_handler; }
    int GetEventId() const { return m_eventId; }

    /// Starts the transfer, once.
    wxCurlThreadError Download();
    wxCurlThreadError Download(const wxString& url);
    wxCurlThreadError Download(const wxString& url, wxOutputStream* out);

    /// Whether there is all that a download needs.
    bool IsOk() const;
    /// Lets the transfer end soon, also while it waits for the server.
    void Cancel();
    bool IsCancelled() const { return m_isCancelled; }
    /// The handler is told nothing more, not even of the end.
    void Forget();
    /// What became of the transfer; after Wait.
    wxCurlThreadError GetResult() const { return m_result; }

protected:
    void* Entry() override;
    wxCurlThreadError StartTransfer();

private:
    friend class DownloadThreadOutputFilter;
    bool IsAskedToStop() { return m_isCancelled || TestDestroy(); }

    wxEvtHandler* m_handler;
    int m_eventId;
    wxString m_url;
    DownloadThreadOutputFilter m_filter;
    std::unique_ptr<PartFile> m_file;
    std::unique_ptr<wxCurlHTTP> m_session;
    bool m_isStarted = false;
    std::atomic<bool> m_isCancelled = false;
    wxCurlThreadError m_result = wxCTE_NO_RESOURCE;
};
