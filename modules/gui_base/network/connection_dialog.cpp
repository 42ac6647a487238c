// SPDX-License-Identifier: MIT
#include "gui_base/network/connection_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/dialogs/field_fault.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/network/connection_test.h"
#include "gui_base/network/endpoints.h"
#include "gui_base/network/network_state.h"
#include "gui_base/network/test_connection_thread.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/clipbrd.h>
#include <wx/statbox.h>
#include <wx/utils.h>

#include <algorithm>

namespace {

constexpr int kGap = 8;
constexpr unsigned long kMostLetters = 256;

const wxWindowID kTestEnded = wxWindow::NewControlId();

/// An empty port stands for none.
bool IsPort(const wxString& text)
{
    const long port = ToPort(text);
    return text.empty() || (port > 0 && port <= 65535);
}

wxString WorksText(bool hasChanged)
{
    return hasChanged ? i18n::Translated("The connection works, with the settings that are shown now.")
                      : i18n::Translated("The connection works.");
}

wxString ResultText(const TestConnectionThread& thread)
{
    if (thread.IsSuccessful())
        return WorksText(thread.HasChangedSettings());
    switch (thread.GetCode()) {
        case 0:
            return i18n::Translated("No network detected.");
        case 401:  // some proxies refuse a user as a web server would
        case 407:
            return thread.GetSettings().user.empty()
                       ? i18n::Translated("The proxy server asks for a user ID and a password.")
                       : i18n::Translated("User ID or password invalid.");
        default:
            return wxString::Format(i18n::Translated("Unexpected HTTP error code: %d."), thread.GetCode());
    }
}

}  // namespace

ConnectionDialog::ConnectionDialog(wxWindow* parent)
    : wxDialog(parent, wxID_ANY, i18n::Translated("Connection"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER)
{
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap));
    outer->Add(MakeProxyBox(), spaced);
    outer->Add(MakeTestBox(), wxSizerFlags(spaced).Proportion(1));
    outer->Add(dialogs::CreateButtons(*this, true), spaced);
    Bind(
        wxEVT_BUTTON,
        [this](wxCommandEvent& event) {
            if (Save())
                event.Skip();
        },
        wxID_OK);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { OnTestEnded(); }, kTestEnded);

    wxString unread;
    const ProxyParameters settings = network_state::LoadProxyParameters(&unread);
    const wxBusyCursor busy;
    if (ProxyInfo(SystemProxySettings()).IsProxyCheckByUserRequired(settings.useProxy))
        m_advice->SetLabel(i18n::Translated("This system uses a proxy server; these settings do not."));
    if (!unread.empty())
        m_result->SetLabel(unread);
    ShowSettings(settings);
    SetSizerAndFit(outer);
    m_useProxy->SetFocus();
    CentreOnParent();
}

ConnectionDialog::~ConnectionDialog() = default;

// Controls

wxTextCtrl* ConnectionDialog::AddField(wxWindow* parent, wxSizer& grid, const wxString& label, long style)
{
    auto* text = new wxStaticText(parent, wxID_ANY, label);
    // The grids of the box have their columns at one place.
    int widest = 0;
    for (const wxString& other : {i18n::Translated("Proxy for HTTP"), i18n::Translated("Proxy for HTTPS"),
                                  i18n::Translated("User ID"), i18n::Translated("Password")})
        widest = std::max(widest, text->GetTextExtent(other).x);
    text->SetMinSize(wxSize(widest, -1));
    grid.Add(text, wxSizerFlags().CentreVertical());
    auto* field =
        new TvTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(220, -1)), style);
    m_labels.emplace_back(field, text);
    field->SetMaxLength(kMostLetters);
    accessibility::SetName(*field, label);
    grid.Add(field, wxSizerFlags().Expand());
    return field;
}

ConnectionDialog::Address ConnectionDialog::AddAddress(wxWindow* parent, wxSizer& grid, const wxString& label,
                                                       const wxString& protocol)
{
    Address address;
    address.host = AddField(parent, grid, label, 0);
    auto* text = new wxStaticText(parent, wxID_ANY, i18n::Translated("Port"));
    grid.Add(text, wxSizerFlags().CentreVertical());
    address.port = new TvTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(72, -1)));
    address.port->SetMaxLength(10);
    accessibility::SetName(*address.port, i18n::Translated("Port") + " " + protocol);
    m_labels.emplace_back(address.port, text);
    grid.Add(address.port);
    for (wxTextCtrl* field : {address.host, address.port}) {
        field->Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
            RefreshFields();
            event.Skip();
        });
    }
    address.host->Bind(wxEVT_KILL_FOCUS, [this, address](wxFocusEvent& event) {
        SplitAddress(address);
        event.Skip();
    });
    return address;
}

wxSizer* ConnectionDialog::MakeProxyBox()
{
    auto* box = new wxStaticBoxSizer(wxVERTICAL, this, i18n::Translated("Proxy server"));
    wxWindow* const parent = box->GetStaticBox();
    const wxSizerFlags row = wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap / 2));
    const auto addCheck = [&](const wxString& label) {
        auto* check = new wxCheckBox(parent, wxID_ANY, label);
        check->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { RefreshFields(); });
        box->Add(check, row);
        return check;
    };
    const auto addGrid = [&](int columns) {
        auto* grid = new wxFlexGridSizer(columns, FromDIP(wxSize(kGap, kGap / 2)));
        grid->AddGrowableCol(1);
        box->Add(grid, row);
        return grid;
    };
    m_useProxy = addCheck(i18n::Translated("&Use a proxy server"));
    m_http = AddAddress(parent, *addGrid(4), i18n::Translated("Proxy for HTTP"), "HTTP");
    m_sameProxy = addCheck(i18n::Translated("Sa&me proxy for HTTPS"));
    m_https = AddAddress(parent, *addGrid(4), i18n::Translated("Proxy for HTTPS"), "HTTPS");
    m_useAuthentication = addCheck(i18n::Translated("The proxy server &asks for a user"));
    wxFlexGridSizer* user = addGrid(2);
    m_user = AddField(parent, *user, i18n::Translated("User ID"), 0);
    m_password = AddField(parent, *user, i18n::Translated("Password"), wxTE_PASSWORD);
    auto* system = new wxButton(parent, wxID_ANY, i18n::Translated("Proxies of the &system"));
    system->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { TakeSystemProxies(); });
    m_advice = new wxStaticText(parent, wxID_ANY, wxString());
    auto* line = new wxBoxSizer(wxHORIZONTAL);
    line->Add(system);
    line->Add(m_advice, wxSizerFlags(1).CentreVertical().Border(wxLEFT, FromDIP(kGap)));
    box->Add(line, row);
    return box;
}

wxSizer* ConnectionDialog::MakeTestBox()
{
    auto* box = new wxStaticBoxSizer(wxVERTICAL, this, i18n::Translated("Connection test"));
    wxWindow* const parent = box->GetStaticBox();
    const wxSizerFlags row = wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap / 2));
    const wxSizerFlags next = wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(kGap));
    const auto addButton = [&](wxSizer& line, const wxString& label, void (ConnectionDialog::*action)()) {
        auto* button = new wxButton(parent, wxID_ANY, label);
        button->Bind(wxEVT_BUTTON, [this, action](wxCommandEvent&) { (this->*action)(); });
        line.Add(button, next);
        return button;
    };
    auto* line = new wxBoxSizer(wxHORIZONTAL);
    m_test = addButton(*line, i18n::Translated("&Test connection"), &ConnectionDialog::StartTest);
    m_cancelTest = addButton(*line, i18n::Translated("&Cancel test"), &ConnectionDialog::CancelTest);
    m_activity = new wxActivityIndicator(parent);
    line->Add(m_activity, wxSizerFlags(next).ReserveSpaceEvenIfHidden());
    m_makeProtocol =
        addButton(*line, i18n::Translated("Test with &protocol"), &ConnectionDialog::MakeProtocol);
    m_copy = addButton(*line, i18n::Translated("Cop&y protocol"), &ConnectionDialog::CopyProtocol);
    box->Add(line, row);
    m_result = new wxStaticText(parent, wxID_ANY, wxString());
    box->Add(m_result, row);
    m_protocol = new wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(620, 180)),
                                wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP);
    accessibility::SetName(*m_protocol, i18n::Translated("Protocol"));
    box->Add(m_protocol, wxSizerFlags(row).Proportion(1));
    m_activity->Hide();
    return box;
}

// Fields

void ConnectionDialog::ShowSettings(const ProxyParameters& settings)
{
    m_useProxy->SetValue(settings.useProxy);
    m_http.host->ChangeValue(settings.httpHost);
    m_http.port->ChangeValue(settings.httpPort);
    m_sameProxy->SetValue(settings.sameProxyForAll);
    m_https.host->ChangeValue(settings.httpsHost);
    m_https.port->ChangeValue(settings.httpsPort);
    m_useAuthentication->SetValue(settings.useAuthentication);
    m_user->ChangeValue(settings.user);
    m_password->ChangeValue(settings.password);
    RefreshFields();
}

ProxyParameters ConnectionDialog::GetEntered() const
{
    const auto text = [](const wxTextCtrl* field) { return field->GetValue().Trim().Trim(false); };
    return {.useProxy = m_useProxy->GetValue(),
            .sameProxyForAll = m_sameProxy->GetValue(),
            .useAuthentication = m_useAuthentication->GetValue(),
            .httpHost = text(m_http.host),
            .httpPort = text(m_http.port),
            .httpsHost = text(m_https.host),
            .httpsPort = text(m_https.port),
            .user = text(m_user),
            .password = m_password->GetValue()};
}

void ConnectionDialog::RefreshFields()
{
    const ProxyParameters entered = GetEntered();
    bool isGood = true;
    const auto show = [&](const Address& address, bool isUsed, const wxString& host, const wxString& port) {
        for (wxTextCtrl* field : {address.host, address.port})
            field->Enable(isUsed);
        const bool isFault =
            isUsed && (!IsPort(port) || (port.empty() && !host.empty() && !host.Contains(":")));
        dialogs::ShowFault(*address.port,
                           isFault ? i18n::Translated("A port is a number from 1 to 65535.") : wxString());
        isGood &= !isFault;
    };
    show(m_http, entered.useProxy, entered.httpHost, entered.httpPort);
    show(m_https, entered.useProxy && !entered.sameProxyForAll, entered.httpsHost, entered.httpsPort);
    m_sameProxy->Enable(entered.useProxy);
    m_useAuthentication->Enable(entered.useProxy);
    for (wxTextCtrl* field : {m_user, m_password})
        field->Enable(entered.useProxy && entered.useAuthentication);
    for (const auto& [field, label] : m_labels)
        label->Enable(field->IsThisEnabled());
    const bool isTesting = m_thread != nullptr;
    m_test->Enable(isGood && !isTesting);
    m_cancelTest->Enable(isTesting);
    m_makeProtocol->Enable(isGood && !isTesting);
    m_copy->Enable(!m_protocol->IsEmpty());
    if (wxWindow* ok = FindWindow(wxID_OK))
        ok->Enable(isGood);
}

void ConnectionDialog::SplitAddress(const Address& address)
{
    wxString host = address.host->GetValue().Trim().Trim(false);
    host = host.substr(host.find("://") == wxString::npos ? 0 : host.find("://") + 3).BeforeFirst('/');
    if (const wxString user = host.BeforeLast('@'); host.Contains("@")) {
        host = host.AfterLast('@');
        m_useAuthentication->SetValue(true);
        m_user->ChangeValue(user.BeforeFirst(':'));
        m_password->ChangeValue(user.AfterFirst(':'));
    }
    const wxString port = host.AfterLast(':');
    if (host.Freq(':') == 1 && !port.empty() && IsPort(port)) {
        address.port->ChangeValue(port);
        host = host.BeforeLast(':');
    }
    if (host == address.host->GetValue())
        return;
    address.host->ChangeValue(host);
    RefreshFields();
}

bool ConnectionDialog::TakeFields()
{
    // Enter and access keys leave the focus where it is.
    SplitAddress(m_http);
    SplitAddress(m_https);
    RefreshFields();
    return FindWindow(wxID_OK)->IsEnabled();
}

void ConnectionDialog::TakeSystemProxies()
{
    const wxBusyCursor busy;
    ProxyParameters settings = GetEntered();
    settings.Adopt(ProxyInfo(SystemProxySettings()).GetProxySettings());
    ShowSettings(settings);
    m_advice->SetLabel(settings.useProxy ? wxString()
                                         : i18n::Translated("This system uses no proxy server."));
    Layout();
}

// Test

void ConnectionDialog::StartTest()
{
    if (!TakeFields())
        return;
    m_thread = std::make_unique<TestConnectionThread>(this, kTestEnded);
    m_thread->SetSettings(GetEntered());
    if (m_thread->Run() != wxTHREAD_NO_ERROR) {
        EndTest(i18n::Translated("The connection test cannot be started."));
        return;
    }
    m_result->SetLabel(i18n::Translated("Testing..."));
    m_activity->Show();
    m_activity->Start();
    RefreshFields();
    m_cancelTest->SetFocus();
}

void ConnectionDialog::EndTest(const wxString& result)
{
    const bool hadFocus = m_cancelTest->HasFocus();
    m_thread.reset();
    m_activity->Stop();
    m_activity->Hide();
    m_result->SetLabel(result);
    RefreshFields();
    Layout();
    if (hadFocus)
        m_test->SetFocus();
}

void ConnectionDialog::CancelTest()
{
    EndTest(i18n::Translated("The connection test was cancelled."));
    // The test may have told of its end just before.
    DeletePendingEvents();
}

void ConnectionDialog::OnTestEnded()
{
    if (m_thread == nullptr)
        return;
    m_thread->Wait();
    if (m_thread->IsSuccessful())
        ShowSettings(m_thread->GetSettings());
    EndTest(ResultText(*m_thread));
}

void ConnectionDialog::MakeProtocol()
{
    if (!TakeFields())
        return;
    wxString text;
    ConnectionTest test(endpoints::Get(endpoints::kConnectionTest), GetEntered(), &text);
    const wxBusyCursor busy;
    const bool isReached = test.Run(true);
    m_protocol->ChangeValue(text);
    if (isReached && test.HasChanged())
        ShowSettings(test.GetSettings());
    EndTest(isReached ? WorksText(test.HasChanged()) : test.GetError());
}

void ConnectionDialog::CopyProtocol()
{
    wxClipboardLocker lock;
    if (!!lock)
        wxTheClipboard->SetData(new wxTextDataObject(m_protocol->GetValue()));
}

bool ConnectionDialog::Save()
{
    if (!TakeFields())
        return false;
    wxString error;
    if (!network_state::SaveProxyParameters(GetEntered(), &error)) {
        dialogs::ShowMessage(this, error, GetTitle(), wxICON_ERROR);
        return false;
    }
    network_state::SetVerified(false);
    return true;
}
