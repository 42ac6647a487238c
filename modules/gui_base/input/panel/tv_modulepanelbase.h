// SPDX-License-Identifier: MIT
#pragma once

/// The scrolled panel from which every module's input panel derives. It fixes the life of a panel: controls,
/// bindings, validators, events, first display; the synchronisation after each committed edit; unit system
/// and language. A derived panel supplies its parts through the Do... hooks and calls `Create` at the end of
/// its constructor.
///
/// The project is not owned and outlives the panel; the panel owns its bindings. GUI thread only. An
/// exception of a synchronisation is logged and swallowed, so that the panel stays usable.
///
/// A panel follows its project: what others change it shows at once while it is in view, and else when it
/// comes into view.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/binding/database_combination.h"
#include "gui_base/input/binding/transfer_container.h"
#include "gui_base/input/controls/localizable.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/events.h"
#include "projectbase/project/project.h"

#include <wx/panel.h>
#include <wx/scrolwin.h>
#include <wx/statusbr.h>
#include <wx/weakref.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

class GUI_BASE_EXPORT ModulePanelBase : public wxScrolled<wxPanel>, private ProjectObserver
{
public:
    /// `project` may be null; the panel then shows ISO units and recalculates nothing.
    ModulePanelBase(Project* project, wxWindow* parent, int id = wxID_ANY,
                    const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                    long style = wxTAB_TRAVERSAL | wxHSCROLL | wxVSCROLL,
                    const wxString& name = wxASCII_STR(wxPanelNameStr));
    ~ModulePanelBase() override;

    virtual void SetStatusBar(wxStatusBar* statusBar);
    virtual void ShowWhatIf() {}

    virtual void TransferDetailsToWindow() { DoTransferDetailsToWindows(); }
    void SetTransferDetails() { DoSetTransferDetails(); }
    void SetValidators() { DoSetValidators(); }
    void BindEvents();
    void UpdateValues() { DoUpdateValues(); }
    void ConnectTvTextCtrlsToStatusbar() { DoConnectTvTextCtrlsToStatusbar(); }
    void SendVisualizeMessageEvent() { DoSendVisualizeMessageEvent(); }
    void ResetMessages() { DoResetMessages(); }
    bool HasWhatIf() { return DoHasWhatIf(); }
    /// While the user has not touched a key, whether the page stays at its top when a field gets the
    /// keyboard, instead of scrolling to it, as a new page does: one that is being opened has not its size
    /// yet.
    void SetKeepsTop(bool keeps) { m_keepsTop = keeps; }
    bool Validate() override;
    /// The toolkit moves what stands in boxes, and leaves their frames where they were drawn.
    void ScrollWindow(int dx, int dy, const wxRect* rect = nullptr) override;
    /// Takes the room that a scroll bar left free when the toolkit took it away, of which it tells nobody.
    void OnInternalIdle() override;
    /// Asks for more room where what it holds has grown by itself.
    bool Layout() override;

    /// Finds the status bar, gives it to the control's validator, and synchronises the project when it
    /// commits.
    void SetupInputControl(wxTextCtrl* control);
    /// Stores every input, recalculates and shows everything again, as after a commit; notifies nobody.
    void SynchronizeProject();
    virtual void Localize(const std::string& unitSystem);
    /// Shows everything in the project's unit system; the values too with `transferValues`.
    virtual void UpdateUnits(bool transferValues);
    void UpdateProjectStatus() { DoUpdateProjectStatus(); }
    /// The status bar of the frame around the panel, or null.
    wxStatusBar* GetStatusBar();

    /// Shows money in the currency that the user chose, after that or its rate changed.
    virtual void UpdateCurrencyDisplay() {}

    /// Puts the focus into the field bound to the detail at that address; false when there is none that can
    /// take it.
    virtual bool FocusDetail(const DetailAddress& address);

protected:
    /// A panel without a window yet; CreateWindow follows.
    ModulePanelBase() = default;
    void CreateWindow(Project* project, wxWindow* parent, int id, const wxPoint& pos, const wxSize& size,
                      long style, const wxString& name);

    virtual void DoTransferDetailsToWindows();
    /// The project calculation status that this panel's input belongs to.
    virtual long GetPanelProjectStatus() = 0;
    virtual void DoUpdateProjectStatus() {}
    /// Runs after the project's status was lowered to the panel's.
    virtual void DoResetPanelStatus() = 0;
    virtual void DoResetMessages() = 0;
    virtual void DoCreateControls() = 0;
    /// Adds the bindings with AddTransfer.
    virtual void DoSetTransferDetails() = 0;
    virtual void DoSetValidators() = 0;
    virtual void DoBindEvents() = 0;
    virtual void DoPrepare() = 0;
    virtual void DoUpdateUnits() = 0;
    virtual void DoLocalize() = 0;
    /// Recalculates the design through the project.
    virtual void DoUpdateValues();
    virtual void DoConnectTvTextCtrlsToStatusbar() = 0;
    virtual void DoSendVisualizeMessageEvent() = 0;
    virtual bool DoValidate() { return true; }
    bool ShouldScrollToChildOnFocus(wxWindow* child) override
    {
        return !m_keepsTop && wxScrolled<wxPanel>::ShouldScrollToChildOnFocus(child);
    }
    /// Refreshes the limits of validators, for example with UpdateLimitsFromDetail.
    virtual void DoUpdateValidators() {}
    virtual bool DoHasWhatIf() { return false; }
    /// What one euro is in the currency that the fields show.
    virtual double GetCurrencyFactor() const { return 1.0; }
    /// The last step of the creation: everything is shown in language and units of the project.
    virtual void Prepare();
    /// Gives what stands side by side, or one below the other, its place in a panel of that width: whenever
    /// the width, a text or a unit changed, before the layout. The same width gives the same places. A
    /// FlowSizer needs nothing else.
    virtual void DoArrange(int width);
    /// The width that DoArrange is asked for, in pixels.
    int WidthToArrange() const;
    /// Whether the panel shows anything of what changed.
    virtual bool DoConcerns(const ProjectChanges&) { return true; }
    /// Shows what others changed in the project.
    virtual void DoFollowProject();

    /// Runs the creation sequence; called once, by the most derived constructor.
    void Create();
    /// Destroys all controls and runs the creation sequence again. Never inside a handler of a child: use
    /// CallAfter.
    void RecreatePanel();

    void AddTransfer(const TransferDetail& transfer);
    void AddToDetailContainerWindows(DetailContainerWindow* window);
    void ClearTransferDetails() { m_transfers.Clear(); }
    void ClearLocalizableControls() { m_localizableControls.clear(); }
    template <typename Control>
    Control* AddLocalizable(Control* control)
    {
        m_localizableControls.push_back(MakeLocalizable(control));
        return control;
    }

    void AddLocalizable(std::shared_ptr<LocalizableControl> holder)
    {
        m_localizableControls.push_back(std::move(holder));
    }

    void BindControlToOnFieldUpdate(DataBaseCombination* combination, wxEventTypeTag<wxCommandEvent> tag);
    void BindControlToOnFieldUpdate(wxPanel* subPanel, wxEventTypeTag<wxCommandEvent> tag);
    void BindControlToOnFieldUpdate(wxEventTypeTag<wxCommandEvent> tag, int id, int lastId);
    void ConnectControlToStatusBar(wxTextCtrl* control);
    void ConnectControlToStatusBar(DataBaseCombination* combination);
    /// Takes the detail's limits, in the displayed unit system, into the control's validator and shows the
    /// field again.
    void UpdateLimitsFromDetail(TvTextCtrl* control, const DetailData* detail);

    Project* GetProject() const { return m_project; }
    /// That of the project. A panel that has none says which one it shows.
    virtual std::string GetCurrentDisplayUnitSystem() const;
    wxString GetUnitSystemDisplay() const;
    long GetProjectStatus() const;
    bool IsProjectStatusLowerThanPanelStatus();
    void ResetProjectStatus();
    wxStatusBar* GetStatusBarUnchecked() const { return m_statusBar.get(); }
    bool ShowYesNoDialog(const wxString& message, const wxString& caption);
    void GetTextFieldSize(const wxString& text, int& width, int& height);
    /// Marks the project as changed and tells the parent.
    void SendChangeEvent();
    bool TransferDetailsFromWindow();
    void SetDefaultScrollRate() { SetScrollRate(1, 1); }
    void CalculateDesign();
    /// Gives the panel the room that its contents want now, and lays out what is around it. While the panel
    /// is made this waits until all stands in it.
    void FitAndLayout();

    /// Handler of every committed edit.
    void OnFieldUpdate(wxCommandEvent& event);

private:
    void OnProjectChanged(const ProjectChanges& changes) override;
    void FollowProject();
    /// Shows what others changed while the panel and those on it were out of view.
    static void CatchUp(wxWindow& window);
    void ShowSelfRefreshing();
    bool IsInView() const;
    void BindBaseEvents();
    void LocalizeControls();
    void ShowInUnitSystem(bool transferValues);
    void OnWheel(wxMouseEvent& event);
    /// The panel that this one is a part of, or null.
    ModulePanelBase* OuterPanel() const;
    void FindStatusBar();
    bool IsBookPage() const;
    void OnChangeUnitSystem(wxCommandEvent& event);
    void OnLocalize(wxCommandEvent& event);
    void OnChildChanged(wxCommandEvent& event);

    Project* m_project = nullptr;
    wxWeakRef<wxStatusBar> m_statusBar;
    TransferContainer m_transfers;
    std::vector<std::shared_ptr<LocalizableControl>> m_localizableControls;
    std::vector<DetailContainerWindow*> m_detailContainerWindows;
    bool m_baseEventsBound = false;
    bool m_isBeingMade = false;
    bool m_synchronizing = false;
    bool m_keepsTop = true;
    bool m_stale = false;  ///< what others changed is still to be shown
    int m_wheelTurn = 0;
    std::set<int> m_answeredFields;  ///< ids of the fields whose commits OnFieldUpdate answers
};
