// SPDX-License-Identifier: MIT
// The update site.
#include "gui_base/network/download_thread.h"
#include "gui_base/network/endpoints.h"
#include "gui_base/network/error_answer.h"
#include "gui_base/network/network.h"
#include "gui_base/network/network_call.h"
#include "gui_base/network/network_state.h"
#include "gui_base/network/part_file.h"
#include "gui_base/support/translation.h"

#include <wx/utils.h>

#include <memory>

namespace {

/// An error answer names itself long before.
constexpr std::size_t kHead = 64 << 10;
constexpr long kPatience = 30'000;  // ms

/// Of the last transfer.
wxString ErrorText(bool isErrorAnswer)
{
    const long code = network_state::LastCode();
    switch (code) {
        case 403:
            return i18n::Translated("Access to Tarnvik update site denied.");
        case 404:
            return i18n::Translated("File not found on Tarnvik update site.");
        case 407:
            return _(
                "The proxy server asks for a user ID and a password. Enter them under Tools, Connection.");
        default:
            if (isErrorAnswer)
                return i18n::Translated("HTTP error code") + wxString::Format(": %d", static_cast<int>(code));
            return i18n::Translated("Failed to connect to Tarnvik update site.");
    }
}

/// Makes the target of what came, or says why not.
bool Finish(PartFile& file, bool isWhole, long code, wxString* error)
{
    network_state::SetLastCode(code);
    Network::CheckConnectionReset(static_cast<int>(code));
    wxString text;
    const bool isErrorAnswer = IsErrorAnswer(file.GetHead(kHead));
    if (!file.IsOk())
        text = network_call::WriteError(file.GetTarget());
    else if (!isWhole || code != 200 || isErrorAnswer)
        text = ErrorText(isErrorAnswer);
    else if (!file.Commit())
        text = network_call::WriteError(file.GetTarget());
    network_call::SetError(error, text);
    return text.empty();
}

}  // namespace

wxCurlThreadError Network::LoadSiteFile(const char* endpoint, const wxString& file, const wxString& target,
                                        bool silent, DownloadThread* thread, wxString* error)
{
    if (!TestConnection(silent, false, error, false, nullptr, nullptr))
        return wxCTE_CURL_ERROR;
    auto part = std::make_unique<PartFile>(target);
    if (!part->IsOk()) {
        network_call::SetError(error, network_call::WriteError(target));
        return wxCTE_NO_VALID_STREAM;
    }
    auto session = std::make_unique<wxCurlHTTP>(endpoints::Get(endpoint));
    session->AddFormField("file", file);
    SetUserAgent(*session);
    SetProxyInfo(*session);
    if (thread == nullptr) {
        const wxBusyCursor busy;
        const bool isWhole = session->PostFile(part->GetStream());
        return Finish(*part, isWhole, session->GetResponseCode(), error) ? wxCTE_NO_ERROR : wxCTE_CURL_ERROR;
    }
    // Nobody waits before a window; a site may take a while.
    session->SetBounds({.stall = kPatience});
    session->SetEvtHandler(thread->GetHandler(), thread->GetEventId());
    session->SetFlags(wxCURL_SEND_EVENTS);
    const wxCurlProtocol protocol = session->GetProtocol();
    wxCurlThreadError result = thread->SetCurlSession(session.release(), protocol);
    if (result == wxCTE_NO_ERROR)
        result = thread->SetPartFile(std::move(part));
    if (result == wxCTE_NO_ERROR)
        result = thread->Download();
    if (result != wxCTE_NO_ERROR)
        network_call::SetError(error, i18n::Translated("Failed to connect to Tarnvik update site."));
    return result;
}

bool Network::LoadUpdateFile(const wxString& file, const wxString& target, bool interactive,
                             DownloadThread* thread, wxString* error)
{
    return LoadSiteFile(endpoints::kUpdates, file, target, !interactive, thread, error) == wxCTE_NO_ERROR;
}

wxCurlThreadError Network::LoadSetupFile(const wxString& file, const wxString& target, DownloadThread* thread,
                                         wxString* error)
{
    return LoadSiteFile(endpoints::kSetup, file, target, true, thread, error);
}

bool Network::FinishDownload(DownloadThread& thread, wxString* error)
{
    thread.Wait();
    const std::unique_ptr<PartFile> file = thread.TakePartFile();
    const wxCurlBase* session = thread.GetCurlSession();
    if (file == nullptr || session == nullptr)
        return false;
    if (thread.GetResult() == wxCTE_ABORTED) {
        network_call::SetError(error, i18n::Translated("The download was cancelled."));
        return false;
    }
    return Finish(*file, thread.GetResult() == wxCTE_NO_ERROR, session->GetResponseCode(), error);
}
