// SPDX-License-Identifier: MIT
#include "wxcurl/curl_base.h"

#include "wxcurl/curl_pool.h"
#include "wxcurl/secrets.h"

#include <wx/thread.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kMostProtocol = std::size_t{256} << 10;
constexpr long kLeastSpeed = 10;      // bytes a second; less counts as nothing
constexpr long kBuffer = 128L << 10;  // fewer writes of a large file than by libcurl's own
constexpr auto kProgressStep = std::chrono::milliseconds(100);

/// Whether this thread was asked to end; the main thread never is.
bool IsThreadStopped()
{
    wxThread* const thread = wxThread::This();
    return thread != nullptr && thread->TestDestroy();
}

std::string Utf8(const wxString& text)
{
    return text.utf8_string();
}

}  // namespace

/// Where the answer of a transfer goes.
struct wxCurlBase::Sink
{
    wxCurlBase& session;
    wxOutputStream& stream;
    std::int64_t most;  ///< negative: no bound
    std::int64_t written = 0;
    bool isTooLong = false;
    Clock::time_point begun = Clock::now();
    Clock::time_point told = {};
    std::array<char, CURL_ERROR_SIZE> detail{};
    /// An answer with a bound until it is over: a stream in memory grows by exactly what it is given, so that
    /// each piece would copy all that came before.
    std::string kept = {};

    bool IsBounded() const { return most >= 0; }
    std::size_t Write(const char* data, std::size_t size)
    {
        isTooLong = IsBounded() && written + static_cast<std::int64_t>(size) > most;
        if (isTooLong || session.IsCancelled())
            return 0;
        std::size_t taken = size;
        if (IsBounded()) {
            kept.append(data, size);
        } else {
            stream.Write(data, size);
            taken = stream.LastWrite();
        }
        written += static_cast<std::int64_t>(taken);
        return taken;
    }
    /// Hands over what was kept, be it all or the beginning.
    bool HandOver() const
    {
        return kept.empty() || stream.Write(kept.data(), kept.size()).LastWrite() == kept.size();
    }
    bool Follow(std::int64_t total, std::int64_t done)
    {
        session.TellProgress(done, total, *this);
        return !session.IsCancelled();
    }
    static std::size_t OnWrite(char* data, std::size_t size, std::size_t count, void* sink)
    {
        return static_cast<Sink*>(sink)->Write(data, size * count);
    }
    static int OnProgress(void* sink, curl_off_t total, curl_off_t done, curl_off_t, curl_off_t)
    {
        return static_cast<Sink*>(sink)->Follow(total, done) ? 0 : 1;
    }
    static int OnTrace(CURL*, curl_infotype kind, char* data, std::size_t size, void* sink)
    {
        std::string& text = static_cast<Sink*>(sink)->session.m_protocolText;
        const char* const mark = kind == CURLINFO_TEXT         ? "* "
                                 : kind == CURLINFO_HEADER_IN  ? "< "
                                 : kind == CURLINFO_HEADER_OUT ? "> "
                                                               : nullptr;
        // Bodies are no matter of a protocol.
        if (mark != nullptr && text.size() + size < kMostProtocol)
            text.append(mark).append(data, size);
        return 0;
    }
};

wxCurlBase::wxCurlBase(const wxString& url) : m_url(url) {}

wxCurlBase::~wxCurlBase() = default;

void wxCurlBase::CloseIdleConnections()
{
    CurlHandle::CloseAll();
}

wxCurlProtocol wxCurlBase::GetProtocol() const
{
    const wxString url = m_url.Lower();
    if (url.StartsWith("https://"))
        return wxCP_HTTPS;
    return url.StartsWith("http://") || url.Find("://") == wxNOT_FOUND ? wxCP_HTTP : wxCP_INVALID;
}

void wxCurlBase::SetProxyUsername(const wxString& user)
{
    m_hasProxyUser = true;
    m_proxyUser = user;
}

void wxCurlBase::SetProxyPassword(const wxString& password)
{
    m_hasProxyUser = true;
    m_proxyPassword = password;
}

bool wxCurlBase::IsCancelled() const
{
    return m_cancelled || IsThreadStopped();
}

wxString wxCurlBase::GetVerboseString() const
{
    return wxString::FromUTF8(secrets::StrikeOut(m_protocolText));
}

void wxCurlBase::SetEvtHandler(wxEvtHandler* handler, int id)
{
    const std::lock_guard lock(m_handlerMutex);
    m_handler = handler;
    m_id = id;
}

void wxCurlBase::Tell(std::unique_ptr<wxEvent> event) const
{
    const std::lock_guard lock(m_handlerMutex);
    if (m_handler == nullptr || (m_flags & wxCURL_SEND_EVENTS) == 0)
        return;
    event->SetId(m_id);
    m_handler->QueueEvent(event.release());
}

void wxCurlBase::TellProgress(std::int64_t done, std::int64_t total, Sink& sink) const
{
    const auto now = Clock::now();
    if (done == 0 || now - sink.told < kProgressStep)
        return;
    sink.told = now;
    const double seconds = std::chrono::duration<double>(now - sink.begun).count();
    Tell(std::make_unique<wxCurlDownloadEvent>(wxID_ANY, done, total,
                                               static_cast<double>(done) / std::max(seconds, 1e-3)));
}

void wxCurlBase::SetCommonOptions(void* curl, Sink& sink, long redirects)
{
    curl_easy_setopt(curl, CURLOPT_URL, Utf8(m_url).c_str());
    // Else the name of the host would decide.
    curl_easy_setopt(curl, CURLOPT_DEFAULT_PROTOCOL, "http");
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_BUFFERSIZE, kBuffer);
    // A name that is still looked up must not hold who cancels.
    curl_easy_setopt(curl, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(curl, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, redirects > 0 ? 1L : 0L);
    curl_easy_setopt(curl, CURLOPT_MAXREDIRS, redirects);
    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT_MS, m_bounds.connect);
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_LIMIT, kLeastSpeed);
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_TIME, std::max(m_bounds.stall / 1000, 1L));
    // One byte now and then is no stall, but it must not hold the window for ever.
    curl_easy_setopt(curl, CURLOPT_TIMEOUT_MS, sink.IsBounded() ? m_bounds.whole : 0L);
    curl_easy_setopt(curl, CURLOPT_USERAGENT, Utf8(m_userAgent).c_str());
    curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, sink.detail.data());
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, &Sink::OnWrite);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, &sink);
    curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, &Sink::OnProgress);
    curl_easy_setopt(curl, CURLOPT_XFERINFODATA, &sink);
    if (!m_caBundle.empty())
        curl_easy_setopt(curl, CURLOPT_CAINFO, Utf8(m_caBundle).c_str());
    if (m_verbose) {
        curl_easy_setopt(curl, CURLOPT_VERBOSE, 1L);
        curl_easy_setopt(curl, CURLOPT_DEBUGFUNCTION, &Sink::OnTrace);
        curl_easy_setopt(curl, CURLOPT_DEBUGDATA, &sink);
    }
    SetProxyOptions(curl);
}

/// Whether the proxy can be one. libcurl would take no host for a direct connection, and its own port for one
/// out of range.
bool wxCurlBase::IsProxyUsable()
{
    if (!m_usesProxy || (!m_proxyHost.empty() && m_proxyPort >= 1 && m_proxyPort <= 65535))
        return true;
    m_error = wxString::FromUTF8(curl_easy_strerror(CURLE_COULDNT_RESOLVE_PROXY));
    m_detailedError =
        m_proxyHost.empty()
            ? wxString("the proxy has no host")
            : wxString::Format("the port of the proxy is %ld and not one of 1 to 65535", m_proxyPort);
    return false;
}

void wxCurlBase::SetProxyOptions(void* curl) const
{
    // Else the environment would decide: an empty proxy is none, an empty list of exceptions has none.
    // An address of IPv6 needs brackets.
    const bool isBare = m_proxyHost.Freq(':') > 1 && !m_proxyHost.StartsWith("[");
    const wxString host = isBare ? "[" + m_proxyHost + "]" : m_proxyHost;
    curl_easy_setopt(curl, CURLOPT_PROXY, m_usesProxy ? Utf8(host).c_str() : "");
    curl_easy_setopt(curl, CURLOPT_NOPROXY, "");
    if (!m_usesProxy)
        return;
    curl_easy_setopt(curl, CURLOPT_PROXYPORT, m_proxyPort);
    if (!m_hasProxyUser)
        return;
    // No name is no name to offer: an empty one would only turn the question for credentials into a refusal.
    const bool isLogOnOfSystem = m_proxyUser.empty() && m_proxyPassword.empty();
    const auto schemes = isLogOnOfSystem ? CURLAUTH_NEGOTIATE | CURLAUTH_NTLM : CURLAUTH_ANY;
    curl_easy_setopt(curl, CURLOPT_PROXYAUTH, static_cast<long>(schemes));
    curl_easy_setopt(curl, CURLOPT_PROXYUSERNAME, Utf8(m_proxyUser).c_str());
    curl_easy_setopt(curl, CURLOPT_PROXYPASSWORD, Utf8(m_proxyPassword).c_str());
}

void wxCurlBase::Judge(void* curl, int result, const Sink& sink)
{
    curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &m_responseCode);
    // A proxy that opens no tunnel has answered all the same; one that opened it has said nothing of what
    // failed in there.
    long tunnel = 0;
    curl_easy_getinfo(curl, CURLINFO_HTTP_CONNECTCODE, &tunnel);
    if (m_responseCode == 0 && tunnel >= 300)
        m_responseCode = tunnel;
    if (result == CURLE_OK)
        return;
    m_error = wxString::FromUTF8(curl_easy_strerror(static_cast<CURLcode>(result)));
    if (sink.isTooLong)
        m_detailedError =
            wxString::Format("the answer has more than %lld bytes", static_cast<long long>(sink.most));
    else
        m_detailedError = wxString::FromUTF8(secrets::StrikeOut(sink.detail.data()));
}

bool wxCurlBase::Perform(wxOutputStream& answer, bool inMemory, long redirects)
{
    m_responseCode = 0;
    m_error.clear();
    m_detailedError.clear();
    m_protocolText.clear();
    const CurlHandle handle;
    int result = CURLE_FAILED_INIT;
    Sink sink{.session = *this, .stream = answer, .most = inMemory ? m_bounds.answer : -1};
    if (!IsProxyUsable()) {
        result = CURLE_COULDNT_RESOLVE_PROXY;
    } else if (handle.Get() != nullptr) {
        SetCommonOptions(handle.Get(), sink, redirects);
        DoSetOptions(handle.Get());
        result = handle.Perform([this] { return !IsCancelled(); });
        if (!sink.HandOver() && result == CURLE_OK)
            result = CURLE_WRITE_ERROR;
        Judge(handle.Get(), result, sink);
        DoClearOptions();
    } else {
        m_error = wxString::FromUTF8(curl_easy_strerror(CURLE_FAILED_INIT));
    }
    Tell(std::make_unique<wxCurlEndPerformEvent>(wxID_ANY, result == CURLE_OK, m_responseCode));
    return result == CURLE_OK;
}
