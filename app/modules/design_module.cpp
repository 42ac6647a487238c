// SPDX-License-Identifier: MIT
// The exchangers of a plant and what their design comes to.
#include "app/modules/base/module.h"
#include "gui_base/ionexchange/design/design_panel.h"
#include "gui_base/report/design_report.h"

#include <wx/translation.h>

namespace app {

namespace {

bool IsFor(const Project& project)
{
    const auto* plant = dynamic_cast<const iex::IEXProject*>(&project);
    return plant != nullptr && plant->NumberSteps() > 0;
}

/// Values of the plant; flow, time and volume stand with the first water, too, which leads to them.
bool Holds(const Project& project, const OwnerNode&, const DetailAddress& address)
{
    const OwnerNode* owner = project.FindOwner(address.owner);
    if (owner == nullptr)
        return false;
    switch (owner->GetKind()) {
        case OwnerKind::Exchanger:
        case OwnerKind::Compartment:
        case OwnerKind::Resin:
            return true;
        case OwnerKind::Project:
            return address.key == "project/water";
        default:
            return false;
    }
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
                return {.panel =
                            new DesignPanel(dynamic_cast<iex::IEXProject&>(context.project), context.parent)};
            },
            .makeReport = [](const Project& project) -> std::unique_ptr<ReportPageSource> {
                return std::make_unique<DesignReport>(project);
            }};
}

}  // namespace app
