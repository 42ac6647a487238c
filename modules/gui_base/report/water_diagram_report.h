// SPDX-License-Identifier: MIT
#pragma once

/// The page with the diagrams of all waters of a project: ion bars, Stiff, Piper and Schoeller.

#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"

class Project;

class GUI_BASE_REPORT_EXPORT WaterDiagramReport : public ReportPageSource
{
public:
    /// The project outlives this object. One whose waters hold no ions has no page.
    explicit WaterDiagramReport(const Project& project) : m_project(project) {}

    std::vector<ReportPage> GetReportPages(const ReportContext& context) const override;
    report::Section BuildReportPage(int id, const ReportContext& context) const override;

private:
    const Project& m_project;
};
