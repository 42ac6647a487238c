// SPDX-License-Identifier: MIT
#include "app/frame/main_frame.h"

#include "app/frame/message_log.h"
#include "app/language/language.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/input/controls/tv_statusbar.h"
#include "gui_base/input/events.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/ionexchange/feed/feed_composition_panel_controller.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/feedwater/feed_water_panel.h"
#include "projectbase/settings/settings.h"
#include "tncommon/data_dir.h"

#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/wupdlock.h>

namespace app {
namespace {

constexpr int kStatusFields = 3;
constexpr int kTreeWidth = 240;
constexpr int kMessageHeight = 110;

/// What the user reads about a field out of range.
wxString RangeText(const ModulePanelBase::RangeViolation& violation)
{
    const bool below = violation.detail->GetRangeFlag() < 0;
    auto* validator = dynamic_cast<NumericValidator*>(violation.window->GetValidator());
    const wxString limit = validator != nullptr ? validator->GetLimitText(below) : wxString();
    const wxString text = i18n::Translated(below ? wxTRANSLATE("%s is below the minimum of %s")
                                                 : wxTRANSLATE("%s is above the maximum of %s"));
    return wxString::Format(text, violation.window->GetName(), limit);
}

/// Wide enough for all columns of a water analysis, where the screen is.
wxSize InitialSize(const wxWindow& window)
{
    wxSize size = window.FromDIP(wxSize(1600, 1000));
    size.DecTo(wxDisplay(&window).GetClientArea().GetSize());
    return size;
}

/// Extra data of a tree item: the page that it stands for.
class PageItem : public wxTreeItemData
{
public:
    explicit PageItem(std::size_t page) : m_page(page) {}
    std::size_t GetPage() const { return m_page; }

private:
    std::size_t m_page;
};

}  // namespace

MainFrame::MainFrame(std::unique_ptr<Document> document)
    : wxFrame(nullptr, wxID_ANY, "Tarnvik"), m_document(std::move(document))
{
    BuildWindows();
    BuildMenus();
    try {
        m_help = std::make_unique<TVHelpFileProvider>((tncommon::DataDir() / "help").string());
    } catch (const std::exception& error) {
        ReportError(wxString::FromUTF8(error.what()));
    }
    BuildModules();
    Bind(tvCHANGE_EVENT, &MainFrame::OnProjectChanged, this);
    Bind(tvVISUALIZE_MESSAGE, &MainFrame::OnVisualize, this);
    Bind(tv_MESSAGE, &MainFrame::OnMessage, this);
    Bind(tvCHANGEWINDOWNAME_EVENT, [this](wxCommandEvent&) { UpdateTitle(); });
    Bind(tvUPDATEPROJECTLIST_EVENT, [this](wxCommandEvent&) { FillRecentMenu(); });
    Bind(tvCHANGEUNITSYSTEMPRINTOUT_EVENT, [](wxCommandEvent& event) {
        Settings::GetSetting("unit.system.printout").SetValue(event.GetString());
    });
    Bind(tvCLOSEPROJECT_EVENT, &MainFrame::OnCloseProject, this);
    Bind(tvACTIVATECURRENTTREEITEM_EVENT,
         [this](wxCommandEvent& event) { ShowModule(static_cast<std::size_t>(event.GetInt())); });
    Bind(wxEVT_CLOSE_WINDOW, &MainFrame::OnClose, this);
    Bind(wxEVT_TIMER, &MainFrame::OnAutosave, this);
    RestartAutosave();
    UpdateTitle();
    SetSize(InitialSize(*this));
}

MainFrame::~MainFrame()
{
    m_document->GetProject().GetLogger().SetSink({});
    // The panels hold on to the project, which goes with this object's members.
    DestroyChildren();
    m_feed.reset();
}

void MainFrame::BuildWindows()
{
    m_statusBar = new TvStatusBar(this);
    m_statusBar->SetFieldsCount(kStatusFields);
    SetStatusBar(m_statusBar);

    auto* vertical = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSP_LIVE_UPDATE);
    auto* horizontal =
        new wxSplitterWindow(vertical, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSP_LIVE_UPDATE);
    m_tree = new wxTreeCtrl(horizontal, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                            wxTR_DEFAULT_STYLE | wxTR_HIDE_ROOT | wxTR_NO_LINES | wxTR_FULL_ROW_HIGHLIGHT);
    m_notebook =
        new AuiNotebook(horizontal, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                        wxAUI_NB_TOP | wxAUI_NB_TAB_SPLIT | wxAUI_NB_TAB_MOVE | wxAUI_NB_SCROLL_BUTTONS);
    horizontal->SetMinimumPaneSize(FromDIP(80));
    horizontal->SplitVertically(m_tree, m_notebook, FromDIP(kTreeWidth));
    m_messages = new MessageArea(vertical);
    vertical->SetMinimumPaneSize(FromDIP(48));
    vertical->SetSashGravity(1.0);
    vertical->SplitHorizontally(horizontal, m_messages, -FromDIP(kMessageHeight));
    m_messages->SetOnActivate([this](const std::string& key) { FocusDetail(key); });
    m_tree->Bind(wxEVT_TREE_SEL_CHANGED, &MainFrame::OnTreeSelection, this);
    RedirectLog(*m_messages);
}

void MainFrame::BuildModules()
{
    const wxWindowUpdateLocker frozen(this);
    ClearModules();
    Project& project = m_document->GetProject();
    project.GetLogger().SetSink([this](const Logger::Entry& entry) {
        m_messages->AddMessage(static_cast<MessageArea::Severity>(entry.level),
                               i18n::Translated(wxString::FromUTF8(entry.text)));
    });
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i) {
        auto* panel = new FeedWaterPanel(&project, i, m_notebook, wxID_ANY, m_help.get());
        m_panels.push_back(panel);
        m_notebook->AddPage(panel, wxString());
    }
    BuildFeedComposition();
    NameModules();
    RestoreArrangement();
    UpdateRangeMessages();
}

void MainFrame::NameModules()
{
    m_tree->DeleteAllItems();
    const wxTreeItemId root = m_tree->AddRoot(wxString());
    const wxTreeItemId waters = m_tree->AppendItem(root, i18n::Translated("Water analysis"));
    const Project& project = m_document->GetProject();
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i) {
        const wxString name = i18n::Translated(wxString::FromUTF8(project.GetLiquid(i).GetName()));
        m_tree->AppendItem(waters, name, -1, -1, new PageItem(i));
        m_notebook->SetPageText(static_cast<std::size_t>(m_notebook->GetPageIndex(m_panels[i])), name);
    }
    if (m_feedPanel != nullptr) {
        const wxString name = i18n::Translated("Feed composition");
        m_tree->AppendItem(root, name, -1, -1, new PageItem(project.GetLiquidCount()));
        m_notebook->SetPageText(static_cast<std::size_t>(m_notebook->GetPageIndex(m_feedPanel)), name);
    }
    m_tree->ExpandAll();
}

std::string MainFrame::ArrangementParameter() const
{
    return "/Perspective/" + m_document->GetProject().GetModuleType();
}

void MainFrame::KeepArrangement()
{
    ProjectDatabase::SetLocalParameter(ArrangementParameter(), m_notebook->SavePerspective().utf8_string());
}

void MainFrame::RestoreArrangement()
{
    try {
        const std::string arrangement = ProjectDatabase::GetLocalParameter(ArrangementParameter());
        if (!arrangement.empty())
            m_notebook->LoadPerspective(wxString::FromUTF8(arrangement));
    } catch (const std::exception& error) {
        ReportError(wxString::FromUTF8(error.what()));
    }
}

void MainFrame::SetDocument(std::unique_ptr<Document> document)
{
    m_document->GetProject().GetLogger().SetSink({});
    m_document->DiscardRecovery();
    // The panels go before the project that they show.
    ClearModules();
    m_messages->ClearMessages();
    m_document = std::move(document);
    BuildModules();
    UpdateTitle();
}

WaterAnalysisPanel* MainFrame::GetWaterPanel() const
{
    return m_panels.empty() ? nullptr : dynamic_cast<WaterAnalysisPanel*>(m_panels.front());
}

ModulePanelBase* MainFrame::CurrentPanel() const
{
    return dynamic_cast<ModulePanelBase*>(m_notebook->GetCurrentPage());
}

void MainFrame::UpdateTitle()
{
    const std::string name = m_document->GetName();
    wxString title = name.empty() ? i18n::Translated("Untitled") : wxString::FromUTF8(name);
    if (m_document->GetProject().IsChanged())
        title.Prepend("*");
    SetTitle(title + " - Tarnvik");
}

void MainFrame::UpdateRangeMessages()
{
    std::vector<MessageArea::RangeMessage> messages;
    for (const ModulePanelBase* panel : m_panels) {
        for (const auto& violation : panel->GetRangeViolations())
            messages.push_back({RangeText(violation), violation.detail->GetName()});
    }
    m_messages->SetRangeMessages(messages);
}

void MainFrame::ShowModule(std::size_t module)
{
    if (module >= m_panels.size())
        return;
    // The user may have dragged the pages into another order.
    m_notebook->SetSelection(static_cast<std::size_t>(m_notebook->GetPageIndex(m_panels[module])));
    m_panels[module]->SetFocus();
}

void MainFrame::FocusDetail(const std::string& key)
{
    for (std::size_t i = 0; i < m_panels.size(); ++i) {
        for (const auto& violation : m_panels[i]->GetRangeViolations()) {
            if (violation.detail->GetName() != key)
                continue;
            ShowModule(i);
            m_panels[i]->FocusDetail(key);
            return;
        }
    }
}

void MainFrame::SendToPanels(wxEventType type)
{
    for (ModulePanelBase* panel : m_panels) {
        wxCommandEvent event(type, panel->GetId());
        // To the panel alone: it would climb back to this frame.
        event.StopPropagation();
        panel->GetEventHandler()->ProcessEvent(event);
    }
}

void MainFrame::SetUnitSystem(const std::string& unitSystem)
{
    CommitFocusedField();
    Settings::GetSetting("unit.system").SetValue(unitSystem);
    m_document->GetProject().SetUnitSystemDisplay(unitSystem);
    SendToPanels(tvCHANGEUNITSYSTEM_EVENT);
    UpdateRangeMessages();
}

void MainFrame::SetLanguage(const wxString& code)
{
    CommitFocusedField();
    const wxWindowUpdateLocker frozen(this);
    Settings::GetSetting("language").SetValue(code);
    SwitchLanguage(code);
    BuildMenus();
    m_statusBar->Localize();
    m_messages->Localize();
    NameModules();
    SendToPanels(tvLOCALIZE_EVENT);
    UpdateTitle();
    UpdateRangeMessages();
}

void MainFrame::Undo()
{
    CommitFocusedField();
    // A commit queues its change event; the step must be there before it is undone.
    m_document->RecordEdit();
    AfterUndo(m_document->Undo());
}

void MainFrame::Redo()
{
    CommitFocusedField();
    m_document->RecordEdit();
    AfterUndo(m_document->Redo());
}

void MainFrame::AfterUndo(const std::vector<DetailAddress>& changed)
{
    if (changed.empty())
        return;
    for (ModulePanelBase* panel : m_panels)
        panel->UpdateUnits(true);
    if (m_feed)
        m_feed->ReloadComposition();
    const std::size_t module = ModuleOf(changed.front());
    if (module < m_panels.size()) {
        ShowModule(module);
        m_panels[module]->FocusDetail(changed.front().name);
    }
    UpdateTitle();
    UpdateRangeMessages();
}

void MainFrame::ReportError(const wxString& text)
{
    m_messages->AddMessage(MessageArea::Severity::Error, text);
}

void MainFrame::OnProjectChanged(wxCommandEvent&)
{
    FollowBlends();
    m_document->RecordEdit();
    UpdateRangeMessages();
    events::SendEvent(this, tvCHANGEWINDOWNAME_EVENT, GetId(), 0, wxString());
}

void MainFrame::OnVisualize(VisualizeMessageEvent&)
{
    UpdateRangeMessages();
}

void MainFrame::OnMessage(MessageEvent& event)
{
    for (const std::string& message : event.GetMessages())
        m_messages->AddMessage(MessageArea::Severity::Info, wxString::FromUTF8(message));
}

void MainFrame::OnTreeSelection(wxTreeEvent& event)
{
    const auto* item = dynamic_cast<PageItem*>(m_tree->GetItemData(event.GetItem()));
    if (item != nullptr)
        events::SendEvent(this, tvACTIVATECURRENTTREEITEM_EVENT, GetId(), static_cast<int>(item->GetPage()),
                          {});
}

void MainFrame::OnClose(wxCloseEvent& event)
{
    CommitFocusedField();
    if (event.CanVeto() && !ConfirmDiscard()) {
        event.Veto();
        return;
    }
    try {
        m_document->DiscardRecovery();
        KeepArrangement();
        Settings::Save();
    } catch (const std::exception& error) {
        wxLogDebug("%s", wxString::FromUTF8(error.what()));
    }
    RedirectLog();
    Destroy();
}

}  // namespace app
