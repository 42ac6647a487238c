// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"

/// Stands where a module has no panel for the configuration of a plant, and says so.
class GUI_BASE_EXPORT PanelNotExist : public ModulePanelBase
{
public:
    /// `title` names the panel for screen readers.
    PanelNotExist(Project* project, wxWindow* parent, int id = wxID_ANY, const wxString& title = {},
                  const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                  long style = wxTAB_TRAVERSAL | wxHSCROLL | wxVSCROLL);

protected:
    /// It has no inputs, and lowers no status.
    long GetPanelProjectStatus() override { return GetProjectStatus(); }
    void DoResetPanelStatus() override {}
    void DoResetMessages() override {}
    void DoCreateControls() override;
    void DoSetTransferDetails() override {}
    void DoSetValidators() override {}
    void DoBindEvents() override {}
    void DoPrepare() override {}
    void DoUpdateUnits() override {}
    void DoLocalize() override {}
    void DoConnectTvTextCtrlsToStatusbar() override {}
    void DoSendVisualizeMessageEvent() override {}
};
