// SPDX-License-Identifier: MIT
// The compounds that the feed of a plant contains.
#include "app/modules/base/module.h"
#include "gui_base/ionexchange/feed/feed_composition_panel_controller.h"
#include "gui_base/report/feed_report.h"

#include <wx/translation.h>

namespace app {

namespace {

bool IsFor(const Project& project)
{
    return dynamic_cast<const iex::IEXProject*>(&project) != nullptr;
}

bool Holds(const Project&, const OwnerNode&, const DetailAddress& address)
{
    return address.owner == DetailOwner() && address.key.starts_with("feed") &&
           address.key != "feed/organics";
}

ModulePage MakePage(const PageContext& context, OwnerNode&)
{
    auto& project = dynamic_cast<iex::IEXProject&>(context.project);
    auto* panel = new FeedCompositionPanel(context.parent, wxID_ANY, context.statusBar);
    auto controller = std::make_shared<FeedCompositionPanelController>(
        project, std::make_unique<FeedComposition>(), *panel);
    FeedCompositionPanelController* const raw = controller.get();
    return {.panel = panel, .controller = std::move(controller), .refreshDatabase = [raw] {
                raw->RefreshCompounds();
            }};
}

}  // namespace

Module FeedModule()
{
    return {.id = "feed",
            .title = wxTRANSLATE("Feed composition"),
            .icon = "/icons/feed.svg",
            .helpPage = "feedcomposition.html",
            .isFor = IsFor,
            .holds = Holds,
            .makePage = MakePage,
            .makeReport = [](const Project& project) -> std::unique_ptr<ReportPageSource> {
                return std::make_unique<FeedReport>(project);
            }};
}

}  // namespace app
