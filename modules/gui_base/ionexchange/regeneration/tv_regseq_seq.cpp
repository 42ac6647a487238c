// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/regeneration/tv_regseq_seq.h"

#include "core/text_limits.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/wheel.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "projectbase/whatif/what_if_rows.h"

#include <wx/stattext.h>
#include <wx/wupdlock.h>

#include <algorithm>

wxDEFINE_EVENT(tvREGSEQ_ADD_STEP, wxCommandEvent);
wxDEFINE_EVENT(tvREGSEQ_MOVE_UP, wxCommandEvent);
wxDEFINE_EVENT(tvREGSEQ_MOVE_DOWN, wxCommandEvent);
wxDEFINE_EVENT(tvREGSEQ_REMOVE_STEP, wxCommandEvent);
wxDEFINE_EVENT(tvREGSEQ_REMARKS_CHANGED, wxCommandEvent);
wxDEFINE_EVENT(tvREGSEQ_CHANGED, wxCommandEvent);
wxDEFINE_EVENT(tvREGSEQ_REFRESH, wxCommandEvent);

namespace {

constexpr int kRemarksLines = 4;
constexpr int kRemarksWidth = 480;

}  // namespace

TVRegSeqSubPanel::TVRegSeqSubPanel(iex::IEXProject* project, wxWindow* parent, int id, int step,
                                   const wxPoint& pos, const wxSize& size, long style)
    : FormPanel(project, *project->GetStep(static_cast<std::size_t>(step)).GetDetails(), parent, id, pos,
                size, style),
      m_exchanger(project->GetStep(static_cast<std::size_t>(step)))
{
    Create();
}

std::size_t TVRegSeqSubPanel::GetStep() const
{
    return m_exchanger.GetParent() != nullptr ? m_exchanger.GetPosition() : static_cast<std::size_t>(-1);
}

void TVRegSeqSubPanel::DoCreateForm()
{
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(form::kGap));
    auto* outer = new wxBoxSizer(wxVERTICAL);
    CreateSequenceGrid();
    outer->Add(m_grid, wxSizerFlags(spaced).Expand());
    outer->Add(CreateButtonRow(), spaced);
    outer->Add(CreateCommentCtrl(), wxSizerFlags(spaced).Expand());
    SetSizer(outer);
}

void TVRegSeqSubPanel::CreateSequenceGrid()
{
    m_grid = new TVRegSeqGrid(this);
    accessibility::SetName(*m_grid, i18n::Translated(wxTRANSLATE("Regeneration sequence")));
    m_grid->SetOnEdit([this] { PostTVRegSeqChangedEvent(); });
    m_grid->SetOnCommand([this](TVRegSeqGrid::Command command) {
        switch (command) {
            case TVRegSeqGrid::Command::Add:
                return PostAddStepEvent();
            case TVRegSeqGrid::Command::MoveUp:
                return PostMoveUpEvent();
            case TVRegSeqGrid::Command::MoveDown:
                return PostMoveDownEvent();
            case TVRegSeqGrid::Command::Remove:
                return PostRemoveStepEvent();
        }
    });
    m_grid->SetIsPossible([this](TVRegSeqGrid::Command command) {
        // The buttons say it; they may not know yet of a row that has just been chosen.
        UpdateWindowUI();
        switch (command) {
            case TVRegSeqGrid::Command::MoveUp:
                return m_up->IsThisEnabled();
            case TVRegSeqGrid::Command::MoveDown:
                return m_down->IsThisEnabled();
            case TVRegSeqGrid::Command::Remove:
                return m_remove->IsThisEnabled();
            default:
                return true;
        }
    });
}

wxSizer* TVRegSeqSubPanel::CreateButtonRow()
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const auto add = [&](const wxString& label, const wxString& tooltip) {
        auto* button = AddLocalizable(new TvButton(this, wxID_ANY, label));
        button->SetTranslatableToolTip(tooltip);
        row->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(form::kGap)));
        return button;
    };
    m_add = add(wxTRANSLATE("Add"), wxTRANSLATE("Add a row behind the last one (Insert)"));
    m_up = add(wxTRANSLATE("Move up"), wxTRANSLATE("Move the selected rows up (Alt+Up)"));
    m_down = add(wxTRANSLATE("Move down"), wxTRANSLATE("Move the selected rows down (Alt+Down)"));
    m_remove = add(wxTRANSLATE("Remove"),
                   wxTRANSLATE("Remove the selected rows; rows that the exchanger requires stay (Delete)"));
    return row;
}

wxSizer* TVRegSeqSubPanel::CreateCommentCtrl()
{
    auto* box = new wxBoxSizer(wxVERTICAL);
    auto* head = new wxBoxSizer(wxHORIZONTAL);
    head->Add(AddLocalizable(new TvStaticText(this, wxID_ANY, wxTRANSLATE("Remarks"), wxString())),
              wxSizerFlags().CentreVertical());
    head->AddStretchSpacer();
    m_counter = CreateRemarksCharCounter(this);
    head->Add(m_counter, wxSizerFlags().CentreVertical());
    box->Add(head, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(form::kGap)));
    m_remarks = dynamic_cast<TvTextCtrl*>(GetFields().CreateField(this, {.key = "step/remarks",
                                                                         .label = wxTRANSLATE("Remarks"),
                                                                         .width = kRemarksWidth,
                                                                         .lines = kRemarksLines}));
    box->Add(m_remarks, wxSizerFlags().Expand());
    return box;
}

wxStaticText* TVRegSeqSubPanel::CreateRemarksCharCounter(wxWindow* parent)
{
    return new wxStaticText(parent, wxID_ANY, wxString::Format("%d/%d", 0, int{text_limits::kRemarks}));
}

void TVRegSeqSubPanel::UpdateCharLimitCounter()
{
    const std::size_t used = text_limits::CountLetters(m_remarks->GetValue().utf8_string());
    const wxString text = wxString::Format("%zu/%d", used, int{text_limits::kRemarks});
    if (m_counter->GetLabel() == text)
        return;
    m_counter->SetLabel(text);
    m_counter->GetContainingSizer()->Layout();
}

void TVRegSeqSubPanel::DoBindEvents()
{
    FormPanel::DoBindEvents();
    const auto post = [this](TvButton* button, wxEventType type) {
        button->Bind(wxEVT_BUTTON, [this, type](wxCommandEvent&) { Post(type); });
    };
    post(m_add, tvREGSEQ_ADD_STEP);
    post(m_up, tvREGSEQ_MOVE_UP);
    post(m_down, tvREGSEQ_MOVE_DOWN);
    post(m_remove, tvREGSEQ_REMOVE_STEP);
    m_remarks->Bind(wxEVT_MOUSEWHEEL,
                    [this](wxMouseEvent& event) { wheel::ScrollParentUnlessFocused(*m_remarks, event); });
    m_remarks->Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
        event.Skip();
        UpdateCharLimitCounter();
        PostRemarksChangedEvent();
    });
    m_remarks->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        PostRemarksChangedEvent();
    });
}

void TVRegSeqSubPanel::Post(wxEventType type)
{
    if (IsBeingDeleted())
        return;
    wxCommandEvent event(type, GetId());
    event.SetEventObject(this);
    event.StopPropagation();
    ProcessWindowEvent(event);
}

void TVRegSeqSubPanel::SetChoicesType(const std::vector<SelectionChoice>& choices)
{
    m_grid->GetRegSeqTable().SetChoicesType(choices);
}

void TVRegSeqSubPanel::SetChoicesMedium(const std::vector<SelectionChoice>& choices)
{
    m_grid->GetRegSeqTable().SetChoicesMedium(choices);
}

void TVRegSeqSubPanel::SetChoicesDirection(const std::vector<SelectionChoice>& choices)
{
    m_grid->GetRegSeqTable().SetChoicesDirection(choices);
}

void TVRegSeqSubPanel::SetData(const RegSeqUIData& data)
{
    const wxWindowUpdateLocker frozen(this);
    const auto differ = [](const std::vector<SelectionChoice>& a, const std::vector<wxString>& shown) {
        return !std::ranges::equal(a, shown, {}, &SelectionChoice::text);
    };
    const RegSeqTable& table = m_grid->GetRegSeqTable();
    if (differ(data.types, table.TextsOf(kRegSeqType)) || differ(data.media, table.TextsOf(kRegSeqMedium)) ||
        differ(data.directions, table.TextsOf(kRegSeqDirection))) {
        SetChoicesType(data.types);
        SetChoicesMedium(data.media);
        SetChoicesDirection(data.directions);
        m_grid->ShowTexts();
    }
    const bool otherHeight = data.steps.size() != GetSequenceRows().size();
    SetSequenceRows(data.steps);
    SetRemarks(data.remarks);
    if (otherHeight)
        FitAndLayout();
}

RegSeqUIData TVRegSeqSubPanel::GetData() const
{
    return {.steps = GetSequenceRows(), .remarks = GetRemarks(), .types = {}, .media = {}, .directions = {}};
}

void TVRegSeqSubPanel::SetRemarks(const wxString& remarks)
{
    // The caret of a field being typed in stays where it is.
    if (!m_remarks->HasFocus() && m_remarks->GetValue() != remarks)
        m_remarks->ChangeValue(remarks);
    UpdateCharLimitCounter();
}

wxString TVRegSeqSubPanel::GetRemarks() const
{
    return m_remarks->GetValue();
}

std::vector<int> TVRegSeqSubPanel::GetSelectedAndRemoveableRows() const
{
    std::vector<int> rows = GetSelectedRows();
    std::erase_if(rows,
                  [this](int row) { return !GetSequenceRows()[static_cast<std::size_t>(row)].removable; });
    return rows;
}

void TVRegSeqSubPanel::EnableButtons(bool up, bool down, bool remove)
{
    m_up->Enable(up);
    m_down->Enable(down);
    m_remove->Enable(remove);
}

bool TVRegSeqSubPanel::FocusDetail(const DetailAddress& address)
{
    const auto& steps = GetSequenceRows();
    const auto found = std::ranges::find(steps, address.owner, &RegSeqStep::row);
    if (found == steps.end())
        return FormPanel::FocusDetail(address);
    m_grid->SetFocus();
    const auto row = static_cast<int>(found - steps.begin());
    m_grid->GoToCell(row, m_grid->GetRegSeqTable().ColumnOf(address.key));
    return true;
}

void TVRegSeqSubPanel::ShowUnits()
{
    m_grid->GetRegSeqTable().SetUnitSystem(GetCurrentDisplayUnitSystem());
    m_grid->ShowTexts();
}

void TVRegSeqSubPanel::DoPrepare()
{
    FormPanel::DoPrepare();
    ShowUnits();
    UpdateCharLimitCounter();
}

void TVRegSeqSubPanel::DoUpdateUnits()
{
    FormPanel::DoUpdateUnits();
    ShowUnits();
}

void TVRegSeqSubPanel::DoLocalize()
{
    FormPanel::DoLocalize();
    accessibility::SetName(*m_grid, i18n::Translated(wxTRANSLATE("Regeneration sequence")));
    Post(tvREGSEQ_REFRESH);
}

void TVRegSeqSubPanel::DoFollowProject()
{
    FormPanel::DoFollowProject();
    Post(tvREGSEQ_REFRESH);
}

bool TVRegSeqSubPanel::DoHasWhatIf()
{
    return GetProject() != nullptr && whatif::HasRows(*GetProject());
}
