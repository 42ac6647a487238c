// SPDX-License-Identifier: MIT
#include "app/frame/main_frame.h"

#include "app/frame/menu_table.h"
#include "app/frame/message_log.h"
#include "app/frame/navigator.h"
#include "app/frame/start_page.h"
#include "app/frame/window_place.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/graphics/diagrams/water_diagram_panel.h"
#include "gui_base/input/controls/tv_statusbar.h"
#include "gui_base/input/events.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/support/density.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/results/water_results_panel.h"
#include "projectbase/settings/settings.h"
#include "tncommon/data_dir.h"

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
            CallAfter([this] { m_workArea->ShowFloating(); });
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
                m_start->TakeColours();
                // Fields keep the colours that they were made with.
                RebuildPages();
            });
    });
    m_files.RestartAutosave();
    m_textColour = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT);
    // Windows remember sizes that were measured before.
    density::SetOnSizes(*this, [this] {
        Localize();
        RebuildPages();
    });
    TakeKeptPlace(*this);
    m_workArea->TakeKeptLayout();
    OpenPages();
}

MainFrame::~MainFrame()
{
    density::SetOnSizes(*this, nullptr);
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
    m_workArea->FitPanes();
    project.AddObserver(*this);
    ShowResults();
    m_advice.JudgeAll(project);
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
    else if (IsShown())
        GetNotebook().GetCurrentPage()->SetFocus();
}

void MainFrame::RebuildPages()
{
    // What is being typed is stored while all still listen.
    CommitFocusedField();
    const wxWindowUpdateLocker frozen(this);
    KeepArrangement();
    ClosePages();
    OpenPages();
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
