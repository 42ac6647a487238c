// SPDX-License-Identifier: MIT
// What the main window does with whole waters: the library, and copying from one water to another.
#include "app/main_frame.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/feed_water_panel.h"
#include "gui_base/water/water_clipboard.h"
#include "gui_base/water/water_lib_dialog.h"

#include <wx/menu.h>

namespace app {
namespace {

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

void Append(wxMenu& menu, const wxString& text, MainFrame* frame, void (MainFrame::*handler)())
{
    const wxMenuItem* item = menu.Append(wxID_ANY, text);
    menu.Bind(
        wxEVT_MENU, [frame, handler](wxCommandEvent&) { (frame->*handler)(); }, item->GetId());
}

}  // namespace

wxMenu* MainFrame::BuildToolsMenu()
{
    auto* menu = new wxMenu;
    Append(*menu, Tr("&Water library...") + "\tCtrl+L", this, &MainFrame::ShowWaterLibrary);
    Append(*menu, Tr("&Save to water library") + "\tCtrl+Shift+L", this, &MainFrame::SaveToWaterLibrary);
    return menu;
}

void MainFrame::AppendWaterItems(wxMenu& editMenu)
{
    editMenu.AppendSeparator();
    Append(editMenu, Tr("Copy &water") + "\tCtrl+Alt+C", this, &MainFrame::CopyWater);
    Append(editMenu, Tr("Paste w&ater") + "\tCtrl+Alt+V", this, &MainFrame::PasteWater);
}

FeedWaterPanel* MainFrame::CurrentWater() const
{
    return dynamic_cast<FeedWaterPanel*>(CurrentPanel());
}

void MainFrame::ShowWaterLibrary()
{
    CommitFocusedField();
    FeedWaterPanel* panel = CurrentWater();
    WaterLibDialog dialog(m_document->GetProject().GetLogger(), this);
    dialog.SetHelp(m_help.get());
    if (dialog.SelectLiquidData(panel != nullptr ? &panel->GetLiquid() : nullptr) && panel != nullptr)
        panel->ShowReplacedWater();
}

void MainFrame::SaveToWaterLibrary()
{
    CommitFocusedField();
    FeedWaterPanel* panel = CurrentWater();
    std::string problem;
    if (panel != nullptr && !WaterLibDialog::SaveLiquidData(&panel->GetLiquid(), &problem) &&
        !problem.empty())
        ReportError(Tr("Analysis could not be saved") + ": " + wxString::FromUTF8(problem));
}

void MainFrame::CopyWater()
{
    CommitFocusedField();
    if (const FeedWaterPanel* panel = CurrentWater())
        WaterClipboard::PutLiquid(&panel->GetLiquid());
}

void MainFrame::PasteWater()
{
    CommitFocusedField();
    FeedWaterPanel* panel = CurrentWater();
    if (panel == nullptr)
        return;
    if (WaterClipboard::GetLiquid(&panel->GetLiquid()))
        panel->ShowReplacedWater();
    else
        m_messages->AddMessage(MessageArea::Severity::Info, Tr("No water has been copied yet"));
}

}  // namespace app
