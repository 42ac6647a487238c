// SPDX-License-Identifier: MIT
#pragma once

/// The page about what lies outside its limits, wherever it stands in the project.

#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"

class Project;

class GUI_BASE_REPORT_EXPORT RangeReport : public ReportPageSource
{
public:
    /// The project outlives this object. There is no page where nothing is out of range.
    explicit RangeReport(const Project& project) : m_project(project) {}

    std::vector<ReportPage> GetReportPages(const ReportContext& context) const override;
    report::Section BuildReportPage(int id, const ReportContext& context) const override;

private:
    const Project& m_project;
};
