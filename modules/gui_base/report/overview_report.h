// SPDX-License-Identifier: MIT
#pragma once

/// The page with the graphics of the plant, and how their values are written.

#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"
#include "projectbase/graphics/graphic_info.h"

class Project;

namespace overviewtext {

/// How the values of graphics are written in a language with its separators; the unit system is that of the
/// graphic. Chemicals have their formulas.
GUI_BASE_REPORT_EXPORT FormatGraphicValue Formatter(ReportContext context);

}  // namespace overviewtext

class GUI_BASE_REPORT_EXPORT OverviewReport : public ReportPageSource
{
public:
    /// The project outlives this object. One whose arrangement has no graphic has no page.
    explicit OverviewReport(const Project& project) : m_project(project) {}

    std::vector<ReportPage> GetReportPages(const ReportContext& context) const override;
    /// A graphic that cannot be loaded is told of in its place.
    report::Section BuildReportPage(int id, const ReportContext& context) const override;

private:
    std::vector<DBObjects::GraphicInfo> Graphics() const;

    const Project& m_project;
};
