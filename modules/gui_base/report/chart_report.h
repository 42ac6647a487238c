// SPDX-License-Identifier: MIT
#pragma once

/// The page with the charts of the resins of a plant: pressure drop and bed expansion in water.

#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"

class Project;

class GUI_BASE_REPORT_EXPORT ChartReport : public ReportPageSource
{
public:
    /// The project outlives this object. One without resins has no page.
    explicit ChartReport(const Project& project) : m_project(project) {}

    std::vector<ReportPage> GetReportPages(const ReportContext& context) const override;
    report::Section BuildReportPage(int id, const ReportContext& context) const override;

private:
    const Project& m_project;
};
