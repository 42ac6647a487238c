// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/whatif/what_if_dialog.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/ionexchange/whatif/what_if_grid.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/button_label.h"
#include "gui_base/support/events.h"
#include "gui_base/support/help_file_provider.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"
#include "projectbase/whatif/input_copy.h"
#include "projectbase/whatif/what_if.h"

#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/translation.h>
#include <wx/utils.h>

#include <limits>

namespace {

constexpr int kGap = 4;
constexpr int kLeastWidth = 640;
constexpr int kHeight = 520;
constexpr const char* kHelpPage = "project_what_if.htm";

static_assert(WhatIfDialog::kTolerance == WhatIf::kTolerance &&
              WhatIfDialog::kIterations <= WhatIf::kMostRuns);

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

wxButton* NewButton(wxWindow* parent, int id, const char* label)
{
    return button_label::NewButton(parent, id, Tr(label));
}

}  // namespace

WhatIfDialog::WhatIfDialog(std::unique_ptr<WifTable> table, Project* project, wxWindow* parent, int id,
                           const wxString& title, const wxPoint& pos, const wxSize& size, long style)
    : wxDialog(parent, id, title.empty() ? Tr(wxTRANSLATE("What-if analysis")) : title, pos, size, style),
      m_project(project),
      m_copy(project->Clone()),
      m_history(*m_copy, std::numeric_limits<std::size_t>::max()),
      m_table(table.release())
{
    m_table->ShowProject(*m_project, *m_copy);
    m_copy->AddObserver(*this);
    CreateControls();
    BindEvents();
    UpdateButtons();
}

WhatIfDialog::~WhatIfDialog()
{
    // The grid's table shows values of the copy.
    DestroyChildren();
    m_copy->RemoveObserver(*this);
}

void WhatIfDialog::CreateControls()
{
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags row = wxSizerFlags().Expand().Border(wxALL, FromDIP(2 * kGap));
    outer->Add(CreateHistoryRow(), row);
    m_grid = new WhatIfGrid(this, m_table);
    outer->Add(m_grid, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, FromDIP(2 * kGap)));
    m_status = new wxStaticText(this, wxID_ANY, wxString());
    outer->Add(m_status, row);
    outer->Add(CreateButtonRow(), row);
    SetSizer(outer);
    SetMinSize(FromDIP(wxSize(480, 280)));
    // All columns, as far as the screen goes.
    wxSize size(m_grid->GetWidthOfColumns() + FromDIP(4 * kGap), FromDIP(kHeight));
    size.IncTo(FromDIP(wxSize(kLeastWidth, kHeight)));
    size.DecTo(wxDisplay(this).GetClientArea().GetSize());
    SetSize(size);
    m_grid->SetFocus();
    CentreOnParent();
}

wxSizer* WhatIfDialog::CreateHistoryRow()
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const auto add = [&](int id, const char* label) {
        wxButton* button = NewButton(this, id, label);
        row->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(kGap)));
        return button;
    };
    m_undo = add(wxID_UNDO, wxTRANSLATE("&Undo"));
    m_undo->SetBitmap(ImageLoader::LoadBundle("/icons/i16/undo.png", wxSize(16, 16)));
    m_redo = add(wxID_REDO, wxTRANSLATE("&Redo"));
    m_redo->SetBitmap(ImageLoader::LoadBundle("/icons/i16/redo.png", wxSize(16, 16)));
    m_undoAll = add(wxID_BACKWARD, wxTRANSLATE("Undo a&ll"));
    m_redoAll = add(wxID_FORWARD, wxTRANSLATE("Redo all"));
    row->AddStretchSpacer();
    m_discard = NewButton(this, wxID_REVERT, wxTRANSLATE("&Discard"));
    m_discard->SetToolTip(Tr(wxTRANSLATE("Discard changes")));
    row->Add(m_discard);
    return row;
}

wxSizer* WhatIfDialog::CreateButtonRow()
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(NewButton(this, wxID_HELP, wxTRANSLATE("&Help")));
    row->AddStretchSpacer();
    m_apply = NewButton(this, wxID_APPLY, wxTRANSLATE("&Apply"));
    row->Add(m_apply, wxSizerFlags().Border(wxRIGHT, FromDIP(kGap)));
    row->Add(NewButton(this, wxID_CANCEL, wxTRANSLATE("&Close")));
    return row;
}

void WhatIfDialog::BindEvents()
{
    const auto bind = [this](int id, void (WhatIfDialog::*action)()) {
        Bind(
            wxEVT_BUTTON,
            [this, action](wxCommandEvent&) {
                CommitCell();
                (this->*action)();
            },
            id);
    };
    bind(wxID_UNDO, &WhatIfDialog::Undo);
    bind(wxID_REDO, &WhatIfDialog::Redo);
    bind(wxID_BACKWARD, &WhatIfDialog::UndoAll);
    bind(wxID_FORWARD, &WhatIfDialog::RedoAll);
    bind(wxID_REVERT, &WhatIfDialog::Discard);
    bind(wxID_APPLY, &WhatIfDialog::OnApply);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { ShowHelp(); }, wxID_HELP);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); }, wxID_CANCEL);
    Bind(wxEVT_CLOSE_WINDOW, &WhatIfDialog::OnClose, this);
    Bind(wxEVT_CHAR_HOOK, &WhatIfDialog::OnCharHook, this);
    Bind(tv_MESSAGE, [this](MessageEvent& event) {
        const std::vector<std::string> messages = event.GetMessages();
        m_status->SetLabelText(messages.empty() ? wxString() : wxString::FromUTF8(messages.front()));
    });
    m_table->SetOnEntered([this](int row, double value) { OnEdited(row, value); });
    m_grid->SetOnSearch([this](int row, int column) { SetColEditable(row, column); });
}

DetailData* WhatIfDialog::GetDetailToAdjust(int row) const
{
    const WifPair& points = m_table->GetRow(row);
    return m_table->GetFoundSide(row) == WifTable::Side::First ? points.first.detail : points.second.detail;
}

DetailData* WhatIfDialog::GetFixedDetail(int row) const
{
    const WifPair& points = m_table->GetRow(row);
    return m_table->GetFoundSide(row) == WifTable::Side::First ? points.second.detail : points.first.detail;
}

void WhatIfDialog::OnEdited(int row, double entered)
{
    const wxBusyCursor busy;
    bool ok = false;
    // What is found becomes a step of the history; what is not leaves none, and nothing changed.
    const double deviation = Calculate(row, entered, ok);
    if (CalculationErrorHandling(row, ok, deviation))
        SetDetailsChanged(row);
    UpdateButtons();
}

double WhatIfDialog::Calculate(int row, double entered, bool& ok)
{
    return WhatIf(*m_copy).Calculate(GetDetailToAdjust(row), GetFixedDetail(row), entered, kIterations, ok);
}

bool WhatIfDialog::CalculationErrorHandling(int row, bool ok, double deviation)
{
    const bool isFar = !(deviation <= kTolerance);
    wxString text;
    if (isFar)
        text = Tr(wxTRANSLATE("Could not converge"));
    else if (!ok)
        text = Tr(wxTRANSLATE("Could not find starting values"));
    m_table->SetFailed(row, !text.empty());
    m_status->SetLabelText(text);
    m_grid->ShowAnew();
    return text.empty();
}

void WhatIfDialog::SetDetailsChanged(int row)
{
    GetDetailToAdjust(row)->changed = true;
    GetFixedDetail(row)->changed = true;
}

void WhatIfDialog::SetColEditable(int row, int column)
{
    CommitCell();
    m_table->SetFoundSide(row, WifTable::SideOf(column));
    m_table->SetFailed(row, false);
    m_grid->SetGridCursor(row, m_table->GetEnteredColumn(row));
    m_grid->ShowAnew();
}

void WhatIfDialog::Step(bool (UndoRedoDetailStack::*step)())
{
    (m_history.*step)();
    ShowHistory();
}

void WhatIfDialog::UndoAll()
{
    m_history.UndoAll();
    ShowHistory();
}

void WhatIfDialog::RedoAll()
{
    m_history.RedoAll();
    ShowHistory();
}

void WhatIfDialog::ShowHistory()
{
    for (int row = 0; row < m_table->GetNumberRows(); ++row)
        m_table->SetFailed(row, false);
    m_status->SetLabelText(wxString());
    m_grid->ShowAnew();
    UpdateButtons();
}

void WhatIfDialog::Discard()
{
    if (dialogs::AskYesNo(this, Tr(wxTRANSLATE("Do you really want to discard all changes?")),
                          Tr(wxTRANSLATE("Discard changes")), wxICON_QUESTION) == wxID_YES)
        UndoAll();
}

void WhatIfDialog::OnApply()
{
    CalculateDesignAndDisplay();
    UpdateButtons();
}

void WhatIfDialog::CalculateDesignAndDisplay()
{
    whatif::CopyInputs(*m_copy, *m_project, wxTRANSLATE("what-if analysis"));
    m_grid->ShowAnew();
}

bool WhatIfDialog::HasUnappliedChanges() const
{
    return !whatif::HasSameInputs(*m_copy, *m_project);
}

void WhatIfDialog::OnProjectChanged(const ProjectChanges& changes)
{
    if (changes.GetKind() != EditKind::History)
        PushToUndoStack(changes);
}

void WhatIfDialog::CommitCell()
{
    m_grid->CommitCell();
}

void WhatIfDialog::UpdateButtons()
{
    m_undo->Enable(UndoPossible());
    m_undoAll->Enable(UndoPossible());
    m_discard->Enable(UndoPossible());
    m_redo->Enable(RedoPossible());
    m_redoAll->Enable(RedoPossible());
    m_apply->Enable(HasUnappliedChanges());
    // A button that is disabled under the focus would keep it.
    const wxWindow* focused = wxWindow::FindFocus();
    if (focused != nullptr && focused->GetParent() == this && !focused->IsEnabled())
        m_grid->SetFocus();
}

void WhatIfDialog::ShowHelp() const
{
    if (m_help != nullptr)
        m_help->DisplayHelpSection(kHelpPage);
}

void WhatIfDialog::OnCharHook(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    const bool isTyping = m_grid->IsCellEditControlShown();
    if (key == WXK_F1)
        ShowHelp();
    else if (key == 'Z' && event.GetModifiers() == wxMOD_CONTROL && !isTyping)
        Undo();
    else if (key == 'Z' && event.GetModifiers() == (wxMOD_CONTROL | wxMOD_SHIFT) && !isTyping)
        Redo();
    else
        event.Skip();
}

void WhatIfDialog::OnClose(wxCloseEvent& event)
{
    CommitCell();
    const bool mayStay = event.CanVeto() && HasUnappliedChanges();
    if (mayStay &&
        dialogs::AskYesNo(
            this, Tr(wxTRANSLATE("Do you want to close without applying your changes to the design?")),
            Tr(wxTRANSLATE("Please confirm")), wxICON_QUESTION) != wxID_YES) {
        event.Veto();
        return;
    }
    if (IsModal())
        EndModal(wxID_CLOSE);
    else
        Hide();
}

wxGrid& WhatIfDialog::GetGrid()
{
    return *m_grid;
}

wxString WhatIfDialog::GetStatusText() const
{
    return m_status->GetLabelText();
}
