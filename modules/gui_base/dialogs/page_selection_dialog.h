// SPDX-License-Identifier: MIT
#pragma once

/// Choice of the pages of a report. All pages are chosen at first.

#include "gui_base/gui_base_export.h"
#include "gui_base/report/report_page_source.h"

#include <wx/checklst.h>
#include <wx/dialog.h>
#include <wx/panel.h>

#include <utility>
#include <vector>

/// The content of the dialog: a check list with buttons for all and none.
class GUI_BASE_EXPORT PageSelectionPanel : public wxPanel
{
public:
    /// `visibleRows` is how many pages are seen without scrolling.
    PageSelectionPanel(const std::vector<ReportPage>& pages, int visibleRows, wxWindow* parent,
                       int id = wxID_ANY, const wxPoint& pos = wxDefaultPosition,
                       const wxSize& size = wxDefaultSize, long style = wxTAB_TRAVERSAL,
                       const wxString& name = wxASCII_STR(wxPanelNameStr));

    /// The chosen pages, in their order.
    std::vector<ReportPage> GetChosen() const;
    /// Chooses the pages with those identifiers and no others.
    void SetChosen(const std::vector<int>& ids);
    void CheckAll(bool check);

private:
    std::vector<ReportPage> m_pages;
    wxCheckListBox* m_list;
};

class GUI_BASE_EXPORT PageSelectionDialog : public wxDialog
{
public:
    /// `pages` are source titles with the identifiers of the pages; an empty title names the dialog "Print to
    /// PDF".
    PageSelectionDialog(const std::vector<std::pair<wxString, int>>& pages, wxWindow* parent,
                        int id = wxID_ANY, const wxString& title = {}, const wxPoint& pos = wxDefaultPosition,
                        const wxSize& size = wxDefaultSize,
                        long style = wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);

    /// The chosen pages, in their order.
    std::vector<ReportPage> GetActiveReports() const { return m_panel->GetChosen(); }
    /// Chooses the pages with those identifiers and no others.
    void SetActiveReports(const std::vector<int>& ids) { m_panel->SetChosen(ids); }

private:
    PageSelectionPanel* m_panel;
};
