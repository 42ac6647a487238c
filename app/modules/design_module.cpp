// SPDX-License-Identifier: MIT
// The exchangers of a plant and what their design comes to.
#include "app/modules/base/module.h"
#include "gui_base/ionexchange/design/design_panel.h"
#include "gui_base/report/design_report.h"
#include "projectbase/project/iex_project.h"

#include <wx/translation.h>

namespace app {

namespace {

bool IsFor(const Project& project)
{
    return iex::PlantOf(project) != nullptr;
}

bool Holds(const Project&, const OwnerNode&, const DetailAddress& address)
{
    return DesignPanel::Shows(address.key);
}

}  // namespace

Module DesignModule()
{
    return {.id = "design",
            .title = wxTRANSLATE("Design"),
            .icon = "/icons/design.svg",
            .helpPage = "design.html",
            .isFor = IsFor,
            .holds = Holds,
            .makePage = [](const PageContext& context, OwnerNode&) -> ModulePage {
                return {.panel = new DesignPanel(dynamic_cast<iex::IEXProject&>(context.project),
                                                 context.parent, context.help)};
            },
            .makeReport = [](const Project& project) -> std::unique_ptr<ReportPageSource> {
                return std::make_unique<DesignReport>(project);
            }};
}

}  // namespace app
