// SPDX-License-Identifier: MIT
#pragma once

/// The frame of the dialogs that change one water while the user looks on: OK keeps what was entered, Cancel
/// and closing the window bring back what was there.

#include "gui_base/gui_base_export.h"
#include "gui_base/water/tools/liquid_tool_panel.h"

#include <wx/dialog.h>

class GUI_BASE_EXPORT LiquidToolDialog : public wxDialog
{
public:
    /// Brings the water back to what it was.
    virtual void RestoreData() = 0;

    void OnOK(wxCommandEvent& event);
    void OnCancel(wxCommandEvent& event);
    void OnClose(wxCloseEvent& event);

protected:
    LiquidToolDialog(Project* project, int liquid, wxWindow* parent, int id, const wxString& title,
                     const wxPoint& pos, const wxSize& size, long style, const wxString& name);

    /// Puts the panel above the buttons and fits the dialog.
    void CreateControls(LiquidToolPanel* panel);
    void BindEvents();

    DetailList& GetDetails() const;
    Project* GetProject() const { return m_project; }
    int GetLiquidIndex() const { return m_liquid; }
    LiquidToolPanel* GetToolPanel() const { return m_panel; }

private:
    Project* m_project;
    int m_liquid;
    LiquidToolPanel* m_panel = nullptr;
};
