// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/network/proxy_parameters.h"

#include <wx/activityindicator.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <memory>
#include <utility>
#include <vector>

class TestConnectionThread;

/// How the program reaches its services: the user's proxy settings, tested before they are stored. Modal.
class GUI_BASE_EXPORT ConnectionDialog : public wxDialog
{
public:
    explicit ConnectionDialog(wxWindow* parent);
    ~ConnectionDialog() override;

    /// What stands in the fields.
    ProxyParameters GetEntered() const;

private:
    struct Address
    {
        wxTextCtrl* host = nullptr;
        wxTextCtrl* port = nullptr;
    };

    wxSizer* MakeProxyBox();
    wxSizer* MakeTestBox();
    Address AddAddress(wxWindow* parent, wxSizer& grid, const wxString& label, const wxString& protocol);
    wxTextCtrl* AddField(wxWindow* parent, wxSizer& grid, const wxString& label, long style);
    void ShowSettings(const ProxyParameters& settings);
    /// Fields that have a say are enabled; a port that is none is coloured, and then nothing can be tested or
    /// stored.
    void RefreshFields();
    /// A host that was typed or pasted as an address gives its port away.
    void SplitAddress(const Address& address);
    /// What was typed last counts, too; whether the fields can be used.
    bool TakeFields();
    void TakeSystemProxies();
    void StartTest();
    void EndTest(const wxString& result);
    void CancelTest();
    void OnTestEnded();
    void MakeProtocol();
    void CopyProtocol();
    bool Save();

    wxCheckBox* m_useProxy = nullptr;
    std::vector<std::pair<wxTextCtrl*, wxStaticText*>> m_labels;
    Address m_http;
    wxCheckBox* m_sameProxy = nullptr;
    Address m_https;
    wxCheckBox* m_useAuthentication = nullptr;
    wxTextCtrl* m_user = nullptr;
    wxTextCtrl* m_password = nullptr;
    wxStaticText* m_advice = nullptr;
    wxButton* m_test = nullptr;
    wxButton* m_cancelTest = nullptr;
    wxActivityIndicator* m_activity = nullptr;
    wxStaticText* m_result = nullptr;
    wxButton* m_makeProtocol = nullptr;
    wxTextCtrl* m_protocol = nullptr;
    wxButton* m_copy = nullptr;
    std::unique_ptr<TestConnectionThread> m_thread;
};
