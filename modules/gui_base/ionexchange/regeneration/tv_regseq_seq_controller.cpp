// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/regeneration/tv_regseq_seq_controller.h"

#include "gui_base/support/translation.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/sequence/sequence_tables.h"

#include <wx/translation.h>

#include <algorithm>
#include <utility>

namespace {

/// Conditioning only where there is one, or a row for it.
std::vector<SelectionChoice> TypeChoices(bool hasConditioning, const std::vector<RegSeqStep>& steps)
{
    const bool isThere = std::ranges::any_of(
        steps, [](const RegSeqStep& step) { return step.type == sequence::kConditioning; });
    std::vector<SelectionChoice> choices;
    for (const sequence::Type& type : sequence::Types()) {
        if (type.key == sequence::kConditioning && !hasConditioning && !isThere)
            continue;
        choices.push_back({wxString::FromUTF8(type.key), i18n::Translated(wxString::FromUTF8(type.label))});
    }
    return choices;
}

/// Waters, air, and the chemicals of the exchanger.
std::vector<SelectionChoice> MediumChoices(const OwnerNode& exchanger)
{
    const auto isOwn = [&exchanger](const std::string& chemical) {
        const auto compartments = exchanger.GetChildren(OwnerKind::Compartment);
        return std::ranges::any_of(compartments, [&](const auto& compartment) {
            const DetailList& details = *compartment->GetDetails();
            return details.At("stepcomp/rm.chemical").GetStdStringValue() == chemical ||
                   details.At("stepcomp/cond.chemical").GetStdStringValue() == chemical;
        });
    };
    std::vector<SelectionChoice> choices;
    for (const sequence::Medium& medium : sequence::Media()) {
        if (medium.chemical.empty() || isOwn(medium.chemical))
            choices.push_back(
                {wxString::FromUTF8(medium.key), i18n::Translated(wxString::FromUTF8(medium.label))});
    }
    return choices;
}

std::vector<SelectionChoice> DirectionChoices()
{
    return {{"UP", i18n::Translated(wxTRANSLATE("Upflow"))},
            {"DOWN", i18n::Translated(wxTRANSLATE("Downflow"))}};
}

}  // namespace

TVRegSeqSubPanelController::TVRegSeqSubPanelController(TVRegSeqSubPanel* view, iex::IEXProject* project)
    : m_view(view), m_project(project)
{
    LoadDataFromDetails();
    SetDataToView();
    RegisterCallbacks();
    OnUIUpdate();
}

TVRegSeqSubPanelController::TVRegSeqSubPanelController(const TVRegSeqSubPanelController& other)
    : m_view(other.m_view.get()), m_project(other.m_project), m_data(other.m_data)
{}

TVRegSeqSubPanelController& TVRegSeqSubPanelController::operator=(const TVRegSeqSubPanelController& other)
{
    if (this == &other)
        return *this;
    // What was registered answers for another view.
    m_saving = std::make_shared<bool>(false);
    m_view = other.m_view.get();
    m_project = other.m_project;
    m_data = other.m_data;
    return *this;
}

void TVRegSeqSubPanelController::RegisterCallbacks()
{
    if (!m_view)
        return;
    const auto answer = [this](wxEventType type, void (TVRegSeqSubPanelController::*handler)()) {
        m_view->Bind(wxEventTypeTag<wxCommandEvent>(type),
                     [this, handler, alive = std::weak_ptr<bool>(m_saving)](wxCommandEvent& event) {
                         // Another one may be left to answer.
                         if (alive.expired())
                             event.Skip();
                         else
                             (this->*handler)();
                     });
    };
    answer(tvREGSEQ_ADD_STEP, &TVRegSeqSubPanelController::OnStepAdd);
    answer(tvREGSEQ_MOVE_UP, &TVRegSeqSubPanelController::OnStepMoveUp);
    answer(tvREGSEQ_MOVE_DOWN, &TVRegSeqSubPanelController::OnStepMoveDown);
    answer(tvREGSEQ_REMOVE_STEP, &TVRegSeqSubPanelController::OnStepRemove);
    answer(tvREGSEQ_REMARKS_CHANGED, &TVRegSeqSubPanelController::OnRemarksChanged);
    answer(tvREGSEQ_CHANGED, &TVRegSeqSubPanelController::OnSequenceChanged);
    m_view->Bind(tvREGSEQ_REFRESH, [this, alive = std::weak_ptr<bool>(m_saving)](wxCommandEvent& event) {
        event.Skip();
        const auto saving = alive.lock();
        if (!saving || *saving)
            return;
        Refresh();
    });
    m_view->Bind(wxEVT_UPDATE_UI, [this, alive = std::weak_ptr<bool>(m_saving)](wxUpdateUIEvent& event) {
        event.Skip();
        // Those of the controls in it climb to the view, too.
        if (!alive.expired() && event.GetEventObject() == m_view.get())
            OnUIUpdate();
    });
}

void TVRegSeqSubPanelController::LoadDataFromDetails()
{
    // The exchanger may have left the line, its page goes next.
    if (m_view && m_view->GetStep() < m_project->NumberSteps())
        m_data = m_project->GetRegSeqData(m_view->GetStep());
}

void TVRegSeqSubPanelController::Refresh()
{
    // An undo may have moved the rows that are selected.
    const std::vector<int> selected = m_view->GetSelectedRows();
    std::vector<DetailOwner> owners;
    for (const int row : selected) {
        if (static_cast<std::size_t>(row) < m_data.steps.size())
            owners.push_back(m_data.steps[static_cast<std::size_t>(row)].row);
    }
    LoadDataFromDetails();
    SetDataToView();
    std::vector<int> rows;
    for (std::size_t row = 0; row < m_data.steps.size(); ++row) {
        if (std::ranges::find(owners, m_data.steps[row].row) != owners.end())
            rows.push_back(static_cast<int>(row));
    }
    if (rows != selected)
        m_view->SelectRows(rows);
}

void TVRegSeqSubPanelController::GetDataFromView()
{
    if (!m_view)
        return;
    const RegSeqUIData shown = m_view->GetData();
    m_data.steps = shown.steps;
    m_data.remarks = shown.remarks.utf8_string();
}

void TVRegSeqSubPanelController::SetDataToView()
{
    if (!m_view || m_view->GetStep() >= m_project->NumberSteps())
        return;
    m_view->SetData({.steps = m_data.steps,
                     .remarks = wxString::FromUTF8(m_data.remarks),
                     .types = TypeChoices(m_project->HasConditioning(m_view->GetStep()), m_data.steps),
                     .media = MediumChoices(m_project->GetStep(m_view->GetStep())),
                     .directions = DirectionChoices()});
}

void TVRegSeqSubPanelController::SaveDataToProject()
{
    if (m_view)
        m_project->SaveRegSeqData(m_view->GetStep(), m_data);
}

void TVRegSeqSubPanelController::Calculate()
{
    m_project->CalculateDesign();
}

void TVRegSeqSubPanelController::Store(const char* name, Follow follow)
{
    const bool outer = std::exchange(*m_saving, true);
    {
        const ProjectEdit edit(*m_project, name);
        SaveDataToProject();
        if (follow == Follow::Values)
            Calculate();
    }
    LoadDataFromDetails();
    *m_saving = outer;
    SetDataToView();
    if (m_view)
        m_view->SendTvChangeEvent();
}

void TVRegSeqSubPanelController::AddStep()
{
    m_data.steps.emplace_back();
}

void TVRegSeqSubPanelController::Move(const std::vector<int>& rows, int step)
{
    const int count = static_cast<int>(m_data.steps.size());
    for (const int row : rows) {
        const int other = row + step;
        if (row >= 0 && row < count && other >= 0 && other < count)
            std::swap(m_data.steps[static_cast<std::size_t>(row)],
                      m_data.steps[static_cast<std::size_t>(other)]);
    }
}

void TVRegSeqSubPanelController::RemoveSteps(const std::vector<int>& rows)
{
    for (int row = static_cast<int>(m_data.steps.size()) - 1; row >= 0; --row) {
        if (std::ranges::find(rows, row) != rows.end())
            m_data.steps.erase(m_data.steps.begin() + row);
    }
}

void TVRegSeqSubPanelController::SelectGridRow(int row)
{
    if (m_view)
        m_view->SelectRows({row});
}

void TVRegSeqSubPanelController::ClearSelectedGridRows()
{
    if (m_view)
        m_view->SelectRows({});
}

void TVRegSeqSubPanelController::OnStepAdd()
{
    AddStep();
    Store(wxTRANSLATE("add row of the sequence"), Follow::Values);
    SelectGridRow(static_cast<int>(m_data.steps.size()) - 1);
}

void TVRegSeqSubPanelController::MoveSelection(const std::vector<int>& rows, int step)
{
    std::vector<DetailOwner> selected;
    for (const int row : rows)
        selected.push_back(m_data.steps[static_cast<std::size_t>(row)].row);
    Move(rows, step);
    Store(wxTRANSLATE("move rows of the sequence"), Follow::Order);
    std::vector<int> places;
    for (int row = 0; row < static_cast<int>(m_data.steps.size()); ++row) {
        if (std::ranges::find(selected, m_data.steps[static_cast<std::size_t>(row)].row) != selected.end())
            places.push_back(row);
    }
    if (m_view)
        m_view->SelectRows(places);
}

void TVRegSeqSubPanelController::OnStepMoveUp()
{
    MoveSelection(m_view->GetSelectedRows(), -1);
}

void TVRegSeqSubPanelController::OnStepMoveDown()
{
    // The lower ones make room for those above them.
    std::vector<int> rows = m_view->GetSelectedRows();
    std::ranges::reverse(rows);
    MoveSelection(rows, 1);
}

void TVRegSeqSubPanelController::OnStepRemove()
{
    const std::vector<int> rows = m_view->GetSelectedAndRemoveableRows();
    if (rows.empty())
        return;
    ClearSelectedGridRows();
    RemoveSteps(rows);
    Store(wxTRANSLATE("remove rows of the sequence"), Follow::Values);
    SelectGridRow(std::min(rows.front(), static_cast<int>(m_data.steps.size()) - 1));
}

void TVRegSeqSubPanelController::OnRemarksChanged()
{
    // Into the project they go when the field is left, as one step of the history.
    m_data.remarks = m_view->GetRemarks().utf8_string();
}

void TVRegSeqSubPanelController::OnSequenceChanged()
{
    GetDataFromView();
    Store(wxTRANSLATE("change regeneration sequence"), Follow::Values);
}

void TVRegSeqSubPanelController::OnUIUpdate()
{
    if (!m_view)
        return;
    const std::vector<int> rows = m_view->GetSelectedRows();
    const int last = static_cast<int>(m_data.steps.size()) - 1;
    m_view->EnableButtons(std::ranges::any_of(rows, [](int row) { return row != 0; }),
                          std::ranges::any_of(rows, [last](int row) { return row != last; }),
                          !m_view->GetSelectedAndRemoveableRows().empty());
}
