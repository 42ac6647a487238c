// SPDX-License-Identifier: MIT
// The module of the feed composition in the main window.
#include "app/frame/main_frame.h"
#include "gui_base/input/controls/tv_statusbar.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/ionexchange/feed/feed_composition_panel_controller.h"

namespace app {

void MainFrame::BuildFeedComposition()
{
    auto* project = dynamic_cast<iex::IEXProject*>(&m_document->GetProject());
    if (project == nullptr)
        return;
    auto* panel = new FeedCompositionPanel(m_notebook, wxID_ANY, m_statusBar);
    m_feedPanel = panel;
    m_panels.push_back(panel);
    m_notebook->AddPage(panel, wxString());
    try {
        m_feed = std::make_unique<FeedCompositionPanelController>(
            *project, std::make_unique<FeedComposition>(), *panel);
    } catch (const std::exception& error) {
        ReportError(wxString::FromUTF8(error.what()));
    }
}

void MainFrame::ClearModules()
{
    // The view goes first: the toolkit does not like handlers to vanish while windows close.
    m_notebook->DeleteAllPages();
    m_feed.reset();
    m_panels.clear();
    m_feedPanel = nullptr;
}

std::size_t MainFrame::ModuleOf(const DetailAddress& address) const
{
    if (address.liquid >= 0)
        return static_cast<std::size_t>(address.liquid);
    const bool ofFeed = address.name.rfind("feed", 0) == 0;
    return ofFeed && m_feedPanel != nullptr ? m_document->GetProject().GetLiquidCount() : m_panels.size();
}

}  // namespace app
