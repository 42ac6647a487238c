// SPDX-License-Identifier: MIT
// What a plant costs, and its product water.
#include "app/modules/base/module.h"
#include "gui_base/ionexchange/costs/irx_costpanel.h"
#include "gui_base/report/cost_report.h"
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
    return address.owner == DetailOwner() && address.key.starts_with("cost/");
}

}  // namespace

Module CostModule()
{
    return {.id = "cost",
            .title = wxTRANSLATE("Cost"),
            .icon = "/icons/cost.svg",
            .helpPage = "costs.html",
            .isFor = IsFor,
            .holds = Holds,
            .makePage = [](const PageContext& context, OwnerNode&) -> ModulePage {
                auto* panel =
                    new IRXCostsPanel(&dynamic_cast<iex::IEXProject&>(context.project), context.parent);
                return {.panel = panel, .refreshDatabase = [panel] { panel->UpdateCurrencyDisplay(); }};
            },
            .makeReport = [](const Project& project) -> std::unique_ptr<ReportPageSource> {
                return std::make_unique<CostReport>(project);
            }};
}

}  // namespace app
