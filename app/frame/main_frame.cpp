// SPDX-License-Identifier: MIT
#include "app/frame/main_frame.h"

#include "app/frame/menu_table.h"
#include "app/frame/message_log.h"
#include "app/frame/navigator.h"
#include "app/frame/plant_dialog.h"
#include "app/frame/report_context.h"
#include "app/frame/start_page.h"
#include "app/frame/window_place.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/dialogs/tv_report_controller.h"
#include "gui_base/graphics/diagrams/water_diagram_panel.h"
#include "gui_base/input/controls/tv_statusbar.h"
#include "gui_base/input/events.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/ionexchange/whatif/what_if_dialog.h"
#include "gui_base/ionexchange/whatif/what_if_grid_pair_loader.h"
#include "gui_base/report/range_sentence.h"
#include "gui_base/report/report_builder.h"
#include "gui_base/support/density.h"
#include "gui_base/support/file_path.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/results/water_results_panel.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/range_faults.h"
#include "projectbase/settings/settings.h"
#include "tncommon/data_dir.h"

#include <wx/aboutdlg.h>
#include <wx/settings.h>
#include <wx/wupdlock.h>

namespace app {
namespace {

constexpr int kStatusFields = 3;
/// The kind of the small diagram, by its number.
constexpr const char* kDiagram = "/Window/diagram";

/// As it was left; the bars where nothing of that was kept.
water_diagram::Kind KeptDiagram()
{
    std::string kept;
    try {
        kept = ProjectDatabase::GetLocalParameter(kDiagram);
    } catch (const std::exception& error) {
        wxLogDebug("%s", wxString::FromUTF8(error.what()));
    }
    const auto found = std::ranges::find_if(water_diagram::kKinds, [&kept](water_diagram::Kind kind) {
        return kept == std::to_string(static_cast<int>(kind));
    });
    return found == water_diagram::kKinds.end() ? water_diagram::Kind::Bars : *found;
}

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

MainFrame::MainFrame(std::unique_ptr<Document> document)
    : wxFrame(nullptr, wxID_ANY, "Tarnvik"), m_document(std::move(document))
{
    BuildWindows();
    BuildMenus();
    try {
        m_help = std::make_unique<TVHelpFileProvider>((tncommon::DataDir() / "help").string());
    } catch (const std::exception& error) {
        ReportError(error);
    }
    Bind(wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { UpdateCommand(*this, event); });
    Bind(tvVISUALIZE_MESSAGE, [this](VisualizeMessageEvent&) { UpdateRangeMessages(); });
    Bind(tv_MESSAGE, &MainFrame::OnMessage, this);
    Bind(tvCHANGEWINDOWNAME_EVENT, [this](wxCommandEvent&) { UpdateTitle(); });
    Bind(tvCLOSEPROJECT_EVENT, [this](wxCommandEvent&) { m_files.New(); });
    Bind(tvACTIVATECURRENTTREEITEM_EVENT,
         [this](wxCommandEvent& event) { m_book->ShowPlace(static_cast<std::size_t>(event.GetInt())); });
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        if (!DoCommandOfKey(*this, event))
            event.Skip();
    });
    Bind(wxEVT_CLOSE_WINDOW, &MainFrame::OnClose, this);
    Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
        event.Skip();
        if (event.IsShown()) {
            m_book->MakeShownPages();
            FocusPage();
        }
    });
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        event.Skip();
        // The toolkit tells of every change of a window's state, too. Pictures of commands are drawn in the
        // colour of the texts.
        const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT);
        if (text != std::exchange(m_textColour, text))
            CallAfter([this] {
                BuildMenus();
                m_workArea->TakeColours();
                // Fields keep the colours that they were made with.
                RebuildPages();
            });
    });
    m_files.RestartAutosave();
    m_textColour = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT);
    // Windows remember sizes that were measured with the texts of before.
    density::SetOnTextSize([this] { CallAfter([this] { RebuildPages(); }); });
    TakeKeptPlace(*this);
    m_workArea->TakeKeptLayout();
    OpenPages();
}

MainFrame::~MainFrame()
{
    density::SetOnTextSize(nullptr);
    ClosePages();
    // What is left of the windows holds on to this object's members.
    DestroyChildren();
}

void MainFrame::BuildWindows()
{
    m_statusBar = new TvStatusBar(this);
    m_statusBar->SetFieldsCount(kStatusFields);
    SetStatusBar(m_statusBar);

    SetIcons(ImageLoader::LoadIcons("icons/tarnvik.svg"));
    m_workArea = new WorkArea(this);
    m_book = std::make_unique<ModuleBook>(m_workArea->GetTree(), m_workArea->GetNotebook());
    m_navigator = std::make_unique<Navigator>(m_workArea->GetTree(), *this);
    m_results = new wateranalysis::WaterResultsPanel(
        m_workArea->GetDesk(),
        [this](const DetailAddress& address) {
            ShowPages();
            m_book->ShowDetail(address);
        },
        [this](const std::string& section) {
            if (m_help)
                m_help->DisplayHelpSection(section);
        });
    m_workArea->AddPane(WorkPane::Results, m_results);
    m_diagram = new WaterDiagramPanel(m_workArea->GetDesk(), KeptDiagram());
    m_workArea->AddPane(WorkPane::Diagram, m_diagram);
    GetNotebook().Bind(wxEVT_AUINOTEBOOK_PAGE_CHANGED, [this](wxAuiNotebookEvent& event) {
        event.Skip();
        ShowResults();
    });
    m_start = new StartPage(m_workArea->GetCoverParent(), *this);
    m_workArea->SetCover(m_start);
    // Whoever turns to a page leaves the start page, also by the page that is selected already.
    m_workArea->GetTree().Bind(wxEVT_TREE_SEL_CHANGED, [this](wxTreeEvent& event) {
        event.Skip();
        ShowPages();
    });
    m_workArea->GetTree().Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
        event.Skip();
        ShowPages();
    });
    GetMessageArea().SetOnActivate([this](const DetailAddress& address) {
        ShowPages();
        m_book->ShowDetail(address);
    });
    RedirectLog(GetMessageArea());
}

void MainFrame::OpenPages()
{
    const wxWindowUpdateLocker frozen(this);
    Project& project = GetProject();
    project.GetLogger().SetSink([this](const Logger::Entry& entry) {
        GetMessageArea().AddMessage(static_cast<MessageArea::Severity>(entry.level), [text = entry.text] {
            return UserMessage{i18n::Translated(wxString::FromUTF8(text)), {}};
        });
    });
    try {
        m_book->Open(project, m_help.get(), m_statusBar, KeptArrangement());
    } catch (const std::exception& error) {
        ReportError(error);
    }
    m_workArea->FitNavigator();
    project.AddObserver(*this);
    ShowResults();
    UpdateRangeMessages();
    UpdateTitle();
}

void MainFrame::ClosePages()
{
    GetProject().RemoveObserver(*this);
    GetProject().GetLogger().SetSink({});
    m_book->Close();
    // Pages that go bring others to the front, whose water is shown.
    m_results->SetWater(nullptr, {});
    m_diagram->Clear();
}

void MainFrame::SetDocument(std::unique_ptr<Document> document)
{
    m_document->DiscardRecovery();
    // The pages go before the project that they show.
    ClosePages();
    GetMessageArea().ClearMessages();
    m_document = std::move(document);
    OpenPages();
    ShowPages();
    FocusPage();
}

void MainFrame::FocusPage()
{
    // Typing begins at once.
    if (IsStartShown())
        m_start->SetFocus();
    else if (const LiquidData* water = m_waters.GetCurrent(); water != nullptr && IsShown())
        m_book->ShowDetail({water->GetOwner(), "liquid/na.orig"}, true);
}

void MainFrame::RebuildPages()
{
    const wxWindowUpdateLocker frozen(this);
    KeepArrangement();
    ClosePages();
    OpenPages();
}

void MainFrame::OnProjectChanged(const ProjectChanges& changes)
{
    if (changes.HasStructure()) {
        m_book->Follow();
        ShowResults();
    } else {
        m_book->ShowBalances();
        if (changes.Touches(m_shownWater) || changes.Touches({}))
            ShowDiagram();
    }
    UpdateRangeMessages();
    UpdateTitle();
}

std::string MainFrame::ArrangementParameter() const
{
    return "/Perspective/" + m_document->GetProject().GetModuleType();
}

void MainFrame::KeepArrangement()
{
    ProjectDatabase::SetLocalParameter(ArrangementParameter(), GetNotebook().SavePerspective().utf8_string());
}

wxString MainFrame::KeptArrangement()
{
    try {
        return wxString::FromUTF8(ProjectDatabase::GetLocalParameter(ArrangementParameter()));
    } catch (const std::exception& error) {
        ReportError(error);
        return {};
    }
}

void MainFrame::BuildMenus()
{
    wxMenuBar* old = GetMenuBar();
    SetMenuBar(BuildMenuBar(*this));
    delete old;
    delete GetToolBar();
    SetToolBar(BuildToolBar(*this));
}

void MainFrame::UpdateTitle()
{
    const std::string name = m_document->GetName();
    wxString title = name.empty() ? i18n::Translated("Untitled") : ShownText(name);
    if (m_document->IsUnsaved())
        title.Prepend("*");
    title += " - Tarnvik";
    if (title != GetTitle())
        SetTitle(title);
}

void MainFrame::UpdateRangeMessages()
{
    ReportContext context = WindowContext();
    context.unitSystem = GetProject().GetUnitSystemDisplay();
    std::vector<MessageArea::RangeMessage> messages;
    for (const RangeFault& fault : RangeFaults(GetProject()))
        messages.push_back({wxString::FromUTF8(RangeSentence(fault, GetProject(), context)), fault.address});
    GetMessageArea().SetRangeMessages(messages);
}

void MainFrame::ShowResults()
{
    Project& project = GetProject();
    const LiquidData* water = m_waters.GetCurrent();
    if (water != nullptr)
        m_shownWater = water->GetOwner();
    else if (project.FindOwner(m_shownWater) == nullptr)
        m_shownWater = project.GetLiquid(0).GetOwner();
    m_results->SetWater(&project, m_shownWater);
    ShowDiagram();
}

void MainFrame::ShowDiagram()
{
    const Project& project = GetProject();
    if (const auto* water = dynamic_cast<const LiquidData*>(project.FindOwner(m_shownWater)))
        m_diagram->SetWater(*water, project.GetUnitSystemDisplay());
}

void MainFrame::ShowUnits()
{
    m_book->SendToPages(tvCHANGEUNITSYSTEM_EVENT);
    m_results->Localize();
    ShowDiagram();
    UpdateRangeMessages();
}

void MainFrame::Localize()
{
    const wxWindowUpdateLocker frozen(this);
    BuildMenus();
    m_statusBar->Localize();
    m_workArea->Localize();
    m_start->Localize();
    m_results->Localize();
    m_diagram->Localize(GetProject().GetUnitSystemDisplay());
    m_book->Localize();
    m_book->SendToPages(tvLOCALIZE_EVENT);
    if (m_help)
        m_help->Localize();
    UpdateTitle();
    UpdateRangeMessages();
}

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

void MainFrame::ShowStart()
{
    CommitFocusedField();
    m_start->ShowFresh();
    m_workArea->ShowCover(true);
    m_start->SetFocus();
}

bool MainFrame::IsStartShown() const
{
    return m_workArea->IsCoverShown();
}

void MainFrame::ShowPages()
{
    m_workArea->ShowCover(false);
    m_book->MakeShownPages();
}

void MainFrame::ClearMessages()
{
    GetMessageArea().ClearMessages();
    UpdateRangeMessages();
}

void MainFrame::ReportError(MessageArea::Text text)
{
    GetMessageArea().AddMessage(MessageArea::Severity::Error, std::move(text));
}

void MainFrame::ReportError(const std::exception& error)
{
    const std::exception_ptr caught = std::current_exception();
    ReportError([caught, fixed = MessageOf(error)] {
        try {
            if (caught)
                std::rethrow_exception(caught);
        } catch (const std::exception& again) {
            return MessageOf(again);
        } catch (...) {
        }
        return fixed;
    });
}

void MainFrame::ReportNote(const wxString& text)
{
    ReportNote([text] { return UserMessage{text, {}}; });
}

void MainFrame::ReportNote(MessageArea::Text text)
{
    GetMessageArea().AddMessage(MessageArea::Severity::Info, std::move(text));
}

void MainFrame::OnMessage(MessageEvent& event)
{
    for (const std::string& message : event.GetMessages())
        ReportNote(wxString::FromUTF8(message));
}

void MainFrame::OnClose(wxCloseEvent& event)
{
    CommitFocusedField();
    if (event.CanVeto() && !m_files.ConfirmDiscard()) {
        event.Veto();
        return;
    }
    try {
        // A window that must close, whatever the user wants, gives up nothing.
        if (event.CanVeto())
            m_document->DiscardRecovery();
        else
            m_files.KeepUnsaved();
        KeepArrangement();
        m_workArea->KeepLayout();
        ProjectDatabase::SetLocalParameter(kDiagram, std::to_string(static_cast<int>(m_diagram->GetKind())));
        KeepPlace(*this);
        Settings::Save();
    } catch (const std::exception& error) {
        wxLogDebug("%s", wxString::FromUTF8(error.what()));
    }
    RedirectLog();
    Destroy();
}

}  // namespace app
