// SPDX-License-Identifier: MIT
// The waters of a project as diagrams: for every project.
#include "app/modules/base/module.h"
#include "gui_base/graphics/diagrams/diagram_page.h"
#include "gui_base/report/water_diagram_report.h"

#include <wx/translation.h>

namespace app {

Module DiagramModule()
{
    return {.id = "diagrams",
            .title = wxTRANSLATE("Diagrams"),
            .icon = "/icons/diagrams.svg",
            .helpPage = "diagrams.html",
            .isFor = [](const Project&) { return true; },
            .holds = [](const Project&, const OwnerNode&, const DetailAddress&) { return false; },
            .makePage = [](const PageContext& context, OwnerNode&) -> ModulePage {
                return {.panel = new DiagramPage(context.project, context.parent)};
            },
            .makeReport = [](const Project& project) -> std::unique_ptr<ReportPageSource> {
                return std::make_unique<WaterDiagramReport>(project);
            }};
}

}  // namespace app
