// SPDX-License-Identifier: MIT
#pragma once

/// How much of each medium a regeneration sequence needs. Read only. GUI thread only.

#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "projectbase/project/iex_project.h"

#include <wx/grid.h>

#include <string>

class TvStaticBoxSizer;

/// A row for each medium and one for their sum: name and volume in the displayed unit system.
class GUI_BASE_EXPORT TVRegSeqMediumsGrid : public wxGrid
{
public:
    explicit TVRegSeqMediumsGrid(wxWindow* parent, int id = wxID_ANY);

    void SetSums(const MediumSumsData& sums, const std::string& unitSystem);
};

class GUI_BASE_EXPORT TVRegenerationMediumsSubpanel : public ModulePanelBase
{
public:
    /// `step` is the place of the exchanger in its line; throws std::out_of_range where there is none.
    TVRegenerationMediumsSubpanel(iex::IEXProject* project, wxWindow* parent, int id = wxID_ANY,
                                  const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                                  long style = wxTAB_TRAVERSAL,
                                  const wxString& name = wxASCII_STR(wxPanelNameStr), std::size_t step = 0);

    void UpdateGrid();
    TVRegSeqMediumsGrid& GetGrid() const { return *m_grid; }
    /// The status that the module belongs to.
    void SetProjectStatusValue(long status) { m_status = status; }
    long GetPanelProjectStatus() override { return m_status; }

protected:
    void DoCreateControls() override;
    void DoResetPanelStatus() override {}
    void DoResetMessages() override {}
    void DoSetTransferDetails() override {}
    void DoSetValidators() override {}
    void DoBindEvents() override {}
    void DoPrepare() override { UpdateGrid(); }
    void DoUpdateUnits() override { UpdateGrid(); }
    void DoLocalize() override;
    void DoFollowProject() override { UpdateGrid(); }
    void DoConnectTvTextCtrlsToStatusbar() override {}
    void DoSendVisualizeMessageEvent() override {}

private:
    iex::IEXProject* m_iexProject;
    const OwnerNode& m_exchanger;
    long m_status = 0;
    TVRegSeqMediumsGrid* m_grid = nullptr;
};
