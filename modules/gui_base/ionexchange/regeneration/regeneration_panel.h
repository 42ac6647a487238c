// SPDX-License-Identifier: MIT
#pragma once

/// The regeneration of one exchanger: its sequence, what it needs of each medium, how its chemicals are
/// supplied and diluted, and how a mixed bed is regenerated. GUI thread only.

#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "projectbase/project/iex_project.h"

#include <memory>
#include <vector>

class MBRegenerationType;
class TVRegSeqSubPanel;
class TVRegSeqSubPanelController;

class GUI_BASE_EXPORT RegenerationPanel : public ModulePanelBase
{
public:
    /// The exchanger is one of the line of the project and outlives the panel.
    RegenerationPanel(iex::IEXProject& project, OwnerNode& exchanger, wxWindow* parent);
    ~RegenerationPanel() override;

    TVRegSeqSubPanel& GetSequence() const { return *m_sequence; }
    bool FocusDetail(const DetailAddress& address) override;

protected:
    long GetPanelProjectStatus() override { return 0; }
    void DoResetPanelStatus() override {}
    void DoResetMessages() override {}
    void DoCreateControls() override;
    void DoSetTransferDetails() override {}
    void DoSetValidators() override {}
    void DoBindEvents() override {}
    void DoPrepare() override {}
    void DoUpdateUnits() override;
    void DoLocalize() override;
    void DoFollowProject() override;
    void DoConnectTvTextCtrlsToStatusbar() override {}
    void DoSendVisualizeMessageEvent() override {}
    bool DoHasWhatIf() override;

private:
    wxSizer* CreateChemicals();

    iex::IEXProject& m_iexProject;
    OwnerNode& m_exchanger;
    TVRegSeqSubPanel* m_sequence = nullptr;
    MBRegenerationType* m_mixedBed = nullptr;
    std::vector<ModulePanelBase*> m_panels;
    std::unique_ptr<TVRegSeqSubPanelController> m_controller;
};
