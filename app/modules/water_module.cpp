// SPDX-License-Identifier: MIT
// The waters of a project, a page for each.
#include "app/modules/base/module.h"
#include "gui_base/report/water_report.h"
#include "gui_base/water/analysis/paste_column.h"
#include "gui_base/water/analysis/unit_for_all.h"
#include "gui_base/water/feedwater/feed_water_panel.h"
#include "projectbase/project/project.h"

#include <wx/translation.h>

namespace app {

namespace {

/// How much water the plant treats, and what it carries, stand with the first water.
bool IsQuantityOrOrganics(const std::string& key)
{
    return key == "project/qbrutto" || key == "project/lz" || key == "project/wbrutto" ||
           key == "project/nlines" || key == "feed/organics" || key == "feed/medium" ||
           key == "feed/medium.temp";
}

bool Holds(const Project&, const OwnerNode& owner, const DetailAddress& address)
{
    if (address.owner == owner.GetOwner())
        return true;
    return address.owner == DetailOwner() && owner.GetPosition() == 0 && IsQuantityOrOrganics(address.key);
}

ModulePage MakePage(const PageContext& context, OwnerNode& owner)
{
    auto* panel =
        new FeedWaterPanel(&context.project, owner.GetPosition(), context.parent, wxID_ANY, context.help);
    return {.panel = panel,
            .pasteColumn = [panel] { wateranalysis::PasteColumn(*panel); },
            .chooseUnitForAll = [panel] { wateranalysis::ChooseUnitForAll(*panel); }};
}

}  // namespace

Module WaterModule()
{
    return {.id = "water",
            .title = wxTRANSLATE("Water analysis"),
            .icon = "/icons/water.svg",
            .helpPage = "wateranalysis.html",
            .firstValue = "liquid/na.orig",
            .pageOf = OwnerKind::Water,
            .isFor = [](const Project&) { return true; },
            .holds = Holds,
            .makePage = MakePage,
            .makeReport = [](const Project& project) -> std::unique_ptr<ReportPageSource> {
                return std::make_unique<WaterReport>(project);
            }};
}

}  // namespace app
