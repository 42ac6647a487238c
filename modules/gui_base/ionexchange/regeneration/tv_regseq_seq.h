// SPDX-License-Identifier: MIT
#pragma once

/// The view of a regeneration sequence: a grid of its rows, buttons for them, and remarks. What the user does
/// it tells by the events of regseq_events.h; what is to be seen it is given. The remarks are a field of the
/// project like any other: leaving it stores them. GUI thread only.

#include "gui_base/input/form/form_panel.h"
#include "gui_base/ionexchange/regeneration/regseq_events.h"
#include "gui_base/ionexchange/regeneration/regseq_grid.h"
#include "projectbase/project/iex_project.h"

#include <vector>

class TvButton;
class wxStaticText;

/// What the view shows.
struct RegSeqUIData
{
    std::vector<RegSeqStep> steps;
    wxString remarks;
    std::vector<SelectionChoice> types;
    std::vector<SelectionChoice> media;
    std::vector<SelectionChoice> directions;
};

class GUI_BASE_EXPORT TVRegSeqSubPanel : public FormPanel
{
public:
    /// `step` is the place of the exchanger in its line; throws std::out_of_range where there is none.
    TVRegSeqSubPanel(iex::IEXProject* project, wxWindow* parent, int id, int step,
                     const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                     long style = wxTAB_TRAVERSAL);

    void SetData(const RegSeqUIData& data);
    RegSeqUIData GetData() const;
    void SetChoicesType(const std::vector<SelectionChoice>& choices);
    void SetChoicesMedium(const std::vector<SelectionChoice>& choices);
    void SetChoicesDirection(const std::vector<SelectionChoice>& choices);
    void SetSequenceRows(const std::vector<RegSeqStep>& steps) { m_grid->SetSteps(steps); }
    const std::vector<RegSeqStep>& GetSequenceRows() const { return m_grid->GetSteps(); }
    /// Not while the user types them.
    void SetRemarks(const wxString& remarks);
    wxString GetRemarks() const;

    /// Ascending; of the grid's cursor where no row is selected.
    std::vector<int> GetSelectedRows() const { return m_grid->GetChosenRows(); }
    std::vector<int> GetSelectedAndRemoveableRows() const;
    void SelectRows(const std::vector<int>& rows) { m_grid->SelectRows(rows); }
    void EnableButtons(bool up, bool down, bool remove);

    void PostAddStepEvent() { Post(tvREGSEQ_ADD_STEP); }
    void PostMoveUpEvent() { Post(tvREGSEQ_MOVE_UP); }
    void PostMoveDownEvent() { Post(tvREGSEQ_MOVE_DOWN); }
    void PostRemoveStepEvent() { Post(tvREGSEQ_REMOVE_STEP); }
    void PostRemarksChangedEvent() { Post(tvREGSEQ_REMARKS_CHANGED); }
    void PostTVRegSeqChangedEvent() { Post(tvREGSEQ_CHANGED); }
    /// Tells the host that the module changed the project.
    void SendTvChangeEvent() { SendChangeEvent(); }
    void UpdateCharLimitCounter();

    /// The place of the exchanger in its line now; no place that there is once it has left the line.
    std::size_t GetStep() const;
    TVRegSeqGrid& GetGrid() const { return *m_grid; }
    bool FocusDetail(const DetailAddress& address) override;

protected:
    void DoCreateForm() override;
    void DoBindEvents() override;
    void DoPrepare() override;
    void DoUpdateUnits() override;
    void DoLocalize() override;
    void DoFollowProject() override;
    bool DoHasWhatIf() override;

private:
    void CreateSequenceGrid();
    wxSizer* CreateButtonRow();
    wxSizer* CreateCommentCtrl();
    wxStaticText* CreateRemarksCharCounter(wxWindow* parent);
    void Post(wxEventType type);
    void ShowUnits();

    const OwnerNode& m_exchanger;
    TVRegSeqGrid* m_grid = nullptr;
    TvButton* m_add = nullptr;
    TvButton* m_up = nullptr;
    TvButton* m_down = nullptr;
    TvButton* m_remove = nullptr;
    TvTextCtrl* m_remarks = nullptr;
    wxStaticText* m_counter = nullptr;
};
