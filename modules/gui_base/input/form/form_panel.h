// SPDX-License-Identifier: MIT
#pragma once

/// A module panel that is a table of rows: a derived panel only makes them in DoCreateForm.
///
/// Whatever the user commits is stored by the panel's synchronisation, which then recalculates and shows
/// everything again; the parent is told once. Fields show hints in the status bar, follow unit system and
/// language, and are named for screen readers with their units.

#include "gui_base/input/form/field_set.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"

class GUI_BASE_EXPORT FormPanel : public ModulePanelBase
{
protected:
    /// `details` hold the values of the rows; they are not owned and outlive the panel.
    FormPanel(Project* project, DetailList& details, wxWindow* parent, int id = wxID_ANY,
              const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
              long style = wxTAB_TRAVERSAL | wxHSCROLL | wxVSCROLL,
              const wxString& name = wxASCII_STR(wxPanelNameStr));

    /// A panel without a window yet; CreateWindow follows.
    FormPanel() = default;
    void CreateWindow(Project* project, DetailList& details, wxWindow* parent, int id, const wxPoint& pos,
                      const wxSize& size, long style, const wxString& name);

    /// Makes the rows in `GetFields()` and sets the sizer.
    virtual void DoCreateForm() = 0;
    FieldSet& GetFields() const { return *m_fields; }
    /// A grid for rows of label, field and unit.
    wxFlexGridSizer* NewGrid(int columns = 3) const;
    /// Stores, recalculates, shows everything again and tells the parent.
    void Commit();

    long GetPanelProjectStatus() override { return 0; }
    double GetCurrencyFactor() const override { return m_fields->GetCurrency().factor; }
    void DoResetPanelStatus() override {}
    void DoResetMessages() override {}
    void DoCreateControls() override;
    void DoSetTransferDetails() override;
    void DoSetValidators() override { m_fields->SetValidators(); }
    void DoBindEvents() override;
    void DoPrepare() override;
    void DoUpdateUnits() override;
    void DoLocalize() override;
    void DoUpdateValidators() override;
    void DoFollowProject() override;
    void DoConnectTvTextCtrlsToStatusbar() override;
    void DoSendVisualizeMessageEvent() override {}

private:
    DetailList* m_details = nullptr;
    std::unique_ptr<FieldSet> m_fields;
};
