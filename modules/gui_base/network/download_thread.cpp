// SPDX-License-Identifier: MIT
#include "gui_base/network/download_thread.h"

#include "wxcurl/secrets.h"

#include <wx/log.h>

#include <utility>

wxFileOffset DownloadThreadOutputFilter::GetLength() const
{
    return m_stream == nullptr ? wxInvalidOffset : m_stream->GetLength();
}

bool DownloadThreadOutputFilter::IsOk() const
{
    return m_stream != nullptr && m_stream->IsOk();
}

bool DownloadThreadOutputFilter::Close()
{
    return m_stream != nullptr && m_stream->Close();
}

std::size_t DownloadThreadOutputFilter::OnSysWrite(const void* buffer, std::size_t size)
{
    if (m_owner->IsAskedToStop()) {
        wxLogDebug("[wxCURL] a wxCurlDownloadThread has been aborted - ignore following message:");
        return 0;
    }
    if (m_stream == nullptr)
        return 0;
    // A disk that is full is told by who started the download.
    const wxLogNull quiet;
    m_stream->Write(buffer, size);
    return m_stream->LastWrite();
}

DownloadThread::DownloadThread(wxEvtHandler* handler, int id, const wxString& url, wxOutputStream* out)
    : wxThread(wxTHREAD_JOINABLE), m_handler(handler), m_eventId(id), m_url(url), m_filter(this, out)
{}

DownloadThread::~DownloadThread()
{
    if (!m_isStarted)
        return;
    Forget();
    Cancel();
    Wait();
}

wxCurlThreadError DownloadThread::SetCurlSession(wxCurlBase* session, wxCurlProtocol protocol)
{
    std::unique_ptr<wxCurlBase> taken(session);
    if (m_isStarted)
        return wxCTE_ALREADY_RUNNING;
    if (taken == nullptr)
        return wxCTE_NO_RESOURCE;
    auto* http = dynamic_cast<wxCurlHTTP*>(taken.get());
    if (http == nullptr || (protocol != wxCP_HTTP && protocol != wxCP_HTTPS))
        return wxCTE_INVALID_PROTOCOL;
    m_session.reset(http);
    static_cast<void>(taken.release());
    if (m_session->GetBaseURL().empty())
        m_session->SetBaseURL(m_url);
    return wxCTE_NO_ERROR;
}

wxCurlThreadError DownloadThread::SetOutputStream(wxOutputStream* stream)
{
    if (m_isStarted)
        return wxCTE_ALREADY_RUNNING;
    m_filter.SetStream(stream);
    return m_filter.IsOk() ? wxCTE_NO_ERROR : wxCTE_NO_VALID_STREAM;
}

wxCurlThreadError DownloadThread::SetPartFile(std::unique_ptr<PartFile> file)
{
    const wxCurlThreadError error = SetOutputStream(file->IsOk() ? &file->GetStream() : nullptr);
    if (error != wxCTE_ALREADY_RUNNING)
        m_file = std::move(file);
    return error;
}

std::unique_ptr<PartFile> DownloadThread::TakePartFile()
{
    return std::move(m_file);
}

wxCurlThreadError DownloadThread::Download()
{
    if (m_isStarted)
        return wxCTE_ALREADY_RUNNING;
    if (m_session == nullptr)
        return wxCTE_NO_RESOURCE;
    if (m_session->GetProtocol() == wxCP_INVALID)
        return wxCTE_INVALID_PROTOCOL;
    return m_filter.IsOk() ? StartTransfer() : wxCTE_NO_VALID_STREAM;
}

wxCurlThreadError DownloadThread::Download(const wxString& url)
{
    if (!m_isStarted && m_session != nullptr)
        m_session->SetBaseURL(url);
    return Download();
}

wxCurlThreadError DownloadThread::Download(const wxString& url, wxOutputStream* out)
{
    const wxCurlThreadError error = SetOutputStream(out);
    return error == wxCTE_NO_ERROR ? Download(url) : error;
}

bool DownloadThread::IsOk() const
{
    return m_session != nullptr && m_session->GetProtocol() != wxCP_INVALID && m_filter.IsOk();
}

void DownloadThread::Cancel()
{
    m_isCancelled = true;
    if (m_session != nullptr)
        m_session->Cancel();
}

void DownloadThread::Forget()
{
    m_handler = nullptr;
    if (m_session != nullptr)
        m_session->SetEvtHandler(nullptr);
}

wxCurlThreadError DownloadThread::StartTransfer()
{
    if (Run() != wxTHREAD_NO_ERROR)
        return wxCTE_NO_RESOURCE;
    m_isStarted = true;
    return wxCTE_NO_ERROR;
}

void* DownloadThread::Entry()
{
    if (m_session == nullptr || m_session->GetBaseURL().empty())
        return nullptr;
    wxLogDebug("wxCurlDownloadThread - downloading from %s",
               wxString::FromUTF8(secrets::StrikeOut(m_session->GetBaseURL().utf8_string())));
    const bool isWhole = m_session->LoadFile(m_filter);
    if (IsAskedToStop())
        m_result = wxCTE_ABORTED;
    else
        m_result = isWhole ? wxCTE_NO_ERROR : wxCTE_CURL_ERROR;
    return nullptr;
}
