// SPDX-License-Identifier: MIT
// What the menus do with the project as a whole: its history, its plant, what-if, report and help.
#include "app/frame/main_frame.h"
#include "app/frame/plant_dialog.h"
#include "app/frame/report_context.h"
#include "app/frame/start_page.h"
#include "gui_base/dialogs/tv_report_controller.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/ionexchange/whatif/what_if_dialog.h"
#include "gui_base/ionexchange/whatif/what_if_grid_pair_loader.h"
#include "gui_base/report/report_builder.h"
#include "gui_base/support/file_path.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/results/water_results_panel.h"
#include "projectbase/project/iex_project.h"

#include <wx/aboutdlg.h>

namespace app {
namespace {

/// "Undo change of Sodium", "Undo add water".
wxString HistoryText(const char* bare, const char* change, const char* edit, const UndoStep* step)
{
    if (step == nullptr || step->name.empty())
        return i18n::Translated(bare);
    return wxString::Format(i18n::Translated(step->isNamed ? edit : change),
                            i18n::Translated(wxString::FromUTF8(step->name)));
}

/// Where the first value of a step lives.
std::optional<DetailAddress> PlaceOf(const UndoStep& step)
{
    for (const StackElement& element : step.elements) {
        if (const auto* value = std::get_if<ValueChange>(&element))
            return value->address;
        if (const auto* groups = std::get_if<GroupsChange>(&element))
            return DetailAddress{{}, groups->kind};
    }
    return std::nullopt;
}

}  // namespace

wxString MainFrame::UndoText() const
{
    return HistoryText(wxTRANSLATE("&Undo"), wxTRANSLATE("&Undo change of %s"), wxTRANSLATE("&Undo %s"),
                       m_document->GetHistory().GetUndoStep());
}

wxString MainFrame::RedoText() const
{
    return HistoryText(wxTRANSLATE("&Redo"), wxTRANSLATE("&Redo change of %s"), wxTRANSLATE("&Redo %s"),
                       m_document->GetHistory().GetRedoStep());
}

void MainFrame::Undo()
{
    CommitFocusedField();
    StepHistory(&UndoRedoDetailStack::Undo, m_document->GetHistory().GetUndoStep());
}

void MainFrame::Redo()
{
    CommitFocusedField();
    StepHistory(&UndoRedoDetailStack::Redo, m_document->GetHistory().GetRedoStep());
}

void MainFrame::StepHistory(bool (UndoRedoDetailStack::*step)(), const UndoStep* taken)
{
    const auto place = taken == nullptr ? std::nullopt : PlaceOf(*taken);
    if ((m_document->GetHistory().*step)() && place)
        m_book->ShowDetail(*place);
}

bool MainFrame::HasWhatIf() const
{
    ModulePanelBase* panel = m_book->GetCurrentPanel();
    return panel != nullptr && panel->HasWhatIf();
}

bool MainFrame::CanChangePlant() const
{
    return dynamic_cast<const iex::IEXProject*>(&m_document->GetProject()) != nullptr;
}

void MainFrame::ChangePlant()
{
    CommitFocusedField();
    try {
        app::ChangePlant(this, dynamic_cast<iex::IEXProject&>(GetProject()));
    } catch (const std::exception& error) {
        ReportError(error);
    }
}

void MainFrame::ShowWhatIf()
{
    CommitFocusedField();
    Project& project = GetProject();
    try {
        std::vector<WifPair> rows = WhatIfGridPairLoader::GetTable(project);
        std::ranges::move(WhatIfGridPairLoader::GetTableForSteps(project), std::back_inserter(rows));
        WhatIfDialog dialog(std::make_unique<WifTable>(std::move(rows), project), &project, this);
        dialog.SetHelp(m_help.get());
        dialog.ShowModal();
    } catch (const std::exception& error) {
        ReportError(error);
    }
}

void MainFrame::PrintReport()
{
    CommitFocusedField();
    const std::string name = m_document->GetName();
    const wxString title = name.empty() ? i18n::Translated("Untitled") : ShownText(name);
    const ReportHead head = MakeReportHead(GetProject(), title.utf8_string(), "Tarnvik " TARNVIK_VERSION);
    const wxFileName proposed(DialogPath(m_document->GetPath().parent_path()), title, "pdf");
    const auto sources = ReportSources(GetProject());
    std::vector<const ReportPageSource*> pages;
    for (const auto& source : sources)
        pages.push_back(source.get());
    try {
        TvReportController(this).Print(pages, WindowContext(), head, proposed);
    } catch (const std::exception& error) {
        ReportError(error);
    }
}

void MainFrame::ShowHelp()
{
    if (!m_help)
        return;
    if (const PageHost* page = m_book->GetCurrent())
        m_help->DisplayHelpSection(page->GetModule().helpPage);
    else
        m_help->DisplayHelpContent();
}

void MainFrame::ShowHelpContents()
{
    if (m_help)
        m_help->DisplayHelpContent();
}

void MainFrame::ShowAbout()
{
    wxAboutDialogInfo info;
    info.SetName("Tarnvik");
    info.SetVersion(TARNVIK_VERSION);
    info.SetDescription(i18n::Translated("Design of ion-exchange water-treatment plants"));
    info.SetLicence("MIT");
    info.SetIcon(
        ImageLoader::LoadBundle("icons/tarnvik.svg", FromDIP(wxSize(64, 64))).GetIcon(wxDefaultSize));
    wxAboutBox(info, this);
}

void MainFrame::FocusResults()
{
    m_workArea->ShowPane(WorkPane::Results, true);
    m_results->SetFocus();
}

void MainFrame::ShowStart()
{
    CommitFocusedField();
    m_start->ShowFresh();
    m_workArea->ShowCover(true);
    m_book->Cover(true);
    m_results->AllowBalancing(false);
    m_start->SetFocus();
}

bool MainFrame::IsStartShown() const
{
    return m_workArea->IsCoverShown();
}

void MainFrame::ShowPages()
{
    m_workArea->ShowCover(false);
    m_book->Cover(false);
    m_book->MakeShownPages();
    m_results->AllowBalancing(true);
}

}  // namespace app
