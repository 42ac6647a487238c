// SPDX-License-Identifier: MIT
// The plant as a drawing with its values.
#include "app/modules/base/module.h"
#include "gui_base/ionexchange/overview/iex_wplantoverview.h"
#include "gui_base/report/overview_report.h"
#include "projectbase/project/project.h"

#include <wx/translation.h>

namespace app {

namespace {

ModulePage MakePage(const PageContext& context, OwnerNode&)
{
    auto* const panel = new iex::IEXPlantOverviewPanelImpl(&context.project, context.parent, "overview");
    panel->SetOnLead(context.showDetail);
    return {.panel = panel};
}

}  // namespace

Module OverviewModule()
{
    return {.id = "overview",
            .title = wxTRANSLATE("Plant overview"),
            .icon = "/icons/overview.svg",
            .helpPage = "overview.html",
            .isFor = [](const Project& project) { return !project.GetGraphicConfigTypes().empty(); },
            // Its values are shown here and typed elsewhere.
            .holds = [](const Project&, const OwnerNode&, const DetailAddress&) { return false; },
            .makePage = MakePage,
            .makeReport = [](const Project& project) -> std::unique_ptr<ReportPageSource> {
                return std::make_unique<OverviewReport>(project);
            }};
}

}  // namespace app
