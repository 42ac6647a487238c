// SPDX-License-Identifier: MIT
#pragma once

/// The frame of the small panels that calculate something of one water: a column of labels, fields and units,
/// inputs first, results below. Each edit is stored in the water, which is recalculated at once.
///
/// The project is not owned and outlives the panel. GUI thread only.

#include "gui_base/input/form/form_panel.h"

class GUI_BASE_EXPORT LiquidToolPanel : public FormPanel
{
public:
    LiquidToolPanel(Project* project, int liquid, wxWindow* parent, int id = wxID_ANY,
                    const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                    long style = wxTAB_TRAVERSAL, const wxString& name = wxASCII_STR(wxPanelNameStr));

    /// The detail of the water; throws std::runtime_error when it has none of that name.
    DetailData* GetLiquidDetail(const wxString& key) const;
    /// The input or result field of a detail, or null.
    wxTextCtrl* FindField(const wxString& key) const;

protected:
    /// Rows of a form in three columns, with space around it.
    void AddRows(std::span<const FormRow> rows);
    wxFlexGridSizer& GetForm() { return *m_form; }
    /// Makes the rows in `GetForm()`.
    virtual void DoCreateRows() = 0;
    void DoCreateForm() override;
    int GetLiquidIndex() const { return m_liquid; }
    void DoUpdateValues() override;

private:
    int m_liquid;
    wxFlexGridSizer* m_form = nullptr;
};
