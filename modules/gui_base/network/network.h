// SPDX-License-Identifier: MIT
#pragma once

/// The way to the services on the web: connection test, updates, data sheets, rates of currencies.
///
/// Every transfer goes by the user's proxy settings (ProxyParameters). Calls belong to the main thread and
/// block it, at most for the bounds of wxCurlBounds a request; a busy cursor shows meanwhile, and no event of
/// a window is handled. Nothing is thrown: what goes wrong is told by the result and, translated, in `error`.

#include "gui_base/gui_base_export.h"
#include "gui_base/network/data_sheet_info.h"
#include "wxcurl/curl_base.h"

#include <wx/string.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

class DownloadThread;
class wxCurlHTTP;

class GUI_BASE_EXPORT Network
{
public:
    Network() = delete;

    /// Before the first and after the last use; what was learned of the connection is forgotten.
    static void Initialize();
    static void Terminate();

    /// Requests an address and returns the code of the answer, 0 when nothing was received. With `useAuth`
    /// and empty user and password the proxy is offered the system's own log-on. What libcurl tells of the
    /// way is appended to `protocolText` when `verbose`, without credentials.
    static int TestURL(const wxString& url, bool useProxy, const wxString& host, const wxString& port,
                       bool useAuth, const wxString& user, const wxString& password, bool verbose,
                       wxString* protocolText);
    /// Finds a way to the services: with the settings as they are, else with the system's proxies, else with
    /// credentials that the user is asked for unless `silent`. What worked is saved. Without `force` a
    /// connection that was verified before is not tested again. `url` is tested instead of the connection
    /// test page where given; with `protocol` the steps are appended to `protocolText`.
    static bool TestConnection(bool silent, bool force, wxString* error, bool protocol,
                               wxString* protocolText, const wxString* url);
    /// A transfer that ended in 0 or 407 lets the next one test the connection again.
    static void CheckConnectionReset(int code);
    /// Asks for user and password of the proxy and stores them; false when the user cancels.
    static bool ShowAuthenticationDialog();

    /// Loads a file of the update site into `target`, which appears only as a whole. With a thread the
    /// download is only started, into a part file beside the target, and FinishDownload belongs to its end.
    static bool LoadUpdateFile(const wxString& file, const wxString& target, bool interactive,
                               DownloadThread* thread, wxString* error);
    /// The same for a setup program; never asks.
    static wxCurlThreadError LoadSetupFile(const wxString& file, const wxString& target,
                                           DownloadThread* thread, wxString* error);
    /// Waits for the end of a thread, which has said so by its event or was asked to stop, and makes the
    /// target of its part file, or removes that. `check` says what is wrong with the part file of that path,
    /// or nothing.
    using CheckFile = std::function<wxString(const wxString& path)>;
    static bool FinishDownload(DownloadThread& thread, wxString* error, const CheckFile& check = {});

    /// Both lists of data sheets; false when either failed, with what could be read of the other one. Where a
    /// list fails, what was in the vector stays.
    static bool LoadDataSheetLists(std::vector<NetObjects::DataSheetInfo>& pds,
                                   std::vector<NetObjects::DataSheetInfo>& msds, wxString* error);
    static bool LoadPdsList(std::vector<NetObjects::DataSheetInfo>& sheets, wxString* error);
    static bool LoadMsdsList(std::vector<NetObjects::DataSheetInfo>& sheets, wxString* error);
    /// Loads a sheet into a folder and returns the path of the PDF file; empty when that failed.
    static wxString LoadPdsFile(const NetObjects::DataSheetInfo& sheet, const wxString& folder,
                                wxString* error);
    static wxString LoadMsdsFile(const NetObjects::DataSheetInfo& sheet, const wxString& folder,
                                 wxString* error);
    /// The requests behind them, to the services that keep the sheets.
    static bool GetSheetvaultFile(const wxString& productId, const wxString& language, const wxString& target,
                                  wxString* error);
    static bool GetLabhouseFile(const wxString& legalArea, const wxString& address, const wxString& target,
                                wxString* error);

    /// Renews the rates of the user database from the public service; the old ones stay when it fails.
    static bool UpdateCurrencyConversionRates(wxString* error);

    /// Whether no file of that name is there any more.
    static bool RemoveFileIfExists(const wxString& path);

private:
    using Form = std::vector<std::pair<wxString, wxString>>;
    struct Answer
    {
        bool isWhole = false;  ///< it came to its end, whatever its code
        long code = 0;
        std::string body;

        bool IsOk() const { return isWhole && code == 200; }
    };

    static bool SetProxyInfo(wxCurlHTTP& session);
    static void SetUserAgent(wxCurlHTTP& session);
    /// GET, or POST of a form that is not empty, after a silent connection test; into memory. `error` is what
    /// the connection test says where that failed.
    static Answer Ask(const wxString& url, const Form& form, wxString* error);
    /// What both kinds of files of the update site share.
    static wxCurlThreadError LoadSiteFile(const char* endpoint, const wxString& file, const wxString& target,
                                          bool silent, DownloadThread* thread, wxString* error);
    struct SheetService;
    static bool LoadSheetList(const SheetService& service, std::vector<NetObjects::DataSheetInfo>& sheets,
                              wxString* error);
    /// Into a file that appears only when the answer is a PDF document.
    static bool LoadSheetFile(const wxString& url, const Form& form, const wxString& unavailable,
                              const wxString& target, wxString* error);
};
