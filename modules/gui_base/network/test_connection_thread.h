// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/network/proxy_parameters.h"

#include <wx/thread.h>
#include <wx/window.h>

#include <atomic>
#include <mutex>

/// Tests a proposed configuration beside the window that proposes it; joinable. The parent gets an event
/// wxEVT_BUTTON with the identifier when the test has ended; it then waits for the thread and reads the
/// result. What is public belongs to the main thread, while the thread does not run.
class GUI_BASE_EXPORT TestConnectionThread : public wxThread
{
public:
    /// The parent is not taken over, and may be null; it calls Forget before it goes while a test runs.
    TestConnectionThread(wxWindow* parent, int id);
    /// Cancels a test that runs and waits for that.
    ~TestConnectionThread() override;

    /// No result, a direct connection, and the connection test page of the settings.
    void Initialize();
    /// The parent is told nothing more.
    void Forget();

    /// From and to the user database; throw as ProxyParameters does.
    void LoadSettings() { m_settings = ProxyParameters::Load(); }
    void SaveSettings() const { m_settings.Save(); }

    /// What is tested, and what worked in the end.
    const ProxyParameters& GetSettings() const { return m_settings; }
    void SetSettings(const ProxyParameters& settings) { m_settings = settings; }

    bool IsSuccessful() const { return m_success; }
    /// Whether something else than what was proposed worked, or was tried last.
    bool HasChangedSettings() const { return m_settingsChanged; }
    /// The last code of an answer; 0 for none.
    int GetCode() const { return m_code; }

protected:
    void* Entry() override;
    void OnExit() override;

private:
    int Request(bool useAuth, const wxString& user, const wxString& password);
    int RequestBySystem();

    std::mutex m_parentMutex;
    wxWindow* m_parent;  ///< under the mutex
    int m_id;
    std::atomic<bool> m_hasRun = false;
    bool m_success = false;
    bool m_settingsChanged = false;
    ProxyParameters m_settings;
    wxString m_url;
    int m_code = 0;
};
