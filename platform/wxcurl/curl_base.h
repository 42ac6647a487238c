// SPDX-License-Identifier: MIT
#pragma once

/// One transfer over libcurl: where to, by which proxy, under which bounds, and what became of it. An object
/// is used by one thread at a time; only SetEvtHandler and Cancel may come from another one meanwhile.
///
/// Transfers go over http and https alone, follow few redirects, verify certificates, and end when nothing
/// comes any more. The environment has no say in proxies. Protocols hold no credentials. The toolkit has to
/// be initialized, because a transfer asks it whether its thread shall end.

#include "wxcurl/curl_events.h"
#include "wxcurl/wxcurl_export.h"

#include <wx/stream.h>
#include <wx/string.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

enum wxCurlProtocol
{
    wxCP_INVALID = -1,
    wxCP_HTTP,
    wxCP_HTTPS
};

/// What became of a download by a thread.
enum wxCurlThreadError
{
    wxCTE_NO_ERROR,
    wxCTE_NO_RESOURCE,  ///< no thread or no session
    wxCTE_ALREADY_RUNNING,
    wxCTE_INVALID_PROTOCOL,
    wxCTE_NO_VALID_STREAM,
    wxCTE_ABORTED,
    wxCTE_CURL_ERROR
};

/// Bits of wxCurlBase::SetFlags.
enum wxCurlFlag : long
{
    wxCURL_SEND_EVENTS = 2  ///< progress and end
};

/// Bounds of a transfer. Times in milliseconds, sizes in bytes.
struct wxCurlBounds
{
    long connect = 5'000;
    long stall = 5'000;                            ///< the longest time in which (nearly) nothing comes
    std::int64_t answer = std::int64_t{16} << 20;  ///< of an answer that is kept in memory
    long whole = 20'000;                           ///< from begin to end, of an answer that is kept in memory
};

class WXCURL_EXPORT wxCurlBase
{
public:
    explicit wxCurlBase(const wxString& url);
    virtual ~wxCurlBase();
    wxCurlBase(const wxCurlBase&) = delete;
    wxCurlBase& operator=(const wxCurlBase&) = delete;

    /// Connections are kept for further transfers; this closes those that no transfer uses.
    static void CloseIdleConnections();

    const wxString& GetBaseURL() const { return m_url; }
    void SetBaseURL(const wxString& url) { m_url = url; }
    /// Of the address; without a scheme it is HTTP.
    wxCurlProtocol GetProtocol() const;

    void UseProxy(bool use) { m_usesProxy = use; }
    void SetProxyHost(const wxString& host) { m_proxyHost = host; }
    /// 1 to 65535; with another one, or without a host, nothing is sent.
    void SetProxyPort(long port) { m_proxyPort = port; }
    /// With user and password empty, the system's own log-on is used where the proxy takes it.
    void SetProxyUsername(const wxString& user);
    void SetProxyPassword(const wxString& password);
    void SetUserAgent(const wxString& agent) { m_userAgent = agent; }
    /// A file of certificates beside those of the system; empty for none.
    void SetCaBundle(const wxString& file) { m_caBundle = file; }
    void SetBounds(const wxCurlBounds& bounds) { m_bounds = bounds; }

    /// Keeps a protocol of the transfer without credentials.
    void SetVerbose(bool verbose) { m_verbose = verbose; }
    wxString GetVerboseString() const;

    /// Who is told by events while a transfer runs; null for nobody. A handler that goes says so before:
    /// after this call returns, nothing more is sent to the former one.
    void SetEvtHandler(wxEvtHandler* handler, int id = wxID_ANY);
    void SetFlags(long flags) { m_flags = flags; }

    /// Lets the transfer end within 100 ms; any thread. A wxThread that is asked to end cancels its transfer,
    /// too.
    void Cancel() { m_cancelled = true; }
    /// For the thread of the transfer.
    bool IsCancelled() const;

    /// The code of the last answer: that of the proxy where it did not let the transfer through; 0 where
    /// nothing was received, or nothing that can be trusted.
    long GetResponseCode() const { return m_responseCode; }
    /// What libcurl calls what went wrong, and what it says of this case; empty after success.
    wxString GetErrorString() const { return m_error; }
    wxString GetDetailedErrorString() const { return m_detailedError; }

protected:
    /// What a kind of transfer adds to the options that all of them have; `curl` is the handle of libcurl.
    virtual void DoSetOptions(void* curl) = 0;
    /// Frees what DoSetOptions made.
    virtual void DoClearOptions() {}
    /// Runs the transfer; whether an answer came as a whole, whatever its code. `inMemory` bounds its size
    /// and the time of it all.
    bool Perform(wxOutputStream& answer, bool inMemory, long redirects);

private:
    struct Sink;

    bool IsProxyUsable();
    void SetCommonOptions(void* curl, Sink& sink, long redirects);
    void SetProxyOptions(void* curl) const;
    void Judge(void* curl, int result, const Sink& sink);
    void Tell(std::unique_ptr<wxEvent> event) const;
    void TellProgress(std::int64_t done, std::int64_t total, Sink& sink) const;

    wxString m_url;
    bool m_usesProxy = false;
    wxString m_proxyHost;
    long m_proxyPort = 0;
    bool m_hasProxyUser = false;
    wxString m_proxyUser;
    wxString m_proxyPassword;
    wxString m_userAgent;
    wxString m_caBundle;
    wxCurlBounds m_bounds;
    bool m_verbose = false;
    std::string m_protocolText;
    long m_flags = 0;
    mutable std::mutex m_handlerMutex;
    wxEvtHandler* m_handler = nullptr;
    int m_id = wxID_ANY;
    std::atomic<bool> m_cancelled = false;
    long m_responseCode = 0;
    wxString m_error;
    wxString m_detailedError;
};
