// SPDX-License-Identifier: MIT
// What water and regenerants do to beds of resin, as charts: for every project, with a plant or without.
#include "app/modules/base/module.h"
#include "gui_base/graphics/chart/chart_page.h"
#include "gui_base/report/chart_report.h"

#include <wx/translation.h>

namespace app {

Module ChartModule()
{
    return {.id = "charts",
            .title = wxTRANSLATE("Charts"),
            .icon = "/icons/charts.svg",
            .helpPage = "charts.htm",
            .isFor = [](const Project&) { return true; },
            .holds = [](const Project&, const OwnerNode&, const DetailAddress&) { return false; },
            .makePage = [](const PageContext& context, OwnerNode&) -> ModulePage {
                return {.panel = new ChartPage(context.project, context.parent)};
            },
            .makeReport = [](const Project& project) -> std::unique_ptr<ReportPageSource> {
                return std::make_unique<ChartReport>(project);
            }};
}

}  // namespace app
