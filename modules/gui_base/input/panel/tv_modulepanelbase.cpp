// SPDX-License-Identifier: MIT
#include "gui_base/input/panel/tv_modulepanelbase.h"

#include "gui_base/support/events.h"
#include "projectbase/project/project_edit.h"

#include <wx/log.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/wupdlock.h>

#include <optional>
#include <utility>

ModulePanelBase::ModulePanelBase(Project* project, wxWindow* parent, int id, const wxPoint& pos,
                                 const wxSize& size, long style, const wxString& name)
{
    CreateWindow(project, parent, id, pos, size, style, name);
}

void ModulePanelBase::CreateWindow(Project* project, wxWindow* parent, int id, const wxPoint& pos,
                                   const wxSize& size, long style, const wxString& name)
{
    wxScrolled<wxPanel>::Create(parent, id, pos, size, style, name);
    m_project = project;
    if (m_project != nullptr)
        m_project->AddObserver(*this);
}

ModulePanelBase::~ModulePanelBase()
{
    if (m_project != nullptr)
        m_project->RemoveObserver(*this);
    // Fields tell of a lost focus while they go; the panel must still be whole then.
    DestroyChildren();
}

void ModulePanelBase::SetStatusBar(wxStatusBar* statusBar)
{
    m_statusBar = statusBar;
}

void ModulePanelBase::Create()
{
    if (IsProjectStatusLowerThanPanelStatus()) {
        ResetProjectStatus();
        DoResetPanelStatus();
    }
    m_isBeingMade = true;
    DoCreateControls();
    if (GetSizer() != nullptr) {
        GetSizer()->Fit(this);
        GetSizer()->SetSizeHints(this);
        // A page of a notebook scrolls when it is given less room than its controls want.
        if (IsBookPage())
            SetMinSize(wxDefaultSize);
    }
    SetDefaultScrollRate();
    Centre(wxBOTH);
    DoTransferDetailsToWindows();
    DoSetTransferDetails();
    DoSetValidators();
    DoConnectTvTextCtrlsToStatusbar();
    BindEvents();
    Prepare();
    m_isBeingMade = false;
    // A page of a notebook is laid out in the room that its notebook gives it next.
    if (!IsBookPage())
        FitAndLayout();
}

void ModulePanelBase::Prepare()
{
    DoTransferDetailsToWindows();
    DoPrepare();
    ShowInUnitSystem(false);
    DoTransferDetailsToWindows();
}

void ModulePanelBase::RecreatePanel()
{
    const wxWindowUpdateLocker frozen(this);
    DestroyChildren();
    ClearLocalizableControls();
    ClearTransferDetails();
    m_detailContainerWindows.clear();
    m_answeredFields.clear();
    Create();
    FitAndLayout();
    Refresh();
}

void ModulePanelBase::BindEvents()
{
    BindBaseEvents();
    DoBindEvents();
}

void ModulePanelBase::BindBaseEvents()
{
    // The panel itself survives a recreation, and so do its bindings.
    if (m_baseEventsBound)
        return;
    m_baseEventsBound = true;
    Bind(tvCHANGEUNITSYSTEM_EVENT, &ModulePanelBase::OnChangeUnitSystem, this);
    Bind(tvLOCALIZE_EVENT, &ModulePanelBase::OnLocalize, this);
    Bind(tvCHANGE_EVENT, &ModulePanelBase::OnChildChanged, this);
    Bind(wxEVT_MOUSEWHEEL, &ModulePanelBase::OnWheel, this);
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        event.Skip();
        m_keepsTop = false;
    });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        // The toolkit lays out for the new size when this handler has returned.
        event.Skip();
        DoArrange(WidthToArrange());
        // What wanted more room before the change may do with less now.
        if (GetSizer() != nullptr && IsBookPage())
            FitInside();
    });
    Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
        event.Skip();
        if (event.IsShown())
            CatchUp(*this);
    });
}

void ModulePanelBase::DoTransferDetailsToWindows()
{
    m_transfers.TransferToWindow(GetUnitSystemDisplay(), GetCurrencyFactor());
    TransferDataToWindow();
    m_transfers.TransferRangeFlags();
    ShowSelfRefreshing();
    DoSendVisualizeMessageEvent();
}

void ModulePanelBase::ShowSelfRefreshing()
{
    for (DetailContainerWindow* window : m_detailContainerWindows)
        window->TransferDetailToWindow();
}

bool ModulePanelBase::TransferDetailsFromWindow()
{
    bool changed = false;
    return m_transfers.TransferFromWindow(GetUnitSystemDisplay(), changed, GetCurrencyFactor());
}

void ModulePanelBase::DoUpdateValues()
{
    CalculateDesign();
}

void ModulePanelBase::CalculateDesign()
{
    if (m_project != nullptr)
        m_project->CalculateDesign();
}

bool ModulePanelBase::IsInView() const
{
    // Whatever the frame is: it may be shown later than its pages.
    for (const wxWindow* window = this; window != nullptr && !window->IsTopLevel();
         window = window->GetParent()) {
        if (!window->IsShown())
            return false;
    }
    return true;
}

void ModulePanelBase::OnProjectChanged(const ProjectChanges& changes)
{
    if (m_synchronizing || IsBeingDeleted() || !DoConcerns(changes))
        return;
    if (IsInView())
        FollowProject();
    else
        m_stale = true;
}

void ModulePanelBase::CatchUp(wxWindow& window)
{
    if (auto* panel = dynamic_cast<ModulePanelBase*>(&window); panel != nullptr && panel->m_stale)
        panel->FollowProject();
    // Panels on this one came into view with it.
    for (wxWindow* child : window.GetChildren())
        CatchUp(*child);
}

// Neither this nor SynchronizeProject freezes the page: nothing is drawn before the event loop is back, and a
// page that thaws is drawn whole.
void ModulePanelBase::FollowProject()
{
    m_stale = false;
    DoFollowProject();
}

void ModulePanelBase::DoFollowProject()
{
    // Limits are those in the units that stand beside the fields.
    ShowSelfRefreshing();
    DoUpdateValidators();
    DoTransferDetailsToWindows();
}

void ModulePanelBase::SynchronizeProject()
{
    const bool outer = std::exchange(m_synchronizing, true);
    try {
        {
            std::optional<ProjectEdit> edit;
            if (m_project != nullptr)
                edit.emplace(*m_project);
            TransferDataFromWindow();
            TransferDetailsFromWindow();
            DoResetMessages();
            DoUpdateValidators();
            DoUpdateValues();
            DoUpdateValidators();
            ResetProjectStatus();
            DoResetPanelStatus();
        }
        DoSendVisualizeMessageEvent();
        DoTransferDetailsToWindows();
        m_stale = false;
    } catch (const std::exception& error) {
        const std::string message = std::string("ModulePanelBase::SynchronizeProject: ") + error.what();
        if (m_project != nullptr)
            m_project->GetLogger().Error(message);
        else
            wxLogError("%s", wxString::FromUTF8(message));
    }
    m_synchronizing = outer;
}

void ModulePanelBase::OnFieldUpdate(wxCommandEvent& event)
{
    if (event.GetEventType() == wxEVT_TEXT_ENTER)
        m_answeredFields.insert(event.GetId());
    SynchronizeProject();
    SendChangeEvent();
    // Other handlers of this panel may hear of it, too; the host hears what was just sent.
    if (event.GetEventType() == tvCHANGE_EVENT)
        event.StopPropagation();
    event.Skip();
}

void ModulePanelBase::SendChangeEvent()
{
    if (m_project != nullptr)
        m_project->SetChanged(true);
    events::SendEvent(GetParent(), tvCHANGE_EVENT, wxID_ANY, 0, wxString());
}

void ModulePanelBase::OnChildChanged(wxCommandEvent& event)
{
    // The host hears of one edit once: an event that OnFieldUpdate answered climbs no further, and that of a
    // text field whose commit was answered already ends here. Panels inside this one, other controls and
    // fields that this panel does not answer speak for themselves.
    const bool answered = !event.ShouldPropagate() || m_answeredFields.contains(event.GetId());
    if (!answered)
        event.Skip();
}

bool ModulePanelBase::Validate()
{
    TransferDataFromWindow();
    return DoValidate() && wxScrolled<wxPanel>::Validate();
}

std::string ModulePanelBase::GetCurrentDisplayUnitSystem() const
{
    return m_project != nullptr ? m_project->GetUnitSystemDisplay() : "iso";
}

wxString ModulePanelBase::GetUnitSystemDisplay() const
{
    return wxString::FromUTF8(GetCurrentDisplayUnitSystem());
}

long ModulePanelBase::GetProjectStatus() const
{
    return m_project != nullptr ? m_project->GetStatus() : 0;
}

bool ModulePanelBase::IsProjectStatusLowerThanPanelStatus()
{
    return m_project != nullptr && m_project->GetStatus() < GetPanelProjectStatus();
}

void ModulePanelBase::ResetProjectStatus()
{
    if (m_project != nullptr)
        m_project->ResetStatus(GetPanelProjectStatus());
}

bool ModulePanelBase::ShowYesNoDialog(const wxString& message, const wxString& caption)
{
    wxMessageDialog dialog(this, message, caption, wxYES_NO | wxCENTRE);
    return dialog.ShowModal() == wxID_YES;
}

void ModulePanelBase::GetTextFieldSize(const wxString& text, int& width, int& height)
{
    GetTextExtent(text, &width, &height);
}

void ModulePanelBase::OnChangeUnitSystem(wxCommandEvent& event)
{
    ShowInUnitSystem(true);
    event.Skip();
}

void ModulePanelBase::UpdateUnits(bool transferValues)
{
    ShowInUnitSystem(transferValues);
}

void ModulePanelBase::ShowInUnitSystem(bool transferValues)
{
    const wxWindowUpdateLocker frozen(this);
    LocalizeControls();
    DoUpdateValidators();
    DoUpdateUnits();
    if (transferValues)
        DoTransferDetailsToWindows();
    FitAndLayout();
}

void ModulePanelBase::OnLocalize(wxCommandEvent& event)
{
    Localize(GetCurrentDisplayUnitSystem());
    event.Skip();
}

void ModulePanelBase::Localize(const std::string&)
{
    const wxWindowUpdateLocker frozen(this);
    LocalizeControls();
    DoLocalize();
    FitAndLayout();
}

void ModulePanelBase::LocalizeControls()
{
    const std::string unitSystem = GetCurrentDisplayUnitSystem();
    for (const auto& control : m_localizableControls)
        control->Localize(unitSystem);
}
