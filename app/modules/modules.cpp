// SPDX-License-Identifier: MIT
#include "app/modules/base/module.h"
#include "gui_base/report/range_report.h"

#include <array>

namespace app {

Module ProjectModule();
Module WaterModule();
Module DiagramModule();
Module FeedModule();
Module DesignModule();
Module OverviewModule();
Module RegenerationModule();
Module WasteWaterModule();
Module ChartModule();
Module CostModule();

std::span<const Module> Modules()
{
    static const std::array modules{
        ProjectModule(),  WaterModule(),        DiagramModule(),    FeedModule(),  DesignModule(),
        OverviewModule(), RegenerationModule(), WasteWaterModule(), ChartModule(), CostModule()};
    return modules;
}

std::vector<std::unique_ptr<ReportPageSource>> ReportSources(const Project& project)
{
    std::vector<std::unique_ptr<ReportPageSource>> sources;
    for (const Module& module : Modules()) {
        if (module.makeReport != nullptr && module.isFor(project))
            sources.push_back(module.makeReport(project));
    }
    sources.push_back(std::make_unique<RangeReport>(project));
    return sources;
}

}  // namespace app
