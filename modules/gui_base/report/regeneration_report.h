// SPDX-License-Identifier: MIT
#pragma once

/// A page for each exchanger that is regenerated: its sequence and what it needs of each medium.

#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"

class Project;

class GUI_BASE_REPORT_EXPORT RegenerationReport : public ReportPageSource
{
public:
    /// The project outlives this object. One without exchangers has no page.
    explicit RegenerationReport(const Project& project) : m_project(project) {}

    std::vector<ReportPage> GetReportPages(const ReportContext& context) const override;
    report::Section BuildReportPage(int id, const ReportContext& context) const override;

private:
    const Project& m_project;
};
